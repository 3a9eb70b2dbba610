#include "VELTRuntime/platform/foundation/keyed_archive/coder.h"

#include "VELTRuntime/platform/foundation/data.h"
#include "VELTRuntime/platform/foundation/keyed_archive/archive_damage.h"
#include "VELTRuntime/platform/foundation/keyed_archive/geometry_text.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/boxing.h"
#include "VELTRuntime/values/string.h"

using velt::ArchiveDamage;

namespace {

[[noreturn]] void raiseOtherKind(const id& key, const char* wanted) {
    throw ArchiveDamage("the value under key '" + velt::utf8(key) + "' is no " + wanted);
}

/// The keys of the two halves of a range, which has no place for both under one key.
id rangeKey(const id& key, std::string_view half) {
    return velt::string(velt::utf8(VELT_CSTRING(key)) + std::string(half));
}
id locationKey(const id& key) { return rangeKey(key, ".location"); }
id lengthKey(const id& key) { return rangeKey(key, ".length"); }

}  // namespace

void NSCoder::raiseCannot(const char* what) const {
    velt::raise(velt::kInvalidArgumentException, "'" + isa().name() + "' objects cannot " + what);
}

void NSCoder::encodeObject(const id&, const id&) { raiseCannot("encode"); }
void NSCoder::encodeConditionalObject(const id&, const id&) { raiseCannot("encode"); }
void NSCoder::encodePlain(const id&, const id&) { raiseCannot("encode"); }
bool NSCoder::containsValue(const id&) const { raiseCannot("decode"); }
id NSCoder::decodeObject(const id&) { raiseCannot("decode"); }

void NSCoder::encodeBool(bool value, const id& key) { encodePlain(VELT_ID(static_cast<BOOL>(value)), key); }
void NSCoder::encodeInteger(long value, const id& key) { encodePlain(VELT_ID(value), key); }
void NSCoder::encodeFloat(float value, const id& key) { encodePlain(VELT_ID(value), key); }
void NSCoder::encodeDouble(double value, const id& key) { encodePlain(VELT_ID(value), key); }

void NSCoder::encodeBytes(NSData* data, long length, const id& key) {
    const std::string_view bytes = data ? data->characters() : std::string_view();
    if (length < 0 || static_cast<std::size_t>(length) > bytes.size()) {
        velt::raiseRange("'" + isa().name() + "' encodeBytes:length:forKey:", length, bytes.size() + 1);
    }
    encodePlain(velt::make<NSData>(bytes.substr(0, static_cast<std::size_t>(length))), key);
}

void NSCoder::encodePoint(NSPoint point, const id& key) {
    encodeObject(velt::frozenString(velt::geometryText(point)), key);
}
void NSCoder::encodeSize(NSSize size, const id& key) {
    encodeObject(velt::frozenString(velt::geometryText(size)), key);
}
void NSCoder::encodeRect(NSRect rect, const id& key) {
    encodeObject(velt::frozenString(velt::geometryText(rect)), key);
}
void NSCoder::encodeRange(NSRange range, const id& key) {
    encodePlain(VELT_ID(range.location), locationKey(key));
    encodePlain(VELT_ID(range.length), lengthKey(key));
}

id NSCoder::numberUnder(const id& key) {
    id value = decodeObject(key);
    if (!value.isNil() && !velt::isNumber(value)) raiseOtherKind(key, "number");
    return value;
}

bool NSCoder::decodeBool(const id& key) {
    const id number = numberUnder(key);
    return !number.isNil() && velt::booleanReading(number.word());
}
long NSCoder::decodeInteger(const id& key) {
    const id number = numberUnder(key);
    return number.isNil() ? 0 : velt::integerReading(number.word());
}
int NSCoder::decodeInt(const id& key) {
    const long value = decodeInteger(key);
    if (value != static_cast<int>(value)) raiseOtherKind(key, "number of 32 bits");
    return static_cast<int>(value);
}
float NSCoder::decodeFloat(const id& key) {
    const id number = numberUnder(key);
    return number.isNil() ? 0 : velt::floatReading(number.word());
}
double NSCoder::decodeDouble(const id& key) {
    const id number = numberUnder(key);
    return number.isNil() ? 0 : velt::doubleReading(number.word());
}

