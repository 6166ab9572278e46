#include "excitation/PressureFourierCoefficients.h"

#include "excitation/CylinderExcitations.h"
#include "excitation/DiscreteFourierTransform.h"

namespace qm {

void PRESSUREFOURIERCOEFFICIENTS(int N, int NHARM, std::complex<double>* F, double* P,
                                 const double* ALPHA, double LAMBDA) {
    for (int k = 0; k < NHARM; ++k) F[k] = {0.0, 0.0};
    CYLINDEREXCITATIONS::TANGENTIALFORCEGAS(N, P, ALPHA, LAMBDA);
    DFT::DISCRETEFOURIERTRANSFORM(N, NHARM, F, P);
}

}  // namespace qm
