// Relative deflections of the inertias and relative torques of the shafts in each mode
// above the rigid-body mode, and the vector sums of the engine orders: the tables a
// torsional vibration report shows beside each natural frequency.
#pragma once

#include "base/RunContext.h"
#include "base/Table.h"
#include "components/ModelTables.h"

namespace qm::FREEVIBRATION {

constexpr const char* RELATIVEDEFLECTIONFILE = "RelativeDeflection.bin";
constexpr const char* RELATIVETORQUEFILE = "RelativeTorque.bin";
constexpr const char* VECTORSUMFILE = "VectorSum.bin";
constexpr const char* VECTORSUMRPMFILE = "VectorSumRpm.bin";
constexpr const char* VECTORSUMANGLEFILE = "VectorSumAngle.bin";

// Mode shapes V (free degrees of freedom, N x N) referred to each inertia's own speed and
// normalised per mode to the largest cylinder deflection (else the largest propeller
// deflection, else the first degree of freedom). Element (m-2)*NMASS + r for mode m = 2..N
// and row r of MASS_TABLE; damper ring rows hold 0.0. Writes "RelativeDeflection.bin".
void RELATIVEINERTIADEFLECTION(RunContext& ctx, const MassTable& MASS_TABLE, const ShaftTable& SHAFT_TABLE,
                               const DieselTable& DIESEL_TABLE, const PropellerTable& PROPELLER_TABLE, int N,
                               const Array2D<double>& V, Table<double>& RELATIVEDEFLECTION);

// Static stiffness times the difference of the relative deflections of each shaft's two
// ends. Element (m-2)*NSHAFT + s; the spring of a viscous damper holds 0.0. Writes
// "RelativeTorque.bin".
void RELATIVEINERTIATORQUE(RunContext& ctx, const MassTable& MASS_TABLE, const ShaftTable& SHAFT_TABLE, int N,
                           const Table<double>& RELATIVEDEFLECTION, Table<double>& RELATIVETORQUE);

// For each engine e, mode m = 2..N and order place o: the cylinders' relative deflections
// added as vectors turned by firing angle times order, relative to the strongest order of
// that engine and mode. Element ((e-1)*(N-1) + (m-2))*NORDER + o. Writes "VectorSum.bin",
// "VectorSumRpm.bin" and "VectorSumAngle.bin" and frees the three arrays.
void VECTORSUMS(RunContext& ctx, const MassTable& MASS_TABLE, const DieselTable& DIESEL_TABLE, int N, const Table<double>& D,
                const Table<double>& RELATIVEDEFLECTION, Table<double>& VECTORSUMRPM, Table<double>& VECTORSUMANGLE,
                Table<double>& VECTORSUM);

// Order places of the vector sums: 24 when any engine is four-stroke, else 20.
int vector_sum_order_count(const DieselTable& DIESEL_TABLE);

// Engine order of order place o (1-based) of an engine's vector sums: o for a two-stroke
// engine, the half orders o/2 for any other.
inline double vector_sum_order(const DieselRecord& engine, int o) { return engine.NSTROKE == 2 ? o : o * 0.5; }

// Record numbers (1-based) of the relative results, the one place that lays them out for
// the writer and for readers of the files:
// mode m = 2..N and row r = 1..NE of MASS_TABLE (NE = NMASS) or SHAFT_TABLE (NE = NSHAFT)
constexpr long long mode_record(int m, int r, int NE) {
    return static_cast<long long>(m - 2) * NE + r;
}
// engine e, mode m = 2..N, order place o = 1..NORDER of the vector sums
constexpr long long vector_sum_record(int e, int m, int o, int N, int NORDER) {
    return (static_cast<long long>(e - 1) * (N - 1) + (m - 2)) * NORDER + o;
}

}  // namespace qm::FREEVIBRATION
