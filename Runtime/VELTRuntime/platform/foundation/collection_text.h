// The text of collections: elements by their description, and an end to collections that hold themselves.
#pragma once

#include "VELTRuntime/platform/foundation/collection_walk.h"

#include <string>

namespace velt {

/// Marks a collection as being described on this thread while it exists.
class DescriptionScope {
public:
    explicit DescriptionScope(const NSObject& collection) : walk_(CollectionWalk::Purpose::Description, collection) {}
    /// The collection holds itself, or collections are nested deeper than a text could show.
    bool isNested() const { return walk_.isWithinItself() || walk_.depth() > kDeepest; }

private:
    static constexpr unsigned kDeepest = 200;
    CollectionWalk walk_;
};

/// The text of one element: a string as it is, any other value by its description.
std::u16string elementText(const id& element);

}  // namespace velt
