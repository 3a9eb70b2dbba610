// Reading of the ASCII form, which older programs wrote and people still write by hand:
//
//   { name = "a \"text\""; list = (one, two); bytes = <0fbd77>; }    // and files of entries without the braces
//
// Whatever is no collection and no data is a string.
#include "VELTRuntime/platform/foundation/data.h"
#include "VELTRuntime/platform/foundation/property_list/forms.h"
#include "VELTRuntime/values/string.h"
#include "VELTRuntime/values/text/utf.h"

#include <vector>

namespace velt::property_list {

namespace {

/// What octal escapes from 128 on mean: the form is older than Unicode and kept its first character set.
constexpr char16_t kOctalCharacters[128] = {
    0x00A0, 0x00C0, 0x00C1, 0x00C2, 0x00C3, 0x00C4, 0x00C5, 0x00C7, 0x00C8, 0x00C9, 0x00CA, 0x00CB, 0x00CC,
    0x00CD, 0x00CE, 0x00CF, 0x00D0, 0x00D1, 0x00D2, 0x00D3, 0x00D4, 0x00D5, 0x00D6, 0x00D9, 0x00DA, 0x00DB,
    0x00DC, 0x00DD, 0x00DE, 0x00B5, 0x00D7, 0x00F7, 0x00A9, 0x00A1, 0x00A2, 0x00A3, 0x2044, 0x00A5, 0x0192,
    0x00A7, 0x00A4, 0x2019, 0x201C, 0x00AB, 0x2039, 0x203A, 0xFB01, 0xFB02, 0x00AE, 0x2013, 0x2020, 0x2021,
    0x00B7, 0x00A6, 0x00B6, 0x2022, 0x201A, 0x201E, 0x201D, 0x00BB, 0x2026, 0x2030, 0x00AC, 0x00BF, 0x00B9,
    0x02CB, 0x00B4, 0x02C6, 0x02DC, 0x00AF, 0x02D8, 0x02D9, 0x00A8, 0x00B2, 0x02DA, 0x00B8, 0x00B3, 0x02DD,
    0x02DB, 0x02C7, 0x2014, 0x00B1, 0x00BC, 0x00BD, 0x00BE, 0x00E0, 0x00E1, 0x00E2, 0x00E3, 0x00E4, 0x00E5,
    0x00E7, 0x00E8, 0x00E9, 0x00EA, 0x00EB, 0x00EC, 0x00C6, 0x00ED, 0x00AA, 0x00EE, 0x00EF, 0x00F0, 0x00F1,
    0x0141, 0x00D8, 0x0152, 0x00BA, 0x00F2, 0x00F3, 0x00F4, 0x00F5, 0x00F6, 0x00E6, 0x00F9, 0x00FA, 0x00FB,
    0x0131, 0x00FC, 0x00FD, 0x0142, 0x00F8, 0x0153, 0x00DF, 0x00FE, 0x00FF, 0xFFFD, 0xFFFD};

bool isBlank(char16_t unit) {
    return unit == ' ' || (unit >= '\t' && unit <= '\r') || unit == 0x2028 || unit == 0x2029;
}

bool isPlain(char16_t unit) {
    return (unit >= 'a' && unit <= 'z') || (unit >= 'A' && unit <= 'Z') || (unit >= '0' && unit <= '9') ||
           unit == '_' || unit == '$' || unit == '/' || unit == ':' || unit == '.' || unit == '-';
}

int digit(char16_t unit, int base) {
    int value = 99;
    if (unit >= '0' && unit <= '9') value = unit - '0';
    if (unit >= 'a' && unit <= 'f') value = unit - 'a' + 10;
    if (unit >= 'A' && unit <= 'F') value = unit - 'A' + 10;
    return value < base ? value : -1;
}

/// The text of a file: UTF-16 after a byte order mark, UTF-8 otherwise.
std::u16string decoded(std::string_view bytes) {
    const bool isBig = bytes.starts_with("\xFE\xFF");
    if (isBig || bytes.starts_with("\xFF\xFE")) {
        std::u16string text;
        for (std::size_t i = 2; i + 1 < bytes.size(); i += 2) {
            const auto first = static_cast<unsigned char>(bytes[i]), second = static_cast<unsigned char>(bytes[i + 1]);
            text += static_cast<char16_t>(isBig ? first << 8 | second : second << 8 | first);
        }
        return text;
    }
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
    auto text = text::fromUtf8(bytes);
    if (!text) throw PropertyListError("line 1, column 1: the text is neither UTF-8 nor UTF-16");
    return std::move(*text);
}

class AsciiReader {
public:
    AsciiReader(std::string_view bytes, Collections collections) : text_(decoded(bytes)), collections_(collections) {}

    id document() {
        skipBlanks();
        if (isAtEnd()) fail("there is no value");
        const std::size_t start = at_;
        id root = value(0);
        skipBlanks();
        if (isAtEnd()) return root;
        if (!isString(root) || (peek() != '=' && peek() != ';')) fail("something follows the value");
        at_ = start;
        root = entries(1);
        if (!isAtEnd()) fail("something follows the value");
        return root;
    }

private:
    [[noreturn]] void fail(const std::string& what) const {
        std::size_t line = 1, column = 1;
        for (std::size_t i = 0; i < at_ && i < text_.size(); ++i) {
            if (text_[i] == '\n') {
                ++line;
                column = 1;
            } else {
                ++column;
            }
        }
        throw PropertyListError("line " + std::to_string(line) + ", column " + std::to_string(column) + ": " + what);
    }

