// Module GLOBAL_PARAMETER: the run-wide state of the library (result directory, file unit
// counter, the angle-based results switch) and the joining of paths.
//
// Texts are held as std::string without their blank padding; a text of the fixed length
// 1000 is one whose content is cut at 1000 characters.
#pragma once

#include <string>

namespace qm::GLOBAL_PARAMETER {

constexpr int FILENAME_LENGTH = 1000;  // every file name of the system
constexpr char SEPARATOR = '/';        // path separator of this platform

// The result directory of the current run, always ending in the separator.
const std::string& RESULTFILEDIR();

// Left-adjusts the first `length` characters of DIRNAME and makes them, with a separator
// behind them when they don't end in one, the result directory.
void SETRESULTFILEDIR(const std::string& DIRNAME, int length);

// The result directory that SETRESULTFILEDIR makes of DIRNAME and length.
std::string result_directory_of(const std::string& DIRNAME, int length);

// FILEDIR joined with FILENAME: trimmed directory, a separator unless the directory ends
// in one, then the trimmed, left-adjusted name.
std::string FILEFULLADDRESS(const std::string& FILEDIR, const std::string& FILENAME);

// New file unit: 10, 20, 30, ... never the same twice in the life of the library.
int GETFILEID();

// Damping factor of a dynamic magnifier x: 0 for x <= 0, 1/x for 0 < x <= 1,
// sqrt(1/(x*x - 1)) above 1.
double CALCULATE_UNDIMENSIONEDDAMPINGFACTOR(double x);

// The run-wide switch for angle-based results: reset and set by the input reader.
bool& OUTPUTANGLEBASEDRESULTS();

}  // namespace qm::GLOBAL_PARAMETER
