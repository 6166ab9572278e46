#include "base/Format.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace qm::fmt {

namespace {

std::string stars(int w) { return std::string(static_cast<std::size_t>(w > 0 ? w : 0), '*'); }

std::string right(const std::string& s, int w) {
    if (static_cast<int>(s.size()) > w) return stars(w);
    return std::string(static_cast<std::size_t>(w) - s.size(), ' ') + s;
}

// NaN and infinities are written as words, right-aligned, when they fit.
bool special(double value, int w, std::string& out) {
    if (std::isnan(value)) {
        out = w >= 3 ? right("NaN", w) : stars(w);
        return true;
    }
    if (std::isinf(value)) {
        const std::string sign = value < 0 ? "-" : "";
        if (w >= static_cast<int>(sign.size()) + 8)
            out = right(sign + "Infinity", w);
        else if (w >= static_cast<int>(sign.size()) + 3)
            out = right(sign + "Inf", w);
        else
            out = stars(w);
        return true;
    }
    return false;
}

// Digits of |value| rounded to `digits` significant digits: the digit string and the
// decimal exponent of the first digit (value = 0.d1d2... * 10^exp10).
void significant(double value, int digits, std::string& mantissa, int& exp10) {
    if (value == 0.0) {
        mantissa.assign(static_cast<std::size_t>(digits), '0');
        exp10 = 0;
        return;
    }
    char buf[512];
    std::snprintf(buf, sizeof buf, "%.*e", digits - 1, std::fabs(value));
    const std::string s(buf);
    const auto epos = s.find('e');
    mantissa.clear();
    for (std::size_t i = 0; i < epos; ++i)
        if (s[i] != '.') mantissa += s[i];
    exp10 = std::atoi(s.c_str() + epos + 1) + 1;
}

std::string exponent_field(int exp10, int e, bool& fits) {
    fits = true;
    const int mag = std::abs(exp10);
    const char sign = exp10 < 0 ? '-' : '+';
    std::string digits = std::to_string(mag);
    if (e == 0) {
        if (mag <= 99) return std::string("E") + sign + (mag < 10 ? "0" : "") + digits;
        if (mag <= 999) return std::string(1, sign) + digits;
        fits = false;
        return {};
    }
    if (static_cast<int>(digits.size()) > e) {
        fits = false;
        return {};
    }
    return std::string("E") + sign + std::string(static_cast<std::size_t>(e) - digits.size(), '0') + digits;
}

}  // namespace

std::string A(const std::string& text) { return text; }

std::string A(const std::string& text, int w) {
    if (static_cast<int>(text.size()) >= w) return text.substr(0, static_cast<std::size_t>(w));
    return std::string(static_cast<std::size_t>(w) - text.size(), ' ') + text;
}

std::string I(long long value, int w) { return right(std::to_string(value), w); }

std::string F(double value, int w, int d) {
    std::string out;
    if (special(value, w, out)) return out;
    char buf[512];
    // A fixed field always shows its decimal point, also with no decimals.
    const int n = std::snprintf(buf, sizeof buf, "%#.*f", d, value);
    if (n < 0 || n >= static_cast<int>(sizeof buf)) return stars(w);
    std::string s(buf);
    if (static_cast<int>(s.size()) > w) {
        // The zero before the decimal point is optional: it goes when the field is too narrow.
        if (s.rfind("0.", 0) == 0)
            s.erase(0, 1);
        else if (s.rfind("-0.", 0) == 0)
            s.erase(1, 1);
    }
    return right(s, w);
}

std::string F(double value) { return F(value, DEFAULT_REAL_WIDTH, DEFAULT_REAL_DECIMALS); }

std::string E(double value, int w, int d, int e) {
    std::string out;
    if (special(value, w, out)) return out;
    std::string mantissa;
    int exp10 = 0;
    significant(value, d > 0 ? d : 1, mantissa, exp10);
    if (d == 0) mantissa.clear();
    bool fits = true;
    const std::string exponent = exponent_field(value == 0.0 ? 0 : exp10, e, fits);
    if (!fits) return stars(w);
    const std::string sign = std::signbit(value) ? "-" : "";
    std::string s = sign + "0." + mantissa + exponent;
    if (static_cast<int>(s.size()) > w) s = sign + "." + mantissa + exponent;
    return right(s, w);
}

std::string ES(double value, int w, int d, int e) {
    std::string out;
    if (special(value, w, out)) return out;
    std::string mantissa;
    int exp10 = 0;
    significant(value, d + 1, mantissa, exp10);
    bool fits = true;
    const std::string exponent = exponent_field(value == 0.0 ? 0 : exp10 - 1, e, fits);
    if (!fits) return stars(w);
    const std::string sign = std::signbit(value) ? "-" : "";
    const std::string s = sign + mantissa.substr(0, 1) + "." + mantissa.substr(1) + exponent;
    return right(s, w);
}

std::string G(double value, int w, int d, int e) {
    std::string out;
    if (special(value, w, out)) return out;
    const int n = e == 0 ? 4 : e + 2;  // blanks standing in for the exponent in fixed form
    const double mag = std::fabs(value);
    if (mag == 0.0) {
        const int width = w - n;
        if (width <= 0) return stars(w);
        return F(value, width, d > 0 ? d - 1 : 0) + std::string(static_cast<std::size_t>(n), ' ');
    }
    // The decimal exponent after rounding to d significant digits decides the form.
    std::string mantissa;
    int k = 0;
    significant(value, d > 0 ? d : 1, mantissa, k);
    if (d > 0 && k >= 0 && k <= d) {
        const int width = w - n;
        if (width <= 0) return stars(w);
        return F(value, width, d - k) + std::string(static_cast<std::size_t>(n), ' ');
    }
    return E(value, w, d, e);
}

}  // namespace qm::fmt
