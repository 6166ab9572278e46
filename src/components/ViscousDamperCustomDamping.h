// Damping and stiffness of a viscous damper that follow curves over frequency, read from
// the damper's custom damping file.
#pragma once

#include "base/RunContext.h"

#include "components/GlobalViscousDamper.h"

namespace qm::GLOBAL_VISCOUSDAMPER {

// Reads the custom damping file of damper i into its frequency tables. Line 1 is a header:
// exactly two words mean two columns (frequency in Hz, damping in Nms/rad), any other count
// three (frequency, damping, stiffness in Nm/rad). Every further non-blank line is a row,
// without gaps, at most MAXFREQUENCY of them. A blank name or a row outside the table leaves
// ok as it was; otherwise ok becomes true, and false after a failure, which is logged.
void LOADCUSTOMDAMPINGFILE(RunContext& ctx, ViscousDamperTable& table, int i, bool& ok);

// Damping and stiffness of damper i at the frequency of an excitation order at the damper's
// SPEED (f = SPEED * order / 60 Hz), interpolated linearly in the tables and extrapolated
// beyond them by the first or last segment. One row: its value at every frequency; no rows:
// 0.0.
double CALCULATE_VISCOUSDAMPER_CUSTOMDAMPING(const ViscousDamperTable& table, int i, double order);
double CALCULATE_VISCOUSDAMPER_CUSTOMSTIFFNESS(const ViscousDamperTable& table, int i, double order);

}  // namespace qm::GLOBAL_VISCOUSDAMPER
