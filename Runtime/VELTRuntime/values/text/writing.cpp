#include "VELTRuntime/values/text/writing.h"

#include <charconv>
#include <cmath>

namespace velt::text {

namespace {

template <class Real> NumberText shortest(Real value) {
    NumberText text;
    if (std::isnan(value)) {
        text.append("nan");
        return text;
    }
    if (std::signbit(value)) {
        text.append('-');
        value = -value;
    }
    if (std::isinf(value)) {
        text.append("inf");
        return text;
    }
    // The shortest digits come as d.ddde±xx; they are laid out here, by one rule for both kinds.
    char bytes[40];
    const auto end = std::to_chars(bytes, bytes + sizeof bytes, value, std::chars_format::scientific).ptr;
    const std::string_view written(bytes, static_cast<std::size_t>(end - bytes));
    const std::size_t e = written.find('e');
    char digits[24];
    std::size_t count = 0;
    for (const char c : written.substr(0, e)) {
        if (c != '.') digits[count++] = c;
    }
    int exponent = 0;
    std::from_chars(written.data() + e + (written[e + 1] == '+' ? 2 : 1), end, exponent);

    const std::string_view all(digits, count);
    if (exponent < -4 || exponent >= 16) {
        text.append(all[0]);
        if (count > 1) {
            text.append('.');
            text.append(all.substr(1));
        }
        text.append(written.substr(e));
    } else if (exponent < 0) {
        text.append("0.");
        for (int i = -1; i > exponent; --i) text.append('0');
        text.append(all);
    } else {
        const auto whole = static_cast<std::size_t>(exponent) + 1;
        for (std::size_t i = 0; i < whole; ++i) text.append(i < count ? all[i] : '0');
        if (count > whole) {
            text.append('.');
            text.append(all.substr(whole));
        }
    }
    return text;
}

template <class Integer> NumberText decimal(Integer value) {
    char bytes[24];
    const auto end = std::to_chars(bytes, bytes + sizeof bytes, value).ptr;
    NumberText text;
    text.append(std::string_view(bytes, static_cast<std::size_t>(end - bytes)));
    return text;
}

}  // namespace

NumberText shortestText(double value) { return shortest(value); }
NumberText shortestText(float value) { return shortest(value); }
NumberText decimalText(std::int64_t value) { return decimal(value); }
NumberText decimalText(std::uint64_t value) { return decimal(value); }

}  // namespace velt::text
