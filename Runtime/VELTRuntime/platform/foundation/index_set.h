// Sets of positions, such as the selected rows of a table: few ranges, however many positions.
#pragma once

#include "VELTRuntime/platform/object/class.h"
#include "VELTRuntime/values/structures.h"

#include <vector>

/// A set of positions from 0; it does not change.
class VELT_EXPORT NSIndexSet : public NSObject {
    VELT_OBJECT(NSIndexSet, NSObject)
public:
    /// What is answered for a position that there is not.
    static constexpr long kNotFound = 0x7FFFFFFFFFFFFFFF;

    NSIndexSet() = default;
    explicit NSIndexSet(long index) { add({static_cast<unsigned long>(index), 1}); }
    /// The positions of those ranges, which may overlap and be in any order.
    explicit NSIndexSet(const std::vector<NSRange>& ranges) {
        for (const NSRange& range : ranges) add(range);
    }

    id description() const override;
    bool isEqual(const id& other) const override;
    std::size_t hash() const override;
    id copy() const override;

    /// Ranges with gaps between them, in order.
    const std::vector<NSRange>& ranges() const { return ranges_; }
    long count() const;
    long firstIndex() const;
    long lastIndex() const;
    bool containsIndex(long index) const;
    long indexGreaterThan(long index) const;
    long indexLessThan(long index) const;
    static void describe(velt::ClassBuilder<NSIndexSet>& c);

private:
    void add(NSRange range);

    std::vector<NSRange> ranges_;
};
