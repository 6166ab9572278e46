#include "matrices/EigenvalueSolver.h"

#include <algorithm>
#include <array>
#include <cmath>
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
    self.driver = EigenDriver::GENERALIZED;
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

namespace {

// The stiffness as dsygv reads it: the diagonal and the positions below it, a later position
// of the coordinate form replacing an earlier one, with each degree of freedom's neighbours.
struct LowerStiffness {
    std::vector<double> diagonal;                // [p]
    std::vector<std::array<int, 2>> neighbour;   // [p]: up to two neighbours, 0 when none
    std::vector<std::array<double, 2>> value;    // [p]: the stiffness to each of them
    bool at_most_two = true;                     // no degree of freedom has a third neighbour
    int edges = 0;
};

LowerStiffness lower_stiffness(const EigenvalueSolverRecord& self) {
    const int n = self.order;
    const auto size = static_cast<std::size_t>(n) + 1;
    LowerStiffness s{std::vector<double>(size, 0.0), std::vector<std::array<int, 2>>(size, {0, 0}),
                     std::vector<std::array<double, 2>>(size, {0.0, 0.0})};
    for (int q = 1; q <= self.K->size(); ++q) {
        const int r = (*self.ROWIND)(q);
        const int c = (*self.COLIND)(q);
        if (r < 1 || c < 1 || r > n || c > n || r < c) continue;
        const double k = (*self.K)(q);
        if (r == c) {
            s.diagonal[static_cast<std::size_t>(r)] = k;
            continue;
        }
        auto link = [&](int a, int b) {
            auto& nb = s.neighbour[static_cast<std::size_t>(a)];
            auto& val = s.value[static_cast<std::size_t>(a)];
            for (int slot = 0; slot < 2; ++slot) {
                if (nb[static_cast<std::size_t>(slot)] == b || nb[static_cast<std::size_t>(slot)] == 0) {
                    nb[static_cast<std::size_t>(slot)] = b;
                    val[static_cast<std::size_t>(slot)] = k;
                    return;
                }
            }
            s.at_most_two = false;
        };
        const auto& before = s.neighbour[static_cast<std::size_t>(r)];
        if (before[0] != c && before[1] != c) ++s.edges;
        link(r, c);
        link(c, r);
    }
    return s;
}

std::vector<int> walk_chain(const LowerStiffness& s, int n) {
    if (n == 1) return {1};
    if (!s.at_most_two || s.edges != n - 1) return {};
    // Start at the first end of the line: a degree of freedom with a single neighbour.
    int start = 0;
    for (int p = 1; p <= n && start == 0; ++p) {
        const auto& nb = s.neighbour[static_cast<std::size_t>(p)];
        if (nb[0] != 0 && nb[1] == 0) start = p;
    }
    std::vector<int> order;
    order.reserve(static_cast<std::size_t>(n));
    for (int prev = 0, cur = start; cur != 0;) {
        order.push_back(cur);
        if (order.size() > static_cast<std::size_t>(n)) return {};
        const auto& nb = s.neighbour[static_cast<std::size_t>(cur)];
        const int next = nb[0] != prev ? nb[0] : nb[1];
        prev = cur;
        cur = next;
    }
    // N - 1 links of at most two per degree of freedom that don't reach every one of them
    // from an end hold a ring: no chain.
    if (order.size() != static_cast<std::size_t>(n)) return {};
    return order;
}

double link_value(const LowerStiffness& s, int a, int b) {
    const auto& nb = s.neighbour[static_cast<std::size_t>(a)];
    return s.value[static_cast<std::size_t>(a)][nb[0] == b ? 0 : 1];
}

// Square roots of the masses, empty when a mass is not positive and finite: dsygv's Cholesky
// step then decides what happens.
std::vector<double> mass_roots(const EigenvalueSolverRecord& self) {
    const int n = self.order;
    std::vector<double> root(static_cast<std::size_t>(n) + 1, 0.0);
    if (self.M->size() < n) return {};
    for (int p = 1; p <= n; ++p) {
        const double m = (*self.M)(p);
        if (!(m > 0.0) || !std::isfinite(m)) return {};
        root[static_cast<std::size_t>(p)] = std::sqrt(m);
    }
    return root;
}

// Where a structured driver puts the vectors of the scaled problem: straight into the
// caller's N x N array when it has that shape, else into a buffer of its own.
struct VectorTarget {
    Array2D<double>* V = nullptr;
    std::vector<double> buffer;
    double* z = nullptr;
    int ldz = 1;
    double dummy = 0.0;

