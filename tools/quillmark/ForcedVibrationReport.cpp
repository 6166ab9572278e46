#include "ForcedVibrationReport.h"

#include "DampingElements.h"
#include "ModelFile.h"

#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "base/Constants.h"
#include "base/Format.h"
#include "forced/ResultFiles.h"
#include "forced/SourceKinds.h"

namespace qm::cli {

namespace {

using namespace qm::FORCEDVIBRATION;

// Records of "SystemInfo.bin" (1-based) holding the number of units of each source kind.
constexpr std::array<int, NKIND> kUnitRecord = {8, 12, 13, 17, 18, 9};

// The per-order results of one kind as the files hold them.
struct KindFiles {
    int NUNIT = 0;
    int NORDER = 0;
    std::vector<double> deflection, velocity, torque;
};

struct Peak {
    double amplitude = 0.0;  // N*m
    int kind = -1, unit = 0, place = 0;
};

// The order of place o of unit u in load case lc: the frequency of the response over the
// speed of the load case, taken at the mass that swings most.
double order_of(const KindFiles& f, int NMASS, int lc, int u, int o, double rpm) {
    double best = 0.0, order = 0.0;
    for (int e = 1; e <= NMASS; ++e) {
        const std::size_t r = static_cast<std::size_t>(per_order_record(lc, u, o, e, 1, f.NUNIT, NMASS, f.NORDER));
        if (r > f.deflection.size() || r > f.velocity.size()) return 0.0;
        const double x = f.deflection[r - 1];
        if (std::fabs(x) > best && rpm != 0.0) {
            best = std::fabs(x);
            order = f.velocity[r - 1] / x / (rpm * PI / 30.0);
        }
    }
    return order;
}

// One value per shaft and load case (family 2); empty when the file is missing or of
// another size.
std::vector<double> per_shaft(const std::filesystem::path& results, ResultFile f, int NSHAFT, int NLOADCASE) {
    std::vector<double> v = records(results / result_file_name(f));
    if (v.size() != static_cast<std::size_t>(NSHAFT) * static_cast<std::size_t>(NLOADCASE)) v.clear();
    return v;
}

}  // namespace

void print_forced_vibration(std::ostream& out, const std::filesystem::path& model,
                            const std::filesystem::path& results) {
    const std::vector<double> info = records(results / "SystemInfo.bin");
    const std::vector<double> nominal = records(results / result_file_name(NOMINAL_TORQUE));
    if (info.size() < 18) return;
    const int NMASS = static_cast<int>(info[0]), NSHAFT = static_cast<int>(info[1]);
    const int NLOADCASE = static_cast<int>(info[13]);
    const std::vector<double> speeds = load_case_speeds(model);
    const std::vector<int> shafts = section_ids(model, "SHAFT");
    if (NSHAFT <= 0 || NLOADCASE <= 0 || nominal.size() != static_cast<std::size_t>(NSHAFT) * NLOADCASE ||
        static_cast<int>(speeds.size()) != NLOADCASE || static_cast<int>(shafts.size()) != NSHAFT)
        return;

    const std::vector<double> synTorque = per_shaft(results, SYNTHESIS_TORQUE, NSHAFT, NLOADCASE);
    const std::vector<double> synStress = per_shaft(results, SYNTHESIS_STRESS, NSHAFT, NLOADCASE);
    const std::vector<double> resultant = per_shaft(results, RESULTANT_TORQUE, NSHAFT, NLOADCASE);
    const std::vector<double> loss = per_shaft(results, SHAFT_POWER_LOSS, NSHAFT, NLOADCASE);
    const std::vector<double> ice = per_shaft(results, SYNPROPICE_TORQUE, NSHAFT, NLOADCASE);
    std::vector<bool> damping = damping_elements(model);
    damping.resize(static_cast<std::size_t>(NSHAFT), false);
    const bool hasDamping = !resultant.empty();
    const bool hasIce = !ice.empty();

    std::array<KindFiles, NKIND> kinds;
    for (int k = 0; k < NKIND; ++k) {
        KindFiles& f = kinds[k];
        f.NUNIT = static_cast<int>(info[kUnitRecord[k] - 1]);
        if (f.NUNIT <= 0) continue;
        const auto kind = static_cast<SourceKind>(k);
        f.torque = records(results / result_file_name(per_order_file(kind, TORQUE)));
        const std::size_t perOrder = 4U * NLOADCASE * f.NUNIT * NSHAFT;
        if (f.torque.empty() || f.torque.size() % perOrder != 0) continue;
        f.NORDER = static_cast<int>(f.torque.size() / perOrder);
        f.deflection = records(results / result_file_name(per_order_file(kind, DEFLECTION)));
        f.velocity = records(results / result_file_name(per_order_file(kind, VELOCITY)));
    }

    out << "\nForced vibration (synthesis: all sources, units and orders together; alternating torque:\n"
        << "the largest of any single source unit and order; order: frequency of the response over\n"
        << "the speed of the load case";
    if (hasDamping) out << "; resultant: torque and damping torque together; power loss of dampers and couplings";
    if (hasIce) out << "; ice: synthesized ice torque of the propeller";
    out << "):\n";
    for (int lc = 1; lc <= NLOADCASE; ++lc) {
        const double rpm = speeds[static_cast<std::size_t>(lc - 1)];
        out << "  Load case " << lc << ": " << fmt::F(rpm, 8, 1) << " rpm\n";
        out << fmt::A("Shaft", 10) << fmt::A("Mean torque", 16) << fmt::A("Synthesis", 12) << fmt::A("Stress", 10);
        if (hasDamping) out << fmt::A("Resultant", 12) << fmt::A("Power loss", 12);
        if (hasIce) out << fmt::A("Ice torque", 12);
        out << fmt::A("Alternating", 16) << "   Source\n";
        out << fmt::A("ID", 10) << fmt::A("[kNm]", 16) << fmt::A("[kNm]", 12) << fmt::A("[MPa]", 10);
        if (hasDamping) out << fmt::A("[kNm]", 12) << fmt::A("[kW]", 12);
        if (hasIce) out << fmt::A("[kNm]", 12);
        out << fmt::A("[kNm]", 16) << "\n";
        for (int j = 1; j <= NSHAFT; ++j) {
            Peak peak;
            for (int k = 0; k < NKIND; ++k) {
                const KindFiles& f = kinds[k];
                for (int u = 1; u <= f.NUNIT && f.NORDER > 0; ++u)
                    for (int o = 1; o <= f.NORDER; ++o) {
                        const auto r = per_order_record(lc, u, o, j, 1, f.NUNIT, NSHAFT, f.NORDER);
                        const double a = f.torque[static_cast<std::size_t>(r - 1)];
                        if (a > peak.amplitude) peak = {a, k, u, o};
                    }
            }
            const auto at = static_cast<std::size_t>(per_element_record(lc, j, NSHAFT) - 1);
            const auto value = [&](const std::vector<double>& v) { return v.empty() ? 0.0 : v[at]; };
            out << fmt::I(shafts[static_cast<std::size_t>(j - 1)], 10) << fmt::F(nominal[at] / 1000.0, 16, 3)
                << fmt::F(value(synTorque) / 1000.0, 12, 3) << fmt::F(value(synStress) / 1.0e6, 10, 2);
            if (hasDamping) {
                out << fmt::F(resultant[at] / 1000.0, 12, 3);
                out << (damping[static_cast<std::size_t>(j - 1)] ? fmt::F(value(loss) / 1000.0, 12, 3)
                                                                 : fmt::A("-", 12));
            }
            if (hasIce) out << fmt::F(ice[at] / 1000.0, 12, 3);
            out << fmt::F(peak.amplitude / 1000.0, 16, 3);
            if (peak.kind >= 0) {
                const KindFiles& f = kinds[peak.kind];
                out << "   " << kind_word(static_cast<SourceKind>(peak.kind)) << " " << peak.unit << ", order "
                    << fmt::F(order_of(f, NMASS, lc, peak.unit, peak.place, rpm), 5, 1);
            }
            out << "\n";
        }
    }
}

}  // namespace qm::cli
