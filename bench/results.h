// Results of the timed calls, compared before anything is timed.
#pragma once

#include <concepts>
#include <stdexcept>
#include <string>

#include "frame/values/bstr.h"
#include "frame/values/variant.h"
#include "frame/values/winapi.h"

namespace vorla::bench {

/// Thrown when results that should be the same differ: timing them would be meaningless.
class WrongResult : public std::runtime_error {
public:
    explicit WrongResult(const std::string& row) : std::runtime_error("wrong result: " + row) {}
};

template <class Number>
requires std::integral<Number> || std::floating_point<Number>
bool same(Number one, Number other) { return one == other; }

inline bool same(const Bstr& one, const Bstr& other) { return one.view() == other.view(); }
inline bool same(const Bstr& one, const Text& other) { return one.view() == other; }

/// Of the same type, and the same value.
inline bool same(const VARIANT& one, const VARIANT& other) {
    return one.vt == other.vt && VarCmp(const_cast<VARIANT*>(&one), const_cast<VARIANT*>(&other),
                                        LOCALE_USER_DEFAULT, 0) == VARCMP_EQ;
}
inline bool same(const Variant& one, const Variant& other) { return same(one.raw(), other.raw()); }

}  // namespace vorla::bench
