#include "frame/shared/host_queries.h"

#include "frame/host/bound_object.h"
#include "frame/host/host_items.h"
#include "frame/host/member_names.h"
#include "frame/values/failure.h"
#include "frame/values/invocation.h"

namespace vorla {
namespace {

constexpr std::int16_t twips = 1;

// Nothing is a valid container.
HostObject containerOf(const HostObject& control) {
    const auto container = BoundObject(control).get(L"Container");
    if (container.view().isObject() && !container.view().raw().punkVal) return {};
    return objectIn(container.view());
}

}  // namespace

bool ProprieteExiste(const HostObject& Objet, TextView Propriete, std::int16_t TypeAppel) {
    return endOnError(false, [&] {
        // Hosts publish their names in English, whatever the user's language.
        constexpr LCID english = 1033;
        if (!Objet) return false;
        DISPID id = DISPID_UNKNOWN;
        throwIfFailed(findMember(Objet.get(), Text(Propriete).c_str(), english, id));
        invoked(Objet.get(), id, static_cast<WORD>(TypeAppel), {}, english);
        return true;
    });
}

std::int16_t ScaleModeConteneur(const HostObject& Ctl) {
    return endOnError(std::int16_t{0}, [&] {
        const auto container = containerOf(Ctl);
        if (!ProprieteExiste(container, L"Scalemode", callPropertyGet)) return twips;
        return BoundObject(container).getAs<std::int16_t>(L"ScaleMode");
    });
}

HostObject ObjetConteneur(const HostObject& Ctl) {
    return endOnError(HostObject(), [&] {
        auto container = containerOf(Ctl);
        // The scale mode itself is not needed. But old hosts rely on a container without a scale mode, or
        // with one that is not a number, giving Nothing.
        const auto mode = BoundObject(container).get(L"ScaleMode");
        if (!mode.view().isNull()) convertedTo<double>(mode.view());
        return container;
    });
}

bool FormChargee(VariantView NomOuHwnd, const HostObject& Formes) {
    HostItems forms(Formes);
    for (Variant item; forms.next(item);) {
        BoundObject form(item.view());
        if (NomOuHwnd.type() == VT_I4) {
            if (form.getAs<std::int32_t>(L"hWnd") == NomOuHwnd.raw().lVal) return true;
        } else if (NomOuHwnd.type() == VT_BSTR) {
            if (form.getAs<Text>(L"Name") == viewOf(NomOuHwnd.raw().bstrVal)) return true;
        }
    }
    return false;
}

}  // namespace vorla
