// VorlaRegistre: values written, read, tested and deleted.
#include <optional>

#include "contract/registre.h"

namespace vorla::test {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

// The stored bytes without the NUL that Windows adds to a string.
std::optional<StoredValue> withoutNul(std::optional<StoredValue> value) {
    if (value && value->bytes.ends_with("\0\0"sv)) value->bytes.resize(value->bytes.size() - 2);
    return value;
}

StoredValue storedString(std::wstring_view text) {
    return {REG_SZ, {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t)}};
}

TEST_F(Registre, textsAreWrittenAndReadBack) {
    struct Row {
        Variant value;
        std::wstring stored;
    };
    const wchar_t* const yes = isFrench() ? L"Vrai" : L"True";
    const std::wstring large(100'000, L'é');
    const Row rows[] = {{text(L"abc"), L"abc"},
                        {text(L"a"), L"a"},
                        {text(L"  avec des blancs  "), L"avec des blancs"},
                        {text(L"\ttabulation\u00A0"), L"\ttabulation\u00A0"},
                        {text(L"avant\0après"sv), L"avant"},
                        {text(L"  avant \0après"sv), L"avant"},
                        {text(L"été, œuvre, 12 €"), L"été, œuvre, 12 €"},
                        {text(L"a\r\nb"), L"a\r\nb"},
                        {text(L"%PATH%"), L"%PATH%"},
                        {text(large), large},
                        {std::int16_t{-12}, L"-12"},
                        {long32(32768), L"32768"},
                        {1.5, isFrench() ? L"1,5" : L"1.5"},
                        {Currency{12500}, isFrench() ? L"1,25" : L"1.25"},
                        {true, yes}};
    for (const Row& row : rows) {
        const auto what = narrow(row.stored.substr(0, 40));
        EXPECT_TRUE(write(L"valeur", row.value, regString)) << what;
        EXPECT_EQ(storedString(row.stored), withoutNul(key.get(L"valeur"))) << what;
        expectResult(read(L"valeur"), text(row.stored), what);
    }
    // Reading and writing it repeatedly loses nothing.
    const std::wstring value = L"réglage";
    EXPECT_TRUE(write(L"valeur", text(value), regString));
    for (int i = 0; i < 20; ++i) EXPECT_TRUE(write(L"valeur", read(L"valeur").result, regString));
    expectResult(read(L"valeur"), text(value));
}

TEST_F(Registre, everyCharacterOfTheCodePageComesBack) {
    std::string bytes;
    for (int byte = 1; byte < 256; ++byte) bytes += static_cast<char>(byte);
    // Without blanks at the ends, which would be dropped.
    bytes = "x" + bytes + "x";
    wchar_t characters[300];
    const auto length = MultiByteToWideChar(CP_ACP, 0, bytes.data(), static_cast<int>(bytes.size()),
                                            characters, std::size(characters));
    ASSERT_EQ(bytes.size(), static_cast<std::size_t>(length));
    const std::wstring value(characters, bytes.size());
    EXPECT_TRUE(write(L"valeur", text(value), regString));
    expectResult(read(L"valeur"), text(value));
}

TEST_F(Registre, aStringIsStoredWithoutItsNul) {
    RegistryCalls registry(component.module());
    DWORD type = 77;
    std::string data, name;
    registry.set.answer([&](HKEY, LPCSTR given, DWORD reserved, DWORD kind, const BYTE* bytes, DWORD size) {
        EXPECT_EQ(0u, reserved);
        name = given;
        type = kind;
        data.assign(reinterpret_cast<const char*>(bytes), size);
        return LSTATUS{ERROR_SUCCESS};
    });
    EXPECT_TRUE(write(L"nom é", text(L" abc € "), regString));
    EXPECT_EQ("nom \xE9", name);
    EXPECT_EQ(DWORD{REG_SZ}, type);
    EXPECT_EQ("abc \x80", data);
    EXPECT_TRUE(write(L"", text(L"   "), regString));
    EXPECT_EQ("", name);
    EXPECT_EQ("", data);
    EXPECT_TRUE(write(L"a\0b"s, long32(-2), regNumber));
    EXPECT_EQ("a", name);
    EXPECT_EQ(DWORD{REG_DWORD}, type);
    EXPECT_EQ("\xFE\xFF\xFF\xFF", data);
}

TEST_F(Registre, anEmptyTextIsStoredAndReadsAsEmpty) {
    for (const auto& value : {text(L""), text(L"   "), text(L"\0abc"sv), Variant()}) {
        EXPECT_TRUE(write(L"vide", value, regString));
        EXPECT_EQ(storedString(L""), withoutNul(key.get(L"vide")));
        // Empty data gives Empty.
        expectResult(read(L"vide"), Variant());
        EXPECT_TRUE(isTrue(L"RegExisteValeur", {text(key.path()), text(L"vide")}));
    }
}

TEST_F(Registre, stringsOfOtherProgramsAreReadWhole) {
    const struct {
        std::wstring_view data, read;
    } rows[] = {{L"abc\0"sv, L"abc"sv},
                // A writer who forgot the NUL.
                {L"abc"sv, L"abc"sv},
                {L"a"sv, L"a"sv},
                {L"\0"sv, L""sv},
                // Only the last NUL is the end.
                {L"abc\0\0"sv, L"abc\0"sv},
                {L"a\0b\0"sv, L"a\0b"sv},
                {L"a\0b"sv, L"a\0b"sv},
                {L"  abc  \0"sv, L"  abc  "sv},
                {L"été €\0"sv, L"été €"sv}};
    for (const auto& row : rows) {
        key.setText(L"valeur", REG_SZ, row.data);
        expectResult(read(L"valeur"), text(row.read), narrow(row.data));
    }
    key.setText(L"valeur", REG_SZ, L"");
    expectResult(read(L"valeur"), Variant());
    key.setText(L"", REG_SZ, L"sans nom\0"sv);
    expectResult(read(L""), text(L"sans nom"));
}

TEST_F(Registre, numbersAreWrittenAndReadBack) {
    const struct {
        Variant value;
        std::int32_t stored;
    } rows[] = {{long32(0), 0},
                {long32(32767), 32767},
                {long32(32768), 32768},
                {long32(2147483647), 2147483647},
                {long32(-1), -1},
                {long32(-2147483647 - 1), -2147483647 - 1},
                {text(L" 12 "), 12},
                {text(L"&HFF"), 255},
                {text(isFrench() ? L"2,5" : L"2.5"), 2},
                {2.5, 2},
                {3.5, 4},
                {Currency{-15000}, -2},
                {true, -1},
                {false, 0},
                {Variant(), 0}};
    for (const auto& row : rows) {
        EXPECT_TRUE(write(L"nombre", row.value, regNumber)) << row.stored;
        EXPECT_EQ((StoredValue{REG_DWORD, {reinterpret_cast<const char*>(&row.stored), 4}}),
                  key.get(L"nombre"));
        expectResult(read(L"nombre"), long32(row.stored));
    }
}

// Numbers of other programs that are not of 32 bits.
TEST_F(Registre, numbersOfAnotherLength) {
    key.set(L"court", REG_DWORD, "\x01\x02"sv);
    expectResult(read(L"court"), long32(0x0201));
    key.set(L"long", REG_DWORD, "\1\2\3\4\5\6\7\x08"sv);
    expectResult(read(L"long"), Variant());
}

TEST_F(Registre, binaryDataIsReadWithoutItsLastByte) {
    key.set(L"octets", REG_BINARY, "\1\2\3"sv);
    expectResult(read(L"octets"), text(L"\1\2"));
    key.set(L"octets", REG_BINARY, "\0\x80\xE9\0\xFF"sv);
    expectResult(read(L"octets"), text(L"\0€é\0"sv));
    key.set(L"octets", REG_BINARY, "\1"sv);
    expectResult(read(L"octets"), text(L""));
    key.set(L"octets", REG_BINARY, ""sv);
    expectResult(read(L"octets"), Variant());
    EXPECT_TRUE(isTrue(L"RegExisteValeur", {text(key.path()), text(L"octets")}));
    const std::string large(1'000'000, 'x');
    key.set(L"octets", REG_BINARY, large);
    expectResult(read(L"octets"), text(std::wstring(999'999, L'x')));
}

TEST_F(Registre, otherKindsOfValuesReadAsEmpty) {
    for (const DWORD type : {DWORD{REG_NONE}, DWORD{REG_EXPAND_SZ}, DWORD{REG_DWORD_BIG_ENDIAN},
                             DWORD{REG_MULTI_SZ}, DWORD{REG_QWORD}, DWORD{12345}}) {
        key.set(L"autre", type, "a\0b\0\0\0\0\0"sv);
        expectResult(read(L"autre"), Variant(), std::to_string(type));
        EXPECT_TRUE(isTrue(L"RegExisteValeur", {text(key.path()), text(L"autre")})) << type;
        EXPECT_TRUE(isTrue(L"RegEffaceValeur", {text(key.path()), text(L"autre")})) << type;
        EXPECT_EQ(std::nullopt, key.get(L"autre")) << type;
    }
    expectResult(read(L"absente"), Variant());
    expectResult(read(L""), Variant());
    expectResult(call(L"RegLitValeur", {text(key.path(L"absente")), text(L"v")}), Variant());
}

TEST_F(Registre, otherKindsOfValuesAreNotWritten) {
    key.set(L"valeur", REG_DWORD, "\1\2\3\4"sv);
    const auto before = key.get(L"valeur");
    for (const std::int32_t type : {regBinary, regExpandable, 0, 7, 11, -1, 32768}) {
        EXPECT_TRUE(write(L"valeur", text(L"abc"), type)) << type;
        EXPECT_EQ(before, key.get(L"valeur")) << type;
        EXPECT_TRUE(write(L"nouvelle", text(L"abc"), type)) << type;
        EXPECT_EQ(std::nullopt, key.get(L"nouvelle")) << type;
        // Not even looked at.
        EXPECT_TRUE(write(L"valeur", nullValue(), type)) << type;
    }
    // The missing key is created all the same, if that is wanted.
    EXPECT_FALSE(isTrue(L"RegEcritValeur", {text(key.path(L"a")), text(L"v"), text(L"x"), regBinary, false}));
    EXPECT_FALSE(key.exists(L"a"));
    EXPECT_TRUE(isTrue(L"RegEcritValeur", {text(key.path(L"a")), text(L"v"), text(L"x"), regBinary}));
    EXPECT_TRUE(key.exists(L"a"));
    EXPECT_EQ(Names(), valuesOf(key.path(L"a")));
}

TEST_F(Registre, whatIsNoTextOrNumberIsNotWritten) {
    key.setText(L"valeur", REG_SZ, L"avant\0"sv);
    const auto before = key.get(L"valeur");
    ScriptedObject plain, valued{text(L" 12 ")};
    const Bstr element(TextView(L"x"));
    Variant array;
    array.put()->vt = VT_ARRAY | VT_I4;
    array.put()->parray = SafeArrayCreateVector(VT_I4, 0, 2);
    RegistryCalls registry(component.module());
    for (const auto type : {regString, regNumber})
        for (const auto& value : {nullValue(), nothing(), vorla::test::object(&plain), array, missing()}) {
            EXPECT_FALSE(write(L"valeur", value, type)) << describe(value.raw());
            EXPECT_EQ(before, key.get(L"valeur"));
        }
    for (const auto& value : {text(L"douze"), text(L""), text(L"99999999999"), Variant(2147483648.0)})
        EXPECT_FALSE(write(L"valeur", value, regNumber)) << describe(value.raw());
    EXPECT_EQ(before, key.get(L"valeur"));
    EXPECT_EQ(0, registry.set.calls());
    EXPECT_EQ(0, registry.leftOpen());
    // By then the key had been created.
    EXPECT_FALSE(isTrue(L"RegEcritValeur", {text(key.path(L"a")), text(L"v"), nullValue(), regString}));
    EXPECT_TRUE(key.exists(L"a"));
    // An object stands for its default property.
    EXPECT_TRUE(write(L"valeur", vorla::test::object(&valued), regString));
    expectResult(read(L"valeur"), text(L"12"));
    EXPECT_TRUE(write(L"valeur", vorla::test::object(&valued), regNumber));
    expectResult(read(L"valeur"), long32(12));
    EXPECT_EQ(0, plain.references());
    EXPECT_EQ(0, valued.references());
}

TEST_F(Registre, aMissingKeyIsMadeIfItIsWanted) {
    const auto path = text(key.path(L"a\\b")), name = text(L"v"), value = text(L"x"),
               kind = long32(regString);
    VARIANT_BOOL typed = VARIANT_FALSE;
    Variant variable(false);
    EXPECT_FALSE(isTrue(L"RegEcritValeur", {path, name, value, kind, false}));
    EXPECT_FALSE(isTrue(L"RegEcritValeur", {path, name, value, kind, byReference(VT_BOOL, &typed)}));
    EXPECT_FALSE(isTrue(L"RegEcritValeur", {path, name, value, kind, byReference(variable)}));
    EXPECT_FALSE(isTrue(L"RegEcritValeur", Arguments({path, name, value, kind}).named(4, false)));
    EXPECT_FALSE(key.exists(L"a"));
    EXPECT_EQ(VARIANT_FALSE, typed);
    EXPECT_EQ(describe(Variant(false).raw()), describe(variable.raw()));
    // The value that some compilers use for True.
    typed = 1;
    EXPECT_TRUE(isTrue(L"RegEcritValeur", {path, name, value, kind, byReference(VT_BOOL, &typed)}));
    EXPECT_EQ(1, typed);
    EXPECT_EQ(storedString(L"x"), withoutNul(key.get(L"v", L"a\\b")));
    EXPECT_TRUE(isTrue(L"RegEcritValeur", {path, name, text(L"y"), kind, false}));
    EXPECT_EQ(storedString(L"y"), withoutNul(key.get(L"v", L"a\\b")));
    EXPECT_TRUE(isTrue(L"RegEcritValeur", {text(key.path(L"c")), name, value, kind}));
    EXPECT_TRUE(isTrue(L"RegEcritValeur", {text(key.path(L"d")), name, value, kind, missing()}));
    EXPECT_EQ(storedString(L"x"), withoutNul(key.get(L"v", L"d")));
}

TEST_F(Registre, valuesAreTestedAndDeleted) {
    EXPECT_FALSE(isTrue(L"RegExisteValeur", {text(key.path()), text(L"")}));
    EXPECT_FALSE(isTrue(L"RegEffaceValeur", {text(key.path()), text(L"")}));
    key.setText(L"Été", REG_SZ, L"x\0"sv);
    key.setText(L"", REG_SZ, L"y\0"sv);
    for (const wchar_t* name : {L"Été", L""}) {
        EXPECT_TRUE(isTrue(L"RegExisteValeur", {text(key.path()), text(name)}));
        EXPECT_FALSE(isTrue(L"RegExisteValeur", {text(key.path(L"absente")), text(name)}));
        EXPECT_FALSE(isTrue(L"RegEffaceValeur", {text(key.path(L"absente")), text(name)}));
    }
    EXPECT_FALSE(isTrue(L"RegExisteValeur", {text(key.path()), text(L"absente")}));
    EXPECT_FALSE(isTrue(L"RegEffaceValeur", {text(key.path()), text(L"absente")}));
    // By reference and left alone.
    Variant variable{TextView(L"Été")};
    EXPECT_TRUE(isTrue(L"RegEffaceValeur", {text(key.path()), byReference(variable)}));
    EXPECT_EQ(describe(text(L"Été").raw()), describe(variable.raw()));
    EXPECT_EQ(std::nullopt, key.get(L"Été"));
    BSTR unnamed = nullptr;
    EXPECT_TRUE(isTrue(L"RegEffaceValeur", {text(key.path()), byReference(VT_BSTR, &unnamed)}));
    EXPECT_EQ(nullptr, unnamed);
    EXPECT_EQ(std::nullopt, key.get(L""));
}

TEST_F(Registre, anotherProgramWritesBetweenTheTwoQueries) {
    RegistryCalls registry(component.module());
    key.setText(L"valeur", REG_SZ, L"abcdef\0"sv);
    std::wstring_view meanwhile;
    registry.query.answer(
        [&](HKEY open, LPCSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data, LPDWORD size) {
            if (data) key.setText(L"valeur", REG_SZ, meanwhile);
            return registry.query.callOriginal(open, name, reserved, type, data, size);
        });
    meanwhile = L"ab\0"sv;
    expectResult(read(L"valeur"), text(L"ab"));
    meanwhile = L""sv;
    key.setText(L"valeur", REG_SZ, L"abcdef\0"sv);
    expectResult(read(L"valeur"), Variant());
    meanwhile = L"plus long qu'avant\0"sv;
    key.setText(L"valeur", REG_SZ, L"abcdef\0"sv);
    expectResult(read(L"valeur"), Variant());
    expectResult(read(L"valeur"), text(L"plus long qu'avant"));
    // A system that reports a greater length than the buffer has.
    registry.query.answer([](HKEY, LPCSTR, LPDWORD, LPDWORD type, LPBYTE data, LPDWORD size) {
        *type = REG_SZ;
        if (data) std::string_view("abc").copy(reinterpret_cast<char*>(data), 3);
        *size = data ? 4000 : 3;
        return LSTATUS{ERROR_SUCCESS};
    });
    expectResult(read(L"valeur"), text(L"abc"));
}

// The reported length of a string includes the NUL at its end, or does not.
TEST_F(Registre, bothWaysOfReportingALengthGiveTheText) {
    RegistryCalls registry(component.module());
    for (const DWORD announced : {3u, 4u, 5u})
        for (const DWORD reported : {3u, 4u}) {
            if (reported > announced) continue;
            registry.query.answer([=](HKEY, LPCSTR, LPDWORD, LPDWORD type, LPBYTE data, LPDWORD size) {
                *type = REG_SZ;
                if (data) std::string_view("abc\0", reported).copy(reinterpret_cast<char*>(data), reported);
                *size = data ? reported : announced;
                return LSTATUS{ERROR_SUCCESS};
            });
            expectResult(read(L"valeur"), text(L"abc"), std::to_string(announced) + std::to_string(reported));
        }
}

}  // namespace
}  // namespace vorla::test
