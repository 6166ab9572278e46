#include "results/ResultReader.h"

#include <stdlib.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <fstream>
#include <system_error>

#include "base/Constants.h"
#include "base/GlobalParameter.h"
#include "base/RunContext.h"
#include "components/ModelTables.h"
#include "forced/ForcedVibration.h"
#include "forced/ResultFiles.h"
#include "forced/SourceKinds.h"
#include "input/ImportInputFile.h"
#include "matrices/FreeVibration.h"
#include "matrices/RelativeResults.h"

namespace qm::RESULTS {

namespace fs = std::filesystem;
using namespace qm::FORCEDVIBRATION;

std::size_t Column::size() const {
    switch (type) {
        case Type::Integer: return integers.size();
        case Type::Real: return reals.size();
        case Type::Text: return texts.size();
    }
    return 0;
}

const Column* ResultTable::find(const std::string& column) const {
    for (const Column& c : columns)
        if (c.name == column) return &c;
    return nullptr;
}

const ResultTable* Results::find(const std::string& table) const {
    for (const ResultTable& t : tables)
        if (t.name == table) return &t;
    return nullptr;
}

std::vector<double> read_records(const fs::path& file, std::int64_t expected_records) {
    std::error_code ec;
    if (!fs::is_regular_file(file, ec))
        throw ResultError("result file " + file.string() + " is missing");
    const auto bytes = fs::file_size(file, ec);
    if (ec) throw ResultError("result file " + file.string() + " can't be read");
    const auto expected_bytes = static_cast<std::uintmax_t>(expected_records) * 8U;
    if (bytes != expected_bytes)
        throw ResultError("result file " + file.string() + " has " + std::to_string(bytes) + " bytes where the model gives " +
                          std::to_string(expected_bytes) + (bytes < expected_bytes ? " (it is short)" : ""));
    std::vector<double> values(static_cast<std::size_t>(expected_records));
    std::ifstream in(file, std::ios::binary);
    // Records are little-endian IEEE doubles, the byte order of every host this builds for.
    if (!values.empty() && !in.read(reinterpret_cast<char*>(values.data()), static_cast<std::streamsize>(bytes)))
        throw ResultError("result file " + file.string() + " can't be read");
    return values;
}

namespace {

// ---------------------------------------------------------------------------------------
// The model

// A scratch directory for the log of the input reader, so reading a model never writes
// into the result directory. Removed with everything in it when it goes out of scope.
class ScratchDirectory {
public:
    ScratchDirectory() {
        std::error_code ec;
        std::string pattern = (fs::temp_directory_path(ec) / "quillmark-read-XXXXXX").string();
        if (ec || ::mkdtemp(pattern.data()) == nullptr) throw ResultError("no scratch directory to read the model in");
        path_ = pattern;
    }
    ~ScratchDirectory() {
        std::error_code ec;
        fs::remove_all(path_, ec);
    }
    ScratchDirectory(const ScratchDirectory&) = delete;
    ScratchDirectory& operator=(const ScratchDirectory&) = delete;
    const fs::path& path() const { return path_; }

private:
    fs::path path_;
};

struct LoadedModel {
    ModelTables tables;
    bool OUTPUTANGLEBASEDRESULTS = false;
    LoadedModel() = default;
    LoadedModel(const LoadedModel&) = delete;
    LoadedModel& operator=(const LoadedModel&) = delete;
    ~LoadedModel() { tables.deallocate_all(); }
};

// The reader's findings: its error lines, or every line when none opens with "Error".
std::string log_message(const fs::path& log) {
    std::ifstream in(log);
    std::string line, errors, all;
    while (std::getline(in, line)) {
        if (line.empty()) continue;
        (line.rfind("Error", 0) == 0 || line.rfind("error", 0) == 0 ? errors : all) += (line + "\n");
    }
    std::string message = errors.empty() ? all : errors;
    while (!message.empty() && message.back() == '\n') message.pop_back();
    return message.empty() ? "the input reader gave no message" : message;
}

void load_model(const fs::path& model, LoadedModel& loaded) {
    std::error_code ec;
    if (!fs::is_regular_file(model, ec)) throw ResultError("model file " + model.string() + " is missing");
    ScratchDirectory scratch;
    const std::string dir = scratch.path().string();
    RunContext ctx;
    ctx.SETRESULTFILEDIR(dir, static_cast<int>(dir.size()));
    bool ok = false;
    IMPORTINPUTFILE::READINPUTFILE(ctx, fs::absolute(model, ec).string(), loaded.tables, ok);
    loaded.OUTPUTANGLEBASEDRESULTS = ctx.OUTPUTANGLEBASEDRESULTS;
    if (!ok) throw ResultError("model " + model.string() + " can't be read: " + log_message(scratch.path() / "Quillmark.log"));
}

int unit_id(SourceKind kind, const ModelTables& t, int u) {
    switch (kind) {
        case DIESEL: return t.DIESEL_TABLE(u).ID;
        case PROPELLER: return t.PROPELLER_TABLE(u).ID;
        case GENERATOR: return t.GENERATOR_TABLE(u).ID;
        case CENTRIFUGALPUMP: return t.CENTRIFUGALPUMP_TABLE(u).ID;
        case RECIPROCATINGPUMP: return t.RECIPROCATINGPUMP_TABLE(u).ID;
        case ELECTRICMOTOR: return t.ELECTRICMOTOR_TABLE(u).ID;
    }
    return 0;
}

ModelInfo describe(const fs::path& model, const ModelTables& t, const SweepPlan& plan) {
    ModelInfo info;
    info.title = model.stem().string();
    for (int r = 1; r <= t.MASS_TABLE.size(); ++r) {
        const MassRecord& m = t.MASS_TABLE(r);
        info.inertias.push_back({r, m.ID, m.MASSTYPE, m.COMPONENTTYPE, m.COMPONENTID, m.RPMRATIO});
    }
    for (int s = 1; s <= t.SHAFT_TABLE.size(); ++s) {
        const ShaftRecord& sh = t.SHAFT_TABLE(s);
        info.shafts.push_back(
            {s, sh.ID, sh.SHAFTTYPE, sh.COMPONENTTYPE, sh.COMPONENTID, sh.ORGNODE, sh.DESNODE, sh.OUTERDI, sh.INNERDI});
    }
    // Orders and reference inertia of each unit as its driver hands them to the solver: a
    // place behind a machine's number of orders has order 0 (no excitation there).
    for (int kind = 0; kind < NKIND; ++kind) {
        const auto k = static_cast<SourceKind>(kind);
        for (int u = 1; u <= plan.dims.NUNIT[static_cast<std::size_t>(kind)]; ++u) {
            UnitExcitation ex;
            unit_excitation(k, t, u, plan.flags.ISPROPELLERICE, plan.dims.NORDER[static_cast<std::size_t>(kind)], ex);
            const int row = GLOBAL_MASS::GET_MASS_IMASS(t.MASS_TABLE, ex.REFERENCENODE);
            info.sources.push_back({kind_word(k), u, unit_id(k, t, u), ex.EXFO, ex.REFERENCENODE,
                                    row >= 1 ? t.MASS_TABLE(row).RPMRATIO : 1.0});
        }
    }
    for (int lc = 1; lc <= t.LOADCASE_SPEED.size(); ++lc) info.load_case_speeds.push_back(t.LOADCASE_SPEED(lc));
    info.has_ice = plan.flags.ISPROPELLERICE;
    return info;
}

// ---------------------------------------------------------------------------------------
// Building tables

Column integers(const std::string& name) { return Column{name, Column::Type::Integer, {}, {}, {}}; }
Column reals(const std::string& name) { return Column{name, Column::Type::Real, {}, {}, {}}; }
Column texts(const std::string& name) { return Column{name, Column::Type::Text, {}, {}, {}}; }

void reserve(std::vector<Column>& columns, std::size_t n) {
    for (Column& c : columns) {
        if (c.type == Column::Type::Integer) c.integers.reserve(n);
        if (c.type == Column::Type::Real) c.reals.reserve(n);
        if (c.type == Column::Type::Text) c.texts.reserve(n);
    }
}

struct Reader {
    const fs::path& dir;
    const ModelTables& t;
    const ModelInfo& info;
    Results& out;

