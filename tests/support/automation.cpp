#include "support/automation.h"

#include <cstdio>

#include "frame/values/conversions.h"

namespace vorla::test {

Arguments::Arguments(std::initializer_list<Variant> positional) : owned(positional) {}

Arguments& Arguments::named(DISPID id, Variant value) {
    names.push_back(id);
    owned.push_back(std::move(value));
    return *this;
}

DISPPARAMS Arguments::parameters() {
    const auto positional = owned.size() - names.size();
    reversed.clear();
    for (auto i = positional; i < owned.size(); ++i) reversed.push_back(owned[i].raw());
    for (auto i = positional; i-- > 0;) reversed.push_back(owned[i].raw());
    return {reversed.data(), names.data(), static_cast<UINT>(reversed.size()),
            static_cast<UINT>(names.size())};
}

namespace {

Variant ofType(VARTYPE type) {
    Variant value;
    value.put()->vt = type;
    return value;
}

}  // namespace

Variant byReference(VARTYPE type, void* variable) {
    auto value = ofType(static_cast<VARTYPE>(type | VT_BYREF));
    value.put()->byref = variable;
    return value;
}

Variant byReference(Variant& variable) { return byReference(VT_VARIANT, variable.put()); }
Variant nullValue() { return ofType(VT_NULL); }

Variant missing() {
    auto value = ofType(VT_ERROR);
    value.put()->scode = DISP_E_PARAMNOTFOUND;
    return value;
}

Variant nothing() { return object(nullptr); }

Variant object(IDispatch* referred) {
    auto value = ofType(VT_DISPATCH);
    value.put()->pdispVal = referred;
    if (referred) referred->AddRef();
    return value;
}

Variant text(std::wstring_view value) { return Variant(value); }

Variant short16(int value) { return static_cast<std::int16_t>(value); }
Variant long32(int value) { return static_cast<std::int32_t>(value); }

Variant octet(int value) { return static_cast<std::uint8_t>(value); }

Variant single(float value) { return value; }

DISPID idOf(IDispatch* object, const wchar_t* name) {
    auto asked = const_cast<LPOLESTR>(name);
    DISPID id = -77;
    EXPECT_EQ(S_OK, object->GetIDsOfNames(IID_NULL, &asked, 1, LOCALE_USER_DEFAULT, &id)) << narrow(name);
    return id;
}

Outcome invoke(IDispatch* object, DISPID id, WORD flags, DISPPARAMS& parameters, LCID locale) {
    Outcome outcome;
    EXCEPINFO exception{};
    // A poison that needs no freeing: a type that no result has.
    outcome.result.put()->vt = VT_I8;
    outcome.code = object->Invoke(id, IID_NULL, locale, flags, &parameters, outcome.result.put(), &exception,
                                  &outcome.badArgument);
    outcome.exceptionCode = exception.scode;
    const auto source = Bstr::adopt(exception.bstrSource),
               description = Bstr::adopt(exception.bstrDescription),
               help = Bstr::adopt(exception.bstrHelpFile);
    outcome.source = source.view();
    outcome.description = description.view();
    outcome.helpFile = help.view();
    outcome.helpContext = exception.dwHelpContext;
    return outcome;
}

Outcome invoke(IDispatch* object, const wchar_t* name, Arguments arguments, WORD flags, LCID locale) {
    auto parameters = arguments.parameters();
    return invoke(object, idOf(object, name), flags, parameters, locale);
}

std::string narrow(std::wstring_view text) {
    std::string result;
    for (const wchar_t character : text) {
        char escaped[12];
        if (character >= 32 && character < 127 && character != L'\\')
            std::snprintf(escaped, sizeof escaped, "%c", static_cast<char>(character));
        else
            std::snprintf(escaped, sizeof escaped, "\\u%04X", static_cast<unsigned>(character));
        result += escaped;
    }
    return result;
}

std::string describe(const VARIANT& value) {
    const VariantView view(value);
    const auto name = "vt " + std::to_string(value.vt) + " ";
    if (view.type() == VT_BSTR) return name + '"' + narrow(viewOf(view.raw().bstrVal)) + '"';
    if (view.isEmpty() || view.isNull()) return name;
    if (view.isArray() || view.isObject() || view.type() == VT_RECORD)
        return name + (view.raw().byref ? "set" : "not set");
    if (view.type() == VT_ERROR) return name + std::to_string(view.raw().scode);
    Variant text;
    const auto answer = changeType(*text.put(), view.raw(), 0x0409, VARIANT_NOUSEROVERRIDE, VT_BSTR);
    return name + (SUCCEEDED(answer) ? narrow(viewOf(text.raw().bstrVal)) : "?");
}

void expectResult(const Outcome& outcome, const Variant& expected, const std::string& what) {
    EXPECT_EQ(S_OK, outcome.code) << what;
    EXPECT_EQ(describe(expected.raw()), describe(outcome.result.raw())) << what;
}

void expectError(const Outcome& outcome, int number, const std::string& what) {
    EXPECT_EQ(DISP_E_EXCEPTION, outcome.code) << what;
    EXPECT_EQ(static_cast<HRESULT>(0x800A0000u + static_cast<unsigned>(number)), outcome.exceptionCode)
        << what;
    EXPECT_EQ(VT_EMPTY, outcome.result.raw().vt) << what;
    EXPECT_FALSE(outcome.description.empty()) << what;
}

bool isFrench() { return PRIMARYLANGID(LANGIDFROMLCID(GetUserDefaultLCID())) == LANG_FRENCH; }

}  // namespace vorla::test
