// Long texts end no host. Some systems count characters in 16 bits, or write formatted numbers into buffers
// of 256, so every member that takes text gets texts of such lengths, as its type library lists them.
#include <algorithm>
#include <set>
#include <string_view>

#include "contract/component.h"
#include "support/no_dialogs.h"
#include "support/scripted_object.h"
#include "support/temporary_folder.h"
#include "support/temporary_key.h"

namespace vorla::test {
namespace {

constexpr std::uint16_t numberOfLangue = 8;

constexpr std::size_t lengths[] = {256, 257, 32'767, 32'768, 100'000};

// Not called here.
const std::set<std::wstring_view> exceptions = {
    L"SysShellWait",          // starts the program that its text names
    L"SysShellAppliAssocié",  // likewise
    L"GetFolder",             // these wait for the user, in dialogs of the shell
    L"GetComputer",
    L"GetPrinter",
    L"CDEjectLoad",  // moves a tray, and looks at the first character alone
};

struct Parameter {
    VARTYPE type;
    bool byReference;
};

struct Member {
    std::wstring name;
    INVOKEKIND kind;
    std::vector<Parameter> parameters;

    bool takesText() const {
        return std::any_of(parameters.begin(), parameters.end(), [](const Parameter& parameter) {
            return parameter.type == VT_BSTR || parameter.type == VT_VARIANT;
        });
    }
};

Parameter parameterOf(const TYPEDESC& type) {
    if (type.vt == VT_PTR) return {parameterOf(*type.lptdesc).type, true};
    return {type.vt == VT_USERDEFINED ? VARTYPE{VT_I4} : type.vt, false};
}

// The members that the type library lists for hosts.
std::vector<Member> membersOf(IDispatch* object) {
    constexpr SHORT ownSlots = 7 * sizeof(void*);
    ComPointer<ITypeInfo> description;
    EXPECT_EQ(S_OK, object->GetTypeInfo(0, 0, description.put()));
    std::vector<Member> members;
    FUNCDESC* function = nullptr;
    for (UINT i = 0; SUCCEEDED(description->GetFuncDesc(i, &function)); ++i) {
        if (function->oVft >= ownSlots && !(function->wFuncFlags & FUNCFLAG_FRESTRICTED)) {
            Bstr name;
            EXPECT_EQ(S_OK,
                      description->GetDocumentation(function->memid, name.put(), nullptr, nullptr, nullptr));
            Member member{std::wstring(name.view()), function->invkind, {}};
            for (SHORT j = 0; j < function->cParams; ++j)
                member.parameters.push_back(parameterOf(function->lprgelemdescParam[j].tdesc));
            members.push_back(std::move(member));
        }
        description->ReleaseFuncDesc(function);
    }
    return members;
}

class LongTexts : public testing::Test {
protected:
    // A value for a parameter that is not to be the long one. Objects are none, numbers 1: the first of each
    // enumeration, a key's width, a place in a text. Texts are a path, or 1: a bank's code is to be a number.
    Variant ordinary(VARTYPE type, std::uint16_t number) const {
        constexpr std::uint16_t numérique = 1;
        switch (type) {
            case VT_BSTR:
            case VT_VARIANT: return text(number == numérique ? L"1" : folder.path(L"x"));
            case VT_BOOL: return Variant(true);
            case VT_DISPATCH: return nothing();
            default: return short16(1);
        }
    }

    // The long text as the parameter's value; to types without text it must be refused, not fatal.
    void call(IDispatch* object, std::uint16_t number, const Member& member, std::size_t place,
              const std::wstring& longText) {
        const auto count = member.parameters.size();
        std::vector<Variant> values(count);
        for (std::size_t i = 0; i < count; ++i)
            values[i] = i == place || (place == count && member.parameters[i].type == VT_BSTR)
                            ? text(longText)
                            : ordinary(member.parameters[i].type, number);
        std::vector<VARIANT> reversed;
        for (auto i = values.rbegin(); i != values.rend(); ++i) reversed.push_back(i->raw());
        const bool puts = member.kind != INVOKE_FUNC && member.kind != INVOKE_PROPERTYGET;
        DISPID value = DISPID_PROPERTYPUT;
        DISPPARAMS parameters{reversed.data(), puts ? &value : nullptr, static_cast<UINT>(count),
                              puts ? 1u : 0u};
        DISPID id = DISPID_UNKNOWN;
        auto name = const_cast<LPOLESTR>(member.name.c_str());
        ASSERT_EQ(S_OK, object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id));
        Variant result;
        EXCEPINFO exception{};
        UINT wrong = 0;
        const auto answer = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, static_cast<WORD>(member.kind),
                                           &parameters, result.put(), &exception, &wrong);
        SysFreeString(exception.bstrSource);
        SysFreeString(exception.bstrDescription);
        SysFreeString(exception.bstrHelpFile);
        EXPECT_TRUE(answer == S_OK || answer == DISP_E_EXCEPTION || answer == DISP_E_TYPEMISMATCH ||
                    answer == DISP_E_OVERFLOW)
            << narrow(member.name) << ": " << answer;
    }

