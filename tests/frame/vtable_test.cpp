// Early-bound calls: the slots have the layout that the type library publishes.
#include <cstring>

#include "frame/specimen_fixture.h"
#include "support/scripted_object.h"

namespace vorla::test {
namespace {

TEST_F(SpecimenTest, scalarsThroughTheVtable) {
    SHORT small = 0;
    EXPECT_EQ(S_OK, slot(slotOf(L"Court"), SHORT{-5}, &small));
    EXPECT_EQ(-5, small);
    LONG large = 0;
    EXPECT_EQ(S_OK, slot(slotOf(L"Long"), LONG{-70000}, &large));
    EXPECT_EQ(-70000, large);
    BYTE octet = 0;
    EXPECT_EQ(S_OK, slot(slotOf(L"Octet"), BYTE{200}, &octet));
    EXPECT_EQ(200, octet);
    FLOAT single = 0;
    EXPECT_EQ(S_OK, slot(slotOf(L"Simple"), FLOAT{1.5f}, &single));
    EXPECT_EQ(1.5f, single);
    DOUBLE real = 0;
    EXPECT_EQ(S_OK, slot(slotOf(L"Double"), DOUBLE{-2.25}, &real));
    EXPECT_EQ(-2.25, real);
    VARIANT_BOOL yes = 7;
    EXPECT_EQ(S_OK, slot(slotOf(L"Booléen"), VARIANT_BOOL{1}, &yes));
    EXPECT_EQ(VARIANT_TRUE, yes);  // any other true becomes -1
    CY amount{}, given{.int64 = 0x123456789ABCDEF};
    EXPECT_EQ(S_OK, slot(slotOf(L"Montant"), given, &amount));
    EXPECT_EQ(given.int64, amount.int64);
    DATE day = 0;
    EXPECT_EQ(S_OK, slot(slotOf(L"Jour"), DATE{36924.5}, &day));
    EXPECT_EQ(36924.5, day);
    LONG piece = 0;
    EXPECT_EQ(S_OK, slot(slotOf(L"Morceau"), LONG{3}, &piece));
    EXPECT_EQ(3, piece);
    records::Rect rectangle{};
    EXPECT_EQ(S_OK, slot(slotOf(L"Cadre"), LONG{1}, &rectangle));
    EXPECT_EQ(4, rectangle.Bottom);
}

TEST_F(SpecimenTest, stringsAndVariantsThroughTheVtable) {
    const Bstr given(TextView(L"été\0x", 5));
    BSTR string = nullptr;
    EXPECT_EQ(S_OK, slot(slotOf(L"Chaîne"), given.get(), &string));
    EXPECT_EQ(given.view(), viewOf(string));
    EXPECT_NE(given.get(), string);
    SysFreeString(string);
    VARIANT result;
    EXPECT_EQ(S_OK, slot(slotOf(L"Variable"), text(L"v").raw(), &result));
    EXPECT_EQ(VT_BSTR, result.vt);
    VariantClear(&result);
    // A variant that refers to a script's variable has that variable's value.
    Variant variable(std::int16_t{4});
    EXPECT_EQ(S_OK, slot(slotOf(L"Variable"), byReference(variable).raw(), &result));
    EXPECT_EQ(VT_I2, result.vt);
    EXPECT_EQ(4, result.iVal);
}

TEST_F(SpecimenTest, referencesThroughTheVtable) {
    VARIANT_BOOL yes = 1;
    EXPECT_EQ(S_OK, slot(slotOf(L"BooléenRef"), &yes));
    EXPECT_EQ(VARIANT_FALSE, yes);
    Variant variable(TextView(L"old"));
    EXPECT_EQ(S_OK, slot(slotOf(L"VariableRef"), variable.put()));
    EXPECT_EQ(L"changée", viewOf(variable.raw().bstrVal));
    ScriptedObject host;
    host.AddRef();
    IDispatch* reference = &host;
    EXPECT_EQ(S_OK, slot(slotOf(L"ObjetRef"), &reference));
    EXPECT_EQ(nullptr, reference);
    EXPECT_EQ(0, host.references());
    BSTR one = SysAllocString(L"a"), result = nullptr;
    EXPECT_EQ(S_OK, slot(slotOf(L"Deux"), &one, &one, &result));
    EXPECT_EQ(L"a2", viewOf(one));
    EXPECT_EQ(L"a1a2", viewOf(result));
    SysFreeString(one);
    SysFreeString(result);
    // One variable as argument and result: the result wins, and nothing is freed twice.
    const Bstr before(TextView(L"a"));
    BSTR variableToo = before.get();
    EXPECT_EQ(S_OK, slot(slotOf(L"Chaîne"), variableToo, &variableToo));
    EXPECT_EQ(L"a", viewOf(variableToo));
    SysFreeString(variableToo);
}

TEST_F(SpecimenTest, propertiesAndFieldsThroughTheVtable) {
    EXPECT_EQ(S_OK, slot(slotOf(L"Élément", MemberKind::let), SHORT{1}, LONG{-9}));
    LONG value = 0;
    EXPECT_EQ(S_OK, slot(slotOf(L"Élément", MemberKind::get), SHORT{1}, &value));
    EXPECT_EQ(-9, value);
    EXPECT_EQ(S_OK, slot(slotOf(L"Actif", MemberKind::let), VARIANT_TRUE));
    VARIANT_BOOL active = 0;
    EXPECT_EQ(S_OK, slot(slotOf(L"Actif", MemberKind::get), &active));
    EXPECT_EQ(VARIANT_TRUE, active);
}

// A failing call clears its result, whichever way it fails. A host may leave anything in it before.
TEST_F(SpecimenTest, failingSlotsClearTheirResult) {
    VARIANT result;
    std::memset(&result, 0xAA, sizeof result);
    EXPECT_EQ(E_POINTER, slot(slotOf(L"VariableOuErreur"), static_cast<LONG*>(nullptr), &result));
    EXPECT_EQ(VT_EMPTY, result.vt);
    std::memset(&result, 0xAA, sizeof result);
    LONG number = 6;
    EXPECT_EQ(HRESULT(0x800A0006), slot(slotOf(L"VariableOuErreur"), &number, &result));
    EXPECT_EQ(VT_EMPTY, result.vt);
    records::Rect rectangle{1, 2, 3, 4};
    EXPECT_EQ(HRESULT(0x800A0006), slot(slotOf(L"CadreOuErreur"), LONG{6}, &rectangle));
    EXPECT_EQ(0, rectangle.Left | rectangle.Top | rectangle.Right | rectangle.Bottom);
    const auto poisoned = reinterpret_cast<BSTR>(ULONG_PTR{0xAAAAAAAA});
    BSTR string = poisoned, one = nullptr;
    const auto nowhere = static_cast<BSTR*>(nullptr);
    EXPECT_EQ(E_POINTER, slot(slotOf(L"Deux"), nowhere, &one, &string));
    EXPECT_EQ(nullptr, string);
    string = poisoned;
    EXPECT_EQ(E_POINTER, slot(slotOf(L"Deux"), &one, nowhere, &string));
    EXPECT_EQ(nullptr, string);
    string = poisoned;
    EXPECT_EQ(HRESULT(0x800A0006), slot(slotOf(L"ChangeEtÉchoue"), &one, &string));
    EXPECT_EQ(nullptr, string);
    EXPECT_EQ(E_POINTER, slot(slotOf(L"Deux"), &one, &one, nowhere));
    EXPECT_EQ(L"changed", viewOf(one));
    SysFreeString(one);
    // One variable as argument and result: read first, cleared when the call fails.
    VARIANT both{};
    both.vt = VT_I4;
    both.lVal = 6;
    EXPECT_EQ(HRESULT(0x800A0006), slot(slotOf(L"VariableOuErreur"), &both.lVal, &both));
    EXPECT_EQ(VT_EMPTY, both.vt);
}

// Calls every member in the type library both ways, with zero values of its types. A slot whose arguments
// differ from the published ones would corrupt the stack or answer differently.
TEST_F(SpecimenTest, everyDescribedMemberAnswersBothWays) {
    ComPointer<ITypeInfo> description;
    ASSERT_EQ(S_OK, specimenLibrary.describe(publication.interfaceId(), description.put()));
    HREFTYPE reference;
    ComPointer<ITypeInfo> vtable;
    ASSERT_EQ(S_OK, description->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference));
    ASSERT_EQ(S_OK, description->GetRefTypeInfo(reference, vtable.put()));
    TYPEATTR* attributes;
    ASSERT_EQ(S_OK, vtable->GetTypeAttr(&attributes));
    const UINT count = attributes->cFuncs;
    vtable->ReleaseTypeAttr(attributes);
    std::size_t published = 0;
    for (const Member& member : publication.members) published += member.kind != MemberKind::reserved;
    EXPECT_EQ(published, count);