    bool isAtEnd() const { return at_ >= text_.size(); }
    /// The present unit; 0 at the end.
    char16_t peek(std::size_t ahead = 0) const { return at_ + ahead < text_.size() ? text_[at_ + ahead] : u'\0'; }
    bool takeIf(char16_t unit) {
        if (isAtEnd() || text_[at_] != unit) return false;
        ++at_;
        return true;
    }

    /// Goes beyond blanks and comments.
    void skipBlanks() {
        for (;;) {
            while (!isAtEnd() && isBlank(peek())) ++at_;
            if (peek() == '/' && peek(1) == '/') {
                while (!isAtEnd() && peek() != '\n' && peek() != '\r') ++at_;
            } else if (peek() == '/' && peek(1) == '*') {
                const std::size_t end = text_.find(u"*/", at_ + 2);
                if (end == text_.npos) fail("a comment without an end");
                at_ = end + 2;
            } else {
                return;
            }
        }
    }

    id value(unsigned level) {
        if (level >= kMostPropertyListLevels && (peek() == '{' || peek() == '(')) {
            fail("more than " + std::to_string(kMostPropertyListLevels) + " collections within each other");
        }
        if (takeIf('{')) return dictionary(level + 1);
        if (takeIf('(')) return array(level + 1);
        if (takeIf('<')) return data();
        return string();
    }

    id dictionary(unsigned level) {
        id made = entries(level);
        if (!takeIf('}')) fail("\"}\" is missing");
        return made;
    }
    /// Entries up to a closing brace or the end.
    id entries(unsigned level) {
        const std::size_t base = waiting_.size();
        for (skipBlanks(); !isAtEnd() && peek() != '}'; skipBlanks()) {
            waiting_.push_back(string());
            skipBlanks();
            if (takeIf('=')) {
                skipBlanks();
                waiting_.push_back(value(level));
                skipBlanks();
            } else {
                waiting_.push_back(id(waiting_.back()));  // a key alone stands for itself
            }
            if (!takeIf(';')) fail("\";\" is missing");
        }
        id made = newDictionary(std::span(waiting_).subspan(base), collections_);
        waiting_.resize(base);
        return made;
    }

    id array(unsigned level) {
        const std::size_t base = waiting_.size();
        for (skipBlanks(); peek() != ')'; skipBlanks()) {
            waiting_.push_back(value(level));
            skipBlanks();
            if (!takeIf(',')) break;
        }
        if (!takeIf(')')) fail("\")\" is missing");
        id made = newArray(std::span(waiting_).subspan(base), collections_);
        waiting_.resize(base);
        return made;
    }

    id data() {
        std::string bytes;
        int half = -1;
        for (skipBlanks(); !takeIf('>'); skipBlanks()) {
            const int value = digit(peek(), 16);
            if (isAtEnd() || value < 0) fail("no hexadecimal digit");
            ++at_;
            if (half >= 0) bytes += static_cast<char>(half << 4 | value);
            half = half >= 0 ? -1 : value;
        }
        if (half >= 0) fail("half a byte");
        return make<NSData>(bytes);
    }

    id string() {
        const char16_t quote = peek();
        if (quote == '"' || quote == '\'') return quoted(quote);
        const std::size_t start = at_;
        while (!isAtEnd() && isPlain(peek())) ++at_;
        if (at_ == start) fail(isAtEnd() ? "a value is missing" : "no value begins so");
        return cache_.string(std::u16string_view(text_).substr(start, at_ - start));
    }

    id quoted(char16_t quote) {
        ++at_;
        std::u16string content;
        while (!takeIf(quote)) {
            if (isAtEnd()) fail("a string without an end");
            const char16_t unit = text_[at_++];
            content += unit == '\\' ? escaped() : unit;
        }
        return cache_.string(content);
    }
    /// The character of an escape whose backslash was taken.
    char16_t escaped() {
        if (isAtEnd()) fail("a string without an end");
        const char16_t unit = text_[at_];
        if (digit(unit, 8) >= 0) {
            const unsigned code = number(8, 3);
            return code < 128 ? static_cast<char16_t>(code) : kOctalCharacters[(code - 128) & 127];
        }
        ++at_;
        switch (unit) {
        case 'a': return '\a';
        case 'b': return '\b';
        case 'f': return '\f';
        case 'n': return '\n';
        case 'r': return '\r';
        case 't': return '\t';
        case 'v': return '\v';
        case 'U':
            if (digit(peek(), 16) < 0) fail("no hexadecimal digit");
            return static_cast<char16_t>(number(16, 4));
        default: return unit;
        }
    }
    /// A number of up to so many digits.
    unsigned number(int base, int most) {
        unsigned value = 0;
        for (int i = 0; i < most && !isAtEnd() && digit(peek(), base) >= 0; ++i) {
            value = value * static_cast<unsigned>(base) + static_cast<unsigned>(digit(text_[at_++], base));
        }
        return value;
    }

    std::u16string text_;
    Collections collections_;
    std::size_t at_ = 0;
    StringCache cache_;
    std::vector<id> waiting_;
};

}  // namespace

id readAscii(std::string_view bytes, Collections collections) { return AsciiReader(bytes, collections).document(); }

}  // namespace velt::property_list