    int NMASS() const { return t.MASS_TABLE.size(); }
    int NSHAFT() const { return t.SHAFT_TABLE.size(); }
    int NLOADCASE() const { return t.LOADCASE_SPEED.size(); }

    std::vector<double> file(const std::string& name, std::int64_t records) const {
        return read_records(dir / name, records);
    }
    bool present(const std::string& name) const {
        std::error_code ec;
        return fs::exists(dir / name, ec);
    }
    int element_id(bool masses, int e) const {
        return masses ? info.inertias[static_cast<std::size_t>(e - 1)].ID : info.shafts[static_cast<std::size_t>(e - 1)].ID;
    }

    // The sizes the run wrote down must be the model's: a result directory of another model
    // would otherwise be read with the wrong labels.
    void check_system_info() const {
        const std::vector<double> sizes = file("SystemInfo.bin", 18);
        const auto differs = [&](int record, int value, const char* what) {
            if (sizes[static_cast<std::size_t>(record - 1)] != value)
                throw ResultError("result file " + (dir / "SystemInfo.bin").string() + " gives " +
                                  std::to_string(sizes[static_cast<std::size_t>(record - 1)]) + " " + what +
                                  " where the model has " + std::to_string(value) +
                                  ": the results belong to another model");
        };
        differs(1, NMASS(), "inertias");
        differs(2, NSHAFT(), "shafts");
        differs(14, NLOADCASE(), "load cases");
    }

