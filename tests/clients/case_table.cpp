#include "clients/case_table.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <string_view>

#include "frame/values/conversions.h"

namespace vorla::test {
namespace {

class LineReader {
public:
    LineReader(std::string place, std::string_view line) : place_(std::move(place)), rest_(line) {}

    std::wstring name() {
        std::wstring result;
        skipBlanks();
        while (!rest_.empty() && rest_[0] != '(' && rest_[0] != ' ') result += character();
        return result;
    }

    bool take(std::string_view word) {
        skipBlanks();
        if (!rest_.starts_with(word)) return false;
        rest_.remove_prefix(word.size());
        return true;
    }

    void need(std::string_view word) {
        if (!take(word)) fail(word);
    }

    bool at(char next) {
        skipBlanks();
        return !rest_.empty() && rest_[0] == next;
    }

    Variant value() {
        if (at('"')) return Variant(TextView(text()));
        if (take("True")) return Variant(true);
        if (take("False")) return Variant(false);
        if (take("Empty")) return {};
        if (take("Null")) return ofType(VT_NULL);
        if (take("Nothing")) return ofType(VT_DISPATCH);
        if (take("D")) return date();
        return number();
    }

    std::vector<CaseArgument> arguments() {
        std::vector<CaseArgument> result;
        need("(");
        while (!take(")")) {
            if (!result.empty()) need(",");
            CaseArgument argument;
            argument.byReference = take("ref ");
            if (at(',')) {
                argument.value.put()->vt = VT_ERROR;
                argument.value.put()->scode = DISP_E_PARAMNOTFOUND;
            } else {
                argument.value = value();
            }
            result.push_back(std::move(argument));
        }
        return result;
    }

    /// Whether the marks at the end of the line admit this language.
    bool isFor(const std::string& language) {
        const auto end = rest_.substr(std::min(rest_.rfind('"') + 1, rest_.size()));
        const auto mark = end.find('[');
        return mark == end.npos || end.substr(mark) == "[" + language + "]";
    }

private:
    [[noreturn]] void fail(std::string_view expected) {
        throw std::runtime_error(place_ + ": expected " + std::string(expected) +
                                 " before: " + std::string(rest_));
    }

    void skipBlanks() { rest_.remove_prefix(std::min(rest_.find_first_not_of(' '), rest_.size())); }

    static Variant ofType(VARTYPE type) {
        Variant value;
        value.put()->vt = type;  // Null has no value, and the object is none
        return value;
    }

    wchar_t character() {
        char first = rest_[0];
        if (first == '\\' && rest_.starts_with("\\u")) {
            const auto code = std::strtoul(std::string(rest_.substr(2, 4)).c_str(), nullptr, 16);
            rest_.remove_prefix(6);
            return static_cast<wchar_t>(code);
        }
        if (first == '\\') {
            first = rest_.at(1);
            rest_.remove_prefix(1);
        }
        rest_.remove_prefix(1);
        return static_cast<wchar_t>(first);
    }

    std::wstring text() {
        std::wstring result;
        do {
            std::wstring piece;
            need("\"");
            while (!rest_.empty() && rest_[0] != '"') piece += character();
            need("\"");
            const auto times = take("*") ? static_cast<int>(digits()) : 1;
            for (int i = 0; i < times; ++i) result += piece;
        } while (take("+"));
        return result;
    }

    double digits() {
        const std::string text(rest_.substr(0, rest_.find_first_not_of("-0123456789.")));
        if (text.empty()) fail("a number");
        rest_.remove_prefix(text.size());
        return std::strtod(text.c_str(), nullptr);
    }

    Variant number() {
        const double value = digits();
        if (take("&")) return Variant(static_cast<std::int32_t>(value));
        if (take("#")) return Variant(value);
        if (take("b")) {
            auto byte = ofType(VT_UI1);
            byte.put()->bVal = static_cast<BYTE>(value);
            return byte;
        }
        if (take("@")) return Variant(Currency{static_cast<std::int64_t>(value * 10000)});
        if (take("!")) {
            auto single = ofType(VT_R4);
            single.put()->fltVal = static_cast<float>(value);
            return single;
        }
        take("%");
        return Variant(static_cast<std::int16_t>(value));
    }

