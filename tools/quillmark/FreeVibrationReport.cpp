#include "FreeVibrationReport.h"

#include "ModelFile.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <string>
#include <vector>

#include "base/Constants.h"
#include "base/Format.h"

namespace qm::cli {

namespace {

constexpr std::size_t LEADING = 3;  // inertias and orders shown per mode

// Indices 0..n-1 of the `count` largest values of key(i), largest first.
template <class Key>
std::vector<std::size_t> leading(std::size_t n, std::size_t count, Key key) {
    std::vector<std::size_t> idx(n);
    std::iota(idx.begin(), idx.end(), 0U);
    std::stable_sort(idx.begin(), idx.end(), [&](std::size_t a, std::size_t b) { return key(a) > key(b); });
    if (idx.size() > count) idx.resize(count);
    return idx;
}

std::string order_text(double q) {
    const double rounded = std::round(q * 2.0) / 2.0;
    if (rounded == std::round(rounded)) return fmt::I(static_cast<long long>(rounded), 4);
    return fmt::F(rounded, 4, 1);
}

}  // namespace

void print_free_vibration(std::ostream& out, const std::filesystem::path& model,
                          const std::filesystem::path& results) {
    const std::vector<double> omega = records(results / "NaturalFrequency.bin");
    if (omega.empty()) return;
    out << "\nNatural frequencies:\n";
    out << fmt::A("Mode", 6) << fmt::A("rad/s", 16) << fmt::A("Hz", 16) << fmt::A("rpm", 16) << "\n";
    for (std::size_t m = 0; m < omega.size(); ++m)
        out << fmt::I(static_cast<long long>(m + 1), 6) << fmt::F(omega[m], 16, 4)
            << fmt::F(omega[m] / (2.0 * PI), 16, 4) << fmt::F(omega[m] * RPM_PER_RAD_PER_S, 16, 2) << "\n";

    const std::vector<double> deflection = records(results / "RelativeDeflection.bin");
    const std::vector<double> info = records(results / "SystemInfo.bin");
    const std::vector<int> ids = section_ids(model, "INERTIA");
    const std::size_t nmode = omega.size() - 1;
    if (nmode == 0 || ids.empty() || deflection.size() != nmode * ids.size()) return;
    const std::size_t nmass = ids.size();

    const std::vector<double> vsum = records(results / "VectorSum.bin");
    const std::vector<double> vrpm = records(results / "VectorSumRpm.bin");
    const std::size_t ndiesel = info.size() >= 8 ? static_cast<std::size_t>(info[7]) : 0U;
    const std::size_t norder =
        ndiesel > 0 && vsum.size() % (ndiesel * nmode) == 0 ? vsum.size() / (ndiesel * nmode) : 0U;
    const bool engines = norder > 0 && vrpm.size() == vsum.size();

    out << "\nModes (relative deflection of the inertias that swing most"
        << (engines ? "; engine orders by relative vector sum, with the engine speed where each meets the mode" : "")
        << "):\n";
    for (std::size_t m = 0; m < nmode; ++m) {
        const double w = omega[m + 1];
        out << "  Mode " << m + 2 << ": " << fmt::F(w / (2.0 * PI), 10, 3) << " Hz\n";
        const double* d = &deflection[m * nmass];
        out << "    inertias:";
        for (std::size_t r : leading(nmass, LEADING, [&](std::size_t i) { return std::fabs(d[i]); }))
            out << "  ID " << ids[r] << " " << (std::fabs(d[r]) < 1.0e4 ? fmt::F(d[r], 8, 3) : fmt::ES(d[r], 10, 3));
        out << "\n";
        if (!engines) continue;
        for (std::size_t e = 0; e < ndiesel; ++e) {
            const std::size_t block = (e * nmode + m) * norder;
            out << "    engine " << e + 1 << " orders:";
            // Sums equal but for rounding list the lower order first.
            auto strength = [&](std::size_t i) { return std::round(vsum[block + i] * 1e9); };
            for (std::size_t o : leading(norder, LEADING, strength)) {
                // The order follows from the speed where it meets the mode: rpm = w*30/pi/q.
                const double q = vrpm[block + o] != 0.0 ? w * RPM_PER_RAD_PER_S / vrpm[block + o] : 0.0;
                out << "  " << order_text(q) << " (" << fmt::F(vsum[block + o], 5, 3) << ") at"
                    << fmt::F(vrpm[block + o], 9, 1) << " rpm";
            }
            out << "\n";
        }
    }
}

}  // namespace qm::cli
