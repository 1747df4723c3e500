// The key of a French bank account (RIB): 5 digits of bank, 5 of branch, 11 characters of account, and
// the 2 digits that make the number of 23 a multiple of 97.
#pragma once

#include <cstdint>

#include "frame/values/text.h"

namespace vorla {

/// The account number with every character above "9" replaced by its digit: A and J stand for 1, B, K and S
/// for 2, up to I, R and Z for 9. Lower-case letters continue the same counting after "Z", so "a" stands for
/// 6. All other characters stay.
Text accountDigits(TextView account);

/// A number as it was read from a text: its digits, and how many zeros follow them; below 0, how many of the
/// digits are decimals.
struct ReadNumber {
    Text digits;
    int zeros = 0;
    bool isNegative = false;
};

/// The number as a whole one, halves rounded away from zero, filled with zeros to 11 digits after its minus.
Text wholeAccount(const ReadNumber& number);

/// The number of 21 digits modulo 97, computed in pieces that fit 32 bits. `account` is the converted account
/// with at least 11 digits: its first 6 and its last 5 characters count.
///
/// Branch and account count as the number they begin with (leadingNumber), and what is divided is rounded
/// first, halves to even. Error 6 when a value leaves the 32-bit range.
std::int32_t bankRemainder(double bank, TextView branch, TextView account);

/// The key for a remainder; 0 for the remainder 0, where the bank itself uses the key 97.
std::int16_t bankKey(std::int32_t remainder);

/// Whether a key fits a remainder. Any key fits the remainder 0, which also stands for a code that is not a
/// number. Old hosts rely on this. Error 6 for a key beyond the 32-bit range.
bool bankKeyFits(std::int32_t remainder, TextView key);

}  // namespace vorla
