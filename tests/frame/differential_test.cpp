// Calls every published member through our Invoke and through the system's DispInvoke over the type library,
// with the same generated arguments. Where the two differ on purpose, the difference has a name and a reason
// below. Each must occur, so that a system that no longer differs is noticed.
#include <gtest/gtest.h>
#include <shlobj.h>

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <random>

#include "frame/com/catalogue.h"
#include "frame/com/instance.h"
#include "frame/specimen.h"
#include "frame/values/conversions.h"
#include "support/automation.h"
#include "support/import_patch.h"
#include "support/no_dialogs.h"
#include "support/scripted_object.h"

namespace vorla::test {
namespace {

// How a generated argument is given.
enum class Shape {
    exact,
    numericText,
    otherText,
    otherNumber,
    tooLarge,
    emptyValue,
    null,
    missingValue,
    array,
    objectWithDefault,
    objectWithout,
    nothingValue,
    count
};
enum class Wrapping { plain, typedReference, variantReference, count };

constexpr const char* shapeNames[] = {
    "exact", "numeric text", "text",  "other number",        "too large", "Empty",
    "Null",  "missing",      "array", "object with default", "object",    "Nothing"};
constexpr const char* wrappingNames[] = {"", " by typed reference", " in a variant by reference"};

struct Given {
    Shape shape;
    Wrapping wrapping;
    bool omitted = false;
};

// The variables of one side of a call, to which by-reference arguments refer.
struct Side {
    std::vector<Variant> values;  // the arguments' values, or the variables themselves
    std::vector<Variant> arguments;
};

ScriptedObject withDefault{Variant(std::int16_t{12})};
ScriptedObject withoutDefault;

Variant exactValue(VARTYPE type) {
    switch (type) {
        case VT_I2: return std::int16_t{3};
        case VT_I4: return std::int32_t{70000};
        case VT_UI1: {
            Variant octet(std::int16_t{200});
            throwIfFailed(changeType(*octet.put(), octet.raw(), 0, 0, VT_UI1));
            return octet;
        }
        case VT_R4: {
            Variant single(1.5);
            throwIfFailed(changeType(*single.put(), single.raw(), 0, 0, VT_R4));
            return single;
        }
        case VT_R8: return 2.25;
        case VT_CY: return Currency{12345};
        case VT_DATE: return Date{36924.5};
        case VT_BOOL: return true;
        case VT_BSTR: return text(L"b;a;b");
        case VT_DISPATCH: return object(&withoutDefault);
        default: return text(L"quelque chose");
    }
}

Variant valueOf(Shape shape, VARTYPE type) {
    switch (shape) {
        case Shape::exact: return exactValue(type);
        case Shape::numericText: return text(L"12");
        case Shape::otherText: return text(L"abc");
        case Shape::otherNumber: return type == VT_I2 ? Variant(std::int32_t{7}) : Variant(std::int16_t{7});
        case Shape::tooLarge: return 1e30;
        case Shape::emptyValue: return Variant();
        case Shape::null: return nullValue();
        case Shape::missingValue: return missing();
        case Shape::array: {
            Variant array;
            array.put()->parray = SafeArrayCreateVector(VT_VARIANT, 0, 2);
            array.put()->vt = VT_ARRAY | VT_VARIANT;
            return array;
        }
        case Shape::objectWithDefault: return object(&withDefault);
        case Shape::objectWithout: return object(&withoutDefault);
        default: return nothing();
    }
}

Side makeSide(const std::vector<Given>& given, std::span<const Parameter> parameters) {
    Side side;
    for (std::size_t i = 0; i < given.size(); ++i)
        side.values.push_back(valueOf(given[i].shape, parameters[i].type.type));
    for (std::size_t i = 0; i < given.size(); ++i) {
        Variant& value = side.values[i];
        switch (given[i].wrapping) {
            case Wrapping::variantReference: side.arguments.push_back(byReference(value)); break;
            case Wrapping::typedReference:
                if (sizeOfValue(value.raw().vt) != 0) {
                    side.arguments.push_back(byReference(value.raw().vt, &value.put()->byref));
                    break;
                }
                [[fallthrough]];
            default: side.arguments.push_back(value);
        }
    }
    return side;
}

constexpr UINT untouched = 0xBAD;

struct Seen {
    HRESULT code;
    std::string result;
    UINT badArgument;
    std::string exception;
    std::vector<std::string> variables;
};

using Caller = std::function<HRESULT(IDispatch*, DISPID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*)>;

Seen call(const Publication& publication, const Member& member, const std::vector<Given>& given,
          const std::vector<DISPID>& names, const Caller& caller) {
    auto instance = Dispatch::adopt(reinterpret_cast<IDispatch*>(publication.create(publication)));
    auto side = makeSide(given, publication.parametersOf(member));
    Arguments arguments;
    std::size_t positional = given.size() - names.size();
    for (std::size_t i = 0; i < positional; ++i)
        if (!given[i].omitted) arguments.owned.push_back(side.arguments[i]);
    for (std::size_t i = positional; i < given.size(); ++i) {
        if (given[i].omitted) continue;
        arguments.names.push_back(names[i - positional]);
        arguments.owned.push_back(side.arguments[i]);
    }
    auto parameters = arguments.parameters();
    // The system converts some arguments in place, so the array owns them now.
    for (Variant& argument : arguments.owned) argument.detach();
    Variant result;
    EXCEPINFO exception{};
    UINT badArgument = untouched;
    SetErrorInfo(0, nullptr);
    Seen seen;
    seen.code = caller(instance.get(), member.id, static_cast<WORD>(member.kind), &parameters, result.put(),
                       &exception, &badArgument);
    for (VARIANT& argument : arguments.reversed) VariantClear(&argument);
    seen.badArgument = badArgument;
    seen.result = describe(result.raw());
    const auto source = Bstr::adopt(exception.bstrSource),
               description = Bstr::adopt(exception.bstrDescription);
    if (seen.code == DISP_E_EXCEPTION)
        seen.exception = std::to_string(exception.scode) + narrow(source.view()) + narrow(description.view());
    for (const Variant& value : side.values) seen.variables.push_back(describe(value.raw()));
    return seen;
}

// The differences between our answer and the system's, and why ours is better.

enum class Difference {
    none,
    // A typed by-reference parameter: the system takes only a variable of exactly that type and answers
    // type mismatch for a script's variable, which is a variant, and for a variable of another type. Ours
    // converts and writes back, or says with the argument's index why the value does not fit.
    typedByReference,
    // A by-reference variant parameter that gets a typed variable: what the member stores never reaches the
    // caller through the system. Ours stores it in the variable.
    variantByReference,
    // A required argument that is given as missing: the system tries to convert the mark and answers type
    // mismatch. Ours names the reason.
    requiredMissing,
    // An optional argument that is missing inside a script's variable, as when a script hands on an argument
    // that it did not get itself: the system answers type mismatch. Ours takes the default.
    missingInVariable,
    // A typed optional parameter without a declared default that is left out: the system hands the mark's
    // error code to the member as its value, which for a string is a bad pointer. Ours gives the zero value.
    // The system is not even asked.
    zeroWhenMissing,
    // A by-reference optional parameter with a declared default that is left out: the system passes the
    // default's bits as the variable's address. Ours gives a variable that holds the default. The system is
    // not asked either.
    defaultByReference,
    // A by-reference parameter that gets a plain value, not a variable: the system takes some and answers
    // type mismatch or overflow for others, objects and what needs conversion among them. Ours gives the
    // member a variable of its own that holds the value, as a literal needs.
    valueForReference,
    // A record as result: Wine's system cannot do it and answers E_NOTIMPL. Ours returns the record.
    recordResult,
    // An object that is not a picture or font: the system answers E_NOINTERFACE, which no host expects of
    // Invoke. Ours answers type mismatch with the argument's index.
    otherObject,
    // The same by reference: the system does not look and hands the member an object without the interface
    // that the parameter promises, or first counts the arguments. Ours refuses as above.
    otherObjectByReference,
    // A by-reference parameter next to named arguments: Wine's system, when the member is done, converts the
    // argument that would have this place if none were named, and answers type mismatch for a call that
    // has worked. Ours knows the argument by its name.
    namedReference,
    // A member that fails: the system leaves a zero result behind. Ours leaves it Empty.
    resultOfFailure,
    // None of the above.
    unexpected,
};

class Differential : public testing::Test {
protected:
    void compareAll(const Publication& publication, int lists) {
        ComPointer<ITypeInfo> description;
        ASSERT_EQ(S_OK, loadedDescription(publication, description.put()));
        for (const Member& member : publication.members) {
            if (member.kind == MemberKind::reserved || cannotBeCompared(member)) continue;
            for (int i = 0; i < lists; ++i) compareOnce(publication, description.get(), member);
        }
    }

