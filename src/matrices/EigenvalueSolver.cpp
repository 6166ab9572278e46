#include "matrices/EigenvalueSolver.h"

#include <vector>

#include "base/Constants.h"
#include "base/Format.h"
#include "numerics/Lapack.h"

namespace qm::EIGENVALUESOLVER {

void INITIALIZE(EigenvalueSolverRecord& self, int order, const Table<int>& ROWIND,
                const Table<int>& COLIND, const Table<double>& K, const Table<double>& M, int kind) {
    self = EigenvalueSolverRecord{};
    self.order = order;
    self.kind = kind;
    self.ROWIND = &ROWIND;
    self.COLIND = &COLIND;
    self.K = &K;
    self.M = &M;
}

void INITIALIZEREALEIGENVALUES(EigenvalueSolverRecord& self, Table<double>& D) { self.EIGVALREAL = &D; }

void INITIALIZEREALEIGENVECTORS(EigenvalueSolverRecord& self, Array2D<double>& V) {
    self.RIGHTEIGVECREAL = &V;
}

namespace {
// Dense A from the coordinate form of K (assignment, not sum) and diagonal B from M,
// both N x N column after column.
void BUILDAANDB(const EigenvalueSolverRecord& self, std::vector<double>& A, std::vector<double>& B) {
    const auto n = static_cast<std::size_t>(self.order);
    A.assign(n * n, 0.0);
    B.assign(n * n, 0.0);
    for (int q = 1; q <= self.K->size(); ++q) {
        const int r = (*self.ROWIND)(q);
        const int c = (*self.COLIND)(q);
        if (r < 1 || c < 1 || r > self.order || c > self.order) continue;
        A[static_cast<std::size_t>(c - 1) * n + static_cast<std::size_t>(r - 1)] = (*self.K)(q);
    }
    for (int p = 1; p <= self.order; ++p)
        B[static_cast<std::size_t>(p - 1) * n + static_cast<std::size_t>(p - 1)] = (*self.M)(p);
}
}  // namespace

void SOLVER(EigenvalueSolverRecord& self, int mode) {
    const int n = self.order;
    if (n < 1) return;
    const char jobz = mode == 2 ? 'V' : 'N';
    const char uplo = 'L';
    const int itype = 1;
    std::vector<double> A, B;
    BUILDAANDB(self, A, B);
    std::vector<double> W(static_cast<std::size_t>(n), 0.0);

    // Workspace query: the routine only writes the best size into WORK(1).
    double query = 0.0;
    int lwork = -1;
    int info = 0;
    dsygv_(&itype, &jobz, &uplo, &n, A.data(), &n, B.data(), &n, W.data(), &query, &lwork, &info, 1, 1);
    lwork = static_cast<int>(query);  // cut towards zero
    // An answer below one still gets one element, the least the routine accepts.
    if (lwork < 1) lwork = 1;
    std::vector<double> work(static_cast<std::size_t>(lwork), 0.0);
    info = 0;
    dsygv_(&itype, &jobz, &uplo, &n, A.data(), &n, B.data(), &n, W.data(), work.data(), &lwork, &info, 1, 1);

    if (info != 0) {
        // No convergence, or B not positive definite (a zero inertia): the results keep the
        // zeros they were given and the run goes on.
        self.error = info;
        return;
    }
    if (jobz == 'V' && self.RIGHTEIGVECREAL != nullptr) {
        for (int m = 1; m <= n; ++m)
            for (int p = 1; p <= n; ++p)
                (*self.RIGHTEIGVECREAL)(p, m) =
                    A[static_cast<std::size_t>(m - 1) * static_cast<std::size_t>(n) + static_cast<std::size_t>(p - 1)];
    }
    if (self.EIGVALREAL != nullptr)
        for (int i = 1; i <= n; ++i) (*self.EIGVALREAL)(i) = W[static_cast<std::size_t>(i - 1)];
}

void FLUSHRESULTS(std::ostream& out, int printlevel, const EigenvalueSolverRecord& self) {
    if (printlevel <= 0) return;
    out << " --- Begin Eigenvalue solver results ---\n";
    out << "Order of the system = " << self.order << "\n";
    if (self.EIGVALREAL != nullptr) {
        out << "Angular velocity, in ascending order, and the corresponding RPMs \n";
        for (int i = 1; i <= self.EIGVALREAL->size(); ++i) {
            const double w = (*self.EIGVALREAL)(i);
            out << fmt::ES(w, 20, 10) << fmt::ES(w * RPM_PER_RAD_PER_S, 20, 10) << "\n";
        }
    }
    if (self.RIGHTEIGVECREAL != nullptr) {
        out << "Eigenvectors one by one\n";
        for (int m = 1; m <= self.RIGHTEIGVECREAL->cols(); ++m) {
            out << "Eigenvector # " << m << "\n";
            for (int p = 1; p <= self.RIGHTEIGVECREAL->rows(); ++p)
                out << fmt::ES((*self.RIGHTEIGVECREAL)(p, m), 20, 10) << "\n";
        }
    }
    out << " --- End Eigenvalue solver results ---\n";
}

void DESTROY(EigenvalueSolverRecord& self, int keep) {
    if (keep < 1) {
        // Without keep the arrays the record viewed are freed with it.
        if (self.EIGVALREAL != nullptr) self.EIGVALREAL->deallocate();
        if (self.RIGHTEIGVECREAL != nullptr) self.RIGHTEIGVECREAL->deallocate();
    }
    self = EigenvalueSolverRecord{};
}

int GETERRORGEP(const EigenvalueSolverRecord& self) { return self.error; }

}  // namespace qm::EIGENVALUESOLVER
