// The random generator: the minimal standard one (multiplier 16807, modulus 2^31 - 1) by Schrage's decomposition.
#include "VELTRuntime/builtins/numbers.h"
#include "VELTRuntime/values/boxing.h"
#include "VELTRuntime/values/conversions.h"
#include "VELTRuntime/values/load_state.h"

#include <ctime>

namespace {

/// One step, also from values out of the generator's range, which it corrects once only.
long step(long value) {
    const long high = value / 127773, low = value % 127773;
    const long next = 16807 * low - 2836 * high;
    return next <= 0 ? next + 2147483647 : next;
}

/// The value of a state: over 2^31, not over the modulus.
double fraction(long state) { return static_cast<double>(state) * 4.656612873077393e-10; }

id nextFrom(long state) {
    VELT_lStartValue = step(state);
    VELT_dLastRND = fraction(VELT_lStartValue);
    return VELT_ID(VELT_dLastRND);
}

}  // namespace

id VELT_RANDOMIZE() {
    static std::time_t now = 0;
    static std::tm local{};
    now = std::time(nullptr);
    localtime_r(&now, &local);
    // Sixty seeds or so in one process: weak, and programs rely on no more.
    const long processConstant = static_cast<long>(reinterpret_cast<std::uintptr_t>(&local) & 0x3FFFFFFF);
    const long seed = local.tm_sec + processConstant;
    nextFrom(step(seed));
    return nil;
}

id VELT_RANDOM(signed char hasArgument, const id& x) {
    if (VELT_dLastRND == 0.0) VELT_RANDOMIZE();
    const double argument = hasArgument ? VELT_CDOUBLE(x) : 0.0;
    if (hasArgument && argument == 0) return VELT_ID(VELT_dLastRND);
    if (hasArgument && argument < 0) return nextFrom(velt::truncated(argument * 10000.0));
    nextFrom(VELT_lStartValue);
    if (hasArgument && argument > 0) VELT_dLastRND = argument * VELT_dLastRND;
    return VELT_ID(VELT_dLastRND);
}

id VELT_RANDOM(const id& x) {
    // Unlike the form with a flag, an argument of 0 asks for the next value. Programs rely on it.
    return VELT_CDOUBLE(x) == 0 ? VELT_RANDOM(0, nil) : VELT_RANDOM(1, x);
}
