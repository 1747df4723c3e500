#include "misc/container_switch.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "frame/host/bound_object.h"
#include "frame/host/host_items.h"
#include "frame/host/object_kinds.h"
#include "frame/shared/host_queries.h"
#include "frame/values/failure.h"

namespace vorla {
namespace {

// Containers outside control arrays have no index.
using Index = std::optional<std::int32_t>;

// What tells a form's containers apart.
struct Label {
    Text name;
    Index index;

    bool operator==(const Label&) const = default;
};

Index indexOf(const HostObject& container) {
    if (!ProprieteExiste(container, L"index", callPropertyGet)) return {};
    return BoundObject(container).getAs<std::int32_t>(L"Index");
}

bool isIn(BoundObject& control, const Label& container) {
    const auto around = control.getObject(L"Container");
    if (BoundObject(around).getAs<Text>(L"Name") != container.name) return false;
    if (!container.index || *container.index < 0) return true;
    const auto index = indexOf(around);
    return !index || index == container.index;
}

bool isFrame(TextView type) { return type == L"Frame" || type == L"SSFrame" || type == L"FramePlus"; }

class Switching {
public:
    Switching(const HostObject& form, bool enabled) : form_(form), enabled_(enabled) {}

    void apply(const HostObject& container) {
        step([&] {
            Label label{BoundObject(container).getAs<Text>(L"Name"), {}};
            step([&] { label.index = indexOf(container); });
            applyInside(label);
        });
        enable(container);
    }

private:
    // Windows nest less deep than this.
    static constexpr std::size_t deepest = 100;

    // Frames that seem to contain each other, or themselves, are entered once.
    void applyInside(const Label& label) {
        if (depth_ == deepest || std::find(done_.begin(), done_.end(), label) != done_.end()) return;
        done_.push_back(label);
        ++depth_;
        step([&] {
            HostItems controls(form_.getObject(L"Controls"));
            forEachItem(controls, [&](BoundObject& control) { applyTo(control, label); });
        });
        --depth_;
    }

    void applyTo(BoundObject& control, const Label& container) {
        if (!isIn(control, container)) return;
        bool entered = false;
        step([&] { entered = isFrame(typeName(control.object())); });
        if (entered) apply(control.object());
        enable(control.object());  // a frame once more
    }

    void enable(const HostObject& control) {
        step([&] { BoundObject(control).put(L"Enabled", enabled_); });
    }

    BoundObject form_;
    const bool enabled_;
    std::vector<Label> done_;
    std::size_t depth_ = 0;
};

}  // namespace

void switchContainer(const HostObject& form, const HostObject& container, bool enabled) {
    Switching(form, enabled).apply(container);
}

}  // namespace vorla
