// Places that programs know as Singles.
#pragma once

namespace velt {

/// The nearest Single. Through memory, because a compiler that takes two such conversions side by side may take them
/// for none.
inline double toSingle(double value) {
    const volatile float single = static_cast<float>(value);
    return static_cast<double>(single);
}

}  // namespace velt