    void free_families() {
        using namespace FREEVIBRATION;
        int N = 0;
        for (int r = 1; r <= NMASS(); ++r)
            if (t.MASS_TABLE(r).MASSTYPE != 3) ++N;
        const std::vector<double> omega = file(FREEVIBRATION::NATURALFREQUENCYFILE, N);
        ResultTable nf{"natural_frequencies", {FREEVIBRATION::NATURALFREQUENCYFILE}, {}};
        nf.columns = {integers("mode"), reals("omega_rad_s"), reals("frequency_Hz"), reals("frequency_cpm")};
        for (int m = 1; m <= N; ++m) {
            const double w = omega[static_cast<std::size_t>(m - 1)];
            nf.columns[0].integers.push_back(m);
            nf.columns[1].reals.push_back(w);
            nf.columns[2].reals.push_back(w / (2.0 * PI));
            nf.columns[3].reals.push_back(w * RPM_PER_RAD_PER_S);
        }
        out.tables.push_back(std::move(nf));

        const int nmode = N > 1 ? N - 1 : 0;
        const auto mode_table = [&](const char* name, const char* fname, bool masses, const char* value) {
            const int NE = masses ? NMASS() : NSHAFT();
            const std::vector<double> v = file(fname, static_cast<std::int64_t>(nmode) * NE);
            ResultTable table{name, {fname}, {integers("mode"), integers(masses ? "inertia_id" : "shaft_id"), reals(value)}};
            reserve(table.columns, v.size());
            for (int m = 2; m <= N; ++m)
                for (int e = 1; e <= NE; ++e) {
                    table.columns[0].integers.push_back(m);
                    table.columns[1].integers.push_back(element_id(masses, e));
                    table.columns[2].reals.push_back(v[static_cast<std::size_t>(mode_record(m, e, NE) - 1)]);
                }
            out.tables.push_back(std::move(table));
        };
        mode_table("relative_deflection", RELATIVEDEFLECTIONFILE, true, "relative_deflection");
        mode_table("relative_torque", RELATIVETORQUEFILE, false, "relative_torque_Nm_per_rad");

        const int ndiesel = t.DIESEL_TABLE.size();
        if (ndiesel == 0) return;
        const int norder = vector_sum_order_count(t.DIESEL_TABLE);
        const std::int64_t n = static_cast<std::int64_t>(ndiesel) * nmode * norder;
        const std::vector<double> sum = file(VECTORSUMFILE, n);
        const std::vector<double> rpm = file(VECTORSUMRPMFILE, n);
        const std::vector<double> angle = file(VECTORSUMANGLEFILE, n);
        ResultTable vs{"vector_sums",
                       {VECTORSUMFILE, VECTORSUMRPMFILE, VECTORSUMANGLEFILE},
                       {integers("engine_id"), integers("mode"), reals("order"), reals("vector_sum"), reals("speed_rpm"),
                        reals("angle_rad")}};
        reserve(vs.columns, sum.size());
        for (int e = 1; e <= ndiesel; ++e)
            for (int m = 2; m <= N; ++m)
                for (int o = 1; o <= norder; ++o) {
                    const auto i = static_cast<std::size_t>(vector_sum_record(e, m, o, N, norder) - 1);
                    vs.columns[0].integers.push_back(t.DIESEL_TABLE(e).ID);
                    vs.columns[1].integers.push_back(m);
                    vs.columns[2].reals.push_back(vector_sum_order(t.DIESEL_TABLE(e), o));
                    vs.columns[3].reals.push_back(sum[i]);
                    vs.columns[4].reals.push_back(rpm[i]);
                    vs.columns[5].reals.push_back(angle[i]);
                }
        out.tables.push_back(std::move(vs));
    }