    VectorTarget(Array2D<double>* caller, int n) : V(caller) {
        if (V == nullptr) {
            z = &dummy;
            return;
        }
        ldz = n;
        if (V->rows() == n && V->cols() == n) {
            z = V->data();
        } else {
            buffer.assign(static_cast<std::size_t>(n) * static_cast<std::size_t>(n), 0.0);
            z = buffer.data();
        }
    }

    // x = M^-1/2 y, row k of y belonging to degree of freedom order[k] (all of them in order
    // when `order` is empty), into the caller's array.
    void back_transform(int n, const std::vector<double>& root, const std::vector<int>& order) {
        if (V == nullptr) return;
        const auto un = static_cast<std::size_t>(n);
        std::vector<double> column(un);
        for (int m = 1; m <= n; ++m) {
            double* y = z + static_cast<std::size_t>(m - 1) * un;
            std::copy(y, y + un, column.begin());
            for (std::size_t k = 0; k < un; ++k) {
                const int p = order.empty() ? static_cast<int>(k) + 1 : order[k];
                const double x = column[k] / root[static_cast<std::size_t>(p)];
                if (buffer.empty())
                    y[p - 1] = x;
                else
                    (*V)(p, m) = x;
            }
        }
    }

    // Leaves the caller's array as a failed solve found it: zero.
    void clear() {
        if (V != nullptr && buffer.empty()) std::fill(V->data(), V->data() + V->flat_size(), 0.0);
    }
};

// dstevr on the scaled chain: diagonal K(p,p)/M(p), off-diagonal K(p,q)/sqrt(M(p) M(q)).
int solve_tridiagonal(const LowerStiffness& s, const std::vector<int>& order, const std::vector<double>& root,
                      char jobz, std::vector<double>& W, VectorTarget& target) {
    const int n = static_cast<int>(order.size());
    const auto un = static_cast<std::size_t>(n);
    std::vector<double> d(un), e(un, 0.0);
    for (std::size_t k = 0; k < un; ++k) {
        const auto p = static_cast<std::size_t>(order[k]);
        d[k] = s.diagonal[p] / (root[p] * root[p]);
        if (k + 1 < un) {
            const auto q = static_cast<std::size_t>(order[k + 1]);
            e[k] = link_value(s, order[k], order[k + 1]) / (root[p] * root[q]);
        }
    }
    const char range = 'A';
    const double vl = 0.0, vu = 0.0, abstol = 0.0;
    const int il = 0, iu = 0;
    int found = 0, info = 0;
    std::vector<int> isuppz(2 * un);
    double query = 0.0;
    int iquery = 0, lwork = -1, liwork = -1;
    dstevr_(&jobz, &range, &n, d.data(), e.data(), &vl, &vu, &il, &iu, &abstol, &found, W.data(), target.z,
            &target.ldz, isuppz.data(), &query, &lwork, &iquery, &liwork, &info, 1, 1);
    if (info != 0) return info;
    lwork = std::max(1, static_cast<int>(query));
    liwork = std::max(1, iquery);
    std::vector<double> work(static_cast<std::size_t>(lwork));
    std::vector<int> iwork(static_cast<std::size_t>(liwork));
    dstevr_(&jobz, &range, &n, d.data(), e.data(), &vl, &vu, &il, &iu, &abstol, &found, W.data(), target.z,
            &target.ldz, isuppz.data(), work.data(), &lwork, iwork.data(), &liwork, &info, 1, 1);
    return info == 0 && found != n ? -1 : info;
}

// dsyevr on the dense lower triangle of M^-1/2 K M^-1/2.
int solve_scaled(const EigenvalueSolverRecord& self, const std::vector<double>& root, char jobz,
                 std::vector<double>& W, VectorTarget& target) {
    const int n = self.order;
    const auto un = static_cast<std::size_t>(n);
    std::vector<double> C(un * un, 0.0);
    for (int q = 1; q <= self.K->size(); ++q) {
        const int r = (*self.ROWIND)(q);
        const int c = (*self.COLIND)(q);
        if (r < 1 || c < 1 || r > n || c > n || r < c) continue;
        C[static_cast<std::size_t>(c - 1) * un + static_cast<std::size_t>(r - 1)] =
            (*self.K)(q) / (root[static_cast<std::size_t>(r)] * root[static_cast<std::size_t>(c)]);
    }
    const char range = 'A', uplo = 'L';
    const double vl = 0.0, vu = 0.0, abstol = 0.0;
    const int il = 0, iu = 0;
    int found = 0, info = 0;
    std::vector<int> isuppz(2 * un);
    double query = 0.0;
    int iquery = 0, lwork = -1, liwork = -1;
    dsyevr_(&jobz, &range, &uplo, &n, C.data(), &n, &vl, &vu, &il, &iu, &abstol, &found, W.data(), target.z,
            &target.ldz, isuppz.data(), &query, &lwork, &iquery, &liwork, &info, 1, 1, 1);
    if (info != 0) return info;
    lwork = std::max(1, static_cast<int>(query));
    liwork = std::max(1, iquery);
    std::vector<double> work(static_cast<std::size_t>(lwork));
    std::vector<int> iwork(static_cast<std::size_t>(liwork));
    dsyevr_(&jobz, &range, &uplo, &n, C.data(), &n, &vl, &vu, &il, &iu, &abstol, &found, W.data(), target.z,
            &target.ldz, isuppz.data(), work.data(), &lwork, iwork.data(), &liwork, &info, 1, 1, 1);
    return info == 0 && found != n ? -1 : info;
}

}  // namespace

