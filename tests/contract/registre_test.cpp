// VorlaRegistre: its root, paths and keys, and what reaches the caller when a system call fails.
#include <algorithm>

#include "contract/registre.h"
#include "contract/signatures.h"
#include "support/memory_count.h"

namespace vorla::test {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

TEST_F(Registre, membersAreDescribed) {
    const std::vector<std::wstring> expected{
        L"60030000 BOOL RegIsFullAccessRight(BSTR Cle)",
        L"60030001 BOOL RegCreerNouvelleCle(BSTR Cle)",
        L"60030002 BOOL RegSupprimeCle(BSTR Cle)",
        L"60030003 void RegLireCles(BSTR Cle, &object Coll)",
        L"60030004 void RegLireValeurs(BSTR Cle, &object Coll)",
        L"60030005 BOOL RegEcritValeur(BSTR Cle, BSTR NomValeur, VARIANT Valeur, DataType TypeValeur, [&BOOL "
        L"CreateKeyIfNotExist=-1])",
        L"60030006 BOOL RegExisteValeur(BSTR Cle, BSTR NomValeur)",
        L"60030007 VARIANT RegExisteClé(BSTR Cle)",
        L"60030008 BOOL RegEffaceValeur(BSTR Cle, &BSTR NomValeur)",
        L"60030009 VARIANT RegLitValeur(BSTR Cle, BSTR NomValeur)",
        L"68030000 get CleBDR RegClePrimaire()",
        L"68030000 put void RegClePrimaire(CleBDR)"};
    EXPECT_EQ(expected, signatures(object.get()));
}

TEST_F(Registre, theRootIsEachObjectsOwn) {
    const auto other = component.create(numberOfRegistre);
    expectResult(invoke(other.get(), L"RegClePrimaire"), long32(localMachine));
    expectResult(call(L"RegClePrimaire", {}), long32(currentUser));
    // The root is HKEY_LOCAL_MACHINE and not the user's.
    expectResult(invoke(other.get(), L"RegExisteClé", {text(L"Software\\Microsoft\\Windows NT")}), true);
    expectResult(invoke(other.get(), L"RegExisteClé", {text(key.path())}), false);
    expectResult(call(L"RegExisteClé", {text(key.path())}), true);
    for (const std::int32_t root : {classesRoot, users, currentConfig, 0, 1, -1, 2147483647, 32768}) {
        setRoot(object.get(), long32(root));
        expectResult(call(L"RegClePrimaire", {}), long32(root));
    }
    expectResult(invoke(other.get(), L"RegClePrimaire"), long32(localMachine));
    setRoot(object.get(), text(L"-2147483647"));
    expectResult(call(L"RegExisteClé", {text(key.path())}), true);
    EXPECT_EQ(DISP_E_TYPEMISMATCH,
              invoke(object.get(), L"RegClePrimaire", Arguments().named(DISPID_PROPERTYPUT, text(L"racine")),
                     DISPATCH_PROPERTYPUT)
                  .code);
    EXPECT_EQ(DISP_E_OVERFLOW,
              invoke(object.get(), L"RegClePrimaire", Arguments().named(DISPID_PROPERTYPUT, 2147483648.0),
                     DISPATCH_PROPERTYPUT)
                  .code);
    expectResult(call(L"RegClePrimaire", {}), long32(currentUser));
}

// The handles of predefined keys are sign-extended.
TEST_F(Registre, theRootReachesWindowsAsItIs) {
    RegistryCalls registry(component.module());
    HKEY used = nullptr;
    registry.open.answer([&](HKEY root, LPCSTR, DWORD, REGSAM, PHKEY) {
        used = root;
        return LSTATUS{ERROR_INVALID_HANDLE};
    });
    const struct {
        std::int32_t root;
        HKEY handle;
    } rows[] = {{classesRoot, HKEY_CLASSES_ROOT},
                {currentUser, HKEY_CURRENT_USER},
                {localMachine, HKEY_LOCAL_MACHINE},
                {users, HKEY_USERS},
                {currentConfig, HKEY_CURRENT_CONFIG},
                {-2147483642, HKEY_DYN_DATA},
                {0x1234, reinterpret_cast<HKEY>(LONG_PTR{0x1234})},
                {0, nullptr}};
    for (const auto& row : rows) {
        setRoot(object.get(), long32(row.root));
        expectResult(call(L"RegExisteClé", {text(L"a")}), false);
        EXPECT_EQ(row.handle, used) << row.root;
    }
}

TEST_F(Registre, aRootThatIsNoneGivesNothing) {
    for (const std::int32_t root : {0, 0x7FFFFFF0, -2147483641, -1}) {
        setRoot(object.get(), long32(root));
        const auto path = text(key.path());
        EXPECT_FALSE(isTrue(L"RegIsFullAccessRight", {path})) << root;
        EXPECT_FALSE(isTrue(L"RegCreerNouvelleCle", {path})) << root;
        EXPECT_FALSE(isTrue(L"RegSupprimeCle", {path})) << root;
        EXPECT_FALSE(isTrue(L"RegEcritValeur", {path, text(L"a"), text(L"b"), regString})) << root;
        EXPECT_FALSE(isTrue(L"RegExisteValeur", {path, text(L"a")})) << root;
        EXPECT_FALSE(isTrue(L"RegExisteClé", {path})) << root;
        EXPECT_FALSE(isTrue(L"RegEffaceValeur", {path, text(L"a")})) << root;
        expectResult(call(L"RegLitValeur", {path, text(L"a")}), Variant());
        EXPECT_EQ(Names(), keysOf(key.path())) << root;
        EXPECT_EQ(Names(), valuesOf(key.path())) << root;
    }
    EXPECT_TRUE(key.exists(L""));
}

// A host that has opened a key of its own.
TEST_F(Registre, theRootMayBeAnOpenKey) {
    const std::wstring longest(255, L'x');
    key.make(L"a");
    RegistryKey open;
    ASSERT_EQ(ERROR_SUCCESS, RegOpenKeyExW(HKEY_CURRENT_USER, key.path().c_str(), 0, KEY_READ, open.put()));
    setRoot(object.get(), long32(static_cast<std::int32_t>(reinterpret_cast<LONG_PTR>(open.get()))));
    expectResult(call(L"RegExisteClé", {text(L"a")}), true);
    EXPECT_EQ(Names{L"a"}, keysOf(L""));
    // The longest possible name, and a longer one.
    EXPECT_TRUE(isTrue(L"RegCreerNouvelleCle", {text(longest)}));
    EXPECT_FALSE(isTrue(L"RegCreerNouvelleCle", {text(longest + longest)}));
    EXPECT_EQ((Names{L"a", longest}), keysOf(L""));
    // The host's key is still open.
    HKEY again = nullptr;
    EXPECT_EQ(ERROR_SUCCESS, RegOpenKeyExW(open.get(), L"a", 0, KEY_READ, &again));
    RegCloseKey(again);
}

TEST_F(Registre, oneLeadingBackslashDoesNotCount) {
    const auto path = key.path(), behindBackslash = L"\\" + path;
    EXPECT_TRUE(isTrue(L"RegCreerNouvelleCle", {text(behindBackslash + L"\\a")}));
    EXPECT_TRUE(key.exists(L"a"));
    EXPECT_TRUE(isTrue(L"RegEcritValeur", {text(behindBackslash), text(L"v"), text(L"x"), regString}));
    EXPECT_TRUE(isTrue(L"RegExisteValeur", {text(behindBackslash), text(L"v")}));
    expectResult(call(L"RegLitValeur", {text(behindBackslash), text(L"v")}), text(L"x"));
    expectResult(call(L"RegExisteClé", {text(behindBackslash)}), true);
    EXPECT_EQ(Names{L"a"}, keysOf(behindBackslash));
    EXPECT_EQ(Names{L"v"}, valuesOf(behindBackslash));
    EXPECT_TRUE(isTrue(L"RegEffaceValeur", {text(behindBackslash), text(L"v")}));
    EXPECT_EQ(std::nullopt, key.get(L"v"));
    EXPECT_TRUE(isTrue(L"RegSupprimeCle", {text(behindBackslash + L"\\a")}));
    EXPECT_FALSE(key.exists(L"a"));
}

// The part of a path that reaches Windows. What Windows makes of it is not tested.
TEST_F(Registre, pathsReachWindowsOtherwiseUnchanged) {
    RegistryCalls registry(component.module());
    std::string path;
    const auto remember = [&path](LPCSTR given) {
        path = given;
        return LSTATUS{ERROR_FILE_NOT_FOUND};
    };
    registry.open.answer([&](HKEY, LPCSTR given, DWORD, REGSAM, PHKEY) { return remember(given); });
    registry.create.answer([&](HKEY, LPCSTR given, DWORD, LPSTR, DWORD, REGSAM, auto*, PHKEY, LPDWORD) {
        return remember(given);
    });
    registry.remove.answer([&](HKEY, LPCSTR given) { return remember(given); });
    const struct {
        std::wstring given;
        std::string normalised, asItIs;
    } rows[] = {{L"a\\b", "a\\b", "a\\b"},
                {L"\\a\\b", "a\\b", "\\a\\b"},
                {L"\\\\a\\b", "\\a\\b", "\\\\a\\b"},
                {L"a\\b\\\\", "a\\b\\\\", "a\\b\\\\"},
                {L"/a/b", "/a/b", "/a/b"},
                {L" a ", " a ", " a "},
                {L"\\", "", "\\"},
                {L"", "", ""},
                {L"été €", "\xE9t\xE9 \x80", "\xE9t\xE9 \x80"},
                {L"漢", "?", "?"},
                {std::wstring(L"\\a\0\\b", 5), "a", "\\a"},
                {std::wstring(40000, L'x'), std::string(40000, 'x'), std::string(40000, 'x')}};
    Collection collection;
    const auto host = vorla::test::object(&collection);
    for (const auto& row : rows) {
        const auto given = text(row.given);
        const auto expectPath = [&](const wchar_t* name, Arguments arguments, const std::string& expected) {
            path = "(none)";
            EXPECT_EQ(S_OK, call(name, std::move(arguments)).code);
            EXPECT_EQ(expected, path) << narrow(name) << ' ' << narrow(row.given);
        };
        expectPath(L"RegIsFullAccessRight", {given}, row.asItIs);
        expectPath(L"RegCreerNouvelleCle", {given}, row.normalised);
        expectPath(L"RegSupprimeCle", {given}, row.normalised);
        expectPath(L"RegLireCles", {given, host}, row.normalised);
        expectPath(L"RegLireValeurs", {given, host}, row.normalised);
        // The last call creates the key. The path has lost one backslash only.
        expectPath(L"RegEcritValeur", {given, text(L"n"), text(L"v"), regString}, row.normalised);
        expectPath(L"RegEcritValeur", {given, text(L"n"), text(L"v"), regString, false}, row.normalised);
        expectPath(L"RegExisteValeur", {given, text(L"n")}, row.normalised);
        expectPath(L"RegExisteClé", {given}, row.normalised);
        expectPath(L"RegEffaceValeur", {given, text(L"n")}, row.normalised);
        expectPath(L"RegLitValeur", {given, text(L"n")}, row.normalised);
    }
    EXPECT_EQ(Names(), collection.names);
}

TEST_F(Registre, forwardSlashesSeparateNothing) {
    EXPECT_TRUE(isTrue(L"RegCreerNouvelleCle", {text(key.path(L"a/b"))}));
    EXPECT_FALSE(key.exists(L"a"));
    EXPECT_EQ(Names{L"a/b"}, keysOf(key.path()));
    EXPECT_TRUE(isTrue(L"RegSupprimeCle", {text(key.path(L"a/b"))}));
}

// Members that change a key ask for full access, the others for read access.
TEST_F(Registre, accessRights) {
    RegistryCalls registry(component.module());
    REGSAM asked = 0;
    DWORD options = 77;
    registry.open.answer([&](HKEY, LPCSTR, DWORD, REGSAM access, PHKEY) {
        asked = access;
        return LSTATUS{ERROR_ACCESS_DENIED};
    });
    registry.create.answer(
        [&](HKEY, LPCSTR, DWORD, LPSTR kind, DWORD given, REGSAM access, auto* security, PHKEY, LPDWORD) {
            asked = access;
            options = given;
            EXPECT_EQ(nullptr, kind);
            EXPECT_EQ(nullptr, security);
            return LSTATUS{ERROR_ACCESS_DENIED};
        });
    Collection collection;
    const auto a = text(L"a"), host = vorla::test::object(&collection);
    const auto expectAccess = [&](REGSAM expected, const wchar_t* name, Arguments arguments) {
        asked = 0;
        EXPECT_EQ(S_OK, call(name, std::move(arguments)).code);
        EXPECT_EQ(expected, asked) << narrow(name);
    };
    constexpr REGSAM everything = 0xF003F, reading = 0x20019;
    expectAccess(everything, L"RegIsFullAccessRight", {a});
    expectAccess(everything, L"RegCreerNouvelleCle", {a});
    EXPECT_EQ(0u, options);
    expectAccess(everything, L"RegEcritValeur", {a, a, a, regString, false});
    expectAccess(everything, L"RegEffaceValeur", {a, a});
    expectAccess(reading, L"RegLireCles", {a, host});
    expectAccess(reading, L"RegLireValeurs", {a, host});
    expectAccess(reading, L"RegExisteValeur", {a, a});
    expectAccess(reading, L"RegExisteClé", {a});
    expectAccess(reading, L"RegLitValeur", {a, a});
}

// A key that can be read but not changed.
TEST_F(Registre, accessDenied) {
    key.make(L"a");
    key.setText(L"v", REG_SZ, L"x\0"sv);
    RegistryCalls registry(component.module());
    registry.open.answer([&](HKEY root, LPCSTR path, DWORD options, REGSAM access, PHKEY opened) {
        if (access != KEY_READ) return LSTATUS{ERROR_ACCESS_DENIED};
        return registry.open.callOriginal(root, path, options, access, opened);
    });
    registry.create.answer([&](HKEY, LPCSTR, DWORD, LPSTR, DWORD, REGSAM, auto*, PHKEY, LPDWORD) {
        return LSTATUS{ERROR_ACCESS_DENIED};
    });
    registry.remove.answer([&](HKEY, LPCSTR) { return LSTATUS{ERROR_ACCESS_DENIED}; });
    const auto path = text(key.path());
    EXPECT_FALSE(isTrue(L"RegIsFullAccessRight", {path}));
    EXPECT_FALSE(isTrue(L"RegCreerNouvelleCle", {path}));
    EXPECT_FALSE(isTrue(L"RegSupprimeCle", {text(key.path(L"a"))}));
    EXPECT_FALSE(isTrue(L"RegEcritValeur", {path, text(L"v"), text(L"y"), regString}));
    EXPECT_FALSE(isTrue(L"RegEffaceValeur", {path, text(L"v")}));
    EXPECT_TRUE(isTrue(L"RegExisteClé", {path}));
    EXPECT_TRUE(isTrue(L"RegExisteValeur", {path, text(L"v")}));
    expectResult(read(L"v"), text(L"x"));
    EXPECT_EQ(Names{L"a"}, keysOf(key.path()));
    EXPECT_EQ(Names{L"v"}, valuesOf(key.path()));
    EXPECT_TRUE(key.exists(L"a"));
}

TEST_F(Registre, keysAreMadeTestedAndDeleted) {
    EXPECT_FALSE(isTrue(L"RegExisteClé", {text(key.path(L"a"))}));
    EXPECT_FALSE(isTrue(L"RegIsFullAccessRight", {text(key.path(L"a"))}));
    EXPECT_TRUE(isTrue(L"RegCreerNouvelleCle", {text(key.path(L"a\\b\\été €"))}));
    EXPECT_TRUE(key.exists(L"a\\b\\été €"));
    EXPECT_TRUE(isTrue(L"RegCreerNouvelleCle", {text(key.path(L"a"))}));
    EXPECT_TRUE(isTrue(L"RegIsFullAccessRight", {text(key.path(L"a"))}));
    EXPECT_TRUE(isTrue(L"RegExisteClé", {text(key.path(L"A\\B\\été €"))}));
    // Windows refuses to delete a key that has subkeys.
    EXPECT_FALSE(isTrue(L"RegSupprimeCle", {text(key.path(L"a"))}));
    EXPECT_TRUE(key.exists(L"a\\b\\été €"));
    EXPECT_TRUE(isTrue(L"RegSupprimeCle", {text(key.path(L"a\\b\\été €"))}));
    EXPECT_TRUE(isTrue(L"RegSupprimeCle", {text(key.path(L"a\\b"))}));
    EXPECT_FALSE(isTrue(L"RegSupprimeCle", {text(key.path(L"a\\b"))}));
    EXPECT_FALSE(key.exists(L"a\\b"));
    EXPECT_EQ(Names{L"a"}, keysOf(key.path()));
    // The root itself.
    expectResult(call(L"RegExisteClé", {text(L"")}), true);
    expectResult(call(L"RegExisteClé", {text(L"\\")}), true);
}

TEST_F(Registre, whatTheCodePageLacksIsAQuestionMark) {
    EXPECT_TRUE(isTrue(L"RegCreerNouvelleCle", {text(key.path(L"漢"))}));
    EXPECT_EQ(Names{L"?"}, keysOf(key.path()));
    EXPECT_TRUE(write(L"a漢", text(L"b漢字"), regString));
    EXPECT_EQ(Names{L"a?"}, valuesOf(key.path()));
    expectResult(read(L"a?"), text(L"b??"));
    // A text of another program.
    key.setText(L"漢字 ", REG_SZ, L"漢 é\0"sv);
    auto names = valuesOf(key.path());
    std::sort(names.begin(), names.end());
    EXPECT_EQ((Names{L"??", L"a?"}), names);
}

// How many of three names are listed before the n-th call of a function fails.
std::size_t listedBefore(const std::string& function, int n) {
    if (function == "RegCloseKey") return 3;
    if (function.starts_with("RegEnum")) return static_cast<std::size_t>(n - 1);
    // A name is converted by two calls: for its length, and for its characters.
    if (function == "MultiByteToWideChar") return static_cast<std::size_t>((n - 1) / 2);
    return 0;
}

TEST_F(Registre, everyCallOfTheSystemFailsInTurn) {
    struct Use {
        std::wstring member;
        Arguments arguments;
        Variant worked, refused;
    };
    Collection collection;
    const auto host = vorla::test::object(&collection);
    const auto path = text(key.path()), below = text(key.path(L"a")), list = text(key.path(L"liste"));
    const auto string = text(L"texte"), number = text(L"nombre"), bytes = text(L"octets");
    const Variant yes = true, no = false, none;
    const Use uses[] = {{L"RegIsFullAccessRight", {below}, yes, no},
                        {L"RegCreerNouvelleCle", {below}, yes, no},
                        {L"RegSupprimeCle", {below}, yes, no},
                        {L"RegLireCles", {list, host}, none, none},
                        {L"RegLireValeurs", {path, host}, none, none},
                        {L"RegEcritValeur", {path, string, text(L"y"), regString}, yes, no},
                        {L"RegEcritValeur", {path, number, text(L"5"), regNumber}, yes, no},
                        {L"RegExisteValeur", {path, string}, yes, no},
                        {L"RegExisteClé", {below}, yes, no},
                        {L"RegEffaceValeur", {path, string}, yes, no},
                        {L"RegLitValeur", {path, string}, text(L"x"), none},
                        {L"RegLitValeur", {path, number}, long32(0x04030201), none},
                        {L"RegLitValeur", {path, bytes}, text(L"\1\2"), none}};
    const auto failsAt = [&](const Use& use, std::size_t which, int n) {
        key.make(L"a");
        for (const wchar_t* name : {L"un", L"deux", L"trois"}) key.make(L"liste\\"s + name);
        key.setText(L"texte", REG_SZ, L"x\0"sv);
        key.set(L"nombre", REG_DWORD, "\1\2\3\4"sv);
        key.set(L"octets", REG_BINARY, "\1\2\3"sv);
        collection.names.clear();
        RegistryCalls registry(component.module());
        const auto function = registry.functions().at(which);
        const auto what = narrow(use.member) + ' ' + function.name + ' ' + std::to_string(n);
        function.fail(n);
        const auto outcome = call(use.member.c_str(), use.arguments);
        const bool failed = function.calls() >= n;
        // A key that cannot be opened for writing is created, and is open then. Failing to close a key
        // changes no result.
        const bool harmless = function.name == "RegCloseKey" ||
                              (use.member == L"RegEcritValeur" && function.name == "RegOpenKeyExA" && n == 1);
        expectResult(outcome, failed && !harmless ? use.refused : use.worked, what);
        const std::size_t listable = use.member.starts_with(L"RegLire") ? 3 : 0;
        EXPECT_EQ(failed ? std::min(listable, listedBefore(function.name, n)) : listable,
                  collection.names.size())
            << what;
        EXPECT_EQ(0, registry.leftOpen()) << what;
        return failed;
    };
    const auto functions = RegistryCalls(component.module()).functions().size();
    for (const Use& use : uses) {
        int failures = 0;
        for (std::size_t which = 0; which < functions; ++which)
            for (int n = 1; failsAt(use, which, n); ++n) ++failures;
        // At least three: two calls convert the path, and one call goes to the registry.
        EXPECT_GE(failures, 3) << narrow(use.member);
    }
}

// The three calls that a write to a missing key makes, each refused.
TEST_F(Registre, aKeyThatCannotBeMadeIsNotWrittenTo) {
    RegistryCalls registry(component.module());
    const auto writeTo = [&](const wchar_t* below, Variant kind) {
        return isTrue(L"RegEcritValeur", {text(key.path(below)), text(L"v"), text(L"12"), std::move(kind)});
    };
    for (const auto kind : {regString, regNumber, regBinary}) {
        int before = registry.open.calls();
        registry.create.failCall(1, ERROR_ACCESS_DENIED);
        EXPECT_FALSE(writeTo(L"a", kind));
        EXPECT_EQ(1, registry.open.calls() - before);
        EXPECT_FALSE(key.exists(L"a"));
        // The key is made, and cannot be opened then.
        before = registry.open.calls();
        registry.open.failCall(2, ERROR_ACCESS_DENIED);
        EXPECT_FALSE(writeTo(L"b", kind));
        EXPECT_EQ(2, registry.open.calls() - before);
        EXPECT_TRUE(key.exists(L"b"));
        EXPECT_EQ(Names(), valuesOf(key.path(L"b")));
        EXPECT_TRUE(isTrue(L"RegSupprimeCle", {text(key.path(L"b"))}));
    }
    EXPECT_EQ(0, registry.set.calls());
    EXPECT_EQ(0, registry.leftOpen());
}

TEST_F(Registre, wrongArgumentsAreRefusedByDispatch) {
    const auto a = text(L"a");
    for (const wchar_t* name :
         {L"RegIsFullAccessRight", L"RegCreerNouvelleCle", L"RegSupprimeCle", L"RegExisteClé"}) {
        EXPECT_EQ(DISP_E_BADPARAMCOUNT, call(name, {}).code) << narrow(name);
        EXPECT_EQ(DISP_E_BADPARAMCOUNT, call(name, {a, a}).code) << narrow(name);
        EXPECT_EQ(DISP_E_TYPEMISMATCH, call(name, {nullValue()}).code) << narrow(name);
    }
    for (const wchar_t* name :
         {L"RegExisteValeur", L"RegEffaceValeur", L"RegLitValeur", L"RegLireCles", L"RegLireValeurs"}) {
        EXPECT_EQ(DISP_E_BADPARAMCOUNT, call(name, {a}).code) << narrow(name);
        EXPECT_EQ(DISP_E_TYPEMISMATCH, call(name, {a, nullValue()}).code) << narrow(name);
    }
    for (const wchar_t* name : {L"RegLireCles", L"RegLireValeurs"})
        EXPECT_EQ(DISP_E_TYPEMISMATCH, call(name, {a, text(L"liste")}).code) << narrow(name);
    EXPECT_EQ(DISP_E_BADPARAMCOUNT, call(L"RegEcritValeur", {a, a, a}).code);
    EXPECT_EQ(DISP_E_TYPEMISMATCH, call(L"RegEcritValeur", {a, a, a, text(L"chaîne")}).code);
    EXPECT_EQ(DISP_E_TYPEMISMATCH, call(L"RegEcritValeur", {a, a, a, regString, text(L"peut-être")}).code);
}

TEST_F(Registre, membersThroughTheVtable) {
    ComPointer<IUnknown> early;
    ASSERT_EQ(S_OK,
              object->QueryInterface(interfaceId(numberOfRegistre), reinterpret_cast<void**>(early.put())));
    const auto slot = [&](std::size_t index, auto... raw) {
        using Function = HRESULT(STDMETHODCALLTYPE*)(IUnknown*, decltype(raw)...);
        const auto* const vtable = *reinterpret_cast<void* const* const*>(early.get());
        return reinterpret_cast<Function>(vtable[7 + index])(early.get(), raw...);
    };
    enum {
        fullAccess,
        create,
        remove,
        keys,
        values,
        write,
        hasValue,
        hasKey,
        removeValue,
        readValue,
        get,
        let
    };
    const Bstr path(TextView(key.path(L"a\\b"))), name(TextView(L"v"));
    VARIANT_BOOL yes = 7, wanted = VARIANT_FALSE;
    LONG root = 0;
    EXPECT_EQ(S_OK, slot(get, &root));
    EXPECT_EQ(currentUser, root);
    EXPECT_EQ(S_OK, slot(let, LONG{localMachine}));
    EXPECT_EQ(S_OK, slot(get, &root));
    EXPECT_EQ(localMachine, root);
    EXPECT_EQ(S_OK, slot(let, LONG{currentUser}));

    const Variant value = text(L" x ");
    EXPECT_EQ(S_OK, slot(write, path.get(), name.get(), value.raw(), LONG{regString}, &wanted, &yes));
    EXPECT_EQ(VARIANT_FALSE, yes);
    wanted = VARIANT_TRUE;
    EXPECT_EQ(S_OK, slot(write, path.get(), name.get(), value.raw(), LONG{regString}, &wanted, &yes));
    EXPECT_EQ(VARIANT_TRUE, yes);
    Variant result;
    EXPECT_EQ(S_OK, slot(readValue, path.get(), name.get(), result.put()));
    EXPECT_EQ(describe(text(L"x").raw()), describe(result.raw()));
    VARIANT found;
    EXPECT_EQ(S_OK, slot(hasKey, path.get(), &found));
    EXPECT_EQ(VT_BOOL, found.vt);
    EXPECT_EQ(VARIANT_TRUE, found.boolVal);
    Collection collection;
    IDispatch* host = &collection;
    const Bstr above(TextView(key.path(L"a")));
    EXPECT_EQ(S_OK, slot(keys, above.get(), &host));
    EXPECT_EQ(S_OK, slot(values, path.get(), &host));
    EXPECT_EQ((Names{L"b", L"v"}), collection.names);
    for (const auto index : {fullAccess, create}) {
        yes = 7;
        EXPECT_EQ(S_OK, slot(index, path.get(), &yes));
        EXPECT_EQ(VARIANT_TRUE, yes);
    }
    EXPECT_EQ(S_OK, slot(hasValue, path.get(), name.get(), &yes));
    EXPECT_EQ(VARIANT_TRUE, yes);
    BSTR variable = name.get();
    EXPECT_EQ(S_OK, slot(removeValue, path.get(), &variable, &yes));
    EXPECT_EQ(VARIANT_TRUE, yes);
    EXPECT_EQ(name.get(), variable);
    EXPECT_EQ(S_OK, slot(hasValue, path.get(), name.get(), &yes));
    EXPECT_EQ(VARIANT_FALSE, yes);
    EXPECT_EQ(S_OK, slot(remove, path.get(), &yes));
    EXPECT_EQ(VARIANT_TRUE, yes);
    EXPECT_FALSE(key.exists(L"a\\b"));
    // A null pointer in place of a variable.
    EXPECT_EQ(E_POINTER, slot(keys, above.get(), static_cast<IDispatch**>(nullptr)));
    EXPECT_EQ(E_POINTER, slot(get, static_cast<LONG*>(nullptr)));
}

TEST_F(Registre, nothingIsLeftBehind) {
    key.make(L"a");
    key.set(L"octets", REG_BINARY, "\1\2\3"sv);
    Collection collection;
    const auto host = vorla::test::object(&collection);
    const auto useAll = [&](const std::wstring& path) {
        const auto given = text(path), name = text(L"v");
        for (const wchar_t* member : {L"RegIsFullAccessRight", L"RegExisteClé"})
            EXPECT_EQ(S_OK, call(member, {given}).code);
        for (const wchar_t* member : {L"RegLireCles", L"RegLireValeurs"}) {
            EXPECT_EQ(S_OK, call(member, {given, host}).code);
            EXPECT_EQ(S_OK, call(member, {given, nothing()}).code);
        }
        for (const auto& value : {text(L"x"), nullValue(), long32(5)})
            EXPECT_EQ(S_OK, call(L"RegEcritValeur", {given, name, value, regString, false}).code);
        EXPECT_EQ(S_OK, call(L"RegEcritValeur", {given, text(L"n"), text(L"x"), regNumber, false}).code);
        EXPECT_EQ(S_OK, call(L"RegLitValeur", {given, name}).code);
        EXPECT_EQ(S_OK, call(L"RegLitValeur", {given, text(L"octets")}).code);
        EXPECT_EQ(S_OK, call(L"RegExisteValeur", {given, name}).code);
        EXPECT_EQ(S_OK, call(L"RegEffaceValeur", {given, name}).code);
        collection.names.clear();
        collection.clearLog();
    };
    const auto cycles = [&](int count) {
        for (int i = 0; i < count; ++i) {
            for (const auto& path : {key.path(), key.path(L"absente"), L"\\\\"s}) useAll(path);
            EXPECT_EQ(S_OK, call(L"RegCreerNouvelleCle", {text(key.path(L"b"))}).code);
            EXPECT_EQ(S_OK, call(L"RegSupprimeCle", {text(key.path(L"b"))}).code);
        }
    };
    cycles(10);
    const auto before = Resources::held();
    const MemoryCount count;
    cycles(250);
    EXPECT_EQ(0, count.live());
    EXPECT_EQ(before, Resources::held());
}

}  // namespace
}  // namespace vorla::test
