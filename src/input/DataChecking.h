// Module IMPORTINPUTFILE, the data check: every record of every table is tested and each
// finding written to the log; nothing stops the check, so the user sees all findings of a
// model at once. On the way the spring of a viscous damper without stiffness gets a tiny
// one, and the side files are loaded.
#pragma once

#include <string>

#include "base/RunContext.h"
#include "components/ModelTables.h"

namespace qm::IMPORTINPUTFILE {

// ISSUCCESS is set true on entry and false by every error (warnings leave it alone). The
// findings go to the log of the run.
void DATACHECKING(RunContext& ctx, bool& ISSUCCESS, ModelTables& tables, int CALCULATIONTYPE);

// A real in a message: the general numeric form of 7 significant digits in a field of 15,
// without the trailing blanks of the fixed form.
std::string message_real(double value);

}  // namespace qm::IMPORTINPUTFILE
