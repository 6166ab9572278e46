// The dynamic stiffness Z(w) of a shaft line couples only the two ends of each shaft: its
// pattern is the graph of the line, a tree (a forest when the line falls apart). Eliminating
// from the leaves towards a root then solves Z(w) x = f in O(N) with no fill-in, instead of
// a dense factorisation of N x N.
//
// The plan holds the structure, found once for the arrays of one solve (the elimination
// order, each degree of freedom's parent), and the coefficients gathered from the arrays in
// the elimination order, so that each order only combines them with w. When the damping is
// rebuilt per order on the same pattern, gather_tree_values takes the new arrays.
#pragma once

#include <complex>
#include <vector>

#include "matrices/MassStiffnessAndDampingMatrix.h"

namespace qm::FORCEDVIBRATIONSOLVER {

struct TreePlan {
    bool usable = false;  // the pattern is a forest; otherwise only the dense solve serves
    int N = 0;
    int NNZ = 0;
    std::vector<int> ROWIND, COLIND;  // the pattern the plan was made for
    // Degrees of freedom in elimination order, 0-based, each parent before its children;
    // parent[k] is the place in `order` of the parent of order[k], -1 at a root.
    std::vector<int> order;
    std::vector<int> parent;
    // Positions (1-based, 0 when absent) in the arrays, per place k: the diagonal entry,
    // entry (dof, parent) and entry (parent, dof).
    std::vector<int> qdiag, qup, qdown;
    // Coefficients per place k. Diagonal: K + i CRR and CR from the entry, M, CA, CAR of the
    // degree of freedom. Off-diagonal: K + i CRR and CR of each of the two entries.
    std::vector<double> dK, dCRR, dCR, dM, dCA, dCAR;
    std::vector<double> uK, uCRR, uCR, lK, lCRR, lCR;
};

// Reads the pattern of ROWIND/COLIND as the dense assembly does: entries outside 1..N are
// passed over and a later entry on the same position replaces an earlier one. The plan is
// usable when that pattern, made symmetric, is a forest.
TreePlan make_tree_plan(const SystemMatrices& mx);

// Takes the coefficients of arrays with the plan's pattern (same N, ROWIND, COLIND).
void gather_tree_values(TreePlan& plan, const SystemMatrices& mx);

// True when mx has the pattern the plan was made for, so the plan serves it as it is.
bool same_pattern(const TreePlan& plan, const SystemMatrices& mx);

// The plan for mx: the one given when the pattern is the same (its values gathered again),
// else a new one. The plan depends on the pattern alone, so reusing it changes no result.
void update_tree_plan(TreePlan& plan, const SystemMatrices& mx);

// Working storage of the elimination, kept across orders.
struct TreeWork {
    std::vector<std::complex<double>> d, a, b, f;
    std::vector<double> scale;
};

// Solves Z(w) x = rhs for w = OMEGA * order; rhs is indexed by degree of freedom and holds x
// on return. False, with rhs unusable, when a pivot is zero, tiny against the entries it was
// formed from, or not finite: the caller then solves this order densely.
bool tree_solve(const TreePlan& plan, double w, std::vector<std::complex<double>>& rhs, TreeWork& work);

}  // namespace qm::FORCEDVIBRATIONSOLVER
