#include "VELTRuntime/platform/foundation/bundle.h"

#include "VELTRuntime/platform/foundation/shared_object.h"
#include "VELTRuntime/values/string.h"

#include <filesystem>
#include <unistd.h>

VELT_SERVICE(NSBundle, mainBundle)

namespace {

std::string parent(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == 0 || slash == path.npos ? "/" : path.substr(0, slash);
}

std::string lastComponent(const std::string& path) { return path.substr(path.rfind('/') + 1); }

/// A file that was replaced or removed while it runs shows as such, with a remark behind its name.
std::string runningFile() {
    std::error_code failure;
    std::string path = std::filesystem::read_symlink("/proc/self/exe", failure).string();
    constexpr std::string_view kRemark = " (deleted)";
    if (path.ends_with(kRemark) && access(path.c_str(), F_OK) != 0) path.resize(path.size() - kRemark.size());
    return path;
}

}  // namespace

std::string NSBundle::executablePath() const { return runningFile(); }

std::string NSBundle::executableName() const { return lastComponent(executablePath()); }

std::string NSBundle::bundlePath() const {
    const std::string folder = parent(executablePath());
    const std::string contents = parent(folder);
    const std::string application = parent(contents);
    const bool inApplication = lastComponent(contents) == "Contents" && lastComponent(application).ends_with(".app");
    return inApplication ? application : folder;
}

std::string NSBundle::resourcePath() const {
    const std::string folder = parent(executablePath());
    const std::string bundle = bundlePath();
    return bundle + (bundle == folder ? "/Resources" : "/Contents/Resources");
}

std::string NSBundle::pathForResource(const std::string& name, const std::string& extension) const {
    const std::string path = resourcePath() + "/" + name + (extension.empty() ? "" : "." + extension);
    return access(path.c_str(), F_OK) == 0 ? path : std::string();
}

void NSBundle::describe(velt::ClassBuilder<NSBundle>& c) {
    using namespace velt;
    c.method("bundlePath", [](const id& b, const id*) { return velt::string(as<NSBundle>(b)->bundlePath()); })
        .method("resourcePath", [](const id& b, const id*) { return velt::string(as<NSBundle>(b)->resourcePath()); })
        .method("executablePath",
                [](const id& b, const id*) { return velt::string(as<NSBundle>(b)->executablePath()); })
        .method("pathForResource:ofType:", [](const id& b, const id* a) {
            const std::string extension = a[1].isNil() ? std::string() : utf8(VELT_CSTRING(a[1]));
            const std::string path = as<NSBundle>(b)->pathForResource(utf8(VELT_CSTRING(a[0])), extension);
            return path.empty() ? id() : velt::string(path);
        });
}
