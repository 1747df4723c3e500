// Failures of the host's own objects, in the middle of a member: they come back to the host as its object
// raised them. CBR reads the default property of an object that it is given.
#include "contract/component.h"
#include "support/failing_calls.h"
#include "support/scripted_object.h"

namespace vorla::test {
namespace {

class ReportedErrors : public testing::Test {
protected:
    ReportedErrors() { value.readOnly(L"Value", short16(7)).defaultMember(L"Value"); }
    ~ReportedErrors() override { EXPECT_EQ(0, value.references()); }

    Outcome lateBound() { return invoke(chaine.get(), L"CBR", {object(&value), short16(3)}); }

    HRESULT throughTheVtable() {
        using Slot = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, VARIANT, SHORT, BSTR*);
        constexpr std::size_t slotsOfDispatch = 7;
        const auto* const vtable = *reinterpret_cast<void* const* const*>(chaine.get());
        const Variant argument = object(&value);
        Bstr result;
        return reinterpret_cast<Slot>(vtable[slotsOfDispatch])(chaine.get(), argument.raw(), 3, result.put());
    }

    void expectReported(const Outcome& outcome, HRESULT code) {
        EXPECT_EQ(DISP_E_EXCEPTION, outcome.code);
        EXPECT_EQ(code, outcome.exceptionCode);
        EXPECT_EQ(HostFailure::source, outcome.source);
        EXPECT_EQ(HostFailure::description, outcome.description);
        EXPECT_EQ(HostFailure::helpFile, outcome.helpFile);
        EXPECT_EQ(HostFailure::helpContext, outcome.helpContext);
    }

    ScriptedObject value;
    const Component component;
    const Dispatch chaine = component.create(0);
};

constexpr auto error380 = static_cast<HRESULT>(0x800A017C);

TEST_F(ReportedErrors, comeBackLateBoundAsTheyWereRaised) {
    value.failCallWithNumber(1, 380);
    expectReported(lateBound(), error380);
    value.failCall(1, error380);
    expectReported(lateBound(), error380);
    // Codes that are no run-time number, as components raise them: their own, access denied, a type mismatch.
    for (const auto code : {static_cast<HRESULT>(0x800403E8), E_ACCESSDENIED, DISP_E_TYPEMISMATCH}) {
        value.failCallExplained(1, code);
        expectReported(lateBound(), code);
    }
    expectResult(lateBound(), text(L"7  "));
}

TEST_F(ReportedErrors, comeBackThroughTheVtableAsTheyWereRaised) {
    for (const auto code : {error380, static_cast<HRESULT>(0x800403E8)}) {
        value.failCallExplained(1, code);
        EXPECT_EQ(code, throughTheVtable());
        ComPointer<IErrorInfo> information;
        ASSERT_EQ(S_OK, GetErrorInfo(0, information.put()));
        GUID id;
        Bstr source, description, helpFile;
        DWORD helpContext = 0;
        EXPECT_EQ(S_OK, information->GetGUID(&id));
        EXPECT_EQ(interfaceId(0), id);
        EXPECT_EQ(S_OK, information->GetSource(source.put()));
        EXPECT_EQ(HostFailure::source, source.view());
        EXPECT_EQ(S_OK, information->GetDescription(description.put()));
        EXPECT_EQ(HostFailure::description, description.view());
        EXPECT_EQ(S_OK, information->GetHelpFile(helpFile.put()));
        EXPECT_EQ(HostFailure::helpFile, helpFile.view());
        EXPECT_EQ(S_OK, information->GetHelpContext(&helpContext));
        EXPECT_EQ(HostFailure::helpContext, helpContext);
    }
}

TEST_F(ReportedErrors, withoutWordsAreToldInOurs) {
    // No exception, so nothing but a code: 440 and its text, under our name.
    value.failCall(1, E_ACCESSDENIED);
    const auto unexplained = lateBound();
    expectError(unexplained, 440);
    EXPECT_EQ(L"Vorla6.VorlaChaine", unexplained.source);
    EXPECT_EQ(isFrench() ? L"Erreur Automation" : L"Automation error", unexplained.description);
    EXPECT_EQ(L"", unexplained.helpFile);
    // Filled in when asked for: a description without a source.
    value.failCallDeferred(1, 380);
    const auto deferred = lateBound();
    EXPECT_EQ(error380, deferred.exceptionCode);
    EXPECT_EQ(L"Vorla6.VorlaChaine", deferred.source);
    EXPECT_EQ(L"filled in later", deferred.description);
    // Memory that the host's object has not is memory that we have not.
    value.failCallExplained(1, E_OUTOFMEMORY);
    EXPECT_EQ(E_OUTOFMEMORY, lateBound().exceptionCode);
}

// The next failure says nothing of the one before.
TEST_F(ReportedErrors, areForgotten) {
    value.failCallWithNumber(1, 380);
    lateBound();
    const auto own = invoke(chaine.get(), L"CBR", {text(L"a"), short16(-1)});
    expectError(own, 5);
    EXPECT_EQ(L"Vorla6.VorlaChaine", own.source);
    EXPECT_EQ(L"", own.helpFile);
    EXPECT_EQ(0u, own.helpContext);
}

TEST_F(ReportedErrors, withoutMemoryForTheirWordsKeepTheirNumber) {
    const auto use = [this] {
        value.failCallWithNumber(1, 380);
        const auto outcome = lateBound();
        return std::to_string(HRESULT_CODE(outcome.exceptionCode)) + " " + narrow(outcome.description);
    };
    const auto number = std::string("380 ");
    EXPECT_LT(0, failEachCall(component.module(), noMemory(), "a reported error", use,
                              number + narrow(HostFailure::description), {number}));
}

}  // namespace
}  // namespace vorla::test
