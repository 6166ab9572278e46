// The free-format (list-directed) value reader every section and side file uses.
//
// Values are separated by blanks (tabs and commas have become blanks and periods before a
// line gets here). An integer item is an optional sign and digits that fit 32 bits. A real
// item is any plain or exponent form: 12, -1.5, .5, 5., 2.5E8, 2.5e-3, 2.5D8. A text item
// is one word, or a quoted text in '...' or "..." where a doubled quote stands for one.
// Repeat counts (3*1.0), the slash terminator and the words for infinity and not-a-number
// are not accepted: they fail like any value that does not convert. Values beyond those
// asked for are ignored.
#pragma once

#include <string>
#include <string_view>

namespace qm {

class ValueReader {
public:
    explicit ValueReader(std::string_view text) : text_(text) {}

    // Each read takes the next item; false when the values ran out or the item does not
    // convert. The target is left unchanged on failure.
    bool read(int& value);
    bool read(double& value);
    bool read(std::string& value);

    // Reads every argument in order; false at the first failure.
    template <class... T>
    bool read_all(T&... values) {
        return (read(values) && ...);
    }

private:
    bool next_item(std::string& item, bool& quoted);
    std::string_view text_;
    std::size_t pos_ = 0;
};

// Conversions of one item, shared with the side file loaders.
bool parse_integer(std::string_view item, int& value);
bool parse_real(std::string_view item, double& value);

}  // namespace qm
