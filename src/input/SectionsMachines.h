// The sections of the machines: prime movers, driven machines and propellers.
//
// Each section fills the row of its table that the filling pass hands it and marks the
// inertias it names as belonging to the machine. Values stand on fixed consecutive lines
// behind the keyword line; a value that is missing or does not convert ends the reading
// with the section's message and the line number.
//
// Units on the way in: McrPower in kW, lengths in mm, pressures in bar, angles in degrees,
// shares in percent; the records hold W, m, Pa, radians and fractions.
#pragma once

#include <string>

#include "components/ModelTables.h"
#include "input/InputReader.h"

namespace qm::IMPORTINPUTFILE {

bool SECTION_ELECTRICMOTOR(InputReader& reader, int row);
bool SECTION_GENERATOR(InputReader& reader, int row);
bool SECTION_CENTRIFUGALPUMP(InputReader& reader, int row);
bool SECTION_GASTURBINE(InputReader& reader, int row);
bool SECTION_STEAMTURBINE(InputReader& reader, int row);
bool SECTION_DIESEL(InputReader& reader, int row);
bool SECTION_RECIPROCATINGPUMP(InputReader& reader, int row);
bool SECTION_PROPELLER(InputReader& reader, int row);
// Ice excitation of the propeller in `row`, the propeller read last (0 when there is none,
// which is a read error).
bool SECTION_PROPELLERICE(InputReader& reader, int row);

namespace machine_sections {

// "Error occurs when reading "<items>" in input file line ": the reader's message for a
// line whose values do not read.
std::string read_message(const std::string& items);

// Rated torque, Nm, of a rating in W and rpm.
double mcr_torque(double mcrPower, double mcrSpeed);

// Degrees to radians.
double radians(double degrees);

// The rating of a machine from the file: power in kW, speed in rpm.
template <class Record>
void set_rating(Record& machine, double mcrPowerKw, double mcrSpeed) {
    machine.MCRPOWER = mcrPowerKw * 1000.0;
    machine.MCRSPEED = mcrSpeed;
    machine.MCRTORQUE = mcr_torque(machine.MCRPOWER, machine.MCRSPEED);
}

// Marks the inertia with this ID as part of a component; an ID that is not in the table is
// passed over (the data check reports it).
void mark_inertia(MassTable& masses, int id, int componentType, int massType, int componentId);

// A side-file name from the model: the first 1000 characters of `text`, left-adjusted and
// trimmed, as the model wrote it. The record keeps the folder of the model file beside it
// (SIDEFILEDIR), where a relative name starts when the file is opened, so that a model
// folder can be moved with its side files and messages name the file as written.
std::string side_file_name(const std::string& text);

}  // namespace machine_sections
}  // namespace qm::IMPORTINPUTFILE
