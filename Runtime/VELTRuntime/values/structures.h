// The native geometry structures and the values that wrap them.
#pragma once

#include "VELTRuntime/platform/object/object.h"

struct NSPoint {
    double x = 0, y = 0;
    friend bool operator==(const NSPoint&, const NSPoint&) = default;
};
struct NSSize {
    double width = 0, height = 0;
    friend bool operator==(const NSSize&, const NSSize&) = default;
};
struct NSRect {
    NSPoint origin;
    NSSize size;
    friend bool operator==(const NSRect&, const NSRect&) = default;
};
struct NSRange {
    unsigned long location = 0, length = 0;
    friend bool operator==(const NSRange&, const NSRange&) = default;
};

namespace velt {
inline constexpr const char* kPointCode = "{CGPoint=dd}";
inline constexpr const char* kSizeCode = "{CGSize=dd}";
inline constexpr const char* kRectCode = "{CGRect={CGPoint=dd}{CGSize=dd}}";
inline constexpr const char* kRangeCode = "{_NSRange=QQ}";
}  // namespace velt

/// A value object: a wrapped Point, Size, Rect or Range, never changed once made. Numbers are its subclass.
class VELT_EXPORT NSValue : public NSObject {
public:
    enum class Shape : std::uint8_t { Number, Point, Size, Rect, Range };

    explicit NSValue(const NSPoint& point);
    explicit NSValue(const NSSize& size);
    explicit NSValue(const NSRect& rect);
    explicit NSValue(const NSRange& range);

    static velt::Class& entry();
    velt::Class& isa() const override { return entry(); }
    /// "{1, 2}", "{{0, 0}, {10, 10}}": numbers in their shortest text.
    id description() const override;
    bool isEqual(const id& other) const override;
    std::size_t hash() const override;
    id copy() const override;

    Shape shape() const { return shape_; }
    /// The type code of the structure, a literal.
    const char* typeCode() const;

    /// The first fields of the structure read as the asked one; fields that it lacks are zero.
    NSPoint point() const;
    NSSize size() const;
    NSRect rect() const;
    NSRange range() const;

protected:
    NSValue() noexcept : NSObject(velt::Kind::Number), shape_(Shape::Number) {}

private:
    double field(unsigned index) const;
    unsigned long word(unsigned index) const;

    Shape shape_;
    union {
        double reals_[4];
        unsigned long words_[2];
    };
};

namespace velt {

/// The wrapped structure behind a value, or null when it is none of that shape.
VELT_EXPORT const NSValue* structureOf(const id& value, NSValue::Shape shape);
/// The wrapped structure of any shape behind a value, or null.
VELT_EXPORT const NSValue* structureOf(const id& value);

}  // namespace velt
