#include "VELTRuntime/platform/foundation/base64.h"

#include <array>

namespace velt {

namespace {

constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

constexpr std::array<signed char, 128> kValues = [] {
    std::array<signed char, 128> values{};
    values.fill(-1);
    for (std::size_t i = 0; i < kDigits.size(); ++i)
        values[static_cast<unsigned char>(kDigits[i])] = static_cast<signed char>(i);
    return values;
}();

unsigned byteAt(std::string_view bytes, std::size_t at) { return static_cast<unsigned char>(bytes[at]); }

}  // namespace

void appendBase64(std::string& text, std::string_view bytes) {
    text.reserve(text.size() + (bytes.size() + 2) / 3 * 4);
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        const std::size_t left = bytes.size() - i;
        const unsigned group =
            byteAt(bytes, i) << 16 | (left > 1 ? byteAt(bytes, i + 1) << 8 : 0) | (left > 2 ? byteAt(bytes, i + 2) : 0);
        text += kDigits[group >> 18];
        text += kDigits[(group >> 12) & 63];
        text += left > 1 ? kDigits[(group >> 6) & 63] : '=';
        text += left > 2 ? kDigits[group & 63] : '=';
    }
}

bool Base64Decoder::take(char16_t character) {
    if (character == ' ' || (character >= '\t' && character <= '\r')) return true;
    if (character == '=') return digits_ + ++padding_ <= 4 && digits_ >= 2;
    const int value = character < 128 ? kValues[character] : -1;
    if (value < 0 || padding_ > 0) return false;
    bits_ = bits_ << 6 | static_cast<unsigned>(value);
    if (++digits_ == 4) {
        bytes_ += static_cast<char>(bits_ >> 16);
        bytes_ += static_cast<char>(bits_ >> 8);
        bytes_ += static_cast<char>(bits_);
        bits_ = digits_ = 0;
    }
    return true;
}

std::optional<std::string> Base64Decoder::finish() {
    if (digits_ == 0 && padding_ == 0) return std::move(bytes_);
    if (digits_ + padding_ != 4) return std::nullopt;
    if (digits_ == 3) bytes_ += static_cast<char>(bits_ >> 10);
    bytes_ += static_cast<char>(digits_ == 3 ? bits_ >> 2 : bits_ >> 4);
    return std::move(bytes_);
}

}  // namespace velt
