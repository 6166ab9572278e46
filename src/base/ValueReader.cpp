#include "base/ValueReader.h"

#include <cerrno>
#include <climits>
#include <cmath>
#include <cstdlib>

namespace qm {

namespace {
bool is_blank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\0'; }
bool is_digit(char c) { return c >= '0' && c <= '9'; }
}  // namespace

bool parse_integer(std::string_view item, int& value) {
    std::size_t i = 0;
    if (i < item.size() && (item[i] == '+' || item[i] == '-')) ++i;
    if (i == item.size()) return false;
    for (std::size_t j = i; j < item.size(); ++j)
        if (!is_digit(item[j])) return false;
    const std::string s(item);
    errno = 0;
    const long long v = std::strtoll(s.c_str(), nullptr, 10);
    if (errno == ERANGE || v < INT_MIN || v > INT_MAX) return false;
    value = static_cast<int>(v);
    return true;
}

bool parse_real(std::string_view item, double& value) {
    // sign? digits* (. digits*)? ([EeDdQq] sign? digits+)?  with at least one mantissa digit
    std::string s;
    s.reserve(item.size());
    std::size_t i = 0;
    if (i < item.size() && (item[i] == '+' || item[i] == '-')) s += item[i++];
    int mantissa_digits = 0;
    while (i < item.size() && is_digit(item[i])) {
        s += item[i++];
        ++mantissa_digits;
    }
    if (i < item.size() && item[i] == '.') {
        s += item[i++];
        while (i < item.size() && is_digit(item[i])) {
            s += item[i++];
            ++mantissa_digits;
        }
    }
    if (mantissa_digits == 0) return false;
    if (i < item.size()) {
        const char e = item[i];
        if (e != 'E' && e != 'e' && e != 'D' && e != 'd' && e != 'Q' && e != 'q') return false;
        s += 'E';
        ++i;
        if (i < item.size() && (item[i] == '+' || item[i] == '-')) s += item[i++];
        int exponent_digits = 0;
        while (i < item.size() && is_digit(item[i])) {
            s += item[i++];
            ++exponent_digits;
        }
        if (exponent_digits == 0 || i != item.size()) return false;
    }
    const double v = std::strtod(s.c_str(), nullptr);
    if (!std::isfinite(v)) return false;
    value = v;
    return true;
}

bool ValueReader::next_item(std::string& item, bool& quoted) {
    while (pos_ < text_.size() && is_blank(text_[pos_])) ++pos_;
    if (pos_ >= text_.size()) return false;
    item.clear();
    quoted = false;
    const char q = text_[pos_];
    if (q == '\'' || q == '"') {
        quoted = true;
        ++pos_;
        while (pos_ < text_.size()) {
            if (text_[pos_] == q) {
                if (pos_ + 1 < text_.size() && text_[pos_ + 1] == q) {
                    item += q;
                    pos_ += 2;
                    continue;
                }
                ++pos_;
                return true;
            }
            item += text_[pos_++];
        }
        return false;  // a quote that is never closed
    }
    while (pos_ < text_.size() && !is_blank(text_[pos_])) item += text_[pos_++];
    return true;
}

bool ValueReader::read(int& value) {
    std::string item;
    bool quoted = false;
    if (!next_item(item, quoted) || quoted) return false;
    return parse_integer(item, value);
}

bool ValueReader::read(double& value) {
    std::string item;
    bool quoted = false;
    if (!next_item(item, quoted) || quoted) return false;
    return parse_real(item, value);
}

bool ValueReader::read(std::string& value) {
    std::string item;
    bool quoted = false;
    if (!next_item(item, quoted)) return false;
    value = item;
    return true;
}

}  // namespace qm
