// The log "Quillmark.log" in the result directory: every finding of a run, one line each.
//
// The reader creates it anew at the start of a run; every later writer (data check, side
// file loaders, the propeller's entrained water) opens it at its end, writes and closes.
#pragma once

#include <string>

namespace qm::LOG {

constexpr const char* LOGFILENAME = "Quillmark.log";

// Full path of the log in the current result directory.
std::string path();

// Creates the log empty, replacing an older one. False when it can't be written.
bool create();

// Appends lines to the existing log (each gets a newline). False when it can't be opened.
bool append(const std::string& line);

// A reader's message: the text directly followed by the line number left-adjusted in a
// field of 30 characters.
std::string with_line_number(const std::string& message, int line);

}  // namespace qm::LOG
