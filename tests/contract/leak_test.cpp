// Checks that nothing leaks: memory of the task allocator, handles, working set, and the host's own state.
#include <psapi.h>

#include <cfloat>
#include <clocale>

#include "contract/component.h"
#include "support/memory_count.h"

namespace vorla::test {
namespace {

// One of each: a call that works, one that fails inside, one that dispatch refuses.
void useChaine(IDispatch* object) {
    const auto run = [object](DISPID id, std::initializer_list<VARIANT> reversed) {
        std::vector<VARIANT> arguments(reversed);
        DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
        VARIANT result;
        VariantInit(&result);
        EXCEPINFO exception{};
        const auto answer = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters,
                                           &result, &exception, nullptr);
        VariantClear(&result);
        SysFreeString(exception.bstrSource);
        SysFreeString(exception.bstrDescription);
        return answer;
    };
    static const Variant line(TextView(L"premier;deuxième;troisième champ assez long")),
        separator(TextView(L";")), two(std::int16_t{2}), bad(std::int16_t{-1}), code(TextView(L"A0Z"));
    static Variant variable(TextView(L"|")), kind(std::int32_t{4});
    static const Variant variableReference = byReference(variable), kindReference = byReference(kind);
    EXPECT_EQ(S_OK, run(0x60030000, {two.raw(), line.raw()}));
    EXPECT_EQ(S_OK, run(0x60030001, {two.raw(), two.raw()}));
    EXPECT_EQ(S_OK, run(0x60030002, {separator.raw(), two.raw(), line.raw()}));
    EXPECT_EQ(S_OK, run(0x60030003, {code.raw(), separator.raw(), line.raw()}));
    EXPECT_EQ(S_OK, run(0x60030004, {separator.raw(), line.raw()}));
    EXPECT_EQ(S_OK, run(0x60030005, {two.raw(), two.raw()}));
    EXPECT_EQ(S_OK, run(0x60030006, {code.raw()}));
    EXPECT_EQ(S_OK, run(0x60030007, {line.raw()}));
    EXPECT_EQ(S_OK, run(0x60030008, {variableReference.raw(), kindReference.raw(), line.raw()}));
    EXPECT_EQ(DISP_E_EXCEPTION, run(0x60030000, {bad.raw(), line.raw()}));
    EXPECT_EQ(DISP_E_TYPEMISMATCH, run(0x60030000, {line.raw(), line.raw()}));
}

struct Usage {
    Resources resources = Resources::held();
    SIZE_T workingSet = 0;

    Usage() {
        PROCESS_MEMORY_COUNTERS counters{};
        GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
        workingSet = counters.WorkingSetSize;
    }
};

TEST(Leaks, aHundredThousandCyclesLeaveNothing) {
    const Component component;
    const auto cycle = [&component](int i) {
        const auto number = static_cast<std::uint16_t>(i % classCount);
        const auto object = component.create(number);
        if (number == 0) useChaine(object.get());
    };
    for (int i = 0; i < 5'000; ++i) cycle(i);
    SetErrorInfo(0, nullptr);
    const Usage before;
    {
        const MemoryCount count;
        for (int i = 0; i < 100'000; ++i) cycle(i);
        SetErrorInfo(0, nullptr);
        EXPECT_EQ(0, count.live());
    }
    const Usage after;
    EXPECT_EQ(before.resources, after.resources);
    // A lost string each cycle would be several megabytes.
    EXPECT_LE(after.workingSet, before.workingSet + 1024 * 1024);
    EXPECT_EQ(S_OK, component.canUnloadNow());
}

TEST(Leaks, tenThousandCallsOfEveryMember) {
    const Component component;
    const auto object = component.create(0);
    expectNothingLeft([&object] { useChaine(object.get()); });
}

TEST(Leaks, theHostsStateIsLeftAlone) {
    struct State {
        std::wstring folder = std::wstring(MAX_PATH, L'\0');
        UINT errorMode = SetErrorMode(0);
        unsigned floating = _controlfp(0, 0);
        LCID locale = GetThreadLocale();
        int priority = GetThreadPriority(GetCurrentThread());
        DWORD clipboard = GetClipboardSequenceNumber();
        std::string cLocale = std::setlocale(LC_ALL, nullptr);
        HWND active = GetForegroundWindow();

        State() {
            SetErrorMode(errorMode);
            folder.resize(GetCurrentDirectoryW(MAX_PATH, folder.data()));
        }
        bool operator==(const State&) const = default;
    };
    const State before;
    {
        const Component component;
        for (std::uint16_t number = 0; number < classCount; ++number) component.create(number);
        useChaine(component.create(0).get());
    }
    EXPECT_TRUE(before == State());
}

}  // namespace
}  // namespace vorla::test
