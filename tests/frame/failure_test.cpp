// Failures as hosts see them: codes, error information, exceptions that must not leave a slot.
#include "frame/specimen_fixture.h"

namespace vorla::test {
namespace {

std::wstring pendingDescription() {
    ComPointer<IErrorInfo> information;
    if (GetErrorInfo(0, information.put()) != S_OK) return {};
    Bstr text;
    information->GetDescription(text.put());
    return std::wstring(text.view());
}

TEST_F(SpecimenTest, runTimeErrorsReachLateBoundHosts) {
    const auto outcome = call(L"Échoue", {std::int32_t{6}});
    expectError(outcome, 6);
    EXPECT_EQ(L"SpecimenLib.Specimen", outcome.source);
    EXPECT_EQ(isFrench() ? L"Dépassement de capacité" : L"Overflow", outcome.description);
    for (const int number : {5, 13, 91, 94, 438, 481, 1000}) expectError(call(L"Échoue", {number}), number);
    EXPECT_EQ(S_OK, call(L"Échoue", {std::int32_t{0}}).code);
}

TEST_F(SpecimenTest, runTimeErrorsReachEarlyBoundHosts) {
    EXPECT_EQ(static_cast<HRESULT>(0x800A0005), slot(slotOf(L"Échoue"), LONG{5}));
    ComPointer<IErrorInfo> information;
    ASSERT_EQ(S_OK, GetErrorInfo(0, information.put()));
    GUID id;
    Bstr source;
    EXPECT_EQ(S_OK, information->GetGUID(&id));
    EXPECT_EQ(publication.interfaceId(), id);
    EXPECT_EQ(S_OK, information->GetSource(source.put()));
    EXPECT_EQ(L"SpecimenLib.Specimen", source.view());
}

TEST_F(SpecimenTest, noExceptionLeavesASlot) {
    const auto explosion = slotOf(L"Explose");
    EXPECT_EQ(S_OK, slot(explosion, SHORT{0}));
    EXPECT_EQ(E_UNEXPECTED, slot(explosion, SHORT{1}));
    EXPECT_EQ(E_OUTOFMEMORY, slot(explosion, SHORT{2}));
    EXPECT_EQ(E_UNEXPECTED, slot(explosion, SHORT{3}));
    const auto outcome = call(L"Explose", {std::int16_t{2}});
    EXPECT_EQ(DISP_E_EXCEPTION, outcome.code);
    EXPECT_EQ(E_OUTOFMEMORY, outcome.exceptionCode);
}

TEST_F(SpecimenTest, staleErrorInformationIsCleared) {
    EXPECT_TRUE(FAILED(slot(slotOf(L"Échoue"), LONG{6})));
    EXPECT_EQ(E_POINTER, slot(slotOf(L"Long"), LONG{6}, static_cast<LONG*>(nullptr)));
    EXPECT_EQ(L"", pendingDescription());
    EXPECT_TRUE(FAILED(slot(slotOf(L"Échoue"), LONG{6})));
    EXPECT_EQ(E_UNEXPECTED, slot(slotOf(L"Explose"), SHORT{1}));
    EXPECT_EQ(L"", pendingDescription());
}

TEST_F(SpecimenTest, lateBoundHostsTakeTheInformationOnce) {
    EXPECT_EQ(DISP_E_EXCEPTION, call(L"Échoue", {std::int32_t{6}}).code);
    EXPECT_EQ(L"", pendingDescription());
    // A host that passes no exception record finds the error where early-bound hosts do.
    auto arguments = Arguments({std::int32_t{6}});
    auto parameters = arguments.parameters();
    EXPECT_EQ(DISP_E_EXCEPTION, specimen->Invoke(idOf(specimen.get(), L"Échoue"), IID_NULL, 0,
                                                 DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr));
    EXPECT_NE(L"", pendingDescription());
}

TEST_F(SpecimenTest, whatAReferenceBecameIsKeptWhenTheMemberFails) {
    BSTR string = SysAllocString(L"before");
    BSTR result = SysAllocString(L"poison");
    const auto poison = Bstr::adopt(result);
    EXPECT_EQ(static_cast<HRESULT>(0x800A0006), slot(slotOf(L"ChangeEtÉchoue"), &string, &result));
    EXPECT_EQ(L"changed", viewOf(string));
    EXPECT_EQ(nullptr, result);
    SysFreeString(string);
    Variant variable(TextView(L"before"));
    expectError(call(L"ChangeEtÉchoue", {byReference(variable)}), 6);
    EXPECT_EQ(L"changed", viewOf(variable.raw().bstrVal));
}

TEST_F(SpecimenTest, nullPointersInEarlyBoundCalls) {
    EXPECT_EQ(E_POINTER, slot(slotOf(L"Chaîne"), BSTR{nullptr}, static_cast<BSTR*>(nullptr)));
    EXPECT_EQ(E_POINTER, slot(slotOf(L"LongRef"), static_cast<LONG*>(nullptr)));
    EXPECT_EQ(E_POINTER, slot(slotOf(L"ChaîneRef"), static_cast<BSTR*>(nullptr)));
    EXPECT_EQ(E_POINTER, slot(slotOf(L"VariableRef"), static_cast<VARIANT*>(nullptr)));
    EXPECT_EQ(E_POINTER, slot(slotOf(L"CadreRef"), static_cast<records::Rect*>(nullptr)));
    BSTR result;
    EXPECT_EQ(S_OK, slot(slotOf(L"Chaîne"), BSTR{nullptr}, &result));
    EXPECT_EQ(L"", viewOf(result));
    SysFreeString(result);
}

TEST_F(SpecimenTest, theReservedSlotAnswers) {
    std::size_t reserved = 0;
    while (publication.members[reserved].kind != MemberKind::reserved) ++reserved;
    EXPECT_EQ(E_NOTIMPL, slot(reserved));
}

}  // namespace
}  // namespace vorla::test
