#include "frame/shared/fields.h"

#include <algorithm>

#include "frame/shared/matcher.h"
#include "frame/values/runtime_error.h"

namespace vorla {
namespace {

// A text with a separator added at both ends, without building it. Positions count from 1, as in hosts.
class FramedText {
public:
    FramedText(TextView text, TextView separator)
        : text_(text),
          separator_(separator),
          // A single character is compared with the whole separator, so a longer separator is always added.
          front_(isSeparator(text.front()) ? 0 : separator.size()),
          back_(isSeparator(text.back()) ? 0 : separator.size()) {}

    std::size_t length() const { return front_ + text_.size() + back_; }

    wchar_t at(std::size_t position) const {
        if (position <= front_) return separator_[position - 1];
        position -= front_;
        if (position <= text_.size()) return text_[position - 1];
        return separator_[position - text_.size() - 1];
    }

    /// The characters [begin, end). They always lie in the text itself, because a field never includes the
    /// separators around it.
    TextView between(std::size_t begin, std::size_t end) const {
        if (end < begin) throw RuntimeError(ErrorNumber::invalidProcedureCall);
        return text_.substr(begin - 1 - front_, end - begin);
    }

private:
    bool isSeparator(wchar_t character) const { return separator_.size() == 1 && separator_[0] == character; }

    TextView text_;
    TextView separator_;
    std::size_t front_;
    std::size_t back_;
};

// The separators of a framed text in order, including overlapping ones.
class Separators {
public:
    /// Those that begin at or after `from`.
    Separators(const FramedText& framed, const Matcher& separator, std::size_t from)
        : framed_(framed), separator_(separator), read_(from - 1) {}

    /// Where the next one begins; 0 when there are no more.
    std::size_t next() {
        while (read_ < framed_.length()) {
            matched_ = separator_.read(matched_, framed_.at(++read_));
            if (separator_.isWhole(matched_)) return checkedPosition(read_ + 1 - separator_.length());
        }
        return 0;
    }

    void restart() { read_ = matched_ = 0; }

private:
    const FramedText& framed_;
    const Matcher& separator_;
    std::size_t read_;
    std::size_t matched_ = 0;
};

bool contains(TextView text, TextView separator, const Matcher& sought) {
    // Nearly all separators are one character, which the system finds fastest.
    if (separator.size() == 1) return text.find(separator[0]) != TextView::npos;
    std::size_t matched = 0;
    return std::any_of(text.begin(), text.end(), [&](wchar_t character) {
        matched = sought.read(matched, character);
        return sought.isWhole(matched);
    });
}

std::size_t separatorFromStart(const FramedText& framed, const Matcher& separator, std::size_t rank) {
    Separators separators(framed, separator, 1);
    std::size_t position = 0;
    for (std::size_t found = 0; found < rank; ++found) {
        position = separators.next();
        if (position != 0) continue;
        // A failed search starts again at the first character, so the results repeat with this period. Old
        // hosts rely on the repetition.
        rank = rank % (found + 1) + found + 1;
        separators.restart();
    }
    return position;
}

std::size_t separatorFromEnd(const FramedText& framed, TextView separator, std::size_t rank) {
    const Text reversed(separator.rbegin(), separator.rend());
    const Matcher matcher(reversed);
    auto position = checkedPosition(framed.length());
    // Counting from the end, each separator begins before the one found last, so that none overlap.
    for (std::size_t i = 1; i <= rank; ++i) {
        for (std::size_t matched = 0; !matcher.isWhole(matched);) {
            if (--position == 0) return 0;
            matched = matcher.read(matched, framed.at(position));
        }
        if (position == 1 && i < rank) return 0;
    }
    return position;
}

}  // namespace

TextView ExtraitChamp(TextView Chaine, std::int16_t Rang, TextView Separateur, bool DepuisLaFin) {
    const TextView separator = Separateur.empty() ? TextView(L"\t") : Separateur;
    const std::size_t rank = Rang < 1 ? 1 : static_cast<std::size_t>(Rang);
    const Matcher matcher(separator);
    if (!contains(Chaine, separator, matcher)) return rank == 1 ? Chaine : TextView();

    const FramedText framed(Chaine, separator);
    const auto before =
        DepuisLaFin ? separatorFromEnd(framed, separator, rank) : separatorFromStart(framed, matcher, rank);
    const auto after = Separators(framed, matcher, before + 1).next();
    if (after < before + 2) return {};
    return framed.between(before + separator.size(), after);
}

TextView TronqueNul(TextView Texte) { return Texte.substr(0, Texte.find(L'\0')); }

}  // namespace vorla