    void per_order_family(const ResultDims& d, const ResultFlags& f, Quantity q, const char* name, const char* unit) {
        const bool masses = q == DEFLECTION || q == VELOCITY || q == ACCELE;
        const int NE = masses ? d.NMASS : d.NSHAFT;
        ResultTable table{name, {}, {integers("load_case"), reals("speed_rpm"), texts("kind"), integers("unit_id"),
                                     reals("order"), integers(masses ? "inertia_id" : "shaft_id"),
                                     reals(std::string("amplitude_") + unit), reals("angle_rad"), reals("re"),
                                     reals("im")}};
        for (int k = 0; k < NKIND; ++k) {
            const ResultFile rf = per_order_file(static_cast<SourceKind>(k), q);
            if (!result_file_exists(rf, f)) continue;
            table.files.push_back(result_file_name(rf));
            const std::vector<double> v = file(result_file_name(rf), result_file_records(rf, d));
            const int nunit = d.NUNIT[static_cast<std::size_t>(k)];
            const int norder = d.NORDER[static_cast<std::size_t>(k)];
            reserve(table.columns, table.rows() + v.size() / 4);
            for (int lc = 1; lc <= d.NLOADCASE; ++lc)
                for (int u = 1; u <= nunit; ++u) {
                    const ModelInfo::Source& src = source(static_cast<SourceKind>(k), u);
                    for (int o = 1; o <= norder; ++o)
                        for (int e = 1; e <= NE; ++e) {
                            table.columns[0].integers.push_back(lc);
                            table.columns[1].reals.push_back(info.load_case_speeds[static_cast<std::size_t>(lc - 1)]);
                            table.columns[2].texts.push_back(src.kind);
                            table.columns[3].integers.push_back(src.ID);
                            table.columns[4].reals.push_back(src.orders[static_cast<std::size_t>(o - 1)]);
                            table.columns[5].integers.push_back(element_id(masses, e));
                            for (int c = 1; c <= 4; ++c) {
                                const std::int32_t r = per_order_record(lc, u, o, e, c, nunit, NE, norder);
                                table.columns[static_cast<std::size_t>(5 + c)].reals.push_back(v[static_cast<std::size_t>(r - 1)]);
                            }
                        }
                }
        }
        if (!table.files.empty()) out.tables.push_back(std::move(table));
    }

    const ModelInfo::Source& source(SourceKind kind, int u) const {
        for (const ModelInfo::Source& s : info.sources)
            if (s.kind == kind_word(kind) && s.row == u) return s;
        throw ResultError("no unit " + std::to_string(u) + " of kind " + kind_word(kind) + " in the model");
    }

