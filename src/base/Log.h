// The log "Quillmark.log" in the result directory: every finding of a run, one line each.
//
// A run writes it through its RunContext (log_create, log_append): the reader creates it
// anew at the start of a run; every later writer opens it at its end, writes and closes.
// This module keeps the name and the pure helpers of its lines.
#pragma once

#include <string>

namespace qm::LOG {

constexpr const char* LOGFILENAME = "Quillmark.log";

// A reader's message: the text directly followed by the line number left-adjusted in a
// field of 30 characters.
std::string with_line_number(const std::string& message, int line);

}  // namespace qm::LOG
