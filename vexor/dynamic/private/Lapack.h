#pragma once
#include <cstddef>

// The seven LAPACK routines that the library calls, declared only here, by the classic interface: every
// argument by address, integers of 32 bits.
//
// A Fortran routine has hidden arguments after its visible ones: the length of each string, by value.
// gfortran from version 8 on passes them as size_t. Here each string is a single letter.

namespace vexor::detail {

using FortranLength = std::size_t;
inline constexpr FortranLength oneLetter = 1;

extern "C" {

/// A·X = B by L·U with partial pivoting.
void dgesv_(int const* n, int const* nrhs, double* a, int const* lda, int* ipiv, double* b, int const* ldb,
            int* info);

/// A·X = B with the factors that DGESV left.
void dgetrs_(char const* trans, int const* n, int const* nrhs, double const* a, int const* lda,
             int const* ipiv, double* b, int const* ldb, int* info, FortranLength transLength);

/// A·X = B for symmetric A, by U·D·Uᵀ with 1×1 and 2×2 pivots.
void dsysv_(char const* uplo, int const* n, int const* nrhs, double* a, int const* lda, int* ipiv, double* b,
            int const* ldb, double* work, int const* lwork, int* info, FortranLength uploLength);

/// A·X = B with the factors that DSYSV left.
void dsytrs_(char const* uplo, int const* n, int const* nrhs, double const* a, int const* lda,
             int const* ipiv, double* b, int const* ldb, int* info, FortranLength uploLength);

/// Least squares, or least norm, by Q·R or L·Q.
void dgels_(char const* trans, int const* m, int const* n, int const* nrhs, double* a, int const* lda,
            double* b, int const* ldb, double* work, int const* lwork, int* info, FortranLength transLength);

/// Singular values and vectors.
void dgesvd_(char const* jobu, char const* jobvt, int const* m, int const* n, double* a, int const* lda,
             double* s, double* u, int const* ldu, double* vt, int const* ldvt, double* work,
             int const* lwork, int* info, FortranLength jobuLength, FortranLength jobvtLength);

/// Selected eigenvalues and eigenvectors of a symmetric matrix.
void dsyevx_(char const* jobz, char const* range, char const* uplo, int const* n, double* a, int const* lda,
             double const* vl, double const* vu, int const* il, int const* iu, double const* abstol, int* m,
             double* w, double* z, int const* ldz, double* work, int const* lwork, int* iwork, int* ifail,
             int* info, FortranLength jobzLength, FortranLength rangeLength, FortranLength uploLength);

} // extern "C"

} // namespace vexor::detail
