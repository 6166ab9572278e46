// The result reader against real runs of the examples (free calculation) and against forced
// files laid out by the writer's record functions with values that encode their own labels,
// so a row whose labels and values disagree shows the reader looked in the wrong place.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <map>

#include "../TestSupport.h"
#include "base/BinFile.h"
#include "forced/ResultFiles.h"
#include "frame/QuillmarkSolver.h"
#include "matrices/RelativeResults.h"
#include "results/ResultReader.h"

namespace qm::test {
namespace {

namespace fs = std::filesystem;
using namespace qm::RESULTS;
using namespace qm::FORCEDVIBRATION;

const fs::path TWO_STROKE = fs::path(QM_EXAMPLES_DIR) / "two-stroke-main-engine.qmk";
const fs::path GEARED = fs::path(QM_EXAMPLES_DIR) / "geared-four-stroke" / "geared-four-stroke.qmk";

int run(const fs::path& model, const ScratchDir& dir, int type) {
    return run_solver(model.parent_path().string(), model.filename().string(), dir.str(), type);
}

const Column& col(const ResultTable& t, const std::string& name) {
    const Column* c = t.find(name);
    if (c == nullptr) throw std::runtime_error("no column " + name + " in " + t.name);
    return *c;
}

// The message of the ResultError that f throws, "" when it throws none.
template <class F>
std::string error_of(F f) {
    try {
        f();
    } catch (const ResultError& e) {
        return e.what();
    }
    return "";
}

TEST(ResultReader, FreeFamiliesCarryTheFileValuesUnderTheModelsIds) {
    ScratchDir dir;
    ASSERT_EQ(run(TWO_STROKE, dir, 1), 1);
    const Results r = read_results(TWO_STROKE, dir.path());
    EXPECT_EQ(r.model.title, "two-stroke-main-engine");
    EXPECT_EQ(r.find("torque"), nullptr);  // no forced run

    const auto omega = read_records(dir / "NaturalFrequency.bin");
    const ResultTable& nf = *r.find("natural_frequencies");
    ASSERT_EQ(nf.rows(), omega.size());
    EXPECT_EQ(col(nf, "omega_rad_s").reals, omega);
    EXPECT_DOUBLE_EQ(col(nf, "frequency_Hz").reals[1], omega[1] / (2.0 * 3.141592653589793));

    // Every value of the relative deflection sits under the ID of its row of the inertia table.
    const auto rd = read_records(dir / "RelativeDeflection.bin");
    const ResultTable& t = *r.find("relative_deflection");
    const int nmass = static_cast<int>(r.model.inertias.size());
    ASSERT_EQ(t.rows(), rd.size());
    for (std::size_t i = 0; i < t.rows(); ++i) {
        const int m = col(t, "mode").integers[i];
        const int id = col(t, "inertia_id").integers[i];
        int row = 0;
        for (const auto& in : r.model.inertias)
            if (in.ID == id) row = in.row;
        const double v = rd[static_cast<std::size_t>(FREEVIBRATION::mode_record(m, row, nmass) - 1)];
        EXPECT_TRUE(v == col(t, "relative_deflection").reals[i] || (std::isnan(v) && std::isnan(col(t, "relative_deflection").reals[i])));
    }

    // Vector sums of a two-stroke engine run over the whole orders 1..20 in each mode, and the
    // strongest order of each mode has the sum 1.
    const ResultTable& vs = *r.find("vector_sums");
    EXPECT_EQ(vs.rows(), static_cast<std::size_t>(omega.size() - 1) * 20);
    EXPECT_EQ(col(vs, "order").reals[0], 1.0);
    EXPECT_EQ(col(vs, "order").reals[19], 20.0);
    std::map<int, double> strongest;
    for (std::size_t i = 0; i < vs.rows(); ++i)
        strongest[col(vs, "mode").integers[i]] = std::max(strongest[col(vs, "mode").integers[i]], col(vs, "vector_sum").reals[i]);
    for (const auto& [mode, v] : strongest) EXPECT_DOUBLE_EQ(v, 1.0) << "mode " << mode;
}

TEST(ResultReader, FourStrokeOrdersAreHalfOrders) {
    ScratchDir dir;
    ASSERT_EQ(run(GEARED, dir, 1), 1);
    const Results r = read_results(GEARED, dir.path());
    const Column& order = col(*r.find("vector_sums"), "order");
    EXPECT_EQ(order.reals[0], 0.5);
    EXPECT_EQ(order.reals[23], 12.0);
}

TEST(ResultReader, MissingShortForeignAndUnreadableInputsNameTheirFile) {
    ScratchDir dir;
    ASSERT_EQ(run(TWO_STROKE, dir, 1), 1);

    fs::remove(dir / "RelativeTorque.bin");
    std::string e = error_of([&] { read_results(TWO_STROKE, dir.path()); });
    EXPECT_NE(e.find("RelativeTorque.bin"), std::string::npos) << e;
    EXPECT_NE(e.find("missing"), std::string::npos) << e;

    ASSERT_EQ(run(TWO_STROKE, dir, 1), 1);
    fs::resize_file(dir / "VectorSumRpm.bin", fs::file_size(dir / "VectorSumRpm.bin") - 8);
    e = error_of([&] { read_results(TWO_STROKE, dir.path()); });
    EXPECT_NE(e.find("VectorSumRpm.bin"), std::string::npos) << e;
    EXPECT_NE(e.find("short"), std::string::npos) << e;

    // results of one model read with another
    ASSERT_EQ(run(TWO_STROKE, dir, 1), 1);
    e = error_of([&] { read_results(GEARED, dir.path()); });
    EXPECT_NE(e.find("another model"), std::string::npos) << e;

    // a model that does not read gives the reader's message, and the result directory keeps its log
    const std::string log_before = read_file(dir / "Quillmark.log");
    write_file(dir / "broken.qmk", "INERTIA 1 1.0 x 0 0\n");
    e = error_of([&] { read_results(dir / "broken.qmk", dir.path()); });
    EXPECT_NE(e.find("Error occurs when reading"), std::string::npos) << e;
    EXPECT_EQ(read_file(dir / "Quillmark.log"), log_before);

    e = error_of([&] { read_results(dir / "none.qmk", dir.path()); });
    EXPECT_NE(e.find("none.qmk"), std::string::npos) << e;
    e = error_of([&] { read_results(TWO_STROKE, dir / "none"); });
    EXPECT_NE(e.find("none"), std::string::npos) << e;
    fs::remove(dir / "NaturalFrequency.bin");
    e = error_of([&] { read_results(TWO_STROKE, dir.path()); });
    EXPECT_NE(e.find("no results"), std::string::npos) << e;
}

// The value written at each place of a family-1 file: its labels in one number.
double encoded(int lc, int u, int o, int e, int c) { return lc * 1e6 + u * 1e4 + o * 1e2 + e + c * 0.1; }

// Writes every forced file a sweep of the model opens, laid out by the writer's record
// functions; family 1 holds encoded(...), family 2 file * 1e4 + lc * 1e2 + e.
void write_forced_files(const ScratchDir& dir, const ModelInfo& info) {
    ResultDims d;
    d.NMASS = static_cast<int>(info.inertias.size());
    d.NSHAFT = static_cast<int>(info.shafts.size());
    d.NLOADCASE = static_cast<int>(info.load_case_speeds.size());
    const char* words[NKIND] = {"Diesel", "Propeller", "Generator", "CentrifugalPump", "ReciprocatingPump",
                                "ElectricMotor"};
    for (std::size_t k = 0; k < NKIND; ++k)
        for (const auto& s : info.sources)
            if (s.kind == words[k]) {
                ++d.NUNIT[k];
                d.NORDER[k] = static_cast<int>(s.orders.size());
            }
    ResultFlags f;
    f.HASDIESEL = d.NUNIT[DIESEL] > 0;
    f.HASDAMPERORCOUPLING = true;  // the example has a flexible coupling
    for (ResultFile rf : result_files_opened(f)) {
        std::vector<double> v(static_cast<std::size_t>(result_file_records(rf, d)), -1.0);
        const int NE = on_masses(rf) ? d.NMASS : d.NSHAFT;
        auto at = [&v](int record) -> double& { return v[static_cast<std::size_t>(record - 1)]; };
        for (int lc = 1; lc <= d.NLOADCASE; ++lc) {
            if (result_file_family(rf) == PER_ORDER) {
                const auto k = static_cast<std::size_t>(per_order_kind(rf));
                for (int u = 1; u <= d.NUNIT[k]; ++u)
                    for (int o = 1; o <= d.NORDER[k]; ++o)
                        for (int e = 1; e <= NE; ++e)
                            for (int c = 1; c <= 4; ++c)
                                at(per_order_record(lc, u, o, e, c, d.NUNIT[k], NE, d.NORDER[k])) = encoded(lc, u, o, e, c);
            } else if (result_file_family(rf) == PER_ELEMENT) {
                for (int e = 1; e <= NE; ++e) at(per_element_record(lc, e, NE)) = static_cast<int>(rf) * 1e4 + lc * 1e2 + e;
            }
        }
        EXPECT_TRUE(write_bin_file((dir / result_file_name(rf)).string(), v.data(), v.size()));
    }
}

TEST(ResultReader, ForcedFamiliesLabelEveryRecordAsTheWriterPlacedIt) {
    ScratchDir dir;
    ASSERT_EQ(run(GEARED, dir, 0), 1);  // SystemInfo.bin of the model, no results yet
    const ModelInfo info = read_model_info(GEARED);
    write_forced_files(dir, info);

    const Results r = read_results(GEARED, dir.path());
    const ResultTable& torque = *r.find("torque");
    EXPECT_EQ(torque.columns[0].name, "load_case");
    EXPECT_EQ(torque.columns[6].name, "amplitude_Nm");
    std::map<std::pair<std::string, int>, const ModelInfo::Source*> units;
    for (const auto& s : r.model.sources) units[{s.kind, s.ID}] = &s;
    std::map<int, int> shaft_row;
    for (const auto& s : r.model.shafts) shaft_row[s.ID] = s.row;
    std::map<std::string, int> kinds_seen;
    for (std::size_t i = 0; i < torque.rows(); ++i) {
        const int lc = col(torque, "load_case").integers[i];
        const auto* unit = units.at({col(torque, "kind").texts[i], col(torque, "unit_id").integers[i]});
        const double order = col(torque, "order").reals[i];
        // places beyond a machine's orders share the order 0: their place is not told by it
        if (std::count(unit->orders.begin(), unit->orders.end(), order) != 1) continue;
        const int o = static_cast<int>(std::find(unit->orders.begin(), unit->orders.end(), order) - unit->orders.begin()) + 1;
        const int e = shaft_row.at(col(torque, "shaft_id").integers[i]);
        ++kinds_seen[unit->kind];
        EXPECT_EQ(col(torque, "speed_rpm").reals[i], r.model.load_case_speeds[static_cast<std::size_t>(lc - 1)]);
        ASSERT_EQ(col(torque, "amplitude_Nm").reals[i], encoded(lc, unit->row, o, e, 1)) << "row " << i;
        ASSERT_EQ(col(torque, "im").reals[i], encoded(lc, unit->row, o, e, 4)) << "row " << i;
    }
    EXPECT_GT(kinds_seen["Diesel"], 0);
    EXPECT_GT(kinds_seen["Propeller"], 0);
    EXPECT_EQ(kinds_seen.count("ElectricMotor"), 0U);  // its files exist with length 0

    const ResultTable& sy = *r.find("shaft_synthesis");
    const auto nshaft = r.model.shafts.size();
    EXPECT_EQ(sy.rows(), r.model.load_case_speeds.size() * nshaft);
    EXPECT_EQ(col(sy, "nominal_torque_Nm").reals[nshaft + 1], static_cast<int>(NOMINAL_TORQUE) * 1e4 + 2 * 1e2 + 2);
    EXPECT_NE(sy.find("resultant_torque_Nm"), nullptr);
    EXPECT_EQ(sy.find("ice_torque_Nm"), nullptr);  // no ice on this propeller
    EXPECT_EQ(r.find("shaft_curves"), nullptr);     // no angle-based results asked for

    fs::remove(dir / "GeneratorDampingTorque.bin");
    const std::string e = error_of([&] { read_results(GEARED, dir.path()); });
    EXPECT_NE(e.find("GeneratorDampingTorque.bin"), std::string::npos) << e;
}

}  // namespace
}  // namespace qm::test
