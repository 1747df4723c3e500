// The time per character at the largest text that a member takes, compared with a text of a thousand
// characters: whatever the text is, a member's time should be proportional to its length. The expected
// results are written down here and not taken from the members.
//
// Members that read or write a million characters are measured in early_binding.cpp, against plain functions:
// memory of that size comes fresh from the system each time and costs more per character than a short text's.
#include <functional>
#include <memory>

#include "frame/com/catalogue.h"
#include "subjects.h"

namespace vorla::bench {
namespace {

constexpr std::size_t smallest = 1'000;
constexpr std::size_t largestCounted = 32'767;  // the largest position and length
constexpr std::size_t largest = 1'000'000;      // for members without positions

// A call with a text of some size, and its expected result.
template <class Result, class Expected>
struct Sized {
    std::function<Result()> run;
    Expected expected;
};
using TextCall = Sized<Bstr, Text>;
using CountCall = Sized<float, float>;

// The ratio of a row is the growth of the time for one character: 1 is proportional.
template <class SubjectOf>
void compareSizes(Bench& bench, const std::string& name, std::size_t large, SubjectOf subjectOf) {
    std::vector<Batch> subjects;
    for (const auto size : {large, smallest}) {
        auto subject = subjectOf(size);
        if (!same(subject.run(), subject.expected)) throw WrongResult(name);
        subjects.push_back(batchOf(std::move(subject.run)));
    }
    const auto times = medians(bench.effort, subjects);
    bench.report.add({"growth to " + std::to_string(large) + ": " + name,
                      times[0] / static_cast<double>(large), "each character of " + std::to_string(smallest),
                      times[1] / static_cast<double>(smallest), 1.5});
}

Text repeated(const Text& unit, std::size_t length) {
    Text text;
    while (text.size() < length) text += unit;
    text.resize(length);
    return text;
}

// A string argument that the call keeps.
class Given {
public:
    explicit Given(const Text& text) : owned_(std::make_shared<Variant>(TextView(text))) {}
    operator BSTR() const { return owned_->raw().bstrVal; }
    operator VARIANT() const { return owned_->raw(); }

private:
    std::shared_ptr<Variant> owned_;
};

class Growth {
public:
    Growth(Bench& bench, const Component& component)
        : bench_(bench), object_(create(component.factory(classEntry<VorlaChaine>.number).get())) {}

    void columns() {
        compareSizes(bench_, "CBR, column and text", largestCounted, [&](std::size_t size) {
            const auto text = repeated(L"abcdefghij", size);
            return column(text, size, text);
        });
    }

    void fields() {
        compareSizes(bench_, "ExtraitChaine, last field from the start", largestCounted,
                     [&](std::size_t size) { return lastField(size, false); });
        compareSizes(bench_, "ExtraitChaine, first field from the end", largestCounted,
                     [&](std::size_t size) { return lastField(size, true); });
        compareSizes(bench_, "ExtraitChaine, separator that nearly stands", largestCounted,
                     [&](std::size_t size) {
                         const auto half = size / 2;
                         return field(Text(size, L'a'), 1, Text(half, L'a') + L'b', false, Text(size, L'a'));
                     });
    }

    void replacing() {
        compareSizes(bench_, "Transfrm, every tenth character", largestCounted, [&](std::size_t size) {
            return replaced(repeated(L"abcdefghij", size), L"c", L"C", repeated(L"abCdefghij", size));
        });
        compareSizes(bench_, "Transfrm, sought text that nearly stands", largestCounted,
                     [&](std::size_t size) {
                         const Text text(size, L'a');
                         return replaced(text, Text(size / 2, L'a') + L'b', L"x", text);
                     });
        compareSizes(bench_, "Transfrm by nothing, closing up each time", largestCounted,
                     [&](std::size_t size) {
                         const auto half = size / 2;
                         return replaced(Text(half, L'a') + Text(half, L'b'), L"ab", L"", L"");
                     });
    }

    void counting() {
        compareSizes(bench_, "Occurrence, every tenth character", largestCounted, [&](std::size_t size) {
            return counted(repeated(L"abcdefghij", size), L"a", (size + 9) / 10);
        });
        compareSizes(bench_, "Occurrence of half the text, everywhere", largestCounted,
                     [&](std::size_t size) {
                         const auto half = size / 2;
                         return counted(Text(size, L'a'), Text(half, L'a'), size - half + 1);
                     });
        compareSizes(
            bench_, "Occurrence, sought text that nearly stands", largestCounted,
            [&](std::size_t size) { return counted(Text(size, L'a'), Text(size / 2, L'a') + L'b', 0); });
    }

    void wholeTexts() {
        compareSizes(bench_, "Zclé of letters", largest, [&](std::size_t size) {
            const Slot<BSTR, SHORT, BSTR*> key(object_.get(), L"Zclé");
            return call(L"ABCDEFGHIJAB", [key, given = Given(repeated(L"abcdefghij", size))](BSTR* result) {
                key(given, 12, result);
            });
        });
    }

private:
    template <class Call>
    static TextCall call(const Text& expected, Call calling) {
        return {[calling] {
                    Bstr result;
                    calling(result.put());
                    return result;
                },
                expected};
    }

    TextCall column(const Text& text, std::size_t width, const Text& expected) {
        const Slot<VARIANT, SHORT, BSTR*> cbr(object_.get(), L"CBR");
        return call(expected, [cbr, width, given = Given(text)](BSTR* result) {
            cbr(given, static_cast<SHORT>(width), result);
        });
    }

    TextCall field(const Text& text, std::size_t rank, const Text& separator, bool fromEnd,
                   const Text& expected) {
        const Slot<BSTR, SHORT, BSTR, VARIANT_BOOL, BSTR*> extract(object_.get(), L"ExtraitChaine");
        return call(expected, [=, given = Given(text), between = Given(separator)](BSTR* result) {
            extract(given, static_cast<SHORT>(rank), between, fromEnd ? VARIANT_TRUE : VARIANT_FALSE, result);
        });
    }

    // The field at the far end of the text. The separator after it must still stand within the limit.
    TextCall lastField(std::size_t size, bool fromEnd) {
        const auto others = size / 10 - 1;
        const auto text = fromEnd ? L"F" + repeated(L";abcdefghi", others * 10)
                                  : repeated(L"abcdefghi;", others * 10) + L"L";
        return field(text, others + 1, L";", fromEnd, fromEnd ? L"F" : L"L");
    }

    TextCall replaced(const Text& text, const Text& sought, const Text& replacement, const Text& expected) {
        const Slot<BSTR, BSTR, BSTR, SHORT, SHORT, BSTR*> transform(object_.get(), L"Transfrm");
        return call(expected, [transform, given = Given(text), out = Given(sought), in = Given(replacement)](
                                  BSTR* result) { transform(given, out, in, 0, 0, result); });
    }

    CountCall counted(const Text& text, const Text& sought, std::size_t expected) {
        const Slot<BSTR, BSTR, VARIANT_BOOL, SHORT, FLOAT*> occurrence(object_.get(), L"Occurrence");
        return {[occurrence, given = Given(text), part = Given(sought)] {
                    float result;
                    occurrence(given, part, VARIANT_TRUE, 1, &result);
                    return result;
                },
                static_cast<float>(expected)};
    }

    Bench& bench_;
    Dispatch object_;
};

}  // namespace

void measureGrowth(Bench& bench, const Component& component) {
    Growth growth(bench, component);
    growth.columns();
    growth.fields();
    growth.replacing();
    growth.counting();
    growth.wholeTexts();
}

}  // namespace vorla::bench
