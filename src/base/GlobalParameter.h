// Module GLOBAL_PARAMETER: the joining of paths and the damping factor of a dynamic
// magnifier. The state of a run (result directory, file units, the angle-based results
// switch, the log) lives in its RunContext (base/RunContext.h).
//
// Texts are held as std::string without their blank padding; a text of the fixed length
// 1000 is one whose content is cut at 1000 characters.
#pragma once

#include <string>

namespace qm::GLOBAL_PARAMETER {

constexpr int FILENAME_LENGTH = 1000;  // every file name of the system
constexpr char SEPARATOR = '/';        // path separator of this platform

// The result directory RunContext::SETRESULTFILEDIR makes of DIRNAME and length: the first
// `length` characters, left-adjusted, with a separator behind them.
std::string result_directory_of(const std::string& DIRNAME, int length);

// FILEDIR joined with FILENAME: trimmed directory, a separator unless the directory ends
// in one, then the trimmed, left-adjusted name.
std::string FILEFULLADDRESS(const std::string& FILEDIR, const std::string& FILENAME);

// Damping factor of a dynamic magnifier x: 0 for x <= 0, 1/x for 0 < x <= 1,
// sqrt(1/(x*x - 1)) above 1.
double CALCULATE_UNDIMENSIONEDDAMPINGFACTOR(double x);

}  // namespace qm::GLOBAL_PARAMETER
