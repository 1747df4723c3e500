// VorlaDivers' keyboard filters, with every code, and the state of real keys.
#include <array>

#include "contract/divers_fixture.h"
#include "support/import_patch.h"
#include "support/number_settings.h"

namespace vorla::test {
namespace {

using Codes = std::array<int, 256>;

Codes unchanged() {
    Codes codes;
    for (int code = 0; code < 256; ++code) codes[static_cast<std::size_t>(code)] = code;
    return codes;
}

class DiversKeys : public Divers {
protected:
    DiversKeys() {
        beep.answer([this](UINT kind) {
            kinds.push_back(kind);
            return TRUE;
        });
    }

    // Every 16-bit code through the member's slot; codes outside a byte get `outside`. Only a refused code
    // beeps, once; 0 is refused by `isZeroRefused`.
    template <class Filter>
    void expectEveryCode(const Codes& expected, bool keepsOutside, bool isZeroRefused, Filter&& filter) {
        kinds.clear();
        std::size_t refused = isZeroRefused ? 1 : 0;
        int different = 0;
        for (int code = -32768; code <= 32767; ++code) {
            const bool isByte = code >= 0 && code < 256;
            const int right = isByte ? expected[static_cast<std::size_t>(code)] : keepsOutside ? code : 0;
            SHORT result = 0x5A5A;
            different += filter(static_cast<SHORT>(code), &result) != S_OK || result != right;
            refused += code != 0 && right == 0;
        }
        EXPECT_EQ(0, different);
        EXPECT_EQ(refused, kinds.size());
        for (const UINT kind : kinds) EXPECT_EQ(UINT{MB_OK}, kind);
    }

    std::vector<UINT> kinds;
    Intercept<decltype(MessageBeep)> beep{module, "user32.dll", "MessageBeep"};
};

TEST_F(DiversKeys, lettersBecomeUpperCase) {
    // Code page 1252. Letters whose upper-case form it lacks stay: 0x83, 0xAA, 0xB5, 0xBA, 0xDF.
    ASSERT_EQ(1252u, GetACP());
    auto upper = unchanged();
    for (std::size_t letter = 'a'; letter <= 'z'; ++letter) upper[letter] = static_cast<int>(letter) - 32;
    for (std::size_t letter = 0xE0; letter <= 0xFE; ++letter)
        if (letter != 0xF7) upper[letter] = static_cast<int>(letter) - 32;
    upper[0x9A] = 0x8A;
    upper[0x9C] = 0x8C;
    upper[0x9E] = 0x8E;
    upper[0xFF] = 0x9F;
    const auto member = slot<SHORT, SHORT*>(L"KeyMajusc");
    expectEveryCode(upper, true, false,
                    [&](SHORT code, SHORT* result) { return member(divers.get(), code, result); });
    expectResult(call(L"KeyMajusc", {short16('e')}), short16('E'));
    expectResult(call(L"KeyMajusc", {text(L"233")}), short16(201));
    EXPECT_EQ(DISP_E_OVERFLOW, call(L"KeyMajusc", {long32(65536)}).code);
}

TEST_F(DiversKeys, numbersAreDigitsAndBackspace) {
    Codes kept{};
    kept[8] = 8;
    for (std::size_t digit = '0'; digit <= '9'; ++digit) kept[digit] = static_cast<int>(digit);
    const auto member = slot<SHORT, VARIANT_BOOL, SHORT*>(L"KeyNum");
    expectEveryCode(kept, false, true, [&](SHORT code, SHORT* result) {
        return member(divers.get(), code, VARIANT_FALSE, result);
    });
    kept['.'] = kept[','] = isFrench() ? ',' : '.';
    expectEveryCode(kept, false, true, [&](SHORT code, SHORT* result) {
        return member(divers.get(), code, VARIANT_TRUE, result);
    });
    kinds.clear();
    expectResult(call(L"KeyNum", {short16('-')}), short16(0));
    expectResult(call(L"KeyNum", {short16('.')}), short16(0));
    EXPECT_EQ(2u, kinds.size());
}

TEST_F(DiversKeys, eitherDecimalKeyTypesTheSeparatorOfAmounts) {
    const struct {
        const wchar_t* separator;
        int code;
    } rows[] = {{L",", ','}, {L".", '.'}, {L"'", '\''}, {L"::", ':'}, {L"\u00B7", 0xB7}};
    for (const auto& row : rows) {
        const ChangedSetting changed(LOCALE_SMONDECIMALSEP, row.separator);
        for (const int typed : {'.', ','})
            expectResult(call(L"KeyNum", {short16(typed), true}), short16(row.code), narrow(row.separator));
    }
    // The separator of other numbers does not count.
    const ChangedSetting changed(LOCALE_SDECIMAL, L"'");
    expectResult(call(L"KeyNum", {short16('.'), true}), short16(isFrench() ? ',' : '.'));
    EXPECT_TRUE(kinds.empty());
}

TEST_F(DiversKeys, withoutASeparatorTheKeyStays) {
    Intercept<decltype(GetLocaleInfoA)> information(module, "kernel32.dll", "GetLocaleInfoA");
    information.answer([](LCID, LCTYPE item, LPSTR buffer, int) {
        EXPECT_EQ(LCTYPE{22}, item);
        buffer[0] = 0;
        return 1;
    });
    for (const int typed : {'.', ','}) expectResult(call(L"KeyNum", {short16(typed), true}), short16(typed));
    information.answer({});
    for (const int typed : {'.', ','}) {
        information.failCall(1, 0);
        expectResult(call(L"KeyNum", {short16(typed), true}), short16(typed));
    }
    EXPECT_TRUE(kinds.empty());
}

TEST_F(DiversKeys, fileNamesLackSomeCharacters) {
    auto path = unchanged();
    for (const auto code : {'"', '*', '/', '<', '>', '?', '|'}) path[static_cast<std::size_t>(code)] = 0;
    auto name = path;
    name[':'] = name['\\'] = 0;
    const auto member = slot<SHORT, LONG*, SHORT*>(L"KeyFile");
    for (const LONG type : {0L, 1L, 2L, -1L, 0x10001L}) {
        LONG variable = type;
        expectEveryCode(type == 1 ? path : name, true, false, [&](SHORT code, SHORT* result) {
            return member(divers.get(), code, &variable, result);
        });
        EXPECT_EQ(type, variable);
    }
    expectResult(call(L"KeyFile", {short16(':')}), short16(0));
    expectResult(call(L"KeyFile", {short16(':'), long32(0)}), short16(0));
    expectResult(call(L"KeyFile", {short16(':'), long32(1)}), short16(58));
}

TEST_F(DiversKeys, aSystemWithoutSoundIsSilent) {
    beep.failCall(1, FALSE);
    expectResult(call(L"KeyNum", {short16('x')}), short16(0));
    beep.failCall(1, FALSE);
    expectResult(call(L"KeyFile", {short16('*')}), short16(0));
}

// --- Keys ---

constexpr int pauseKey = 19, capsLock = 20, numLock = 144, scrollLock = 145, shift = 16, f5 = 116;

class DiversRealKeys : public DiversForm {
protected:
    DiversRealKeys() {
        form.show();
        SetForegroundWindow(form.handle());
        SetFocus(form.handle());
        pump();
    }

