// Host objects driven by name: the calls that reach them, the results, and the number of calls.
#include <gtest/gtest.h>

#include <deque>

#include "frame/contract/enumerations.h"
#include "frame/host/bound_object.h"
#include "frame/host/globals.h"
#include "frame/host/host_items.h"
#include "frame/host/object_kinds.h"
#include "support/automation.h"
#include "support/memory_count.h"
#include "support/scripted_object.h"

namespace vorla::test {
namespace {

using Log = std::vector<std::wstring>;
using Walk = ScriptedObject::Walk;

TEST(BoundObject, readsAndWritesByName) {
    ScriptedObject control;
    control.property(L"Caption", text(L"avant")).property(L"Width", std::int32_t{1200});
    {
        BoundObject bound{HostObject(&control)};
        EXPECT_EQ(L"avant", bound.getAs<Text>(L"Caption"));
        bound.put(L"Caption", L"après");
        bound.put(L"Width", std::int16_t{7});
        EXPECT_EQ(7, bound.getAs<std::int32_t>(L"Width"));
    }
    EXPECT_EQ("vt 8 \"apr\\u00E8s\"", describe(control.value(L"Caption").raw()));
    EXPECT_EQ("vt 2 7", describe(control.value(L"Width").raw()));
    EXPECT_EQ(
        (Log{L"lookup Caption", L"get Caption", L"put Caption", L"lookup Width", L"put Width", L"get Width"}),
        control.log());
    EXPECT_EQ(0, control.references());
}

TEST(BoundObject, namesThatBeginAlikeAreNotTheSame) {
    ScriptedObject control;
    control.property(L"Scale", std::int16_t{1}).property(L"ScaleMode", std::int16_t{3});
    BoundObject bound{HostObject(&control)};
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(1, bound.getAs<std::int16_t>(L"Scale"));
        EXPECT_EQ(3, bound.getAs<std::int16_t>(L"ScaleMode"));
    }
    EXPECT_EQ(2u, control.logged(L"lookup"));
}

TEST(BoundObject, aNameIsLookedUpOnceHoweverOftenTheSourceHoldsIt) {
    static constexpr wchar_t here[] = L"Caption", there[] = L"Caption";
    static_assert(!Literal(here).isSame(there));
    ScriptedObject control;
    control.property(L"Caption", text(L"un"));
    BoundObject bound{HostObject(&control)};
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(L"un", bound.getAs<Text>(here));
        EXPECT_EQ(L"un", bound.getAs<Text>(there));
        EXPECT_TRUE(bound.knows(there));
    }
    EXPECT_EQ(1u, control.logged(L"lookup"));
    EXPECT_EQ(4u, control.logged(L"get"));
}

