#pragma once

namespace qm::FORCEDVIBRATION {

// How the forced system is solved. LITERAL is the reference: a dense factorisation of Z(w)
// at every order, with every array rebuilt per order when the damping follows the order,
// and the synthesis step by step. FAST eliminates along the tree of the shaft line, falling
// back to the dense solve for an order whose pivot is zero or tiny, and shares what does not
// change between elements and orders. Both give the same results to rounding.
enum class SolvePath { FAST, LITERAL };

}  // namespace qm::FORCEDVIBRATION
