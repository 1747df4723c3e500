#include "frame/shared/matcher.h"

namespace vorla {

Matcher::Matcher(TextView sought)
    : sought_(sought),
      many_(sought.size() > few ? std::make_unique_for_overwrite<std::uint32_t[]>(sought.size()) : nullptr),
      borders_(many_ ? many_.get() : few_) {
    borders_[0] = 0;
    for (std::size_t i = 1, matched = 0; i < sought.size(); ++i) {
        matched = read(matched, sought[i]);
        borders_[i] = static_cast<std::uint32_t>(matched);
    }
}

}  // namespace vorla
