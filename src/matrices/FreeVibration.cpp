#include "matrices/FreeVibration.h"

#include "base/BinFile.h"
#include "matrices/FreeUndampedVibrations.h"
#include "matrices/MassStiffnessAndDampingMatrix.h"
#include "matrices/RelativeResults.h"

namespace qm::FREEVIBRATION {

void FREEVIBRATIONCALCULATION(RunContext& ctx, ModelTables& t) {
    using namespace MASSSTIFFNESSANDDAMPINGMATRIX;
    MassTable& MASS_TABLE = t.MASS_TABLE;
    ShaftTable& SHAFT_TABLE = t.SHAFT_TABLE;
    PropellerTable& PROPELLER_TABLE = t.PROPELLER_TABLE;
    const DieselTable& DIESEL_TABLE = t.DIESEL_TABLE;
    const ViscousDamperTable& VISCOUSDAMPER_TABLE = t.VISCOUSDAMPER_TABLE;
    MASSANDSHAFTTABLEPREPARATION(true, MASS_TABLE, SHAFT_TABLE, VISCOUSDAMPER_TABLE, t.LINEARCOUPLING_TABLE,
                                 t.PROGRESSIVECOUPLING_TABLE, PROPELLER_TABLE, 1);
    SystemMatrices mx;
    BUILDMASSSTIFFNESSANDDAMPINGMATRIX(true, MASS_TABLE, SHAFT_TABLE, t.GEISLINGERCOUPLING_TABLE, DIESEL_TABLE,
                                       VISCOUSDAMPER_TABLE, 1.0, mx);
    FREEUNDAMPEDVIBRATIONSMODULE::FREEUNDAMPEDVIBRATIONS(mx, 0, ctx.LITERALPATH);

    // Mode 1 is the rigid-body mode: its computed eigenvalue is never used.
    if (mx.N >= 1) mx.D(1) = 0.0;
    write_bin_file(ctx.result_path(NATURALFREQUENCYFILE), mx.D.data(), static_cast<std::size_t>(mx.N));

    Table<double> RELATIVEDEFLECTION;
    Table<double> RELATIVETORQUE;
    RELATIVEINERTIADEFLECTION(ctx, MASS_TABLE, SHAFT_TABLE, DIESEL_TABLE, PROPELLER_TABLE, mx.N, mx.V, RELATIVEDEFLECTION);
    // Mode shapes and relative results are N x N each on a long line: each goes as soon as
    // its file is written, so that no more than two are held at once.
    mx.V.deallocate();
    RELATIVEINERTIATORQUE(ctx, MASS_TABLE, SHAFT_TABLE, mx.N, RELATIVEDEFLECTION, RELATIVETORQUE);
    RELATIVETORQUE.deallocate();
    if (DIESEL_TABLE.allocated()) {
        Table<double> VECTORSUMRPM;
        Table<double> VECTORSUMANGLE;
        Table<double> VECTORSUM;
        VECTORSUMS(ctx, MASS_TABLE, DIESEL_TABLE, mx.N, mx.D, RELATIVEDEFLECTION, VECTORSUMRPM, VECTORSUMANGLE, VECTORSUM);
    }
}

}  // namespace qm::FREEVIBRATION
