// Tests the interception of calls, in the component and in this program.
#include "support/import_patch.h"

#include "contract/component.h"
#include "support/automation.h"

namespace vorla::test {
namespace {

constexpr std::uint16_t numberOfChaine = 0;

Outcome occurrences(IDispatch* object) {
    // Case is ignored by letting the system convert the letters.
    return invoke(object, L"Occurrence", {text(L"aAa"), text(L"A"), false});
}

// The count comes as a single-precision number.
void expectThree(const Outcome& outcome) {
    EXPECT_EQ(S_OK, outcome.code);
    EXPECT_EQ("vt 4 3", describe(outcome.result.raw()));
}

// In functions of their own, because within one function the compiler may read the import table once for all
// calls.
[[gnu::noinline]] DWORD ticksNow() { return GetTickCount(); }
[[gnu::noinline]] DWORD threadNow() { return GetCurrentThreadId(); }

TEST(ImportPatch, recordsTheComponentsCallsAndPutsThemBack) {
    const Component component;
    const auto object = component.create(numberOfChaine);
    CallLog log;
    {
        Intercept<decltype(LCMapStringW)> mapping(component.module(), "Kernel32.DLL", "LCMapStringW", &log);
        expectThree(occurrences(object.get()));
        EXPECT_GT(mapping.calls(), 0);
        EXPECT_EQ(static_cast<std::size_t>(mapping.calls()), log.size());
        // LOCALE_USER_DEFAULT is 1024.
        EXPECT_EQ(0u, log.at(0).find("LCMapStringW(1024, ")) << log.at(0);
    }
    const auto calls = log.size();
    expectThree(occurrences(object.get()));
    EXPECT_EQ(calls, log.size());
}

TEST(ImportPatch, failsTheOrderedCallOnly) {
    const Component component;
    const auto object = component.create(numberOfChaine);
    int failing = 1;
    for (;; ++failing) {
        Intercept<decltype(LCMapStringW)> mapping(component.module(), "kernel32.dll", "LCMapStringW");
        mapping.failCall(failing, 0, ERROR_NOT_ENOUGH_MEMORY);
        const auto outcome = occurrences(object.get());
        if (mapping.calls() < failing) {
            expectThree(outcome);
            break;
        }
        expectError(outcome, 5);
    }
    EXPECT_GT(failing, 1);
}

TEST(ImportPatch, answersInTheSystemsPlace) {
    const auto program = GetModuleHandleW(nullptr);
    const auto before = ticksNow();
    {
        Intercept<decltype(GetTickCount)> ticks(program, "kernel32.dll", "GetTickCount");
        ticks.answer([] { return DWORD{42}; });
        EXPECT_EQ(42u, ticksNow());
        EXPECT_GE(ticks.callOriginal(), before);
        ticks.failCall(2, 0, ERROR_BUSY);
        EXPECT_EQ(42u, ticksNow());
        EXPECT_EQ(0u, ticksNow());
        EXPECT_EQ(DWORD{ERROR_BUSY}, GetLastError());
        EXPECT_EQ(42u, ticksNow());
        ticks.answer({});
        EXPECT_GE(ticksNow(), before);
        EXPECT_EQ(5, ticks.calls());
    }
    EXPECT_GE(ticksNow(), before);
}

TEST(ImportPatch, twoFunctionsOfOneSignatureAreKeptApart) {
    const auto program = GetModuleHandleW(nullptr);
    CallLog log;
    Intercept<decltype(GetTickCount)> ticks(program, "kernel32.dll", "GetTickCount", &log);
    Intercept<decltype(GetCurrentThreadId)> thread(program, "kernel32.dll", "GetCurrentThreadId");
    ticks.answer([] { return DWORD{1}; });
    thread.answer([] { return DWORD{2}; });
    EXPECT_EQ(1u, ticksNow());
    EXPECT_EQ(2u, threadNow());
    EXPECT_EQ(CallLog{"GetTickCount()"}, log);
}

}  // namespace
}  // namespace vorla::test
