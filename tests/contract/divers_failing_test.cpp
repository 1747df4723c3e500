// VorlaDivers' helpers on a host and a system that fail at any one call, or at every call from one on: no
// member fails unless it is unguarded, none crashes, and nothing is leaked.
#include <cstdio>
#include <set>

#include "contract/divers_fixture.h"
#include "support/failing_calls.h"
#include "support/import_patch.h"

namespace vorla::test {
namespace {

using forms::CheckBox;
using forms::Frame;
using forms::Label;
using forms::OptionButton;
using forms::TextBox;

std::string answerOf(const Outcome& outcome) {
    if (outcome.code == S_OK) {
        const auto& result = outcome.result.raw();
        if (result.vt != VT_RECORD) return describe(result);
        ULONG size = 0;
        EXPECT_EQ(S_OK, result.pRecInfo->GetSize(&size));
        std::string fields;
        for (ULONG i = 0; i < size / 4; ++i)
            fields += std::to_string(static_cast<const LONG*>(result.pvRecord)[i]) + ' ';
        return fields;
    }
    if (outcome.code == DISP_E_EXCEPTION && HRESULT_FACILITY(outcome.exceptionCode) == FACILITY_CONTROL)
        return "error " + std::to_string(HRESULT_CODE(outcome.exceptionCode));
    char code[40];
    std::snprintf(
        code, sizeof code, "failure %08lx",
        static_cast<unsigned long>(outcome.code == DISP_E_EXCEPTION ? outcome.exceptionCode : outcome.code));
    return code;
}

std::string answerOf(const Variant& value) { return describe(value.raw()); }

class DiversFailing : public DiversForm {
protected:
    // One call of a member, what it must answer with the state that it leaves, and what it may answer instead
    // when something fails.
    struct Use {
        const wchar_t* member;
        Arguments arguments;
        std::function<std::string()> state;
        std::string right;
        std::set<std::string> whenFailed;
    };

    DiversFailing() {
        form.put(L"ScaleMode", std::int16_t{3});
        form.show();
        box.answer([](const MSGBOXPARAMSW*) { return IDOK; });
        beep.answer([](UINT) { return TRUE; });
        place.answer([this](int x, int y) {
            pointer = std::to_string(x) + ' ' + std::to_string(y);
            return TRUE;
        });
        array = invoke(form.get(L"Controls").raw().pdispVal, L"Item", {text(L"opt")}).result;
        buttons[1]->put(L"Value", true);
        GetWindowRect(first.handle(), &at);
    }

