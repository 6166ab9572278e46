// Small shaft lines for the tests, built in code as model tables or written as input text
// and read through the input reader with a scratch folder as result directory.
#pragma once

#include <array>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "../TestSupport.h"
#include "base/ComponentCodes.h"
#include "base/Log.h"
#include "components/ModelTables.h"
#include "frame/QuillmarkSolver.h"
#include "input/ImportInputFile.h"

namespace qm::test {

// Appends a record to a table (which only grows by reallocation) and returns it.
template <class R>
R& append(Table<R>& table, const R& record = R{}) {
    std::vector<R> rows;
    for (int r = 1; r <= row_count(table); ++r) rows.push_back(table(r));
    rows.push_back(record);
    table.allocate(static_cast<int>(rows.size()));
    for (int r = 1; r <= table.size(); ++r) table(r) = rows[static_cast<std::size_t>(r - 1)];
    return table(table.size());
}

// A model in code. Inertias and shafts are added row by row and joined by inertia IDs; a
// shaft's ID is its row. Every record stays editable through `t`.
struct Model {
    ModelTables t;

    // An inertia; its component ID is its own ID unless one is given.
    Model& mass(int id, double inertia, double ratio = 1.0, int masstype = CODES::MASSTYPE_PLAIN,
                int componenttype = CODES::COMPONENT_NONE_MASS, int componentid = 0) {
        append(t.MASS_TABLE, {.MASSTYPE = masstype, .COMPONENTTYPE = componenttype,
                              .COMPONENTID = componentid == 0 ? id : componentid, .ID = id, .RPMRATIO = ratio,
                              .INERTIA = inertia, .INERTIAEFFECTIVE = inertia});
        return *this;
    }
    // A shaft from inertia `org` to inertia `des`; its component ID is its row unless given.
    Model& shaft(int org, int des, double k, double ratio = 1.0, int shafttype = CODES::SHAFTTYPE_PLAIN,
                 int componenttype = CODES::COMPONENT_NONE_SHAFT, int componentid = 0) {
        const int row = row_count(t.SHAFT_TABLE) + 1;
        ShaftRecord& s = append(t.SHAFT_TABLE);
        s.ID = row;
        s.ORGNODE = org;
        s.DESNODE = des;
        s.STIFFNESS = s.STIFFNESSDYNAMIC = k;
        s.RPMRATIO = ratio;
        s.SHAFTTYPE = shafttype;
        s.COMPONENTTYPE = componenttype;
        s.COMPONENTID = componentid == 0 ? row : componentid;
        return *this;
    }
    // A viscous damper `id`: its casing and ring inertias (casing keeps half the ring in the
    // free calculation) joined by the damper's spring of stiffness k.
    Model& viscous_damper(int id, int casing, double casingInertia, int ring, double ringInertia, double k) {
        mass(casing, casingInertia, 1.0, CODES::MASSTYPE_VISCOUSDAMPERCASING, CODES::COMPONENT_VISCOUSDAMPER, id);
        mass(ring, ringInertia, 1.0, CODES::MASSTYPE_VISCOUSDAMPERRING, CODES::COMPONENT_VISCOUSDAMPER, id);
        shaft(casing, ring, k, 1.0, CODES::SHAFTTYPE_VISCOUSDAMPERSPRING, CODES::COMPONENT_VISCOUSDAMPER, id);
        ViscousDamperRecord& d = append(t.VISCOUSDAMPER_TABLE);
        d.ID = id;
        d.CASINGNODE = casing;
        d.RINGNODE = ring;
        return *this;
    }
    // Load case columns (component code, ID), one row of powers in W per load case, all at
    // `speed` rpm.
    Model& load_cases(const std::vector<std::pair<int, int>>& columns, const std::vector<std::vector<double>>& powers,
                      double speed = 100.0) {
        const int nc = static_cast<int>(columns.size()), nl = static_cast<int>(powers.size());
        t.LOADCASE_TABLE.allocate(nc);
        for (int c = 1; c <= nc; ++c)
            t.LOADCASE_TABLE(c) = {columns[static_cast<std::size_t>(c - 1)].first,
                                   columns[static_cast<std::size_t>(c - 1)].second};
        t.LOADCASE_SPEED.allocate(nl);
        t.LOADCASE_POWER.allocate(nc, nl);
        for (int lc = 1; lc <= nl; ++lc) {
            t.LOADCASE_SPEED(lc) = speed;
            const auto& row = powers[static_cast<std::size_t>(lc - 1)];
            for (int c = 1; c <= nc && c <= static_cast<int>(row.size()); ++c)
                t.LOADCASE_POWER(c, lc) = row[static_cast<std::size_t>(c - 1)];
        }
        return *this;
    }
    operator ModelTables&() { return t; }
};

// n inertias (IDs 1..n) on n-1 shafts of stiffness k, ratio 1 everywhere.
inline ModelTables chain(int n, double inertia = 10.0, double k = 1.0e6) {
    Model m;
    for (int i = 1; i <= n; ++i) m.mass(i, inertia);
    for (int i = 1; i < n; ++i) m.shaft(i, i + 1, k);
    return std::move(m.t);
}

// A Geislinger coupling on shaft row `shaft` (ID = row), damped through its magnifier.
inline GeislingerCouplingRecord& add_geislinger(ModelTables& t, int shaft, double stiffness, double speed) {
    t.SHAFT_TABLE(shaft).SHAFTTYPE = CODES::SHAFTTYPE_GEISLINGERCOUPLING;
    return append(t.GEISLINGERCOUPLING_TABLE,
                  {.ID = row_count(t.GEISLINGERCOUPLING_TABLE) + 1, .SHAFTNODE = shaft,
                   .DAMPINGTYPE = GLOBAL_GEISLINGERCOUPLING::GENERALDAMPING, .NOMINALTORQUE = 1.0e4,
                   .STATICSTIFFNESS = stiffness, .CHARACTERISTICFREQUENCY = 100.0, .SPEEDEXCITATION = speed});
}

// ---------------------------------------------------------------------------------------
// Models as input text.

using Lines = std::vector<std::string>;

inline std::string joined(const Lines& lines) {
    std::string text;
    for (const std::string& l : lines) text += l + "\n";
    return text;
}

// Input text built line by line: inertias and shafts with the columns the tests vary.
struct ModelText {
    std::string text;

