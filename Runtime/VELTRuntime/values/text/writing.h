// Numbers as decimal text, without allocating.
#pragma once

#include "VELTRuntime/export.h"

#include <cstdint>
#include <string_view>

namespace velt::text {

/// A short ASCII text in place.
class NumberText {
public:
    std::string_view view() const { return {bytes_, length_}; }
    void append(char c) { bytes_[length_++] = c; }
    void append(std::string_view text) {
        for (const char c : text) append(c);
    }

private:
    char bytes_[40];
    std::uint8_t length_ = 0;
};

/// The shortest decimal text that reads back as the same number: plain from 0.0001 to below 1e16 ("100000", "0.5"),
/// with exponent otherwise ("1e+16", "2.5e-07"); "inf", "-inf", "nan".
VELT_EXPORT NumberText shortestText(double value);
VELT_EXPORT NumberText shortestText(float value);

/// Plain decimal text.
VELT_EXPORT NumberText decimalText(std::int64_t value);
VELT_EXPORT NumberText decimalText(std::uint64_t value);

}  // namespace velt::text
