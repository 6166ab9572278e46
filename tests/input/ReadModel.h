// A model text read through the input reader, with the scratch folder as result directory.
#pragma once

#include "../TestSupport.h"
#include "base/Log.h"
#include "input/ImportInputFile.h"

namespace qm::test {

struct ReadModel {
    ScratchDir dir;
    ModelTables tables;
    bool ok = false;
    std::vector<std::string> log;

    RunContext ctx = run_in(dir.str());

    explicit ReadModel(const std::string& model) {
        write_file(dir / "model.qmk", model);
        IMPORTINPUTFILE::READINPUTFILE(ctx, (dir / "model.qmk").string(), tables, ok);
        log = read_lines(dir / "Quillmark.log");
    }
};

// The reader's message for values that do not read, with its line number.
inline std::string read_error(const std::string& items, int line) {
    return LOG::with_line_number("Error occurs when reading \"" + items + "\" in input file line ", line);
}

}  // namespace qm::test