    // The language in use, since members on languages do nothing without one.
    void select(IDispatch* object) {
        EXPECT_EQ(S_OK, invoke(object, L"LngSetFileName", {text(folder.path()), text(L"ENG")}).code);
    }

    const Component component;
    const NoDialogs none;
    const TemporaryFolder folder;
    const std::wstring languages = folder.folder(L"Languages");
};

// Digits, letters, blanks; a path, a number with signs, a comment of an INI file.
std::vector<std::wstring> textsOf(std::size_t length, const std::wstring& folder) {
    std::vector<std::wstring> texts;
    for (const wchar_t character : {L'1', L'a', L' ', L'\\', L'.'}) texts.emplace_back(length, character);
    texts.push_back((folder + L'\\').append(length - folder.size() - 1, L'a'));
    texts.push_back(L"\\\\a\\b\\" + std::wstring(length - 6, L'c'));
    texts.push_back(L"-" + std::wstring(length - 3, L'0') + L"15");
    texts.push_back(L";" + std::wstring(length - 1, L'a'));
    return texts;
}

// Files and keys that members make of their texts go with the test.
class Surroundings {
public:
    explicit Surroundings(const std::wstring& folder) {
        GetCurrentDirectoryW(MAX_PATH, before_);
        EXPECT_TRUE(SetCurrentDirectoryW(folder.c_str()));
        EXPECT_EQ(ERROR_SUCCESS,
                  RegOpenKeyExW(HKEY_CURRENT_USER, temporary_.path().c_str(), 0, KEY_ALL_ACCESS, key_.put()));
        for (const HKEY root : roots) EXPECT_EQ(ERROR_SUCCESS, RegOverridePredefKey(root, key_.get()));
    }
    Surroundings(const Surroundings&) = delete;
    Surroundings& operator=(const Surroundings&) = delete;
    ~Surroundings() {
        for (const HKEY root : roots) RegOverridePredefKey(root, nullptr);
        SetCurrentDirectoryW(before_);
    }

private:
    static inline const HKEY roots[] = {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE};

    const TemporaryKey temporary_;
    RegistryKey key_;
    wchar_t before_[MAX_PATH];
};

TEST_F(LongTexts, endNoHost) {
    const Surroundings surroundings(folder.path());
    int calls = 0;
    std::size_t excepted = 0;
    for (std::uint16_t number = 0; number < classCount; ++number) {
        const auto object = component.create(number);
        for (const Member& member : membersOf(object.get())) {
            excepted += exceptions.contains(member.name);
            if (exceptions.contains(member.name) || !member.takesText()) continue;
            for (const std::size_t length : lengths) {
                for (const auto& longText : textsOf(length, folder.path())) {
                    // One parameter in turn, then all texts at once.
                    for (std::size_t place = 0; place <= member.parameters.size(); ++place) {
                        if (number == numberOfLangue) select(object.get());
                        call(object.get(), number, member, place, longText);
                        ++calls;
                    }
                }
            }
        }
    }
    EXPECT_EQ(exceptions.size(), excepted);
    EXPECT_GT(calls, 2000);
}

}  // namespace
}  // namespace vorla::test
