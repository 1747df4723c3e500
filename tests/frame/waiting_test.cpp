// Waiting by the clock that the test sets, and by the real one.
#include "frame/shared/waiting.h"

#include <gtest/gtest.h>

#include "support/import_patch.h"

namespace vorla::test {
namespace {

const HMODULE program = GetModuleHandleW(nullptr);

// How often events were processed while the tick count took these values, the last one for ever.
int roundsOf(std::vector<DWORD> ticks, std::int32_t milliseconds) {
    Intercept<decltype(GetTickCount)> clock(program, "kernel32.dll", "GetTickCount");
    Intercept<decltype(PeekMessageW)> events(program, "user32.dll", "PeekMessageW");
    std::size_t next = 0;
    clock.answer([&] { return next + 1 < ticks.size() ? ticks[next++] : ticks.back(); });
    events.answer([](LPMSG, HWND, UINT, UINT, UINT) -> WINBOOL { return FALSE; });
    Attente(milliseconds);
    return events.calls();
}

TEST(Attente, letsTheHostProcessItsEventsOnceAndUntilTheDeadline) {
    EXPECT_EQ(1, roundsOf({1000, 1000}, 0));
    EXPECT_EQ(1, roundsOf({1000, 1000}, -1));
    EXPECT_EQ(1, roundsOf({1000, 1000}, -2147483647 - 1));
    EXPECT_EQ(1, roundsOf({1000, 1020}, 20));
    EXPECT_EQ(2, roundsOf({1000, 1019, 1020}, 20));
    EXPECT_EQ(4, roundsOf({1000, 1000, 1000, 1019, 1030}, 20));
}

TEST(Attente, stopsWhenTheCounterStartsOver) {
    EXPECT_EQ(2, roundsOf({4294967280u, 4294967290u, 5}, 20));
    EXPECT_EQ(1, roundsOf({1000, 999}, 2147483647));
}

TEST(Attente, waitsForReal) {
    const auto start = GetTickCount();
    Attente(120);
    const auto waited = GetTickCount() - start;
    EXPECT_GE(waited, 120u);
    EXPECT_LT(waited, 5000u);
}

int rung = 0;

void CALLBACK ring(HWND, UINT, UINT_PTR, DWORD) { ++rung; }

TEST(Attente, eventsArriveMeanwhile) {
    // A timer of the thread itself rings while the thread waits.
    rung = 0;
    const auto timer = SetTimer(nullptr, 0, 20, &ring);
    ASSERT_NE(0u, timer);
    Attente(300);
    KillTimer(nullptr, timer);
    EXPECT_GE(rung, 2);
}

}  // namespace
}  // namespace vorla::test
