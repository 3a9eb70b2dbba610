// Arrays: ordered lists of values, positions from 0.
#pragma once

#include "VELTRuntime/platform/foundation/value_list.h"
#include "VELTRuntime/platform/object/object.h"

namespace velt {
struct UnarchivedFill;
}

/// An array that does not change.
class VELT_EXPORT NSArray : public NSObject {
public:
    NSArray() : NSArray(velt::Kind::Array) {}
    /// An array of those values, shared.
    explicit NSArray(std::span<const id> values) : NSArray(velt::Kind::Array) { append(values); }
    explicit NSArray(velt::MovedValues values) : NSArray(velt::Kind::Array) { take(values); }

    static velt::Class& entry();
    velt::Class& isa() const override { return entry(); }
    /// "(1, 2, abc)"; an array within itself shows as "(...)".
    id description() const override;
    /// The other is an array of the same length with equal elements in order.
    bool isEqual(const id& other) const override;
    std::size_t hash() const override;
    id copy() const override;
    void visitOwned(velt::OwnedVisitor& visitor) override;

    std::size_t count() const { return values_.size(); }
    std::span<const id> items() const { return values_.items(); }
    /// The element at that position; raises "NSRangeException" beyond the end.
    const id& at(long position) const {
        if (VELT_UNLIKELY(static_cast<std::size_t>(position) >= values_.size()))
            raiseOutOfRange("objectAtIndex:", position);
        return values_[static_cast<std::size_t>(position)];
    }
    /// Position of the first element equal to the value, or -1.
    long indexOf(const id& value) const;
    static void describe(velt::ClassBuilder<NSArray>& c);

protected:
    friend velt::UnarchivedFill;
    explicit NSArray(velt::Kind kind) : NSObject(kind) {}
    void append(std::span<const id> values);
    void take(velt::MovedValues moved) {
        values_.reserve(moved.values.size());
        for (id& value : moved.values) values_.append(std::move(value));
    }
    [[noreturn]] void raiseOutOfRange(const char* operation, long position) const;

    velt::ValueList values_;
};

/// An array that may be changed in place. Positions beyond the end raise "NSRangeException", a nil element raises
/// "NSInvalidArgumentException"; a failed change changes nothing. Who observes a property that holds the array hears of
/// every insertion, removal and replacement.
class VELT_EXPORT NSMutableArray final : public NSArray {
public:
    NSMutableArray() : NSArray(velt::Kind::MutableArray) {}
    explicit NSMutableArray(std::span<const id> values) : NSMutableArray() { NSArray::append(values); }
    explicit NSMutableArray(velt::MovedValues values) : NSMutableArray() { take(values); }

    static velt::Class& entry();
    velt::Class& isa() const override { return entry(); }

    void reserve(std::size_t capacity) { values_.reserve(capacity); }
    void append(const id& value) {
        requireElement(value, "addObject:");
        if (isAttached()) return insertObserved(value, count());
        values_.append(value);
    }
    void appendAll(const NSArray& other);
    void insert(const id& value, long position);
    void replace(long position, const id& value) {
        requireElement(value, "replaceObjectAtIndex:withObject:");
        if (VELT_UNLIKELY(static_cast<std::size_t>(position) >= values_.size())) {
            raiseOutOfRange("replaceObjectAtIndex:withObject:", position);
        }
        if (isAttached()) return replaceObserved(static_cast<std::size_t>(position), value);
        id dropped = std::exchange(values_[static_cast<std::size_t>(position)], value);
    }
    void remove(long position);
    void removeAll();
    static void describe(velt::ClassBuilder<NSMutableArray>& c);

private:
    static void requireElement(const id& value, const char* operation) {
        if (VELT_UNLIKELY(value.isNil())) raiseNilElement(operation);
    }
    [[noreturn]] static void raiseNilElement(const char* operation);
    void insertObserved(const id& value, std::size_t position);
    void replaceObserved(std::size_t position, const id& value);
};

namespace velt {

/// The array behind a value, or null when it is none.
inline NSArray* arrayOf(const id& value) { return isArray(value) ? static_cast<NSArray*>(value.object()) : nullptr; }
/// The mutable array behind a value, or null when it is none.
inline NSMutableArray* mutableArrayOf(const id& value) {
    return isKind(value.word(), Kind::MutableArray) ? static_cast<NSMutableArray*>(value.object()) : nullptr;
}

}  // namespace velt
