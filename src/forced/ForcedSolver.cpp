#include "forced/ForcedSolver.h"

#include <algorithm>
#include <cmath>

#include "base/Constants.h"
#include "components/GlobalDiesel.h"
#include "components/GlobalViscousDamper.h"
#include "forced/TreeSolve.h"
#include "numerics/Lapack.h"

namespace qm::FORCEDVIBRATIONSOLVER {

using FORCEDVIBRATION::SolverFailure;
using cplx = std::complex<double>;

void INITIALIZE(ForcedSolverRecord& self, const SystemMatrices& mx, int kind) {
    self = ForcedSolverRecord{};
    self.order = mx.N;
    self.kind = kind;
    self.mx = &mx;
}

void DESTROY(ForcedSolverRecord& self) { self = ForcedSolverRecord{}; }

void EXCITATION(const ForcedSolverRecord& self, std::vector<cplx>& rhs, const std::vector<cplx>& GK, double order,
                const double* FIRINGANGLES, const int* FIRINGORDERGLOBAL) {
    for (std::size_t j = 0; j < GK.size(); ++j) {
        const int p = FIRINGORDERGLOBAL[j];
        if (p < 1 || p > self.order) continue;
        // A positive angle delays the point: its coefficient turns by -order*angle.
        const double t = order * FIRINGANGLES[j];
        rhs[static_cast<std::size_t>(p - 1)] += GK[j] * cplx(std::cos(t), -std::sin(t));
    }
}

void MAKEMATRIX(const ForcedSolverRecord& self, int mode, double OMEGA, double order, std::vector<cplx>& MATRIX) {
    (void)mode;  // dense storage is the only one built
    const SystemMatrices& mx = *self.mx;
    const auto n = static_cast<std::size_t>(self.order);
    const double w = OMEGA * order;
    for (int q = 1; q <= mx.NNZ; ++q) {
        const int r = mx.ROWIND(q);
        const int c = mx.COLIND(q);
        if (r < 1 || c < 1 || r > self.order || c > self.order) continue;
        MATRIX[static_cast<std::size_t>(c - 1) * n + static_cast<std::size_t>(r - 1)] =
            cplx(mx.K(q), mx.CRR(q) + w * mx.CR(q));
    }
    for (int p = 1; p <= self.order; ++p) {
        const auto d = static_cast<std::size_t>(p - 1) * n + static_cast<std::size_t>(p - 1);
        MATRIX[d] += cplx(-w * w * mx.M(p), w * mx.CA(p) + w * w * mx.CAR(p));
    }
}

SolverFailure SOLVELINEARSYSTEM(ForcedSolverRecord& self, int mode, std::vector<cplx>& MATRIX,
                                std::vector<cplx>& rhs, std::vector<int>& IPIV) {
    (void)mode;
    const int n = self.order;
    const int nrhs = 1;
    int info = 0;
    zgetrf_(&n, &n, MATRIX.data(), &n, IPIV.data(), &info);
    if (info != 0) {
        self.error = info;
        return {FORCEDVIBRATION::ROUTINE_ZGETRF, info};
    }
    const char trans = 'N';
    zgetrs_(&trans, &n, &nrhs, MATRIX.data(), &n, IPIV.data(), rhs.data(), &n, &info, 1);
    if (info != 0) {
        self.error = info;
        return {FORCEDVIBRATION::ROUTINE_ZGETRS, info};
    }
    return {};
}

double XANGLE_OF(double XRE, double XIM) {
    if (XRE == 0.0 && XIM == 0.0) return 0.0;
    // The quotient is a plain division: at XRE = 0 it is infinite and atan gives +-pi/2.
    const double a = std::atan(XIM / XRE);
    if (XRE < 0.0) return PI - a;
    if (XIM < 0.0) return -a;
    return 2.0 * PI - a;
}

bool DAMPINGDEPENDSONORDER(const GeislingerCouplingTable& GEISLINGERCOUPLING_TABLE, const DieselTable& DIESEL_TABLE,
                           const ViscousDamperTable& VISCOUSDAMPER_TABLE) {
    return GEISLINGERCOUPLING_TABLE.allocated() ||
           (DIESEL_TABLE.allocated() && GLOBAL_DIESEL::GET_DIESEL_CONTAINFORMULADAMPING(DIESEL_TABLE)) ||
           (VISCOUSDAMPER_TABLE.allocated() && GLOBAL_VISCOUSDAMPER::GET_VISCOUSDAMPER_CONTAINCUSTOMDAMPING(VISCOUSDAMPER_TABLE));
}

SolverFailure SOLVEFORCED(const MassTable& MASS_TABLE, const ShaftTable& SHAFT_TABLE,
                          const GeislingerCouplingTable& GEISLINGERCOUPLING_TABLE, const DieselTable& DIESEL_TABLE,
                          const ViscousDamperTable& VISCOUSDAMPER_TABLE, ForcedSolverRecord& self, int NORDER,
                          double OMEGA, double* XAMP, double* XANGLE, double* XRE, double* XIM,
                          const std::vector<cplx>& G, int NEXCITE, const double* EXFO, const double* FIRINGANGLES,
                          const int* FIRINGORDERGLOBAL, FORCEDVIBRATION::SolvePath path, SolveScratch* scratch) {
    const auto n = static_cast<std::size_t>(self.order);
    for (std::size_t t = 0; t < n * static_cast<std::size_t>(NORDER); ++t) XAMP[t] = XANGLE[t] = XRE[t] = XIM[t] = 0.0;
    if (n == 0) return {};

    SolveScratch own;
    SolveScratch& w = scratch ? *scratch : own;
    std::vector<cplx>& MATRIX = w.MATRIX;  // the dense system, sized at the first order solved densely
    std::vector<cplx>& rhs = w.rhs;
    std::vector<cplx>& excitation = w.excitation;  // the right-hand side kept for a dense retry
    std::vector<cplx>& GK = w.GK;
    std::vector<int>& IPIV = w.IPIV;
    rhs.resize(n);
    IPIV.resize(n);
    GK.resize(static_cast<std::size_t>(NEXCITE > 0 ? NEXCITE : 0));
    const bool rebuild = DAMPINGDEPENDSONORDER(GEISLINGERCOUPLING_TABLE, DIESEL_TABLE, VISCOUSDAMPER_TABLE);
    SystemMatrices& orderwise = w.orderwise;  // the arrays of the current order when damping follows the order
    const bool fast = path == FORCEDVIBRATION::SolvePath::FAST;
    // The rebuilt arrays keep the pattern of the driver's: one plan serves every order.
    TreePlan& plan = w.plan;
    if (fast) update_tree_plan(plan, *self.mx);

    for (int i = 1; i <= NORDER; ++i) {
        const double order = EXFO[i - 1];
        // Nothing vibrates at w = 0: an order place of order 0 lies behind the unit's orders
        // in use, a speed of 0 is a standstill. The response there is zero, not a solve of
        // the free line's singular stiffness.
        if (OMEGA * order == 0.0) continue;
        if (rebuild) {
            MASSSTIFFNESSANDDAMPINGMATRIX::BUILDMASSSTIFFNESSANDDAMPINGMATRIX(
                false, MASS_TABLE, SHAFT_TABLE, GEISLINGERCOUPLING_TABLE, DIESEL_TABLE, VISCOUSDAMPER_TABLE, order,
                orderwise);
            INITIALIZE(self, orderwise, self.kind);
            if (fast && plan.usable) update_tree_plan(plan, orderwise);
        }
        std::fill(rhs.begin(), rhs.end(), cplx(0.0, 0.0));
        for (std::size_t j = 0; j < GK.size(); ++j) GK[j] = G[j * static_cast<std::size_t>(NORDER) + (i - 1)];
        EXCITATION(self, rhs, GK, order, FIRINGANGLES, FIRINGORDERGLOBAL);
        bool solved = false;
        if (fast && plan.usable) {
            excitation = rhs;
            solved = tree_solve(plan, OMEGA * order, rhs, w.work);
            if (!solved) rhs = excitation;
        }
        if (!solved) {
            MATRIX.assign(n * n, cplx(0.0, 0.0));
            MAKEMATRIX(self, 0, OMEGA, order, MATRIX);
            const SolverFailure failure = SOLVELINEARSYSTEM(self, 0, MATRIX, rhs, IPIV);
            if (failure.routine != FORCEDVIBRATION::ROUTINE_NONE) return failure;
        }

        for (std::size_t p = 0; p < n; ++p) {
            const std::size_t t = static_cast<std::size_t>(i - 1) * n + p;
            XRE[t] = rhs[p].real();
            XIM[t] = rhs[p].imag();
            // G holds half amplitudes: the real amplitude is twice the modulus.
            XAMP[t] = 2.0 * std::sqrt(XRE[t] * XRE[t] + XIM[t] * XIM[t]);
            XANGLE[t] = XANGLE_OF(XRE[t], XIM[t]);
        }
    }
    return {};
}

}  // namespace qm::FORCEDVIBRATIONSOLVER

