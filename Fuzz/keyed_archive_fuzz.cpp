// Whatever the bytes, an archive is read or refused; what was read can be written, and reads back.
#include "VELTRuntime/platform/foundation/keyed_archive/keyed_archiver.h"
#include "VELTRuntime/platform/foundation/keyed_archive/keyed_unarchiver.h"
#include "VELTRuntime/platform/object/cycles.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
    {
        std::string failure;
        const id root = NSKeyedUnarchiver::unarchive({reinterpret_cast<const char*>(bytes), count}, &failure);
        if (root.isNil()) return 0;
        const std::string written = NSKeyedArchiver::archive(root);
        if (NSKeyedUnarchiver::unarchive(written, &failure).isNil()) std::abort();
    }
    // Graphs that hold themselves must not pile up.
    velt::collectCycles();
    return 0;
}
