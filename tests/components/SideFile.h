// A side file of a model written into a scratch result directory, and what its loader logs.
#pragma once

#include <string>
#include <vector>

#include "../TestSupport.h"

namespace qm::test {

struct SideFile {
    ScratchDir dir;
    RunContext ctx = run_in(dir.str());

    // Writes `text` as `name` and returns its full path.
    std::string write(const std::string& name, const std::string& text) const {
        write_file(dir / name, text);
        return (dir / name).string();
    }
    std::vector<std::string> log() const { return read_lines(dir / "Quillmark.log"); }
    // The message of a line of `name` that does not read.
    std::string error(const std::string& name, int line) const {
        return "Error occurs when reading " + (dir / name).string() + " in line " + std::to_string(line);
    }
};

}  // namespace qm::test