    // One answers differently each time, the other waits for as long as a generated number says.
    static bool cannotBeCompared(const Member& member) {
        const TextView name(member.name);
        return name == L"RndBetween" || name == L"SysWait";
    }

    static HRESULT loadedDescription(const Publication& publication, ITypeInfo** description) {
        // The component's library is a file beside the tests; its code in this program has no resources.
        if (&publication.library == &specimenLibrary)
            return publication.library.describe(publication.interfaceId(), description);
        ComPointer<ITypeLib> library;
        const auto loaded = LoadTypeLibEx(L"Vorla6.tlb", REGKIND_NONE, library.put());
        return FAILED(loaded) ? loaded : library->GetTypeInfoOfGuid(publication.interfaceId(), description);
    }

    void compareOnce(const Publication& publication, ITypeInfo* description, const Member& member) {
        const auto parameters = publication.parametersOf(member);
        for (const Parameter& parameter : parameters)
            if (parameter.type.type == VT_RECORD) return;  // the system cannot pass one; tested elsewhere
        const auto given = pickArguments(parameters.size(), member);
        compareCall(publication, description, member, given, pickNames(given.size(), member));
    }

    void compareCall(const Publication& publication, ITypeInfo* description, const Member& member,
                     const std::vector<Given>& given, const std::vector<DISPID>& names) {
        const auto parameters = publication.parametersOf(member);
        ++compared_;
        const auto ours = call(publication, member, given, names, &throughInvoke);
        Seen theirs{};
        auto difference = leftOut(parameters, given);
        if (difference == Difference::none) {
            theirs = call(publication, member, given, names,
                          [description](IDispatch* instance, DISPID id, WORD flags, DISPPARAMS* arguments,
                                        VARIANT* result, EXCEPINFO* exception, UINT* bad) {
                              return DispInvoke(instance, description, id, flags, arguments, result,
                                                exception, bad);
                          });
            difference = compare(ours, theirs, member, parameters, given, !names.empty());
        }
        ++seen_[difference];
        EXPECT_NE(Difference::unexpected, difference)
            << write(publication, member, given, names) << "\n ours   " << write(ours) << "\n theirs "
            << write(theirs);
    }

