// A specimen object for a test, late-bound and through its vtable.
#pragma once

#include <gtest/gtest.h>

#include "frame/com/instance.h"
#include "frame/specimen.h"
#include "support/automation.h"

namespace vorla::test {

class SpecimenTest : public testing::Test {
protected:
    SpecimenTest()
        : specimen(Dispatch::adopt(reinterpret_cast<IDispatch*>(publication.create(publication)))) {}

    Outcome call(const wchar_t* name, Arguments arguments = {}) {
        return invoke(specimen.get(), name, std::move(arguments), DISPATCH_METHOD | DISPATCH_PROPERTYGET);
    }
    Outcome put(const wchar_t* name, Arguments arguments, WORD flags = DISPATCH_PROPERTYPUT) {
        return invoke(specimen.get(), name, std::move(arguments), flags);
    }

    /// Calls the slot `index`, counted after the seven of IDispatch, as an early-bound host does.
    template <class... Raw>
    HRESULT slot(std::size_t index, Raw... raw) {
        using Function = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, Raw...);
        const auto* const vtable = *reinterpret_cast<void* const* const*>(specimen.get());
        return reinterpret_cast<Function>(vtable[7 + index])(specimen.get(), raw...);
    }

    /// The place of a member in declaration order.
    std::size_t slotOf(const wchar_t* name, MemberKind kind = MemberKind::method) const {
        for (std::size_t i = 0; i < publication.members.size(); ++i)
            if (publication.members[i].kind == kind && TextView(publication.members[i].name) == name)
                return i;
        ADD_FAILURE() << narrow(name);
        return 0;
    }

    const Publication& publication = publicationOf(Of<Specimen>());
    Dispatch specimen;
};

}  // namespace vorla::test
