#include "text/matcher.h"

namespace vorla {

Matcher::Matcher(TextView sought) : sought_(sought), borders_(sought.size(), 0) {
    for (std::size_t i = 1, matched = 0; i < sought.size(); ++i) {
        matched = read(matched, sought[i]);
        borders_[i] = matched;
    }
}

}  // namespace vorla
