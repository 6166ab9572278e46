#include "ForcedVibrationReport.h"

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

    out << "\nForced vibration (alternating torque: the largest of any single source unit and order;\n"
        << "order: frequency of the response over the speed of the load case):\n";
    for (int lc = 1; lc <= NLOADCASE; ++lc) {
        const double rpm = speeds[static_cast<std::size_t>(lc - 1)];
        out << "  Load case " << lc << ": " << fmt::F(rpm, 8, 1) << " rpm\n";
        out << fmt::A("Shaft", 10) << fmt::A("Mean torque", 16) << fmt::A("Alternating", 16) << "   Source"
            << "\n"
            << fmt::A("ID", 10) << fmt::A("[kNm]", 16) << fmt::A("[kNm]", 16) << "\n";
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
            out << fmt::I(shafts[static_cast<std::size_t>(j - 1)], 10)
                << fmt::F(nominal[static_cast<std::size_t>(per_element_record(lc, j, NSHAFT) - 1)] / 1000.0, 16, 3)
                << fmt::F(peak.amplitude / 1000.0, 16, 3);
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