    void expectSeen(std::initializer_list<Difference> differences) {
        for (const Difference difference : differences)
            EXPECT_GT(seen_[difference], 0)
                << "the system no longer differs in " << static_cast<int>(difference);
    }

    int compared_ = 0;

private:
    static HRESULT throughInvoke(IDispatch* instance, DISPID id, WORD flags, DISPPARAMS* arguments,
                                 VARIANT* result, EXCEPINFO* exception, UINT* bad) {
        return instance->Invoke(id, IID_NULL, GetUserDefaultLCID(), flags, arguments, result, exception, bad);
    }

    std::vector<Given> pickArguments(std::size_t count, const Member& member) {
        std::vector<Given> given;
        for (std::size_t i = 0; i < count; ++i) {
            Given one{pick(Shape::count), pick(Wrapping::count)};
            if (random_() % 3 != 0) one.shape = Shape::exact;
            given.push_back(one);
        }
        if (!member.stores() && random_() % 4 == 0)
            for (auto i = random_() % (count + 1); i < count; ++i) given[i].omitted = true;
        return given;
    }

    // The last arguments are named; the new value of a property always is.
    std::vector<DISPID> pickNames(std::size_t count, const Member& member) {
        if (member.stores()) return {DISPID_PROPERTYPUT};
        std::vector<DISPID> names;
        if (count == 0 || random_() % 4 != 0) return names;
        for (auto i = random_() % count; i < count; ++i) names.push_back(static_cast<DISPID>(i));
        return names;
    }

