// Reading one line of a text file, as every reader of the system does.
#pragma once

#include <fstream>
#include <istream>
#include <string>

namespace qm {

constexpr int LINE_LENGTH = 2600;  // characters of a line that count

// Reads one line of a text file: the first LINE_LENGTH characters count, a carriage
// return before the line end is dropped, and the result is blank-padded to LINE_LENGTH.
// The rest of a longer line is passed over without being kept, so memory stays bounded
// whatever the file holds. False at the end of the file.
bool read_text_line(std::istream& in, std::string& line);

// Where a side file named in a model lies: a relative name starts in `folder` (the folder
// of the model file); an absolute or blank name, or a blank folder, leaves it as written.
std::string side_file_path(const std::string& folder, const std::string& name);

// Opens a regular file (after following links) for reading. Pipes, devices, sockets and
// directories are refused: opening a pipe blocks until a writer comes, and a device such as
// /dev/zero never ends. These, and a file above 1 GiB, leave the stream closed and give
// false, as a file that does not exist does. A file of size 0 gives true
// but is not opened: it reads as ended at once (so do the system's pseudo-files, which
// report size 0 and may never end).
bool open_text_file(std::ifstream& in, const std::string& name);

}  // namespace qm
