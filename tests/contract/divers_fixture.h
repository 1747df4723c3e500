// VorlaDivers, called late-bound and by its slots.
#pragma once

#include "contract/component.h"
#include "frame/contract/records.h"
#include "support/forms/host.h"
#include "support/scripted_object.h"

namespace vorla::test {

class Divers : public testing::Test {
protected:
    Outcome call(const wchar_t* name, Arguments arguments = {}) {
        return invoke(divers.get(), name, std::move(arguments));
    }
    /// Calls a member that ignores failures.
    void run(const wchar_t* name, Arguments arguments) {
        EXPECT_EQ(S_OK, call(name, std::move(arguments)).code) << narrow(name);
    }

    /// The function in the slot of a method, as an early-bound host calls it.
    template <class... Arguments>
    auto slot(const wchar_t* name) {
        using Function = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, Arguments...);
        ComPointer<ITypeInfo> description;
        EXPECT_EQ(S_OK, divers->GetTypeInfo(0, 0, description.put()));
        const auto id = idOf(divers.get(), name);
        std::size_t place = 0;
        FUNCDESC* function = nullptr;
        for (UINT i = 0; SUCCEEDED(description->GetFuncDesc(i, &function)); ++i) {
            if (function->memid == id) place = static_cast<std::size_t>(function->oVft) / sizeof(void*);
            description->ReleaseFuncDesc(function);
        }
        EXPECT_NE(0u, place) << narrow(name);
        return reinterpret_cast<Function>((*reinterpret_cast<void***>(divers.get()))[place]);
    }

    const Component component;
    const HMODULE module = component.module();
    const Dispatch divers = component.create(4);
};

/// The same with a form of the forms host, which nobody may hold when the test ends.
class DiversForm : public Divers {
protected:
    ~DiversForm() override {
        form.unload();
        form.AddRef();
        EXPECT_EQ(1u, form.Release());
    }

    forms::Host host;
    forms::Form& form = host.load(L"frmMain", {.caption = L"Saisie", .left = 300, .top = 300});

private:
    // Tests may unload the form.
    const ComPointer<forms::Form> kept_{&form};
};

}  // namespace vorla::test
