// Finds every occurrence of a text, including overlapping ones. The time is proportional to the length of the
// text that is read, even when the sought text repeats itself.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "frame/values/text.h"

namespace vorla {

class Matcher {
public:
    /// `sought` must not be empty and must outlive the matcher.
    explicit Matcher(TextView sought);
    Matcher(const Matcher&) = delete;
    Matcher& operator=(const Matcher&) = delete;

    /// The number of characters of the sought text that are matched after reading one more.
    std::size_t read(std::size_t matched, wchar_t character) const {
        while (matched == sought_.size() || sought_[matched] != character) {
            if (matched == 0) return 0;
            matched = borders_[matched - 1];
        }
        return matched + 1;
    }

    bool isWhole(std::size_t matched) const { return matched == sought_.size(); }
    std::size_t length() const { return sought_.size(); }

private:
    // Most sought texts are a word or less and need no allocation.
    static constexpr std::size_t few = 32;

    TextView sought_;
    std::unique_ptr<std::uint32_t[]> many_;
    std::uint32_t few_[few];
    // For each prefix, the length of the longest shorter prefix that it ends with.
    std::uint32_t* borders_;
};

}  // namespace vorla
