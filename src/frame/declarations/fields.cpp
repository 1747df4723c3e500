#include "frame/declarations/fields.h"

#include "frame/values/runtime_error.h"

namespace vorla {
namespace {

// A text with a separator at both ends, without building it. Positions count from 1, as hosts count.
class FramedText {
public:
    FramedText(TextView text, TextView separator)
        : text_(text),
          separator_(separator),
          // One character is compared with the whole separator, so a longer one is always added.
          front_(text.substr(0, 1) == separator ? 0 : separator.size()),
          back_(text.substr(text.size() - 1) == separator ? 0 : separator.size()) {}

    std::size_t length() const { return front_ + text_.size() + back_; }

    /// Where a separator begins at or after `from`; 0 when none does.
    std::size_t next(std::size_t from) const {
        for (auto position = from; position + separator_.size() <= length() + 1; ++position)
            if (separatorAt(position)) return checkedPosition(position);
        return 0;
    }

    /// Where the last separator that ends before `end` begins; 0 when none does.
    std::size_t previous(std::size_t end) const {
        for (auto position = end; position-- > separator_.size();) {
            const auto begin = position - separator_.size() + 1;
            if (separatorAt(begin)) return begin;
        }
        return 0;
    }

    /// The characters [begin, end). Separators that a field lies between are never part of it, so these
    /// always stand in the text itself.
    TextView between(std::size_t begin, std::size_t end) const {
        if (end < begin) throw RuntimeError(ErrorNumber::invalidProcedureCall);
        return text_.substr(begin - 1 - front_, end - begin);
    }

private:
    wchar_t at(std::size_t position) const {
        if (position <= front_) return separator_[position - 1];
        position -= front_;
        if (position <= text_.size()) return text_[position - 1];
        return separator_[position - text_.size() - 1];
    }

    bool separatorAt(std::size_t position) const {
        for (std::size_t i = 0; i < separator_.size(); ++i)
            if (at(position + i) != separator_[i]) return false;
        return true;
    }

    TextView text_;
    TextView separator_;
    std::size_t front_;
    std::size_t back_;
};

std::size_t separatorFromStart(const FramedText& framed, std::size_t rank) {
    std::size_t position = 0;
    for (std::size_t found = 0; found < rank; ++found) {
        position = framed.next(position + 1);
        // A failed search starts over at the first character, so the answers repeat with this period;
        // hosts count on the repetition.
        if (position == 0) rank = rank % (found + 1) + found + 1;
    }
    return position;
}

std::size_t separatorFromEnd(const FramedText& framed, std::size_t rank) {
    auto position = checkedPosition(framed.length());
    for (std::size_t i = 1; i <= rank && position != 0; ++i) {
        position = framed.previous(position);
        if (position == 1 && i < rank) return 0;
    }
    return position;
}

}  // namespace

TextView ExtraitChamp(TextView Chaine, std::int16_t Rang, TextView Separateur, bool DepuisLaFin) {
    const TextView separator = Separateur.empty() ? TextView(L"\t") : Separateur;
    const std::size_t rank = Rang < 1 ? 1 : static_cast<std::size_t>(Rang);
    if (Chaine.find(separator) == TextView::npos) return rank == 1 ? Chaine : TextView();

    const FramedText framed(Chaine, separator);
    const auto before = DepuisLaFin ? separatorFromEnd(framed, rank) : separatorFromStart(framed, rank);
    const auto after = framed.next(before + 1);
    if (after < before + 2) return {};
    return framed.between(before + separator.size(), after);
}

TextView TronqueNul(TextView Texte) { return Texte.substr(0, Texte.find(L'\0')); }

}  // namespace vorla
