// The load case table at the end of the input file, and the cylinder pressures of
// generator sets from "Genset.txt".
//
// The table behind the LOADCASE line:
//
//   LOADCASE                     the rest of this line is not read
//   RPM DIESEL PROPELLER ...     RPM (any case), then one column word per column, in capitals
//   1 2 ...                      the ID of the component of each column
//   60 1500 1450 ...             one line per load case: speed in rpm, then powers in kW
//
// Row k of LOADCASE_TABLE names the component of column k. The powers of a load case line
// are taken by position: the k-th value behind the speed goes to LOADCASE_POWER(k, i),
// stored in W. Missing powers stay 0. A blank line or the end of the file ends the table.
//
// Rules for input the table layout does not cover, each ending in a defined state:
// - Values behind the last row of LOADCASE_POWER (one row per component section) are not
//   read, like any value behind those a line is read for.
// - The table must hold as many load case lines as the sizing pass counted non-blank
//   lines behind the two head lines. A table that ends early (a blank line with further
//   lines behind it, or text lines before the RPM head line) or runs long (a blank second
//   head line) is a read error naming the line where this shows. Every stage after the
//   reader can then rely on one number of load cases, the size of LOADCASE_SPEED.
// - A head line with more columns than the model has component sections is a read error.
// - The RPM head line missing before the end of the file is a read error.
//
// Genset file: one line per row of LOADCASEGENSET_TABLE, "DieselId PressureMax
// PressureComp" with pressures in bar, stored in Pa; the first blank line or the end of
// the file ends it. A line that does not convert and a line beyond the last row of the
// table are read errors; rows without a line keep their defaults.
#pragma once

#include <string>

#include "input/InputReader.h"

namespace qm::IMPORTINPUTFILE {

constexpr const char* GENSETFILENAME = "Genset.txt";

// The LOADCASE section; the reader stands at the LOADCASE line and reader.nLoadCase holds
// the count of the sizing pass. The row argument is not used. Reads to the end of the
// table and fills LOADCASE_TABLE, LOADCASE_SPEED and LOADCASE_POWER. False after a read
// error, which is logged with its line number. A column word that is not known is logged
// and passed over without ending the reading.
bool SECTION_LOADCASE(InputReader& reader, int row);

// Reads "Genset.txt" of the result directory into LOADCASEGENSET_TABLE when it is due:
// DIESEL_TABLE allocated, reader.nLoadCase above 0 and reader.isGenset (of the DIESEL
// section read last) equal to 1. Sets ISSUCCESS false after an error, which is logged;
// leaves it alone otherwise.
void read_genset_file(InputReader& reader, bool& ISSUCCESS);

}  // namespace qm::IMPORTINPUTFILE
