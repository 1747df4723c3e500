// A little forms runtime: real windows behind automation objects, for tests and examples of members that work
// on a host's forms.
//
//     forms::Host host;
//     auto& form = host.load(L"frmClients", {.caption = L"Clients"});
//     auto& name = form.add<TextBox>({.name = L"txtName", .at = {120, 120, 2400, 285}});
//     … a member that is given HostObject(&form) …
//     name.getAs<Text>(L"Text");  host.record().log();
//
// One thread, the one that made it, which must have initialised COM.
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

    /// A form that is loaded, not shown. It lives until it is unloaded, and as long as somebody holds it.
    Form& load(const wchar_t* name, const FormDesign& design = {});

    /// The collection of the loaded forms, in the order in which they were loaded.
    HostObject forms();

    /// All calls from outside, of all objects, and the failures ordered for them.
    test::CallRecord& record() { return record_; }

    /// The form is not loaded any more.
    void forget(Form& form);

private:
    std::vector<HostObject> formObjects() const;

    test::CallRecord record_;
    std::vector<ComPointer<Form>> forms_;
};

}  // namespace vorla::forms
