// Every system call of VorlaNumérique, VorlaDate and VorlaFichier failing in turn, memory included.
#include "support/failing_calls.h"

#include "contract/component.h"
#include "support/no_dialogs.h"
#include "support/number_settings.h"
#include "support/temporary_folder.h"

namespace vorla::test {
namespace {

constexpr const char* noMemoryLeft = "failure 8007000e";

// A call, its right answer, and the other answers that are allowed when something fails.
struct Use {
    const wchar_t* member;
    Arguments arguments;
    std::string right;
    std::set<std::string> whenFailed;
};

std::string written(const Variant& value) { return describe(value.raw()); }
std::string written(const wchar_t* value) { return written(text(value)); }

std::string answerOf(const Outcome& outcome) {
    if (outcome.code == S_OK) return describe(outcome.result.raw());
    char code[40];
    std::snprintf(code, sizeof code, "refused %08lx", static_cast<unsigned long>(outcome.code));
    if (outcome.code != DISP_E_EXCEPTION) return code;
    if (HRESULT_FACILITY(outcome.exceptionCode) == FACILITY_CONTROL)
        return "error " + std::to_string(HRESULT_CODE(outcome.exceptionCode));
    std::snprintf(code, sizeof code, "failure %08lx", static_cast<unsigned long>(outcome.exceptionCode));
    return code;
}

class FailingCalls : public testing::Test {
protected:
    // Fails each of the uses' calls. If none of them calls the function, the test proves nothing and fails.
    void failAll(std::uint16_t number, const Fault& fault, const std::set<std::string>& whenFailed,
                 const std::vector<Use>& uses) {
        const Dispatch object = component.create(number);
        int calls = 0;
        for (const Use& use : uses) {
            auto allowed = whenFailed;
            allowed.insert(use.whenFailed.begin(), use.whenFailed.end());
            calls += failEachCall(
                component.module(), fault, narrow(use.member),
                [&] { return answerOf(invoke(object.get(), use.member, use.arguments)); }, use.right,
                allowed);
        }
        EXPECT_GT(calls, 0) << fault.name;
    }

