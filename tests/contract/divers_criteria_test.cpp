// VorlaDivers' check of range criteria, on forms with real windows and real message boxes.
#include "contract/divers_fixture.h"
#include "support/dialog_watcher.h"
#include "support/import_patch.h"

namespace vorla::test {
namespace {

using forms::Label;
using forms::TextBox;

using Texts = std::vector<std::wstring>;

const std::wstring notAscending =
    L"Les critères de sélection ne sont pas dans l'ordre croissant, je les inverse pour vous.";
const std::wstring required = L"Les critères de sélection sont obligatoires.";

class DiversCriteria : public DiversForm {
protected:
    bool check(std::initializer_list<Variant> more = {}) {
        const auto outcome = call(L"Ctl_Argument", Arguments(all(more)));
        EXPECT_EQ(S_OK, outcome.code);
        EXPECT_EQ(VT_BOOL, outcome.result.raw().vt);
        return outcome.result.raw().boolVal == VARIANT_TRUE;
    }
    void type(const wchar_t* one, const wchar_t* other) {
        first.put(L"Text", one);
        second.put(L"Text", other);
    }
    Texts typed() { return {first.getAs<Text>(L"Text"), second.getAs<Text>(L"Text")}; }
    Texts captions() { return {label1.getAs<Text>(L"Caption"), label2.getAs<Text>(L"Caption")}; }

