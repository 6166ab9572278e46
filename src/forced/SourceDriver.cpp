#include "forced/SourceDriver.h"

#include <algorithm>

#include "base/Constants.h"
#include "matrices/MassStiffnessAndDampingMatrix.h"

namespace qm::FORCEDVIBRATION {

namespace {

constexpr double HALF_PI = 1.5707963267948966;

// The speed ratios of the inertias and shafts, kept while a unit runs referred to itself.
struct SavedRatios {
    std::vector<double> mass, shaft;
};

// Divides every RPMRATIO of the inertias and shafts by b and returns the ratios as they were.
SavedRatios refer_ratios(ModelTables& t, double b) {
    SavedRatios saved;
    for (int m = 1; m <= t.MASS_TABLE.size(); ++m) {
        saved.mass.push_back(t.MASS_TABLE(m).RPMRATIO);
        t.MASS_TABLE(m).RPMRATIO /= b;
    }
    for (int s = 1; s <= t.SHAFT_TABLE.size(); ++s) {
        saved.shaft.push_back(t.SHAFT_TABLE(s).RPMRATIO);
        t.SHAFT_TABLE(s).RPMRATIO /= b;
    }
    return saved;
}

// Puts the ratios back exactly, so that no rounding builds up over units and load cases and
// a reference ratio of 0 cannot leave non-numbers in the tables.
void restore_ratios(ModelTables& t, const SavedRatios& saved) {
    for (int m = 1; m <= t.MASS_TABLE.size(); ++m) t.MASS_TABLE(m).RPMRATIO = saved.mass[static_cast<std::size_t>(m - 1)];
    for (int s = 1; s <= t.SHAFT_TABLE.size(); ++s)
        t.SHAFT_TABLE(s).RPMRATIO = saved.shaft[static_cast<std::size_t>(s - 1)];
}

// The working fields of the tables for the unit, with the ratios referred to it.
void prepare_tables(ModelTables& t, int lc, std::vector<std::string>* messages) {
    MASSSTIFFNESSANDDAMPINGMATRIX::MASSANDSHAFTTABLEPREPARATION(false, t.MASS_TABLE, t.SHAFT_TABLE,
                                                                t.VISCOUSDAMPER_TABLE, t.LINEARCOUPLING_TABLE,
                                                                t.PROGRESSIVECOUPLING_TABLE, t.PROPELLER_TABLE, lc,
                                                                messages);
}

// The solve itself, with the ratios referred to the unit and the tables prepared.
SolverFailure solve_unit(ModelTables& t, const UnitExcitation& ex, int u, double omega, KindResults& res,
                         SolvePath path, DriverScratch& w) {
    SystemMatrices mx;
    MASSSTIFFNESSANDDAMPINGMATRIX::BUILDMASSSTIFFNESSANDDAMPINGMATRIX(false, t.MASS_TABLE, t.SHAFT_TABLE,
                                                                      t.GEISLINGERCOUPLING_TABLE, t.DIESEL_TABLE,
                                                                      t.VISCOUSDAMPER_TABLE, 1.0, mx);
    const int N = mx.N;
    const int NORDER = res.NORDER;
    const auto size = static_cast<std::size_t>(N) * static_cast<std::size_t>(NORDER);
    // Every value is written by the solver.
    std::vector<double>& XAMP = w.XAMP;
    std::vector<double>& XANGLE = w.XANGLE;
    std::vector<double>& XR = w.XR;
    std::vector<double>& XI = w.XI;
    for (auto* a : {&XAMP, &XANGLE, &XR, &XI}) a->resize(size);
    std::vector<int>& rows = w.rows;
    rows.clear();
    for (int node : ex.NODES) rows.push_back(GLOBAL_MASS::GET_MASS_IMASS(t.MASS_TABLE, node));

    const SolverFailure failure = FORCEDDAMPEDVIBRATIONSSOLVERFC::FORCEDDAMPEDVIBRATIONSFC(
        t.MASS_TABLE, t.SHAFT_TABLE, t.GEISLINGERCOUPLING_TABLE, t.DIESEL_TABLE, t.VISCOUSDAMPER_TABLE, NORDER,
        static_cast<int>(rows.size()), omega, XAMP.data(), XANGLE.data(), XR.data(), XI.data(), mx, ex.FORE.data(),
        ex.FOIM.data(), ex.EXFO.data(), ex.FIRINGANGLES.data(), rows.data(), 0, path, &w.solve);
    if (failure.routine != ROUTINE_NONE) return failure;

    // The solver's deflections are referred to the unit's speed; a mass's own deflection is
    // that times its referred ratio. Velocity and acceleration follow at w = omega * order.
    const int nmass = std::min(N, res.NMASS);
    const std::size_t block = res.block(u, res.NMASS);
    for (int o = 1; o <= NORDER; ++o) {
        const double w = omega * ex.EXFO[static_cast<std::size_t>(o - 1)];
        if (w == 0.0) continue;  // not solved: every result of the place stays 0.0
        for (int m = 1; m <= nmass; ++m) {
            const std::size_t s = static_cast<std::size_t>(o - 1) * static_cast<std::size_t>(N) + (m - 1);
            const std::size_t d = block + static_cast<std::size_t>(o - 1) * static_cast<std::size_t>(res.NMASS) + (m - 1);
            const double r = t.MASS_TABLE(m).RPMRATIO;
            const double xamp = XAMP[s] * r;
            const double xr = XR[s] * r;
            const double xi = XI[s] * r;
            res.XAMP[d] = xamp;
            res.XANGLE[d] = XANGLE[s];
            res.XR[d] = xr;
            res.XI[d] = xi;
            res.VAMP[d] = w * xamp;
            res.VANGLE[d] = XANGLE[s] + HALF_PI;
            res.VR[d] = -w * xi;
            res.VI[d] = w * xr;
            res.AAMP[d] = w * w * xamp;
            res.AANGLE[d] = XANGLE[s] + PI;
            res.AR[d] = -(w * w) * xr;
            res.AI[d] = -(w * w) * xi;
        }
    }
    return failure;
}

// The driver's steps on the tables, around `step`: every Geislinger coupling takes the unit's
// speed, the ratios are referred to the unit, the tables prepared, `step` run, and the ratios
// put back.
template <class Step>
SolverFailure with_unit_tables(ModelTables& tables, const UnitExcitation& ex, int lc,
                               std::vector<std::string>* messages, Step step) {
    for (int g = 1; g <= tables.GEISLINGERCOUPLING_TABLE.size(); ++g)
        tables.GEISLINGERCOUPLING_TABLE(g).SPEEDEXCITATION = ex.SPEED;

    // Everything the solver sees is referred to the unit: its own shaft runs at ratio 1.
    const int reference = GLOBAL_MASS::GET_MASS_IMASS(tables.MASS_TABLE, ex.REFERENCENODE);
    const double b = reference >= 1 ? tables.MASS_TABLE(reference).RPMRATIO : 1.0;
    const SavedRatios saved = refer_ratios(tables, b);
    prepare_tables(tables, lc, messages);
    const SolverFailure failure = step();
    restore_ratios(tables, saved);
    return failure;
}

}  // namespace

SolverFailure run_source_driver(SourceKind kind, ModelTables& tables, int u, bool ISPROPELLERICE, int lc,
                                KindResults& res, std::vector<double>& EXFO, std::vector<std::string>* messages,
                                SolvePath path, DriverScratch* scratch) {
    UnitExcitation ex;
    unit_excitation(kind, tables, u, ISPROPELLERICE, res.NORDER, ex);
    EXFO = ex.EXFO;
    if (u < 1 || u > res.NUNIT) return {};

    const double omega = ex.SPEED * PI / 30.0;
    DriverScratch own;
    DriverScratch& w = scratch ? *scratch : own;
    const SolverFailure failure =
        with_unit_tables(tables, ex, lc, messages, [&] { return solve_unit(tables, ex, u, omega, res, path, w); });
    res.OMEGA[static_cast<std::size_t>(u - 1)] = omega * ex.BASEORDER;
    return failure;
}

void prepare_source_unit_tables(SourceKind kind, ModelTables& tables, int u, bool ISPROPELLERICE, int NORDER,
                                int lc) {
    if (u < 1 || u > unit_count(kind, tables)) return;
    UnitExcitation ex;
    unit_excitation(kind, tables, u, ISPROPELLERICE, NORDER, ex);
    with_unit_tables(tables, ex, lc, nullptr, [] { return SolverFailure{}; });
}

SolverFailure CALCULATE_DIESEL_FORCEDVIBRATION(ModelTables& tables, int u, KindResults& res,
                                               std::vector<double>& EXFO, int lc) {
    return run_source_driver(DIESEL, tables, u, false, lc, res, EXFO);
}
SolverFailure CALCULATE_PROPELLER_FORCEDVIBRATION(ModelTables& tables, int u, KindResults& res,
                                                  std::vector<double>& EXFO, bool ISPROPELLERICE, int lc) {
    return run_source_driver(PROPELLER, tables, u, ISPROPELLERICE, lc, res, EXFO);
}
SolverFailure CALCULATE_GENERATOR_FORCEDVIBRATION(ModelTables& tables, int u, KindResults& res,
                                                  std::vector<double>& EXFO, int lc) {
    return run_source_driver(GENERATOR, tables, u, false, lc, res, EXFO);
}
SolverFailure CALCULATE_CENTRIFUGALPUMP_FORCEDVIBRATION(ModelTables& tables, int u, KindResults& res,
                                                        std::vector<double>& EXFO, int lc) {
    return run_source_driver(CENTRIFUGALPUMP, tables, u, false, lc, res, EXFO);
}
SolverFailure CALCULATE_RECIPROCATINGPUMP_FORCEDVIBRATION(ModelTables& tables, int u, KindResults& res,
                                                          std::vector<double>& EXFO, int lc) {
    return run_source_driver(RECIPROCATINGPUMP, tables, u, false, lc, res, EXFO);
}
SolverFailure CALCULATE_ELECTRICMOTOR_FORCEDVIBRATION(ModelTables& tables, int u, KindResults& res,
                                                      std::vector<double>& EXFO, int lc) {
    return run_source_driver(ELECTRICMOTOR, tables, u, false, lc, res, EXFO);
}

}  // namespace qm::FORCEDVIBRATION