    // Family 2: one value per element and load case, one column per file.
    void per_element_family(const ResultDims& d, const ResultFlags& f, bool masses, const char* name,
                            const std::vector<std::pair<ResultFile, const char*>>& files) {
        const int NE = masses ? d.NMASS : d.NSHAFT;
        ResultTable table{name, {}, {integers("load_case"), reals("speed_rpm"), integers(masses ? "inertia_id" : "shaft_id")}};
        const auto rows = static_cast<std::size_t>(d.NLOADCASE) * static_cast<std::size_t>(NE);
        reserve(table.columns, rows);
        for (int lc = 1; lc <= d.NLOADCASE; ++lc)
            for (int e = 1; e <= NE; ++e) {
                table.columns[0].integers.push_back(lc);
                table.columns[1].reals.push_back(info.load_case_speeds[static_cast<std::size_t>(lc - 1)]);
                table.columns[2].integers.push_back(element_id(masses, e));
            }
        for (const auto& [rf, column] : files) {
            if (!result_file_exists(rf, f)) continue;
            table.files.push_back(result_file_name(rf));
            const std::vector<double> v = file(result_file_name(rf), result_file_records(rf, d));
            Column c = reals(column);
            c.reals.reserve(rows);
            for (int lc = 1; lc <= d.NLOADCASE; ++lc)
                for (int e = 1; e <= NE; ++e) c.reals.push_back(v[static_cast<std::size_t>(per_element_record(lc, e, NE) - 1)]);
            table.columns.push_back(std::move(c));
        }
        out.tables.push_back(std::move(table));
    }

    // Family 3: the synthesized curves of the diesel and propeller kinds over 360 steps.
    void curve_family(const ResultDims& d, const ResultFlags& f, bool masses, const char* name,
                      const std::vector<std::pair<ResultFile, const char*>>& files) {
        if (!result_file_exists(files.front().first, f)) return;
        const int NE = masses ? d.NMASS : d.NSHAFT;
        ResultTable table{name, {}, {integers("load_case"), reals("speed_rpm"), integers(masses ? "inertia_id" : "shaft_id"),
                                     integers("step")}};
        const auto rows = static_cast<std::size_t>(d.NLOADCASE) * static_cast<std::size_t>(NE) * CURVE_STEPS;
        reserve(table.columns, rows);
        for (int lc = 1; lc <= d.NLOADCASE; ++lc)
            for (int e = 1; e <= NE; ++e)
                for (int a = 1; a <= CURVE_STEPS; ++a) {
                    table.columns[0].integers.push_back(lc);
                    table.columns[1].reals.push_back(info.load_case_speeds[static_cast<std::size_t>(lc - 1)]);
                    table.columns[2].integers.push_back(element_id(masses, e));
                    table.columns[3].integers.push_back(a);
                }
        for (const auto& [rf, column] : files) {
            table.files.push_back(result_file_name(rf));
            const std::vector<double> v = file(result_file_name(rf), result_file_records(rf, d));
            Column c = reals(column);
            c.reals.reserve(rows);
            for (int lc = 1; lc <= d.NLOADCASE; ++lc)
                for (int e = 1; e <= NE; ++e)
                    for (int a = 1; a <= CURVE_STEPS; ++a)
                        c.reals.push_back(v[static_cast<std::size_t>(curve_record(lc, e, a, NE) - 1)]);
            table.columns.push_back(std::move(c));
        }
        out.tables.push_back(std::move(table));
    }