    static void pump() {
        MSG message;
        // Keys reach the thread's state with their messages.
        for (const auto until = GetTickCount() + 50; GetTickCount() < until; Sleep(5))
            while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
    }
    static void press(int key) {
        keybd_event(static_cast<BYTE>(key), 0, 0, 0);
        pump();
    }
    static void release(int key) {
        keybd_event(static_cast<BYTE>(key), 0, KEYEVENTF_KEYUP, 0);
        pump();
    }
    bool isOn(int key) {
        const auto outcome = call(L"ToucheEnfoncée", {long32(key)});
        EXPECT_EQ(S_OK, outcome.code);
        EXPECT_EQ(VT_BOOL, outcome.result.raw().vt);
        return outcome.result.raw().boolVal != VARIANT_FALSE;
    }
};

TEST_F(DiversRealKeys, areOnWhileTheyAreDown) {
    for (const int key : {shift, f5, int{'A'}}) {
        EXPECT_FALSE(isOn(key)) << key;
        press(key);
        EXPECT_TRUE(isOn(key)) << key;
        release(key);
        EXPECT_FALSE(isOn(key)) << key;
    }
    EXPECT_FALSE(isOn(0));
    EXPECT_FALSE(isOn(-1));
    EXPECT_FALSE(isOn(70000));
}

TEST_F(DiversRealKeys, twoLocksAlsoWhileTheyAreToggled) {
    for (const int key : {pauseKey, capsLock}) {
        ASSERT_FALSE(isOn(key)) << key;
        press(key);
        EXPECT_TRUE(isOn(key)) << key;
        release(key);
        EXPECT_TRUE(isOn(key)) << key;
        press(key);
        EXPECT_TRUE(isOn(key)) << key;
        release(key);
        EXPECT_FALSE(isOn(key)) << key;
    }
}

TEST_F(DiversRealKeys, theOtherLocksOnlyWhileTheyAreDown) {
    for (const int key : {numLock, scrollLock, shift}) {
        for (int times = 0; times < 2; ++times) {
            press(key);
            EXPECT_TRUE(isOn(key)) << key;
            release(key);
            EXPECT_FALSE(isOn(key)) << key;
        }
    }
}

TEST_F(DiversRealKeys, answerByTheStateThatTheSystemReports) {
    Intercept<decltype(GetKeyState)> state(module, "user32.dll", "GetKeyState");
    int asked = 0;
    SHORT reported = 0;
    state.answer([&](int key) {
        asked = key;
        return reported;
    });
    const struct {
        int state;
        bool ordinary, toggle;
    } rows[] = {{0, false, false},    {1, false, true},  {-128, true, true},   {-127, true, true},
                {-126, false, false}, {2, false, false}, {-32768, true, true}, {-32767, true, true}};
    for (const auto& row : rows) {
        reported = static_cast<SHORT>(row.state);
        EXPECT_EQ(row.ordinary, isOn(numLock)) << row.state;
        EXPECT_EQ(numLock, asked);
        EXPECT_EQ(row.toggle, isOn(pauseKey)) << row.state;
        EXPECT_EQ(row.toggle, isOn(capsLock)) << row.state;
        EXPECT_EQ(capsLock, asked);
    }
}

}  // namespace
}  // namespace vorla::test
