// The text of collections: elements by their description, and an end to collections that hold themselves.
#pragma once

#include "VELTRuntime/platform/object/object.h"

#include <string>

namespace velt {

/// Marks a collection as being described on this thread while it exists.
class DescriptionScope {
public:
    explicit DescriptionScope(const NSObject& collection);
    ~DescriptionScope();
    DescriptionScope(const DescriptionScope&) = delete;
    DescriptionScope& operator=(const DescriptionScope&) = delete;
    /// The collection holds itself, or collections are nested deeper than a text could show.
    bool isNested() const { return nested_; }

private:
    const NSObject* collection_;
    const DescriptionScope* outer_;
    unsigned depth_;
    bool nested_ = false;
};

/// The text of one element: a string as it is, any other value by its description.
std::u16string elementText(const id& element);

}  // namespace velt
