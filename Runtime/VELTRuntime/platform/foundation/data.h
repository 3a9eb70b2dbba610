// Data: a sequence of bytes.
#pragma once

#include "VELTRuntime/platform/object/object.h"

#include <memory>
#include <string_view>
#include <utility>
#include <vector>

namespace velt {

/// Leaves new elements as they come: bytes that are about to be read need no zeros first.
template <class T> struct UnfilledAllocator : std::allocator<T> {
    template <class U> struct rebind { using other = UnfilledAllocator<U>; };
    template <class U> void construct(U* place) noexcept { ::new (static_cast<void*>(place)) U; }
    template <class U, class... Arguments> void construct(U* place, Arguments&&... arguments) {
        ::new (static_cast<void*>(place)) U(std::forward<Arguments>(arguments)...);
    }
};

/// The storage of data. What resize adds is not filled.
using Bytes = std::vector<char, UnfilledAllocator<char>>;

}  // namespace velt

/// Bytes that do not change.
class VELT_EXPORT NSData : public NSObject {
public:
    explicit NSData(std::string_view bytes = {}) : NSData(velt::Kind::Data, bytes) {}
    /// Takes the bytes over without copying them.
    explicit NSData(velt::Bytes&& bytes) : NSObject(velt::Kind::Data), bytes_(std::move(bytes)) {}

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
    velt::Bytes bytes_;
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
