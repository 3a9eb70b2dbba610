// A word that somebody else owns, seen as a value.
#pragma once

#include "VELTRuntime/values/value.h"

namespace velt {

/// A borrowed word as a value, without counting an owner. Operators pass words so that their operands' variables can
/// stay in registers; who goes through many objects spares them an owner more and less, which would make each of them a
/// candidate for the collector of cycles.
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
