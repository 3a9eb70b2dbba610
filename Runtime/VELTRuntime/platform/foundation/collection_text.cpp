#include "VELTRuntime/platform/foundation/collection_text.h"

#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/string.h"

namespace velt {

namespace {
constinit thread_local const DescriptionScope* innermost = nullptr;
constexpr unsigned kDeepest = 200;
}  // namespace

DescriptionScope::DescriptionScope(const NSObject& collection)
    : collection_(&collection), outer_(innermost), depth_(outer_ ? outer_->depth_ + 1 : 0) {
    nested_ = depth_ > kDeepest;
    for (const DescriptionScope* scope = outer_; scope && !nested_; scope = scope->outer_) {
        nested_ = scope->collection_ == collection_;
    }
    innermost = this;
}

DescriptionScope::~DescriptionScope() { innermost = outer_; }

std::u16string elementText(const id& element) {
    if (isString(element)) return std::u16string(textOf(element));
    const id text = description(element);
    return text.isNil() ? std::u16string() : std::u16string(textOf(text));
}

}  // namespace velt