    std::vector<Use> uses() {
        const auto none = [] { return std::string(); };
        const auto yes = answerOf(true), no = answerOf(false), empty = answerOf(Variant());
        const auto texts = [this] { return " " + shown(first, L"Text") + shown(second, L"Text"); };
        const auto both = [this, texts] {
            return texts() + shown(label1, L"Caption") + shown(label2, L"Caption");
        };
        const auto rectangle = std::to_string(at.left) + ' ' + std::to_string(at.top) + ' ' +
                               std::to_string(at.right) + ' ' + std::to_string(at.bottom) + ' ';
        const auto moved = [this] { return ' ' + pointer; };
        const std::string middle = std::to_string(at.left + 20) + ' ' + std::to_string(at.top + 10);
        const auto enabled = [this] {
            std::string state = " ";
            for (const forms::Window* window : inFrame)
                state += IsWindowEnabled(window->handle()) ? '1' : '0';
            return state;
        };
        const auto cleared = [this] {
            const bool check = check_.getAs<std::int16_t>(L"Value") != 0;
            return " " + shown(second, L"Text") + (check ? "1" : "0");
        };
        std::set<std::string> disabled;  // every mixture, with the control outside enabled
        for (int bits = 0; bits < 16; ++bits) {
            std::string mixture = empty + " ";
            for (int bit = 0; bit < 4; ++bit) mixture += bits & (1 << bit) ? '1' : '0';
            disabled.insert(mixture + "1");
        }
        const Variant form_ = object(&form), first_ = object(&first), second_ = object(&second);
        return {
            {L"KeyMajusc", {short16('e')}, none, answerOf(short16('E')), {}},
            {L"KeyNum", {short16('x')}, none, answerOf(short16(0)), {}},
            {L"KeyNum", {short16(';'), true}, none, answerOf(short16(0)), {}},
            {L"KeyNum",
             {short16(isFrench() ? '.' : ','), true},
             none,
             answerOf(short16(isFrench() ? ',' : '.')),
             {answerOf(short16(isFrench() ? '.' : ','))}},
            {L"KeyFile", {short16('*')}, none, answerOf(short16(0)), {}},
            {L"Ctl_Argument",
             {first_, second_, true, text(L"message"), object(&label1), object(&label2)},
             both,
             yes + " abMD",
             // A criterion that cannot be read is missing; a text that cannot be written stays.
             {no + " baDM", yes + " baMD", yes + " aaMD", yes + " abDM", yes + " abMM", yes + " baDM",
              yes + " aaDM", yes + " baMM", no + " baMD"}},
            {L"eSetFocus", {second_}, none, empty, {}},
            {L"ToucheEnfoncée", {long32(0)}, none, no, {}},
            {L"IsControlExist", {first_}, none, yes, {no}},
            {L"ContainerScaleMode", {text(L"PIXEL")}, none, answerOf(short16(3)), {answerOf(short16(1))}},
            {L"FindContainerScaleMode",
             {first_},
             none,
             answerOf(short16(3)),
             {answerOf(short16(0)), answerOf(short16(1))}},
            {L"FrameChangeEnabled", {form_, object(&outer), false}, enabled, empty + " 00001", disabled},
            {L"FormEffaceCtl", {form_}, cleared, empty + " 0", {empty + " a0", empty + " 1", empty + " a1"}},
            {L"MousePlace", {first_}, moved, empty + ' ' + middle, {empty + " "}},
            {L"CtlPosition", {first_}, none, rectangle, {"0 0 0 0 "}},
            {L"CursorPos", {short16(7), short16(8)}, moved, "0 0  7 8", {}},
            {L"PropertyExist", {first_, text(L"Text")}, none, yes, {no}},
            {L"IsPropertyExist", {first_, text(L"Text")}, none, yes, {no}},
            {L"IsFormLoad",
             {text(L"frmMain"), object(forms.get())},
             none,
             yes,
             {"error 70", "error 438", "error 440"}},
            {L"OptionButtonValue", {array}, none, answerOf(short16(1)), {answerOf(short16(-1))}},
            {L"FindObjectContainerScaleMode", {first_}, none, answerOf(form_), {answerOf(nothing())}},
            {L"CopyFont", {object(font.get()), object(otherFont.get())}, none, empty, {}},
        };
    }

    void reset() {
        host.record().clear();
        first.put(L"Text", L"b");
        second.put(L"Text", L"a");
        label1.put(L"Caption", L"D");
        label2.put(L"Caption", L"M");
        check_.put(L"Value", std::int16_t{1});
        buttons[1]->put(L"Value", true);
        for (forms::Window* window : inFrame) window->put(L"Enabled", true);
        pointer.clear();
    }
    std::string answer(const Use& use) {
        const auto answered = answerOf(call(use.member, use.arguments));
        host.record().clear();
        return answered + use.state();
    }
    static std::string shown(forms::Object& control, const wchar_t* property) {
        return narrow(control.getAs<Text>(property));
    }

    // Orders a failure, runs each use, and goes on with the next place of the failure until no place is left.
    void failEach(const std::function<void(int number)>& order, const std::function<int()>& count) {
        int failures = 0;
        for (const Use& use : uses()) {
            reset();
            EXPECT_EQ(use.right, answer(use)) << narrow(use.member);
            for (int number = 1; number < 500; ++number) {
                reset();
                const auto before = count();
                order(number);
                const auto outcome = answerOf(call(use.member, use.arguments));
                const bool failed = count() - before >= number;
                host.record().clear();
                const auto answered = outcome + use.state();
                const auto where = narrow(use.member) + " " + std::to_string(number);
                if (!failed) {
                    EXPECT_EQ(use.right, answered) << where;
                    break;
                }
                EXPECT_TRUE(answered == use.right || use.whenFailed.contains(answered))
                    << where << ": " << answered;
                ++failures;
            }
        }
        EXPECT_GT(failures, 20);
        reset();
    }