    static bool isLeftOut(const Given& given) { return given.omitted || given.shape == Shape::missingValue; }

    // Calls that the system must not make: it would use a value as an address.
    static Difference leftOut(std::span<const Parameter> parameters, const std::vector<Given>& given) {
        for (std::size_t i = 0; i < given.size(); ++i) {
            const Parameter& parameter = parameters[i];
            if (!isLeftOut(given[i]) || !parameter.optional || parameter.type.type == VT_VARIANT) continue;
            if (parameter.whenMissing.kind == Default::Kind::none) return Difference::zeroWhenMissing;
            if (parameter.type.byReference) return Difference::defaultByReference;
        }
        return Difference::none;
    }

    static Difference compare(const Seen& ours, const Seen& theirs, const Member& member,
                              std::span<const Parameter> parameters, const std::vector<Given>& given,
                              bool named) {
        if (ours.code == theirs.code && ours.exception == theirs.exception &&
            ours.variables == theirs.variables) {
            if (ours.result == theirs.result) return Difference::none;
            if (ours.code == DISP_E_EXCEPTION && ours.result == "vt 0 ") return Difference::resultOfFailure;
        }
        if (member.result.type == VT_RECORD && theirs.code == E_NOTIMPL) return Difference::recordResult;
        bool convertedReference = false, storedReference = false, valueGiven = false;
        bool objectOfKind = false, referenceOfKind = false, missingRequired = false, missingHandedOn = false;
        for (std::size_t i = 0; i < given.size(); ++i) {
            if (given[i].omitted) continue;
            const Parameter& parameter = parameters[i];
            const bool variant = parameter.type.type == VT_VARIANT;
            const bool exactVariable =
                given[i].shape == Shape::exact && given[i].wrapping == Wrapping::typedReference;
            const bool referred = parameter.type.byReference && given[i].wrapping != Wrapping::plain;
            convertedReference |= referred && !variant && !exactVariable;
            storedReference |= referred && variant && given[i].wrapping == Wrapping::typedReference;
            valueGiven |= parameter.type.byReference && given[i].wrapping == Wrapping::plain;
            objectOfKind |=
                parameter.type.described == Described::picture || parameter.type.described == Described::font;
            referenceOfKind |= objectOfKind && parameter.type.byReference;
            missingHandedOn |= given[i].shape == Shape::missingValue &&
                               given[i].wrapping != Wrapping::plain && parameter.optional && !variant;
            missingRequired |= given[i].shape == Shape::missingValue && !variant && !parameter.optional;
        }
        if (convertedReference && theirs.code == DISP_E_TYPEMISMATCH) return Difference::typedByReference;
        // The system refuses Nothing for its type.
        if (valueGiven && (theirs.code == DISP_E_TYPEMISMATCH || theirs.code == DISP_E_OVERFLOW ||
                           theirs.code == DISP_E_BADVARTYPE))
            return Difference::valueForReference;
        if (storedReference) return Difference::variantByReference;
        if (missingHandedOn && theirs.code == DISP_E_TYPEMISMATCH) return Difference::missingInVariable;
        if (missingRequired && ours.code == DISP_E_PARAMNOTOPTIONAL && theirs.code == DISP_E_TYPEMISMATCH)
            return Difference::requiredMissing;
        if (objectOfKind && ours.code == DISP_E_TYPEMISMATCH && theirs.code == E_NOINTERFACE)
            return Difference::otherObject;
        if (referenceOfKind && ours.code == DISP_E_TYPEMISMATCH &&
            (theirs.code == S_OK || theirs.code == DISP_E_BADPARAMCOUNT))
            return Difference::otherObjectByReference;
        // Here it reports no argument index, unlike for arguments that it refuses.
        const bool refers = std::any_of(parameters.begin(), parameters.end(), [](const Parameter& parameter) {
            return parameter.type.byReference;
        });
        if (named && refers && ours.code == S_OK && theirs.code == DISP_E_TYPEMISMATCH &&
            theirs.badArgument == untouched)
            return Difference::namedReference;
        return Difference::unexpected;
    }

