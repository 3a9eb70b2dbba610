#include "VELTRuntime/builtins/keyed_archives.h"

#include "VELTRuntime/builtins/location.h"
#include "VELTRuntime/builtins/string_arguments.h"
#include "VELTRuntime/platform/foundation/data.h"
#include "VELTRuntime/platform/foundation/keyed_archive/keyed_archiver.h"
#include "VELTRuntime/platform/foundation/keyed_archive/keyed_unarchiver.h"
#include "VELTRuntime/platform/object/message.h"

using namespace velt;

namespace {

[[noreturn]] void raiseReadFailed() { raise(kRuntimeException, "ReadKeyArchived failed"); }

}  // namespace

id VELT_READKEYEDARCHIVE(const id& source) {
    if (const NSData* data = dataOf(source)) {
        if (NSKeyedUnarchiver::unarchive(data->characters()).isNil()) raiseReadFailed();
        // The data goes on as if it were a location: programs rely on it.
        raiseNotUnderstood(source, "characterAtIndex:");
    }
    requireStrings(source);
    const auto archive = readLocation(locationOf(utf8(source)));
    id root = archive ? NSKeyedUnarchiver::unarchive(*archive) : id();
    if (root.isNil()) raiseReadFailed();
    return root;
}

id VELT_WRITEKEYEDARCHIVE(const id& object, const id& destination) {
    if (dataOf(destination)) {
        // The archive is made and dropped, the data stays as it is: programs rely on it.
        return boxResult(!NSKeyedArchiver::archive(object).empty());
    }
    requireStrings(destination);
    const std::string archive = NSKeyedArchiver::archive(object);
    return boxResult(writeLocation(locationOf(utf8(destination)), archive));
}
