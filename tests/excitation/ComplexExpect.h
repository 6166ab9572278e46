// Comparison of complex values part by part, with one absolute tolerance.
#pragma once

#include <gtest/gtest.h>

#define EXPECT_COMPLEX_NEAR(a, b, tol)            \
    do {                                          \
        EXPECT_NEAR((a).real(), (b).real(), tol); \
        EXPECT_NEAR((a).imag(), (b).imag(), tol); \
    } while (0)
