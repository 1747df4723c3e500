// Arguments while the host's code runs in the middle of a call, as in a property, an event or a pumped
// message: a member keeps what it was given, and writes back only what it has changed.
//
// The host overwrites a text before it lets it go, so that a member that still looks there is found out.
#include <algorithm>

#include "frame/specimen_fixture.h"
#include "support/asked_object.h"
#include "support/memory_count.h"
#include "support/scripted_object.h"

namespace vorla::test {
namespace {

constexpr const wchar_t* given = L"un texte assez long pour un bloc à lui";

void assign(BSTR& variable, const wchar_t* value) {
    std::fill_n(variable, SysStringLen(variable), L'#');
    SysFreeString(variable);
    variable = SysAllocString(value);
}

void assign(Variant& variable, Variant value) {
    if (variable.raw().vt == VT_BSTR)
        std::fill_n(variable.raw().bstrVal, SysStringLen(variable.raw().bstrVal), L'#');
    variable = std::move(value);
}

using HeldArguments = SpecimenTest;

TEST_F(HeldArguments, aScriptsTextByValue) {
    for (const auto* member : {L"TexteTenu", L"TexteRefTenu", L"VariableTenue", L"VariableRefTenue"}) {
        Variant variable = text(given);
        duringNextCall([&] { assign(variable, std::int16_t{7}); });
        expectResult(call(member, {byReference(variable)}), text(given), narrow(member));
        EXPECT_EQ(describe(Variant(std::int16_t{7}).raw()), describe(variable.raw())) << narrow(member);
    }
}

TEST_F(HeldArguments, aTypedVariable) {
    for (const auto* member : {L"TexteTenu", L"TexteRefTenu", L"VariableTenue", L"VariableRefTenue"}) {
        BSTR variable = SysAllocString(given);
        duringNextCall([&] { assign(variable, L"neuf"); });
        expectResult(call(member, {byReference(VT_BSTR, &variable)}), text(given), narrow(member));
        EXPECT_EQ(L"neuf", viewOf(variable)) << narrow(member);
        SysFreeString(variable);
    }
}

TEST_F(HeldArguments, textsThroughTheVtable) {
    BSTR variable = SysAllocString(given), result = nullptr;
    duringNextCall([&] { assign(variable, L"neuf"); });
    EXPECT_EQ(S_OK, slot(slotOf(L"TexteTenu"), variable, &result));
    EXPECT_EQ(given, viewOf(result));
    SysFreeString(result);
    assign(variable, given);
    duringNextCall([&] { assign(variable, L"neuf"); });
    EXPECT_EQ(S_OK, slot(slotOf(L"TexteRefTenu"), &variable, &result));
    EXPECT_EQ(given, viewOf(result));
    EXPECT_EQ(L"neuf", viewOf(variable));
    SysFreeString(result);
    SysFreeString(variable);
}

TEST_F(HeldArguments, variantsThroughTheVtable) {
    // As hosts pass them: a value of their own, a reference to a variant, a reference to a text.
    Variant variable = text(given);
    Variant result;
    duringNextCall([&] { assign(variable, std::int16_t{7}); });
    EXPECT_EQ(S_OK, slot(slotOf(L"VariableTenue"), variable.raw(), result.put()));
    EXPECT_EQ(describe(text(given).raw()), describe(result.raw()));
    variable = text(given);
    result = Variant();
    duringNextCall([&] { assign(variable, std::int16_t{7}); });
    EXPECT_EQ(S_OK, slot(slotOf(L"VariableTenue"), byReference(variable).raw(), result.put()));
    EXPECT_EQ(describe(text(given).raw()), describe(result.raw()));
    variable = text(given);
    result = Variant();
    duringNextCall([&] { assign(variable, std::int16_t{7}); });
    EXPECT_EQ(S_OK, slot(slotOf(L"VariableRefTenue"), variable.put(), result.put()));
    EXPECT_EQ(describe(text(given).raw()), describe(result.raw()));
    BSTR string = SysAllocString(given);
    result = Variant();
    duringNextCall([&] { assign(string, L"neuf"); });
    EXPECT_EQ(S_OK, slot(slotOf(L"VariableTenue"), byReference(VT_BSTR, &string).raw(), result.put()));
    EXPECT_EQ(describe(text(given).raw()), describe(result.raw()));
    SysFreeString(string);
}

TEST_F(HeldArguments, arraysByReference) {
    SAFEARRAY* array = SafeArrayCreateVector(VT_I4, 0, 2);
    LONG index = 1, number = 42;
    SafeArrayPutElement(array, &index, &number);
    duringNextCall([&] {
        LONG other = 7;
        SafeArrayPutElement(array, &index, &other);
        EXPECT_EQ(S_OK, SafeArrayDestroy(array));
        array = nullptr;
    });
    const auto outcome = call(L"VariableTenue", {byReference(VT_ARRAY | VT_I4, &array)});
    ASSERT_EQ(S_OK, outcome.code);
    ASSERT_EQ(VT_ARRAY | VT_I4, outcome.result.raw().vt);
    number = 0;
    EXPECT_EQ(S_OK, SafeArrayGetElement(outcome.result.raw().parray, &index, &number));
    EXPECT_EQ(42, number);
}

TEST_F(HeldArguments, objects) {
    for (const auto* member : {L"ObjetTenu", L"ObjetRefTenu", L"VariableTenue", L"VariableRefTenue"}) {
        ScriptedObject host;
        Variant variable = object(&host);
        long during = 0;
        duringNextCall([&] {
            variable = Variant();
            during = host.references();
        });
        expectResult(call(member, {byReference(variable)}), object(&host), narrow(member));
        EXPECT_GE(during, 1) << narrow(member);
        EXPECT_EQ(0, host.references()) << narrow(member);
    }
    ScriptedObject host;
    IDispatch* variable = &host;
    host.AddRef();
    long during = 0;
    duringNextCall([&] {
        std::exchange(variable, nullptr)->Release();
        during = host.references();
    });
    IDispatch* result = nullptr;
    EXPECT_EQ(S_OK, slot(slotOf(L"ObjetRefTenu"), &variable, &result));
    EXPECT_EQ(&host, result);
    EXPECT_GE(during, 1);
    result->Release();
    EXPECT_EQ(0, host.references());
}

TEST_F(HeldArguments, numbersByReference) {
    LONG variable = 5, result = 0;
    duringNextCall([&] { variable = 9; });
    EXPECT_EQ(S_OK, slot(slotOf(L"NombreTenu"), &variable, &result));
    EXPECT_EQ(5, result);
    EXPECT_EQ(9, variable);
}

// What is given by reference and left alone has the value that the host gave it during the call.
TEST_F(HeldArguments, whatTheMemberLeavesAloneIsTheHosts) {
    LONG number = 5;
    BSTR string = SysAllocString(given);
    VARIANT_BOOL yes = VARIANT_TRUE;
    Variant variable = text(given);
    ScriptedObject first, second;
    IDispatch* reference = &first;
    first.AddRef();
    const auto change = [&] {
        number = 9;
        assign(string, L"neuf");
        yes = VARIANT_FALSE;
        assign(variable, std::int16_t{9});
        reference->Release();
        reference = &second;
        second.AddRef();
    };
    const auto expectTheHosts = [&](const char* how) {
        EXPECT_EQ(9, number) << how;
        EXPECT_EQ(L"neuf", viewOf(string)) << how;
        EXPECT_EQ(VARIANT_FALSE, yes) << how;
        EXPECT_EQ(describe(Variant(std::int16_t{9}).raw()), describe(variable.raw())) << how;
        EXPECT_EQ(&second, reference) << how;
    };
    duringNextCall(change);
    EXPECT_EQ(S_OK, slot(slotOf(L"Laisse"), &number, &string, &yes, variable.put(), &reference));
    expectTheHosts("through the vtable");

    number = 5;
    assign(string, given);
    yes = VARIANT_TRUE;
    variable = text(given);
    duringNextCall(change);
    EXPECT_EQ(S_OK, call(L"Laisse", {byReference(VT_I4, &number), byReference(VT_BSTR, &string),
                                     byReference(VT_BOOL, &yes), byReference(variable),
                                     byReference(VT_DISPATCH, &reference)})
                        .code);
    expectTheHosts("by name");
    SysFreeString(string);
    reference->Release();
    EXPECT_EQ(0, first.references());
    EXPECT_EQ(0, second.references());
}

TEST_F(HeldArguments, scriptVariablesThatTheMemberLeavesAlone) {
    ScriptedObject first, second;
    Variant number(std::int32_t{5}), string = text(given), yes(true), other = text(given),
                                     reference = object(&first);
    duringNextCall([&] {
        number = text(L"neuf");
        assign(string, std::int16_t{9});
        yes = text(L"non");
        assign(other, std::int16_t{9});
        reference = object(&second);
    });
    EXPECT_EQ(S_OK, call(L"Laisse", {byReference(number), byReference(string), byReference(yes),
                                     byReference(other), byReference(reference)})
                        .code);
    EXPECT_EQ(describe(text(L"neuf").raw()), describe(number.raw()));
    EXPECT_EQ(describe(short16(9).raw()), describe(string.raw()));
    EXPECT_EQ(describe(text(L"non").raw()), describe(yes.raw()));
    EXPECT_EQ(describe(short16(9).raw()), describe(other.raw()));
    EXPECT_EQ(&second, reference.raw().pdispVal);
}

// The member's change comes last, whatever the host has made of the variable in between.
TEST_F(HeldArguments, scriptVariablesThatTheMemberChanges) {
    Variant number(std::int32_t{5});
    duringNextCall([&] { number = text(given); });
    expectResult(call(L"ChangeNombre", {byReference(number)}), std::int32_t{5});
    EXPECT_EQ(describe(long32(-1).raw()), describe(number.raw()));
    for (const auto* member : {L"ChangeTexte", L"ChangeVariable"}) {
        Variant string = text(given);
        duringNextCall([&] { assign(string, std::int32_t{77}); });
        expectResult(call(member, {byReference(string)}), text(given), narrow(member));
        EXPECT_EQ(describe(text(L"changée").raw()), describe(string.raw())) << narrow(member);
    }
}

TEST_F(HeldArguments, aVariableThatIsLeftAloneKeepsItsType) {
    Variant number(std::int16_t{1}), string(std::int16_t{2}), yes(std::int16_t{0}), other(std::int16_t{3}),
        reference = nothing();
    EXPECT_EQ(S_OK, call(L"Laisse", {byReference(number), byReference(string), byReference(yes),
                                     byReference(other), byReference(reference)})
                        .code);
    EXPECT_EQ(describe(short16(1).raw()), describe(number.raw()));
    EXPECT_EQ(describe(short16(2).raw()), describe(string.raw()));
    EXPECT_EQ(describe(short16(0).raw()), describe(yes.raw()));
    EXPECT_EQ(describe(short16(3).raw()), describe(other.raw()));
    // Read only: nothing is stored either.
    Variant kept(2.5);
    expectResult(call(L"NombreTenu", {byReference(kept)}), std::int32_t{2});
    EXPECT_EQ(describe(Variant(2.5).raw()), describe(kept.raw()));
}

// A default property that is asked for one argument assigns to the variable of another.
TEST_F(HeldArguments, aDefaultPropertyThatChangesAnotherArgument) {
    Variant variable = text(given);
    AskedObject host(std::int32_t{12}, [&] { assign(variable, text(L"neuf")); });
    for (const auto* member : {L"TexteEtNombre", L"TexteRefEtNombre", L"VariableEtNombre"}) {
        variable = text(given);
        expectResult(call(member, {byReference(variable), object(&host)}), text(std::wstring(given) + L"12"),
                     narrow(member));
        EXPECT_EQ(L"neuf", viewOf(variable.raw().bstrVal)) << narrow(member);
    }
}

// A default property that ends the last reference to its own object.
TEST_F(HeldArguments, aDefaultPropertyThatLetsItsObjectGo) {
    Variant variable;
    long during = 0;
    AskedObject host(std::int32_t{12}, [&] {
        variable = Variant();
        during = host.references();
    });
    variable = object(&host);
    expectResult(call(L"Long", {byReference(variable)}), std::int32_t{12});
    EXPECT_GE(during, 1);
    EXPECT_EQ(0, host.references());
}

TEST_F(HeldArguments, recordsInScriptVariables) {
    for (const bool changes : {false, true}) {
        Variant variable = call(L"Cadre", {std::int32_t{10}}).result;
        ASSERT_EQ(VT_RECORD, variable.raw().vt);
        const Variant another = call(L"Cadre", {std::int32_t{20}}).result;
        duringNextCall([&] { static_cast<records::Rect*>(variable.raw().pvRecord)->Left = 99; });
        const auto outcome = call(changes ? L"ChangeCadre" : L"LaisseCadre", {byReference(variable)});
        ASSERT_EQ(S_OK, outcome.code);
        EXPECT_EQ(changes ? -1 : 99, static_cast<records::Rect*>(variable.raw().pvRecord)->Left);
        if (!changes) continue;
        EXPECT_EQ(10, static_cast<records::Rect*>(outcome.result.raw().pvRecord)->Left);
    }
}

// The variable no longer holds the record when the call ends.
TEST_F(HeldArguments, aRecordThatTheHostLetsGo) {
    Variant variable = call(L"Cadre", {std::int32_t{10}}).result;
    ASSERT_EQ(VT_RECORD, variable.raw().vt);
    duringNextCall([&] {
        IRecordInfo* const description = variable.raw().pRecInfo;
        void* const record = variable.raw().pvRecord;
        variable.detach();
        variable = Variant(std::int16_t{7});
        static_cast<records::Rect*>(record)->Left = 99;
        description->RecordDestroy(record);
        description->Release();
    });
    const auto outcome = call(L"ChangeCadre", {byReference(variable)});
    EXPECT_EQ(DISP_E_TYPEMISMATCH, outcome.code);
    EXPECT_EQ(0u, outcome.badArgument);
    EXPECT_EQ(describe(short16(7).raw()), describe(variable.raw()));
}

TEST_F(HeldArguments, nothingIsLeftBehind) {
    ScriptedObject host{Variant(std::int32_t{12})};
    Variant variable = text(given);
    expectNothingLeft([&] {
        for (const auto* member : {L"TexteTenu", L"TexteRefTenu", L"VariableTenue", L"VariableRefTenue",
                                   L"ChangeTexte", L"ChangeVariable"})
            EXPECT_EQ(S_OK, call(member, {byReference(variable)}).code);
        EXPECT_EQ(S_OK, call(L"TexteEtNombre", {byReference(variable), object(&host)}).code);
        EXPECT_EQ(DISP_E_TYPEMISMATCH, call(L"TexteEtNombre", {object(&host), text(L"abc")}).code);
    });
    EXPECT_EQ(0, host.references());
}

}  // namespace
}  // namespace vorla::test
