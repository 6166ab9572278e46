// A model text read through the input reader, with the scratch folder as result directory.
#pragma once

#include "../TestSupport.h"
#include "base/GlobalParameter.h"
#include "base/Log.h"
#include "input/ImportInputFile.h"

namespace qm::test {

struct ReadModel {
    ScratchDir dir;
    ModelTables tables;
    bool ok = false;
    std::vector<std::string> log;

    explicit ReadModel(const std::string& model) {
        GLOBAL_PARAMETER::SETRESULTFILEDIR(dir.str(), static_cast<int>(dir.str().size()));
        write_file(dir / "model.qmk", model);
        IMPORTINPUTFILE::READINPUTFILE((dir / "model.qmk").string(), tables, ok);
        log = read_lines(dir / "Quillmark.log");
    }
};

// The reader's message for values that do not read, with its line number.
inline std::string read_error(const std::string& items, int line) {
    return LOG::with_line_number("Error occurs when reading \"" + items + "\" in input file line ", line);
}

}  // namespace qm::test
