#include "VELTRuntime/values/text/utf.h"

#include <cstdint>
#include <cstring>

namespace velt::text {

namespace {

constexpr char16_t kReplacement = 0xFFFD;

/// Length of the ASCII run at the start of the bytes.
std::size_t asciiRun(const char* bytes, std::size_t count) {
    constexpr std::uint64_t kHighBits = 0x8080808080808080u;
    std::size_t at = 0;
    for (; at + 32 <= count; at += 32) {
        std::uint64_t words[4];
        std::memcpy(words, bytes + at, sizeof words);
        if ((words[0] | words[1] | words[2] | words[3]) & kHighBits) break;
    }
    while (at < count && static_cast<unsigned char>(bytes[at]) < 0x80) ++at;
    return at;
}

struct Decoded {
    char32_t codePoint;
    std::size_t length;  // bytes consumed; of an ill-formed part, its maximal prefix
    bool wellFormed;
};

/// Decodes the sequence that begins at a byte of 0x80 or above.
Decoded decodeSequence(const unsigned char* bytes, std::size_t count) {
    const unsigned lead = bytes[0];
    std::size_t length = 0;
    unsigned low = 0x80, high = 0xBF;  // what the second byte may be
    char32_t codePoint = 0;
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2;
        codePoint = lead & 0x1F;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3;
        codePoint = lead & 0x0F;
        if (lead == 0xE0) low = 0xA0;
        if (lead == 0xED) high = 0x9F;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4;
        codePoint = lead & 0x07;
        if (lead == 0xF0) low = 0x90;
        if (lead == 0xF4) high = 0x8F;
    } else {
        return {kReplacement, 1, false};
    }
    for (std::size_t i = 1; i < length; ++i) {
        if (i == count || bytes[i] < low || bytes[i] > high) return {kReplacement, i, false};
        codePoint = (codePoint << 6) | (bytes[i] & 0x3F);
        low = 0x80;
        high = 0xBF;
    }
    return {codePoint, length, true};
}

char16_t* encode(char32_t codePoint, char16_t* out) {
    if (codePoint < 0x10000) {
        *out++ = static_cast<char16_t>(codePoint);
    } else {
        *out++ = static_cast<char16_t>(0xD7C0 + (codePoint >> 10));
        *out++ = static_cast<char16_t>(0xDC00 | (codePoint & 0x3FF));
    }
    return out;
}

std::optional<std::u16string> decode(std::string_view bytes, bool lenient) {
    std::u16string text(bytes.size(), u'\0');  // never more units than bytes
    char16_t* out = text.data();
    std::size_t at = 0;
    while (at < bytes.size()) {
        const std::size_t run = asciiRun(bytes.data() + at, bytes.size() - at);
        widenAscii(bytes.substr(at, run), out);
        out += run;
        at += run;
        while (at < bytes.size() && static_cast<unsigned char>(bytes[at]) >= 0x80) {
            const Decoded decoded =
                decodeSequence(reinterpret_cast<const unsigned char*>(bytes.data()) + at, bytes.size() - at);
            if (!decoded.wellFormed && !lenient) return std::nullopt;
            out = encode(decoded.codePoint, out);
            at += decoded.length;
        }
    }
    text.resize(static_cast<std::size_t>(out - text.data()));
    return text;
}

}  // namespace

bool isAscii(std::string_view bytes) { return asciiRun(bytes.data(), bytes.size()) == bytes.size(); }

void widenAscii(std::string_view bytes, char16_t* units) {
    for (std::size_t i = 0; i < bytes.size(); ++i) units[i] = static_cast<unsigned char>(bytes[i]);
}

std::optional<std::u16string> fromUtf8(std::string_view bytes) { return decode(bytes, false); }

std::u16string fromUtf8Lenient(std::string_view bytes) { return *decode(bytes, true); }

std::u16string fromAscii(std::string_view bytes) {
    std::u16string text(bytes.size(), kReplacement);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        if (byte < 0x80) text[i] = byte;
    }
    return text;
}

std::string toUtf8(std::u16string_view text) {
    std::string bytes;
    bytes.reserve(text.size() + text.size() / 2);
    for (std::size_t i = 0; i < text.size();) {
        if (text[i] < 0x80) {
            bytes += static_cast<char>(text[i++]);
            continue;
        }
        auto [c, length] = codePointAt(text, i);
        i += length;
        if (isSurrogate(c)) c = kReplacement;
        if (c < 0x800) {
            bytes += static_cast<char>(0xC0 | (c >> 6));
        } else {
            if (c < 0x10000) {
                bytes += static_cast<char>(0xE0 | (c >> 12));
            } else {
                bytes += static_cast<char>(0xF0 | (c >> 18));
                bytes += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
            }
            bytes += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        }
        bytes += static_cast<char>(0x80 | (c & 0x3F));
    }
    return bytes;
}

}  // namespace velt::text
