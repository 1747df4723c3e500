// The component as a file: loads it, finds its entry points, and makes its classes without the registry.
#pragma once

#include <gtest/gtest.h>

#include "frame/contract/identifiers.h"
#include "frame/values/com_pointer.h"
#include "frame/values/winapi.h"
#include "support/automation.h"

namespace vorla::test {

/// The classes in the order of the catalogue, which gives their numbers.
inline constexpr const wchar_t* classNames[] = {L"VorlaChaine",   L"VorlaNumérique",  L"VorlaGraphique",
                                                L"VorlaDate",     L"VorlaDivers",     L"VorlaFichier",
                                                L"VorlaRegistre", L"VorlaSystem",     L"VorlaLangue",
                                                L"eEnum",         L"VorlaMultiMedia", L"PaintEffects"};
inline constexpr std::uint16_t classCount = 12;
inline constexpr std::uint16_t numberOfEnum = 9, numberOfPaintEffects = 11;

inline CLSID classId(std::uint16_t number) {
    return identifier(static_cast<std::uint16_t>(numbers::classes + number));
}
inline IID interfaceId(std::uint16_t number) {
    return identifier(static_cast<std::uint16_t>(numbers::interfaces + number));
}

/// Vorla6.dll from the current folder, loaded as long as this exists.
class Component {
public:
    Component() : module_(LoadLibraryW(L".\\Vorla6.dll")) { EXPECT_NE(nullptr, module_); }
    Component(const Component&) = delete;
    Component& operator=(const Component&) = delete;
    ~Component() { FreeLibrary(module_); }

    HMODULE module() const { return module_; }

    template <class Function>
    Function* entry(const char* name) const {
        const auto function = GetProcAddress(module_, name);
        EXPECT_NE(nullptr, function) << name;
        return reinterpret_cast<Function*>(reinterpret_cast<void*>(function));
    }

    HRESULT getClassObject(REFCLSID id, REFIID asked, void** object) const {
        return entry<HRESULT WINAPI(REFCLSID, REFIID, void**)>("DllGetClassObject")(id, asked, object);
    }
    HRESULT canUnloadNow() const { return entry<HRESULT WINAPI()>("DllCanUnloadNow")(); }

    ComPointer<IClassFactory> factory(std::uint16_t number) const {
        ComPointer<IClassFactory> made;
        EXPECT_EQ(S_OK,
                  getClassObject(classId(number), IID_IClassFactory, reinterpret_cast<void**>(made.put())));
        return made;
    }

    Dispatch create(std::uint16_t number) const {
        Dispatch made;
        EXPECT_EQ(S_OK, factory(number)->CreateInstance(nullptr, IID_IDispatch,
                                                        reinterpret_cast<void**>(made.put())));
        return made;
    }

private:
    HMODULE module_;
};

}  // namespace vorla::test