std::vector<int> chain_order(const EigenvalueSolverRecord& self) {
    if (self.order < 1) return {};
    return walk_chain(lower_stiffness(self), self.order);
}

EigenDriver choose_driver(const EigenvalueSolverRecord& self, bool literal) {
    if (literal || self.order < STRUCTURED_DRIVER_MIN_ORDER) return EigenDriver::GENERALIZED;
    return chain_order(self).empty() ? EigenDriver::SCALED : EigenDriver::TRIDIAGONAL;
}

void SOLVER(EigenvalueSolverRecord& self, int mode, EigenDriver driver) {
    const int n = self.order;
    if (driver == EigenDriver::GENERALIZED || n < 1) {
        SOLVER(self, mode);
        return;
    }
    const std::vector<double> root = mass_roots(self);
    LowerStiffness lower;
    std::vector<int> order;
    if (driver == EigenDriver::TRIDIAGONAL) {
        lower = lower_stiffness(self);
        order = walk_chain(lower, n);
    }
    if (root.empty() || (driver == EigenDriver::TRIDIAGONAL && order.empty())) {
        SOLVER(self, mode);
        return;
    }
    const char jobz = mode == 2 ? 'V' : 'N';
    std::vector<double> W(static_cast<std::size_t>(n), 0.0);
    VectorTarget target(jobz == 'V' ? self.RIGHTEIGVECREAL : nullptr, n);
    const int info = driver == EigenDriver::TRIDIAGONAL ? solve_tridiagonal(lower, order, root, jobz, W, target)
                                                        : solve_scaled(self, root, jobz, W, target);
    if (info != 0) {
        target.clear();
        SOLVER(self, mode);
        return;
    }
    // The chain's vectors come in line order; the dense ones are in the order of the degrees
    // of freedom already.
    bool in_order = true;
    for (std::size_t k = 0; k < order.size(); ++k) in_order = in_order && order[k] == static_cast<int>(k) + 1;
    target.back_transform(n, root, in_order ? std::vector<int>{} : order);
    self.driver = driver;
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
