// Arguments for the rules, made of arbitrary bytes, so that random tests and the fuzzer use the same ones.
#pragma once

#include <cstddef>
#include <cstdint>

#include "frame/values/text.h"

namespace vorla {

class Arguments {
public:
    Arguments(const std::uint8_t* bytes, std::size_t count) : bytes_(bytes), count_(count) {}

    /// The next byte; 0 at the end.
    std::uint8_t byte() {
        if (count_ == 0) return 0;
        --count_;
        return *bytes_++;
    }

    bool flag() { return byte() % 2 != 0; }

    /// Mostly from -4 to 19, where most edges of the rules are; sometimes any 16-bit integer.
    std::int16_t number() {
        const int choice = byte();
        if (choice < 0xF0) return static_cast<std::int16_t>(choice % 24 - 4);
        const int high = byte();
        return static_cast<std::int16_t>(high << 8 | byte());
    }

    /// Up to `longest` characters of `alphabet`, which should be small so that they repeat and overlap.
    Text text(TextView alphabet, std::size_t longest) {
        Text result(byte() % (longest + 1), L'\0');
        for (wchar_t& character : result) character = alphabet[byte() % alphabet.size()];
        return result;
    }

    /// The same, sometimes after a run of `filler` that moves it to the end of the 16-bit positions.
    Text farText(TextView alphabet, std::size_t longest, wchar_t filler) {
        const std::size_t choice = byte();
        const auto run = choice < 0xF8 ? 0 : 32744 + byte() % 32u;
        return Text(run, filler) + text(alphabet, longest);
    }

private:
    const std::uint8_t* bytes_;
    std::size_t count_;
};

}  // namespace vorla
