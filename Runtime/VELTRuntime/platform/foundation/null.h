// The null object: stands where a collection has a place for a value and there is none.
#pragma once

#include "VELTRuntime/platform/object/object.h"

/// A null object.
class VELT_EXPORT NSNull final : public NSObject {
public:
    /// The one that the library itself uses, the same at every call.
    static const id& null();

    static velt::Class& entry();
    velt::Class& isa() const override { return entry(); }
    /// "<null>".
    id description() const override;
    /// All null objects are equal.
    bool isEqual(const id& other) const override;
    std::size_t hash() const override;
    id copy() const override;
};