TEST(BoundObject, aLongListCostsOneCallForEachItemAndProperty) {
    constexpr std::int32_t lineCount = 10'000;
    ScriptedObject list;
    std::vector<Variant> lines, data;
    for (std::int32_t i = 0; i < lineCount; ++i) {
        lines.push_back(text(std::to_wstring(i)));
        data.push_back(Variant(i));
    }
    list.readOnly(L"ListCount", lineCount)
        .indexed(L"List", std::move(lines))
        .indexed(L"ItemData", std::move(data));
    BoundObject bound{HostObject(&list)};
    std::int64_t sum = 0;
    std::size_t digits = 0;
    const auto count = bound.getAs<std::int32_t>(L"ListCount");
    for (std::int32_t i = 0; i < count; ++i) {
        sum += bound.getAs<std::int32_t>(L"ItemData", i);
        digits += bound.getAs<Text>(L"List", i).size();
    }
    // 0 + 1 + … + 9999, and 10, 90, 900 and 9,000 numbers of one to four digits.
    EXPECT_EQ(49'995'000, sum);
    EXPECT_EQ(38'890u, digits);
    // Each name is looked up once, before its first read; the loop itself is reads and nothing else.
    EXPECT_EQ((Log{L"lookup ListCount", L"get ListCount", L"lookup ItemData", L"get ItemData", L"lookup List",
                   L"get List"}),
              Log(list.log().begin(), list.log().begin() + 6));
    EXPECT_EQ(3u, list.logged(L"lookup"));
    EXPECT_EQ(10'000u, list.logged(L"get List") - list.logged(L"get ListCount"));
    EXPECT_EQ(10'000u, list.logged(L"get ItemData"));
    EXPECT_EQ(20'004u, list.log().size());
}

TEST(BoundObject, indexedPropertiesTakeTheirIndicesFirst) {
    ScriptedObject list;
    list.indexed(L"Selected", {false, false, false});
    BoundObject bound{HostObject(&list)};
    bound.put(L"Selected", std::int32_t{1}, true);
    EXPECT_FALSE(bound.getAs<bool>(L"Selected", std::int32_t{0}));
    EXPECT_TRUE(bound.getAs<bool>(L"Selected", std::int32_t{1}));
    EXPECT_FALSE(bound.getAs<bool>(L"Selected", std::int32_t{2}));
    EXPECT_EQ(381, errorOf([&] { bound.get(L"Selected", std::int32_t{3}); }));
    EXPECT_EQ(381, errorOf([&] { bound.put(L"Selected", std::int32_t{-1}, true); }));
}

TEST(BoundObject, argumentsArriveInTheirOrderAndCanComeBackChanged) {
    ScriptedObject control;
    std::vector<std::string> seen;
    WORD kind = 0;
    control.method(L"Move", [&](const ScriptedObject::Call& call) {
        kind = call.kind();
        for (std::size_t i = 0; i < call.count(); ++i) seen.push_back(describe(call.argument(i).raw()));
        EXPECT_FALSE(call.isByReference(1));
        EXPECT_TRUE(call.isByReference(2));
        call.store(2, text(L"écrit"));
        return Variant(std::int32_t{5});
    });
    BoundObject bound{HostObject(&control)};
    Variant variable(std::int16_t{3});
    const auto result =
        bound.call(L"Move", std::int16_t{1}, TextView(L"deux"), ByReference(variable), 4.5, true);
    EXPECT_EQ("vt 3 5", describe(result.raw()));
    EXPECT_EQ("vt 8 \"\\u00E9crit\"", describe(variable.raw()));
    EXPECT_EQ(DISPATCH_METHOD, kind);
    EXPECT_EQ((std::vector<std::string>{"vt 2 1", "vt 8 \"deux\"", "vt 2 3", "vt 5 4.5", "vt 11 -1"}), seen);
}

TEST(BoundObject, moreArgumentsThanMostMembersTake) {
    ScriptedObject control;
    std::size_t count = 0;
    control.method(L"Line", [&](const ScriptedObject::Call& call) {
        count = call.count();
        return Variant(call.argument(9));
    });
    BoundObject bound{HostObject(&control)};
    const std::int32_t one = 1;
    EXPECT_EQ(
        "vt 3 10",
        describe(bound.call(L"Line", one, one, one, one, one, one, one, one, one, std::int32_t{10}).raw()));
    EXPECT_EQ(10u, count);
}

TEST(BoundObject, objectsArePutByReference) {
    ScriptedObject form, font;
    form.property(L"Font");
    {
        BoundObject bound{HostObject(&form)};
        bound.putRef(L"Font", HostObject(&font));
        EXPECT_EQ(&font, bound.getObject(L"Font").get());
        bound.putRef(L"Font", HostObject());
        EXPECT_EQ(91, errorOf([&] { bound.getObject(L"Font"); }));
        bound.put(L"Font", std::int16_t{1});
        EXPECT_EQ(424, errorOf([&] { bound.getObject(L"Font"); }));
    }
    EXPECT_EQ(2u, form.logged(L"putref Font"));
    EXPECT_EQ(1u, form.logged(L"put Font"));
    EXPECT_EQ(0, font.references());
}

TEST(BoundObject, picturesAndEnumeratedValues) {
    ScriptedObject control;
    control.property(L"Picture").property(L"Unit");
    BoundObject bound{HostObject(&control)};
    bound.putRef(L"Picture", LoadPicture(L""));
    // An empty picture is of type 0.
    EXPECT_EQ(0, BoundObject(bound.getObject(L"Picture")).getAs<std::int16_t>(L"Type"));
    bound.put(L"Unit", WinVer::WinXP);
    EXPECT_EQ("vt 3 9", describe(control.value(L"Unit").raw()));
}

TEST(BoundObject, defaultMembers) {
    ScriptedObject list;
    list.indexed(L"Item", {text(L"zéro"), text(L"un")}).defaultMember(L"Item");
    BoundObject bound{HostObject(&list)};
    EXPECT_EQ("vt 8 \"un\"", describe(bound.getDefault(std::int32_t{1}).raw()));
    bound.putDefault(std::int32_t{0}, std::int16_t{3});
    EXPECT_EQ("vt 2 3", describe(list.value(L"Item", 0).raw()));
    EXPECT_EQ(0u, list.logged(L"lookup"));
    // Where a value is wanted, a property that holds an object stands for the object's default property.
    ScriptedObject twelve{Variant(std::int16_t{12})}, holder;
    holder.property(L"Value", object(&twelve)).property(L"Rien", nothing()).property(L"Vide", nullValue());
    BoundObject values{HostObject(&holder)};
    EXPECT_EQ(12, values.getAs<std::int32_t>(L"Value"));
    EXPECT_EQ(L"12", values.getAs<Text>(L"Value"));
    EXPECT_EQ(91, errorOf([&] { values.getAs<std::int32_t>(L"Rien"); }));
    EXPECT_EQ(94, errorOf([&] { values.getAs<std::int32_t>(L"Vide"); }));
}

TEST(BoundObject, valuesOfAnotherTypeAreConverted) {
    ScriptedObject control;
    control.property(L"Demi", 2.5).property(L"Grand", std::int32_t{32768}).property(L"Mot", text(L"abc"));
    BoundObject bound{HostObject(&control)};
    EXPECT_EQ(2, bound.getAs<std::int16_t>(L"Demi"));
    EXPECT_TRUE(bound.getAs<bool>(L"Grand"));
    EXPECT_EQ(32768.0, bound.getAs<double>(L"Grand"));
    EXPECT_EQ(6, errorOf([&] { bound.getAs<std::int16_t>(L"Grand"); }));
    EXPECT_EQ(13, errorOf([&] { bound.getAs<std::int32_t>(L"Mot"); }));
}

// An object whose default property is the object itself, and one that stands for a number by many others.
TEST(DefaultProperties, thatLeadNowhereEnd) {
    ScriptedObject itself;
    itself.property(L"Value").defaultMember(L"Value");
    const auto held = object(&itself);
    itself.value(L"Value") = held;
    EXPECT_EQ(438, errorOf([&] { converted(held.view(), VT_I4); }));
    EXPECT_EQ(8u, itself.logged(L"get"));
    EXPECT_EQ(438, errorOf([&] { convertedTo<Text>(held.view()); }));
    EXPECT_EQ(438, errorOf([&] { numberToInvariantText(held.view()); }));
    EXPECT_EQ(24u, itself.logged(L"get"));
    itself.value(L"Value") = Variant();
    EXPECT_EQ(1, itself.references());
}

TEST(DefaultProperties, areAskedThroughEightObjects) {
    for (const std::size_t count : {1u, 2u, 8u, 9u}) {
        std::deque<ScriptedObject> chain;
        Variant first(std::int16_t{7});
        for (std::size_t i = 0; i < count; ++i) {
            chain.emplace_back(std::move(first));
            first = object(&chain.back());
        }
        EXPECT_EQ(count > 8 ? 438 : 0, errorOf([&] {
                      EXPECT_EQ(7, convertedTo<std::int32_t>(first.view()));
                      EXPECT_EQ(L"7", convertedTo<Text>(first.view()));
                  }))
            << count;
        Variant number;
        const auto answer = changeType(*number.put(), first.raw(), LOCALE_USER_DEFAULT, 0, VT_I4);
        EXPECT_EQ(count > 8 ? DISP_E_TYPEMISMATCH : S_OK, answer) << count;
        EXPECT_EQ(count > 8 ? "vt 0 " : "vt 3 7", describe(number.raw())) << count;
    }
}

// Whatever is wrong with an object, the system's own conversion answers alike.
TEST(DefaultProperties, failAsTheSystemLetsThemFail) {
    ScriptedObject value{Variant(std::int16_t{7})};
    const auto held = object(&value);
    for (const auto code : {E_FAIL, DISP_E_MEMBERNOTFOUND, E_OUTOFMEMORY, static_cast<HRESULT>(0x800A017C)}) {
        Variant number;
        value.failCall(1, code);
        const auto ours = changeType(*number.put(), held.raw(), LOCALE_USER_DEFAULT, 0, VT_I4);
        value.failCall(1, code);
        EXPECT_EQ(VariantChangeTypeEx(number.put(), const_cast<VARIANT*>(&held.raw()), LOCALE_USER_DEFAULT, 0,
                                      VT_I4),
                  ours)
            << std::hex << code;
    }
}

TEST(BoundObject, valuesAsTheTypeThatIsAskedFor) {
    ScriptedObject control;
    control.property(L"Nombre", 2.5)
        .property(L"Grand", std::int32_t{300})
        .property(L"Moins", std::int16_t{-1})
        .property(L"Mot", text(L"abc"));
    BoundObject bound{HostObject(&control)};
    EXPECT_EQ(2, bound.getAs<std::uint8_t>(L"Nombre"));
    EXPECT_EQ(2.5f, bound.getAs<float>(L"Nombre"));
    EXPECT_EQ(25'000, bound.getAs<Currency>(L"Nombre").scaled);
    EXPECT_EQ(2.5, bound.getAs<Date>(L"Nombre").days);
    EXPECT_EQ(6, errorOf([&] { bound.getAs<std::uint8_t>(L"Grand"); }));
    EXPECT_EQ(6, errorOf([&] { bound.getAs<std::uint8_t>(L"Moins"); }));
    EXPECT_EQ(13, errorOf([&] { bound.getAs<float>(L"Mot"); }));
    EXPECT_EQ(13, errorOf([&] { bound.getAs<Currency>(L"Mot"); }));
    EXPECT_EQ(13, errorOf([&] { bound.getAs<Date>(L"Mot"); }));
    bound.put(L"Nombre", 0.5f);
    EXPECT_EQ("vt 4 0.5", describe(control.value(L"Nombre").raw()));
    bound.put(L"Nombre", std::uint8_t{200});
    EXPECT_EQ("vt 17 200", describe(control.value(L"Nombre").raw()));
}

Variant unsigned32(std::uint32_t value) {
    Variant result;
    result.put()->vt = VT_UI4;
    result.put()->ulVal = value;
    return result;
}

TEST(BoundObject, coloursAreTheir32BitsWithASignOrWithout) {
    struct Row {
        Variant value;
        std::int32_t colour;
    };
    constexpr std::int32_t face = INT32_MIN + 15;  // &H8000000F
    const Row rows[] = {
        {std::int32_t{255}, 255},
        {std::int16_t{-1}, -1},
        {face, face},
        {unsigned32(0x8000000F), face},
        {unsigned32(0xFFFFFFFF), -1},
        {2147483663.0, face},
        {-2147483633.0, face},
        {4294967295.0, -1},
        {-2147483648.0, INT32_MIN},
        {2147483647.0, INT32_MAX},
        {Currency{2147483663'0000}, face},
        {16777215.5, 16777216},  // halves to even
        {text(L"12"), 12},
    };
    ScriptedObject control;
    control.property(L"BackColor");
    BoundObject bound{HostObject(&control)};
    for (const Row& row : rows) {
        control.value(L"BackColor") = row.value;
        EXPECT_EQ(row.colour, bound.getColour(L"BackColor")) << describe(row.value.raw());
    }
    for (const double beyond : {4294967296.0, -2147483649.0, 1e300}) {
        control.value(L"BackColor") = beyond;
        EXPECT_EQ(6, errorOf([&] { bound.getColour(L"BackColor"); })) << beyond;
    }
    control.value(L"BackColor") = text(L"rouge");
    EXPECT_EQ(13, errorOf([&] { bound.getColour(L"BackColor"); }));
    control.value(L"BackColor") = nullValue();
    EXPECT_EQ(94, errorOf([&] { bound.getColour(L"BackColor"); }));
}

TEST(BoundObject, failuresKeepTheHostsNumber) {
    struct Row {
        HRESULT code;
        int number;
    };
    const Row rows[] = {
        {static_cast<HRESULT>(0x800A017D), 381},
        {static_cast<HRESULT>(0x800A0001), 1},
        {DISP_E_MEMBERNOTFOUND, 438},
        {DISP_E_UNKNOWNNAME, 438},
        {DISP_E_TYPEMISMATCH, 13},
        {DISP_E_BADVARTYPE, 13},
        {DISP_E_OVERFLOW, 6},
        {E_FAIL, 440},
        {DISP_E_BADPARAMCOUNT, 440},
        {DISP_E_EXCEPTION, 440},
        {RPC_E_DISCONNECTED, 440},
    };
    for (const Row& row : rows) {
        ScriptedObject control;
        control.property(L"Text", text(L"x"))
            .failCall(1, row.code)
            .failCall(2, row.code)
            .failCall(3, row.code);
        BoundObject bound{HostObject(&control)};
        EXPECT_EQ(row.number, errorOf([&] { bound.get(L"Text"); })) << std::hex << row.code;
        EXPECT_EQ(row.number, errorOf([&] { bound.put(L"Text", L"y"); })) << std::hex << row.code;
        EXPECT_EQ(row.number, errorOf([&] { bound.call(L"Text"); })) << std::hex << row.code;
        EXPECT_EQ(L"x", bound.getAs<Text>(L"Text"));
    }
    ScriptedObject control;
    control.property(L"Text").failCallWithNumber(1, 380).failCallWithNumber(2, 50'000).failCallDeferred(3,
                                                                                                        382);
    BoundObject bound{HostObject(&control)};
    EXPECT_EQ(380, errorOf([&] { bound.get(L"Text"); }));
    EXPECT_EQ(50'000, errorOf([&] { bound.get(L"Text"); }));
    EXPECT_EQ(382, errorOf([&] { bound.get(L"Text"); }));
}

TEST(BoundObject, onlyPropertiesAreProperties) {
    ScriptedObject control;
    int calls = 0;
    control.property(L"Caption").indexed(L"List", {true}).method(L"Text", [&](const ScriptedObject::Call&) {
        ++calls;
        return Variant();
    });
    {
        BoundObject bound{HostObject(&control)};
        EXPECT_TRUE(bound.hasProperty(L"Caption"));
        EXPECT_TRUE(bound.hasProperty(L"Caption"));
        EXPECT_FALSE(bound.hasProperty(L"Text"));
        EXPECT_FALSE(bound.hasProperty(L"List"));
        EXPECT_FALSE(bound.hasProperty(L"Index"));
        control.failCall(1, E_FAIL);
        EXPECT_FALSE(bound.hasProperty(L"Caption"));
    }
    EXPECT_EQ(0, calls);
    EXPECT_EQ(1u, control.logged(L"lookup Caption"));
    EXPECT_FALSE(BoundObject(HostObject()).hasProperty(L"Caption"));
    EXPECT_EQ(0, control.references());
}

TEST(BoundObject, unknownNamesAndNothing) {
    ScriptedObject control;
    control.readOnly(L"Name", text(L"lblNom"));
    BoundObject bound{HostObject(&control)};
    EXPECT_EQ(438, errorOf([&] { bound.get(L"Absent"); }));
    EXPECT_EQ(438, errorOf([&] { bound.put(L"Name", L"autre"); }));
    EXPECT_TRUE(bound.knows(L"Name"));
    EXPECT_TRUE(bound.knows(L"NAME"));
    EXPECT_FALSE(bound.knows(L"Absent"));
    EXPECT_EQ(0u, control.logged(L"get"));

    BoundObject none{HostObject()};
    EXPECT_EQ(91, errorOf([&] { none.get(L"Name"); }));
    EXPECT_EQ(91, errorOf([&] { none.put(L"Name", true); }));
    EXPECT_EQ(91, errorOf([&] { none.call(L"Name"); }));
    EXPECT_EQ(91, errorOf([&] { none.getDefault(); }));
    EXPECT_FALSE(none.knows(L"Name"));
}

TEST(BoundObject, leavesNothingBehind) {
    ScriptedObject control;
    const auto use = [&control] {
        BoundObject bound{HostObject(&control)};
        Variant variable(TextView(L"variable"));
        bound.put(L"Text", L"une ligne");
        EXPECT_EQ(L"une ligne", bound.getAs<Text>(L"Text"));
        bound.call(L"Swap", ByReference(variable));
        control.failCallWithNumber(1, 380);
        EXPECT_EQ(380, errorOf([&] { bound.get(L"Text"); }));
        control.failCallDeferred(1, 382);
        EXPECT_EQ(382, errorOf([&] { bound.get(L"Text"); }));
        control.value(L"Text") = Variant();
    };
    control.property(L"Text").method(L"Swap", [](const ScriptedObject::Call& call) {
        call.store(0, text(L"autre"));
        return text(L"résultat");
    });
    use();
    const MemoryCount count;
    for (int i = 0; i < 1000; ++i) use();
    EXPECT_EQ(0, count.live());
    EXPECT_EQ(0, control.references());
}

std::string walked(ScriptedObject& collection) {
    std::string all;
    HostItems items{HostObject(&collection)};
    for (Variant item; items.next(item);) all += describe(item.raw()) + "; ";
    return all;
}

TEST(HostItems, walkEveryKindOfCollection) {
    struct Row {
        Walk walk;
        Log log;
    };
    const Row rows[] = {
        {Walk::byEnumerator, {L"get (enumerator)", L"next", L"next", L"next"}},
        {Walk::byCountAndItem,
         {L"get (enumerator)", L"lookup Count", L"get Count", L"lookup Item", L"get Item", L"get Item"}},
        {Walk::byCountAndDefault,
         {L"get (enumerator)", L"lookup Count", L"get Count", L"lookup Item", L"get (default)",
          L"get (default)"}},
    };
    for (const Row& row : rows) {
        ScriptedObject collection;
        collection.items({text(L"un"), std::int16_t{2}}, row.walk);
        EXPECT_EQ("vt 8 \"un\"; vt 2 2; ", walked(collection));
        EXPECT_EQ(row.log, collection.log());
        EXPECT_EQ(0, collection.references());
        ScriptedObject empty;
        empty.items({}, row.walk);
        EXPECT_EQ("", walked(empty));
    }
}

TEST(HostItems, walkWhatIsNumberedFromOne) {
    struct Row {
        Walk walk;
        Log calls;  // after the lookups, the enumerator and the count
    };
    const Row rows[] = {
        // Item 0 fails, the last one exists, then all are read in order.
        {Walk::byCountAndItem, {L"get Item", L"get Item", L"get Item", L"get Item", L"get Item"}},
        {Walk::byCountAndDefault,
         {L"get (default)", L"get (default)", L"get (default)", L"get (default)", L"get (default)"}},
    };
    for (const Row& row : rows) {
        ScriptedObject collection;
        collection.items({text(L"un"), std::int16_t{2}, text(L"trois")}, row.walk).numberedFrom(1);
        EXPECT_EQ("vt 8 \"un\"; vt 2 2; vt 8 \"trois\"; ", walked(collection));
        const Log& log = collection.log();
        EXPECT_EQ(row.calls, Log(log.begin() + 4, log.end()));
        EXPECT_EQ(0, collection.references());
        ScriptedObject one, empty;
        one.items({text(L"seul")}, row.walk).numberedFrom(1);
        EXPECT_EQ("vt 8 \"seul\"; ", walked(one));
        empty.items({}, row.walk).numberedFrom(1);
        EXPECT_EQ("", walked(empty));
        EXPECT_EQ(4u, empty.log().size());
        // A collection numbered from anything but 0 or 1 cannot be walked.
        ScriptedObject strange;
        strange.items({text(L"un"), text(L"deux")}, row.walk).numberedFrom(2);
        EXPECT_EQ(381, errorOf([&] { walked(strange); }));
    }
}

TEST(HostItems, numberedFromOneWithEveryCallFailingInTurn) {
    // The enumerator, the count, item 0, the last one, item 1, item 2.
    int failing = 1;
    for (;; ++failing) {
        ScriptedObject collection;
        collection.items({std::int16_t{1}, std::int16_t{2}}, Walk::byCountAndItem).numberedFrom(1);
        collection.failCall(failing, static_cast<HRESULT>(0x800A0009));
        std::string items;
        const auto error = errorOf([&] { items = walked(collection); });
        EXPECT_EQ(0, collection.references());
        // Item 0 fails in any case. If the last one fails too, its own error is the answer.
        const bool harmless = failing == 3 || failing > 6;
        EXPECT_EQ(harmless ? 0 : failing == 4 ? 381 : 9, error) << failing;
        EXPECT_EQ(harmless ? "vt 2 1; vt 2 2; " : "", items) << failing;
        if (failing > 6) break;
    }
}

// Item 0 exists but fails for another reason: item 1 must not be taken for the first.
TEST(HostItems, aFailureOfItemZeroIsNotHidden) {
    for (const int count : {1, 2, 3}) {
        ScriptedObject collection;
        collection.items(std::vector<Variant>(static_cast<std::size_t>(count), Variant(true)),
                         Walk::byCountAndItem);
        collection.failCall(3, static_cast<HRESULT>(0x800A0007));
        HostItems items{HostObject(&collection)};
        Variant item;
        EXPECT_EQ(7, errorOf([&] { items.next(item); })) << count;
        EXPECT_EQ(VT_EMPTY, item.raw().vt);
    }
}

TEST(HostItems, objectsAreReleased) {
    ScriptedObject control, collection;
    collection.items({object(&control), object(&control)}, Walk::byEnumerator);
    const auto held = control.references();
    EXPECT_EQ("vt 9 set; vt 9 set; ", walked(collection));
    EXPECT_EQ(held, control.references());
    {
        HostItems items{HostObject(&collection)};
        Variant item;
        EXPECT_TRUE(items.next(item));
        EXPECT_EQ(&control, objectIn(item.view()).get());
    }
    EXPECT_EQ(held, control.references());
    EXPECT_EQ(0, collection.references());
}

TEST(HostItems, everyCallFailingInTurn) {
    // A failure of the enumerator does not lead to a walk by number, and a failing `next` ends the walk.
    for (const auto walk : {Walk::byEnumerator, Walk::byCountAndItem, Walk::byCountAndDefault}) {
        int failing = 1;
        for (;; ++failing) {
            ScriptedObject collection;
            collection.items({std::int16_t{1}, std::int16_t{2}}, walk);
            collection.failCall(failing, static_cast<HRESULT>(0x800A017D));
            const auto error = errorOf([&] { walked(collection); });
            EXPECT_EQ(0, collection.references());
            if (error == 0) break;
            EXPECT_EQ(381, error) << failing;
        }
        // One call for the enumerator, then three nexts, or the count and two items.
        EXPECT_EQ(5, failing);
    }
}

TEST(HostItems, aWalkCanGoOnAfterAFailure) {
    struct Row {
        Walk walk;
        int before;  // calls before the first item is returned
        std::vector<int> items;
    };
    // The enumerator still stands at the item that it failed to return; by number, each item is tried once.
    const Row rows[] = {
        {Walk::byEnumerator, 1, {1, 2}}, {Walk::byCountAndItem, 2, {2}}, {Walk::byCountAndDefault, 2, {2}}};
    for (const Row& row : rows) {
        ScriptedObject collection;
        collection.items({std::int16_t{1}, std::int16_t{2}}, row.walk).failCall(row.before + 1, E_FAIL);
        HostItems items{HostObject(&collection)};
        Variant item;
        EXPECT_EQ(440, errorOf([&] { items.next(item); }));
        std::vector<int> rest;
        while (items.next(item)) rest.push_back(item.raw().iVal);
        EXPECT_EQ(row.items, rest);
    }
}

TEST(HostItems, whatIsNoCollection) {
    ScriptedObject control;
    EXPECT_EQ(438, errorOf([&] { walked(control); }));
    EXPECT_EQ(91, errorOf([] { HostItems items{HostObject()}; }));
}

TEST(TypeName, ofTheClassElseOfTheInterface) {
    ScriptedObject form, control, plain, neither;
    form.className(L"frmClients").interfaceName(L"_frmClients");
    control.interfaceName(L"_TextBox");
    plain.interfaceName(L"SSCheck");
    EXPECT_EQ(L"frmClients", typeName(HostObject(&form)));
    EXPECT_EQ(L"TextBox", typeName(HostObject(&control)));
    EXPECT_EQ(L"SSCheck", typeName(HostObject(&plain)));
    EXPECT_EQ(L"Object", typeName(HostObject(&neither)));
    EXPECT_EQ(L"Nothing", typeName(HostObject()));
    for (const auto* object : {&form, &control, &plain, &neither}) EXPECT_EQ(0, object->references());
}

TEST(Kinds, controlsAreKnownByTheirClass) {
    struct Row {
        const wchar_t* name;
        bool (*is)(const HostObject&);
        bool (*isNamed)(TextView typeName);
    };
    const Row rows[] = {{L"CheckBox", &isCheckBox, &isCheckBox},
                        {L"OptionButton", &isOptionButton, &isOptionButton},
                        {L"TextBox", &isTextBox, &isTextBox},
                        {L"ComboBox", &isComboBox, &isComboBox},
                        {L"ListBox", &isListBox, &isListBox}};
    for (const Row& asked : rows) {
        for (const Row& made : rows) {
            ScriptedObject control;
            control.className(made.name);
            EXPECT_EQ(&asked == &made, asked.is(HostObject(&control)))
                << narrow(asked.name) << narrow(made.name);
            EXPECT_EQ(&asked == &made, asked.isNamed(made.name));
        }
        ScriptedObject other;
        other.className(L"SSCheck");
        EXPECT_FALSE(asked.is(HostObject(&other)));
        EXPECT_FALSE(asked.is(HostObject()));
    }
}

TEST(Kinds, formsAreKnownByTheirNames) {
    ScriptedObject form;
    form.property(L"hWnd").property(L"Controls").property(L"WindowState").className(L"frmClients");
    EXPECT_TRUE(isHostForm(HostObject(&form)));
    EXPECT_EQ(0u, form.logged(L"get"));

    // Objects that lack one of the names, and a control that contains others.
    for (const auto* missing : {L"hWnd", L"Controls", L"WindowState"}) {
        ScriptedObject other;
        for (const auto* name : {L"hWnd", L"Controls", L"WindowState"})
            if (std::wstring_view(name) != missing) other.property(name);
        EXPECT_FALSE(isHostForm(HostObject(&other))) << narrow(missing);
    }
    form.property(L"Container");
    EXPECT_FALSE(isHostForm(HostObject(&form)));
    EXPECT_FALSE(isHostForm(HostObject()));
    EXPECT_EQ(0, form.references());
}

}  // namespace
}  // namespace vorla::test
