// The standard math library's functions as built-ins, one to one. The first argument stands for the receiver and is
// ignored; the operands go through VELT_CDOUBLE from left to right. Domain errors give NaNs and infinities. GAMMA is
// the gamma function, LGAMMA the logarithm of its absolute value; SCALB is x * 2^y, COMPOUND (1 + x)^y, ANNUITY
// (1 - (1 + x)^-y) / x.
#pragma once

#include "VELTRuntime/values/value.h"

#define VELT_MATH1(name, expression) VELT_EXPORT id VELT_CMATH_##name(const id& ignored, const id& x);
#define VELT_MATH2(name, expression) VELT_EXPORT id VELT_CMATH_##name(const id& ignored, const id& x, const id& y);
#define VELT_MATHI(name, expression) VELT_EXPORT id VELT_CMATH_##name(const id& ignored, const id& x);
#include "VELTRuntime/builtins/math_functions.def"
#undef VELT_MATH1
#undef VELT_MATH2
#undef VELT_MATHI
