// The numeric built-ins. Arguments go through VELT_CDOUBLE, counts through VELT_CBYTE; results are Doubles unless said
// otherwise. Domain errors give the math library's NaNs and infinities.
#pragma once

#include "VELTRuntime/values/value.h"

/// |x|, a Double also for integers.
VELT_EXPORT id VELT_ABS(const id& x);
/// Arc tangent, cosine, sine and tangent, in radians.
VELT_EXPORT id VELT_ATN(const id& x);
VELT_EXPORT id VELT_COS(const id& x);
VELT_EXPORT id VELT_SIN(const id& x);
VELT_EXPORT id VELT_TAN(const id& x);
/// e to the power of x; natural and decimal logarithm; square root.
VELT_EXPORT id VELT_EXP(const id& x);
VELT_EXPORT id VELT_LN(const id& x);
VELT_EXPORT id VELT_LOG10(const id& x);
VELT_EXPORT id VELT_SQR(const id& x);
/// The largest whole number not above x, as a Double.
VELT_EXPORT id VELT_INT(const id& x);
/// x cut off toward zero, as an Integer.
VELT_EXPORT id VELT_FIX(const id& x);
/// The smaller and the larger of two numbers; y when one of them is NaN.
VELT_EXPORT id VELT_MIN(const id& x, const id& y);
VELT_EXPORT id VELT_MAX(const id& x, const id& y);
/// The factorial of the whole part of x; 1 below 1, infinity from 171 on.
VELT_EXPORT id VELT_FACT(const id& x);
/// A Double or Single with a positive number of digits is moved away from zero by half a unit of the last digit and not
/// rounded: 1.234 with 2 digits gives 1.239. Anything else gives its own integer value, as a Long. Programs rely on
/// both. Raises "NSInvalidArgumentException" for a value without a type code.
VELT_EXPORT id VELT_ROUND(const id& value, const id& digits);
/// The signed fractional part of x, whatever the name says. Programs rely on it.
VELT_EXPORT id VELT_MODF_INTEGRAL(const id& x);
/// The signed fractional part of x.
VELT_EXPORT id VELT_MODF_FRACTIONAL(const id& x);

/// Seeds the random generator from the clock; returns nil.
VELT_EXPORT id VELT_RANDOMIZE();
/// The next random Double between 0 and 1, exclusively; the flag tells whether there is an argument x: above 0 it
/// scales the result, 0 gives the last result again, below 0 it seeds the generator first. Main thread only.
VELT_EXPORT id VELT_RANDOM(signed char hasArgument, const id& x);
/// The same with an argument; 0 gives the next unscaled value.
VELT_EXPORT id VELT_RANDOM(const id& x);
