#include "VELTRuntime/builtins/math.h"

#include "VELTRuntime/values/boxing.h"
#include "VELTRuntime/values/conversions.h"

#include <cmath>

namespace {

/// The reentrant form: the plain one writes a global.
double logarithmOfGamma(double x) {
    int sign = 0;
    return ::lgamma_r(x, &sign);
}

double compound(double rate, double periods) {
    // Exact where the power is; by logarithms where 1 + rate would lose a small rate.
    if (std::fabs(rate) < 1e-4) return std::exp(periods * std::log1p(rate));
    return std::pow(1.0 + rate, periods);
}

double annuity(double rate, double periods) {
    if (rate == 0) return periods;  // the limit
    return -std::expm1(-periods * std::log1p(rate)) / rate;
}

}  // namespace

#define VELT_MATH1(name, expression)                                                                                   \
    id VELT_CMATH_##name(const id&, const id& first) {                                                                 \
        const double x = VELT_CDOUBLE(first);                                                                          \
        return VELT_ID(static_cast<double>(expression));                                                               \
    }
#define VELT_MATH2(name, expression)                                                                                   \
    id VELT_CMATH_##name(const id&, const id& first, const id& second) {                                               \
        const double x = VELT_CDOUBLE(first);                                                                          \
        const double y = VELT_CDOUBLE(second);                                                                         \
        return VELT_ID(static_cast<double>(expression));                                                               \
    }
#define VELT_MATHI(name, expression)                                                                                   \
    id VELT_CMATH_##name(const id&, const id& first) {                                                                 \
        const double x = VELT_CDOUBLE(first);                                                                          \
        return VELT_ID(static_cast<long>(expression));                                                                 \
    }
#include "VELTRuntime/builtins/math_functions.def"
