#include "text/quoting.h"

namespace vorla {
namespace {

TextView delimiter(eParseSeparator kind, TextView custom) {
    switch (kind) {
        case eParseSeparator::epsDoubleQuote: return L"\"";
        case eParseSeparator::epsSimpleQuote: return L"'";
        case eParseSeparator::epsSlash: return L"/";
        case eParseSeparator::epsBackSlash: return L"\\";
        case eParseSeparator::epsCustom: return custom;
    }
    return {};
}

}  // namespace

Joined quoted(TextView text, eParseSeparator kind, TextView custom) {
    const auto mark = delimiter(kind, custom);
    return {mark, text, mark};
}

}  // namespace vorla
