// Data: a sequence of bytes.
#pragma once

#include "VELTRuntime/platform/object/object.h"

#include <string_view>
#include <vector>

/// Bytes that do not change.
class VELT_EXPORT NSData : public NSObject {
public:
    explicit NSData(std::string_view bytes = {}) : NSData(velt::Kind::Data, bytes) {}

    static velt::Class& entry();
    velt::Class& isa() const override { return entry(); }
    /// "<68656c6c 6f>": the bytes in hexadecimal, four to a group.
    id description() const override;
    bool isEqual(const id& other) const override;
    std::size_t hash() const override;
    id copy() const override;

    std::size_t length() const { return bytes_.size(); }
    /// The bytes; valid until the data is changed or freed.
    std::string_view characters() const { return {bytes_.data(), bytes_.size()}; }
    static void describe(velt::ClassBuilder<NSData>& c);

protected:
    NSData(velt::Kind kind, std::string_view bytes) : NSObject(kind), bytes_(bytes.begin(), bytes.end()) {}
    std::vector<char> bytes_;
};

/// Bytes that may be changed in place.
class VELT_EXPORT NSMutableData final : public NSData {
public:
    explicit NSMutableData(std::string_view bytes = {}) : NSData(velt::Kind::MutableData, bytes) {}
    static velt::Class& entry();
    velt::Class& isa() const override { return entry(); }

    void append(std::string_view bytes) { bytes_.insert(bytes_.end(), bytes.begin(), bytes.end()); }
};

namespace velt {

/// The data behind a value, or null when it is none.
inline const NSData* dataOf(const id& value) {
    const bool isData = isKind(value.word(), Kind::Data) || isKind(value.word(), Kind::MutableData);
    return isData ? static_cast<const NSData*>(value.object()) : nullptr;
}

}  // namespace velt
