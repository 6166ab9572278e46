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

// All eigenvalues and, with jobz 'V', eigenvectors of a real symmetric tridiagonal matrix
// (diagonal d, off-diagonal e) by the multiple relatively robust representations; dstevr
// falls back to bisection and inverse iteration where those fail.
void dstemr_(const char* jobz, const char* range, const int* n, double* d, double* e, const double* vl,
             const double* vu, const int* il, const int* iu, int* m, double* w, double* z, const int* ldz,
             const int* nzc, int* isuppz, int* tryrac, double* work, const int* lwork, int* iwork,
             const int* liwork, int* info, std::size_t jobz_len, std::size_t range_len);
void dstevr_(const char* jobz, const char* range, const int* n, double* d, double* e, const double* vl,
             const double* vu, const int* il, const int* iu, const double* abstol, int* m, double* w,
             double* z, const int* ldz, int* isuppz, double* work, const int* lwork, int* iwork,
             const int* liwork, int* info, std::size_t jobz_len, std::size_t range_len);

// All eigenvalues and eigenvectors of a dense real symmetric matrix: reduction to
// tridiagonal form, then the same representations as dstevr.
void dsyevr_(const char* jobz, const char* range, const char* uplo, const int* n, double* a, const int* lda,
             const double* vl, const double* vu, const int* il, const int* iu, const double* abstol, int* m,
             double* w, double* z, const int* ldz, int* isuppz, double* work, const int* lwork, int* iwork,
             const int* liwork, int* info, std::size_t jobz_len, std::size_t range_len, std::size_t uplo_len);

// LU factorisation and solve of a dense complex system.
void zgetrf_(const int* m, const int* n, std::complex<double>* a, const int* lda, int* ipiv,
             int* info);
void zgetrs_(const char* trans, const int* n, const int* nrhs, const std::complex<double>* a,
             const int* lda, const int* ipiv, std::complex<double>* b, const int* ldb, int* info,
             std::size_t trans_len);
}
