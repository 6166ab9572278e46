// Which shafts of a model carry a damper or a coupling, read from the model file: the
// command line shows their resultant torque and power loss.
#pragma once

#include <filesystem>
#include <vector>

namespace qm::cli {

// For each SHAFT line in file order: true when a coupling names it (ShaftNode) or a damper
// spans its two inertias (either way round).
std::vector<bool> damping_elements(const std::filesystem::path& model);

}  // namespace qm::cli
