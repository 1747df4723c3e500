// Calls every case in the files and writes the answers: `client fr|en invoke|vtable files...`.
//
// "invoke" calls late-bound, by name, as a script engine does. "vtable" calls the slots of the dual interface
// as a compiled host does: it knows them from the type library, converts nothing and supplies the defaults.
#include <ole2.h>
#include <windows.h>

#include <cstdio>
#include <exception>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "clients/case_table.h"
#include "frame/values/com_pointer.h"

namespace vorla::test {
namespace {

// Thrown for a case that this kind of host cannot express.
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

// The run-time number that hosts show when a call breaks the automation rules.
std::string describeRefusal(HRESULT refusal) {
    switch (refusal) {
        case DISP_E_TYPEMISMATCH: return describeError(13, true);
        case DISP_E_OVERFLOW: return describeError(6, true);
        case DISP_E_BADPARAMCOUNT:
        case DISP_E_PARAMNOTOPTIONAL: return describeError(450, true);
        case DISP_E_MEMBERNOTFOUND: return describeError(438, true);
        default: return describeFailure(refusal, true);
    }
}

// Script engines cannot tell a method from a property with arguments.
WORD flagsOf(Use use) {
    switch (use) {
        case Use::get: return DISPATCH_PROPERTYGET;
        case Use::put: return DISPATCH_PROPERTYPUT;
        default: return DISPATCH_METHOD | DISPATCH_PROPERTYGET;
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
    DISPID theValue = DISPID_PROPERTYPUT;
    if (called.use == Use::put) {
        parameters.rgdispidNamedArgs = &theValue;
        parameters.cNamedArgs = 1;
    }
    Variant result;
    EXCEPINFO exception{};
    UINT badArgument = 0;
    const auto answer =
        object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flagsOf(called.use), &parameters,
                       called.use == Use::put ? nullptr : result.put(), &exception, &badArgument);
    const auto source = Bstr::adopt(exception.bstrSource),
               description = Bstr::adopt(exception.bstrDescription),
               help = Bstr::adopt(exception.bstrHelpFile);
    if (SUCCEEDED(answer)) return describeResult(result.raw());
    if (result.raw().vt != VT_EMPTY) return "a failure with a result";
    if (answer != DISP_E_EXCEPTION) return describeRefusal(answer);
    return describeFailure(exception.scode, !description.view().empty());
}

// --- by the vtable ---

void demand(HRESULT code, const char* what) {
    if (FAILED(code)) throw std::runtime_error(what);
}

// A member as the type library describes it, for as long as this lives.
class Description {
public:
    Description(ITypeInfo* type, DISPID member, Use use) : type_(type) {
        for (UINT i = 0; SUCCEEDED(type->GetFuncDesc(i, &function_)); ++i) {
            if (function_->memid == member && isFor(use)) return;
            type->ReleaseFuncDesc(function_);
        }
        if (use == Use::put) throw Inexpressible{"a compiler refuses to write what can only be read"};
        throw std::runtime_error("a member is not described");
    }
    Description(const Description&) = delete;
    Description& operator=(const Description&) = delete;
    ~Description() { type_->ReleaseFuncDesc(function_); }

    const FUNCDESC& function() const { return *function_; }
    std::size_t parameterCount() const { return static_cast<std::size_t>(function_->cParams); }
    const ELEMDESC& parameter(std::size_t index) const { return function_->lprgelemdescParam[index]; }

    // The type in which a value is passed: an enumeration is passed as an integer.
    VARTYPE passed(const TYPEDESC& type) const {
        if (type.vt == VT_PTR) return VT_DISPATCH;
        if (type.vt != VT_USERDEFINED) return type.vt;
        ComPointer<ITypeInfo> defined;
        TYPEATTR* attributes = nullptr;
        demand(type_->GetRefTypeInfo(type.hreftype, defined.put()), "a type is not described");
        demand(defined->GetTypeAttr(&attributes), "a type is not described");
        const auto kind = attributes->typekind;
        defined->ReleaseTypeAttr(attributes);
        if (kind == TKIND_ENUM) return VT_I4;
        return kind == TKIND_RECORD ? VT_RECORD : VT_DISPATCH;
    }

