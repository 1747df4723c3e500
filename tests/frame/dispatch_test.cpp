// Late-bound calls with hand-written expectations, for everything that a publication can express.

#include "frame/specimen_fixture.h"
#include "frame/values/conversions.h"
#include "frame/values/winapi.h"
#include "support/import_patch.h"
#include "support/memory_count.h"
#include "support/scripted_object.h"

namespace vorla::test {
namespace {

Variant ofType(VARTYPE type, double value) {
    Variant result(value);
    throwIfFailed(changeType(*result.put(), result.raw(), 0x0409, 0, type));
    return result;
}

ComPointer<IErrorInfo> olderFailure() {
    ComPointer<ICreateErrorInfo> made;
    ComPointer<IErrorInfo> failure;
    EXPECT_EQ(S_OK, CreateErrorInfo(made.put()));
    made->SetDescription(const_cast<LPOLESTR>(L"older"));
    EXPECT_EQ(S_OK, made->QueryInterface(IID_IErrorInfo, reinterpret_cast<void**>(failure.put())));
    return failure;
}

TEST_F(SpecimenTest, anObjectThatStandsForItselfIsNoArgument) {
    ScriptedObject itself;
    itself.property(L"Value").defaultMember(L"Value");
    itself.value(L"Value") = object(&itself);
    for (const auto* member : {L"Long", L"Chaîne", L"LongRef", L"Jour"}) {
        const auto outcome = call(member, {object(&itself)});
        EXPECT_EQ(DISP_E_TYPEMISMATCH, outcome.code) << narrow(member);
        EXPECT_EQ(0u, outcome.badArgument) << narrow(member);
    }
    itself.value(L"Value") = Variant();
    EXPECT_EQ(0, itself.references());
}

TEST_F(SpecimenTest, valuesOfEveryTypeGoInAndComeBack) {
    expectResult(call(L"Court", {std::int16_t{-32768}}), std::int16_t{-32768});
    expectResult(call(L"Long", {std::int32_t{2147483647}}), std::int32_t{2147483647});
    expectResult(call(L"Octet", {ofType(VT_UI1, 255)}), ofType(VT_UI1, 255));
    expectResult(call(L"Simple", {ofType(VT_R4, 0.25)}), ofType(VT_R4, 0.25));
    expectResult(call(L"Double", {1e300}), 1e300);
    expectResult(call(L"Booléen", {true}), true);
    expectResult(call(L"Booléen", {false}), false);
    expectResult(call(L"Montant", {Currency{-12345}}), Currency{-12345});
    expectResult(call(L"Jour", {Date{36924.75}}), Date{36924.75});
    expectResult(call(L"Chaîne", {text(L"é\0ÿ€")}), text(L"é\0ÿ€"));
    expectResult(call(L"Vue", {text(L"")}), text(L""));
    expectResult(call(L"Morceau", {std::int32_t{99}}), std::int32_t{99});
    expectResult(call(L"Variable", {nullValue()}), nullValue());
    expectResult(call(L"Variable", {Variant()}), Variant());
    expectResult(call(L"Avec\u00A0blanc"), std::int16_t{7});
}

TEST_F(SpecimenTest, embeddedZerosSurvive) {
    const std::wstring zeros(L"a\0b\0", 4);
    expectResult(call(L"Chaîne", {text(zeros)}), text(zeros));
    Variant variable(TextView{zeros});
    EXPECT_EQ(S_OK, call(L"ChaîneRef", {byReference(variable)}).code);
    EXPECT_EQ(zeros + L"+", viewOf(variable.raw().bstrVal));
}

TEST_F(SpecimenTest, oddByteLengthsSurviveAnUnchangedReference) {
    BSTR odd = SysAllocStringByteLen("abc", 3);
    const BSTR before = odd;
    EXPECT_EQ(S_OK, call(L"Lue", {byReference(VT_BSTR, &odd)}).code);
    EXPECT_EQ(before, odd);
    EXPECT_EQ(3u, SysStringByteLen(odd));
    Variant value;
    value.put()->vt = VT_BSTR;
    value.put()->bstrVal = odd;
    const auto outcome = call(L"Variable", {value});
    EXPECT_EQ(3u, SysStringByteLen(outcome.result.raw().bstrVal));
}

TEST_F(SpecimenTest, anAbsentStringIsTheEmptyOne) {
    Variant absent;
    absent.put()->vt = VT_BSTR;
    absent.put()->bstrVal = nullptr;
    expectResult(call(L"Chaîne", {absent}), text(L""));
    BSTR variable = nullptr;
    EXPECT_EQ(S_OK, call(L"ChaîneRef", {byReference(VT_BSTR, &variable)}).code);
    EXPECT_EQ(L"+", viewOf(variable));
    SysFreeString(variable);
}

TEST_F(SpecimenTest, valuesAreConverted) {
    expectResult(call(L"Court", {text(L" 12 ")}), std::int16_t{12});
    expectResult(call(L"Court", {2.5}), std::int16_t{2});
    expectResult(call(L"Court", {3.5}), std::int16_t{4});
    expectResult(call(L"Court", {true}), std::int16_t{-1});
    expectResult(call(L"Court", {Variant()}), std::int16_t{0});
    expectResult(call(L"Chaîne", {std::int32_t{-7}}), text(L"-7"));
    expectResult(call(L"Booléen", {std::int16_t{5}}), true);
    ScriptedObject standsForTwelve{Variant(std::int16_t{12})};
    expectResult(call(L"Long", {object(&standsForTwelve)}), std::int32_t{12});
    expectResult(call(L"Chaîne", {object(&standsForTwelve)}), text(L"12"));
    EXPECT_EQ(0, standsForTwelve.references());
}

TEST_F(SpecimenTest, textIsReadByTheLocaleOfTheCall) {
    const auto read = [this](const wchar_t* number, LCID locale) {
        return invoke(specimen.get(), L"Double", {text(number)}, DISPATCH_METHOD, locale);
    };
    constexpr LCID french = 0x040C, english = 0x0409;
    expectResult(read(L"1,5", french), 1.5);
    expectResult(read(L"1.5", english), 1.5);
    // The comma only groups digits there.
    expectResult(read(L"1,5", english), 15.0);
    EXPECT_EQ(DISP_E_TYPEMISMATCH, read(L"1.5", french).code);
}

TEST_F(SpecimenTest, whatDoesNotFitIsRefusedWithItsIndex) {
    struct Row {
        const wchar_t* member;
        Variant argument;
        HRESULT code;
    };
    ScriptedObject withoutDefault;
    const Row rows[] = {
        {L"Court", std::int32_t{32768}, DISP_E_OVERFLOW},
        {L"Court", std::int32_t{-32769}, DISP_E_OVERFLOW},
        {L"Octet", std::int16_t{256}, DISP_E_OVERFLOW},
        {L"Octet", std::int16_t{-1}, DISP_E_OVERFLOW},
        {L"Long", 2147483648.0, DISP_E_OVERFLOW},
        {L"Court", text(L"abc"), DISP_E_TYPEMISMATCH},
        {L"Court", nullValue(), DISP_E_TYPEMISMATCH},
        {L"Chaîne", nullValue(), DISP_E_TYPEMISMATCH},
        {L"Objet", std::int16_t{1}, DISP_E_TYPEMISMATCH},
        {L"Image", object(&withoutDefault), DISP_E_TYPEMISMATCH},
        {L"Police", object(&withoutDefault), DISP_E_TYPEMISMATCH},
        {L"CadreRef", std::int16_t{1}, DISP_E_TYPEMISMATCH},
        {L"Court", missing(), DISP_E_PARAMNOTOPTIONAL},
    };
    for (const Row& row : rows) {
        const auto outcome = call(row.member, {row.argument});
        EXPECT_EQ(row.code, outcome.code) << narrow(row.member) << " " << describe(row.argument.raw());
        EXPECT_EQ(0u, outcome.badArgument) << narrow(row.member);
        EXPECT_EQ(VT_EMPTY, outcome.result.raw().vt) << narrow(row.member);
    }
    // The index counts from the last argument, as Invoke has them.
    const auto outcome = call(L"AvecDéfaut", {std::int16_t{1}, text(L"x"), text(L"never"), true});
    EXPECT_EQ(DISP_E_TYPEMISMATCH, outcome.code);
    EXPECT_EQ(1u, outcome.badArgument);
    EXPECT_EQ(2, withoutDefault.references());  // those of the rows
}

TEST_F(SpecimenTest, typedVariablesAreChangedInPlace) {
    std::int16_t small = 5;
    std::int32_t large = 5;
    std::uint8_t octet = 5;
    float single = 5;
    double real = 5;
    VARIANT_BOOL yes = VARIANT_TRUE;
    CY amount{.int64 = 10000};
    DATE day = 2;
    BSTR string = SysAllocString(L"abc");
    std::int32_t piece = 1;
    EXPECT_EQ(S_OK, call(L"CourtRef", {byReference(VT_I2, &small)}).code);
    EXPECT_EQ(S_OK, call(L"LongRef", {byReference(VT_I4, &large)}).code);
    EXPECT_EQ(S_OK, call(L"OctetRef", {byReference(VT_UI1, &octet)}).code);
    EXPECT_EQ(S_OK, call(L"SimpleRef", {byReference(VT_R4, &single)}).code);
    EXPECT_EQ(S_OK, call(L"DoubleRef", {byReference(VT_R8, &real)}).code);
    EXPECT_EQ(S_OK, call(L"BooléenRef", {byReference(VT_BOOL, &yes)}).code);
    EXPECT_EQ(S_OK, call(L"MontantRef", {byReference(VT_CY, &amount)}).code);
    EXPECT_EQ(S_OK, call(L"JourRef", {byReference(VT_DATE, &day)}).code);
    EXPECT_EQ(S_OK, call(L"ChaîneRef", {byReference(VT_BSTR, &string)}).code);
    EXPECT_EQ(S_OK, call(L"MorceauRef", {byReference(VT_I4, &piece)}).code);
    EXPECT_EQ(6, small);
    EXPECT_EQ(6, large);
    EXPECT_EQ(6, octet);
    EXPECT_EQ(5.5f, single);
    EXPECT_EQ(5.5, real);
    EXPECT_EQ(VARIANT_FALSE, yes);
    EXPECT_EQ(20000, amount.int64);
    EXPECT_EQ(3.0, day);
    EXPECT_EQ(L"abc+", viewOf(string));
    EXPECT_EQ(static_cast<std::int32_t>(eFileN::efAll), piece);
    SysFreeString(string);
}

TEST_F(SpecimenTest, scriptVariablesAreConvertedAndWrittenBack) {
    struct Row {
        const wchar_t* member;
        Variant before;
        Variant after;
    };
    const Row rows[] = {
        {L"LongRef", std::int32_t{5}, std::int32_t{6}},
        {L"LongRef", std::int16_t{5}, std::int32_t{6}},
        {L"LongRef", text(L"41"), std::int32_t{42}},
        {L"LongRef", Variant(), std::int32_t{1}},
        {L"CourtRef", 2.5, std::int16_t{3}},
        {L"BooléenRef", Variant(), true},
        {L"ChaîneRef", Variant(), text(L"+")},
        {L"ChaîneRef", std::int16_t{12}, text(L"12+")},
        {L"VariableRef", nullValue(), text(L"changée")},
        {L"MorceauRef", Variant(), std::int32_t{8}},
        {L"MontantRef", std::int16_t{1}, Currency{20000}},
    };
    for (const Row& row : rows) {
        Variant variable(row.before);
        EXPECT_EQ(S_OK, call(row.member, {byReference(variable)}).code) << narrow(row.member);
        EXPECT_EQ(describe(row.after.raw()), describe(variable.raw()))
            << narrow(row.member) << " " << describe(row.before.raw());
    }
}

TEST_F(SpecimenTest, variablesOfAnotherTypeKeepTheirs) {
    std::int16_t small = 5;
    EXPECT_EQ(S_OK, call(L"LongRef", {byReference(VT_I2, &small)}).code);
    EXPECT_EQ(6, small);
    small = 32767;
    EXPECT_EQ(DISP_E_OVERFLOW, call(L"LongRef", {byReference(VT_I2, &small)}).code);
    EXPECT_EQ(32767, small);
    BSTR digits = SysAllocString(L"9");
    EXPECT_EQ(S_OK, call(L"LongRef", {byReference(VT_BSTR, &digits)}).code);
    EXPECT_EQ(L"10", viewOf(digits));
    SysFreeString(digits);
}

TEST_F(SpecimenTest, aVariableThatDoesNotFitIsLeftAlone) {
    Variant variable(TextView(L"abc"));
    const auto outcome = call(L"LongRef", {byReference(variable)});
    EXPECT_EQ(DISP_E_TYPEMISMATCH, outcome.code);
    EXPECT_EQ(0u, outcome.badArgument);
    EXPECT_EQ(describe(text(L"abc").raw()), describe(variable.raw()));
}

TEST_F(SpecimenTest, literalsMayBePassedByReference) {
    EXPECT_EQ(S_OK, call(L"LongRef", {std::int32_t{5}}).code);
    EXPECT_EQ(S_OK, call(L"ChaîneRef", {text(L"abc")}).code);
    EXPECT_EQ(S_OK, call(L"VariableRef", {text(L"abc")}).code);
}

TEST_F(SpecimenTest, theSameVariableTwice) {
    BSTR string = SysAllocString(L"x");
    expectResult(call(L"Deux", {byReference(VT_BSTR, &string), byReference(VT_BSTR, &string)}),
                 text(L"x1x2"));
    EXPECT_EQ(L"x2", viewOf(string));
    SysFreeString(string);
    Variant variable(TextView(L"x"));
    expectResult(call(L"Deux", {byReference(variable), byReference(variable)}), text(L"x1x2"));
    EXPECT_EQ(L"x2", viewOf(variable.raw().bstrVal));
}

TEST_F(SpecimenTest, oneVariableAsArgumentAndResult) {
    Variant variable(TextView(L"abc"));
    auto argument = byReference(variable);
    DISPPARAMS parameters{argument.put(), nullptr, 1, 0};
    // When the result has replaced the old string, the caller frees it.
    const auto before = Bstr::adopt(variable.raw().bstrVal);
    EXPECT_EQ(S_OK, specimen->Invoke(idOf(specimen.get(), L"Chaîne"), IID_NULL, 0, DISPATCH_METHOD,
                                     &parameters, variable.put(), nullptr, nullptr));
    EXPECT_EQ(L"abc", viewOf(variable.raw().bstrVal));
}

TEST_F(SpecimenTest, objectsAndNothing) {
    ScriptedObject host;
    expectResult(call(L"Objet", {nothing()}), nothing());
    {
        const auto outcome = call(L"Objet", {object(&host)});
        EXPECT_EQ(&host, outcome.result.raw().pdispVal);
    }
    Variant variable = object(&host);
    EXPECT_EQ(S_OK, call(L"ObjetRef", {byReference(variable)}).code);
    EXPECT_EQ(nullptr, variable.raw().pdispVal);
    EXPECT_EQ(0, host.references());
}

TEST_F(SpecimenTest, anObjectWhoseLastReferenceWasTakenIsNothing) {
    Variant variable;
    {
        const auto other = Dispatch::adopt(reinterpret_cast<IDispatch*>(publication.create(publication)));
        variable = vorla::test::object(other.get());
    }
    EXPECT_EQ(S_OK, call(L"ObjetRef", {byReference(variable)}).code);
    EXPECT_EQ(nullptr, variable.raw().pdispVal);
    expectResult(call(L"Objet", {byReference(variable)}), nothing());
    EXPECT_TRUE(FAILED(call(L"Chaîne", {byReference(variable)}).code));
    EXPECT_EQ(S_OK, call(L"ObjetRef", {byReference(variable)}).code);
}

TEST_F(SpecimenTest, picturesAndFonts) {
    PICTDESC none{};
    none.cbSizeofstruct = sizeof none;
    none.picType = PICTYPE_NONE;
    ComPointer<IDispatch> picture;
    ASSERT_EQ(S_OK, OleCreatePictureIndirect(&none, IID_IPictureDisp, TRUE,
                                             reinterpret_cast<void**>(picture.put())));
    FONTDESC arial{};
    arial.cbSizeofstruct = sizeof arial;
    arial.lpstrName = const_cast<LPOLESTR>(L"Arial");
    arial.cySize.int64 = 100000;
    ComPointer<IDispatch> font;
    ASSERT_EQ(S_OK, OleCreateFontIndirect(&arial, IID_IFontDisp, reinterpret_cast<void**>(font.put())));
    EXPECT_EQ(S_OK, call(L"Image", {object(picture.get())}).code);
    EXPECT_EQ(S_OK, call(L"Police", {object(font.get())}).code);
    EXPECT_EQ(DISP_E_TYPEMISMATCH, call(L"Image", {object(font.get())}).code);
    EXPECT_EQ(DISP_E_TYPEMISMATCH, call(L"Police", {object(picture.get())}).code);
    expectResult(call(L"Image", {nothing()}), nothing());
}

TEST_F(SpecimenTest, recordsAsResultsAndByReference) {
    auto outcome = call(L"Cadre", {std::int32_t{10}});
    ASSERT_EQ(S_OK, outcome.code);
    ASSERT_EQ(VT_RECORD, outcome.result.raw().vt);
    const auto* const rectangle = static_cast<const records::Rect*>(outcome.result.raw().pvRecord);
    EXPECT_EQ(10, rectangle->Left);
    EXPECT_EQ(11, rectangle->Top);
    EXPECT_EQ(12, rectangle->Right);
    EXPECT_EQ(13, rectangle->Bottom);
    Bstr name;
    EXPECT_EQ(S_OK, outcome.result.raw().pRecInfo->GetName(name.put()));
    EXPECT_EQ(L"Rect", name.view());

    EXPECT_EQ(S_OK, call(L"CadreRef", {byReference(outcome.result)}).code);
    EXPECT_EQ(22, rectangle->Right);
    Variant number(std::int16_t{1});
    EXPECT_EQ(DISP_E_TYPEMISMATCH, call(L"CadreRef", {byReference(number)}).code);
}

TEST_F(SpecimenTest, recordsThatNobodyTakesAreFreed) {
    auto arguments = Arguments({std::int32_t{10}});
    auto parameters = arguments.parameters();
    const auto id = idOf(specimen.get(), L"Cadre"), failing = idOf(specimen.get(), L"CadreOuErreur");
    expectNothingLeft([&] {
        EXPECT_EQ(S_OK,
                  specimen->Invoke(id, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr));
        VARIANT result;
        EXPECT_EQ(DISP_E_EXCEPTION, specimen->Invoke(failing, IID_NULL, 0, DISPATCH_METHOD, &parameters,
                                                     &result, nullptr, nullptr));
        EXPECT_EQ(VT_EMPTY, result.vt);
    });
}

// Without the description of the record nothing runs, and an older failure is not the reason.
TEST_F(SpecimenTest, aRecordThatCannotBeDescribed) {
    expectError(call(L"Échoue", {std::int32_t{6}}), 6);
    Intercept<decltype(LoadTypeLibEx)> load(GetModuleHandleW(nullptr), "oleaut32.dll", "LoadTypeLibEx");
    load.answer([](auto...) { return TYPE_E_CANTLOADLIBRARY; });
    SetErrorInfo(0, olderFailure().get());
    auto arguments = Arguments({std::int32_t{10}});
    auto parameters = arguments.parameters();
    const auto outcome = invoke(specimen.get(), idOf(specimen.get(), L"Cadre"), DISPATCH_METHOD, parameters);
    EXPECT_EQ(DISP_E_EXCEPTION, outcome.code);
    EXPECT_EQ(TYPE_E_CANTLOADLIBRARY, outcome.exceptionCode);
    EXPECT_EQ(L"", outcome.description);
    EXPECT_EQ(VT_EMPTY, outcome.result.raw().vt);
}

TEST_F(SpecimenTest, optionalParametersWithoutDefaults) {
    expectResult(call(L"SansDéfaut"), text(L"0||F|0|missing|nothing|"));
    expectResult(
        call(L"SansDéfaut", {missing(), missing(), missing(), missing(), missing(), missing(), missing()}),
        text(L"0||F|0|missing|nothing|"));
    expectResult(call(L"SansDéfaut", {std::int16_t{3}, missing(), true}), text(L"3||T|0|missing|nothing|"));
    expectResult(call(L"SansDéfaut", {missing(), missing(), missing(), missing(), Variant()}),
                 text(L"0||F|0|given|nothing|"));
}

TEST_F(SpecimenTest, optionalParametersWithDefaults) {
    expectResult(call(L"AvecDéfaut"), text(L"5|\t|T|F|100|12|6|T"));
    expectResult(call(L"AvecDéfaut", {std::int16_t{1}, text(L""), false}), text(L"1||F|F|100|12|6|T"));
    Variant handedOn = missing();
    expectResult(call(L"AvecDéfaut", {byReference(handedOn), text(L"a")}), text(L"5|a|T|F|100|12|6|T"));
    EXPECT_TRUE(handedOn.view().isMissing());
}

TEST_F(SpecimenTest, namedArguments) {
    LPOLESTR names[] = {const_cast<LPOLESTR>(L"avecdéfaut"), const_cast<LPOLESTR>(L"OCTET"),
                        const_cast<LPOLESTR>(L"chaîne")};
    DISPID ids[3];
    ASSERT_EQ(S_OK, specimen->GetIDsOfNames(IID_NULL, names, 3, 0, ids));
    EXPECT_EQ(4, ids[1]);
    EXPECT_EQ(1, ids[2]);
    expectResult(call(L"AvecDéfaut", Arguments().named(4, std::int16_t{9}).named(1, text(L"z"))),
                 text(L"5|z|T|F|9|12|6|T"));
    expectResult(call(L"AvecDéfaut", Arguments({std::int16_t{8}}).named(2, false)),
                 text(L"8|\t|F|F|100|12|6|T"));
    const auto twice = call(L"AvecDéfaut", Arguments({std::int16_t{8}}).named(0, std::int16_t{1}));
    EXPECT_EQ(DISP_E_PARAMNOTFOUND, twice.code);
    EXPECT_EQ(DISP_E_PARAMNOTFOUND, call(L"AvecDéfaut", Arguments().named(8, true)).code);
    EXPECT_EQ(DISP_E_PARAMNOTFOUND, call(L"AvecDéfaut", Arguments().named(-5, true)).code);
}

TEST_F(SpecimenTest, properties) {
    EXPECT_EQ(S_OK, put(L"Titre", Arguments().named(DISPID_PROPERTYPUT, text(L"un"))).code);
    expectResult(call(L"Titre"), text(L"un"));
    EXPECT_EQ(
        S_OK,
        put(L"Élément", Arguments({std::int16_t{2}}).named(DISPID_PROPERTYPUT, std::int32_t{70000})).code);
    expectResult(call(L"Élément", {std::int16_t{2}}), std::int32_t{70000});
    expectResult(call(L"Élément", {std::int16_t{1}}), std::int32_t{0});
    expectError(call(L"Élément", {std::int16_t{3}}), 9);

    ScriptedObject host;
    EXPECT_EQ(
        S_OK,
        put(L"Cible", Arguments().named(DISPID_PROPERTYPUT, object(&host)), DISPATCH_PROPERTYPUTREF).code);
    EXPECT_EQ(&host, call(L"Cible").result.raw().pdispVal);
    EXPECT_EQ(DISP_E_MEMBERNOTFOUND,
              put(L"Cible", Arguments().named(DISPID_PROPERTYPUT, object(&host))).code);
    EXPECT_EQ(S_OK, put(L"Cible", Arguments().named(DISPID_PROPERTYPUT, nothing()),
                        DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)
                        .code);
    EXPECT_EQ(0, host.references());
}

TEST_F(SpecimenTest, publicFields) {
    EXPECT_EQ(S_OK, put(L"Teinte", Arguments().named(DISPID_PROPERTYPUT, text(L"255"))).code);
    expectResult(call(L"Teinte"), std::int32_t{255});
    EXPECT_EQ(S_OK, put(L"actif", Arguments().named(DISPID_PROPERTYPUT, true)).code);
    expectResult(call(L"ACTIF"), true);
}

TEST_F(SpecimenTest, identifiersFollowTheDeclaration) {
    const auto id = [this](const wchar_t* name) { return static_cast<unsigned>(idOf(specimen.get(), name)); };
    EXPECT_EQ(0x40030000u, id(L"Teinte"));
    EXPECT_EQ(0x40030001u, id(L"Actif"));
    EXPECT_EQ(0x60030000u, id(L"Court"));
    EXPECT_EQ(0x60030002u, id(L"Octet"));
    // A private procedure stands between these two.
    EXPECT_EQ(0x60030004u, id(L"Simple"));
    // Counted down to 0 at the last declared property.
    EXPECT_EQ(0x68030002u, id(L"Titre"));
    EXPECT_EQ(0x68030001u, id(L"Élément"));
    EXPECT_EQ(0x68030000u, id(L"Cible"));
}

TEST_F(SpecimenTest, unknownNamesAndSeveralAtOnce) {
    LPOLESTR names[] = {const_cast<LPOLESTR>(L"Court"), const_cast<LPOLESTR>(L"Absent"),
                        const_cast<LPOLESTR>(L"Valeur")};
    DISPID ids[] = {-77, -77, -77};
    EXPECT_EQ(DISP_E_UNKNOWNNAME, specimen->GetIDsOfNames(IID_NULL, names, 3, 0, ids));
    EXPECT_EQ(0x60030000, ids[0]);
    EXPECT_EQ(DISPID_UNKNOWN, ids[1]);
    EXPECT_EQ(0, ids[2]);
    LPOLESTR unknown[] = {const_cast<LPOLESTR>(L"Courte"), const_cast<LPOLESTR>(L"Valeur")};
    EXPECT_EQ(DISP_E_UNKNOWNNAME, specimen->GetIDsOfNames(IID_NULL, unknown, 2, 0, ids));
    EXPECT_EQ(DISPID_UNKNOWN, ids[0]);
    EXPECT_EQ(DISPID_UNKNOWN, ids[1]);
    LPOLESTR empty = const_cast<LPOLESTR>(L"");
    EXPECT_EQ(DISP_E_UNKNOWNNAME, specimen->GetIDsOfNames(IID_NULL, &empty, 1, 0, ids));
    ids[0] = ids[1] = -77;
    EXPECT_EQ(DISP_E_UNKNOWNINTERFACE, specimen->GetIDsOfNames(IID_IDispatch, names, 1, 0, ids));
    EXPECT_EQ(DISPID_UNKNOWN, ids[0]);
    EXPECT_EQ(-77, ids[1]);
    EXPECT_EQ(E_POINTER, specimen->GetIDsOfNames(IID_NULL, nullptr, 1, 0, ids));
    EXPECT_EQ(E_POINTER, specimen->GetIDsOfNames(IID_NULL, names, 1, 0, nullptr));
    EXPECT_EQ(E_INVALIDARG, specimen->GetIDsOfNames(IID_NULL, names, 0, 0, ids));
    LPOLESTR null = nullptr;
    EXPECT_EQ(DISP_E_UNKNOWNNAME, specimen->GetIDsOfNames(IID_NULL, &null, 1, 0, ids));
}

TEST_F(SpecimenTest, wrongUseGetsItsCode) {
    IDispatch* const it = specimen.get();
    DISPPARAMS none{};
    EXPECT_EQ(DISP_E_MEMBERNOTFOUND, invoke(it, 0x60030003, DISPATCH_METHOD, none).code);  // reserved
    EXPECT_EQ(DISP_E_MEMBERNOTFOUND, invoke(it, DISPID_VALUE, DISPATCH_PROPERTYGET, none).code);
    EXPECT_EQ(DISP_E_MEMBERNOTFOUND, invoke(it, DISPID_NEWENUM, DISPATCH_METHOD, none).code);
    EXPECT_EQ(DISP_E_MEMBERNOTFOUND, invoke(it, 0x7FFFFFFF, DISPATCH_METHOD, none).code);
    EXPECT_EQ(DISP_E_MEMBERNOTFOUND, invoke(it, idOf(it, L"Court"), DISPATCH_PROPERTYGET, none).code);
    EXPECT_EQ(DISP_E_MEMBERNOTFOUND, invoke(it, idOf(it, L"Court"), 0, none).code);
    EXPECT_EQ(DISP_E_MEMBERNOTFOUND, invoke(it, idOf(it, L"Titre"), DISPATCH_METHOD, none).code);
    EXPECT_EQ(DISP_E_BADPARAMCOUNT, invoke(it, idOf(it, L"Court"), DISPATCH_METHOD, none).code);
    EXPECT_EQ(DISP_E_BADPARAMCOUNT, call(L"Court", {std::int16_t{1}, std::int16_t{2}}).code);
    EXPECT_EQ(DISP_E_BADPARAMCOUNT, put(L"Titre", {}).code);
    EXPECT_EQ(E_POINTER, it->Invoke(idOf(it, L"Court"), IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr,
                                    nullptr, nullptr));
    EXPECT_EQ(DISP_E_UNKNOWNINTERFACE, it->Invoke(idOf(it, L"Court"), IID_IUnknown, 0, DISPATCH_METHOD, &none,
                                                  nullptr, nullptr, nullptr));
    DISPPARAMS noArray{nullptr, nullptr, 1, 0};
    EXPECT_EQ(E_POINTER, invoke(it, idOf(it, L"Court"), DISPATCH_METHOD, noArray).code);
    DISPPARAMS moreNames{nullptr, nullptr, 0, 1};
    EXPECT_EQ(DISP_E_BADPARAMCOUNT, invoke(it, idOf(it, L"Court"), DISPATCH_METHOD, moreNames).code);
    EXPECT_EQ(E_POINTER, call(L"LongRef", {byReference(VT_I4, nullptr)}).code);
    EXPECT_EQ(E_POINTER, call(L"LongRef", {byReference(VT_VARIANT, nullptr)}).code);
    EXPECT_EQ(E_POINTER, call(L"Long", {byReference(VT_I4, nullptr)}).code);
    EXPECT_EQ(E_POINTER, call(L"Variable", {byReference(VT_BSTR, nullptr)}).code);
}

TEST_F(SpecimenTest, resultsMayBeIgnored) {
    auto arguments = Arguments({text(L"abc")});
    auto parameters = arguments.parameters();
    EXPECT_EQ(S_OK, specimen->Invoke(idOf(specimen.get(), L"Chaîne"), IID_NULL, 0, DISPATCH_METHOD,
                                     &parameters, nullptr, nullptr, nullptr));
}

TEST_F(SpecimenTest, theCallersArgumentsStayAsTheyAre) {
    auto arguments = Arguments({text(L"12")});
    auto parameters = arguments.parameters();
    EXPECT_EQ(S_OK, invoke(specimen.get(), idOf(specimen.get(), L"Long"), DISPATCH_METHOD, parameters).code);
    EXPECT_EQ(VT_BSTR, parameters.rgvarg[0].vt);
    EXPECT_EQ(L"12", viewOf(parameters.rgvarg[0].bstrVal));
}

}  // namespace
}  // namespace vorla::test