    const Component component;
    const NoDialogs none;
};

Variant zero16() { return std::int16_t{0}; }

TEST_F(FailingCalls, ofUnguardedAmountsAndKeysReachTheHost) {
    const Variant foreign = text(isFrench() ? L"12.5" : L"12,5"), own = text(isFrench() ? L"12,5" : L"12.5");
    const Variant bank = text(L"30002"), branch = text(L"00550"), account = text(L"0000157841Z");
    const std::vector<Use> uses = {
        {L"NumFrmtSys", {foreign}, written(own), {}},
        {L"NumFrmtSys", {12.5}, written(12.5), {}},
        {L"NumFrmtSys", {std::int32_t{7}}, written(std::int32_t{7}), {}},
        {L"NumFrmtSys", {text(L"0"), false}, written(L""), {}},
        {L"NumFrmtSys", {text(L" ")}, written(L" "), {}},
        {L"NumFrmtEnr", {own}, written(L"12.5"), {}},
        {L"NumFrmtEnr", {12.5}, written(L"12.5"), {}},
        {L"NumFrmtEnr", {text(L"12")}, written(L"12"), {}},
        {L"RIBClé", {bank, branch, account}, written(std::int16_t{25}), {}},
        {L"RIBControle", {bank, branch, account, text(L"26")}, written(false), {}},
        {L"RIBControle", {bank, branch, account, text(L"25")}, written(true), {}},
        {L"RIBClé", {text(L"x"), branch, account}, written(zero16()), {}},
        {L"RIBControle", {bank, text(L"x"), account, text(L"26")}, written(true), {}},
    };
    constexpr std::uint16_t numérique = 1;
    const auto fail = [&](const Fault& fault, const std::set<std::string>& whenFailed) {
        failAll(numérique, fault, whenFailed, uses);
    };
    fail(fault<decltype(VarFormat)>("oleaut32.dll", "VarFormat", E_OUTOFMEMORY), {noMemoryLeft});
    fail(fault<decltype(VarFormat)>("oleaut32.dll", "VarFormat", DISP_E_TYPEMISMATCH), {"error 13"});
    fail(fault<decltype(VariantChangeTypeEx)>("oleaut32.dll", "VariantChangeTypeEx", DISP_E_TYPEMISMATCH),
         {"error 13"});
    fail(fault<decltype(VariantChangeTypeEx)>("oleaut32.dll", "VariantChangeTypeEx", DISP_E_OVERFLOW),
         {"error 6"});
    fail(fault<decltype(VariantCopyInd)>("oleaut32.dll", "VariantCopyInd", E_OUTOFMEMORY), {noMemoryLeft});
    fail(fault<decltype(SysAllocStringLen)>("oleaut32.dll", "SysAllocStringLen", BSTR{}), {noMemoryLeft});
    fail(noMemory(), {noMemoryLeft});
    // If the system cannot tell whether a code is a number, the user sees the message for a code that is not.
    fail(fault<decltype(VarR8FromStr)>("oleaut32.dll", "VarR8FromStr", DISP_E_TYPEMISMATCH),
         {written(zero16()), written(true)});
    // Failing to show the message, or to find its title, changes no result.
    fail(fault<decltype(MessageBoxW)>("user32.dll", "MessageBoxW", 0), {});
    fail(fault<decltype(GetModuleFileNameW)>("kernel32.dll", "GetModuleFileNameW", DWORD{0}), {});
}

constexpr Date november15{46341};

TEST_F(FailingCalls, ofTheTwoDateConversionsReachTheHost) {
    const ChangedSetting format(LOCALE_SSHORTDATE, L"dd/MM/yyyy");
    const std::vector<Use> uses = {
        {L"DateAMJtoJMA", {text(L"2026-11-15"), false}, written(L"15112026"), {}},
        {L"DateAMJtoJMA", {text(L"20261115"), false}, written(L"15112026"), {}},
        {L"DateJMAtoAMJ", {text(L"15/11/2026")}, written(L"20261115"), {}},
        {L"DateJMAtoAMJ", {text(L"15/11/2026"), true}, written(L"2026/11/15"), {}},
        {L"DateJMAtoAMJ", {text(L" ")}, written(L""), {}},
        {L"Invd", {text(L"")}, written(L""), {}},
    };
    constexpr std::uint16_t date = 3;
    const auto fail = [&](const Fault& fault, const std::set<std::string>& whenFailed) {
        failAll(date, fault, whenFailed, uses);
    };
    fail(fault<decltype(GetDateFormatW)>("kernel32.dll", "GetDateFormatW", 0), {"error 5"});
    // A date that the system does not recognise as a number is searched for a separator, and these have one.
    fail(fault<decltype(VarR8FromStr)>("oleaut32.dll", "VarR8FromStr", DISP_E_TYPEMISMATCH), {});
    fail(fault<decltype(SysAllocStringLen)>("oleaut32.dll", "SysAllocStringLen", BSTR{}), {noMemoryLeft});
    fail(noMemory(), {noMemoryLeft});
    fail(fault<decltype(MessageBoxW)>("user32.dll", "MessageBoxW", 0), {});
}

TEST_F(FailingCalls, leaveDateEnTexteWithWhatItHasBuilt) {
    const bool french = isFrench();
    const std::vector<Use> uses = {
        {L"DateEnTexte",
         {november15},
         written(french ? L"dimanche 15 novembre 2026" : L"Sunday, November 15, 2026"),
         {}},
        {L"DateEnTexte",
         {november15, false},
         written(french ? L"Dimanche 15 novembre 2026" : L"Saturday 15 November 2026"),
         // Without its capital.
         {written(french ? L"dimanche 15 novembre 2026" : L"Saturday 15 November 2026")}},
    };
    constexpr std::uint16_t date = 3;
    const auto fail = [&](const Fault& fault) { failAll(date, fault, {written(L"")}, uses); };
    fail(fault<decltype(VarFormat)>("oleaut32.dll", "VarFormat", E_OUTOFMEMORY));
    fail(fault<decltype(VariantTimeToSystemTime)>("oleaut32.dll", "VariantTimeToSystemTime", FALSE));
    fail(fault<decltype(VarWeekdayName)>("oleaut32.dll", "VarWeekdayName", E_INVALIDARG));
    fail(fault<decltype(VarMonthName)>("oleaut32.dll", "VarMonthName", E_INVALIDARG));
    fail(fault<decltype(LCMapStringW)>("kernel32.dll", "LCMapStringW", 0));
    fail(fault<decltype(SysAllocStringLen)>("oleaut32.dll", "SysAllocStringLen", BSTR{}));
    fail(noMemory());
}

TEST_F(FailingCalls, giveNothingFromVorlaFichier) {
    const TemporaryFolder temporary;
    const auto file = temporary.file(L"fichier au long nom.txt", std::string(1536, 'x'));
    const auto folder = temporary.folder(L"dossier.mp3");
    const auto parent = temporary.path() + L"\\";
    wchar_t shortForm[MAX_PATH];
    ASSERT_NE(0u, GetShortPathNameW(file.c_str(), shortForm, MAX_PATH));
    const auto half = isFrench() ? L"1,50 Ko   (1 536 octets)" : L"1.50 Ko   (1 536 octets)";
    const std::set<std::string> empty = {written(L"")};
    const std::vector<Use> uses = {
        // If the disk does not answer, the folder is taken for a file.
        {L"ExtraitChemin", {text(folder)}, written(text(folder)), {written(text(parent))}},
        {L"ExtraitChemin", {text(folder), std::int32_t{3}}, written(L""), {written(L"mp3")}},
        {L"ExtraitChemin", {text(file), std::int32_t{3}}, written(L"txt"), {}},
        {L"NormalisePath", {text(file)}, written(text(file + L"\\")), {}},
        {L"DeNormalisePath", {text(parent)}, written(text(temporary.path())), {}},
        {L"FileNameShortToLong", {text(shortForm)}, written(text(file)), empty},
        {L"FileNameLongToShort", {text(file)}, written(shortForm), empty},
        {L"LectDat", {text(file)}, written(text(std::wstring(1536, L'x'))), empty},
        {L"FileExist", {text(file)}, written(true), {written(false)}},
        {L"IsFileExist", {text(folder), std::int32_t{1}}, written(true), {written(false)}},
        {L"FileType", {text(L"a.MP3")}, written(std::int32_t{1}), {written(std::int32_t{5})}},
        {L"FileSize", {text(file)}, written(half), empty},
        {L"SizeToString", {1536.0}, written(half), empty},
        {L"SizeToString", {2048.0, true}, written(L"2 Ko"), empty},
        {L"SizeToString", {1e15, true}, written(isFrench() ? L"909,49 To" : L"909.49 To"), empty},
    };
    constexpr std::uint16_t fichier = 5;
    const auto fail = [&](const Fault& fault, const std::set<std::string>& whenFailed = {}) {
        failAll(fichier, fault, whenFailed, uses);
    };
    const char* const kernel = "kernel32.dll";
    const char* const automation = "oleaut32.dll";
    fail(fault<decltype(GetFileAttributesA)>(kernel, "GetFileAttributesA", INVALID_FILE_ATTRIBUTES,
                                             ERROR_NOT_READY));
    fail(fault<decltype(GetFileAttributesExA)>(kernel, "GetFileAttributesExA", FALSE));
    fail(fault<decltype(WideCharToMultiByte)>(kernel, "WideCharToMultiByte", 0));
    fail(fault<decltype(MultiByteToWideChar)>(kernel, "MultiByteToWideChar", 0));
    fail(fault<decltype(FindFirstFileA)>(kernel, "FindFirstFileA", INVALID_HANDLE_VALUE));
    fail(fault<decltype(GetShortPathNameA)>(kernel, "GetShortPathNameA", DWORD{0}));
    fail(fault<decltype(CreateFileA)>(kernel, "CreateFileA", INVALID_HANDLE_VALUE, ERROR_ACCESS_DENIED));
    fail(fault<decltype(GetFileSizeEx)>(kernel, "GetFileSizeEx", FALSE));
    fail(fault<decltype(ReadFile)>(kernel, "ReadFile", FALSE, ERROR_READ_FAULT));
    fail(fault<decltype(LCMapStringW)>(kernel, "LCMapStringW", 0));
    fail(fault<decltype(VarFormat)>(automation, "VarFormat", E_OUTOFMEMORY));
    fail(fault<decltype(VarDecFromR8)>(automation, "VarDecFromR8", DISP_E_OVERFLOW));
    fail(fault<decltype(VarBstrFromDec)>(automation, "VarBstrFromDec", E_OUTOFMEMORY));
    // If there is no memory for the result itself, the host gets an error.
    fail(fault<decltype(SysAllocStringLen)>(automation, "SysAllocStringLen", BSTR{}), {noMemoryLeft});
    fail(noMemory(), {noMemoryLeft});
}

}  // namespace
}  // namespace vorla::test