    static std::string write(const Publication& publication, const Member& member,
                             const std::vector<Given>& given, const std::vector<DISPID>& names) {
        auto text = narrow(publication.name) + "." + narrow(member.name) + " called as " +
                    std::to_string(static_cast<int>(member.kind)) + " (";
        for (const Given& one : given)
            text += std::string(one.omitted ? "left out " : "") + shapeNames[static_cast<int>(one.shape)] +
                    wrappingNames[static_cast<int>(one.wrapping)] + ", ";
        return text + "), the last " + std::to_string(names.size()) + " by name";
    }

    static std::string write(const Seen& seen) {
        char code[20];
        std::snprintf(code, sizeof code, "%08lX", static_cast<unsigned long>(seen.code));
        auto text = code + std::string(" result ") + seen.result + " " + seen.exception + " variables";
        for (const auto& variable : seen.variables) text += " " + variable + ",";
        return text;
    }

    template <class Enumeration>
    Enumeration pick(Enumeration count) {
        return static_cast<Enumeration>(random_() % static_cast<unsigned>(count));
    }

    std::mt19937 random_{20250117};
    std::map<Difference, int> seen_;
};

TEST_F(Differential, everythingThatCanBePublished) {
    compareAll(publicationOf(Of<Specimen>()), 250);
    EXPECT_GE(compared_, 5000);
    expectSeen({Difference::none, Difference::typedByReference, Difference::variantByReference,
                Difference::requiredMissing, Difference::zeroWhenMissing, Difference::defaultByReference,
                Difference::valueForReference, Difference::recordResult, Difference::otherObject,
                Difference::resultOfFailure});
}

// Calls members with generated arguments, twice each, while nothing in the registry may be created, changed
// or deleted.
class UnchangedRegistry {
public:
    UnchangedRegistry() {
        create_.answer([](auto...) { return LSTATUS{ERROR_ACCESS_DENIED}; });
        remove_.answer([](auto...) { return LSTATUS{ERROR_ACCESS_DENIED}; });
        set_.answer([](auto...) { return LSTATUS{ERROR_ACCESS_DENIED}; });
        removeValue_.answer([](auto...) { return LSTATUS{ERROR_ACCESS_DENIED}; });
    }

private:
    const HMODULE program_ = GetModuleHandleW(nullptr);
    Intercept<decltype(RegCreateKeyExA)> create_{program_, "advapi32.dll", "RegCreateKeyExA"};
    Intercept<decltype(RegDeleteKeyA)> remove_{program_, "advapi32.dll", "RegDeleteKeyA"};
    Intercept<decltype(RegSetValueExA)> set_{program_, "advapi32.dll", "RegSetValueExA"};
    Intercept<decltype(RegDeleteValueA)> removeValue_{program_, "advapi32.dll", "RegDeleteValueA"};
};

// Keeps generated arguments from harming the machine. A generated name could be that of a program, file or
// folder, so no program is started and nothing is deleted, renamed or created. No temporary name is drawn,
// because each would be a different one. Dialogs find no user. INI files without a folder would be written
// among Windows' own. A clock that gains a day at each look keeps long waits short; the time of day stands
// still. The mouse pointer stays, and nothing beeps.
class Harmless {
public:
    Harmless() {
        process_.answer([](LPCSTR, LPSTR, LPSECURITY_ATTRIBUTES, LPSECURITY_ATTRIBUTES, WINBOOL, DWORD,
                           LPVOID, LPCSTR, LPSTARTUPINFOA, LPPROCESS_INFORMATION) { return FALSE; });
        execution_.answer([](HWND, LPCSTR, LPCSTR, LPCSTR, LPCSTR, INT) { return notFound(); });
        creation_.answer([](auto...) { return FALSE; });
        deletion_.answer([](auto...) { return FALSE; });
        renaming_.answer([](auto...) { return FALSE; });
        drawing_.answer([](auto...) { return 0u; });
        browsing_.answer([](auto...) { return nullptr; });
        profile_.answer([](LPCSTR, LPCSTR, LPCSTR, LPCSTR) { return FALSE; });
        clock_.answer([this] { return now_ += 86'400'000; });
        pointer_.answer([](int, int) { return TRUE; });
        beep_.answer([](UINT) { return TRUE; });
    }

private:
    static void WINAPI noon(SYSTEMTIME* time) { *time = {2026, 11, 6, 21, 12, 0, 0, 0}; }
    static HINSTANCE notFound() { return reinterpret_cast<HINSTANCE>(LONG_PTR{SE_ERR_FNF}); }

