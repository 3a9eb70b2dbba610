#include "VELTRuntime/builtins/numbers.h"

#include "VELTRuntime/values/boxing.h"
#include "VELTRuntime/values/conversions.h"

#include <cmath>

namespace {

id real(double value) { return VELT_ID(value); }

}  // namespace

id VELT_ABS(const id& x) { return real(std::fabs(VELT_CDOUBLE(x))); }
id VELT_ATN(const id& x) { return real(std::atan(VELT_CDOUBLE(x))); }
id VELT_COS(const id& x) { return real(std::cos(VELT_CDOUBLE(x))); }
id VELT_SIN(const id& x) { return real(std::sin(VELT_CDOUBLE(x))); }
id VELT_TAN(const id& x) { return real(std::tan(VELT_CDOUBLE(x))); }
id VELT_EXP(const id& x) { return real(std::exp(VELT_CDOUBLE(x))); }
id VELT_LN(const id& x) { return real(std::log(VELT_CDOUBLE(x))); }
id VELT_LOG10(const id& x) { return real(std::log10(VELT_CDOUBLE(x))); }
id VELT_SQR(const id& x) { return real(std::sqrt(VELT_CDOUBLE(x))); }
id VELT_INT(const id& x) { return real(std::floor(VELT_CDOUBLE(x))); }
id VELT_FIX(const id& x) { return VELT_ID(static_cast<long>(velt::truncated(VELT_CDOUBLE(x)))); }

id VELT_MIN(const id& x, const id& y) {
    const double a = VELT_CDOUBLE(x), b = VELT_CDOUBLE(y);
    return real(a <= b ? a : b);  // a NaN on either side gives b
}

id VELT_MAX(const id& x, const id& y) {
    const double a = VELT_CDOUBLE(x), b = VELT_CDOUBLE(y);
    return real(a >= b ? a : b);
}

id VELT_FACT(const id& x) {
    const double limit = VELT_CDOUBLE(x);
    double result = 1.0;
    for (double k = 1.0; k <= limit && !std::isinf(result); k += 1.0) result *= k;
    return real(result);
}

id VELT_ROUND(const id& value, const id& digits) {
    const long count = VELT_CBYTE(digits);
    std::uint64_t power = 1;
    // 64 doublings are in every 10^64 and beyond: the wrapped power stays 0.
    for (long i = 0; i < count && power != 0; ++i) power *= 10;
    const auto scale = static_cast<std::int64_t>(power);
    const char code = velt::typeCode(value)[0];
    if ((code == 'd' || code == 'f') && count > 0) {
        const double x = VELT_CDOUBLE(value), p = static_cast<double>(scale);
        return real(x < 0 ? -((0.5 - p * x) / p) : (x * p + 0.5) / p);
    }
    const auto whole = static_cast<std::int64_t>(VELT_CLONG(value));
    const std::uint64_t magnitude =
        whole < 0 ? 0 - static_cast<std::uint64_t>(whole) : static_cast<std::uint64_t>(whole);
    const auto scaled = static_cast<std::int64_t>(magnitude * power);
    const std::int64_t rounded = velt::truncated((static_cast<double>(scaled) + 0.5) / static_cast<double>(scale));
    const auto result = whole < 0 ? static_cast<std::int64_t>(0 - static_cast<std::uint64_t>(rounded)) : rounded;
    return VELT_ID(static_cast<long long>(result));
}

id VELT_MODF_INTEGRAL(const id& x) {
    double integral = 0;
    return real(std::modf(VELT_CDOUBLE(x), &integral));
}

id VELT_MODF_FRACTIONAL(const id& x) { return VELT_MODF_INTEGRAL(x); }
