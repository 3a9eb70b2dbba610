#include "VELTRuntime/platform/foundation/keyed_archive/geometry_text.h"

#include "VELTRuntime/values/number.h"

#include <charconv>

namespace velt {

namespace {

std::string pairText(const std::string& a, const std::string& b) {
    std::string text("{");
    return text.append(a).append(", ").append(b).append("}");
}
std::string pairText(double a, double b) { return pairText(realText(a), realText(b)); }

/// Reads a structure's text from left to right; after the first mismatch everything fails.
class GeometryReader {
public:
    /// Characters beyond ASCII have no place in a structure.
    explicit GeometryReader(std::u16string_view text) {
        for (const char16_t unit : text) text_ += unit < 0x80 ? static_cast<char>(unit) : '?';
    }

    NSPoint pair() {
        NSPoint pair;
        expect('{');
        pair.x = number();
        expect(',');
        pair.y = number();
        expect('}');
        return pair;
    }
    NSRect rect() {
        NSRect rect;
        expect('{');
        rect.origin = pair();
        expect(',');
        const NSPoint size = pair();
        rect.size = {size.x, size.y};
        expect('}');
        return rect;
    }
    bool isDone() {
        skipSpaces();
        return !failed_ && at_ == text_.size();
    }

private:
    void skipSpaces() {
        while (at_ < text_.size() && (text_[at_] == ' ' || text_[at_] == '\t')) ++at_;
    }
    void expect(char c) {
        skipSpaces();
        if (failed_ || at_ == text_.size() || text_[at_] != c) {
            failed_ = true;
        } else {
            ++at_;
        }
    }
    double number() {
        skipSpaces();
        double value = 0;
        if (failed_) return value;
        const char* begin = text_.data() + at_;
        const auto [end, error] = std::from_chars(begin, text_.data() + text_.size(), value);
        if (error != std::errc()) failed_ = true;
        at_ += static_cast<std::size_t>(end - begin);
        return value;
    }

    std::string text_;
    std::size_t at_ = 0;
    bool failed_ = false;
};

}  // namespace

std::string geometryText(const NSPoint& point) { return pairText(point.x, point.y); }
std::string geometryText(const NSSize& size) { return pairText(size.width, size.height); }
std::string geometryText(const NSRect& rect) { return pairText(geometryText(rect.origin), geometryText(rect.size)); }

std::optional<NSPoint> pointOf(std::u16string_view text) {
    GeometryReader reader(text);
    const NSPoint point = reader.pair();
    return reader.isDone() ? std::optional(point) : std::nullopt;
}

std::optional<NSSize> sizeOf(std::u16string_view text) {
    const auto pair = pointOf(text);
    return pair ? std::optional(NSSize{pair->x, pair->y}) : std::nullopt;
}

std::optional<NSRect> rectOf(std::u16string_view text) {
    GeometryReader reader(text);
    const NSRect rect = reader.rect();
    return reader.isDone() ? std::optional(rect) : std::nullopt;
}

}  // namespace velt
