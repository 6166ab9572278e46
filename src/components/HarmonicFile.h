// The measured harmonic files of engines and reciprocating pumps: for N orders and M
// values of an axis (mean indicated pressure or speed percentage) the cosine, sine,
// resultant and phase of the tangential excitation of one cylinder.
//
// Line 1 is free; line 2 a label of 7 characters and N; line 3 a label and M; line 4 free.
// Then the blocks COSINE, SINE, RESULTANT and PHASE, each starting at the first later line
// that contains its keyword (case-sensitive). COSINE, RESULTANT and PHASE: keyword line, a
// free line, the M axis values, two free lines, N rows "order v1 .. vM". SINE: keyword line,
// four free lines, N rows.
#pragma once

#include "base/RunContext.h"

#include <array>
#include <string>
#include <vector>

namespace qm {

// The content of one file as it stands in it, before any conversion of units. Table entry
// (order j, axis value k), both 1-based, is at (j - 1) * M + k - 1.
struct HarmonicFileContent {
    int N = 0;
    int M = 0;
    std::array<double, 24> order{};  // the order column; the block read last stands
    std::vector<double> axis;        // the axis of the block read last that carries one
    std::vector<double> cosine, sine, resultant, phase;
};

struct HarmonicFileLayout {
    int axisLabelLength;       // characters of the label on line 3 before M
    int maxOrders;             // N above it is refused
    int maxAxis;               // M above it is refused
    const char* ordersLimitMessage;
    const char* axisLimitMessage;
};

// Reads the file `name` into `content`. False after a failure, whose line has been
// appended to the log: a limit message, or "Error occurs when reading <name> in line <n>"
// for a read past the end or a value that does not convert. What was read stays.
// `name` is the file as the model wrote it, which messages show; a relative name starts in
// `folder`.
bool read_harmonic_file(RunContext& ctx, const std::string& folder, const std::string& name,
                        const HarmonicFileLayout& layout, HarmonicFileContent& content);

}  // namespace qm