    const HMODULE program_ = GetModuleHandleW(nullptr);
    DWORD now_ = 0;
    Intercept<decltype(CreateProcessA)> process_{program_, "kernel32.dll", "CreateProcessA"};
    Intercept<decltype(ShellExecuteA)> execution_{program_, "shell32.dll", "ShellExecuteA"};
    Intercept<decltype(CreateDirectoryA)> creation_{program_, "kernel32.dll", "CreateDirectoryA"};
    Intercept<decltype(DeleteFileA)> deletion_{program_, "kernel32.dll", "DeleteFileA"};
    Intercept<decltype(MoveFileA)> renaming_{program_, "kernel32.dll", "MoveFileA"};
    Intercept<decltype(GetTempFileNameA)> drawing_{program_, "kernel32.dll", "GetTempFileNameA"};
    Intercept<decltype(SHBrowseForFolderA)> browsing_{program_, "shell32.dll", "SHBrowseForFolderA"};
    Intercept<decltype(WritePrivateProfileStringA)> profile_{program_, "kernel32.dll",
                                                             "WritePrivateProfileStringA"};
    Intercept<decltype(GetTickCount)> clock_{program_, "kernel32.dll", "GetTickCount"};
    Intercept<decltype(SetCursorPos)> pointer_{program_, "user32.dll", "SetCursorPos"};
    Intercept<decltype(MessageBeep)> beep_{program_, "user32.dll", "MessageBeep"};
    const ImportPatch timeOfDay_{program_, "kernel32.dll", "GetLocalTime", reinterpret_cast<void*>(&noon)};
};

// Too rare among generated calls to be sure to occur.
TEST_F(Differential, aReferenceNextToNamedArguments) {
    const Harmless arguments;
    for (const Publication* publication : catalogue()) {
        for (const Member& member : publication->members) {
            if (TextView(member.name) != L"SysShellWait") continue;
            ComPointer<ITypeInfo> description;
            ASSERT_EQ(S_OK, loadedDescription(*publication, description.put()));
            compareCall(*publication, description.get(), member,
                        {{Shape::exact, Wrapping::typedReference}, {Shape::missingValue, Wrapping::plain}},
                        {0, 1});
        }
    }
    EXPECT_EQ(1, compared_);
    expectSeen({Difference::namedReference});
}

TEST_F(Differential, everyMemberOfTheComponent) {
    const NoDialogs messagesAreTestedElsewhere;
    const Harmless arguments;
    const UnchangedRegistry keysAndValuesToo;
    for (const Publication* publication : catalogue()) compareAll(*publication, 600);
    EXPECT_GE(compared_, 5000);
    expectSeen({Difference::none, Difference::typedByReference, Difference::missingInVariable,
                Difference::zeroWhenMissing, Difference::defaultByReference,
                Difference::otherObjectByReference});
}

}  // namespace
}  // namespace vorla::test