    void forced_families(const SweepPlan& plan) {
        const ResultDims& d = plan.dims;
        const ResultFlags& f = plan.flags;
        if (!fits_32bit_records(d)) throw ResultError("the model is too large for the record numbers of the result files");
        per_order_family(d, f, DEFLECTION, "deflection", "rad");
        per_order_family(d, f, VELOCITY, "velocity", "rad_s");
        per_order_family(d, f, ACCELE, "acceleration", "rad_s2");
        per_order_family(d, f, TORQUE, "torque", "Nm");
        per_order_family(d, f, STRESS, "stress", "Pa");
        per_order_family(d, f, DAMPINGTORQUE, "damping_torque", "Nm");
        per_element_family(d, f, true, "inertia_synthesis",
                           {{SYNTHESIS_DEFLECTION, "deflection_rad"},
                            {SYNTHESIS_VELOCITY, "velocity_rad_s"},
                            {SYNTHESIS_ACCELERATION, "acceleration_rad_s2"},
                            {SYNPROPICE_DEFLECTION, "ice_deflection_rad"},
                            {SYNPROPICE_VELOCITY, "ice_velocity_rad_s"},
                            {SYNPROPICE_ACCELE, "ice_acceleration_rad_s2"}});
        per_element_family(d, f, false, "shaft_synthesis",
                           {{SYNTHESIS_TORQUE, "torque_Nm"},
                            {SYNTHESIS_STRESS, "stress_Pa"},
                            {NOMINAL_TORQUE, "nominal_torque_Nm"},
                            {NOMINAL_STRESS, "nominal_stress_Pa"},
                            {SHAFT_POWER_LOSS, "power_loss_W"},
                            {SYNTHESIS_DAMPINGTORQUE, "damping_torque_Nm"},
                            {RESULTANT_TORQUE, "resultant_torque_Nm"},
                            {SYNPROPICE_TORQUE, "ice_torque_Nm"},
                            {SYNPROPICE_STRESS, "ice_stress_Pa"},
                            {SYNPROPICE_DAMPINGTORQUE, "ice_damping_torque_Nm"}});
        curve_family(d, f, true, "inertia_curves",
                     {{ANGULARDEF_DIESEL, "diesel_deflection_rad"},
                      {ANGULARDEF_PROPELLER, "propeller_deflection_rad"},
                      {ANGULARVEL_DIESEL, "diesel_velocity_rad_s"},
                      {ANGULARVEL_PROPELLER, "propeller_velocity_rad_s"},
                      {ANGULARACCE_DIESEL, "diesel_acceleration_rad_s2"},
                      {ANGULARACCE_PROPELLER, "propeller_acceleration_rad_s2"}});
        curve_family(d, f, false, "shaft_curves",
                     {{TORQUEANGLE_DIESEL, "diesel_torque_Nm"},
                      {TORQUEANGLE_PROPELLER, "propeller_torque_Nm"},
                      {STRESSANGLE_DIESEL, "diesel_stress_Pa"},
                      {STRESSANGLE_PROPELLER, "propeller_stress_Pa"}});
        if (result_file_exists(PROPELLER_SHAFT_MARKS, f)) {
            const std::vector<double> v = file(result_file_name(PROPELLER_SHAFT_MARKS), result_file_records(PROPELLER_SHAFT_MARKS, d));
            ResultTable marks{"propeller_shaft_marks", {result_file_name(PROPELLER_SHAFT_MARKS)},
                              {integers("shaft_id"), reals("mark")}};
            for (int e = 1; e <= d.NSHAFT; ++e) {
                marks.columns[0].integers.push_back(element_id(false, e));
                marks.columns[1].reals.push_back(v[static_cast<std::size_t>(once_record(e) - 1)]);
            }
            out.tables.push_back(std::move(marks));
        }
    }
};

}  // namespace

ModelInfo read_model_info(const fs::path& model) {
    LoadedModel loaded;
    load_model(model, loaded);
    return describe(model, loaded.tables, make_sweep_plan(loaded.tables, loaded.OUTPUTANGLEBASEDRESULTS));
}

Results read_results(const fs::path& model, const fs::path& result_dir) {
    LoadedModel loaded;
    load_model(model, loaded);
    // Dimensions and switches of the sweep as the forced calculation makes them.
    const SweepPlan plan = make_sweep_plan(loaded.tables, loaded.OUTPUTANGLEBASEDRESULTS);
    Results results;
    results.model = describe(model, loaded.tables, plan);
    std::error_code ec;
    if (!fs::is_directory(result_dir, ec)) throw ResultError("result directory " + result_dir.string() + " is missing");
    Reader reader{result_dir, loaded.tables, results.model, results};
    reader.check_system_info();
    const bool free = reader.present(FREEVIBRATION::NATURALFREQUENCYFILE);
    const bool forced = reader.present(result_file_name(SYNTHESIS_TORQUE));
    if (!free && !forced)
        throw ResultError("result directory " + result_dir.string() + " holds no results: " +
                          FREEVIBRATION::NATURALFREQUENCYFILE + " and " + result_file_name(SYNTHESIS_TORQUE) +
                          " are missing");
    if (free) reader.free_families();
    if (forced) reader.forced_families(plan);
    return results;
}

}  // namespace qm::RESULTS
