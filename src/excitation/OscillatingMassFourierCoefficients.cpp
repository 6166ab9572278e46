#include "excitation/OscillatingMassFourierCoefficients.h"

#include <vector>

#include "excitation/CylinderExcitations.h"
#include "excitation/DiscreteFourierTransform.h"

namespace qm {

void OSCILLATINGMASSFOURIERCOEFFICIENTS(int N, int NHARM, std::complex<double>* F,
                                        const double* ALPHA, double LAMBDA) {
    for (int k = 0; k < NHARM; ++k) F[k] = {0.0, 0.0};
    std::vector<double> factor(N > 0 ? static_cast<std::size_t>(N) : 0, 0.0);
    CYLINDEREXCITATIONS::TANGENTIALOSCILLATINGMASS(N, factor.data(), ALPHA, LAMBDA);
    DFT::DISCRETEFOURIERTRANSFORM(N, NHARM, F, factor.data());
}

}  // namespace qm
