// Module STRINGOPERATION: the line tools of the readers. Each works in place on a text
// and keeps its length, filling with blanks what it frees.
#pragma once

#include <string>

namespace qm::STRINGOPERATION {

// Every tab becomes a blank and every comma a period: blanks separate values and a comma
// is a decimal mark.
void STRINGDELETETAB(std::string& text);
// Left-adjusts the text and blanks everything from its first blank on.
void STRINGFIRSTWORD(std::string& text);
// Left-adjusts the text, blanks its first word and left-adjusts the rest.
void STRINGWITHOUTFIRSTWORD(std::string& text);
// Letters a to z become capitals; other bytes stay.
void STRINGUPCASE(std::string& text);
// Removes every blank, closing the text up.
void STRINGADJUST(std::string& text);
// Number of blank-separated words in the first 100 characters.
int STRINGSPLITCOUNT(const std::string& text);

// Left-adjusted text without trailing blanks (the Fortran TRIM(ADJUSTL(...)) of a text).
std::string trimmed(const std::string& text);

}  // namespace qm::STRINGOPERATION