    Frame& outer = form.add<Frame>({.name = L"fraOuter", .at = {10, 10, 200, 100}});
    Frame& inner = form.add<Frame>({.name = L"fraInner", .in = &outer});
    TextBox& inInner = form.add<TextBox>({.name = L"txtInner", .in = &inner});
    CheckBox& check_ = form.add<CheckBox>({.name = L"chk", .in = &outer});
    // 600 by 300 twips on a form whose scale is twips as yet: 40 by 20 pixels.
    TextBox& first = form.add<TextBox>({.name = L"txtFrom", .at = {150, 1800, 600, 300}});
    TextBox& second = form.add<TextBox>({.name = L"txtTo", .at = {150, 2400, 600, 300}});
    Label& label1 = form.add<Label>({.name = L"lblFrom"});
    Label& label2 = form.add<Label>({.name = L"lblTo"});
    OptionButton* const buttons[2] = {&form.add<OptionButton>({.name = L"opt", .index = std::int16_t{0}}),
                                      &form.add<OptionButton>({.name = L"opt", .index = std::int16_t{1}})};
    const std::vector<forms::Window*> inFrame{&outer, &inner, &inInner, &check_, &first};
    const HostFont font = forms::newFont(L"Marlett", 12), otherFont = forms::newFont();
    const HostObject forms = host.forms();
    Variant array;
    RECT at{};
    std::string pointer;
    Intercept<decltype(MessageBoxIndirectW)> box{module, "user32.dll", "MessageBoxIndirectW"};
    Intercept<decltype(MessageBeep)> beep{module, "user32.dll", "MessageBeep"};
    Intercept<decltype(SetCursorPos)> place{module, "user32.dll", "SetCursorPos"};
};

TEST_F(DiversFailing, hostsFailAtOneCall) {
    const auto calls = [this] { return host.record().calls(); };
    for (const auto& failure : {HostFailure{DISP_E_EXCEPTION, 70}, HostFailure{RPC_E_DISCONNECTED}})
        failEach([&](int number) { host.record().fail(number, failure); }, calls);
}

TEST_F(DiversFailing, hostsFailFromOneCallOn) {
    failEach(
        [&](int number) {
            for (int later = number; later < number + 300; ++later)
                host.record().fail(later, {DISP_E_EXCEPTION, 70});
        },
        [this] { return host.record().calls(); });
}

TEST_F(DiversFailing, hostsLoseANameOrAll) {
    const auto lookups = [this] { return static_cast<int>(host.record().logged(L"lookup")); };
    for (const int lost : {1, 300})
        failEach(
            [&](int number) {
                for (int later = number; later < number + lost; ++later)
                    host.record().failLookup(later, DISP_E_UNKNOWNNAME);
            },
            lookups);
}

TEST_F(DiversFailing, theSystemFailsAtOneCall) {
    const Fault faults[] = {
        noMemory(),
        fault<decltype(SysAllocStringLen)>("oleaut32.dll", "SysAllocStringLen", BSTR{}),
        fault<decltype(VariantCopyInd)>("oleaut32.dll", "VariantCopyInd", E_OUTOFMEMORY),
        fault<decltype(VariantChangeTypeEx)>("oleaut32.dll", "VariantChangeTypeEx", DISP_E_TYPEMISMATCH),
        fault<HRESULT WINAPI(LPVARIANT, LPVARIANT, LCID, ULONG)>("oleaut32.dll", "VarCmp",
                                                                 DISP_E_TYPEMISMATCH),
        fault<decltype(GetLocaleInfoA)>("kernel32.dll", "GetLocaleInfoA", 0),
        fault<decltype(WideCharToMultiByte)>("kernel32.dll", "WideCharToMultiByte", 0),
        fault<decltype(MultiByteToWideChar)>("kernel32.dll", "MultiByteToWideChar", 0),
        fault<decltype(LCMapStringW)>("kernel32.dll", "LCMapStringW", 0),
        fault<decltype(GetWindowRect)>("user32.dll", "GetWindowRect", FALSE),
    };
    for (const Fault& each : faults) {
        int calls = 0;
        for (Use& use : uses()) {
            reset();
            // A call may fail before its member runs, or in an unguarded one.
            auto allowed = use.whenFailed;
            for (const char* refused : {"failure 8007000e", "failure 80020005", "error 13"}) {
                reset();
                allowed.insert(refused + use.state());
            }
            calls += failEachCall(
                module, each, narrow(use.member),
                [&] {
                    reset();
                    return answer(use);
                },
                use.right, allowed);
        }
        EXPECT_GT(calls, 0) << each.name;
    }
}

}  // namespace
}  // namespace vorla::test
