// VorlaDivers, searches: in list boxes with real windows, trees, arrays of all kinds and collections, and in
// hosts that change what is searched.
#include <algorithm>

#include "contract/divers_fixture.h"
#include "support/arrays.h"
#include "support/asked_object.h"
#include "support/forms/host.h"
#include "support/forms/multi_list_box.h"
#include "support/import_patch.h"
#include "support/memory_count.h"

namespace vorla::test {
namespace {

const Variant none = long32(-1);

class DiversLists : public Divers {
protected:
    Outcome find(IDispatch* list, std::initializer_list<Variant> more) {
        Arguments arguments({object(list)});
        arguments.owned.insert(arguments.owned.end(), more);
        return call(L"ListeCherche", std::move(arguments));
    }

    void add(forms::Object& list, std::initializer_list<const wchar_t*> lines) {
        BoundObject added((HostObject(&list)));
        for (const auto* line : lines) added.call(L"AddItem", TextView(line));
    }

    forms::Host host;
    forms::Form& form = host.load(L"frmMain");
};

TEST_F(DiversLists, aLineIsFoundInRealWindows) {
    auto& list = form.add<forms::ListBox>({.name = L"lst"});
    auto& combo = form.add<forms::ComboBox>({.name = L"cbo"});
    auto& multi = form.add<forms::MultiListBox>({.name = L"lstMulti"});
    for (forms::Object* each : std::initializer_list<forms::Object*>{&list, &combo, &multi}) {
        add(*each, {L"Abc", L"ab", L"Été", L"AB", L"NOËL 1", L"noël"});
        expectResult(find(each, {text(L"ab")}), long32(1));
        expectResult(find(each, {text(L"AB")}), long32(1));
        expectResult(find(each, {text(L"AB"), false, true}), long32(3));
        expectResult(find(each, {text(L"ab"), false, false, false}), long32(0));
        expectResult(find(each, {text(L"ab"), false, true, false}), long32(1));
        expectResult(find(each, {text(L"abcd"), false, false, false}), none);
        expectResult(find(each, {text(L"ÉTÉ")}), long32(2));
        expectResult(find(each, {text(L"été"), false, true}), none);
        expectResult(find(each, {text(L"NOËL")}), long32(5));
        expectResult(find(each, {text(L"noËl"), false, false, false}), long32(4));
        expectResult(find(each, {text(L"noêl")}), none);
        expectResult(find(each, {text(L"b")}), none);
        expectResult(find(each, {text(L"")}), none);
    }
}

TEST_F(DiversLists, beyond32767Lines) {
    auto& list = form.add<forms::MultiListBox>({.name = L"lst"});
    list.fill(40'000, [](std::int32_t line) { return L"Ligne " + std::to_wstring(line); });
    expectResult(find(&list, {text(L"ligne 39999")}), long32(39'999));
    expectResult(find(&list, {text(L"ligne 3276"), missing(), missing(), false}), long32(3'276));
    expectResult(find(&list, {text(L"ligne 40000")}), none);
}

TEST_F(DiversLists, itemDataAreNumbers) {
    auto& list = form.add<forms::MultiListBox>({.name = L"lst"});
    add(list, {L"un", L"deux", L"trois"});
    BoundObject data((HostObject(&list)));
    data.put(L"ItemData", std::int32_t{0}, std::int32_t{7});
    data.put(L"ItemData", std::int32_t{1}, std::int32_t{-2147483647});
    expectResult(find(&list, {text(L"7"), true}), long32(0));
    expectResult(find(&list, {text(L" 7 "), true}), long32(0));
    expectResult(find(&list, {text(L"-2147483647"), true}), long32(1));
    expectResult(find(&list, {text(L"0"), true}), long32(2));
    expectResult(find(&list, {text(L"8"), true}), none);
    expectResult(find(&list, {text(L"sept"), true}), none);
    expectResult(find(&list, {text(L"2147483648"), true}), none);
    expectResult(find(&list, {text(L""), true}), none);
}

TEST_F(DiversLists, fieldsOfALine) {
    ScriptedList list({text(L"A\tUn;X"), text(L"B\tDeux;Y"), text(L"C"), text(L"")});
    const Variant tab = text(L"\t");
    expectResult(find(&list, {text(L"deux;y"), false, false, true, tab, octet(2)}), long32(1));
    expectResult(find(&list, {text(L"deux"), false, false, true, tab, octet(2)}), none);
    expectResult(find(&list, {text(L"deux"), false, false, false, tab, octet(2)}), long32(1));
    expectResult(find(&list, {text(L"Deux"), false, true, false, tab, octet(2)}), long32(1));
    expectResult(find(&list, {text(L"deux"), false, true, false, tab, octet(2)}), none);
    // An empty separator is a tab, and so is one that is left out.
    expectResult(find(&list, {text(L"deux;y"), false, false, true, text(L""), octet(2)}), long32(1));
    Arguments named({object(&list), text(L"deux;y")});
    named.named(6, octet(2));
    expectResult(call(L"ListeCherche", named), long32(1));
    expectResult(find(&list, {text(L"y"), false, false, true, text(L";"), octet(2)}), long32(1));
    expectResult(find(&list, {text(L"c"), false, false, true, tab, octet(1)}), long32(2));
    expectResult(find(&list, {text(L"y"), false, false, true, tab, octet(255)}), none);
    // The line is in lower case by the time that it is cut, and the separator is not.
    ScriptedList capitals({text(L"aXb"), text(L"axb")});
    expectResult(find(&capitals, {text(L"b"), false, false, true, text(L"X"), octet(2)}), none);
    expectResult(find(&capitals, {text(L"b"), false, true, true, text(L"X"), octet(2)}), long32(0));
    expectResult(find(&capitals, {text(L"b"), false, false, true, text(L"x"), octet(2)}), long32(0));
}

TEST_F(DiversLists, linesThatAreNoText) {
    ScriptedList list({long32(5), true, nullValue(), text(L"x")});
    expectResult(find(&list, {text(L"5")}), long32(0));
    expectResult(find(&list, {text(isFrench() ? L"vrai" : L"true")}), long32(1));
    // Null has no text, so nothing after it is found.
    expectResult(find(&list, {text(L"x")}), none);
}

TEST_F(DiversLists, whatIsNoListFindsNothing) {
    ScriptedObject other;
    other.property(L"ListCount", text(L"beaucoup"));
    expectResult(find(&other, {text(L"x")}), none);
    expectResult(call(L"ListeCherche", {nothing(), text(L"x")}), none);
    EXPECT_EQ(DISP_E_TYPEMISMATCH, call(L"ListeCherche", {long32(5), text(L"x")}).code);
    EXPECT_EQ(0, other.references());
}

TEST_F(DiversLists, theListShrinksUnderTheSearch) {
    ScriptedObject list;
    std::vector<Variant> lines(10, text(L"autre"));
    list.property(L"ListCount", std::int16_t{10}).method(L"List", [&](const HostCall& asked) {
        const auto index = static_cast<std::size_t>(asked.argument(0).raw().lVal);
        if (index >= lines.size()) throw RuntimeError(std::uint16_t{381});
        const auto line = lines[index];
        lines.resize(index < 3 ? lines.size() : 0);
        return line;
    });
    expectResult(find(&list, {text(L"x")}), none);
    EXPECT_EQ(5, std::count(list.log().begin(), list.log().end(), L"get List"));
    EXPECT_EQ(0, list.references());
}

TEST_F(DiversLists, theHostChangesItsOwnVariables) {
    // The search goes on in the list and with the key that it was given.
    ScriptedList other({text(L"rien")});
    ScriptedObject list;
    Variant variable = object(&list), key = text(L"cherché");
    list.property(L"ListCount", std::int16_t{2}).method(L"List", [&](const HostCall& asked) {
        variable = object(&other);
        key = text(L"autre chose, plus long qu'avant");
        return text(asked.argument(0).raw().lVal == 1 ? L"Cherché" : L"x");
    });
    expectResult(call(L"ListeCherche", {byReference(variable), byReference(key)}), long32(1));
    variable = Variant();
    EXPECT_EQ(0, list.references());
}

TEST_F(DiversLists, eachFailureOfTheHostEndsTheSearch) {
    for (const bool onItemData : {false, true}) {
        const auto right = long32(2);
        const Variant key = text(onItemData ? L"30" : L"trois");
        for (int number = 1; number <= 5; ++number) {
            ScriptedList list({text(L"un"), text(L"deux"), text(L"trois")});
            list.failCallWithNumber(number, 438);
            // The count, and three lines.
            expectResult(find(&list, {key, onItemData}), number <= 4 ? none : right);
            ScriptedList lookedUp({text(L"un"), text(L"deux"), text(L"trois")});
            lookedUp.failLookup(number, DISP_E_UNKNOWNNAME);
            expectResult(find(&lookedUp, {key, onItemData}), number <= 2 ? none : right);
        }
    }
}

TEST_F(DiversLists, aRangeOfLinesIsSelected) {
    auto& list = form.add<forms::MultiListBox>({.name = L"lst"});
    list.fill(10, [](std::int32_t line) { return std::to_wstring(line); });
    const auto selected = [&] {
        std::string lines;
        BoundObject asked((HostObject(&list)));
        for (std::int32_t i = 0; i < 10; ++i) lines += asked.getAs<bool>(L"Selected", i) ? 'x' : '.';
        return lines;
    };
    const auto range = [&](Variant first, Variant last, bool state = true) {
        const auto outcome =
            call(L"ListeSelectRange", {object(&list), state, std::move(first), std::move(last)});
        EXPECT_EQ(S_OK, outcome.code);
        EXPECT_EQ(VT_EMPTY, outcome.result.view().type());
    };
    range(long32(2), long32(4));
    EXPECT_EQ("..xxx.....", selected());
    range(long32(3), long32(3), false);
    EXPECT_EQ("..x.x.....", selected());
    std::int32_t last = 5;
    range(long32(8), byReference(VT_I4, &last));
    EXPECT_EQ(9, last);
    EXPECT_EQ("..x.x...xx", selected());
    range(missing(), missing(), false);
    EXPECT_EQ("..........", selected());
    EXPECT_EQ(S_OK, call(L"ListeSelectRange", {object(&list), true}).code);
    EXPECT_EQ("xxxxxxxxxx", selected());
    // A script's variable changes too, and a range of a single line stays.
    Variant variable = long32(-5);
    range(long32(0), byReference(variable), false);
    EXPECT_EQ(describe(long32(9).raw()), describe(variable.raw()));
    variable = long32(0);
    range(long32(0), byReference(variable));
    EXPECT_EQ(describe(long32(0).raw()), describe(variable.raw()));
    EXPECT_EQ("x.........", selected());
}

TEST_F(DiversLists, rangesOfLinesAreSixteenBits) {
    auto& list = form.add<forms::MultiListBox>({.name = L"lst"});
    list.fill(40'000, [](std::int32_t) { return Text(); });
    LPARAM range = 0;
    WPARAM state = 99;
    Intercept<decltype(SendMessageA)> sent(component.module(), "user32.dll", "SendMessageA");
    sent.answer([&](HWND window, UINT message, WPARAM first, LPARAM second) {
        EXPECT_EQ(list.handle(), window);
        EXPECT_EQ(UINT{LB_SELITEMRANGE}, message);
        state = first;
        range = second;
        return sent.callOriginal(window, message, first, second);
    });
    std::int32_t first = 39'990, last = -1;
    IDispatch* variable = &list;
    EXPECT_EQ(S_OK, slot(3, &variable, VARIANT_TRUE, &first, &last));
    EXPECT_EQ(39'999, last);
    EXPECT_EQ(TRUE, static_cast<BOOL>(state));
    EXPECT_EQ(39'990, LOWORD(range));
    EXPECT_EQ(39'999, HIWORD(range));
    EXPECT_EQ(10, list.getAs<std::int32_t>(L"SelCount"));
    // 65,537 is line 1 in 16 bits.
    first = 65'537, last = 65'538;
    EXPECT_EQ(S_OK, slot(3, &variable, VARIANT_FALSE, &first, &last));
    EXPECT_EQ(0u, state);
    EXPECT_EQ(1, LOWORD(range));
    EXPECT_EQ(2, HIWORD(range));
}

TEST_F(DiversLists, selectingReportsTheHostsFailures) {
    expectError(call(L"ListeSelectRange", {nothing(), true}), 91);
    ScriptedObject list;
    expectError(call(L"ListeSelectRange", {object(&list), true}), 438);
    list.property(L"ListCount", std::int16_t{0}).property(L"hwnd", text(L"fenêtre"));
    expectError(call(L"ListeSelectRange", {object(&list), true}), 13);
    // No window has this handle, so nobody gets the message.
    list.value(L"hwnd") = long32(0x7FFFFFF1);
    std::int32_t last = -1;
    EXPECT_EQ(S_OK,
              call(L"ListeSelectRange", {object(&list), true, long32(0), byReference(VT_I4, &last)}).code);
    EXPECT_EQ(-1, last);
    list.value(L"ListCount") = short16(4);
    for (int number = 1; number <= 2; ++number) {
        list.failCallWithNumber(number, 380);
        expectError(call(L"ListeSelectRange", {object(&list), true}), 380);
    }
    EXPECT_EQ(0, list.references());
}

using DiversTrees = Divers;

TEST_F(DiversTrees, aNodeIsFoundByItsKeyOrItsText) {
    for (const bool hasItem : {true, false}) {
        ScriptedTree tree(12, hasItem);
        const auto find = [&](const wchar_t* value, std::initializer_list<Variant> more = {}) {
            Arguments arguments({object(&tree), text(value)});
            arguments.owned.insert(arguments.owned.end(), more);
            return call(L"TreeCherche", std::move(arguments));
        };
        expectResult(find(L"k1"), long32(1));
        expectResult(find(L"K12"), long32(12));
        expectResult(find(L"k12", {false, true}), none);
        expectResult(find(L"K1", {false, true, false}), long32(1));
        expectResult(find(L"k1x", {false, false, false}), none);
        expectResult(find(L"text 3"), none);
        expectResult(find(L"text 3", {true}), long32(3));
        expectResult(find(L"Text 3", {true, true}), long32(3));
        expectResult(find(L"text 1", {true, false, false}), long32(1));
        expectResult(find(L"text 11", {true, false, false}), long32(11));
        expectResult(find(L""), none);
    }
    ScriptedTree empty(0);
    expectResult(call(L"TreeCherche", {object(&empty), text(L"x")}), none);
    expectResult(call(L"TreeCherche", {nothing(), text(L"")}), none);
}

TEST_F(DiversTrees, aSearchReportsTheHostsFailures) {
    expectError(call(L"TreeCherche", {nothing(), text(L"x")}), 91);
    ScriptedObject other;
    expectError(call(L"TreeCherche", {object(&other), text(L"x")}), 438);
    other.property(L"Nodes", long32(5));
    expectError(call(L"TreeCherche", {object(&other), text(L"x")}), 424);
    ScriptedTree tree(2);
    tree.nodes.value(L"Count") = short16(3);
    expectError(call(L"TreeCherche", {object(&tree), text(L"x")}), 35601);
    tree.node(1).value(L"Key") = nullValue();
    expectError(call(L"TreeCherche", {object(&tree), text(L"x")}), 94);
    tree.node(1).value(L"Key") = text(L"K1");
    for (int number = 1; number <= 3; ++number) {
        tree.nodes.failCallWithNumber(number, 380);
        expectError(call(L"TreeCherche", {object(&tree), text(L"K2")}), 380);
    }
    tree.node(2).failCallWithNumber(1, 380);
    expectError(call(L"TreeCherche", {object(&tree), text(L"K2")}), 380);
    tree.node(2).failLookup(1, DISP_E_UNKNOWNNAME);
    expectError(call(L"TreeCherche", {object(&tree), text(L"K2")}), 438);
    expectResult(call(L"TreeCherche", {object(&tree), text(L"K2")}), long32(2));
}

TEST_F(DiversTrees, aNodeExistsWhenItsTextCanBeRead) {
    ScriptedTree tree(3);
    const auto exists = [&](const wchar_t* key) { return call(L"IsNodeExist", {object(&tree), text(key)}); };
    expectResult(exists(L"K3"), true);
    expectResult(exists(L"k3"), false);
    expectResult(exists(L"K4"), false);
    expectResult(exists(L""), false);
    tree.node(3).failCallWithNumber(1, 438);
    expectResult(exists(L"K3"), false);
    tree.failLookup(1, DISP_E_UNKNOWNNAME);
    expectResult(exists(L"K3"), false);
    ScriptedTree byDefault(1, false);
    expectResult(call(L"IsNodeExist", {object(&byDefault), text(L"K1")}), true);
    expectResult(call(L"IsNodeExist", {nothing(), text(L"K1")}), false);
    IDispatch* variable = &tree;
    VARIANT_BOOL result = 7;
    EXPECT_EQ(S_OK, slot(14, &variable, Bstr(TextView(L"K1")).get(), &result));
    EXPECT_EQ(VARIANT_TRUE, result);
}

TEST_F(DiversTrees, aMemberExistsWhenItemAnswers) {
    ScriptedObject collection;
    collection.method(L"Item", [](const HostCall& asked) {
        EXPECT_EQ(VT_BSTR, asked.argument(0).type());
        if (viewOf(asked.argument(0).raw().bstrVal) != L"clé") throw RuntimeError(std::uint16_t{5});
        return Variant();
    });
    const auto exists = [&](const Variant& key) {
        return call(L"IsMemberExist", {object(&collection), key});
    };
    expectResult(exists(text(L"clé")), true);
    expectResult(exists(text(L"autre")), false);
    Variant variable = text(L"clé");
    expectResult(exists(byReference(variable)), true);
    collection.failCall(1, E_ACCESSDENIED);
    expectResult(exists(text(L"clé")), false);
    collection.failLookup(1, DISP_E_UNKNOWNNAME);
    expectResult(exists(text(L"clé")), false);
    ScriptedObject other;
    expectResult(call(L"IsMemberExist", {object(&other), text(L"clé")}), false);
    expectResult(call(L"IsMemberExist", {nothing(), text(L"clé")}), false);
    EXPECT_EQ(0, collection.references());
}

class DiversArrays : public Divers {
protected:
    Outcome find(const Variant& array, const Variant& key) { return call(L"TabCherche", {array, key}); }
};

TEST_F(DiversArrays, numbersAreFoundInElementsOfEveryType) {
    const std::vector<Variant> numbers = {long32(15), long32(5), long32(0), long32(5)};
    for (const int type : {VT_I1, VT_UI1, VT_I2, VT_UI2, VT_I4, VT_UI4, VT_INT, VT_UINT, VT_I8, VT_UI8, VT_R4,
                           VT_R8, VT_CY, VT_DATE, VT_DECIMAL, VT_VARIANT}) {
        const auto array = arrayOf(static_cast<VARTYPE>(type), 0, numbers);
        for (const Variant& five : {short16(5), long32(5), single(5), Variant(5.0), Variant(Currency{50000})})
            expectResult(find(array, five), long32(1), "type " + std::to_string(type));
        expectResult(find(array, long32(0)), long32(2), "type " + std::to_string(type));
        expectResult(find(array, long32(6)), none, "type " + std::to_string(type));
        expectResult(find(array, 5.5), none, "type " + std::to_string(type));
    }
}

TEST_F(DiversArrays, anyOtherKeyIsText) {
    const auto words = arrayOf(VT_BSTR, 0, {text(L""), text(L"abc"), text(L"Abc"), text(L"12")});
    expectResult(find(words, text(L"Ab")), long32(2));
    expectResult(find(words, text(L"ab")), long32(1));
    expectResult(find(words, text(L"Abcd")), none);
    expectResult(find(words, text(L"1")), long32(3));
    // A text is never equal to a number. A byte is text, and so is a boolean.
    expectResult(find(words, long32(12)), none);
    expectResult(find(words, octet(1)), long32(3));
    const auto numbers = arrayOf(VT_I4, 0, {long32(7), long32(123)});
    expectResult(find(numbers, text(L"12")), long32(1));
    expectResult(find(numbers, octet(12)), long32(1));
    const auto values = arrayOf(VT_VARIANT, 0, {false, true, text(L"x")});
    expectResult(find(values, true), long32(1));
    expectResult(find(values, text(isFrench() ? L"Vr" : L"Tr")), long32(1));
}

TEST_F(DiversArrays, keysThatAreNothing) {
    const auto words = arrayOf(VT_VARIANT, 0, {text(L""), Variant()});
    for (const Variant& key : {Variant(), nullValue(), text(L""), nothing(), missing()})
        expectResult(find(words, key), none);
}

TEST_F(DiversArrays, theSearchBeginsAtIndexZero) {
    const std::vector<Variant> numbers = {long32(1), long32(2), long32(3)};
    expectResult(find(arrayOf(VT_I4, -2, numbers), long32(3)), long32(0));
    expectResult(find(arrayOf(VT_I4, -2, numbers), long32(1)), none);
    expectResult(find(arrayOf(VT_I4, -3, numbers), long32(3)), none);
    expectResult(find(arrayOf(VT_I4, 1, numbers), long32(1)), none);
    expectResult(find(arrayOf(VT_I4, 0, {}), long32(1)), none);
}

TEST_F(DiversArrays, whatIsNoPlainArrayFindsNothing) {
    expectResult(find(unallocatedArray(VT_I4), long32(0)), none);
    expectResult(find(table(VT_I4), long32(0)), none);
    expectResult(find(table(VT_VARIANT), long32(0)), none);
    for (const Variant& value : {long32(5), text(L"5"), Variant(), nullValue(), nothing()})
        expectResult(find(value, long32(5)), none);
    // Its description says one type and its variant another.
    auto mistyped = arrayOf(VT_I2, 0, {short16(5), short16(6)});
    mistyped.put()->vt = VT_ARRAY | VT_I4;
    expectResult(find(mistyped, long32(5)), none);
    mistyped.put()->vt = VT_ARRAY | VT_I2;
}

TEST_F(DiversArrays, theFirstFailureEndsTheSearch) {
    const auto values = arrayOf(VT_VARIANT, 0, {long32(1), nullValue(), long32(5), text(L"x")});
    // Null equals nothing, but has no text.
    expectResult(find(values, long32(5)), long32(2));
    expectResult(find(values, text(L"x")), none);
    const auto holdsNothing = arrayOf(VT_VARIANT, 0, {long32(1), nothing(), long32(5)});
    expectResult(find(holdsNothing, long32(1)), long32(0));
    expectResult(find(holdsNothing, long32(5)), none);
}

TEST_F(DiversArrays, byReferenceAndInVariables) {
    Variant array = arrayOf(VT_BSTR, 0, {text(L"un"), text(L"deux")}), key = text(L"deux");
    const Variant right = long32(1);
    expectResult(find(byReference(array), byReference(key)), right);
    expectResult(find(byReference(VT_ARRAY | VT_BSTR, &array.put()->parray), key), right);
    std::int32_t number = 7;
    const auto numbers = arrayOf(VT_I4, 0, {long32(1), long32(7)});
    expectResult(find(numbers, byReference(VT_I4, &number)), right);
    std::int32_t result = 99;
    EXPECT_EQ(S_OK, slot(5, array.raw(), key.raw(), &result));
    EXPECT_EQ(1, result);
    EXPECT_EQ(0u, array.raw().parray->cLocks);
}

TEST_F(DiversArrays, objectsStandForTheirDefaultProperty) {
    ScriptedObject five(long32(5)), word(text(L"abc"));
    const auto values = arrayOf(VT_VARIANT, 0, {object(&word), object(&five)});
    expectResult(find(values, long32(5)), long32(1));
    expectResult(find(values, text(L"ab")), long32(0));
    expectResult(find(values, object(&word)), long32(0));
    five.failCallWithNumber(1, 438);
    expectResult(find(values, long32(5)), none);
}

TEST_F(DiversArrays, theHostChangesTheSearchedVariable) {
    Variant array, key = text(L"cherché");
    AskedObject asked(text(L"x"), [&] {
        key = text(L"autre chose, plus long qu'avant");
        // The array is held: it can be neither freed nor resized.
        EXPECT_EQ(DISP_E_ARRAYISLOCKED, SafeArrayDestroy(array.raw().parray));
        SAFEARRAYBOUND smaller{1, 0};
        EXPECT_EQ(DISP_E_ARRAYISLOCKED, SafeArrayRedim(array.raw().parray, &smaller));
        // Its elements are the host's to change.
        LONG last = 2;
        const Variant found = text(L"cherché enfin");
        EXPECT_EQ(S_OK, SafeArrayPutElement(array.raw().parray, &last, const_cast<VARIANT*>(&found.raw())));
    });
    array = arrayOf(VT_VARIANT, 0, {object(&asked), text(L"y"), text(L"z")});
    expectResult(find(byReference(array), byReference(key)), long32(2));
    EXPECT_EQ(0u, array.raw().parray->cLocks);
    array = Variant();
    EXPECT_TRUE(asked.isGone());
}

TEST_F(DiversArrays, areLockedOnce) {
    const auto array = arrayOf(VT_I4, 0, std::vector<Variant>(1000, long32(1)));
    Intercept<decltype(SafeArrayAccessData)> locked(component.module(), "oleaut32.dll",
                                                    "SafeArrayAccessData");
    Intercept<decltype(SafeArrayUnaccessData)> unlocked(component.module(), "oleaut32.dll",
                                                        "SafeArrayUnaccessData");
    expectResult(find(array, long32(2)), none);
    EXPECT_EQ(1, locked.calls());
    EXPECT_EQ(1, unlocked.calls());
    locked.failCall(1, E_OUTOFMEMORY);
    expectResult(find(array, long32(1)), none);
    EXPECT_EQ(1, unlocked.calls());
}

TEST_F(DiversArrays, anArrayIsEmptyWhenItHasNoBounds) {
    const auto isEmpty = [&](const Variant& value) { return call(L"IsArrayEmpty", {value}); };
    ScriptedObject other;
    for (const Variant& value : {long32(5), text(L"abc"), Variant(), nullValue(), nothing(), object(&other)})
        expectResult(isEmpty(value), true);
    for (const int type : {VT_UI1, VT_I4, VT_BSTR, VT_VARIANT, VT_DISPATCH, VT_CY, VT_DATE}) {
        expectResult(isEmpty(unallocatedArray(static_cast<VARTYPE>(type))), true);
        expectResult(isEmpty(table(static_cast<VARTYPE>(type))), false);
    }
    expectResult(isEmpty(arrayOf(VT_I4, 0, {long32(1)})), false);
    expectResult(isEmpty(arrayOf(VT_I4, -5, {long32(1)})), false);
    // An array without elements has bounds.
    expectResult(isEmpty(arrayOf(VT_VARIANT, 0, {})), false);
    Variant variable = arrayOf(VT_BSTR, 1, {text(L"x")});
    expectResult(isEmpty(byReference(variable)), false);
    expectResult(isEmpty(byReference(VT_ARRAY | VT_BSTR, &variable.put()->parray)), false);
    VARIANT_BOOL result = 7;
    EXPECT_EQ(S_OK, slot(11, variable.put(), &result));
    EXPECT_EQ(VARIANT_FALSE, result);
    // Erased, as hosts do it.
    SafeArrayDestroy(std::exchange(variable.put()->parray, nullptr));
    expectResult(isEmpty(byReference(variable)), true);
    EXPECT_EQ(S_OK, slot(11, variable.put(), &result));
    EXPECT_EQ(VARIANT_TRUE, result);
}

}  // namespace
}  // namespace vorla::test
