// The sections of the input file: one reader per keyword, called by the filling pass with
// the row its record goes to.
#pragma once

#include <array>

#include "components/ModelTables.h"
#include "input/InputReader.h"

namespace qm::IMPORTINPUTFILE {

// The sixteen keywords that size a table, in the order of the table numbers.
enum Kind {
    INERTIA, SHAFT, VISCOUSDAMPER, RUBBERDAMPER, STEELSPRINGDAMPER, LINEARCOUPLING,
    PROGRESSIVECOUPLING, GEISLINGERCOUPLING, DIESEL, ELECTRICMOTOR, GASTURBINE, STEAMTURBINE,
    PROPELLER, GENERATOR, CENTRIFUGALPUMP, RECIPROCATINGPUMP, NKINDS
};

constexpr std::array<const char*, NKINDS> KEYWORDS = {
    "INERTIA", "SHAFT", "VISCOUSDAMPER", "RUBBERDAMPER", "STEELSPRINGDAMPER", "LINEARCOUPLING",
    "PROGRESSIVECOUPLING", "GEISLINGERCOUPLING", "DIESEL", "ELECTRICMOTOR", "GASTURBINE",
    "STEAMTURBINE", "PROPELLER", "GENERATOR", "CENTRIFUGALPUMP", "RECIPROCATINGPUMP"};

// A section reader fills row `row` of its table from the reader's values and further lines;
// false after a read error, which it has logged.
using SectionReader = bool (*)(InputReader& reader, int row);

// The reader of each table keyword, indexed by Kind; null for a section whose lines are
// passed over.
std::array<SectionReader, NKINDS> section_readers();
// PROPELLERICE: receives the row of the propeller read just before it.
SectionReader propeller_ice_reader();
// LOADCASE: the rest of the file is the load case table.
SectionReader load_case_reader();
// What follows a successful filling pass: speed ratios of the components, then the genset
// file. May set ISSUCCESS false with a logged message.
void complete_after_reading(InputReader& reader, bool& ISSUCCESS);

bool SECTION_INERTIA(InputReader& reader, int row);
bool SECTION_SHAFT(InputReader& reader, int row);

}  // namespace qm::IMPORTINPUTFILE
