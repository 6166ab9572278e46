// What a designer reads first from a forced calculation: per load case its speed and, for
// each shaft, the mean torque and the largest alternating torque of any single source unit
// and order, with the unit and the order that give it.
#pragma once

#include <filesystem>
#include <ostream>

namespace qm::cli {

// Reads "SystemInfo.bin", the nominal torque and the per-order files of `results` (and the
// shaft IDs and load case speeds from the model file) and prints one table per load case.
// Prints nothing when the forced results are missing.
void print_forced_vibration(std::ostream& out, const std::filesystem::path& model,
                            const std::filesystem::path& results);

}  // namespace qm::cli
