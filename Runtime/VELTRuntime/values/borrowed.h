// A word that stays owned by somebody else, seen as a value.
#pragma once

#include "VELTRuntime/values/value.h"

namespace velt {

/// A borrowed word as a value, without counting an owner. Inline operators pass words so that their operands' variables
/// can stay in registers.
class Borrowed {
public:
    explicit Borrowed(Word word) : value_(id::adopt(word)) {}
    ~Borrowed() { value_.take(); }
    Borrowed(const Borrowed&) = delete;
    Borrowed& operator=(const Borrowed&) = delete;
    operator const id&() const { return value_; }

private:
    id value_;
};

}  // namespace velt
