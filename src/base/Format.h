// Text formats of the reports and the log, in the edit-descriptor notation the reports
// are laid out with:
//   A       a text at its own length          Aw      a text in w columns
//   Iw      integer right-aligned in w columns
//   Fw.d    fixed real, w columns, d decimals  F      fixed real without a stated width
//   Ew.dEe  real as 0.ddd with exponent        ESw.dEe scientific real, one digit before the point
//   Gw.dEe  general numeric format: fixed when the magnitude suits d significant digits,
//           exponent form otherwise
// A value that does not fit its field fills the field with asterisks. Rounding is to the
// nearest decimal of the exact binary value.
#pragma once

#include <string>

namespace qm::fmt {

// Width and decimals of a real field whose width is not stated: those of a 64-bit real.
constexpr int DEFAULT_REAL_WIDTH = 25;
constexpr int DEFAULT_REAL_DECIMALS = 16;

std::string A(const std::string& text);
std::string A(const std::string& text, int w);
std::string I(long long value, int w);
std::string F(double value, int w, int d);
std::string F(double value);  // F25.16
// e = 0: exponent of two digits, or three digits without the letter E above 99.
std::string E(double value, int w, int d, int e = 0);
std::string ES(double value, int w, int d, int e = 0);
std::string G(double value, int w, int d, int e = 0);

}  // namespace qm::fmt
