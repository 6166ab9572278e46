#include "forced/TreeSolve.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <unordered_map>

namespace qm::FORCEDVIBRATIONSOLVER {

using cplx = std::complex<double>;

namespace {

// A pivot smaller than this fraction of the magnitudes it was formed from has lost its
// digits to cancellation; the partial pivoting of the dense solve handles such an order.
constexpr double kPivotFraction = 1e-10;

std::uint64_t key(int r, int c) { return (static_cast<std::uint64_t>(r) << 32) | static_cast<std::uint32_t>(c); }

}  // namespace

TreePlan make_tree_plan(const SystemMatrices& mx) {
    TreePlan plan;
    const int n = mx.N;
    plan.N = n;
    plan.NNZ = mx.NNZ;
    plan.ROWIND.assign(mx.ROWIND.data(), mx.ROWIND.data() + mx.ROWIND.size());
    plan.COLIND.assign(mx.COLIND.data(), mx.COLIND.data() + mx.COLIND.size());
    if (n <= 0 || mx.ROWIND.size() < mx.NNZ || mx.COLIND.size() < mx.NNZ) return plan;
    const auto un = static_cast<std::size_t>(n);

    // Last entry of each position, as the dense assembly leaves it.
    std::vector<int> diagq(un, 0);
    std::unordered_map<std::uint64_t, int> offq;
    offq.reserve(static_cast<std::size_t>(mx.NNZ > 0 ? mx.NNZ : 0));
    for (int q = 1; q <= mx.NNZ; ++q) {
        const int r = mx.ROWIND(q);
        const int c = mx.COLIND(q);
        if (r < 1 || c < 1 || r > n || c > n) continue;
        if (r == c)
            diagq[static_cast<std::size_t>(r - 1)] = q;
        else
            offq[key(r - 1, c - 1)] = q;
    }

    // Undirected adjacency, each pair once.
    std::vector<std::vector<int>> adj(un);
    std::size_t edges = 0;
    for (const auto& [k, q] : offq) {
        (void)q;
        const int r = static_cast<int>(k >> 32);
        const int c = static_cast<int>(k & 0xffffffffU);
        if (r < c || offq.find(key(c, r)) == offq.end()) {
            adj[static_cast<std::size_t>(r)].push_back(c);
            adj[static_cast<std::size_t>(c)].push_back(r);
            ++edges;
        }
    }
    // Hash order must not decide the elimination order: sort the neighbours.
    for (auto& a : adj) std::sort(a.begin(), a.end());

    // Breadth-first from the lowest unvisited degree of freedom; a neighbour seen before
    // that is not the parent closes a cycle.
    std::vector<int> place(un, -1);
    plan.order.reserve(un);
    plan.parent.reserve(un);
    std::size_t components = 0;
    for (int s = 0; s < n; ++s) {
        if (place[static_cast<std::size_t>(s)] >= 0) continue;
        ++components;
        place[static_cast<std::size_t>(s)] = static_cast<int>(plan.order.size());
        plan.order.push_back(s);
        plan.parent.push_back(-1);
        for (std::size_t head = plan.order.size() - 1; head < plan.order.size(); ++head) {
            const int v = plan.order[head];
            const int vp = plan.parent[head] >= 0 ? plan.order[static_cast<std::size_t>(plan.parent[head])] : -1;
            for (const int w : adj[static_cast<std::size_t>(v)]) {
                if (w == vp) continue;
                if (place[static_cast<std::size_t>(w)] >= 0) return plan;  // a cycle: not a tree
                place[static_cast<std::size_t>(w)] = static_cast<int>(plan.order.size());
                plan.order.push_back(w);
                plan.parent.push_back(static_cast<int>(head));
            }
        }
    }
    if (edges + components != un) return plan;

    plan.qdiag.assign(un, 0);
    plan.qup.assign(un, 0);
    plan.qdown.assign(un, 0);
    for (std::size_t k = 0; k < un; ++k) {
        const int v = plan.order[k];
        plan.qdiag[k] = diagq[static_cast<std::size_t>(v)];
        if (plan.parent[k] < 0) continue;
        const int p = plan.order[static_cast<std::size_t>(plan.parent[k])];
        const auto up = offq.find(key(v, p));
        const auto down = offq.find(key(p, v));
        plan.qup[k] = up == offq.end() ? 0 : up->second;
        plan.qdown[k] = down == offq.end() ? 0 : down->second;
    }
    plan.usable = true;
    gather_tree_values(plan, mx);
    return plan;
}

void gather_tree_values(TreePlan& plan, const SystemMatrices& mx) {
    const auto un = static_cast<std::size_t>(plan.N);
    for (auto* v : {&plan.dK, &plan.dCRR, &plan.dCR, &plan.dM, &plan.dCA, &plan.dCAR, &plan.uK, &plan.uCRR,
                    &plan.uCR, &plan.lK, &plan.lCRR, &plan.lCR})
        v->assign(un, 0.0);
    if (!plan.usable) return;
    const auto take = [&mx](int q, double& k, double& crr, double& cr) {
        if (q == 0) return;
        k = mx.K(q);
        crr = mx.CRR(q);
        cr = mx.CR(q);
    };
    for (std::size_t k = 0; k < un; ++k) {
        const int p = plan.order[k] + 1;
        take(plan.qdiag[k], plan.dK[k], plan.dCRR[k], plan.dCR[k]);
        take(plan.qup[k], plan.uK[k], plan.uCRR[k], plan.uCR[k]);
        take(plan.qdown[k], plan.lK[k], plan.lCRR[k], plan.lCR[k]);
        plan.dM[k] = mx.M(p);
        plan.dCA[k] = mx.CA(p);
        plan.dCAR[k] = mx.CAR(p);
    }
}

bool same_pattern(const TreePlan& plan, const SystemMatrices& mx) {
    return plan.N == mx.N && plan.NNZ == mx.NNZ && plan.ROWIND.size() == static_cast<std::size_t>(mx.ROWIND.size()) &&
           plan.COLIND.size() == static_cast<std::size_t>(mx.COLIND.size()) &&
           std::equal(plan.ROWIND.begin(), plan.ROWIND.end(), mx.ROWIND.data()) &&
           std::equal(plan.COLIND.begin(), plan.COLIND.end(), mx.COLIND.data());
}

void update_tree_plan(TreePlan& plan, const SystemMatrices& mx) {
    if (same_pattern(plan, mx))
        gather_tree_values(plan, mx);
    else
        plan = make_tree_plan(mx);
}

bool tree_solve(const TreePlan& plan, double w, std::vector<cplx>& rhs, TreeWork& work) {
    if (!plan.usable) return false;
    const std::size_t n = plan.order.size();
    work.d.resize(n);
    work.a.resize(n);
    work.b.resize(n);
    work.f.resize(n);
    cplx* d = work.d.data();
    cplx* a = work.a.data();
    cplx* b = work.b.data();
    cplx* f = work.f.data();
    work.scale.resize(n);
    double* scale = work.scale.data();
    const double w2 = w * w;
    for (std::size_t k = 0; k < n; ++k) {
        // The same sums as the dense assembly: the entry, then the mass and absolute terms.
        d[k] = cplx(plan.dK[k], plan.dCRR[k] + w * plan.dCR[k]) +
               cplx(-w2 * plan.dM[k], w * plan.dCA[k] + w2 * plan.dCAR[k]);
        a[k] = cplx(plan.uK[k], plan.uCRR[k] + w * plan.uCR[k]);
        b[k] = cplx(plan.lK[k], plan.lCRR[k] + w * plan.lCR[k]);
        f[k] = rhs[static_cast<std::size_t>(plan.order[k])];
        scale[k] = std::abs(d[k]);
    }
    // Leaves to roots: fold each degree of freedom into its parent.
    for (std::size_t k = n; k-- > 0;) {
        const double mag = std::abs(d[k]);
        if (!(mag > kPivotFraction * scale[k]) || !std::isfinite(mag)) return false;
        const int p = plan.parent[k];
        if (p < 0) continue;
        const cplx m = b[k] / d[k];
        d[static_cast<std::size_t>(p)] -= m * a[k];
        f[static_cast<std::size_t>(p)] -= m * f[k];
        const double contribution = std::abs(m * a[k]);
        if (contribution > scale[static_cast<std::size_t>(p)]) scale[static_cast<std::size_t>(p)] = contribution;
    }
    // Roots to leaves.
    for (std::size_t k = 0; k < n; ++k) {
        const int p = plan.parent[k];
        if (p >= 0) f[k] -= a[k] * f[static_cast<std::size_t>(p)];
        f[k] /= d[k];
        rhs[static_cast<std::size_t>(plan.order[k])] = f[k];
    }
    return true;
}

}  // namespace qm::FORCEDVIBRATIONSOLVER
