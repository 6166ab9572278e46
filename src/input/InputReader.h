// The state of the input reader while it fills the tables, handed to each section.
//
// A section takes the values behind its keyword from `values` (the line with its first
// word removed), reads its further lines with next_line(), and on a value that does not
// convert calls fail() with its message, which logs the message with the line number.
#pragma once

#include <istream>
#include <string>

#include "base/RunContext.h"
#include "base/TextLine.h"
#include "components/ModelTables.h"

namespace qm {

struct InputReader {
    RunContext& ctx;     // the run whose log takes the messages
    std::istream& in;
    ModelTables& tables;
    int line_counter = 0;
    std::string line;    // the current line after tab removal
    std::string values;  // the keyword line without its first word
    int nLoadCase = 0;   // load case rows counted by the sizing pass
    int isGenset = 0;    // isGenset of the DIESEL section read last
    std::string model_dir;  // folder of the model file; relative side-file names start here

    InputReader(RunContext& context, std::istream& input, ModelTables& t) : ctx(context), in(input), tables(t) {}

    // Reads the next line of a section into `line`, raising the line counter; tabs become
    // blanks and commas periods. At the end of the file the line is blank.
    bool next_line();

    // Logs the message followed by the current line number and returns false.
    bool fail(const std::string& message) const;
};

}  // namespace qm