    Variant date() {
        SYSTEMTIME day{};
        int year = 0, month = 0, dayOfMonth = 0, length = 0;
        const std::string text(rest_);
        if (std::sscanf(text.c_str(), "%d-%d-%d%n", &year, &month, &dayOfMonth, &length) != 3) fail("a date");
        rest_.remove_prefix(static_cast<std::size_t>(length));
        day.wYear = static_cast<WORD>(year);
        day.wMonth = static_cast<WORD>(month);
        day.wDay = static_cast<WORD>(dayOfMonth);
        Date result{};
        if (!SystemTimeToVariantTime(&day, &result.days)) fail("a date");
        return Variant(result);
    }

    std::string place_;
    std::string_view rest_;
};

std::string escaped(wchar_t character) {
    char result[12];
    if (character == L'"' || character == L'\\')
        std::snprintf(result, sizeof result, "\\%c", static_cast<char>(character));
    else if (character >= 32 && character < 127)
        std::snprintf(result, sizeof result, "%c", static_cast<char>(character));
    else
        std::snprintf(result, sizeof result, "\\u%04x", static_cast<unsigned>(character));
    return result;
}

std::string quotedText(TextView text) {
    constexpr std::size_t longestRunWritten = 9;
    std::string result = "\"";
    for (std::size_t i = 0; i < text.size();) {
        const auto end = std::min(text.find_first_not_of(text[i], i), text.size());
        const auto unit = escaped(text[i]);
        if (end - i > longestRunWritten)
            result += unit + "\\*" + std::to_string(end - i) + ";";
        else
            for (; i < end; ++i) result += unit;
        i = end;
    }
    return result + '"';
}

std::string asNumber(const VARIANT& value) {
    Variant number;
    if (FAILED(changeType(*number.put(), value, LOCALE_INVARIANT, 0, VT_R8))) return "no number";
    char result[40];
    std::snprintf(result, sizeof result, "%.15g", number.raw().dblVal);
    return result;
}

std::string asDay(double date) {
    SYSTEMTIME day;
    if (!VariantTimeToSystemTime(date, &day)) return "no date";
    char result[40];
    std::snprintf(result, sizeof result, "D%04d-%02d-%02d", day.wYear, day.wMonth, day.wDay);
    return result;
}

std::string fileOf(const std::string& path) {
    const auto begin = path.find_last_of("/\\") + 1;
    return path.substr(begin, path.rfind('.') - begin);
}

}  // namespace

void readCases(const std::string& path, const std::string& language, std::vector<Case>& cases) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error("cannot be read: " + path);
    std::string line;
    std::wstring className;
    for (int number = 1; std::getline(file, line); ++number) {
        const auto place = fileOf(path) + ":" + std::to_string(number);
        LineReader reader(place, line);
        if (line.empty() || reader.at('#')) continue;
        if (reader.take("class ")) {
            className = reader.name();
            continue;
        }
        Case read;
        read.name = place;
        read.className = className;
        read.member = reader.name();
        if (reader.take(":=")) {
            read.use = Use::put;
            read.arguments.push_back({reader.value(), false});
        } else {
            read.use = reader.at('(') ? Use::call : Use::get;
            if (read.use == Use::call) read.arguments = reader.arguments();
            reader.need("=");
        }
        if (reader.isFor(language)) cases.push_back(std::move(read));
    }
}

std::string describeVariable(const VARIANT& variable) {
    switch (variable.vt) {
        case VT_BSTR: return quotedText(viewOf(variable.bstrVal));
        case VT_BOOL: return variable.boolVal ? "True" : "False";
        case VT_DATE: return asDay(variable.date);
        case VT_EMPTY: return "Empty";
        case VT_NULL: return "Null";
        default: return asNumber(variable);
    }
}

std::string describeResult(const VARIANT& result) {
    const auto value = describeVariable(result);
    switch (result.vt) {
        case VT_I2: return value + "%";
        case VT_I4: return value + "&";
        case VT_R4: return value + "!";
        case VT_R8: return value + "#";
        case VT_CY: return value + "@";
        case VT_UI1: return value + "b";
        case VT_BSTR:
        case VT_BOOL:
        case VT_DATE:
        case VT_EMPTY:
        case VT_NULL: return value;
        default: return "type " + std::to_string(result.vt) + " " + value;
    }
}

}  // namespace vorla::test
