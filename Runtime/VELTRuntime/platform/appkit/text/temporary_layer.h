// Where a layout manager keeps the temporary attributes of a text; an editor may keep them in its own way.
#pragma once

#include "VELTRuntime/platform/foundation/run_list.h"

#include <functional>

namespace velt {

/// Attributes over a text, dictionaries or nil, that move with its edits.
class VELT_EXPORT TemporaryLayer {
public:
    TemporaryLayer() = default;
    virtual ~TemporaryLayer() = default;
    TemporaryLayer(const TemporaryLayer&) = delete;
    TemporaryLayer& operator=(const TemporaryLayer&) = delete;

    virtual std::size_t length() const = 0;
    /// What a unit below the length has, and the range around it that has the same.
    virtual id at(std::size_t position, NSRange& range) const = 0;
    /// Puts what a function makes of the attributes in their place. An exception of the function leaves everything as
    /// it was.
    virtual void change(NSRange range, const std::function<id(const id&)>& changed) = 0;
    /// A range of the text as it was has another length now; what came in has no attributes.
    virtual void textChanged(NSRange range, std::size_t newLength) = 0;
    virtual void visitOwned(OwnedVisitor& visitor) = 0;
};

}  // namespace velt
