#include "VELTRuntime/platform/foundation/process_info.h"

#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/bundle.h"
#include "VELTRuntime/platform/foundation/dictionary.h"
#include "VELTRuntime/platform/foundation/file_contents.h"
#include "VELTRuntime/platform/foundation/shared_object.h"
#include "VELTRuntime/values/string.h"

#include <climits>
#include <unistd.h>

VELT_SERVICE(NSProcessInfo, processInfo)

id NSProcessInfo::arguments() const {
    velt::Ref<NSMutableArray> result = velt::make<NSMutableArray>();
    const auto contents = velt::readFile("/proc/self/cmdline");
    std::string_view rest = contents ? std::string_view(*contents) : std::string_view();
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('\0'), rest.size());
        result->append(velt::string(rest.substr(0, end)));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return result;
}

id NSProcessInfo::environment() const {
    velt::Ref<NSMutableDictionary> result = velt::make<NSMutableDictionary>();
    for (char** variable = environ; variable && *variable; ++variable) {
        const std::string_view text = *variable;
        const std::size_t equals = text.find('=');
        if (equals == text.npos) continue;
        result->setObject(velt::string(text.substr(equals + 1)), velt::string(text.substr(0, equals)));
    }
    return result;
}

long NSProcessInfo::processIdentifier() const { return getpid(); }

id NSProcessInfo::processName() const { return velt::string(NSBundle::mainBundle().executableName()); }

id NSProcessInfo::hostName() const {
    char name[HOST_NAME_MAX + 1] = {};
    gethostname(name, sizeof name - 1);
    return velt::string(std::string_view(name));
}

void NSProcessInfo::describe(velt::ClassBuilder<NSProcessInfo>& c) {
    c.property("arguments", &NSProcessInfo::arguments)
        .property("environment", &NSProcessInfo::environment)
        .property("processIdentifier", &NSProcessInfo::processIdentifier)
        .property("processName", &NSProcessInfo::processName)
        .property("hostName", &NSProcessInfo::hostName);
}
