// A small forms runtime for tests and examples of members that work on a host's forms: automation objects
// with real windows.
//
//     forms::Host host;
//     auto& form = host.load(L"frmClients", {.caption = L"Clients"});
//     auto& name = form.add<TextBox>({.name = L"txtName", .at = {120, 120, 2400, 285}});
//     … a member that is given HostObject(&form) …
//     name.getAs<Text>(L"Text");  host.record().log();
//
// Use it only on the thread that made it, which must have initialised COM.
#pragma once

#include <vector>

#include "support/forms/form.h"

namespace vorla::forms {

class Host {
public:
    Host() = default;
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;
    /// Unloads all forms.
    ~Host();

    /// Loads a form without showing it. It lives until it is unloaded, and while it is referenced.
    Form& load(const wchar_t* name, const FormDesign& design = {});

    /// The collection of the loaded forms, in the order in which they were loaded.
    HostObject forms();

    /// All calls from outside, of all objects, and the failures ordered for them.
    test::CallRecord& record() { return record_; }

    /// Called when the form is unloaded.
    void forget(Form& form);

private:
    std::vector<HostObject> formObjects() const;

    test::CallRecord record_;
    std::vector<ComPointer<Form>> forms_;
};

}  // namespace vorla::forms
