// Property lists of 50,000 dictionaries of five keys each, written and read. One form and one direction a run, so that
// the peak memory is its own: property_lists (write|read) (xml|binary) FILE
#include <VELTRuntime/VELTRuntime.h>
#include <VELTRuntime/platform/foundation/file_contents.h>
#include <VELTRuntime/platform/foundation/property_list/property_list.h>

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
        record->setObject(velt::string("Record number " + std::to_string(i)), "name"_v);
        record->setObject(VELT_ID(i), "number"_v);
        record->setObject(VELT_ID(static_cast<double>(i) / 8), "weight"_v);
        record->setObject(VELT_ID(static_cast<BOOL>(i % 2)), "active"_v);
        record->setObject(velt::string("Street " + std::to_string(i % 100)), "street"_v);
        list->append(record);
    }
    return list;
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 4) return 2;
    const bool isWriting = std::strcmp(arguments[1], "write") == 0, isXml = std::strcmp(arguments[2], "xml") == 0;
    const auto form = isXml ? velt::PropertyListForm::Xml : velt::PropertyListForm::Binary;
    const std::string name = std::string("plist_") + arguments[1] + "_" + arguments[2];
    if (isWriting) {
        const id list = records();
        std::string bytes;
        timeWork(name.c_str(), [&] {
            bytes = velt::writePropertyList(list, form);
            return 50000;
        });
        std::ofstream(arguments[3], std::ios::binary) << bytes;
    } else {
        const std::string bytes = velt::readFile(arguments[3]).value_or("");
        id list;
        timeWork(name.c_str(), [&] {
            list = velt::readPropertyList(bytes);
            return static_cast<long long>(velt::arrayOf(list)->count());
        });
    }
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::printf("peak_kilobytes %ld\n", usage.ru_maxrss);
}
