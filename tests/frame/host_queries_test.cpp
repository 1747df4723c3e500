// The questions about the host's controls and forms, with each of the host's answers failing in turn.
#include "frame/shared/host_queries.h"

#include <gtest/gtest.h>

#include "support/automation.h"
#include "support/scripted_object.h"

namespace vorla::test {
namespace {

using Log = std::vector<std::wstring>;
using Walk = ScriptedObject::Walk;
constexpr HRESULT hostFailure = static_cast<HRESULT>(0x800A017D);

TEST(ProprieteExiste, callsTheMemberByItsKind) {
    constexpr std::int16_t method = 1, get = 2, let = 4;
    ScriptedObject control;
    LCID locale = 0;
    control.property(L"Text", text(L"x"))
        .indexed(L"List", {text(L"x")})
        .readOnly(L"Rien", nothing())
        .method(L"Refresh", [&](const ScriptedObject::Call& call) {
            locale = call.locale();
            EXPECT_EQ(0u, call.count());
            return Variant();
        });
    const HostObject host(&control);
    EXPECT_TRUE(ProprieteExiste(host, L"Text", get));
    EXPECT_TRUE(ProprieteExiste(host, L"text", get));
    EXPECT_TRUE(ProprieteExiste(host, L"Rien", get));
    EXPECT_FALSE(ProprieteExiste(host, L"Text", method));
    EXPECT_TRUE(ProprieteExiste(host, L"Refresh", method));
    EXPECT_EQ(1033u, locale);
    EXPECT_FALSE(ProprieteExiste(host, L"Refresh", get));
    // A member that needs an argument fails without one.
    EXPECT_FALSE(ProprieteExiste(host, L"List", get));
    EXPECT_FALSE(ProprieteExiste(host, L"Text", let));
    EXPECT_FALSE(ProprieteExiste(host, L"Absent", get));
    EXPECT_FALSE(ProprieteExiste(host, L"", get));
    EXPECT_FALSE(ProprieteExiste(HostObject(), L"Text", get));
    control.failCall(1, hostFailure);
    EXPECT_FALSE(ProprieteExiste(host, L"Text", get));
    EXPECT_TRUE(ProprieteExiste(host, L"Text", get));
    EXPECT_EQ(1, control.references());
}

// Host names are English, so they are looked up in English.
class Listening : public ScriptedObject {
public:
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) override {
        lookedUpIn = locale;
        return ScriptedObject::GetIDsOfNames(id, names, count, locale, ids);
    }

    LCID lookedUpIn = 0;
};

TEST(ProprieteExiste, looksNamesUpInEnglish) {
    Listening control;
    control.property(L"Text");
    EXPECT_TRUE(ProprieteExiste(HostObject(&control), L"Text", callPropertyGet));
    EXPECT_EQ(1033u, control.lookedUpIn);
}

struct Scaled {
    ScriptedObject container, control;

    explicit Scaled(Variant mode) {
        container.property(L"ScaleMode", std::move(mode));
        control.property(L"Container", object(&container));
    }
};

TEST(ScaleModeConteneur, isTheContainersOrTwips) {
    {
        Scaled pixels{std::int16_t{3}};
        EXPECT_EQ(3, ScaleModeConteneur(HostObject(&pixels.control)));
        EXPECT_EQ((Log{L"lookup Scalemode", L"get ScaleMode", L"lookup ScaleMode", L"get ScaleMode"}),
                  pixels.container.log());
        Scaled text3{text(L"3")};
        EXPECT_EQ(3, ScaleModeConteneur(HostObject(&text3.control)));
    }
    ScriptedObject frame, control;
    control.property(L"Container", object(&frame));
    EXPECT_EQ(1, ScaleModeConteneur(HostObject(&control)));
    control.value(L"Container") = nothing();
    EXPECT_EQ(1, ScaleModeConteneur(HostObject(&control)));
    EXPECT_EQ(0, frame.references());
}

TEST(ScaleModeConteneur, isZeroWhenSomethingFails) {
    ScriptedObject alone;
    EXPECT_EQ(0, ScaleModeConteneur(HostObject(&alone)));
    EXPECT_EQ(0, ScaleModeConteneur(HostObject()));
    alone.property(L"Container", std::int16_t{3});
    EXPECT_EQ(0, ScaleModeConteneur(HostObject(&alone)));
    Scaled word{text(L"abc")};
    EXPECT_EQ(0, ScaleModeConteneur(HostObject(&word.control)));
    Scaled large{std::int32_t{32768}};
    EXPECT_EQ(0, ScaleModeConteneur(HostObject(&large.control)));
    Scaled fails{std::int16_t{3}};
    fails.control.failCall(1, hostFailure);
    EXPECT_EQ(0, ScaleModeConteneur(HostObject(&fails.control)));
    // If the probe fails, the property does not exist; if the read fails, the routine ends.
    fails.container.failCall(1, hostFailure);
    EXPECT_EQ(1, ScaleModeConteneur(HostObject(&fails.control)));
    fails.container.failCall(2, hostFailure);
    EXPECT_EQ(0, ScaleModeConteneur(HostObject(&fails.control)));
    EXPECT_EQ(3, ScaleModeConteneur(HostObject(&fails.control)));
}

TEST(ObjetConteneur, isTheContainerThatHasAScaleMode) {
    Scaled twips{std::int16_t{1}}, unknown{nullValue()};
    EXPECT_EQ(&twips.container, ObjetConteneur(HostObject(&twips.control)).get());
    EXPECT_EQ(&unknown.container, ObjetConteneur(HostObject(&unknown.control)).get());
    // Only the control holds a reference.
    EXPECT_EQ(1, twips.container.references());
}

TEST(ObjetConteneur, isNothingWhenSomethingFails) {
    ScriptedObject frame, control;
    EXPECT_FALSE(ObjetConteneur(HostObject(&control)));
    EXPECT_FALSE(ObjetConteneur(HostObject()));
    control.property(L"Container", object(&frame));
    EXPECT_FALSE(ObjetConteneur(HostObject(&control)));
    control.value(L"Container") = nothing();
    EXPECT_FALSE(ObjetConteneur(HostObject(&control)));
    control.value(L"Container") = text(L"frame");
    EXPECT_FALSE(ObjetConteneur(HostObject(&control)));
    Scaled word{text(L"abc")}, fails{std::int16_t{3}};
    EXPECT_FALSE(ObjetConteneur(HostObject(&word.control)));
    fails.control.failCall(1, hostFailure);
    EXPECT_FALSE(ObjetConteneur(HostObject(&fails.control)));
    fails.container.failCall(1, hostFailure);
    EXPECT_FALSE(ObjetConteneur(HostObject(&fails.control)));
    EXPECT_EQ(&fails.container, ObjetConteneur(HostObject(&fails.control)).get());
    EXPECT_EQ(0, frame.references());
}

// Two loaded forms.
struct Forms {
    ScriptedObject first, second, collection;

