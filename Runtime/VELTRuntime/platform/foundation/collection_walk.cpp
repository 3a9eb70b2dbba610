#include "VELTRuntime/platform/foundation/collection_walk.h"

#include "VELTRuntime/platform/object/class.h"
#include "VELTRuntime/platform/object/exception.h"

#include <array>

namespace velt {

namespace {

const CollectionWalk*& innermostOf(CollectionWalk::Purpose purpose) {
    constinit static thread_local std::array<const CollectionWalk*, 3> innermost{};
    return innermost[static_cast<std::size_t>(purpose)];
}

}  // namespace

CollectionWalk::CollectionWalk(Purpose purpose, const NSObject& collection, const NSObject* other)
    : collection_(&collection), other_(other), innermost_(innermostOf(purpose)), outer_(innermost_),
      depth_(outer_ ? outer_->depth_ + 1 : 0) {
    for (const CollectionWalk* walk = outer_; walk && !withinItself_; walk = walk->outer_) {
        withinItself_ = walk->collection_ == collection_ && walk->other_ == other_;
    }
    innermost_ = this;
}

CollectionWalk::~CollectionWalk() { innermost_ = outer_; }

void CollectionWalk::requireBearable(std::string_view operation, unsigned levels) const {
    if (depth_ <= levels) return;
    raise(kInvalidArgumentException, "'" + collection_->isa().name() + "' " + std::string(operation) +
                                         ": collections are nested deeper than " + std::to_string(levels) + " levels");
}

}  // namespace velt
