#include "VELTRuntime/platform/foundation/collection_text.h"

#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/string.h"

namespace velt {

std::u16string elementText(const id& element) {
    if (isString(element)) return std::u16string(textOf(element));
    const id text = description(element);
    return text.isNil() ? std::u16string() : std::u16string(textOf(text));
}

}  // namespace velt
