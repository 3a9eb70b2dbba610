#include "VELTRuntime/values/text/reading.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <string>

namespace velt::text {

namespace {

bool isDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

std::u16string_view skipWhiteSpace(std::u16string_view text) {
    std::size_t at = 0;
    while (at < text.size() && isWhiteSpace(text[at])) ++at;
    return text.substr(at);
}

/// Takes an optional sign; true for "-".
bool takeSign(std::u16string_view& text) {
    if (text.empty() || (text[0] != u'+' && text[0] != u'-')) return false;
    const bool negative = text[0] == u'-';
    text.remove_prefix(1);
    return negative;
}

std::size_t digitRun(std::u16string_view text, std::size_t from) {
    while (from < text.size() && isDigit(text[from])) ++from;
    return from;
}

/// The decimal number at the start of a text without its sign, as far as it goes.
struct DecimalNumber {
    std::size_t integerEnd = 0;   // digits before the point
    std::size_t mantissaEnd = 0;  // with point and fraction
    std::size_t end = 0;          // with the exponent; 0 when there is no number
};

DecimalNumber scanNumber(std::u16string_view text) {
    DecimalNumber number;
    number.integerEnd = number.mantissaEnd = digitRun(text, 0);
    std::size_t digits = number.integerEnd;
    if (number.integerEnd < text.size() && text[number.integerEnd] == u'.') {
        const std::size_t fractionEnd = digitRun(text, number.integerEnd + 1);
        digits += fractionEnd - number.integerEnd - 1;
        number.mantissaEnd = fractionEnd;
    }
    if (digits == 0) return {};
    number.end = number.mantissaEnd;
    std::size_t at = number.mantissaEnd;
    if (at < text.size() && (text[at] == u'e' || text[at] == u'E')) {
        ++at;
        if (at < text.size() && (text[at] == u'+' || text[at] == u'-')) ++at;
        const std::size_t exponentEnd = digitRun(text, at);
        if (exponentEnd > at) number.end = exponentEnd;
    }
    return number;
}

/// Whether a number that is out of range is too large (rather than too small): the decimal exponent of its first digit
/// that is not zero decides.
bool isTooLarge(std::u16string_view text, const DecimalNumber& number) {
    std::size_t first = 0;
    while (first < number.mantissaEnd && (text[first] == u'0' || text[first] == u'.')) ++first;
    if (first >= number.mantissaEnd) return false;
    std::int64_t exponent = 0;
    if (number.end > number.mantissaEnd) exponent = integerReading(text.substr(number.mantissaEnd + 1));
    const auto place = static_cast<std::int64_t>(number.integerEnd) - static_cast<std::int64_t>(first);
    // An exponent at the limits of 64 bits outweighs any place that a text in memory can have.
    return exponent > 0 ? exponent + std::min<std::int64_t>(place, 0) > 0
                        : exponent + std::max<std::int64_t>(place, 0) > 0;
}

template <class Real> Real realReading(std::u16string_view text) {
    text = skipWhiteSpace(text);
    const bool negative = takeSign(text);
    const DecimalNumber number = scanNumber(text);
    if (number.end == 0) return 0;
    constexpr std::size_t kShort = 64;
    char shortBytes[kShort];
    std::string longBytes;
    char* bytes = shortBytes;
    if (number.end > kShort) {
        longBytes.resize(number.end);
        bytes = longBytes.data();
    }
    for (std::size_t i = 0; i < number.end; ++i) bytes[i] = static_cast<char>(text[i]);
    Real value = 0;
    const std::from_chars_result result = std::from_chars(bytes, bytes + number.end, value);
    if (result.ec == std::errc::result_out_of_range) {
        value = isTooLarge(text, number) ? std::numeric_limits<Real>::infinity() : Real{0};
    }
    return negative ? -value : value;
}

}  // namespace

bool isWhiteSpace(char16_t unit) {
    if (unit <= 0x20) return unit == 0x20 || (unit >= 0x09 && unit <= 0x0D);
    if (unit < 0x85) return false;
    return unit == 0x85 || unit == 0xA0 || unit == 0x1680 || (unit >= 0x2000 && unit <= 0x200A) || unit == 0x2028 ||
           unit == 0x2029 || unit == 0x202F || unit == 0x205F || unit == 0x3000;
}

std::int64_t integerReading(std::u16string_view text) {
    text = skipWhiteSpace(text);
    const bool negative = takeSign(text);
    // Negative on the way: the smallest integer has no positive counterpart.
    std::int64_t value = 0;
    for (const char16_t unit : text) {
        if (!isDigit(unit)) break;
        if (__builtin_mul_overflow(value, std::int64_t{10}, &value) ||
            __builtin_sub_overflow(value, std::int64_t{unit - u'0'}, &value)) {
            return negative ? INT64_MIN : INT64_MAX;
        }
    }
    if (negative) return value;
    return value == INT64_MIN ? INT64_MAX : -value;
}

double doubleReading(std::u16string_view text) { return realReading<double>(text); }
float floatReading(std::u16string_view text) { return realReading<float>(text); }

bool booleanReading(std::u16string_view text) {
    text = skipWhiteSpace(text);
    takeSign(text);
    while (!text.empty() && text[0] == u'0') text.remove_prefix(1);
    if (text.empty()) return false;
    const char16_t next = text[0];
    return next == u'Y' || next == u'y' || next == u'T' || next == u't' || (next >= u'1' && next <= u'9');
}

}  // namespace velt::text
