// A keyed archive of 50,000 dictionaries of five keys each, written and read: keyed_archives (write|read) FILE
#include <VELTRuntime/VELTRuntime.h>
#include <VELTRuntime/platform/foundation/file_contents.h>
#include <VELTRuntime/platform/foundation/keyed_archive/keyed_archiver.h>
#include <VELTRuntime/platform/foundation/keyed_archive/keyed_unarchiver.h>

#include "work_timer.h"

#include <cstring>
#include <fstream>
#include <string>
#include <sys/resource.h>

namespace {

id records() {
    velt::Ref<NSMutableArray> list = velt::make<NSMutableArray>();
    for (long i = 0; i < 50000; ++i) {
        velt::Ref<NSMutableDictionary> record = velt::make<NSMutableDictionary>();
        record->setObject(velt::frozenString("Record number " + std::to_string(i)), "name"_v);
        record->setObject(VELT_ID(i), "number"_v);
        record->setObject(VELT_ID(static_cast<double>(i) / 8), "weight"_v);
        record->setObject(VELT_ID(static_cast<BOOL>(i % 2)), "active"_v);
        record->setObject(velt::frozenString("Street " + std::to_string(i % 100)), "street"_v);
        list->append(record);
    }
    return list;
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 3) return 2;
    if (std::strcmp(arguments[1], "write") == 0) {
        const id list = records();
        std::string bytes;
        timeWork("archive_write", [&] {
            bytes = NSKeyedArchiver::archive(list);
            return 50000;
        });
        std::ofstream(arguments[2], std::ios::binary) << bytes;
    } else {
        const std::string bytes = velt::readFile(arguments[2]).value_or("");
        id list;
        timeWork("archive_read", [&] {
            list = NSKeyedUnarchiver::unarchive(bytes);
            return static_cast<long long>(velt::arrayOf(list)->count());
        });
    }
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::printf("peak_kilobytes %ld\n", usage.ru_maxrss);
}
