// What a host needs before any result exists: the sizes of the system ("SystemInfo.bin")
// and the firing status of every cylinder ("Overview.txt").
#pragma once

#include "base/RunContext.h"
#include "components/ModelTables.h"

namespace qm::IMPORTINPUTFILE {

constexpr const char* SYSTEMINFOFILE = "SystemInfo.bin";
constexpr const char* OVERVIEWFILE = "Overview.txt";

// 18 records: the counts of the tables, the number of load cases and the length of the
// engines' order axis, in their fixed order.
void OUTPUTSYSTEMINFO(RunContext& ctx, const ModelTables& tables);

// One line per cylinder and bank whose firing status is 1 to 5; written only with engines.
void OUTPUTDIESELFIRINGSTATUS(RunContext& ctx, const ModelTables& tables);

}  // namespace qm::IMPORTINPUTFILE
