// Any bytes are a property list of some form or are refused; one that was read is written in the binary form and read
// back as the same bytes.
#include "VELTRuntime/platform/foundation/property_list/property_list.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t count) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), count);
    id root;
    try {
        root = velt::readPropertyList(bytes);
    } catch (const velt::PropertyListError&) {
        return 0;
    }
    // XML would write a collection as often as it is reached, which may be more often than there is room for.
    const std::string written = velt::writePropertyList(root, velt::PropertyListForm::Binary);
    const id back = velt::readPropertyList(written, velt::Collections::Frozen);
    if (velt::writePropertyList(back, velt::PropertyListForm::Binary) != written) std::abort();
    return 0;
}
