// The LAPACK routines the system calls, by their published names and argument order.
// This is the only place that declares them. Character arguments carry their hidden
// length arguments at the end, as the Fortran calling convention of the library expects.
#pragma once

#include <complex>
#include <cstddef>

extern "C" {

// Generalized symmetric-definite eigenproblem A x = lambda B x.
void dsygv_(const int* itype, const char* jobz, const char* uplo, const int* n, double* a,
            const int* lda, double* b, const int* ldb, double* w, double* work, const int* lwork,
            int* info, std::size_t jobz_len, std::size_t uplo_len);

// LU factorisation and solve of a dense complex system.
void zgetrf_(const int* m, const int* n, std::complex<double>* a, const int* lda, int* ipiv,
             int* info);
void zgetrs_(const char* trans, const int* n, const int* nrhs, const std::complex<double>* a,
             const int* lda, const int* ipiv, std::complex<double>* b, const int* ldb, int* info,
             std::size_t trans_len);
}
