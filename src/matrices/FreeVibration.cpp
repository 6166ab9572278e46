#include "matrices/FreeVibration.h"

#include "base/BinFile.h"
#include "base/GlobalParameter.h"
#include "matrices/FreeUndampedVibrations.h"
#include "matrices/MassStiffnessAndDampingMatrix.h"
#include "matrices/RelativeResults.h"

namespace qm::FREEVIBRATION {

void FREEVIBRATIONCALCULATION(MassTable& MASS_TABLE, ShaftTable& SHAFT_TABLE,
                              const ViscousDamperTable& VISCOUSDAMPER_TABLE,
                              const LinearCouplingTable& LINEARCOUPLING_TABLE,
                              const ProgressiveCouplingTable& PROGRESSIVECOUPLING_TABLE,
                              const GeislingerCouplingTable& GEISLINGERCOUPLING_TABLE,
                              PropellerTable& PROPELLER_TABLE, const DieselTable& DIESEL_TABLE) {
    using namespace MASSSTIFFNESSANDDAMPINGMATRIX;
    MASSANDSHAFTTABLEPREPARATION(true, MASS_TABLE, SHAFT_TABLE, VISCOUSDAMPER_TABLE, LINEARCOUPLING_TABLE,
                                 PROGRESSIVECOUPLING_TABLE, PROPELLER_TABLE, 1);
    SystemMatrices mx;
    BUILDMASSSTIFFNESSANDDAMPINGMATRIX(true, MASS_TABLE, SHAFT_TABLE, GEISLINGERCOUPLING_TABLE, DIESEL_TABLE,
                                       VISCOUSDAMPER_TABLE, 1.0, mx);
    FREEUNDAMPEDVIBRATIONSMODULE::FREEUNDAMPEDVIBRATIONS(mx, 0);

    // Mode 1 is the rigid-body mode: its computed eigenvalue is never used.
    if (mx.N >= 1) mx.D(1) = 0.0;
    const std::string path =
        GLOBAL_PARAMETER::FILEFULLADDRESS(GLOBAL_PARAMETER::RESULTFILEDIR(), NATURALFREQUENCYFILE);
    write_bin_file(path, mx.D.data(), static_cast<std::size_t>(mx.N));

    Table<double> RELATIVEDEFLECTION;
    Table<double> RELATIVETORQUE;
    RELATIVEINERTIADEFLECTION(MASS_TABLE, SHAFT_TABLE, DIESEL_TABLE, PROPELLER_TABLE, mx.N, mx.V, RELATIVEDEFLECTION);
    RELATIVEINERTIATORQUE(MASS_TABLE, SHAFT_TABLE, mx.N, RELATIVEDEFLECTION, RELATIVETORQUE);
    if (DIESEL_TABLE.allocated()) {
        Table<double> VECTORSUMRPM;
        Table<double> VECTORSUMANGLE;
        Table<double> VECTORSUM;
        VECTORSUMS(MASS_TABLE, DIESEL_TABLE, mx.N, mx.D, RELATIVEDEFLECTION, VECTORSUMRPM, VECTORSUMANGLE, VECTORSUM);
    }
}

}  // namespace qm::FREEVIBRATION
