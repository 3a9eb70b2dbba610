#include "VELTRuntime/platform/foundation/services.h"

#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/dictionary.h"
#include "VELTRuntime/platform/foundation/file_contents.h"
#include "VELTRuntime/platform/object/class.h"
#include "VELTRuntime/values/string.h"

#include <climits>
#include <filesystem>
#include <unistd.h>

namespace {

/// One object for the whole process. It is never freed: threads may use it until the very end.
template <class T> T& shared() {
    static T& instance = *velt::make<T>().release();
    return instance;
}

std::string parent(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == 0 || slash == path.npos ? "/" : path.substr(0, slash);
}

std::string lastComponent(const std::string& path) { return path.substr(path.rfind('/') + 1); }

}  // namespace

#define VELT_SERVICE(Type, accessor)                                                                                   \
    velt::Class& Type::entry() {                                                                                       \
        static velt::Class& cls = velt::declareClass<Type>(#Type, &NSObject::entry());                                 \
        return cls;                                                                                                    \
    }                                                                                                                  \
    Type& Type::accessor() { return shared<Type>(); }

VELT_SERVICE(NSProcessInfo, processInfo)
VELT_SERVICE(NSBundle, mainBundle)
VELT_SERVICE(NSFileManager, defaultManager)
VELT_SERVICE(NSUserDefaults, standardUserDefaults)
VELT_SERVICE(NSNotificationCenter, defaultCenter)

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

void NSProcessInfo::describe(velt::ClassBuilder<NSProcessInfo>& c) {
    c.property("arguments", &NSProcessInfo::arguments)
        .property("environment", &NSProcessInfo::environment)
        .property("processIdentifier", &NSProcessInfo::processIdentifier);
}

std::string NSBundle::executablePath() const {
    std::error_code failure;
    const std::filesystem::path path = std::filesystem::read_symlink("/proc/self/exe", failure);
    return failure ? std::string() : path.string();
}

std::string NSBundle::bundlePath() const {
    const std::string folder = parent(executablePath());
    const std::string contents = parent(folder);
    const std::string application = parent(contents);
    const bool inApplication = lastComponent(contents) == "Contents" && lastComponent(application).ends_with(".app");
    return inApplication ? application : folder;
}

std::string NSBundle::resourcePath() const {
    const std::string bundle = bundlePath();
    return bundle + (lastComponent(bundle).ends_with(".app") ? "/Contents/Resources" : "/Resources");
}

void NSBundle::describe(velt::ClassBuilder<NSBundle>& c) {
    using namespace velt;
    c.method("bundlePath", [](const id& b, const id*) { return velt::string(as<NSBundle>(b)->bundlePath()); })
        .method("resourcePath", [](const id& b, const id*) { return velt::string(as<NSBundle>(b)->resourcePath()); })
        .method("executablePath",
                [](const id& b, const id*) { return velt::string(as<NSBundle>(b)->executablePath()); });
}

bool NSFileManager::fileExists(const id& path) const {
    const id text = VELT_CSTRING(path);
    return access(velt::utf8(text).c_str(), F_OK) == 0;
}

void NSFileManager::describe(velt::ClassBuilder<NSFileManager>& c) {
    c.method("fileExistsAtPath:", &NSFileManager::fileExists);
}
