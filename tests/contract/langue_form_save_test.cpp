// Texts of forms written into a language file, and read back.
#include <random>

#include "contract/langue_form_fixture.h"
#include "support/import_patch.h"

namespace vorla::test {
namespace {

class LangueSaving : public LangueForms {
protected:
    void save(Form& form, const wchar_t* language) {
        run(L"LngFormSave", {object(&form.form), text(language)});
    }
};

TEST_F(LangueSaving, whatAFormSaysGoesIntoItsSection) {
    const auto file =
        languageFile(L"NEW",
                     L"[System]\r\nNameISO=New\r\n[frmMain]\r\ncmdOK#Caption=old\r\nother#Caption=stays\r\n"
                     L"blank#Caption=stays too\r\n[Messages]\r\nm=message\r\n");
    select(L"ENG");
    Form form;
    form.add(L"CommandButton", L"cmdOK", L"&OK")
        .property(L"ToolTipText", text(L"Go\r\non"))
        .property(L"Index", Variant());
    form.add(L"TextBox", L"txtName").property(L"Text", text(L"a=b")).property(L"ToolTipText", text(L""));
    form.add(L"OptionButton", L"optMode", L"Simple").property(L"Index", short16(0));
    form.add(L"OptionButton", L"optMode", L"Avancé").property(L"Index", short16(32767));
    form.add(L"Label", L"blank", L"");
    form.add(L"Label", L"number").property(L"Caption", short16(12));
    form.add(L"Label", L"null").property(L"Caption", nullValue());
    form.add(L"Line", L"lin");
    form.complete();
    save(form, L"NEW");
    EXPECT_EQ(
        "[System]\r\nNameISO=New\r\n[frmMain]\r\ncmdOK#Caption=&OK\r\nother#Caption=stays\r\n"
        "blank#Caption=stays "
        "too\r\nfrmMain#Caption=Fiche\r\ncmdOK#ToolTipText=Go\xFF{l}on\r\ntxtName#Text=a=b\r\n"
        "optMode#0#Caption=Simple\r\noptMode#32767#Caption=Avanc\xE9\r\nnumber#Caption=12\r\n"
        "[Messages]\r\nm=message\r\n",
        bytesOf(file));
    // The other language is still in use, and has no file.
    EXPECT_EQ(languages + L"\\ENG.lng", textOf(L"LngGetFileName"));
    EXPECT_FALSE(TemporaryFolder::exists(languages + L"\\ENG.lng"));
    form.expectNothingHeld();
    // Nothing on the form has changed.
    EXPECT_EQ(0u, form.form.logged(L"put") + form.controls[0].logged(L"put") + form.label.log().size());
}

TEST_F(LangueSaving, methodsAreNotCalledForTheirNames) {
    select(L"ENG");
    Form form;
    int calls = 0;
    auto& control = form.add(L"Wizard", L"wiz");
    for (const wchar_t* name : {L"Caption", L"ToolTipText"}) {
        control.method(name, [&calls](const ScriptedObject::Call&) {
            ++calls;
            return Variant(text(L"done"));
        });
    }
    control.property(L"Text", text(L"x"));
    form.complete();
    save(form, L"NEW");
    EXPECT_EQ(0, calls);
    EXPECT_EQ("[frmMain]\r\nfrmMain#Caption=Fiche\r\nwiz#Text=x\r\n", bytesOf(languages + L"\\NEW.lng"));
}

TEST_F(LangueSaving, aFileIsMadeByItsFirstText) {
    select(L"ENG");
    Form form;
    form.complete();
    form.form.value(L"Caption") = text(L"");
    save(form, L"NEW");
    EXPECT_FALSE(TemporaryFolder::exists(languages + L"\\NEW.lng"));
    form.form.value(L"Caption") = text(L"x");
    save(form, L"NEW");
    EXPECT_EQ("[frmMain]\r\nfrmMain#Caption=x\r\n", bytesOf(languages + L"\\NEW.lng"));
    // Also without a title bar: the property counts, not what is visible.
    Form bare(WS_POPUP);
    bare.complete();
    save(bare, L"BARE");
    EXPECT_EQ("[frmMain]\r\nfrmMain#Caption=Fiche\r\n", bytesOf(languages + L"\\BARE.lng"));
}

TEST_F(LangueSaving, whatReachesTheSystem) {
    CallLog log;
    Intercept<decltype(WritePrivateProfileStringA)> write(component.module(), "kernel32.dll",
                                                          "WritePrivateProfileStringA", &log);
    write.answer([](LPCSTR, LPCSTR, LPCSTR, LPCSTR) { return FALSE; });
    Form form;
    form.complete();
    const auto written = [](const char* file) {
        return CallLog{
            std::string("WritePrivateProfileStringA(\"frmMain\", \"frmMain#Caption\", \"Fiche\", \"") + file +
            "\")"};
    };
    // The language needs a name. No language has to be selected, but then the file has no folder.
    save(form, L"");
    EXPECT_TRUE(form.form.log().empty());
    save(form, L"NEW");
    EXPECT_EQ(written("NEW.lng"), log);
    run(L"LngSetFileName", {text(L"C:\\App"), text(L"ENG")});
    log.clear();
    save(form, L"NEW");
    EXPECT_EQ(written("C:\\App\\Languages\\NEW.lng"), log);
    // In the folder of the language in use, wherever that is. When no language is selected, the folder of the
    // language files does not count.
    run(L"LngSetFileName", {text(L"C:\\App"), text(L"nord\\ENG")});
    log.clear();
    save(form, L"NEW");
    EXPECT_EQ(written("C:\\App\\Languages\\nord\\NEW.lng"), log);
    expectResult(call(L"LngSetLanguage", {text(L"")}), false);
    log.clear();
    save(form, L"NEW");
    EXPECT_EQ(written("NEW.lng"), log);
    log.clear();
    run(L"LngFormSave", {nothing(), text(L"NEW")});
    EXPECT_EQ(CallLog(), log);
}

// The text of a label after it was saved and loaded again; "design" when nothing is left of it.
class LangueRoundTrip : public LangueSaving {
protected:
    std::vector<std::wstring> thereAndBack(const std::vector<std::wstring>& texts) {
        select(L"ENG");
        Form saved, loaded;
        for (std::size_t i = 0; i < texts.size(); ++i) {
            saved.add(L"Label", L"lbl", texts[i].c_str()).property(L"Index", short16(static_cast<int>(i)));
            saved.controls.back().value(L"Caption") = text(texts[i]);
            loaded.add(L"Label", L"lbl", L"design").property(L"Index", short16(static_cast<int>(i)));
        }
        saved.complete();
        loaded.complete();
        save(saved, L"NEW");
        expectResult(call(L"LngSetLanguage", {text(L"NEW")}), true);
        load(loaded);
        EXPECT_EQ(L"Fiche", textIn(loaded.form, L"Caption"));
        std::vector<std::wstring> back;
        for (auto& control : loaded.controls) back.push_back(textIn(control, L"Caption"));
        return back;
    }
};

TEST_F(LangueRoundTrip, textsThatTheFormatHolds) {
    const std::vector<std::wstring> texts = {L"x",
                                             L"a\r\nb",
                                             L"\r\n",
                                             L"\r",
                                             L"\n\r\n\r",
                                             L"a=b",
                                             L"=",
                                             L"==a=",
                                             L"a\"b",
                                             L"\"a",
                                             L"a'",
                                             L"\"",
                                             L"'",
                                             L"\"a'",
                                             L"ÿ",
                                             L"ÿÿ{",
                                             L"aÿ\r\nÿ",
                                             L"ÿ {l}",
                                             L";x",
                                             L"[x]",
                                             L"#",
                                             L"a#b",
                                             L"&OK && %%1",
                                             L"a  b",
                                             L"a\tb",
                                             L"\u00A0a\u00A0",
                                             L"\r\n\ta\t\r\n",
                                             L"\r\n a \r\n",
                                             L"été €œ",
                                             L"«a b»",
                                             L"{l}",
                                             std::wstring(1025, L'x'),
                                             std::wstring(1021, L'y') + L"\r\n"};
    const auto back = thereAndBack(texts);
    for (std::size_t i = 0; i < texts.size(); ++i) EXPECT_EQ(texts[i], back[i]) << i;
}

TEST_F(LangueRoundTrip, textsThatItDoesNotHold) {
    struct Row {
        std::wstring text, back;
    };
    const std::vector<Row> rows = {
        // The reader drops surrounding blanks, and quotes around the whole text.
        {L" a", L"a"},
        {L"a ", L"a"},
        {L"  a b  ", L"a b"},
        {L"   ", L"design"},
        {L"\"a\"", L"a"},
        {L"'a'", L"a"},
        {L"\" a \"", L"a"},
        {L"\"\"", L"design"},
        {L"\"'a'\"", L"'a'"},
        // The system, which reads and writes the file, drops tabs around a text. The trimming afterwards does
        // not, so tabs inside quotes stay.
        {L"\ta", L"a"},
        {L"a\t", L"a"},
        {L"\t a b \t", L"a b"},
        {L"\t", L"design"},
        {L"\t\"a\"\t", L"a"},
        {L"\"\ta\t\"", L"\ta\t"},
        {L"\" \ta\t \"", L"\ta\t"},
        {L"\t\r\n\t", L"\r\n"},
        // What the escapes look like.
        {L"ÿ{l}", L"\r\n"},
        {L"aÿ{e}b", L"a=b"},
        // What the code page lacks.
        {L"漢字", L"??"},
        {L"a\u0416b", L"a?b"},
        // What does not fit into the reader's buffer, groups included.
        {std::wstring(1026, L'x'), std::wstring(1025, L'x')},
        {std::wstring(5000, L'x'), std::wstring(1025, L'x')},
        {std::wstring(1024, L'x') + L"\r\n", std::wstring(1024, L'x') + L"ÿ"},
        {std::wstring(1022, L'x') + L"\r\n", std::wstring(1022, L'x') + L"ÿ{l"},
        // A NUL ends every text on its way to the system.
        {std::wstring(L"a\0b", 3), L"a"},
        {std::wstring(L"\0b", 2), L"design"},
    };
    std::vector<std::wstring> texts;
    for (const Row& row : rows) texts.push_back(row.text);
    const auto back = thereAndBack(texts);
    for (std::size_t i = 0; i < rows.size(); ++i) EXPECT_EQ(rows[i].back, back[i]) << i;
}

// The way of a text through the file, one step at a time.
std::wstring afterTheFile(std::wstring text) {
    const auto replace = [&text](const wchar_t* sought, const wchar_t* by) {
        const std::wstring what = sought, with = by;
        for (auto p = text.find(what); p != text.npos; p = text.find(what, p + with.size()))
            text.replace(p, what.size(), with);
    };
    const auto trim = [&text] {
        while (!text.empty() && text.front() == L' ') text.erase(0, 1);
        while (!text.empty() && text.back() == L' ') text.pop_back();
    };
    replace(L"\r\n", L"ÿ{l}");
    replace(L"\r", L"ÿ{r}");
    replace(L"\n", L"ÿ{f}");
    trim();
    const bool quoted =
        text.size() > 1 && text.front() == text.back() && (text.front() == L'"' || text.front() == L'\'');
    if (quoted) text = text.substr(1, text.size() - 2);
    text = text.substr(0, 1025);
    trim();
    if (text.empty()) return L"design";
    replace(L"ÿ{l}", L"\r\n");
    replace(L"ÿ{r}", L"\r");
    replace(L"ÿ{f}", L"\n");
    replace(L"ÿ{e}", L"=");
    return text;
}

TEST_F(LangueRoundTrip, anyTexts) {
    constexpr std::wstring_view alphabet = L"ab  é\r\n\r\nÿÿ{lrfe}}==\"\"'';[]#&%";
    std::mt19937 random(20010203);
    std::vector<std::wstring> texts, expected;
    int unchanged = 0, changed = 0;
    for (int i = 0; i < 500; ++i) {
        std::wstring text(1 + random() % (i % 50 == 0 ? 1200 : 12), L' ');
        for (wchar_t& character : text) character = alphabet[random() % alphabet.size()];
        texts.push_back(text);
        expected.push_back(afterTheFile(text));
        ++(texts.back() == expected.back() ? unchanged : changed);
    }
    EXPECT_GT(unchanged, 200);
    EXPECT_GT(changed, 50);
    const auto back = thereAndBack(texts);
    for (std::size_t i = 0; i < texts.size(); ++i) EXPECT_EQ(expected[i], back[i]) << narrow(texts[i]);
}

}  // namespace
}  // namespace vorla::test
