// Reading the result files of a run back into labelled tables: given the model file and the
// result directory, every direct-access file of the free and the forced calculation becomes a
// table of named columns, each row labelled with what an engineer looks for (mode, load case
// and its speed, source kind, the component's ID, the real order, the inertia's or shaft's ID).
//
// The model is read again through the input reader, so rows and IDs are the ones the run used,
// and the positions of the values come from the same record functions the writers use. The
// files are never changed. A missing file, or one whose length the model does not explain,
// ends the read with a ResultError naming the file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

namespace qm::RESULTS {

class ResultError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// One column. The name carries the unit where there is one ("speed_rpm", "amplitude_Nm").
// Labels are integers or words, values 64-bit reals.
struct Column {
    enum class Type { Integer, Real, Text };
    std::string name;
    Type type = Type::Real;
    std::vector<std::int32_t> integers;
    std::vector<double> reals;
    std::vector<std::string> texts;

    std::size_t size() const;
};

struct ResultTable {
    std::string name;                // "natural_frequencies", "torque", "shaft_synthesis", ...
    std::vector<std::string> files;  // the result files the values come from
    std::vector<Column> columns;

    std::size_t rows() const { return columns.empty() ? 0 : columns.front().size(); }
    // The column of that name, nullptr when the table has none.
    const Column* find(const std::string& column) const;
};

// What the tables of a result refer to, from the model file.
struct ModelInfo {
    std::string title;  // the model file's name without its extension
    struct Inertia {
        int row = 0, ID = 0, MASSTYPE = 0, COMPONENTTYPE = 0, COMPONENTID = 0;
        double RPMRATIO = 1.0;
    };
    struct Shaft {
        int row = 0, ID = 0, SHAFTTYPE = 0, COMPONENTTYPE = 0, COMPONENTID = 0;
        int ORGNODE = 0, DESNODE = 0;  // inertia IDs of the two ends
        double OUTERDI = 0.0, INNERDI = 0.0;
    };
    // One exciting unit: a row of the table of a source kind.
    struct Source {
        std::string kind;  // word of the kind: "Diesel", "Propeller", "Generator", ...
        int row = 0, ID = 0;
        std::vector<double> orders;  // the real order of each place of the order axis
        int node = 0;                // inertia ID that sets the unit's speed (first cylinder, machine node)
        double RPMRATIO = 1.0;       // speed of that inertia over the load case speed
    };
    std::vector<Inertia> inertias;
    std::vector<Shaft> shafts;
    std::vector<Source> sources;
    std::vector<double> load_case_speeds;  // rpm, load case 1 first
    bool has_ice = false;                  // a propeller with ice excitation
};

struct Results {
    ModelInfo model;
    std::vector<ResultTable> tables;  // only the families the result directory holds

    const ResultTable* find(const std::string& table) const;
};

// Reads the model and every result family found in result_dir. The free calculation's
// tables are there when "NaturalFrequency.bin" is, the forced calculation's when
// "SynthesisTorque.bin" is; then every file that such a run writes must be there with its
// full length. Throws ResultError with a message naming the model or the file.
Results read_results(const std::filesystem::path& model, const std::filesystem::path& result_dir);

// The model alone: reads it through the input reader in a scratch directory and returns
// what the tables of a result refer to. Throws ResultError with the reader's message.
ModelInfo read_model_info(const std::filesystem::path& model);

// All records of a result file, checked against the count the model gives.
std::vector<double> read_records(const std::filesystem::path& file, std::int64_t expected_records);

}  // namespace qm::RESULTS
