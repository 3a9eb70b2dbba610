#include "VELTRuntime/platform/object/providers.h"

#include "VELTRuntime/platform/object/exception.h"

#include <dlfcn.h>
#include <mutex>
#include <unistd.h>

namespace velt {

namespace {

constexpr const char* kLibrary = "libVELTRuntimeUI.so." VELT_ABI_VERSION;

struct State {
    std::once_flag loaded;
    Providers providers{};
    std::string failure;
};

State& state() {
    static State& instance = *new State;
    return instance;
}

/// Loads a library. Empty, or why it could not be loaded.
std::string failureToLoad(const std::string& path) {
    if (dlopen(path.c_str(), RTLD_NOW | RTLD_GLOBAL)) return {};
    const char* reason = dlerror();
    return reason ? reason : "it could not be loaded";
}

/// Beside this library first, then wherever the system looks.
void load() {
    Dl_info own{};
    std::string folder;
    if (dladdr(reinterpret_cast<void*>(&load), &own) && own.dli_fname) {
        folder = own.dli_fname;
        folder.erase(folder.rfind('/') == folder.npos ? 0 : folder.rfind('/') + 1);
    }
    const std::string beside = folder + kLibrary;
    const bool liesBeside = !folder.empty() && access(beside.c_str(), F_OK) == 0;
    std::string& failure = state().failure;
    if (liesBeside) failure = failureToLoad(beside);
    if (liesBeside && failure.empty()) return;
    const std::string elsewhere = failureToLoad(kLibrary);
    // What keeps the library beside this one from being loaded tells more than that there is no other.
    if (!liesBeside || elsewhere.empty()) failure = elsewhere;
}

}  // namespace

void provide(const Providers& given) {
    Providers& all = state().providers;
    if (given.imageFromFile) all.imageFromFile = given.imageFromFile;
    if (given.attributedStringFromHtml) all.attributedStringFromHtml = given.attributedStringFromHtml;
    if (given.soundAlert) all.soundAlert = given.soundAlert;
    if (given.visibleScreenFrame) all.visibleScreenFrame = given.visibleScreenFrame;
    if (given.drawText) all.drawText = given.drawText;
    if (given.textSize) all.textSize = given.textSize;
    if (given.makeMainLoopDriver) all.makeMainLoopDriver = given.makeMainLoopDriver;
}

const Providers& availableProviders() { return state().providers; }

const Providers& providers() {
    std::call_once(state().loaded, load);
    return state().providers;
}

void raiseNotProvided(const char* what) {
    const std::string& failure = state().failure;
    raise(kRuntimeException, std::string(what) + " needs " + kLibrary + ": " +
                                 (failure.empty() ? "the library does not give it" : failure));
}

}  // namespace velt
