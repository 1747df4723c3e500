// VorlaDivers, values: comparisons, amounts, durations, waits, random numbers, codes.
#include <cstring>
#include <limits>
#include <set>

#include "contract/divers_fixture.h"
#include "support/arrays.h"
#include "support/failing_calls.h"
#include "support/import_patch.h"

namespace vorla::test {
namespace {

constexpr auto least = std::numeric_limits<std::int32_t>::min(),
               most = std::numeric_limits<std::int32_t>::max();

// The component's clock, under the test's hand.
class Clock {
public:
    explicit Clock(const Component& component)
        : patch_(component.module(), "kernel32.dll", "GetLocalTime", reinterpret_cast<void*>(&answer)) {
        current_ = this;
    }

    int asked() const { return asked_; }

    SYSTEMTIME now{2026, 11, 6, 21, 10, 0, 0, 0};
    std::function<void()> onAsked;

private:
    static void WINAPI answer(SYSTEMTIME* time) {
        *time = current_->now;
        ++current_->asked_;
        if (current_->onAsked) current_->onAsked();
    }

    static inline Clock* current_ = nullptr;

    int asked_ = 0;
    const ImportPatch patch_;
};

class DiversValues : public Divers {
protected:
    // 21 November 2026, a moment of that day in seconds.
    static Date november21(int second = 0) { return {46347 + second / 86400.0}; }
};

TEST_F(DiversValues, theGreaterAndTheSmaller) {
    struct Row {
        Variant one, other;
        bool firstIsGreater;
    };
    const Row rows[] = {
        {long32(5), long32(3), true},   {short16(-5), Variant(-4.5), false},
        {text(L"b"), text(L"a"), true}, {text(L"10"), text(L"9"), false},
        {text(L"1"), long32(9), true},  {Variant(Currency{10001}), long32(1), true},
        {true, long32(0), false},       {Variant(november21(1)), Variant(november21()), true},
    };
    for (const auto& [one, other, firstIsGreater] : rows) {
        const auto& greater = firstIsGreater ? one : other;
        const auto& smaller = firstIsGreater ? other : one;
        expectResult(call(L"Maxi", {one, other}), greater);
        expectResult(call(L"Maxi", {other, one}), greater);
        expectResult(call(L"Mini", {one, other}), smaller);
        expectResult(call(L"Mini", {other, one}), smaller);
    }
    // The second on a tie and against Null.
    expectResult(call(L"Maxi", {long32(1), Variant(1.0)}), 1.0);
    expectResult(call(L"Mini", {long32(1), Variant(1.0)}), 1.0);
    expectResult(call(L"Maxi", {long32(1), nullValue()}), nullValue());
    expectResult(call(L"Mini", {nullValue(), long32(1)}), long32(1));
    Variant variable = long32(8);
    expectResult(call(L"Maxi", {byReference(variable), long32(7)}), long32(8));
    expectError(call(L"Maxi", {arrayOf(VT_I4, 0, {long32(1)}), long32(7)}), 13);
}

TEST_F(DiversValues, growthInPercent) {
    const auto growth = [&](Variant one, Variant other) {
        return call(L"CalcTauxAugm", {std::move(one), std::move(other)});
    };
    expectResult(growth(long32(100), long32(150)), Currency{500000});
    expectResult(growth(long32(200), long32(150)), Currency{-250000});
    expectResult(growth(long32(0), long32(150)), Currency{0});
    expectResult(growth(long32(150), long32(0)), Currency{0});
    // 33.3333… and 66.6666… have four decimals left.
    expectResult(growth(long32(3), long32(4)), Currency{333333});
    expectResult(growth(long32(3), long32(5)), Currency{666667});
    expectError(growth(Variant(Currency{1}), Variant(Currency{std::numeric_limits<std::int64_t>::max()})), 6);
    EXPECT_EQ(DISP_E_TYPEMISMATCH, growth(text(L"beaucoup"), long32(1)).code);
}

TEST_F(DiversValues, theTimeThatIsLeft) {
    Clock clock(component);
    const auto left = [&](float start, int all, int done) {
        return call(L"SysTempsRestant", {single(start), long32(all), long32(done)});
    };
    // It is 10 o'clock: 36,000 seconds. 100 seconds for 10 of 40 steps leave 300.
    expectResult(left(35'900, 40, 10), text(L"00:05:00"));
    expectResult(left(35'900, 40, 40), text(L"00:00:00"));
    expectResult(left(32'400, 2, 1), text(L"01:00:00"));
    expectResult(left(35'999.5f, 3, 1), text(L"00:00:01"));
    // Whole days are left out: 100 seconds a step for 864 and a half days.
    expectResult(left(35'900, 866, 1), text(L"00:01:40"));
    // More than all is done: a negative time shows like a positive one.
    expectResult(left(35'900, 10, 20), text(L"00:00:50"));
    // The start lies after the clock, which began again at midnight.
    expectResult(left(36'100, 3, 1), text(L"00:03:20"));
    expectError(left(35'900, 40, 0), 11);
    expectError(left(36'000, 40, 0), 11);
    clock.now.wMilliseconds = 500;
    expectResult(left(35'999, 3, 1), text(L"00:00:03"));
}

TEST_F(DiversValues, waitingLetsTheHostGoOn) {
    Clock clock(component);
    int delivered = 0;
    // Each look at the clock is a tenth of a second later, and the host has an event by then.
    clock.onAsked = [&] {
        clock.now.wMilliseconds = static_cast<WORD>(clock.now.wMilliseconds + 100);
        if (clock.now.wMilliseconds >= 1000) ++clock.now.wSecond, clock.now.wMilliseconds = 0;
        PostThreadMessageW(GetCurrentThreadId(), WM_APP, 0, 0);
    };
    Intercept<decltype(DispatchMessageW)> dispatched(component.module(), "user32.dll", "DispatchMessageW");
    dispatched.answer([&](const MSG* message) -> LRESULT {
        delivered += message->message == WM_APP;
        // An event of the host calls the library itself.
        EXPECT_EQ(S_OK, call(L"SecondToTime", {long32(0)}).code);
        return 0;
    });
    EXPECT_EQ(S_OK, call(L"SysWait", {single(0.5)}).code);
    // At 0.0 the wait begins; at 0.1, 0.2, 0.3 and 0.4 it goes on; at 0.5 it is over.
    EXPECT_EQ(6, clock.asked());
    EXPECT_EQ(5, delivered);
}

TEST_F(DiversValues, aWaitThatIsOverYieldsToNobody) {
    Clock clock(component);
    Intercept<decltype(PeekMessageW)> peeked(component.module(), "user32.dll", "PeekMessageW");
    for (const float seconds : {0.0f, -1.0f, -1e30f, std::numeric_limits<float>::quiet_NaN()})
        EXPECT_EQ(S_OK, call(L"SysWait", {single(seconds)}).code);
    EXPECT_EQ(0, peeked.calls());
    EXPECT_EQ(8, clock.asked());
}

TEST_F(DiversValues, aWaitAcrossMidnightGoesOn) {
    Clock clock(component);
    clock.now.wHour = 23, clock.now.wMinute = 59, clock.now.wSecond = 59;
    // The clock starts again at 0 and stays below the end, until the test ends the wait.
    clock.onAsked = [&] {
        clock.now.wHour = 0, clock.now.wMinute = 0, clock.now.wSecond = 30;
        if (clock.asked() == 1'000) clock.now.wHour = 24;
    };
    EXPECT_EQ(S_OK, call(L"SysWait", {single(2)}).code);
    EXPECT_EQ(1'001, clock.asked());
}

TEST_F(DiversValues, aWaitTakesItsTime) {
    const auto before = GetTickCount();
    SYSTEMTIME now;
    GetLocalTime(&now);
    if (now.wHour == 23 && now.wMinute == 59) GTEST_SKIP() << "a wait across midnight does not end";
    EXPECT_EQ(S_OK, call(L"SysWait", {single(0.2f)}).code);
    EXPECT_GE(GetTickCount() - before, 180u);
}

TEST_F(DiversValues, secondsAsAClockShowsThem) {
    Intercept<decltype(GetLocaleInfoA)> asked(component.module(), "kernel32.dll", "GetLocaleInfoA");
    asked.answer([](LCID locale, LCTYPE item, LPSTR separator, int size) {
        EXPECT_EQ(1024u, locale);
        EXPECT_EQ(30u, item);
        EXPECT_GE(size, 2);
        std::memcpy(separator, "h", std::size_t{2});
        return 2;
    });
    expectResult(call(L"SecondToTime", {long32(3725)}), text(L"01h02h05"));
    expectResult(call(L"SecondToTime", {long32(125), true}), text(L"02h05"));
    expectResult(call(L"SecondToTime", {long32(125)}), text(L"00h02h05"));
    expectResult(call(L"SecondToTime", {long32(-3725)}), text(L"-01h02h05"));
    expectResult(call(L"SecondToTime", {long32(-125), true}), text(L"-02h-05"));
    expectResult(call(L"SecondToTime", {long32(59), true}), text(L"00h59"));
    expectResult(call(L"SecondToTime", {long32(3600), true}), text(L"01h00h00"));
    expectResult(call(L"SecondToTime", {long32(least)}), text(L"-596523h14h08"));
    VARIANT_BOOL withoutHours = VARIANT_TRUE;
    Bstr result;
    EXPECT_EQ(S_OK, slot(9, LONG{61}, &withoutHours, result.put()));
    EXPECT_EQ(L"01h01", result.view());
    // Without the user's separator, which this system does not tell, nothing separates the numbers.
    asked.answer([](LCID, LCTYPE, LPSTR, int) { return 0; });
    expectResult(call(L"SecondToTime", {long32(3725)}), text(L"010205"));
    // Both settings of the tests have the same one.
    asked.answer({});
    expectResult(call(L"SecondToTime", {long32(3725)}), text(L"01:02:05"));
}

TEST_F(DiversValues, randomNumbersLieWithinTheirBounds) {
    Clock clock(component);
    std::set<std::int32_t> seen;
    // The clock stands still, and the numbers still differ.
    for (int i = 0; i < 1'000; ++i) {
        const auto outcome = call(L"RndBetween", {long32(1), long32(6)});
        ASSERT_EQ(S_OK, outcome.code);
        seen.insert(outcome.result.view().raw().lVal);
    }
    EXPECT_EQ((std::set<std::int32_t>{1, 2, 3, 4, 5, 6}), seen);
    EXPECT_EQ(1'000, clock.asked());
    std::int32_t low = 0, high = 0;
    for (int i = 0; i < 1'000; ++i) {
        const auto outcome = call(L"RndBetween", {long32(least), long32(most)});
        ASSERT_EQ(S_OK, outcome.code);
        low = std::min<std::int32_t>(low, outcome.result.view().raw().lVal);
        high = std::max<std::int32_t>(high, outcome.result.view().raw().lVal);
    }
    // All of a thousand numbers miss an eighth of the range with the probability 10^-58.
    EXPECT_LT(low, least / 4 * 3);
    EXPECT_GT(high, most / 4 * 3);
}

TEST_F(DiversValues, boundsWithoutARangeLookAtNoClock) {
    Clock clock(component);
    expectResult(call(L"RndBetween", {long32(5), long32(5)}), long32(5));
    expectResult(call(L"RndBetween", {long32(6), long32(-5)}), long32(6));
    EXPECT_EQ(0, clock.asked());
}

TEST_F(DiversValues, theTimeBetweenTwoDates) {
    const auto between = [&](Date one, Date other) { return call(L"DateDiffDaysAndTime", {one, other}); };
    constexpr Date year2000{36526}, march2002{37316};
    expectResult(between(year2000, march2002), text(L"2 an(s), 25 mois, 26 jour(s) et "));
    expectResult(between(november21(36'000), november21(45'000)), text(L"2 heure(s), 30 minute(s), "));
    expectResult(between(november21(45'000), november21(36'000)), text(L"-2 heure(s), -30 minute(s), "));
    expectResult(between(november21(), november21(59)), text(L"59 seconde(s)"));
    expectResult(between(november21(), november21()), text(L""));
    // A third of a second either way is no second.
    expectResult(between(november21(), {november21().days + 0.3 / 86400}), text(L""));
    // Before 1900 the time of day still counts forward: 29 December 1899, 6 o'clock, to noon.
    expectResult(between({-1.25}, {-1.5}), text(L"6 heure(s), "));
    for (const double outside : {-657435.0, 2958466.0, 1e300, std::numeric_limits<double>::quiet_NaN()}) {
        expectError(between({outside}, november21()), 5);
        expectError(between(november21(), {outside}), 5);
    }
}

TEST_F(DiversValues, theTimeUntilNow) {
    Clock clock(component);
    // 21 November 2026, 10 o'clock.
    expectResult(call(L"DateDiffDaysAndTime", {november21(35'000)}), text(L"16 minute(s), 40 seconde(s)"));
    expectResult(call(L"DateDiffDaysAndTime", {november21(35'000), Date{0}}),
                 text(L"16 minute(s), 40 seconde(s)"));
    expectResult(call(L"DateDiffDaysAndTime", {Date{46346}}), text(L"1 jour(s) et 10 heure(s), "));
}

TEST_F(DiversValues, theTimeInTheUsersFormat) {
    const auto between = [&](Date one, Date other) {
        return call(L"DateDiffDaysAndTime", {one, other, true});
    };
    const bool french = isFrench();
    constexpr Date november20{46346};
    expectResult(between(november21(36'000), november21(45'005)), text(french ? L"02:30:05" : L"2:30:05 AM"));
    expectResult(between(november20, november21(45'005)),
                 text(french ? L"1 jour(s) et 12:30:05" : L"1 jour(s) et 12:30:05 PM"));
    expectResult(between(november21(45'005), november20),
                 text(french ? L"--1 jour(s) et 12:30:05" : L"--1 jour(s) et 12:30:05 PM"));
    // Nothing is negative but the days.
    expectResult(between(november21(), november20),
                 text(french ? L"-1 jour(s) et 00:00:00" : L"-1 jour(s) et 12:00:00 AM"));
    expectResult(between(november21(), november21()), text(french ? L"00:00:00" : L"12:00:00 AM"));
}

TEST_F(DiversValues, codesOfMouseButtons) {
    const auto translated = [&](const Variant& value, int direction, int what = 0) {
        return call(L"ElTranslate", {long32(what), value, long32(direction)});
    };
    expectResult(translated(long32(0), 0), short16(1));
    expectResult(translated(long32(1), 0), short16(4));
    expectResult(translated(long32(2), 0), short16(2));
    expectResult(translated(short16(1), 1), long32(0));
    expectResult(translated(short16(4), 1), long32(1));
    expectResult(translated(short16(2), 1), long32(2));
    for (const Variant& one : {octet(1), single(1), Variant(1.0), Variant(Currency{10000})})
        expectResult(translated(one, 0), short16(4));
    Variant variable = long32(2);
    expectResult(translated(byReference(variable), 0), short16(2));
    ScriptedObject coded(long32(1));
    expectResult(translated(object(&coded), 0), short16(4));
    const Variant codes = arrayOf(VT_I4, 0, {long32(0)});
    for (const Variant& other :
         {long32(3), long32(-1), Variant(0.5), text(L"1"), nullValue(), missing(), codes})
        for (const int direction : {0, 1}) expectResult(translated(other, direction), Variant());
    expectResult(translated(long32(0), 1), Variant());
    expectResult(translated(long32(4), 0), Variant());
    expectResult(translated(long32(1), 2), Variant());
    expectResult(translated(long32(1), 0, 1), Variant());
    // What holds nothing, and False, are 0 in every comparison of the host.
    expectResult(translated(Variant(), 0), short16(1));
    expectResult(translated(false, 0), short16(1));
    coded.failCallWithNumber(1, 380);
    expectError(translated(object(&coded), 0), 380);
    EXPECT_EQ(0, coded.references());
}

// Every system call and allocation of these members failing in turn.
class DiversFailures : public Divers {
protected:
    struct Use {
        const wchar_t* member;
        std::function<Arguments()> arguments;
        Variant right;
        std::set<std::string> whenFailed;
    };

    static std::string written(const Variant& value) { return describe(value.raw()); }

    static std::string answerOf(const Outcome& outcome) {
        if (outcome.code == S_OK) return describe(outcome.result.raw());
        if (outcome.code == DISP_E_EXCEPTION && HRESULT_FACILITY(outcome.exceptionCode) == FACILITY_CONTROL)
            return "error " + std::to_string(HRESULT_CODE(outcome.exceptionCode));
        const auto code = outcome.code == DISP_E_EXCEPTION ? outcome.exceptionCode : outcome.code;
        return code == E_OUTOFMEMORY ? "no memory" : "failure " + std::to_string(code);
    }

    void failAll(const Fault& fault, const std::set<std::string>& whenFailed, const std::vector<Use>& uses) {
        int calls = 0;
        for (const Use& use : uses) {
            auto allowed = whenFailed;
            allowed.insert(use.whenFailed.begin(), use.whenFailed.end());
            calls += failEachCall(
                component.module(), fault, narrow(use.member),
                [&] { return answerOf(call(use.member, use.arguments())); }, written(use.right), allowed);
        }
        EXPECT_GT(calls, 0) << fault.name;
    }
};

TEST_F(DiversFailures, giveTheRightAnswerOrAnAllowedOne) {
    ScriptedList list({text(L"A;un"), text(L"B;Deux"), text(L"trois")});
    ScriptedTree tree(3);
    const Variant none = long32(-1);
    const auto words = arrayOf(VT_VARIANT, 0, {text(L"un"), long32(12), text(L"deux")});
    const std::string nothingFound = written(none);
    const std::vector<Use> uses = {
        {L"Maxi",
         [] {
             return Arguments{text(L"a"), text(L"b")};
         },
         text(L"b"),
         {}},
        {L"Mini",
         [] {
             return Arguments{long32(1), Variant(2.0)};
         },
         long32(1),
         {}},
        {L"ListeCherche",
         [&] {
             return Arguments{object(&list), text(L"TROIS")};
         },
         long32(2),
         {nothingFound}},
        {L"ListeCherche",
         [&] { return Arguments{object(&list), text(L"deux"), false, false, true, text(L";"), octet(2)}; },
         long32(1),
         {nothingFound}},
        {L"ListeCherche",
         [&] {
             return Arguments{object(&list), text(L"20"), true};
         },
         long32(1),
         {nothingFound}},
        {L"TreeCherche",
         [&] {
             return Arguments{object(&tree), text(L"k3")};
         },
         long32(3),
         {}},
        {L"TabCherche",
         [&] {
             return Arguments{words, text(L"1")};
         },
         long32(1),
         {nothingFound}},
        {L"TabCherche",
         [&] {
             return Arguments{words, long32(12)};
         },
         long32(1),
         {nothingFound}},
        {L"CalcTauxAugm",
         [] {
             return Arguments{long32(100), long32(150)};
         },
         Currency{500000},
         {}},
        {L"SecondToTime", [] { return Arguments{long32(3725)}; }, text(L"01:02:05"), {}},
        {L"RndBetween",
         [] {
             return Arguments{long32(5), long32(5)};
         },
         long32(5),
         {}},
        {L"IsArrayEmpty", [&] { return Arguments{words}; }, false, {}},
        {L"DateDiffDaysAndTime",
         [] {
             return Arguments{Date{36526}, Date{37316}};
         },
         text(L"2 an(s), 25 mois, 26 jour(s) et "),
         {}},
        {L"DateDiffDaysAndTime",
         [] {
             return Arguments{Date{46347.5}, Date{46348.0}, true};
         },
         text(isFrench() ? L"12:00:00" : L"12:00:00 PM"),
         {}},
        {L"IsMemberExist",
         [&] {
             return Arguments{object(&tree.nodes), text(L"K2")};
         },
         true,
         {written(false)}},
        {L"IsNodeExist",
         [&] {
             return Arguments{object(&tree), text(L"K2")};
         },
         true,
         {written(false)}},
        {L"ElTranslate",
         [] {
             return Arguments{long32(0), long32(1), long32(0)};
         },
         short16(4),
         {written(Variant())}},
    };
    failAll(noMemory(), {"no memory"}, uses);
    failAll(fault<decltype(SysAllocStringLen)>("oleaut32.dll", "SysAllocStringLen", BSTR{}), {"no memory"},
            uses);
    failAll(fault<decltype(VariantCopyInd)>("oleaut32.dll", "VariantCopyInd", E_OUTOFMEMORY), {"no memory"},
            uses);
    failAll(fault<decltype(VariantChangeTypeEx)>("oleaut32.dll", "VariantChangeTypeEx", DISP_E_OVERFLOW),
            {"error 6", "failure " + std::to_string(DISP_E_OVERFLOW)}, uses);
    failAll(
        fault<HRESULT WINAPI(VARIANT*, VARIANT*, LCID, ULONG)>("oleaut32.dll", "VarCmp", DISP_E_TYPEMISMATCH),
        {"error 13"}, uses);
    failAll(fault<decltype(LCMapStringW)>("kernel32.dll", "LCMapStringW", 0), {"error 5"}, uses);
    failAll(fault<decltype(SafeArrayAccessData)>("oleaut32.dll", "SafeArrayAccessData", E_OUTOFMEMORY), {},
            uses);
    failAll(fault<decltype(SafeArrayGetUBound)>("oleaut32.dll", "SafeArrayGetUBound", DISP_E_BADINDEX),
            {written(true)}, uses);
    failAll(fault<decltype(VariantTimeToSystemTime)>("oleaut32.dll", "VariantTimeToSystemTime", FALSE),
            {"error 5"}, uses);
    failAll(fault<decltype(VarBstrFromDate)>("oleaut32.dll", "VarBstrFromDate", E_OUTOFMEMORY), {"no memory"},
            uses);
    failAll(fault<decltype(GetLocaleInfoA)>("kernel32.dll", "GetLocaleInfoA", 0), {written(text(L"010205"))},
            uses);
}

TEST_F(DiversFailures, ofTheFormatReachTheHost) {
    const Clock clock(component);
    const std::vector<Use> uses = {{L"SysTempsRestant",
                                    [] {
                                        return Arguments{single(35'900), long32(40), long32(10)};
                                    },
                                    text(L"00:05:00"),
                                    {}}};
    failAll(fault<decltype(VarFormat)>("oleaut32.dll", "VarFormat", E_OUTOFMEMORY), {"no memory"}, uses);
    failAll(fault<decltype(VarFormat)>("oleaut32.dll", "VarFormat", DISP_E_TYPEMISMATCH), {"error 13"}, uses);
}

}  // namespace
}  // namespace vorla::test