    for (UINT i = 0; i < count; ++i) {
        FUNCDESC* function;
        ASSERT_EQ(S_OK, vtable->GetFuncDesc(i, &function));
        const Member& member =
            publication.members[static_cast<std::size_t>(function->oVft) / sizeof(void*) - 7];
        const auto parameters = publication.parametersOf(member);
        // Room for what each argument refers to, its result included.
        VARIANT storage[parameterLimit + 1] = {};
        VARIANT arguments[parameterLimit + 1] = {};
        VARTYPE types[parameterLimit + 1];
        VARIANT* pointers[parameterLimit + 1];
        for (SHORT p = 0; p < function->cParams; ++p) {
            const bool isResult = static_cast<std::size_t>(p) == parameters.size();
            const TypeUse use =
                isResult ? member.result.referenced() : parameters[static_cast<std::size_t>(p)].type;
            types[p] = use.byReference ? VARTYPE{VT_PTR} : use.type;
            arguments[p].byref = nullptr;
            if (use.byReference)
                arguments[p].byref =
                    use.type == VT_VARIANT ? static_cast<void*>(&storage[p]) : &storage[p].byref;
            if (types[p] == VT_VARIANT) arguments[p].vt = VT_EMPTY;
            if (types[p] == VT_PTR) types[p] = sizeof(void*) == 8 ? VARTYPE{VT_I8} : VARTYPE{VT_I4};
            pointers[p] = &arguments[p];
        }
        // A record's result needs more room than a variant has.
        records::Rect rectangle{};
        if (member.result.type == VT_RECORD) arguments[parameters.size()].byref = &rectangle;
        if (!parameters.empty() && parameters[0].type.type == VT_RECORD) arguments[0].byref = &rectangle;
        VARIANT answer{};
        EXPECT_EQ(S_OK,
                  DispCallFunc(specimen.get(), static_cast<ULONG_PTR>(function->oVft), CC_STDCALL, VT_ERROR,
                               static_cast<UINT>(function->cParams), types, pointers, &answer))
            << narrow(member.name);
        const bool fails = TextView(member.name) == L"ChangeEtÉchoue";
        EXPECT_EQ(fails, FAILED(answer.scode)) << narrow(member.name);
        for (SHORT p = 0; p < function->cParams; ++p) {
            const bool isResult = static_cast<std::size_t>(p) == parameters.size();
            const TypeUse use =
                isResult ? member.result.referenced() : parameters[static_cast<std::size_t>(p)].type;
            if (!use.byReference || use.type == VT_RECORD) continue;
            if (use.type != VT_VARIANT) storage[p].vt = use.type;
            VariantClear(&storage[p]);
        }
        vtable->ReleaseFuncDesc(function);
    }
}

}  // namespace
}  // namespace vorla::test