id NSCoder::decodeBytes(const id& key) {
    id value = decodeObject(key);
    if (!value.isNil() && !velt::dataOf(value)) raiseOtherKind(key, "data");
    return value;
}

id NSCoder::textUnder(const id& key) {
    id value = decodeObject(key);
    if (!value.isNil() && !velt::isString(value)) raiseOtherKind(key, "structure");
    return value;
}

NSPoint NSCoder::decodePoint(const id& key) {
    const id text = textUnder(key);
    if (text.isNil()) return {};
    const auto point = velt::pointOf(velt::textOf(text));
    if (!point) raiseOtherKind(key, "point");
    return *point;
}
NSSize NSCoder::decodeSize(const id& key) {
    const id text = textUnder(key);
    if (text.isNil()) return {};
    const auto size = velt::sizeOf(velt::textOf(text));
    if (!size) raiseOtherKind(key, "size");
    return *size;
}
NSRect NSCoder::decodeRect(const id& key) {
    const id text = textUnder(key);
    if (text.isNil()) return {};
    const auto rect = velt::rectOf(velt::textOf(text));
    if (!rect) raiseOtherKind(key, "rectangle");
    return *rect;
}
NSRange NSCoder::decodeRange(const id& key) {
    const auto half = [this](const id& halfKey) { return static_cast<unsigned long>(decodeInteger(halfKey)); };
    return {half(locationKey(key)), half(lengthKey(key))};
}

void NSCoder::describe(velt::ClassBuilder<NSCoder>& c) {
    c.method("allowsKeyedCoding", &NSCoder::allowsKeyedCoding)
        .method("encodeObject:forKey:", &NSCoder::encodeObject)
        .method("encodeConditionalObject:forKey:", &NSCoder::encodeConditionalObject)
        .method("encodeBool:forKey:", &NSCoder::encodeBool)
        .method("encodeInt:forKey:", &NSCoder::encodeInteger)
        .method("encodeInt32:forKey:", &NSCoder::encodeInteger)
        .method("encodeInt64:forKey:", &NSCoder::encodeInteger)
        .method("encodeInteger:forKey:", &NSCoder::encodeInteger)
        .method("encodeFloat:forKey:", &NSCoder::encodeFloat)
        .method("encodeDouble:forKey:", &NSCoder::encodeDouble)
        .method("encodeBytes:length:forKey:", &NSCoder::encodeBytes)
        .method("encodePoint:forKey:", &NSCoder::encodePoint)
        .method("encodeSize:forKey:", &NSCoder::encodeSize)
        .method("encodeRect:forKey:", &NSCoder::encodeRect)
        .method("encodeRange:forKey:", &NSCoder::encodeRange)
        .method("containsValueForKey:", &NSCoder::containsValue)
        .method("decodeObjectForKey:", &NSCoder::decodeObject)
        .method("decodeBoolForKey:", &NSCoder::decodeBool)
        .method("decodeIntForKey:", &NSCoder::decodeInt)
        .method("decodeInt32ForKey:", &NSCoder::decodeInt)
        .method("decodeInt64ForKey:", &NSCoder::decodeInteger)
        .method("decodeIntegerForKey:", &NSCoder::decodeInteger)
        .method("decodeFloatForKey:", &NSCoder::decodeFloat)
        .method("decodeDoubleForKey:", &NSCoder::decodeDouble)
        .method("decodeBytesForKey:", &NSCoder::decodeBytes)
        .method("decodePointForKey:", &NSCoder::decodePoint)
        .method("decodeSizeForKey:", &NSCoder::decodeSize)
        .method("decodeRectForKey:", &NSCoder::decodeRect)
        .method("decodeRangeForKey:", &NSCoder::decodeRange);
}
