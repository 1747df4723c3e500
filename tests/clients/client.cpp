// Calls every case of the table and writes the answers: `client cases.txt fr|en invoke|vtable`.
//
// "invoke" calls late-bound, by name, as a script engine does; "vtable" calls the slots of the dual
// interface as a compiled host does, which converts nothing and fills in what was left out.
#include <ole2.h>
#include <windows.h>

#include <cstdio>
#include <exception>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "clients/case_table.h"
#include "frame/values/unique_handle.h"

namespace vorla::test {

// The interface as a host declares it from the type library, in the order of its slots. Not in the unnamed
// namespace: there the compiler would see that nobody implements it, and take its calls for unreachable.
struct DualChaine : IDispatch {
    virtual HRESULT __stdcall CBR(VARIANT Chaine, SHORT Longueur, BSTR* result) = 0;
    virtual HRESULT __stdcall CBL(VARIANT Chaine, SHORT Longueur, BSTR* result) = 0;
    virtual HRESULT __stdcall ExtraitChaine(BSTR Chaine, SHORT Rang, BSTR Separateur,
                                            VARIANT_BOOL DepuisLaFin, BSTR* result) = 0;
    virtual HRESULT __stdcall Transfrm(BSTR Chaine, BSTR Car1, BSTR Car2, SHORT Debut, SHORT Nombre,
                                       BSTR* result) = 0;
    virtual HRESULT __stdcall Occurrence(BSTR Chaine, BSTR Cherche, VARIANT_BOOL CaseSensitive, SHORT Start,
                                         FLOAT* result) = 0;
    virtual HRESULT __stdcall Zclé(BSTR Clé, SHORT Longueur, BSTR* result) = 0;
    virtual HRESULT __stdcall NumLet(BSTR Chaine, SHORT Longueur, BSTR* result) = 0;
    virtual HRESULT __stdcall SplitStr(VARIANT Chaine, BSTR* result) = 0;
    virtual HRESULT __stdcall Parse(BSTR strArg, LONG* ParseSeparatorType, BSTR* CustomSeparator,
                                    BSTR* result) = 0;
};

namespace {

constexpr GUID dualChaineId = {0x57AB0030, 0x7BA1, 0x412D, {0xBD, 0x16, 0x32, 0x9B, 0x0A, 0x86, 0xB1, 0xAB}};

// What the case asks for cannot be written in this kind of host.
struct Inexpressible {
    const char* reason;
};

std::string describeError(unsigned number, bool hasDescription) {
    return "error " + std::to_string(number) + (hasDescription ? "" : " without description");
}

std::string describeFailure(HRESULT failure, bool hasDescription) {
    char code[24];
    std::snprintf(code, sizeof code, "failure %08lx", static_cast<unsigned long>(failure));
    if (HRESULT_FACILITY(failure) != FACILITY_CONTROL) return code;
    return describeError(failure & 0xFFFF, hasDescription);
}

// --- late-bound ---

// The run-time number that hosts give to a refusal of the automation rules.
std::string describeRefusal(HRESULT refusal) {
    switch (refusal) {
        case DISP_E_TYPEMISMATCH: return describeError(13, true);
        case DISP_E_OVERFLOW: return describeError(6, true);
        case DISP_E_BADPARAMCOUNT:
        case DISP_E_PARAMNOTOPTIONAL: return describeError(450, true);
        default: return describeFailure(refusal, true);
    }
}

std::string callLateBound(IDispatch* object, Case& called) {
    auto name = called.member.data();
    DISPID id = DISPID_UNKNOWN;
    if (FAILED(object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id))) return "no such member";

