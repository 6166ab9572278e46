#include "matrices/RelativeResults.h"

#include <cmath>
#include <utility>
#include <vector>

#include "components/GlobalMass.h"
#include "components/GlobalShaft.h"
#include "base/ComponentCodes.h"
#include "base/BinFile.h"
#include "base/Constants.h"
#include "matrices/MassRows.h"

namespace qm::FREEVIBRATION {

namespace {

void write_table(RunContext& ctx, const char* name, const Table<double>& values) {
    write_bin_file(ctx.result_path(name), values.data(), static_cast<std::size_t>(values.size()));
}

// Mode shapes referred to the speed of each inertia, read from V as they are needed rather
// than copied: the value of row r in mode m is V(dof, m) times the row's RPMRATIO.
struct ReferredModes {
    const Array2D<double>& V;
    std::vector<int> dofs;       // [row]: free degree of freedom, 0 for a damper ring
    std::vector<double> ratios;  // [row]: RPMRATIO

    ReferredModes(const MassTable& masses, const Array2D<double>& modes) : V(modes) {
        const int nmass = GLOBAL_MASS::GET_MASS_NUMBER(masses);
        const MassRows rows(masses);
        dofs.assign(static_cast<std::size_t>(nmass) + 1, 0);
        ratios.assign(static_cast<std::size_t>(nmass) + 1, 0.0);
        for (int r = 1; r <= nmass; ++r) {
            if (masses(r).MASSTYPE == CODES::MASSTYPE_VISCOUSDAMPERRING) continue;
            dofs[static_cast<std::size_t>(r)] = rows.free_dof(r);
            ratios[static_cast<std::size_t>(r)] = masses(r).RPMRATIO;
        }
    }
    double operator()(int r, int m) const {
        return V(dofs[static_cast<std::size_t>(r)], m) * ratios[static_cast<std::size_t>(r)];
    }
};

// The value of largest magnitude among the rows of the given MASSTYPE (never a damper ring),
// the first on a tie; 0.0 when none moves.
double reference_of_masstype(const MassTable& masses, const ReferredModes& v_rpm, int mode, int masstype) {
    double reference = 0.0;
    double largest = 0.0;
    for (int r = 1; r <= masses.size(); ++r) {
        if (masses(r).MASSTYPE == CODES::MASSTYPE_VISCOUSDAMPERRING || masses(r).MASSTYPE != masstype) continue;
        const double value = v_rpm(r, mode);
        if (std::fabs(value) > largest) {
            largest = std::fabs(value);
            reference = value;
        }
    }
    return reference;
}

}  // namespace

void RELATIVEINERTIADEFLECTION(RunContext& ctx, const MassTable& MASS_TABLE, const ShaftTable& SHAFT_TABLE,
                               const DieselTable& DIESEL_TABLE, const PropellerTable& PROPELLER_TABLE, int N,
                               const Array2D<double>& V, Table<double>& RELATIVEDEFLECTION) {
    (void)SHAFT_TABLE;
    const int nmass = GLOBAL_MASS::GET_MASS_NUMBER(MASS_TABLE);
    const int nmode = N > 1 ? N - 1 : 0;
    const ReferredModes v_rpm(MASS_TABLE, V);
    // The first degree of freedom is the first row that is not a damper ring.
    int first = 1;
    while (first < nmass && MASS_TABLE(first).MASSTYPE == CODES::MASSTYPE_VISCOUSDAMPERRING) ++first;

    RELATIVEDEFLECTION.allocate(nmode * nmass);
    for (int m = 2; m <= N; ++m) {
        double reference = 0.0;
        if (DIESEL_TABLE.allocated())
            reference = reference_of_masstype(MASS_TABLE, v_rpm, m, CODES::MASSTYPE_DIESELCYLINDER);
        else if (PROPELLER_TABLE.allocated())
            reference = reference_of_masstype(MASS_TABLE, v_rpm, m, CODES::MASSTYPE_PROPELLER);
        else
            reference = v_rpm(first, m);
        // No guard against a zero reference: a mode in which no reference mass moves gives
        // values that are not numbers, and they go to the file as they are.
        for (int r = 1; r <= nmass; ++r) {
            if (MASS_TABLE(r).MASSTYPE == CODES::MASSTYPE_VISCOUSDAMPERRING) continue;
            RELATIVEDEFLECTION(mode_record(m, r, nmass)) = v_rpm(r, m) / reference;
        }
    }
    write_table(ctx, RELATIVEDEFLECTIONFILE, RELATIVEDEFLECTION);
}

void RELATIVEINERTIATORQUE(RunContext& ctx, const MassTable& MASS_TABLE, const ShaftTable& SHAFT_TABLE, int N,
                           const Table<double>& RELATIVEDEFLECTION, Table<double>& RELATIVETORQUE) {
    const int nmass = GLOBAL_MASS::GET_MASS_NUMBER(MASS_TABLE);
    const int nshaft = GLOBAL_SHAFT::GET_SHAFT_NUMBER(SHAFT_TABLE);
    const int nmode = N > 1 ? N - 1 : 0;
    RELATIVETORQUE.allocate(nmode * nshaft);
    // The rows of both ends of each shaft, looked up once rather than per mode.
    const MassRows rows(MASS_TABLE);
    std::vector<std::pair<int, int>> ends(static_cast<std::size_t>(nshaft) + 1, {0, 0});
    for (int s = 1; s <= nshaft; ++s)
        ends[static_cast<std::size_t>(s)] = {rows.row(SHAFT_TABLE(s).ORGNODE), rows.row(SHAFT_TABLE(s).DESNODE)};
    for (int m = 2; m <= N; ++m) {
        for (int s = 1; s <= nshaft; ++s) {
            const ShaftRecord& shaft = SHAFT_TABLE(s);
            if (shaft.SHAFTTYPE == CODES::SHAFTTYPE_VISCOUSDAMPERSPRING) continue;
            const auto [i, j] = ends[static_cast<std::size_t>(s)];
            if (i < 1 || j < 1) continue;  // reported by the data check
            RELATIVETORQUE(mode_record(m, s, nshaft)) =
                shaft.STIFFNESS * (RELATIVEDEFLECTION(mode_record(m, i, nmass)) - RELATIVEDEFLECTION(mode_record(m, j, nmass)));
        }
    }
    write_table(ctx, RELATIVETORQUEFILE, RELATIVETORQUE);
}

int vector_sum_order_count(const DieselTable& DIESEL_TABLE) {
    int norder = 20;
    for (int e = 1; e <= DIESEL_TABLE.size(); ++e)
        if (DIESEL_TABLE(e).NSTROKE == 4) norder = 24;
    return norder;
}

void VECTORSUMS(RunContext& ctx, const MassTable& MASS_TABLE, const DieselTable& DIESEL_TABLE, int N, const Table<double>& D,
                const Table<double>& RELATIVEDEFLECTION, Table<double>& VECTORSUMRPM, Table<double>& VECTORSUMANGLE,
                Table<double>& VECTORSUM) {
    constexpr double TWO_PI = 6.283185307179586;
    const int nmass = GLOBAL_MASS::GET_MASS_NUMBER(MASS_TABLE);
    const int ndiesel = DIESEL_TABLE.allocated() ? DIESEL_TABLE.size() : 0;
    const int nmode = N > 1 ? N - 1 : 0;
    const int norder = vector_sum_order_count(DIESEL_TABLE);
    const int size = ndiesel * nmode * norder;
    VECTORSUM.allocate(size);
    VECTORSUMANGLE.allocate(size);
    VECTORSUMRPM.allocate(size);

    std::vector<double> orders(static_cast<std::size_t>(norder));
    for (int e = 1; e <= ndiesel; ++e) {
        const DieselRecord& engine = DIESEL_TABLE(e);
        const int ncyl = engine.NCYLINDER < 0 ? 0 : (engine.NCYLINDER > 20 ? 20 : engine.NCYLINDER);
        // A four-stroke engine has the half orders 0.5, 1.0, ...
        for (int o = 1; o <= norder; ++o)
            orders[static_cast<std::size_t>(o - 1)] = vector_sum_order(engine, o);
        std::vector<int> cylindex(static_cast<std::size_t>(ncyl));
        for (int j = 1; j <= ncyl; ++j)
            cylindex[static_cast<std::size_t>(j - 1)] =
                GLOBAL_MASS::GET_MASS_IMASS(MASS_TABLE, engine.CYLINDERS[static_cast<std::size_t>(j - 1)]);
        std::vector<double> a(static_cast<std::size_t>(ncyl));
        // The turns of each cylinder at each order depend on neither the mode nor the
        // deflections: they are taken once per engine, as (cos, sin) of bank A, then bank B.
        const auto uc = static_cast<std::size_t>(ncyl);
        std::vector<double> turn(static_cast<std::size_t>(norder) * uc * 4, 0.0);
        for (int o = 1; o <= norder; ++o) {
            const double q = orders[static_cast<std::size_t>(o - 1)];
            for (std::size_t j = 0; j < uc; ++j) {
                double* t = &turn[(static_cast<std::size_t>(o - 1) * uc + j) * 4];
                t[0] = std::cos(q * engine.FIRINGANGLEA[j]);
                t[1] = std::sin(q * engine.FIRINGANGLEA[j]);
                if (engine.ISVENGINE) {
                    t[2] = std::cos(q * engine.FIRINGANGLEB[j]);
                    t[3] = std::sin(q * engine.FIRINGANGLEB[j]);
                }
            }
        }

        for (int m = 2; m <= N; ++m) {
            for (int j = 1; j <= ncyl; ++j) {
                const int row = cylindex[static_cast<std::size_t>(j - 1)];
                a[static_cast<std::size_t>(j - 1)] = row >= 1 ? RELATIVEDEFLECTION(mode_record(m, row, nmass)) : 0.0;
            }
            const int block = static_cast<int>(vector_sum_record(e, m, 1, N, norder)) - 1;
            for (int o = 1; o <= norder; ++o) {
                const double q = orders[static_cast<std::size_t>(o - 1)];
                double sc = 0.0, ss = 0.0;
                for (std::size_t j = 0; j < uc; ++j) {
                    const double aj = a[j];
                    const double* t = &turn[(static_cast<std::size_t>(o - 1) * uc + j) * 4];
                    sc = sc + aj * t[0];
                    ss = ss + aj * t[1];
                    if (engine.ISVENGINE) {
                        sc = sc + aj * t[2];
                        ss = ss + aj * t[3];
                    }
                }
                const double magnitude = std::sqrt(sc * sc + ss * ss);
                VECTORSUM(block + o) = magnitude;
                // A zero sum has no direction: its angle is 0.0.
                double angle = 0.0;
                if (magnitude != 0.0) {
                    angle = std::acos(sc / magnitude);
                    if (ss < 0.0) angle = -angle;
                    if (angle < 0.0) angle += TWO_PI;
                }
                VECTORSUMANGLE(block + o) = angle;
                VECTORSUMRPM(block + o) = ((D(m) * 30.0) / PI) / q;
            }
            // Relative to the strongest order of this engine and mode, the first on a tie.
            int strongest = 1;
            for (int o = 2; o <= norder; ++o)
                if (VECTORSUM(block + o) > VECTORSUM(block + strongest)) strongest = o;
            const double v = VECTORSUM(block + strongest);
            const double t = VECTORSUMANGLE(block + strongest);
            for (int o = 1; o <= norder; ++o) {
                // All cylinders at rest in this mode: every sum stays 0.0.
                if (v != 0.0) VECTORSUM(block + o) = VECTORSUM(block + o) / v;
                double angle = VECTORSUMANGLE(block + o) - t;
                if (angle < 0.0) angle += TWO_PI;
                VECTORSUMANGLE(block + o) = angle;
            }
        }
    }

    write_table(ctx, VECTORSUMFILE, VECTORSUM);
    write_table(ctx, VECTORSUMRPMFILE, VECTORSUMRPM);
    write_table(ctx, VECTORSUMANGLEFILE, VECTORSUMANGLE);
    VECTORSUM.deallocate();
    VECTORSUMRPM.deallocate();
    VECTORSUMANGLE.deallocate();
}

}  // namespace qm::FREEVIBRATION
