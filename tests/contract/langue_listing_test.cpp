// The list of the languages that have files, and the host's lists that it fills.
#include <algorithm>
#include <map>

#include "contract/langue_fixture.h"
#include "support/import_patch.h"
#include "support/scripted_object.h"

namespace vorla::test {
namespace {

void expectUnallocated(const Outcome& outcome) {
    EXPECT_EQ(S_OK, outcome.code);
    EXPECT_EQ(VT_ARRAY | VT_BSTR, outcome.result.raw().vt);
    EXPECT_EQ(nullptr, outcome.result.raw().parray);
    // Hosts copy what they get.
    Variant copy;
    EXPECT_EQ(S_OK, VariantCopy(copy.put(), const_cast<VARIANT*>(&outcome.result.raw())));
}

Texts sorted(Texts texts) {
    std::sort(texts.begin(), texts.end());
    return texts;
}

class LangueListing : public Langue {
protected:
    LangueListing() {
        list.method(L"Clear",
                    [this](const ScriptedObject::Call&) {
                        added.clear();
                        return Variant();
                    })
            .method(L"AddItem", [this](const ScriptedObject::Call& arguments) {
                EXPECT_EQ(1u, arguments.count());
                EXPECT_EQ(VT_BSTR, arguments.argument(0).type());
                added.emplace_back(viewOf(arguments.argument(0).raw().bstrVal));
                return Variant();
            });
    }

    Outcome present(int kind) { return call(L"LngGetPresent", {long32(kind)}); }
    Outcome present(int kind, IDispatch* into) {
        return call(L"LngGetPresent", {long32(kind), object(into)});
    }

    static constexpr int names = 1, codes = 2, number = 3, listOfNames = 4, listOfCodes = 5;

