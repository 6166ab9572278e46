// Reading one line of a text file, as every reader of the system does.
#pragma once

#include <istream>
#include <string>

namespace qm {

constexpr int LINE_LENGTH = 2600;  // characters of a line that count

// Reads one line of a text file: the first LINE_LENGTH characters count, a carriage
// return before the line end is dropped, and the result is blank-padded to LINE_LENGTH.
// False at the end of the file.
bool read_text_line(std::istream& in, std::string& line);

}  // namespace qm
