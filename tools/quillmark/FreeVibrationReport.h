// What a designer reads from a free vibration: for each mode its frequency, the inertias
// that swing most, and the engine orders that can drive it with the speed where they meet.
#pragma once

#include <filesystem>
#include <ostream>

namespace qm::cli {

// Reads the result files of a free calculation in `results` (and the inertia IDs from the
// model file) and prints the natural frequencies and, per mode, the leading inertias and
// engine orders. Prints nothing when there are no frequencies.
void print_free_vibration(std::ostream& out, const std::filesystem::path& model, const std::filesystem::path& results);

}  // namespace qm::cli