    TextBox& first = form.add<TextBox>({.name = L"txtFrom", .at = {100, 100, 1500, 300}});
    TextBox& second = form.add<TextBox>({.name = L"txtTo", .at = {100, 500, 1500, 300}});
    Label& label1 = form.add<Label>({.name = L"lblFrom", .text = L"Dupont", .at = {1700, 100, 900, 300}});
    Label& label2 = form.add<Label>({.name = L"lblTo", .text = L"Martin", .at = {1700, 500, 900, 300}});

private:
    Arguments all(std::initializer_list<Variant> more) {
        const auto given = std::data(more);
        const Variant one = object(&first), other = object(&second);
        switch (more.size()) {
            case 0: return {one, other};
            case 1: return {one, other, given[0]};
            case 2: return {one, other, given[0], given[1]};
            case 3: return {one, other, given[0], given[1], given[2]};
            default: return {one, other, given[0], given[1], given[2], given[3]};
        }
    }
};

TEST_F(DiversCriteria, inOrderAreLeftAlone) {
    const DialogWatcher watcher;
    type(L"10", L"9");
    EXPECT_TRUE(check());
    EXPECT_EQ((Texts{L"10", L"9"}), typed());
    type(L"a", L"a");
    EXPECT_TRUE(check({true}));
    // By character codes: "20" comes before "3".
    type(L"20", L"3");
    EXPECT_TRUE(check({true, text(L"jamais vu"), object(&label1), object(&label2)}));
    EXPECT_EQ((Texts{L"20", L"3"}), typed());
    EXPECT_EQ((Texts{L"Dupont", L"Martin"}), captions());
    EXPECT_TRUE(watcher.seen().empty());
}

TEST_F(DiversCriteria, outOfOrderAreSwappedAfterAMessage) {
    {
        const DialogWatcher watcher;
        type(L"3", L"20");
        EXPECT_TRUE(check());
        EXPECT_EQ((Texts{L"20", L"3"}), typed());
        EXPECT_EQ((Texts{L"Dupont", L"Martin"}), captions());
        ASSERT_EQ(1u, watcher.seen().size());
        EXPECT_EQ(Texts{notAscending}, watcher.seen()[0].texts);
        EXPECT_EQ(1u, watcher.seen()[0].buttons.size());
        EXPECT_EQ(L"contract_tests", watcher.seen()[0].title);
    }
    const DialogWatcher watcher;
    type(L"b", L"B");
    EXPECT_TRUE(check({true, text(L"À l'envers : €"), object(&label1), object(&label2)}));
    EXPECT_EQ((Texts{L"B", L"b"}), typed());
    EXPECT_EQ((Texts{L"Martin", L"Dupont"}), captions());
    ASSERT_EQ(1u, watcher.seen().size());
    EXPECT_EQ(Texts{L"À l'envers : €"}, watcher.seen()[0].texts);
}

TEST_F(DiversCriteria, oneLabelAloneIsNoPair) {
    const DialogWatcher watcher;
    for (const auto& [one, other] : {std::pair{object(&label1), nothing()},
                                     {nothing(), object(&label2)},
                                     {object(&label1), missing()}}) {
        type(L"b", L"a");
        EXPECT_TRUE(check({false, text(L""), one, other}));
        EXPECT_EQ((Texts{L"a", L"b"}), typed());
        EXPECT_EQ((Texts{L"Dupont", L"Martin"}), captions());
    }
    ASSERT_EQ(3u, watcher.seen().size());
    EXPECT_EQ(Texts{notAscending}, watcher.seen()[0].texts);
}

TEST_F(DiversCriteria, missingOnesAreAskedForWhenRequired) {
    const DialogWatcher watcher;
    const std::pair<const wchar_t*, const wchar_t*> rows[] = {{L"a", L""}, {L"", L"a"}, {L"", L""}};
    for (const auto& [one, other] : rows) {
        type(one, other);
        EXPECT_TRUE(check());
        EXPECT_TRUE(check({false}));
    }
    EXPECT_TRUE(watcher.seen().empty());
    for (const auto& [one, other] : rows) {
        type(one, other);
        EXPECT_FALSE(check({true, text(L"jamais vu"), object(&label1), object(&label2)}));
        EXPECT_EQ((Texts{one, other}), typed());
    }
    ASSERT_EQ(3u, watcher.seen().size());
    for (const auto& seen : watcher.seen()) EXPECT_EQ(Texts{required}, seen.texts);
}

TEST_F(DiversCriteria, theBoxHasACriticalIconAndOneButton) {
    Intercept<decltype(MessageBoxIndirectW)> box(module, "user32.dll", "MessageBoxIndirectW");
    std::vector<DWORD> styles;
    box.answer([&](const MSGBOXPARAMSW* shown) {
        styles.push_back(shown->dwStyle);
        return IDOK;
    });
    type(L"b", L"a");
    EXPECT_TRUE(check());
    type(L"", L"a");
    EXPECT_FALSE(check({true}));
    EXPECT_EQ((std::vector<DWORD>{16, 16}), styles);
    // A system that shows no box changes nothing else.
    box.answer([](const MSGBOXPARAMSW*) { return 0; });
    type(L"b", L"a");
    EXPECT_TRUE(check());
    EXPECT_EQ((Texts{L"a", L"b"}), typed());
    type(L"", L"a");
    EXPECT_FALSE(check({true}));
}

TEST_F(DiversCriteria, dateFieldsHaveAValueOfTheirOwn) {
    struct Field {
        const wchar_t *text, *value;
        int kind;
    };
    // Each control tells its own kind; the first control's class decides for both.
    const struct {
        const wchar_t* className;
        Field first, second;
        bool swapped;
    } rows[] = {{L"QZText", {L"b", L"20240101", 5}, {L"a", L"20240201", 5}, false},
                {L"QZTextStd", {L"a", L"20240201", 5}, {L"b", L"20240101", 5}, true},
                {L"QZText", {L"b", L"1", 4}, {L"a", L"2", 4}, true},
                {L"QZText", {L"5", L"1", 5}, {L"3", L"0", 0}, false},
                {L"qztext", {L"b", L"1", 5}, {L"a", L"2", 5}, true},
                {L"TextBox", {L"b", L"1", 5}, {L"a", L"2", 5}, true},
                // A kind that is not a number is none.
                {L"QZText", {L"b", L"1", -1}, {L"a", L"2", -1}, true}};
    Intercept<decltype(MessageBoxIndirectW)> box(module, "user32.dll", "MessageBoxIndirectW");
    box.answer([](const MSGBOXPARAMSW*) { return IDOK; });
    for (const auto& row : rows) {
        ScriptedObject one, other;
        const auto fill = [](ScriptedObject& control, const Field& field) {
            control.property(L"Text", text(field.text))
                .property(L"eValeur", text(field.value))
                .property(L"eTypeChamp", field.kind < 0 ? text(L"date") : long32(field.kind));
        };
        fill(one.className(row.className), row.first);
        fill(other.className(L"TextBox"), row.second);
        expectResult(call(L"Ctl_Argument", {object(&one), object(&other)}), true);
        const auto where = &row - rows;
        EXPECT_EQ(row.swapped ? row.second.text : row.first.text,
                  std::wstring(viewOf(one.value(L"Text").raw().bstrVal)))
            << where;
        EXPECT_EQ(row.swapped ? row.first.text : row.second.text,
                  std::wstring(viewOf(other.value(L"Text").raw().bstrVal)))
            << where;
        EXPECT_EQ(0, one.references());
        EXPECT_EQ(0, other.references());
    }
}

TEST_F(DiversCriteria, nothingAndOtherObjectsAreEmptyCriteria) {
    Intercept<decltype(MessageBoxIndirectW)> box(module, "user32.dll", "MessageBoxIndirectW");
    box.answer([](const MSGBOXPARAMSW*) { return IDOK; });
    ScriptedObject plain, null;
    null.property(L"Text", nullValue());
    for (const Variant& none : {nothing(), object(&plain), object(&null), object(&label1)}) {
        expectResult(call(L"Ctl_Argument", {object(&first), none}), true);
        expectResult(call(L"Ctl_Argument", {none, object(&first)}), true);
        expectResult(call(L"Ctl_Argument", {none, none, true}), false);
    }
    EXPECT_EQ(4, box.calls());
}

TEST_F(DiversCriteria, theFormMayCloseDuringTheMessage) {
    Intercept<decltype(MessageBoxIndirectW)> box(module, "user32.dll", "MessageBoxIndirectW");
    box.answer([this](const MSGBOXPARAMSW*) {
        form.unload();
        return IDOK;
    });
    const HostObject kept[] = {&first, &second, &label1, &label2};
    type(L"b", L"a");
    EXPECT_TRUE(check({true, text(L""), object(&label1), object(&label2)}));
    EXPECT_EQ(1, box.calls());
}

TEST_F(DiversCriteria, theHostMayClearItsVariablesDuringARead) {
    Intercept<decltype(MessageBoxIndirectW)> box(module, "user32.dll", "MessageBoxIndirectW");
    box.answer([](const MSGBOXPARAMSW*) { return IDOK; });
    IDispatch* variables[4] = {&first, &second, &label1, &label2};
    for (IDispatch* const variable : variables) variable->AddRef();
    ScriptedObject clearing;
    BSTR message = SysAllocString(L"le message");
    Text shown = L"b";
    const auto clear = [&](const ScriptedObject::Call& given) {
        if (given.isPut()) return Variant();
        for (IDispatch*& variable : variables)
            if (variable && variable != &clearing) std::exchange(variable, nullptr)->Release();
        if (message) SysFreeString(std::exchange(message, nullptr));
        return text(shown);
    };
    clearing.method(L"Text", clear);
    variables[0]->Release();
    variables[0] = &clearing;
    clearing.AddRef();
    type(L"b", L"a");
    VARIANT_BOOL isRequired = VARIANT_TRUE, answer = 0x55;
    const auto member =
        slot<IDispatch**, IDispatch**, VARIANT_BOOL*, BSTR*, IDispatch**, IDispatch**, VARIANT_BOOL*>(
            L"Ctl_Argument");
    EXPECT_EQ(S_OK, member(divers.get(), &variables[0], &variables[1], &isRequired, &message, &variables[2],
                           &variables[3], &answer));
    EXPECT_EQ(VARIANT_TRUE, answer);
    EXPECT_EQ((Texts{L"Martin", L"Dupont"}), captions());
    EXPECT_EQ(nullptr, variables[1]);
    clearing.Release();
    EXPECT_EQ(0, clearing.references());
}

}  // namespace
}  // namespace vorla::test
