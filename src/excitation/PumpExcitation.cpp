#include "excitation/PumpExcitation.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include "base/Constants.h"
#include "excitation/CylinderExcitations.h"
#include "excitation/DiscreteFourierTransform.h"
#include "excitation/HarmonicTables.h"
#include "excitation/OscillatingMassFourierCoefficients.h"

namespace qm::GLOBAL_RECIPROCATINGPUMP {

namespace {

using Coefficients = std::vector<std::complex<double>>;
using Stored = std::array<std::complex<double>, 24>;
constexpr int NPOINTS = 360;

void copy_places(const Stored& from, int NCOEF, Coefficients& to) {
    for (int k = 1; k <= NCOEF; ++k)
        to[static_cast<std::size_t>(k)] = from[static_cast<std::size_t>(k - 1)];
}

// The sum X over the working sides of one cylinder of a quantity whose bank-A source is
// `sourceA` and bank-B source `sourceB`: bank B turned by the V angle, the back side of a
// double-acting cylinder turned by the V angle once more for each shift before it.
void combine_sides(const ReciprocatingPumpRecord& pump, int NCOEF, const Stored& sourceA,
                   const Stored& sourceB, Coefficients& X) {
    const auto n1 = static_cast<std::size_t>(NCOEF) + 1;
    Coefficients A(n1), B(n1), C(n1);
    int shifts = 0;
    copy_places(sourceA, NCOEF, A);
    if (pump.ISOPPOSITE) {
        copy_places(sourceB, NCOEF, B);
        ++shifts;
        DFT::FOURIERCOEFFICIENTTRANSFORM(NCOEF + 1, B.data(), B.data(), pump.VANGLE,
                                         static_cast<double>(NPOINTS), 0);
    }
    X.assign(n1, {});
    for (std::size_t k = 0; k < n1; ++k) X[k] = A[k] + B[k];
    if (pump.ISDOUBLEACTING) {
        C = A;
        ++shifts;
        DFT::FOURIERCOEFFICIENTTRANSFORM(NCOEF + 1, C.data(), C.data(), pump.VANGLE * shifts,
                                         static_cast<double>(NPOINTS), 0);
        for (std::size_t k = 0; k < n1; ++k) X[k] = X[k] + B[k] + C[k];
    }
}

}  // namespace

void GETRECIPROCATINGPUMPHARMONICDATA(const ReciprocatingPumpTable& table, int i, double s,
                                      int& count, std::vector<std::complex<double>>& HARMONICDATA) {
    const ReciprocatingPumpRecord& pump = table(i);
    count = std::max(pump.NHARMONICORDER, 0);
    interpolate_harmonic_table(count, pump.NSPEEDPERCENTAGE, pump.SPEEDPERCENTAGES,
                               pump.NORMALRESULTANT, pump.NORMALPHASEANGLE, s, HARMONICDATA);
}

void CALCULATE_RECIPROCATINGPUMP_FOURIERCOEFFICIENT(ReciprocatingPumpTable& table, int i,
                                                    int cylinder, bool isBankA) {
    if (i < 1 || i > table.size()) return;
    const int NCOEF = GET_RECIPROCATINGPUMP_NCYLFOURIERCOEFFICIENTS(table);
    const auto n1 = static_cast<std::size_t>(NCOEF) + 1;
    Coefficients NORMALGASFC(n1), MASSFC(n1);
    std::array<double, NPOINTS> ALPHA{};
    FILLCRANKANGLES(NPOINTS, ALPHA.data());

    ReciprocatingPumpRecord& pump = table(i);
    OSCILLATINGMASSFOURIERCOEFFICIENTS(NPOINTS, NCOEF + 1, MASSFC.data(), ALPHA.data(),
                                       pump.CONRODRATIO);
    if (pump.ISSIMPLIFIEDPRESSURE) {
        CALCULATE_RECIPROCATINGPUMP_LOADCASESETTING(table, i);
    } else {
        int count = 0;
        Coefficients HARMONICDATA;
        GETRECIPROCATINGPUMPHARMONICDATA(table, i, pump.SPEEDPERCENTAGE, count, HARMONICDATA);
        for (int k = 1; k <= std::min(count, NCOEF); ++k)
            NORMALGASFC[static_cast<std::size_t>(k)] = HARMONICDATA[static_cast<std::size_t>(k - 1)];
    }

    const bool hasCylinder = cylinder >= 1 && cylinder <= MAXCYLINDER;
    for (int k = 1; k <= NCOEF; ++k) {
        const auto place = static_cast<std::size_t>(k - 1);
        if (hasCylinder) {
            auto& gas = pump.GASFCPERCYLINDER[static_cast<std::size_t>(cylinder - 1)];
            (isBankA ? gas.NORMALGASFCBANKA : gas.NORMALGASFCBANKB)[place] = NORMALGASFC[place + 1];
        }
        pump.MASSFC[place] = MASSFC[place + 1];
    }
}

void CALCULATE_RECIPROCATINGPUMP_CYLFOURIERCOEFFICIENTS(const ReciprocatingPumpTable& table,
                                                        int i, int j,
                                                        std::vector<std::complex<double>>& result) {
    const int NCOEF = GET_RECIPROCATINGPUMP_NCYLFOURIERCOEFFICIENTS(table);
    result.assign(static_cast<std::size_t>(NCOEF), {});
    if (i < 1 || i > table.size() || j < 1 || j > MAXCYLINDER) return;
    const ReciprocatingPumpRecord& pump = table(i);
    const double R = 0.5 * pump.STROKELENGTH;
    const double OMEGA = PI * pump.SPEED / 30.0;

    Coefficients MASSFOURIERCOEFFS;
    combine_sides(pump, NCOEF, pump.MASSFC, pump.MASSFC, MASSFOURIERCOEFFS);
    if (pump.ISSIMPLIFIEDPRESSURE) {
        Coefficients TORQUEAMP;
        combine_sides(pump, NCOEF, pump.TORQUEAMP, pump.TORQUEAMP, TORQUEAMP);
        CYLINDEREXCITATIONS::CYLINDERSIMPLIFIEDEXCITATION(NCOEF, result.data(), TORQUEAMP.data() + 1,
                                                          MASSFOURIERCOEFFS.data() + 1, R, OMEGA,
                                                          pump.RECIPMASS);
    } else {
        const auto& gas = pump.GASFCPERCYLINDER[static_cast<std::size_t>(j - 1)];
        Coefficients GASFOURIERCOEFFS;
        combine_sides(pump, NCOEF, gas.NORMALGASFCBANKA, gas.NORMALGASFCBANKB, GASFOURIERCOEFFS);
        const double AREA = PI * std::pow(pump.BORE, 2) * 0.25;
        CYLINDEREXCITATIONS::CYLINDEREXCITATION(NCOEF, result.data(), GASFOURIERCOEFFS.data() + 1,
                                                MASSFOURIERCOEFFS.data() + 1, R, AREA, OMEGA,
                                                pump.RECIPMASS);
    }
}

}  // namespace qm::GLOBAL_RECIPROCATINGPUMP
