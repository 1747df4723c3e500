#include "text/amounts.h"

namespace vorla {
namespace {

Joined exchanged(TextView text, std::size_t place, wchar_t character) {
    if (place == TextView::npos) return Piece(text);
    return {text.substr(0, place), Piece(character, 1), text.substr(place + 1)};
}

}  // namespace

Joined withSystemSign(TextView amount, wchar_t separator) {
    return exchanged(amount, amount.find_first_not_of(L"0123456789-"), separator);
}

Joined withPoint(TextView amount, wchar_t separator) {
    return exchanged(amount, amount.find(separator), L'.');
}

}  // namespace vorla
