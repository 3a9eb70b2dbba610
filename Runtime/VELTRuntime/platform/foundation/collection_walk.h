// An end to walks over collections that hold themselves.
#pragma once

#include "VELTRuntime/platform/object/object.h"

#include <string_view>

namespace velt {

/// How deep collections that are compared may be nested.
constexpr unsigned kMostComparedLevels = 10'000;

/// Marks a collection, or a pair of them, as being walked over on this thread while it exists.
class CollectionWalk {
public:
    /// Walks of one purpose know nothing of those of another one.
    enum class Purpose { Description, Comparison, Values };
    explicit CollectionWalk(Purpose purpose, const NSObject& collection, const NSObject* other = nullptr);
    ~CollectionWalk();
    CollectionWalk(const CollectionWalk&) = delete;
    CollectionWalk& operator=(const CollectionWalk&) = delete;

    /// The same is being walked over further out: the collection holds itself.
    bool isWithinItself() const { return withinItself_; }
    /// How many walks of the purpose this one is within.
    unsigned depth() const { return depth_; }
    /// Raises NSInvalidArgumentException for an operation of a collection that lies deeper than a number of levels,
    /// which the stack can bear.
    void requireBearable(std::string_view operation, unsigned levels) const;

private:
    const NSObject* collection_;
    const NSObject* other_;
    const CollectionWalk*& innermost_;
    const CollectionWalk* outer_;
    unsigned depth_;
    bool withinItself_ = false;
};

}  // namespace velt
