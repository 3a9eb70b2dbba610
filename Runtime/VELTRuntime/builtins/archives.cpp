#include "VELTRuntime/builtins/archives.h"

#include "VELTRuntime/builtins/location.h"
#include "VELTRuntime/builtins/string_arguments.h"
#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/data.h"
#include "VELTRuntime/platform/foundation/dictionary.h"
#include "VELTRuntime/platform/foundation/property_list/property_list.h"
#include "VELTRuntime/platform/object/class.h"

using namespace velt;

namespace {

/// The bytes at a location; raises the failure when they cannot be read.
std::string bytesAt(const id& location, const char* failed) {
    requireStrings(location);
    auto bytes = readLocation(locationOf(utf8(location)));
    if (!bytes) raise(kRuntimeException, failed);
    return std::move(*bytes);
}

/// The property list at a location, which has to be of a kind.
id propertyListAt(const id& location, bool (*isOfKind)(const id&), const char* failed) {
    const std::string bytes = bytesAt(location, failed);
    id root;
    try {
        root = readPropertyList(bytes, Collections::Frozen);
    } catch (const PropertyListError&) {
        root = nil;  // as a file that is not there
    }
    if (!isOfKind(root)) raise(kRuntimeException, failed);
    return root;
}

id written(std::string_view bytes, const id& location) {
    return boxResult(writeLocation(locationOf(utf8(location)), bytes));
}

id writtenAsPropertyList(const id& root, const id& location) {
    requireStrings(location);
    std::string bytes;
    try {
        bytes = writePropertyList(root, PropertyListForm::Xml);
    } catch (const PropertyListError&) {
        return boxResult(false);
    }
    return written(bytes, location);
}

}  // namespace

id VELT_READARRAY(const id& location) {
    return propertyListAt(
        location, [](const id& root) { return arrayOf(root) != nullptr; }, "ReadArray failed");
}

id VELT_READDICTIONARY(const id& location) {
    return propertyListAt(
        location, [](const id& root) { return dictionaryOf(root) != nullptr; }, "ReadDictionary failed");
}

id VELT_PLIST(const id& location) { return VELT_READDICTIONARY(location); }

id VELT_READDATA(const id& location) { return make<NSData>(bytesAt(location, "ReadData failed")); }

id VELT_WRITEARRAY(const id& array, const id& location) {
    if (!arrayOf(array)) raiseCast("'Array' expected");
    return writtenAsPropertyList(array, location);
}

id VELT_WRITEDICTIONARY(const id& dictionary, const id& location) {
    if (!dictionaryOf(dictionary)) raiseCast("'Dictionary' expected");
    return writtenAsPropertyList(dictionary, location);
}

id VELT_WRITEDATA(const id& data, const id& location) {
    const NSData* bytes = dataOf(data);
    if (!bytes) raiseCast("'Data' expected");
    requireStrings(location);
    return written(bytes->characters(), location);
}
