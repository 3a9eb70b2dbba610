#include "VELTRuntime/values/structures.h"

#include "VELTRuntime/platform/object/class.h"
#include "VELTRuntime/values/number.h"
#include "VELTRuntime/values/string.h"

NSValue::NSValue(const NSPoint& p) : NSObject(velt::Kind::Structure), shape_(Shape::Point), reals_{p.x, p.y, 0, 0} {}
NSValue::NSValue(const NSSize& s)
    : NSObject(velt::Kind::Structure), shape_(Shape::Size), reals_{s.width, s.height, 0, 0} {}
NSValue::NSValue(const NSRect& r)
    : NSObject(velt::Kind::Structure),
      shape_(Shape::Rect), reals_{r.origin.x, r.origin.y, r.size.width, r.size.height} {}
NSValue::NSValue(const NSRange& r)
    : NSObject(velt::Kind::Structure), shape_(Shape::Range), words_{r.location, r.length} {}

velt::Class& NSValue::entry() {
    static velt::Class& cls = velt::declareClass<NSValue>("NSValue", &NSObject::entry());
    return cls;
}

const char* NSValue::typeCode() const {
    switch (shape_) {
    case Shape::Point: return velt::kPointCode;
    case Shape::Size: return velt::kSizeCode;
    case Shape::Rect: return velt::kRectCode;
    case Shape::Range: return velt::kRangeCode;
    case Shape::Number: break;
    }
    return velt::typeCode(id(const_cast<NSValue*>(this)));
}

// A structure asked for as another shape gives what its own fields hold, in order: programs that mix Point and Size
// get their two numbers.
double NSValue::field(unsigned index) const {
    if (shape_ == Shape::Number) return 0;
    if (shape_ == Shape::Range) return index < 2 ? static_cast<double>(words_[index]) : 0;
    return reals_[index];
}

unsigned long NSValue::word(unsigned index) const {
    if (shape_ == Shape::Range) return words_[index];
    return static_cast<unsigned long>(velt::truncated(field(index)));
}

NSPoint NSValue::point() const { return {field(0), field(1)}; }
NSSize NSValue::size() const { return {field(0), field(1)}; }
NSRect NSValue::rect() const { return {{field(0), field(1)}, {field(2), field(3)}}; }
NSRange NSValue::range() const { return {word(0), word(1)}; }

id NSValue::description() const {
    const auto pair = [](const std::string& a, const std::string& b) { return "{" + a + ", " + b + "}"; };
    const auto real = [this](unsigned i) { return velt::realText(reals_[i]); };
    switch (shape_) {
    case Shape::Range: return velt::string(pair(std::to_string(words_[0]), std::to_string(words_[1])));
    case Shape::Rect: return velt::string(pair(pair(real(0), real(1)), pair(real(2), real(3))));
    default: return velt::string(pair(real(0), real(1)));
    }
}

bool NSValue::isEqual(const id& other) const {
    const NSValue* value = velt::structureOf(other, shape_);
    if (!value) return false;
    if (shape_ == Shape::Range) return range() == value->range();
    return rect() == value->rect();
}

std::size_t NSValue::hash() const {
    std::size_t hash = static_cast<std::size_t>(shape_);
    const unsigned fields = shape_ == Shape::Rect ? 4 : 2;
    for (unsigned i = 0; i < fields; ++i) {
        // -0.0 equals 0.0 and must hash alike.
        const std::uint64_t bits =
            shape_ == Shape::Range ? words_[i] : std::bit_cast<std::uint64_t>(reals_[i] == 0 ? 0.0 : reals_[i]);
        hash = (hash ^ bits) * 0x9E3779B97F4A7C15u;
        hash ^= hash >> 29;
    }
    return hash;
}

id NSValue::copy() const { return id(const_cast<NSValue*>(this)); }

namespace velt {

const NSValue* structureOf(const id& value) {
    return isKind(value.word(), Kind::Structure) ? static_cast<const NSValue*>(value.object()) : nullptr;
}

const NSValue* structureOf(const id& value, NSValue::Shape shape) {
    const NSValue* structure = structureOf(value);
    return structure && structure->shape() == shape ? structure : nullptr;
}

}  // namespace velt
