#pragma once

#include <cstdint>
#include <string_view>

namespace kestrabel {

// Numbers out of texts that people and loggers wrote, without the C locale: a decimal comma on the user's
// machine must not change a result.
//
// Leading blanks and one sign are allowed; reading stops at the first character that cannot continue a
// number; a text that does not begin with one reads as 0.
//
//   legal      "12.5", "-0.5", "+.5", " 7", "1e3", "12.5abc" (12.5), "1e" (1), "5." (5)
//   0          "", "abc", "--5", "nan", "inf", "1e999" (does not fit), "0x10" (reading stops at the x)

/// A decimal number at the start of `strText`.
double ReadDecimal(std::string_view strText);

/// A whole number at the start of `strText`, limited to 32 bits.
std::int32_t ReadInteger(std::string_view strText);

/// Takes a whole number as `ReadInteger` does and moves `strText` behind it. False, with nothing moved, when
/// the text does not begin with a number.
bool TakeInteger(std::string_view& strText, std::int32_t& nValue);

/// Takes a decimal number as `ReadDecimal` does and moves `strText` behind it. False, with nothing moved,
/// when the text does not begin with a number.
bool TakeDecimal(std::string_view& strText, double& dValue);

/// True when the whole text, blanks around it aside, is one decimal number that fits a double.
bool IsDecimal(std::string_view strText, double& dValue);

/// `dValue` without its fraction, limited to 32 bits; 0 for not-a-number.
std::int32_t TruncateToInt(double dValue);

} // namespace kestrabel
