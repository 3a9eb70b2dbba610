#include "VELTRuntime/builtins/math.h"

#include "VELTRuntime/values/boxing.h"
#include "VELTRuntime/values/conversions.h"

#include <algorithm>
#include <cmath>

namespace {

/// The reentrant form: the plain one writes a global.
double logarithmOfGamma(double x) {
    int sign = 0;
    return ::lgamma_r(x, &sign);
}

/// x * 2^exponent, also where the power alone is out of a double's range.
double scaled(double x, double exponent) {
    if (!std::isfinite(exponent)) return x * std::exp2(exponent);
    constexpr double kBeyondAll = 5000;  // no two doubles are so far apart
    const double whole = std::trunc(exponent);
    int own = 0;
    const double mantissa = std::frexp(x, &own) * std::exp2(exponent - whole);
    return std::scalbn(mantissa, own + static_cast<int>(std::clamp(whole, -kBeyondAll, kBeyondAll)));
}

double compound(double rate, double periods) {
    // Exact where the power is; by logarithms where 1 + rate would lose a small rate.
    if (std::fabs(rate) < 1e-4) return std::exp(periods * std::log1p(rate));
    return std::pow(1.0 + rate, periods);
}

double annuity(double rate, double periods) {
    if (rate == 0) return periods;                                         // the limit
    if (rate <= -1) return (1.0 - std::pow(1.0 + rate, -periods)) / rate;  // no logarithm there
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