    // A pointer to an interface is an object by value.
    bool isByReference(const TYPEDESC& type) const {
        return type.vt == VT_PTR &&
               !(type.lptdesc->vt == VT_USERDEFINED && passed(*type.lptdesc) == VT_DISPATCH);
    }

private:
    bool isFor(Use use) const {
        switch (use) {
            case Use::get: return function_->invkind == INVOKE_PROPERTYGET;
            case Use::put: return function_->invkind == INVOKE_PROPERTYPUT;
            default: return function_->invkind <= INVOKE_PROPERTYGET;
        }
    }

    ITypeInfo* type_;
    FUNCDESC* function_ = nullptr;
};

constexpr auto wrongCount = "a compiler refuses the number of arguments";

// Arguments in exactly the types that the slot takes. A missing one gets the default that the type library
// declares, as a compiler would pass it.
class TypedArguments {
public:
    TypedArguments(Case& called, const Description& member) {
        const auto count = member.parameterCount();
        if (called.arguments.size() > count) throw Inexpressible{wrongCount};
        values_.resize(count);
        for (std::size_t i = 0; i < count; ++i) {
            const ELEMDESC& parameter = member.parameter(i);
            const bool byReference = member.isByReference(parameter.tdesc);
            const auto type = member.passed(byReference ? *parameter.tdesc.lptdesc : parameter.tdesc);
            const bool given = i < called.arguments.size() && !called.arguments[i].value.view().isMissing();
            if (!given) values_[i] = whenMissing(parameter, type);
            pass(given ? called.arguments[i].value : values_[i], type, byReference);
        }
    }

    /// The slot's last argument: where the result goes.
    void passResult(VARTYPE type, VARIANT& result) {
        result = {};
        if (type != VT_VARIANT) result.vt = type;
        VARIANT where{};
        where.vt = static_cast<VARTYPE>(VT_BYREF | type);
        where.byref = type == VT_VARIANT ? static_cast<void*>(&result) : &result.byref;
        passed_.push_back(where);
    }

    HRESULT call(IDispatch* object, const FUNCDESC& function) {
        std::vector<VARTYPE> types;
        std::vector<VARIANT*> places;
        for (std::size_t i = 0; i < passed_.size(); ++i) {
            types.push_back(i < variants_.size() && variants_[i] ? VARTYPE{VT_VARIANT} : passed_[i].vt);
            places.push_back(&passed_[i]);
        }
        VARIANT answer{};
        demand(DispCallFunc(object, static_cast<ULONG_PTR>(function.oVft), CC_STDCALL, VT_ERROR,
                            static_cast<UINT>(types.size()), types.data(), places.data(), &answer),
               "a slot cannot be called");
        return answer.scode;
    }

private:
    static Variant whenMissing(const ELEMDESC& parameter, VARTYPE type) {
        if (!(parameter.paramdesc.wParamFlags & PARAMFLAG_FOPT)) throw Inexpressible{wrongCount};
        if (parameter.paramdesc.wParamFlags & PARAMFLAG_FHASDEFAULT)
            return Variant(VariantView(parameter.paramdesc.pparamdescex->varDefaultValue));
        Variant value;
        value.put()->vt = type == VT_VARIANT ? VARTYPE{VT_ERROR} : type;
        if (type == VT_VARIANT) value.put()->scode = DISP_E_PARAMNOTFOUND;
        return value;
    }

    void pass(Variant& value, VARTYPE type, bool byReference) {
        VARIANT& raw = *value.put();
        const bool isVariant = type == VT_VARIANT;
        if (!isVariant) fit(raw, type);
        VARIANT argument = raw;
        if (byReference) {
            argument = {};
            argument.vt = static_cast<VARTYPE>(VT_BYREF | type);
            argument.byref = isVariant ? static_cast<void*>(&raw) : &raw.byref;
        }
        passed_.push_back(argument);
        variants_.push_back(isVariant && !byReference);
    }