namespace qm::FORCEDDAMPEDVIBRATIONSSOLVERFC {

FORCEDVIBRATION::SolverFailure FORCEDDAMPEDVIBRATIONSFC(
    const MassTable& MASS_TABLE, const ShaftTable& SHAFT_TABLE, const GeislingerCouplingTable& GEISLINGERCOUPLING_TABLE,
    const DieselTable& DIESEL_TABLE, const ViscousDamperTable& VISCOUSDAMPER_TABLE, int NORDER, int NEXCITE,
    double OMEGA, double* XAMP, double* XANGLE, double* XRE, double* XIM, const SystemMatrices& mx,
    const double* FORE, const double* FOIM, const double* EXFO, const double* FIRINGANGLES,
    const int* FIRINGORDERGLOBAL, int printlevel, FORCEDVIBRATION::SolvePath path,
    FORCEDVIBRATIONSOLVER::SolveScratch* scratch) {
    (void)printlevel;
    const auto count = static_cast<std::size_t>(NEXCITE > 0 ? NEXCITE : 0) * static_cast<std::size_t>(NORDER > 0 ? NORDER : 0);
    std::vector<std::complex<double>> own;
    std::vector<std::complex<double>>& G = scratch ? scratch->G : own;
    G.resize(count);
    for (std::size_t k = 0; k < count; ++k) G[k] = {FORE[k], FOIM[k]};
    FORCEDVIBRATIONSOLVER::ForcedSolverRecord self;
    FORCEDVIBRATIONSOLVER::INITIALIZE(self, mx, 1);
    const auto failure =
        FORCEDVIBRATIONSOLVER::SOLVEFORCED(MASS_TABLE, SHAFT_TABLE, GEISLINGERCOUPLING_TABLE, DIESEL_TABLE,
                                           VISCOUSDAMPER_TABLE, self, NORDER > 0 ? NORDER : 0, OMEGA, XAMP, XANGLE,
                                           XRE, XIM, G, NEXCITE > 0 ? NEXCITE : 0, EXFO, FIRINGANGLES, FIRINGORDERGLOBAL,
                                           path, scratch);
    FORCEDVIBRATIONSOLVER::DESTROY(self);
    return failure;
}

}  // namespace qm::FORCEDDAMPEDVIBRATIONSSOLVERFC