    Texts added;
    ScriptedObject list;
};

TEST_F(LangueListing, nothingBeforeTheFolderIsKnown) {
    for (const int kind : {names, codes, number, listOfNames, listOfCodes, 0, 9}) {
        expectResult(present(kind), Variant());
        expectResult(present(kind, &list), Variant());
    }
    EXPECT_TRUE(list.log().empty());
    EXPECT_EQ(0, list.references());
}

TEST_F(LangueListing, languagesThatHaveFiles) {
    languageFile(L"ENG", L"[System]\r\nNameISO=English\r\n");
    languageFile(L"FRA", L"[System]\r\nNameISO=Français\u00FF{l}\r\n");
    languageFile(L"x.y", L"[System]\r\nVersion=1\r\n");
    application.file(L"Languages\\notes.txt", "[System]\r\nNameISO=none\r\n");
    application.folder(L"Languages\\DIR.lng");
    select(L"DEU");
    // The order is the system's, the same for names and codes. Names are not unescaped, and a missing one is
    // not taken from the default language.
    const auto found = textsIn(present(codes));
    EXPECT_EQ((Texts{L"ENG", L"FRA", L"x.y"}), sorted(found));
    Texts expectedNames;
    for (const auto& code : found)
        expectedNames.push_back(code == L"ENG" ? L"English" : code == L"FRA" ? L"Français\u00FF{l}" : L"");
    EXPECT_EQ(expectedNames, textsIn(present(names)));
    expectResult(present(number), short16(3));
    expectUnallocated(present(0));
    expectUnallocated(present(9));
    EXPECT_TRUE(list.log().empty());

    for (const int kind : {names, codes, number, 0, 9}) {
        added = {L"old"};
        present(kind, &list);
        EXPECT_EQ(Texts(), added) << kind;
    }
    for (const int kind : {listOfNames, listOfCodes}) {
        added = {L"old"};
        expectUnallocated(present(kind, &list));
        EXPECT_EQ(kind == listOfNames ? expectedNames : found, added);
        // A script's variable that holds the list.
        Variant variable = object(&list);
        expectUnallocated(call(L"LngGetPresent", {long32(kind), byReference(variable)}));
        EXPECT_EQ(&list, variable.raw().pdispVal);
    }
    // Each name is looked up once a call.
    list.clearLog();
    present(listOfCodes, &list);
    EXPECT_EQ(2u, list.logged(L"lookup"));
    EXPECT_EQ(4u, list.logged(L"call"));
    EXPECT_EQ(0, list.references());
    EXPECT_EQ(DISP_E_BADPARAMCOUNT, call(L"LngGetPresent").code);
}

TEST_F(LangueListing, aFolderWithoutLanguages) {
    select(L"ENG");
    for (int pass = 0; pass < 2; ++pass) {
        expectUnallocated(present(names));
        expectUnallocated(present(codes));
        expectResult(present(number), short16(0));
        added = {L"old"};
        expectUnallocated(present(listOfNames, &list));
        EXPECT_EQ(Texts(), added);
        // No list is given and there are no files.
        expectUnallocated(present(listOfNames));
        // Nor is there such a folder.
        run(L"LngSetFileName", {text(L"Q:\\rien"), text(L"ENG")});
    }
}

TEST_F(LangueListing, hiddenAndSystemFilesAreNoLanguages) {
    for (const wchar_t* code : {L"A", L"B", L"C", L"D", L"E", L"F"}) languageFile(code, L"");
    select(L"A");
    const auto asIf = [](WIN32_FIND_DATAA& found) {
        const std::map<char, DWORD> attributes{
            {'A', FILE_ATTRIBUTE_HIDDEN},    {'B', FILE_ATTRIBUTE_SYSTEM},
            {'C', FILE_ATTRIBUTE_DIRECTORY}, {'D', FILE_ATTRIBUTE_READONLY},
            {'E', FILE_ATTRIBUTE_ARCHIVE},   {'F', FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_HIDDEN}};
        found.dwFileAttributes = attributes.at(found.cFileName[0]);
    };
    Intercept<decltype(FindFirstFileA)> first(component.module(), "kernel32.dll", "FindFirstFileA");
    Intercept<decltype(FindNextFileA)> next(component.module(), "kernel32.dll", "FindNextFileA");
    first.answer([&](LPCSTR path, WIN32_FIND_DATAA* found) {
        const auto search = first.callOriginal(path, found);
        asIf(*found);
        return search;
    });
    next.answer([&](HANDLE search, WIN32_FIND_DATAA* found) {
        const auto more = next.callOriginal(search, found);
        if (more) asIf(*found);
        return more;
    });
    EXPECT_EQ((Texts{L"D", L"E"}), sorted(textsIn(present(codes))));
    expectResult(present(number), short16(2));
}

TEST_F(LangueListing, theCountOverflows) {
    languageFile(L"A", L"");
    select(L"A");
    Intercept<decltype(FindNextFileA)> next(component.module(), "kernel32.dll", "FindNextFileA");
    int left = 0;
    next.answer([&](HANDLE, WIN32_FIND_DATAA*) { return BOOL{left-- > 0}; });
    left = 32766;
    expectResult(present(number), short16(32767));
    left = 32766;
    EXPECT_EQ(32767u, textsIn(present(codes)).size());
    for (const int kind : {number, codes, 0}) {
        left = 32767;
        expectError(present(kind), 6);
    }
}

TEST_F(LangueListing, theListsFailuresReachTheCaller) {
    languageFile(L"ENG", L"");
    languageFile(L"FRA", L"");
    select(L"ENG");
    ScriptedObject dumb;
    for (const int kind : {names, codes, number, listOfNames, listOfCodes, 0})
        expectError(present(kind, &dumb), 438);
    ScriptedObject clearsOnly;
    clearsOnly.method(L"Clear", [](const ScriptedObject::Call&) { return Variant(); });
    EXPECT_EQ(2u, textsIn(present(codes, &clearsOnly)).size());
    expectError(present(listOfCodes, &clearsOnly), 438);
    for (const int kind : {listOfNames, listOfCodes}) {
        expectError(present(kind), 91);
        expectError(call(L"LngGetPresent", {long32(kind), nothing()}), 91);
        for (int failing = 1; failing <= 3; ++failing) {
            added = {L"old"};
            list.failCallWithNumber(failing, 381);
            expectError(present(kind, &list), 381);
            // Items that were added before the failure stay.
            EXPECT_EQ(failing == 3 ? 1u : failing == 2 ? 0u : 1u, added.size());
            EXPECT_EQ(failing == 1, added == Texts{L"old"});
        }
    }
    EXPECT_EQ(0, list.references() + dumb.references() + clearsOnly.references());
}

TEST_F(LangueListing, theHostMaySelectAnotherLanguageMeanwhile) {
    languageFile(L"ENG", L"[System]\r\nNameISO=English\r\n");
    languageFile(L"FRA", L"[System]\r\nNameISO=Français\r\n");
    select(L"ENG");
    ScriptedObject meddling;
    Texts seen;
    meddling.method(L"Clear", [](const ScriptedObject::Call&) { return Variant(); })
        .method(L"AddItem", [&](const ScriptedObject::Call& arguments) {
            seen.emplace_back(viewOf(arguments.argument(0).raw().bstrVal));
            run(L"LngSetFileName", {text(std::wstring(500, L'x')), text(L"y")});
            return Variant();
        });
    expectUnallocated(present(listOfNames, &meddling));
    EXPECT_EQ((Texts{L"English", L"Français"}), sorted(seen));
}

}  // namespace
}  // namespace vorla::test