    // A literal may have a wider or narrower integer type if its value fits.
    static void fit(VARIANT& raw, VARTYPE type) {
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
    }

    std::vector<Variant> values_;
    std::vector<VARIANT> passed_;  // views of the case's values and of the values above
    std::vector<bool> variants_;   // whether each is passed as a variant
};

std::string callByVtable(IDispatch* object, Case& called) {
    ComPointer<ITypeInfo> type;
    demand(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, type.put()), "a class is not described");
    auto name = called.member.data();
    DISPID id = DISPID_UNKNOWN;
    if (FAILED(type->GetIDsOfNames(&name, 1, &id))) return "no such member";
    const Description member(type.get(), id, called.use);
    TypedArguments arguments(called, member);
    Variant result;
    const auto resultType = member.passed(member.function().elemdescFunc.tdesc);
    if (resultType != VT_VOID) arguments.passResult(resultType, *result.put());

    // Finds the dual interface in the type library by its identifier.
    TYPEATTR* attributes = nullptr;
    demand(type->GetTypeAttr(&attributes), "a class is not described");
    const IID dualId = attributes->guid;
    type->ReleaseTypeAttr(attributes);
    ComPointer<IDispatch> dual;
    demand(object->QueryInterface(dualId, reinterpret_cast<void**>(dual.put())),
           "a dual interface is missing");

    SetErrorInfo(0, nullptr);
    const auto answer = arguments.call(dual.get(), member.function());
    if (SUCCEEDED(answer)) return describeResult(result.raw());
    ComPointer<IErrorInfo> information;
    Bstr description;
    if (GetErrorInfo(0, information.put()) == S_OK) information->GetDescription(description.put());
    return describeFailure(answer, !description.view().empty());
}

// --- both ---

// An object of the class. The pointer to a dual interface is the one whose vtable is called.
ComPointer<IDispatch> make(const std::wstring& className) {
    CLSID classId;
    ComPointer<IDispatch> object;
    demand(CLSIDFromProgID((L"Vorla6." + className).c_str(), &classId), "a class is not registered");
    demand(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                            reinterpret_cast<void**>(object.put())),
           "an object cannot be made");
    return object;
}

void run(std::vector<Case>& cases, bool byVtable) {
    std::wstring className;
    ComPointer<IDispatch> object;
    for (Case& called : cases) {
        if (!object || called.className != className) {
            className = called.className;
            object = make(className);
        }
        std::string answer;
        try {
            answer = byVtable ? callByVtable(object.get(), called) : callLateBound(object.get(), called);
            for (const auto& argument : called.arguments)
                if (argument.byReference) answer += " ref " + describeVariable(argument.value.raw());
        } catch (const Inexpressible& reason) {
            answer = std::string("skip: ") + reason.reason;
        }
        std::printf("%s %s\n", called.name.c_str(), answer.c_str());
    }
}

}  // namespace
}  // namespace vorla::test

int main(int count, char** arguments) {
    const std::string_view way = count > 3 ? arguments[2] : "";
    if (way != "invoke" && way != "vtable") {
        std::fprintf(stderr, "usage: client fr|en invoke|vtable files...\n");
        return 2;
    }
    // Without a buffer, every answer before a crash is written, and the last one shows how far the run came.
    std::setvbuf(stdout, nullptr, _IONBF, 0);
    if (FAILED(OleInitialize(nullptr))) return 1;
    int result = 1;
    try {
        std::vector<vorla::test::Case> cases;
        for (int i = 3; i < count; ++i) vorla::test::readCases(arguments[i], arguments[1], cases);
        vorla::test::run(cases, way == "vtable");
        result = 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
    }
    OleUninitialize();
    return result;
}
