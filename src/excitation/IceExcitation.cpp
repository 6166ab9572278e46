#include "excitation/IceExcitation.h"

#include <algorithm>
#include <cstddef>

namespace qm::GLOBAL_PROPELLER {

namespace {

// Value at r on the line through (rh, h) and (rl, l); h where the line has no slope.
double on_line(double h, double l, double r, double rh, double rl) {
    if (rl == rh) return h;
    return h + (l - h) * (r - rh) / (rl - rh);
}

}  // namespace

void CALCULATE_PROPELLER_FOURIERCOEFFICIENT(PropellerTable& table, int i) {
    if (i < 1 || i > table.size()) return;
    const double r = CALCULATE_SPEEDRATIO(table, i);
    PropellerRecord& p = table(i);
    // The tables hold at most MAXICEORDER rows of MAXSPEEDRATIO columns.
    const int n = std::min(GET_PROPELLER_NICEFOURIERORDERS(table, i), MAXICEORDER);
    const int S = std::min(p.NSPEEDRATIO, MAXSPEEDRATIO);
    if (S < 1 || n < 1) return;
    const auto ratio = [&](int col) { return p.SPEEDRATIO[static_cast<std::size_t>(col - 1)]; };

    int h = 1;
    int l = 0;
    while (h < S && ratio(h) < r) {
        ++h;
        ++l;
    }

    for (int k = 1; k <= n; ++k) {
        const auto base = static_cast<std::size_t>(k - 1) * static_cast<std::size_t>(S);
        const auto C = [&](int col) { return p.ICECOSINE[base + static_cast<std::size_t>(col - 1)]; };
        const auto D = [&](int col) { return p.ICESINE[base + static_cast<std::size_t>(col - 1)]; };
        double u = 0.0;
        double v = 0.0;
        if (ratio(1) < r) {
            if (l < 1) {  // a single column: nothing to draw a line through
                u = C(h);
                v = D(h);
            } else {
                u = on_line(C(h), C(l), r, ratio(h), ratio(l));
                v = on_line(D(h), D(l), r, ratio(h), ratio(l));
            }
        } else if (p.ISTMAXCORRECTEDWITHACTUALSPEED) {
            u = on_line(C(1), 0.0, r, ratio(1), 0.0);
            v = on_line(D(1), 0.0, r, ratio(1), 0.0);
        } else {
            u = C(1);
            v = D(1);
        }
        if (k == 1) {
            p.ICEFOURIERMEAN = u;
        } else {
            p.ICEFOURIERCOEFFICIENT[static_cast<std::size_t>(k - 2)] = {
                static_cast<double>(static_cast<float>(0.5 * u)),
                static_cast<double>(static_cast<float>(0.5 * v))};
        }
    }
}

}  // namespace qm::GLOBAL_PROPELLER
