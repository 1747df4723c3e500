// VorlaRegistre: the names of keys and values in the host's collections.
#include <algorithm>

#include "contract/registre.h"

namespace vorla::test {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

TEST_F(Registre, namesAreAddedToWhatTheCollectionHolds) {
    for (const wchar_t* name : {L"un", L"deux", L"Été €"}) key.make(name);
    key.setText(L"valeur", REG_SZ, L"x\0"sv);
    Collection collection;
    collection.names = {L"avant"};
    const auto host = vorla::test::object(&collection);
    const auto expected = [&](const wchar_t* path, std::vector<std::wstring> names) {
        EXPECT_EQ(S_OK, call(L"RegLireCles", {text(key.path(path)), host}).code);
        EXPECT_EQ(names, collection.names) << narrow(path);
    };
    expected(L"absente", {L"avant"});
    // In the registry's order, which is that of their letters.
    expected(L"", {L"avant", L"deux", L"un", L"Été €"});
    expected(L"un", {L"avant", L"deux", L"un", L"Été €"});
    expectResult(call(L"RegLireValeurs", {text(key.path()), host}), Variant());
    EXPECT_EQ((Names{L"avant", L"deux", L"un", L"Été €", L"valeur"}), collection.names);
    // The collection is asked for nothing but Add.
    EXPECT_EQ(4u, collection.logged(L"call Add"));
    EXPECT_EQ(collection.log().size(), collection.logged(L"call Add") + collection.logged(L"lookup Add"));
}

TEST_F(Registre, valuesOfEveryKindAreListed) {
    EXPECT_EQ(Names(), valuesOf(key.path()));
    EXPECT_EQ(Names(), valuesOf(key.path(L"absente")));
    key.setText(L"", REG_SZ, L"sans nom\0"sv);
    EXPECT_EQ(Names(), valuesOf(key.path()));
    Names expected;
    for (const DWORD type :
         {DWORD{REG_NONE}, DWORD{REG_SZ}, DWORD{REG_EXPAND_SZ}, DWORD{REG_BINARY}, DWORD{REG_DWORD},
          DWORD{REG_DWORD_BIG_ENDIAN}, DWORD{REG_MULTI_SZ}, DWORD{REG_QWORD}, DWORD{12345}}) {
        expected.push_back(L"type " + std::to_wstring(type));
        key.set(expected.back(), type, "\1\2\3\4\0\0\0\0"sv);
    }
    auto names = valuesOf(key.path());
    // In whatever order the system keeps them.
    std::sort(expected.begin(), expected.end());
    std::sort(names.begin(), names.end());
    EXPECT_EQ(expected, names);
}

TEST_F(Registre, blanksAroundNamesAreNotListed) {
    key.setText(L"  valeur bleue ", REG_SZ, L"x\0"sv);
    key.setText(L"   ", REG_SZ, L"x\0"sv);
    key.setText(L"\tz", REG_SZ, L"x\0"sv);
    auto names = valuesOf(key.path());
    std::sort(names.begin(), names.end());
    EXPECT_EQ((Names{L"\tz", L"valeur bleue"}), names);
    key.make(L"  clé bleue ");
    EXPECT_EQ(Names{L"clé bleue"}, keysOf(key.path()));
}

TEST_F(Registre, theLongestNameIsListed) {
    const std::wstring longest(16383, L'n');
    key.setText(longest, REG_SZ, L"x\0"sv);
    EXPECT_EQ(Names{longest}, valuesOf(key.path()));
    EXPECT_TRUE(isTrue(L"RegExisteValeur", {text(key.path()), text(longest)}));
    expectResult(read(longest), text(L"x"));
    EXPECT_TRUE(isTrue(L"RegEffaceValeur", {text(key.path()), text(longest)}));
    EXPECT_TRUE(write(longest, text(L"y"), regString));
    expectResult(read(longest), text(L"y"));
    EXPECT_FALSE(write(longest + L"n", text(L"z"), regString));
}

TEST_F(Registre, whatTheSystemAnswersIsListed) {
    RegistryCalls registry(component.module());
    struct Answer {
        LSTATUS status;
        std::string name;
        DWORD length;
    };
    std::vector<Answer> answers;
    DWORD room = 0;
    std::string before;
    const auto answer = [&](DWORD index, LPSTR name, LPDWORD length) {
        if (index >= answers.size()) return LSTATUS{ERROR_NO_MORE_ITEMS};
        room = *length;
        before.assign(name, room);
        answers[index].name.copy(name, room);
        *length = answers[index].length;
        return answers[index].status;
    };
    registry.enumKey.answer([&](HKEY, DWORD index, LPSTR name, LPDWORD length, LPDWORD, LPSTR, LPDWORD,
                                FILETIME*) { return answer(index, name, length); });
    registry.enumValue.answer([&](HKEY, DWORD index, LPSTR name, LPDWORD length, LPDWORD, LPDWORD, LPBYTE,
                                  LPDWORD) { return answer(index, name, length); });
    for (const wchar_t* member : {L"RegLireCles", L"RegLireValeurs"}) {
        // A name that does not fit is skipped, or its characters so far are listed; the next name follows.
        answers = {
            {0, "un", 2}, {ERROR_MORE_DATA, "", 16384}, {ERROR_MORE_DATA, "morceau", 7}, {0, "deux", 4}};
        EXPECT_EQ((Names{L"un", L"morceau", L"deux"}), listed(member, key.path()));
        // Room for the longest name and for the NUL that ends it.
        EXPECT_EQ(16384u, room);
        // Nothing of one name is left for the next.
        EXPECT_EQ(std::string(16384, ' '), before);
        // As many characters as the system reports, but never more than the buffer holds.
        answers = {{0, "abcdef", 3}, {0, "x", 0}, {ERROR_MORE_DATA, "y", 0xFFFFFFFF}, {0, "a\0b"s, 3}};
        EXPECT_EQ((Names{L"abc", L"y", std::wstring(L"a\0b", 3)}), listed(member, key.path()));
        // Any other status ends the list.
        answers = {{0, "un", 2}, {ERROR_ACCESS_DENIED, "deux", 4}, {0, "trois", 5}};
        EXPECT_EQ(Names{L"un"}, listed(member, key.path()));
    }
    EXPECT_EQ(0, registry.leftOpen());
}

TEST_F(Registre, aCollectionThatRefusesEndsTheList) {
    for (const wchar_t* name : {L"a", L"b", L"c"}) {
        key.make(name);
        key.setText(name, REG_SZ, L"x\0"sv);
    }
    RegistryCalls registry(component.module());
    for (const wchar_t* member : {L"RegLireCles", L"RegLireValeurs"}) {
        for (std::size_t n = 1; n <= 3; ++n) {
            Collection collection;
            collection.failCall(static_cast<int>(n), hostFailure);
            expectResult(call(member, {text(key.path()), vorla::test::object(&collection)}), Variant());
            EXPECT_EQ(n - 1, collection.names.size()) << narrow(member);
            EXPECT_EQ(n, collection.logged(L"call Add")) << narrow(member);
            EXPECT_EQ(0, collection.references());
        }
        ScriptedObject withoutAdd;
        expectResult(call(member, {text(key.path()), vorla::test::object(&withoutAdd)}), Variant());
        expectResult(call(member, {text(key.path()), nothing()}), Variant());
        expectResult(call(member, {text(key.path(L"absente")), nothing()}), Variant());
        IDispatch* none = nullptr;
        expectResult(call(member, {text(key.path()), byReference(VT_DISPATCH, &none)}), Variant());
        EXPECT_EQ(nullptr, none);
    }
    EXPECT_EQ(0, registry.leftOpen());
}

TEST_F(Registre, aCollectionByReferenceStaysTheHosts) {
    key.make(L"a");
    Collection collection;
    collection.AddRef();
    IDispatch* typed = &collection;
    EXPECT_EQ(S_OK, call(L"RegLireCles", {text(key.path()), byReference(VT_DISPATCH, &typed)}).code);
    EXPECT_EQ(&collection, typed);
    EXPECT_EQ(1, collection.references());
    {
        Variant variable = vorla::test::object(&collection);
        EXPECT_EQ(S_OK, call(L"RegLireCles", {text(key.path()), byReference(variable)}).code);
        EXPECT_EQ(&collection, variable.raw().pdispVal);
    }
    EXPECT_EQ(1, collection.references());
    EXPECT_EQ((Names{L"a", L"a"}), collection.names);
}

// The host may well do something else with the registry while a name is added.
TEST_F(Registre, theHostMayCallBackFromAdd) {
    for (const wchar_t* name : {L"a", L"b"}) key.make(name);
    ScriptedObject collection;
    Names seen;
    collection.method(L"Add", [&](const ScriptedObject::Call& added) {
        const std::wstring name(viewOf(added.argument(0).raw().bstrVal));
        seen.push_back(name);
        setRoot(object.get(), long32(localMachine));
        setRoot(object.get(), long32(currentUser));
        EXPECT_TRUE(write(name, text(L"vu"), regString));
        return Variant();
    });
    EXPECT_EQ(S_OK, call(L"RegLireCles", {text(key.path()), vorla::test::object(&collection)}).code);
    EXPECT_EQ((Names{L"a", L"b"}), seen);
    expectResult(read(L"b"), text(L"vu"));
}

}  // namespace
}  // namespace vorla::test