    explicit Forms(Walk walk) {
        first.property(L"hWnd", std::int32_t{1001}).property(L"Name", text(L"frmUn"));
        second.property(L"hWnd", std::int32_t{-5}).property(L"Name", text(L"frmÉté"));
        collection.items({object(&first), object(&second)}, walk);
    }
    bool loaded(const Variant& nameOrHandle) {
        return FormChargee(nameOrHandle.view(), HostObject(&collection));
    }
};

TEST(FormChargee, byHandleOrByExactName) {
    for (const auto walk : {Walk::byEnumerator, Walk::byCountAndItem, Walk::byCountAndDefault}) {
        Forms forms(walk);
        struct Row {
            Variant asked;
            bool loaded;
        };
        const Row rows[] = {{std::int32_t{1001}, true},
                            {std::int32_t{-5}, true},
                            {std::int32_t{0}, false},
                            {text(L"frmUn"), true},
                            {text(L"frmÉté"), true},
                            {text(L"FRMUN"), false},
                            {text(L"frmUn "), false},
                            {text(L""), false},
                            {text(L"1001"), false},
                            // Handles are 32-bit integers and nothing else.
                            {std::int16_t{1001}, false},
                            {1001.0, false},
                            {Variant(), false},
                            {nullValue(), false},
                            {object(&forms.first), false}};
        for (const Row& row : rows)
            EXPECT_EQ(row.loaded, forms.loaded(row.asked)) << describe(row.asked.raw());
        Variant variable(std::int32_t{1001});
        EXPECT_TRUE(forms.loaded(byReference(variable)));
        // The collection holds one reference, the last row the other.
        EXPECT_EQ(2, forms.first.references());
    }
}

TEST(FormChargee, stopsAtTheFirstMatch) {
    Forms forms(Walk::byEnumerator);
    EXPECT_TRUE(forms.loaded(text(L"frmUn")));
    EXPECT_EQ((Log{L"lookup Name", L"get Name"}), forms.first.log());
    EXPECT_EQ(Log{}, forms.second.log());
    EXPECT_EQ((Log{L"get (enumerator)", L"next"}), forms.collection.log());
}

TEST(FormChargee, failuresReachTheCaller) {
    const auto asked = text(L"frmÉté");
    // The enumerator, its two items, then the end: the fourth is never asked for.
    for (int failing = 1; failing <= 3; ++failing) {
        Forms forms(Walk::byEnumerator);
        forms.collection.failCall(failing, hostFailure);
        EXPECT_EQ(381, errorOf([&] { forms.loaded(asked); })) << failing;
        EXPECT_EQ(0, forms.collection.references());
    }
    Forms forms(Walk::byEnumerator);
    forms.first.failCall(1, hostFailure);
    EXPECT_EQ(381, errorOf([&] { forms.loaded(asked); }));
    EXPECT_TRUE(forms.loaded(asked));

    ScriptedObject empty, values;
    empty.items({}, Walk::byEnumerator);
    EXPECT_FALSE(FormChargee(asked.view(), HostObject(&empty)));
    values.items({std::int16_t{1}}, Walk::byEnumerator);
    EXPECT_EQ(424, errorOf([&] { FormChargee(asked.view(), HostObject(&values)); }));
    EXPECT_EQ(91, errorOf([&] { FormChargee(asked.view(), HostObject()); }));
    // An item that is not a form does not know the name.
    ScriptedObject stranger, strangers;
    strangers.items({object(&stranger)}, Walk::byEnumerator);
    EXPECT_EQ(438, errorOf([&] { FormChargee(asked.view(), HostObject(&strangers)); }));
}

}  // namespace
}  // namespace vorla::test
