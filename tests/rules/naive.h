// Naive versions of the rules, one step at a time: positions count from 1, each search starts again and tries
// every place, and each step copies whole texts. They are slow and plain on purpose and share only the error
// numbers with the rules, which do the same in one pass and are compared with them.
#pragma once

#include <cmath>
#include <cstdlib>
#include <string>

#include "frame/values/runtime_error.h"

namespace vorla::naive {

using String = std::wstring;

[[noreturn]] inline void invalidCall() { throw RuntimeError(ErrorNumber::invalidProcedureCall); }

// A position or count stored in a 16-bit variable.
inline long kept(long value) {
    if (value > 32767) throw RuntimeError(ErrorNumber::overflow);
    return value;
}

inline long length(const String& text) { return static_cast<long>(text.size()); }

inline String repeated(long count, wchar_t character) {
    if (count < 0) invalidCall();
    return String(static_cast<std::size_t>(count), character);
}

inline String middle(const String& text, long begin, long count) {
    if (begin < 1 || count < 0) invalidCall();
    if (begin > length(text)) return {};
    return text.substr(static_cast<std::size_t>(begin - 1), static_cast<std::size_t>(count));
}

inline String from(const String& text, long begin) { return middle(text, begin, length(text)); }
inline String left(const String& text, long count) { return middle(text, 1, count); }

inline String right(const String& text, long count) {
    if (count < 0) invalidCall();
    return count >= length(text) ? text : from(text, length(text) - count + 1);
}

inline bool standsAt(const String& text, const String& sought, long position) {
    return text.compare(static_cast<std::size_t>(position - 1), sought.size(), sought) == 0;
}

// The first place at or after `begin`; 0 when there is none.
inline long firstPlace(const String& text, const String& sought, long begin) {
    for (long position = begin; position + length(sought) - 1 <= length(text); ++position)
        if (standsAt(text, sought, position)) return position;
    return 0;
}

// The last place that lies within the first `end` characters; 0 when there is none.
inline long lastPlace(const String& text, const String& sought, long end) {
    long last = 0;
    for (long position = 1; position + length(sought) - 1 <= end; ++position)
        if (standsAt(text, sought, position)) last = position;
    return last;
}

inline String trim(String text) {
    while (!text.empty() && left(text, 1) == L" ") text = from(text, 2);
    while (!text.empty() && right(text, 1) == L" ") text = left(text, length(text) - 1);
    return text;
}

inline String extraitChamp(const String& chaine, long rang, String separateur, bool depuisLaFin) {
    if (separateur.empty()) separateur = L"\t";
    if (rang < 1) rang = 1;
    if (firstPlace(chaine, separateur, 1) == 0) return rang == 1 ? chaine : String();

    String framed = chaine;
    if (left(chaine, 1) != separateur) framed = separateur + framed;
    if (right(chaine, 1) != separateur) framed = framed + separateur;

    long p = 0;
    if (depuisLaFin) {
        p = kept(length(framed));
        for (long i = 1; i <= rang; ++i) {
            p = lastPlace(framed, separateur, p - 1);
            if (p == 1 && i < rang) return {};
        }
    } else {
        for (long i = 1; i <= rang; ++i) p = kept(firstPlace(framed, separateur, p + 1));
    }

    const long q = kept(firstPlace(framed, separateur, p + 1));
    if (q < p + 2) return {};
    return middle(framed, p + length(separateur), q - p - length(separateur));
}

inline String tronqueNul(const String& texte) {
    const long p = firstPlace(texte, String(1, L'\0'), 1);
    return p == 0 ? texte : left(texte, p - 1);
}

inline String cbr(const String& chaine, long longueur) {
    return left(trim(chaine) + repeated(longueur, L' '), longueur);
}

inline String cbl(const String& chaine, long longueur) {
    return right(repeated(longueur, L' ') + trim(chaine), longueur);
}

inline String transfrm(const String& chaine, const String& car1, const String& car2, long debut,
                       long nombre) {
    if (nombre < 1) nombre = kept(length(chaine));
    if (debut < 1) debut = 1;
    String result = chaine;
    if (car1.empty()) return result;

    long count = 0;
    long p = kept(firstPlace(result, car1, debut));
    while (p != 0) {
        result = left(result, p - 1) + car2 + from(result, p + length(car1));
        count = kept(count + 1);
        if (count == nombre) return result;
        if (!car2.empty()) debut = kept(p + length(car2) + 1);
        p = kept(firstPlace(result, car1, debut));
    }
    return result;
}

inline float occurrence(const String& chaine, const String& cherche, long start) {
    float count = 0;
    if (chaine.empty() || cherche.empty()) return count;
    long p = start - 1 > 0 ? start - 1 : 0;
    for (;;) {
        p = kept(firstPlace(chaine, cherche, p + 1));
        if (p == 0) return count;
        count += 1;
    }
}

inline String parse(const String& text, long kind, const String& custom) {
    if (kind == 0) return L"\"" + text + L"\"";
    if (kind == 1) return L"'" + text + L"'";
    if (kind == 2) return L"/" + text + L"/";
    if (kind == 3) return L"\\" + text + L"\\";
    if (kind == 4) return custom + text + custom;
    return text;
}

// A whole number through a format of `longueur` zeros.
inline String keyOfNumber(String number, long longueur) {
    if (longueur < 0) invalidCall();
    String sign;
    if (left(number, 1) == L"-") {
        sign = L"-";
        number = from(number, 2);
    }
    if (length(number) < longueur) number = repeated(longueur - length(number), L'0') + number;
    return sign + number;
}

// An upper-cased key that is not a number.
inline String keyOfText(const String& upperCased, long longueur) {
    const String zeros = repeated(longueur, L'0');
    const String key = trim(upperCased);
    return key.empty() ? zeros : left(key + repeated(longueur, L' '), longueur);
}

// Keeps the carry position between a call and the call that it makes, as the published object does.
class Counter {
public:
    String numLet(const String& chaine, long longueur) {
        if (longueur < 0) invalidCall();
        String s = chaine;
        if (s.empty()) {
            if (longueur == 0) return {};
            s = repeated(longueur, L'0');
        }
        if (carry_ == 0) carry_ = kept(length(s));
        const String before = left(s, carry_ - 1);
        const String after = from(s, carry_ + 1);
        const wchar_t c = s[static_cast<std::size_t>(carry_ - 1)];

        if (c == L'Z') {
            carry_ = carry_ - 1;
            const String result = numLet(before + L"0" + after, 0);
            carry_ = 0;
            return result;
        }
        carry_ = 0;
        if ((c >= L'0' && c <= L'8') || (c >= L'A' && c <= L'Y'))
            return before + static_cast<wchar_t>(c + 1) + after;
        if (c == L'9') return before + L"A" + after;
        return s;
    }

private:
    long carry_ = 0;
};

inline long lastCharacter(const String& text, wchar_t character) {
    return lastPlace(text, String(1, character), length(text));
}

inline long firstCharacter(const String& text, wchar_t character, long begin) {
    return firstPlace(text, String(1, character), begin);
}

inline String antiSlash(const String& path) { return right(path, 1) == L"\\" ? path : path + L"\\"; }

// `folder`: whether the path names an existing one.
inline String decoupeChemin(const String& path, long part, bool folder) {
    if (part == 8) return path;
    if ((part == 1 || part == 2) && firstCharacter(path, L'\\', 1) == 0) return path;
    const bool network = left(path, 2) == L"\\\\";

    // The last character of the drive.
    long drive = 0;
    if (!network) {
        drive = firstCharacter(path, L':', 1);
    } else if (const long server = firstCharacter(path, L'\\', 3)) {
        const long share = firstCharacter(path, L'\\', server + 1);
        drive = share == 0 ? length(path) : share - 1;
    }

    const long separator = folder ? length(path) : lastCharacter(path, L'\\');
    const String directory = left(path, separator), name = from(path, separator + 1);
    const long dot = lastCharacter(name, L'.');
    if (part == 1) return directory;
    if (part == 2) return name;
    if (part == 3) return dot == 0 ? String() : from(name, dot + 1);
    if (part == 4) return dot == 0 || length(name) - dot > 4 ? name : left(name, dot - 1);
    if (part == 5 && drive == 0) return directory;
    if (part == 5) return from(directory, network ? drive + 1 : 3);
    if (part == 6) return left(path, drive);
    if (part == 7) return antiSlash(left(path, drive));
    return {};
}

inline String withExtension(String path, const String& old, const String& wanted) {
    long begin = 1;
    while (const long place = firstPlace(path, L"." + old, begin)) {
        path = left(path, place - 1) + wanted + from(path, place + 1 + length(old));
        begin = place + length(wanted);
    }
    return path;
}

// The folders that are to be created, with a bar after each. Every folder up to the `existing`-th character
// exists, and the first level that ends at the `refused`-th or later is refused.
inline String createdLevels(const String& folder, long drive, long existing, long refused) {
    const long root = middle(folder, drive + 1, 1) == L"\\" ? drive + 1 : drive;
    long reached = root;
    for (long p = root + 1; p <= existing && p <= length(folder); ++p)
        if (middle(folder, p, 1) == L"\\") reached = p;
    String result;
    for (long p = reached + 1; p <= length(folder); ++p) {
        if (middle(folder, p, 1) != L"\\") continue;
        if (p > reached + 1) {
            result += left(folder, p - 1) + L"|";
            if (p >= refused) break;
        }
        reached = p;
    }
    return result;
}

// A typed amount: character by character up to the first foreign one.
inline String systemAmount(const String& amount, wchar_t separator) {
    for (long i = 1; i <= length(amount); ++i) {
        const wchar_t c = middle(amount, i, 1)[0];
        if ((c < L'0' || c > L'9') && c != L'-') return left(amount, i - 1) + separator + from(amount, i + 1);
    }
    return amount;
}

inline String storedAmount(const String& amount, wchar_t separator) {
    const long p = firstPlace(amount, String(1, separator), 1);
    return p == 0 ? amount : left(amount, p - 1) + L"." + from(amount, p + 1);
}

// The whole number of 21 digits divided as on paper, each letter by its row of the table.
inline long bankRemainder(const String& bank, const String& branch, const String& account) {
    long remainder = 0;
    for (const wchar_t c : bank + branch + account) {
        const String rows[] = {L"0",    L"1AJ",  L"2BKS", L"3CLT", L"4DMU",
                               L"5ENV", L"6FOW", L"7GPX", L"8HQY", L"9IRZ"};
        for (long digit = 0; digit < 10; ++digit)
            if (firstPlace(rows[digit], String(1, c), 1) != 0) remainder = (remainder * 10 + digit) % 97;
    }
    return remainder;
}

// The replacement is not searched again.
inline String replacedEverywhere(const String& text, const String& sought, const String& replacement) {
    String w = text;
    for (long p = firstPlace(w, sought, 1); p != 0; p = firstPlace(w, sought, p + length(replacement)))
        w = left(w, p - 1) + replacement + from(w, p + length(sought));
    return w;
}

inline String escaped(const String& text) {
    String w = replacedEverywhere(text, L"\r\n", L"\u00FF{l}");
    w = replacedEverywhere(w, L"\r", L"\u00FF{r}");
    w = replacedEverywhere(w, L"\n", L"\u00FF{f}");
    return replacedEverywhere(w, L"\r\n", L"\u00FF{l}");
}

inline String unescaped(const String& text) {
    String w = replacedEverywhere(text, L"\u00FF{l}", L"\r\n");
    w = replacedEverywhere(w, L"\u00FF{r}", L"\r");
    w = replacedEverywhere(w, L"\u00FF{f}", L"\n");
    return replacedEverywhere(w, L"\u00FF{e}", L"=");
}

inline String controlKey(const String& control, const String& index, const String& property) {
    if (property == L"" && index == L"") return control;
    String w = index;
    while (left(w, 1) == L" ") w = from(w, 2);
    while (right(w, 1) == L" ") w = left(w, length(w) - 1);
    return control + (index == L"" ? L"" : L"#" + w) + L"#" + property;
}

inline String dateParts(const String& date) {
    String w = date, separator;
    for (const wchar_t c : date)
        if (separator.empty() && (c < L'0' || c > L'9')) separator = c;
    if (separator.empty()) return w;
    for (long p = firstPlace(w, separator, 1); p != 0; p = firstPlace(w, separator, 1))
        w = left(w, p - 1) + from(w, p + 1);
    return w;
}

inline String dayFirst(const String& w, const String& separator) {
    return right(w, 2) + separator + middle(w, length(w) - 3, 2) + separator + left(w, length(w) - 4);
}

inline String yearFirst(const String& w, const String& separator) {
    return right(w, length(w) - 4) + separator + middle(w, 3, 2) + separator + left(w, 2);
}

// The code and the name of a version, the rows of the table in order, the last one that fits.
inline String versionName(long major, long minor, long platform, const String& servicePack) {
    String found = L"0 ";
    const auto row = [&](long ofMajor, long ofMinor, bool further, const String& name) {
        if (major == ofMajor && minor == ofMinor && further) found = name;
    };
    row(3, 51, true, L"1 NT 3.51");
    row(4, 0, platform == 2, L"7 NT 4");
    row(4, 0, platform == 1, L"2 95");
    row(4, 0, platform == 1 && servicePack == L"C", L"3 95 OSR2");
    row(4, 10, true, L"4 98");
    row(4, 10, left(trim(servicePack), 1) == L"A", L"5 98 Second Edition");
    row(4, 90, true, L"6 Millenium");
    row(5, 0, true, L"8 2000");
    row(5, 1, true, L"9 XP");
    row(5, 2, true, L"10 Server 2003");
    row(6, 0, true, L"11 Windows Vista");
    return found;
}

inline long digitsFrom(const String& text, long begin) {
    long end = begin;
    while (firstPlace(L"0123456789", middle(text, end, 1), 1) != 0 && end <= length(text)) ++end;
    return end - begin;
}

// Whether all of the text is one number: a sign, digits with a point, an exponent.
inline bool isNumber(const String& text) {
    const auto isOneOf = [&](const String& characters, long place) {
        return place <= length(text) && firstPlace(characters, middle(text, place, 1), 1) != 0;
    };
    long place = isOneOf(L"+-", 1) ? 2 : 1;
    long digits = digitsFrom(text, place);
    place += digits;
    if (isOneOf(L".", place)) {
        const long decimals = digitsFrom(text, ++place);
        digits += decimals;
        place += decimals;
    }
    if (digits == 0) return false;
    if (isOneOf(L"eEdD", place)) {
        if (isOneOf(L"+-", ++place)) ++place;
        const long exponent = digitsFrom(text, place);
        if (exponent == 0) return false;
        place += exponent;
    }
    return place == length(text) + 1;
}

// Every prefix is tried, the longest first; the C library reads the one that is a number.
inline double leadingNumber(const String& text) {
    String characters;
    for (const wchar_t c : text)
        if (c != L' ' && c != L'\t' && c != L'\n') characters += c;
    long longest = length(characters);
    while (longest > 0 && !isNumber(left(characters, longest))) --longest;
    std::string number;
    for (const wchar_t c : left(characters, longest))
        number += c == L'd' || c == L'D' ? 'e' : static_cast<char>(c);
    return std::strtod(number.c_str(), nullptr);
}

// The first list that holds the extension between its blanks, by its number.
inline long typeOfExtension(const String& extension) {
    if (firstPlace(extension, L" ", 1) != 0) return 5;
    const String lists[] = {
        L"2 avi mpg mpeg wmv mov ", L"1 wav mp3 ",
        L"3 zip arj ace arc arj cab dwc gzip jar lbr lzh mar mhk rar sqz tar war zlib zoo xcr ",
        L"0 iff bmp jpg jpeg gif pcx pgm pct pict png psd rle sgi rgb bw rgba tga tif tiff wmf emf ico "};
    for (const String& list : lists)
        if (!extension.empty() && firstPlace(list, L" " + extension + L" ", 1) != 0) return list[0] - L'0';
    return 5;
}

// The number that a device's answer begins with, from `least` to `most`.
inline long beginningOf(const String& reply, double least, double most) {
    const double whole = std::nearbyint(leadingNumber(reply));
    if (!(whole >= least && whole <= most)) throw RuntimeError(ErrorNumber::overflow);
    return static_cast<long>(whole);
}

// The state's number stands before its word.
inline long statusIn(const String& reply) {
    const String states = L"|0playing|1paused|2stopped|3not ready|4recording|5parked|6open|7seeking|";
    for (wchar_t number = L'1'; number <= L'7'; ++number)
        if (firstPlace(states, String(L"|") + number + reply + L"|", 1) != 0) return number - L'0';
    return 0;
}

}  // namespace vorla::naive
