// NSCoder: what an object sees of an archive while it is written or read, values under keys.
#pragma once

#include "VELTRuntime/platform/object/class.h"
#include "VELTRuntime/values/structures.h"

/// The object that a class's `encodeWithCoder:` and `initWithCoder:` are given. Archivers take values, unarchivers give
/// them back; the other half of the messages raises "NSInvalidArgumentException". Keys are strings, unique within one
/// object. What is read under a key that was never written is nil, zero, False or empty.
class VELT_EXPORT NSCoder : public NSObject {
    VELT_OBJECT(NSCoder, NSObject)
public:
    /// Values are kept under keys. False unless a class says otherwise: a coder of no kind keeps nothing.
    virtual bool allowsKeyedCoding() const { return false; }
    /// Writes an object, shared or not, or nil. Raises "NSInvalidArgumentException" when its class cannot be coded.
    virtual void encodeObject(const id& object, const id& key);
    /// Writes a reference to an object, which becomes nil unless the object is also written by encodeObject.
    virtual void encodeConditionalObject(const id& object, const id& key);
    /// Writes a number, string or data in place.
    virtual void encodePlain(const id& value, const id& key);

    void encodeBool(bool value, const id& key);
    void encodeInteger(long value, const id& key);
    void encodeFloat(float value, const id& key);
    void encodeDouble(double value, const id& key);
    /// Writes the first bytes of a data value; raises "NSRangeException" when it has fewer.
    void encodeBytes(NSData* data, long length, const id& key);
    void encodePoint(NSPoint point, const id& key);
    void encodeSize(NSSize size, const id& key);
    void encodeRect(NSRect rect, const id& key);
    void encodeRange(NSRange range, const id& key);

    /// Something was written under the key.
    virtual bool containsValue(const id& key) const;
    /// The object under a key. An object that is asked for while it is being read itself is given as far as it is.
    virtual id decodeObject(const id& key);

    // A value of another kind under the key raises "NSInvalidUnarchiveOperationException".
    bool decodeBool(const id& key);
    long decodeInteger(const id& key);
    /// As decodeInteger; raises too when the number has more than 32 bits.
    int decodeInt(const id& key);
    float decodeFloat(const id& key);
    double decodeDouble(const id& key);
    /// The bytes under a key as a data value, or nil.
    id decodeBytes(const id& key);
    NSPoint decodePoint(const id& key);
    NSSize decodeSize(const id& key);
    NSRect decodeRect(const id& key);
    NSRange decodeRange(const id& key);

    static void describe(velt::ClassBuilder<NSCoder>& c);

private:
    [[noreturn]] void raiseCannot(const char* what) const;
    id numberUnder(const id& key);
    id textUnder(const id& key);
};

namespace velt {

/// The coder that an object is given. Raises "VLCastException" with "'NSCoder' expected" for anything else, nil too.
inline NSCoder& toCoder(const id& value) {
    if (!is<NSCoder>(value)) raiseClassExpected(NSCoder::entry());
    return *as<NSCoder>(value);
}

}  // namespace velt
