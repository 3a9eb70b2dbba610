#include "VELTRuntime/platform/foundation/keyed_archive/keyed_unarchiver.h"

#include "VELTRuntime/platform/foundation/data.h"
#include "VELTRuntime/platform/foundation/file_contents.h"
#include "VELTRuntime/platform/foundation/keyed_archive/archive_damage.h"
#include "VELTRuntime/platform/foundation/keyed_archive/archive_keys.h"
#include "VELTRuntime/platform/foundation/keyed_archive/archive_reader.h"
#include "VELTRuntime/platform/foundation/property_list/property_list.h"
#include "VELTRuntime/platform/object/cycles.h"

using namespace velt;

namespace {

id readTree(std::string_view archive) {
    try {
        return readPropertyList(archive);
    } catch (const PropertyListError& error) {
        throw ArchiveDamage(error.what());
    }
}

}  // namespace

NSKeyedUnarchiver::NSKeyedUnarchiver(std::string_view archive)
    : reader_(std::make_unique<ArchiveReader>(readTree(archive), archive.size())) {}
NSKeyedUnarchiver::~NSKeyedUnarchiver() = default;

id NSKeyedUnarchiver::unarchive(std::string_view archive, std::string* failure) {
    const CollectionPause pause;  // nothing of what is made is dropped before the end
    try {
        return make<NSKeyedUnarchiver>(archive)->decodeRoot();
    } catch (const ArchiveDamage& damage) {
        if (failure) *failure = damage.reason();
        return nil;
    }
}

id NSKeyedUnarchiver::unarchiveFile(const std::string& path, std::string* failure) {
    const auto archive = readFile(path, failure);
    return archive ? unarchive(*archive, failure) : id();
}

bool NSKeyedUnarchiver::containsValue(const id& key) const { return !reader_->valueUnder(archiveKey(key)).isNil(); }

id NSKeyedUnarchiver::decodeObject(const id& key) {
    return reader_->object(reader_->valueUnder(archiveKey(key)), id(this));
}

id NSKeyedUnarchiver::decodeRoot() { return reader_->object(reader_->rootValue(), id(this)); }

void NSKeyedUnarchiver::describe(ClassBuilder<NSKeyedUnarchiver>& c) {
    c.method("unarchiveObjectWithData:", [](const id&, const id* a) {
         const NSData* data = to<NSData>(a[0]);
         return data ? unarchive(data->characters()) : id();
     }).method("unarchiveObjectWithFile:", [](const id&, const id* a) {
        return unarchiveFile(utf8(VELT_CSTRING(a[0])));
    });
}
