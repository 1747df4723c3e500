// The cost of a method beyond its work: each is compared with a plain function, written for the purpose, that
// makes the same string with one allocation.
#include <algorithm>

#include "frame/com/catalogue.h"
#include "subjects.h"

namespace vorla::bench {
namespace {

// The compiler must not specialise it for the measured arguments.
#define PLAIN_FUNCTION [[gnu::noipa]]

PLAIN_FUNCTION BSTR column(BSTR text, std::size_t width) {
    const wchar_t* first = text;
    const wchar_t* last = text + SysStringLen(text);
    while (first != last && *first == L' ') ++first;
    while (first != last && last[-1] == L' ') --last;
    const auto kept = std::min(static_cast<std::size_t>(last - first), width);
    const BSTR result = SysAllocStringLen(nullptr, static_cast<UINT>(width));
    std::fill_n(std::copy_n(first, kept, result), width - kept, L' ');
    return result;
}

PLAIN_FUNCTION BSTR field(BSTR text, int rank, BSTR separator) {
    const auto sign = viewOf(separator);
    auto rest = viewOf(text);
    for (; rank > 1; --rank) {
        const auto found = rest.find(sign);
        if (found == TextView::npos) return SysAllocStringLen(nullptr, 0);
        rest.remove_prefix(found + sign.size());
    }
    rest = rest.substr(0, rest.find(sign));
    return SysAllocStringLen(rest.data(), static_cast<UINT>(rest.size()));
}

PLAIN_FUNCTION BSTR quotedText(BSTR text, LONG kind, BSTR custom) {
    constexpr wchar_t marks[] = {L'"', L'\'', L'/', L'\\'};
    const auto mark = kind < 4 ? TextView(&marks[kind], 1) : viewOf(custom);
    const auto length = SysStringLen(text);
    const BSTR result = SysAllocStringLen(nullptr, length + 2 * static_cast<UINT>(mark.size()));
    wchar_t* const inside = std::copy_n(mark.data(), mark.size(), result);
    std::copy_n(mark.data(), mark.size(), std::copy_n(text, length, inside));
    return result;
}

PLAIN_FUNCTION BSTR beforeNul(BSTR text) {
    const wchar_t* const last = std::find(text, text + SysStringLen(text), L'\0');
    return SysAllocStringLen(text, static_cast<UINT>(last - text));
}

template <class Ours, class Peer>
void compareString(Bench& bench, const char* name, Ours ours, Peer peer) {
    bench.compare(
        name, 1.2,
        [&] {
            Bstr result;
            ours(result.put());
            return result;
        },
        "a plain function", [&] { return Bstr::adopt(peer()); });
}

}  // namespace

void measureEarlyBinding(Bench& bench, const Component& component) {
    const auto object = create(component.factory(classEntry<VorlaChaine>.number).get());

    const Bstr word(TextView(L" Dupont "));
    VARIANT value{};
    value.vt = VT_BSTR;
    value.bstrVal = word.get();
    const Slot<VARIANT, SHORT, BSTR*> cbr(object.get(), L"CBR");
    compareString(
        bench, "CBR of a short text to 12 columns, early bound",
        [&](BSTR* result) { cbr(value, 12, result); }, [&] { return column(word.get(), 12); });

    const Bstr fields(TextView(L"a;b;c")), separator(TextView(L";"));
    const Slot<BSTR, SHORT, BSTR, VARIANT_BOOL, BSTR*> extraitChaine(object.get(), L"ExtraitChaine");
    compareString(
        bench, "ExtraitChaine, second of three fields, early bound",
        [&](BSTR* result) { extraitChaine(fields.get(), 2, separator.get(), VARIANT_FALSE, result); },
        [&] { return field(fields.get(), 2, separator.get()); });

    LONG kind = 1;
    BSTR noCustom = nullptr;
    const Slot<BSTR, LONG*, BSTR*, BSTR*> parse(object.get(), L"Parse");
    compareString(
        bench, "Parse of a short text, early bound",
        [&](BSTR* result) { parse(fields.get(), &kind, &noCustom, result); },
        [&] { return quotedText(fields.get(), kind, noCustom); });

    // Long texts, where the system needs most of the time for fresh memory.
    const Text manyCharacters(1'000'000, L'x');
    const Bstr page{TextView(manyCharacters)};
    compareString(
        bench, "Parse of 1,000,000 characters, early bound",
        [&](BSTR* result) { parse(page.get(), &kind, &noCustom, result); },
        [&] { return quotedText(page.get(), kind, noCustom); });
    const Bstr farWord{TextView(Text(999'999, L' ') + L'x')};
    value.bstrVal = farWord.get();
    compareString(
        bench, "CBR of a word behind 999,999 blanks, early bound",
        [&](BSTR* result) { cbr(value, 12, result); }, [&] { return column(farWord.get(), 12); });
    value.bstrVal = page.get();
    const Slot<VARIANT, BSTR*> splitStr(object.get(), L"SplitStr");
    compareString(
        bench, "SplitStr of 1,000,000 characters, early bound",
        [&](BSTR* result) { splitStr(value, result); }, [&] { return beforeNul(page.get()); });
}

}  // namespace vorla::bench