    std::vector<VARIANT> reversed;
    for (auto argument = called.arguments.rbegin(); argument != called.arguments.rend(); ++argument) {
        VARIANT given = argument->value.raw();
        if (argument->byReference) {
            given.vt = VT_BYREF | VT_VARIANT;
            given.pvarVal = argument->value.put();
        }
        reversed.push_back(given);
    }
    DISPPARAMS parameters{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
    Variant result;
    EXCEPINFO exception{};
    UINT badArgument = 0;
    const auto answer =
        object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD | DISPATCH_PROPERTYGET, &parameters,
                       result.put(), &exception, &badArgument);
    const Bstr source(exception.bstrSource), description(exception.bstrDescription),
        help(exception.bstrHelpFile);
    if (SUCCEEDED(answer)) return describeResult(result.raw());
    if (result.raw().vt != VT_EMPTY) return "a failure with a result";
    if (answer != DISP_E_EXCEPTION) return describeRefusal(answer);
    return describeFailure(exception.scode, !description.view().empty());
}

// --- by the vtable ---

// Arguments of the very types that the slots take. What is missing gets the default that the type library
// declares, as a compiler puts it.
class TypedArguments {
public:
    explicit TypedArguments(Case& called) : arguments_(called.arguments) {}

    ~TypedArguments() {
        for (const BSTR owned : owned_) SysFreeString(owned);
    }

    VARIANT variant(std::size_t index) { return required(index).raw(); }

    BSTR text(std::size_t index, std::optional<std::wstring_view> whenMissing = {}) {
        if (const auto given = find(index, whenMissing.has_value())) return typed(*given, VT_BSTR).bstrVal;
        owned_.push_back(Bstr(*whenMissing).detach());
        return owned_.back();
    }

    SHORT number(std::size_t index, std::optional<SHORT> whenMissing = {}) {
        const auto given = find(index, whenMissing.has_value());
        return given ? typed(*given, VT_I2).iVal : *whenMissing;
    }

    VARIANT_BOOL boolean(std::size_t index, bool whenMissing) {
        const auto given = find(index, true);
        if (!given) return whenMissing ? VARIANT_TRUE : VARIANT_FALSE;
        return typed(*given, VT_BOOL).boolVal;
    }

    // Variables: what the case holds, else one of the call's own.
    LONG* numberVariable(std::size_t index) {
        const auto given = find(index, true);
        if (!given) return &ownNumber_;
        typed(*given, VT_I4);
        return &given->put()->lVal;
    }

    BSTR* textVariable(std::size_t index) {
        const auto given = find(index, true);
        if (!given) return &ownText_;
        typed(*given, VT_BSTR);
        return &given->put()->bstrVal;
    }

    // Compilers count the arguments.
    void expectAtMost(std::size_t count) {
        if (arguments_.size() > count) throw Inexpressible{wrongCount};
    }

private:
    static constexpr auto wrongCount = "a compiler refuses the number of arguments";

    Variant* find(std::size_t index, bool optional) {
        if (index < arguments_.size() && !arguments_[index].value.view().isMissing())
            return &arguments_[index].value;
        if (!optional) throw Inexpressible{wrongCount};
        return nullptr;
    }

    Variant& required(std::size_t index) { return *find(index, false); }

    // A literal may have the wider or the narrower integer type, where the value fits.
    const VARIANT& typed(Variant& value, VARTYPE type) {
        VARIANT& raw = *value.put();
        if (raw.vt == VT_I2 && type == VT_I4) {
            raw.lVal = raw.iVal;
            raw.vt = VT_I4;
        }
        if (raw.vt == VT_I4 && type == VT_I2 && raw.lVal == static_cast<SHORT>(raw.lVal)) {
            raw.iVal = static_cast<SHORT>(raw.lVal);
            raw.vt = VT_I2;
        }
        if (raw.vt != type)
            throw Inexpressible{"a compiler refuses the type of an argument, or converts it itself"};
        return raw;
    }

