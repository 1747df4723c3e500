// A form: a window with a scale and controls.
#pragma once

#include <vector>

#include "support/forms/collection.h"
#include "support/forms/control.h"
#include "support/forms/controls.h"

namespace vorla::forms {

class Host;

/// Border styles as hosts number them.
enum class Border : std::int16_t { none, fixed, sizable, dialog, fixedTool, sizableTool };

/// How a form is designed. Places are twips; the size is that of the client area.
struct FormDesign {
    Text caption = {};
    Border border = Border::sizable;
    bool controlBox = true;  // the buttons of the title bar, if there is one
    float left = 0, top = 0, insideWidth = 4800, insideHeight = 3600;
};

/// Enumerating a form walks its controls, in the order in which they were added.
class Form final : public Window {
public:
    Form(Host& host, const wchar_t* name, const FormDesign& design);

    /// Adds a control of one kind. It lives at least as long as the form.
    ///
    ///     auto& option = form.add<OptionButton>({.name = L"optMode", .text = L"&Rapide", .index = 1});
    template <class Kind>
    Kind& add(const Design& design) {
        auto* const made = new Kind(*this, design);
        controls_.push_back(ComPointer<Control>::adopt(made));
        return *made;
    }

    const std::vector<ComPointer<Control>>& controls() const { return controls_; }
    test::CallRecord& callRecord() const { return record(); }
    std::wstring path() const override { return name(); }

    void show() { setVisible(true); }
    void setVisible(bool visible) override;
    /// Destroys the window and takes the form out of its host.
    void unload();

private:
    const Members& members() const override;
    bool hasScale() const override { return true; }
    bool isCollection() const override { return true; }
    std::vector<Variant> items() const override;
    LRESULT answerMessage(UINT message, WPARAM first, LPARAM second) override;

    std::vector<HostObject> controlObjects() const;
    std::vector<HostObject> elementsOf(TextView name) const;
    HostObject find(VariantView key);
    HostObject controlsCollection() const;
    std::int32_t count() const { return static_cast<std::int32_t>(controls_.size()); }

    std::int16_t borderStyle() const { return static_cast<std::int16_t>(border_); }
    std::int16_t windowState() const;
    void setWindowState(std::int16_t state);
    float left() const { return edge(&RECT::left, Axis::x); }
    void setLeft(float value) { setPlace({&value, nullptr, nullptr, nullptr}); }
    float top() const { return edge(&RECT::top, Axis::y); }
    void setTop(float value) { setPlace({nullptr, &value, nullptr, nullptr}); }
    float width() const { return edge(&RECT::right, Axis::x) - left(); }
    void setWidth(float value) { setPlace({nullptr, nullptr, &value, nullptr}); }
    float height() const { return edge(&RECT::bottom, Axis::y) - top(); }
    void setHeight(float value) { setPlace({nullptr, nullptr, nullptr, &value}); }
    Variant move(const HostCall& call);
    Variant showCalled(const HostCall& call);
    Variant hideCalled(const HostCall& call);

    struct Part {
        const float *left, *top, *width, *height;  // in twips; null for an edge that stays
    };
    void setPlace(const Part& part);
    float edge(LONG RECT::*side, Axis axis) const;

    Host* host_;  // null when unloaded
    const Border border_;
    std::vector<ComPointer<Control>> controls_;
};

}  // namespace vorla::forms
