// Each rule against its naive twin, for arguments made of arbitrary bytes.
#pragma once

#include <cwchar>
#include <iterator>
#include <string>

#include "arguments.h"
#include "frame/shared/fields.h"
#include "frame/shared/paths.h"
#include "frame/shared/version_name.h"
#include "frame/values/leading_number.h"
#include "language/language_format.h"
#include "language/message_text.h"
#include "media/replies.h"
#include "naive.h"
#include "outcome.h"
#include "system/file_types.h"
#include "system/folder_levels.h"
#include "text/amounts.h"
#include "text/bank_key.h"
#include "text/date_order.h"
#include "text/keys.h"
#include "text/occurrences.h"
#include "text/padding.h"
#include "text/quoting.h"
#include "text/replacement.h"

namespace vorla {

struct Comparison {
    bool agrees;
    // The error that the twin raised; 0 when it gave a value.
    int error;
    std::string report;
};

template <class Value>
Comparison compared(const std::string& called, const Outcome<Value>& rule, const Outcome<Value>& twin) {
    if (rule == twin) return {true, twin.error(), {}};
    return {false, twin.error(), called + "\n  gives    " + rule.shown() + "\n  expected " + twin.shown()};
}

namespace compare {

inline Comparison fields(Arguments& arguments) {
    const Text text = arguments.farText(L"a;\t", 15, L'x');
    // The twin searches the text once for each rank, which takes too long for a long text and a high rank.
    const auto drawn = arguments.number();
    const auto rank = text.size() > 15 ? static_cast<std::int16_t>(drawn % 20) : drawn;
    const Text separator = arguments.text(L"a;", 3);
    const bool fromEnd = arguments.flag();
    return compared(call("ExtraitChamp", text, rank, separator, fromEnd),
                    outcomeOf([&] { return ExtraitChamp(text, rank, separator, fromEnd); }),
                    outcomeOf([&] { return naive::extraitChamp(text, rank, separator, fromEnd); }));
}

inline Comparison terminator(Arguments& arguments) {
    const Text text = arguments.farText(TextView(L"a\0b", 3), 31, L'x');
    return compared(call("TronqueNul", text), outcomeOf([&] { return TronqueNul(text); }),
                    outcomeOf([&] { return naive::tronqueNul(text); }));
}

inline Comparison columns(Arguments& arguments) {
    const Text text = arguments.farText(TextView(L"  ab\t\u00A0\0", 7), 15, L'x');
    const std::int16_t width = arguments.number();
    if (arguments.flag())
        return compared(call("leftAligned", text, width), outcomeOf([&] { return leftAligned(text, width); }),
                        outcomeOf([&] { return naive::cbr(text, width); }));
    return compared(call("rightAligned", text, width), outcomeOf([&] { return rightAligned(text, width); }),
                    outcomeOf([&] { return naive::cbl(text, width); }));
}

inline Comparison replacement(Arguments& arguments) {
    const Text text = arguments.farText(L"aab", 23, L'x');
    const Text sought = arguments.text(L"ab", 3);
    const Text by = arguments.farText(L"ab", 3, L'y');
    const std::int16_t start = arguments.number();
    const std::int16_t limit = arguments.number();
    return compared(call("replaced", text, sought, by, start, limit),
                    outcomeOf([&] { return replaced(text, sought, by, start, limit); }),
                    outcomeOf([&] { return naive::transfrm(text, sought, by, start, limit); }));
}

inline Comparison occurrences(Arguments& arguments) {
    const Text text = arguments.farText(L"aab", 23, L'x');
    const Text sought = arguments.text(L"aab", 5);
    const std::int16_t start = arguments.number();
    return compared(call("occurrences", text, sought, start),
                    outcomeOf([&] { return vorla::occurrences(text, sought, start); }),
                    outcomeOf([&] { return naive::occurrence(text, sought, start); }));
}

inline Comparison quoting(Arguments& arguments) {
    const TextView alphabet(L"\"'/\\|a\0", 7);
    const Text text = arguments.farText(alphabet, 15, L'x');
    const std::int32_t kind = arguments.number();
    const Text custom = arguments.text(alphabet, 3);
    return compared(call("quoted", text, kind, custom),
                    outcomeOf([&] { return quoted(text, static_cast<eParseSeparator>(kind), custom); }),
                    outcomeOf([&] { return naive::parse(text, kind, custom); }));
}

inline Comparison keys(Arguments& arguments) {
    if (arguments.flag()) {
        const Text sign = arguments.flag() ? L"-" : L"";
        const Text number = sign + L"1" + arguments.text(L"0123456789", 15);
        const std::int16_t width = arguments.number();
        return compared(call("zeroFilled", number, width),
                        outcomeOf([&] { return zeroFilled(number, width); }),
                        outcomeOf([&] { return naive::keyOfNumber(number, width); }));
    }
    const Text key = arguments.farText(TextView(L"  AB\t\u00C9\0", 7), 15, L'X');
    const std::int16_t width = arguments.number();
    return compared(call("storedKey", key, width), outcomeOf([&] { return storedKey(key, width); }),
                    outcomeOf([&] { return naive::keyOfText(key, width); }));
}

// Two codes of the same counter, because a call must not affect the next one.
inline Comparison nextCode(Arguments& arguments) {
    naive::Counter counter;
    for (const bool last : {false, true}) {
        const Text code = arguments.farText(L"ZZZZ0189AYa/:@[", 15, L'0');
        const std::int16_t width = arguments.number();
        const auto result =
            compared(call("nextCode", code, width), outcomeOf([&] { return vorla::nextCode(code, width); }),
                     outcomeOf([&] { return counter.numLet(code, width); }));
        if (last || !result.agrees) return result;
    }
    return {};
}

inline Comparison piece(const Text& path, std::int32_t part, bool isFolder) {
    int asked = 0;
    bool askedOfAnother = false;
    const auto answer = [&](TextView about) {
        ++asked;
        askedOfAnother = about != path;
        return isFolder;
    };
    auto result = compared(call("DecoupeChemin", path, part, isFolder),
                           outcomeOf([&] { return DecoupeChemin(path, eFileN{part}, answer); }),
                           outcomeOf([&] { return naive::decoupeChemin(path, part, isFolder); }));
    if (result.agrees && (asked > 1 || askedOfAnother))
        result = {false, 0, call("DecoupeChemin", path, part, isFolder) + " asks too much"};
    return result;
}

// One path in all modes, and under a number that may not be a mode.
inline Comparison paths(Arguments& arguments) {
    const TextView beginnings[] = {L"", L"C:\\", L"\\\\", L"\\\\s\\h", L"\\", L"C:"};
    const Text path = Text(beginnings[arguments.byte() % std::size(beginnings)]) +
                      arguments.text(TextView(L"\\\\\\..:ab\u00E9\0", 10), 31);
    const bool isFolder = arguments.flag();
    for (std::int32_t part = 1; part <= 8; ++part)
        if (const auto result = piece(path, part, isFolder); !result.agrees) return result;
    return piece(path, arguments.number(), isFolder);
}

inline Comparison extensions(Arguments& arguments) {
    const Text path = arguments.text(L"..tmp\\", 31);
    const Text old = arguments.text(L"tmp.", 3);
    const Text wanted = arguments.text(L".tmpx", 4);
    return compared(call("withExtension", path, old, wanted),
                    outcomeOf([&] { return withExtension(path, old, wanted); }),
                    outcomeOf([&] { return naive::withExtension(path, old, wanted); }));
}

// Escaping, unescaping, and both in turn: a text without groups comes back, and an escaped text has no line
// breaks.
inline Comparison escapes(Arguments& arguments) {
    const Text text = arguments.farText(L"\r\n\u00FF\u00FF{lrfe}=", 31, L'x');
    const Text written = language::escaped(text);
    if (written.find_first_of(L"\r\n") != Text::npos) return {false, 0, call("escaped", text)};
    if (language::unescaped(written) != language::unescaped(text))
        return {false, 0, call("there and back", text)};
    if (arguments.flag())
        return compared(call("escaped", text), outcomeOf([&] { return language::escaped(text); }),
                        outcomeOf([&] { return naive::escaped(text); }));
    return compared(call("unescaped", text), outcomeOf([&] { return language::unescaped(text); }),
                    outcomeOf([&] { return naive::unescaped(text); }));
}

inline Comparison controlKeys(Arguments& arguments) {
    const Text control = arguments.text(L"a# ", 5), index = arguments.text(L"  12\t", 7),
               property = arguments.text(L"#T ", 3);
    return compared(call("controlKey", control, index, property),
                    outcomeOf([&] { return language::controlKey(control, index, property); }),
                    outcomeOf([&] { return naive::controlKey(control, index, property); }));
}

inline Comparison messages(Arguments& arguments) {
    const Text text = arguments.farText(L"%%%%1234&", 31, L'x'), value = arguments.text(L"%12&", 5);
    const int number = 1 + arguments.byte() % 4;
    if (arguments.flag())
        return compared(call("withoutAccessKeys", text),
                        outcomeOf([&] { return language::withoutAccessKeys(text); }),
                        outcomeOf([&] { return naive::replacedEverywhere(text, L"&", L""); }));
    return compared(call("withValue", text, number, value),
                    outcomeOf([&] { return language::withValue(text, number, value); }), outcomeOf([&] {
                        return naive::replacedEverywhere(text, L"%%" + std::to_wstring(number), value);
                    }));
}

// A disk on which every folder up to the `existing`-th character exists, and nothing is created that ends at
// the `refused`-th or later.
inline Comparison levelsOf(const Text& folder, std::size_t existing, std::size_t refused) {
    const auto drive = naive::decoupeChemin(folder, 6, false).size();
    const auto asked = [&] {
        Text result;
        createMissingLevels(
            folder, drive, [&](TextView path) { return path.size() <= existing; },
            [&](TextView path) {
                result += Text(path) + L"|";
                return path.size() + 1 < refused;
            });
        return result;
    };
    return compared(call("createMissingLevels", folder, drive, existing, refused), outcomeOf(asked),
                    outcomeOf([&] {
                        return naive::createdLevels(folder, static_cast<long>(drive),
                                                    static_cast<long>(existing), static_cast<long>(refused));
                    }));
}

inline Comparison folderLevels(Arguments& arguments) {
    const TextView beginnings[] = {L"", L"C:\\", L"\\\\s\\h\\", L"\\\\", L"C:"};
    const Text folder = Text(beginnings[arguments.byte() % std::size(beginnings)]) +
                        arguments.text(TextView(L"\\\\ab:.\0", 7), 23) + L"\\";
    const std::size_t existing = arguments.byte() % 32u;
    return levelsOf(folder, existing, arguments.byte() % 32u);
}

inline Comparison amounts(Arguments& arguments) {
    const Text text = arguments.farText(TextView(L"0123--.., \0\u00A0", 12), 15, L'7');
    const wchar_t separator = L",.0"[arguments.byte() % 3];
    if (arguments.flag())
        return compared(call("withSystemSign", text, separator),
                        outcomeOf([&] { return withSystemSign(text, separator); }),
                        outcomeOf([&] { return naive::systemAmount(text, separator); }));
    return compared(call("withPoint", text, separator), outcomeOf([&] { return withPoint(text, separator); }),
                    outcomeOf([&] { return naive::storedAmount(text, separator); }));
}

// Whole accounts are compared with the long division; any other text must only be read safely.
inline Comparison bankKey(Arguments& arguments) {
    const auto code = [&](TextView alphabet, std::size_t length) {
        Text result(length, L'0');
        for (wchar_t& character : result) character = alphabet[arguments.byte() % alphabet.size()];
        return result;
    };
    const Text bank = code(L"0123456789", 5), branch = code(L"0123456789", 5);
    const Text account = code(L"0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ", 11);
    const Text odd = arguments.farText(L"0159+-.,eED \t/xZ", 15, L'9');
    const auto ignored = outcomeOf([&] {
        return std::to_wstring(bankRemainder(leadingNumber(odd), odd, accountDigits(odd)) +
                               bankKeyFits(1, odd));
    });
    if (ignored.error() != 0 && ignored.error() != 6) return {false, 0, call("bankRemainder", odd)};
    return compared(
        call("bankRemainder", bank, branch, account), outcomeOf([&] {
            return std::to_wstring(bankRemainder(leadingNumber(bank), branch, accountDigits(account)));
        }),
        outcomeOf([&] { return std::to_wstring(naive::bankRemainder(bank, branch, account)); }));
}

inline Comparison dateOrder(Arguments& arguments) {
    const Text date = arguments.farText(TextView(L"012345--/.\0\u00E9", 12), 15, L'2');
    const Text separator = arguments.text(L"/.", 1);
    const auto parts = withoutSeparator(date, [](wchar_t c) { return c >= L'0' && c <= L'9'; });
    if (parts != naive::dateParts(date)) return {false, 0, call("withoutSeparator", date)};
    if (arguments.flag())
        return compared(call("dayFirst", parts, separator),
                        outcomeOf([&] { return dayFirst(parts, separator); }),
                        outcomeOf([&] { return naive::dayFirst(parts, separator); }));
    return compared(call("yearFirst", parts, separator),
                    outcomeOf([&] { return yearFirst(parts, separator); }),
                    outcomeOf([&] { return naive::yearFirst(parts, separator); }));
}

// Versions around those of the table, the field as the system fills it or cut short.
inline Comparison versions(Arguments& arguments) {
    constexpr std::uint32_t majors[] = {3, 4, 4, 4, 5, 6, 10}, minors[] = {0, 1, 2, 10, 51, 90, 11};
    VersionFacts facts;
    facts.major = majors[arguments.byte() % std::size(majors)];
    facts.minor = minors[arguments.byte() % std::size(minors)];
    facts.platform = arguments.byte() % 4;
    Text servicePack = arguments.text(TextView(L" ABCa\t\0", 7), 5);
    if (arguments.flag()) servicePack.resize(128);
    facts.servicePack = servicePack;
    return compared(
        call("versionName", facts.major, facts.minor, facts.platform, servicePack), outcomeOf([&] {
            const auto found = versionName(facts);
            return std::to_wstring(static_cast<int>(found.version)) + L" " + Text(found.name);
        }),
        outcomeOf([&] { return naive::versionName(facts.major, facts.minor, facts.platform, servicePack); }));
}

// Sometimes with so many digits that only the exponent brings the number into the range, or out of it.
inline Comparison leadingNumbers(Arguments& arguments) {
    const TextView alphabet = L"0159+-.eEdD \t\nx,";
    Text text = arguments.text(alphabet, 7);
    if (const auto many = arguments.byte(); many >= 0xE0)
        text += Text(300 + many % 32u, arguments.flag() ? L'0' : L'9');
    text += arguments.text(alphabet, 15);
    const auto digits = [](double number) {
        wchar_t written[40];
        // Hosts cannot see the sign of a zero.
        std::swprintf(written, std::size(written), L"%.17g", number + 0.0);
        return Text(written);
    };
    return compared(call("leadingNumber", text), outcomeOf([&] { return digits(leadingNumber(text)); }),
                    outcomeOf([&] { return digits(naive::leadingNumber(text)); }));
}

// Extensions of the lists, some with a character changed, cut off or added.
inline Comparison fileTypes(Arguments& arguments) {
    constexpr TextView known[] = {L"avi", L"mpeg", L"mp3",  L"wav",  L"gzip", L"zlib", L"zip", L"rgba",
                                  L"rgb", L"bw",   L"jpeg", L"tiff", L"tif",  L"ico",  L"cda", L""};
    Text extension(known[arguments.byte() % std::size(known)]);
    const Text changed = arguments.text(TextView(L"agimpvz3 A\0", 11), 2);
    const auto place = arguments.byte() % (extension.size() + 1);
    extension.replace(place, arguments.byte() % 2u, changed);
    return compared(call("typeOfExtension", extension),
                    outcomeOf([&] { return std::to_wstring(static_cast<int>(typeOfExtension(extension))); }),
                    outcomeOf([&] { return std::to_wstring(naive::typeOfExtension(extension)); }));
}

// Answers of the media devices: numbers around the ends of both integer types, with something behind them.
inline Comparison replies(Arguments& arguments) {
    constexpr TextView known[] = {L"", L"3276", L"-3276", L"214748364", L"-214748364", L"2147483647.", L"1e"};
    const Text reply =
        Text(known[arguments.byte() % std::size(known)]) + arguments.text(L"0123456789.-: x", 6);
    const bool narrow = arguments.flag();
    return compared(
        call("beginning", reply, narrow), outcomeOf([&] {
            return std::to_wstring(narrow ? media::beginningInt16(reply) : media::beginningInt32(reply));
        }),
        outcomeOf([&] {
            return std::to_wstring(narrow ? naive::beginningOf(reply, -32768, 32767)
                                          : naive::beginningOf(reply, -2147483648.0, 2147483647));
        }));
}

// Words for states, some with a character changed, cut off or added.
inline Comparison mediaStates(Arguments& arguments) {
    constexpr TextView known[] = {L"playing",   L"paused", L"stopped", L"not ready",
                                  L"recording", L"parked", L"open",    L"seeking"};
    Text reply(known[arguments.byte() % std::size(known)]);
    const Text changed = arguments.text(L"aeopP ", 2);
    reply.replace(arguments.byte() % (reply.size() + 1), arguments.byte() % 2u, changed);
    return compared(call("statusIn", reply),
                    outcomeOf([&] { return std::to_wstring(static_cast<int>(media::statusIn(reply))); }),
                    outcomeOf([&] { return std::to_wstring(naive::statusIn(reply)); }));
}

}  // namespace compare
}  // namespace vorla