    std::vector<CaseArgument>& arguments_;
    std::vector<BSTR> owned_;
    LONG ownNumber_ = 0;
    BSTR ownText_ = nullptr;
};

HRESULT callSlot(DualChaine* object, Case& called, VARIANT& result) {
    TypedArguments given(called);
    const auto& member = called.member;
    result.vt = VT_BSTR;
    result.bstrVal = nullptr;
    BSTR* const text = &result.bstrVal;
    if (member == L"CBR" || member == L"CBL") {
        given.expectAtMost(2);
        const auto slot = member == L"CBR" ? &DualChaine::CBR : &DualChaine::CBL;
        return (object->*slot)(given.variant(0), given.number(1), text);
    }
    if (member == L"ExtraitChaine") {
        given.expectAtMost(4);
        return object->ExtraitChaine(given.text(0), given.number(1), given.text(2, L""),
                                     given.boolean(3, false), text);
    }
    if (member == L"Transfrm") {
        given.expectAtMost(5);
        return object->Transfrm(given.text(0), given.text(1), given.text(2), given.number(3, 0),
                                given.number(4, 0), text);
    }
    if (member == L"Occurrence") {
        given.expectAtMost(4);
        result.vt = VT_R4;
        result.fltVal = 0;
        return object->Occurrence(given.text(0), given.text(1), given.boolean(2, true), given.number(3, 1),
                                  &result.fltVal);
    }
    if (member == L"Zclé") {
        given.expectAtMost(2);
        return object->Zclé(given.text(0), given.number(1), text);
    }
    if (member == L"NumLet") {
        given.expectAtMost(2);
        return object->NumLet(given.text(0), given.number(1, 0), text);
    }
    if (member == L"SplitStr") {
        given.expectAtMost(1);
        return object->SplitStr(given.variant(0), text);
    }
    if (member == L"Parse") {
        given.expectAtMost(3);
        return object->Parse(given.text(0), given.numberVariable(1), given.textVariable(2), text);
    }
    return DISP_E_UNKNOWNNAME;
}

std::string callByVtable(DualChaine* object, Case& called) {
    SetErrorInfo(0, nullptr);
    Variant result;
    const auto answer = callSlot(object, called, *result.put());
    if (SUCCEEDED(answer)) return describeResult(result.raw());
    ComPointer<IErrorInfo> information;
    Bstr description;
    if (GetErrorInfo(0, information.put()) == S_OK) information->GetDescription(description.put());
    return describeFailure(answer, !description.view().empty());
}

// --- both ---

int run(const char* path, const std::string& language, bool byVtable) {
    // Answers come whole or not at all: the last one shows how far a failed run came.
    std::setvbuf(stdout, nullptr, _IONBF, 0);
    auto cases = readCases(path, language);

    CLSID classId;
    ComPointer<IDispatch> object;
    ComPointer<DualChaine> dual;
    if (FAILED(CLSIDFromProgID(L"Vorla6.VorlaChaine", &classId)) ||
        FAILED(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                                reinterpret_cast<void**>(object.put()))) ||
        FAILED(object->QueryInterface(dualChaineId, reinterpret_cast<void**>(dual.put())))) {
        std::fprintf(stderr, "Vorla6.VorlaChaine cannot be created\n");
        return 1;
    }

    for (Case& called : cases) {
        std::string answer;
        try {
            answer = byVtable ? callByVtable(dual.get(), called) : callLateBound(object.get(), called);
            for (const auto& argument : called.arguments)
                if (argument.byReference) answer += " ref " + describeVariable(argument.value.raw());
        } catch (const Inexpressible& reason) {
            answer = std::string("skip: ") + reason.reason;
        }
        std::printf("%d %s\n", called.line, answer.c_str());
    }
    return 0;
}

}  // namespace
}  // namespace vorla::test

int main(int count, char** arguments) {
    const std::string_view way = count == 4 ? arguments[3] : "";
    if (way != "invoke" && way != "vtable") {
        std::fprintf(stderr, "usage: client cases.txt fr|en invoke|vtable\n");
        return 2;
    }
    if (FAILED(OleInitialize(nullptr))) return 1;
    int result = 1;
    try {
        result = vorla::test::run(arguments[1], arguments[2], way == "vtable");
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
    }
    OleUninitialize();
    return result;
}