    ModelText& inertia(int id, double inertia, double ratio = 1.0, double absDamping = 0.0) {
        return add("INERTIA " + num(id) + " " + num(ratio) + " " + num(inertia) + " " + num(absDamping) + " 0");
    }
    // A plain shaft without diameters.
    ModelText& shaft(int id, int org, int des, double k, double ratio = 1.0, double absDamping = 0.0,
                     double dynMagnifier = 0.0) {
        return add("SHAFT " + num(id) + " " + num(org) + " " + num(des) + " " + num(ratio) + " " + num(k) + " " +
                   num(absDamping) + " " + num(dynMagnifier) + " 0 0 0 0");
    }
    // Inertias 1..n of `inertia` on shafts 1..n-1 of stiffness k.
    ModelText& chain(int n, double inertia, double k) {
        for (int i = 1; i <= n; ++i) this->inertia(i, inertia);
        for (int i = 1; i < n; ++i) shaft(i, i, i + 1, k);
        return *this;
    }
    ModelText& add(const std::string& lines) {
        text += lines;
        if (!text.empty() && text.back() != '\n') text += '\n';
        return *this;
    }
    operator std::string() const { return text; }

    template <class T>
    static std::string num(T v) {
        std::ostringstream s;
        s.precision(17);
        s << v;
        return s.str();
    }
};

// A two-cylinder in-line two-stroke engine with theoretical pressure and formula damping
// on the inertias `cylinders` (two IDs).
inline Lines diesel_lines(int id, const std::string& cylinders = "11 12", int isGenset = 0) {
    return {"DIESEL " + std::to_string(id) + " MainEngine", "7000 100 2 2 0 0 0 " + std::to_string(isGenset) + " 1,1",
            cylinders, "0 180", "0 0", "1 1", "0 0", "100 100", "100 100", "600 2400 0,25 1500 95 1 0 1",
            "150 110 1,35 1,25 15 2,5 320", "45 1 -5 40 120 -30 200", "0,5 1,5 2 2,5"};
}

// A ducted four-blade propeller with Archer damping on inertia `node`.
inline Lines propeller_lines(int id, int node) {
    return {"PROPELLER " + std::to_string(id), std::to_string(node) + " 7000 100 4 5000 1500 1",
            "300 5000 0,8 0,6 0 90 20", "ARCHER 30 40 80 2 1 90 1", "0"};
}

// A model text read through the input reader, with the scratch folder as result directory
// and model folder, where the side files (name, text) are written first.
struct ReadModel {
    ScratchDir dir;
    ModelTables tables;
    bool ok = false;
    std::vector<std::string> log;
    RunContext ctx = run_in(dir.str());

    explicit ReadModel(const std::string& model, const std::vector<std::pair<std::string, std::string>>& sideFiles = {}) {
        for (const auto& [name, text] : sideFiles) write_file(dir / name, text);
        write_file(dir / "model.qmk", model);
        IMPORTINPUTFILE::READINPUTFILE(ctx, (dir / "model.qmk").string(), tables, ok);
        log = read_lines(dir / "Quillmark.log");
    }
};

// How the reader marked an inertia row: component code, mass code, owner's ID.
inline std::array<int, 3> mark(const ModelTables& t, int row) {
    const MassRecord& m = t.MASS_TABLE(row);
    return {m.COMPONENTTYPE, m.MASSTYPE, m.COMPONENTID};
}
using Mark = std::array<int, 3>;

// A whole run of the model text as "model.qmk" in `dir`, which is also the result directory;
// the entry's return value.
inline int run_model(const ScratchDir& dir, const std::string& model, int calculationType) {
    write_file(dir / "model.qmk", model);
    return run_solver(dir.str(), "model.qmk", dir.str(), calculationType);
}

// The reader's message for values that do not read, with its line number.
inline std::string read_error(const std::string& items, int line) {
    return LOG::with_line_number("Error occurs when reading \"" + items + "\" in input file line ", line);
}

// The two-engine gearbox model of the forced test data, copied into dir beside the harmonic
// files of the geared example it reads; returns the path of the model file.
inline std::filesystem::path two_engine_gearbox(const std::filesystem::path& dir) {
    namespace fs = std::filesystem;
    fs::create_directories(dir);
    for (const char* f : {"harmonics-normal.txt", "harmonics-misfire.txt"})
        fs::copy_file(fs::path(QM_EXAMPLES_DIR) / "geared-four-stroke" / f, dir / f);
    fs::copy_file(fs::path(QM_TEST_DATA_DIR) / "forced" / "two-engine-gearbox" / "two-engine-gearbox.qmk",
                  dir / "two-engine-gearbox.qmk");
    return dir / "two-engine-gearbox.qmk";
}

}  // namespace qm::test
