// Does with the system services what its arguments name.
#include "VELTRuntime/platform/foundation/loop_driver.h"
#include "VELTRuntime/platform/foundation/run_loop.h"
#include "VELTRuntime/platform/foundation/user_defaults.h"
#include "VELTRuntime/platform/object/providers.h"

#include <VELTRuntime/VELTRuntime.h>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <string_view>
#include <sys/resource.h>
#include <thread>
#include <unistd.h>
#include <vector>

using velt::RunLoop;

namespace {

void fail() {
    VELTS("program.bas", "Main", "7", "");
    VELT_CINTEGER(nil);
}

/// Delivers a function that fails, in the named way. Does not return.
int failInLoop(std::string_view way) {
    std::fputs("before", stdout);
    RunLoop& loop = RunLoop::current();
    if (way == "loop") loop.perform(fail);
    if (way == "loop-timer") loop.after(0.001, fail);
    if (way == "loop-nested") {
        loop.perform([&] {
            loop.perform(fail);
            try {
                loop.runUntil(60);
            } catch (const NSException&) {  // it does not come out of the run
            }
        });
    }
    if (way == "loop-other") {
        loop.perform([] {
            VELTS("program.bas", "Main", "7", "");
            throw std::runtime_error("not ours");
        });
    }
    if (way == "loop-thread") {
        std::thread([] {
            RunLoop::current().perform(fail);
            RunLoop::current().runUntil(60);
        }).join();
    }
    loop.runUntil(60);
    return 0;
}

id text(const std::string& utf8) { return velt::string(utf8); }

void print(const id& value) {
    const char* code = velt::typeCodeOrNull(value);
    const bool isText = velt::isString(value);
    const std::string shown = value.isNil() ? "nil" : velt::utf8(velt::description(value));
    std::printf("%s%s", code ? code : "", code ? " " : "");
    std::printf(isText ? "'%s'" : "%s", shown.c_str());
}

int settings(const std::string& way, const std::vector<std::string>& words) {
    if (way == "defaults-set") VELT_NSUSERDEFAULTS_SET(nil, text(words[0]), text(words[1]));
    if (way == "defaults-and-file") {
        VELT_NSUSERDEFAULTS_SET(nil, "key"_v, "value"_v);
        return VELT_CBOOL(VELT_WRITEDATA(VELT_CDATA("text"_v), text(words[0]))) ? 0 : 1;
    }
    if (way == "defaults-remove") VELT_NSUSERDEFAULTS_REMOVE(nil, text(words[0]));
    if (way == "defaults-get") print(VELT_NSUSERDEFAULTS_GET(nil, text(words[0])));
    if (way == "defaults-path") std::printf("%s", NSUserDefaults::standardUserDefaults().path().c_str());
    if (way == "defaults-many") {
        for (int i = 0; i < std::stoi(words[1]); ++i) {
            VELT_NSUSERDEFAULTS_SET(nil, text(words[0] + std::to_string(i)), VELT_ID(long{i}));
            if (!VELT_CBOOL(VELT_NSUSERDEFAULTS_SYNCHRONIZE(nil))) return 1;
        }
    }
    if (way == "defaults-idle") {
        VELT_NSUSERDEFAULTS_SET(nil, "key"_v, "value"_v);
        const auto isThere = [&] { return access(words[0].c_str(), F_OK) == 0; };
        if (isThere()) return 1;
        for (int i = 0; i < 1000 && !isThere(); ++i) RunLoop::current().runUntil(0.01);
        std::printf("%s", isThere() ? "there" : "missing");
        std::fflush(stdout);
        std::_Exit(0);  // nothing is written at the end
    }
    return 0;
}

/// Files may not grow beyond a few thousand bytes.
void limitFiles() {
    const rlimit limit{4096, 4096};
    setrlimit(RLIMIT_FSIZE, &limit);
}

int files(const std::string& way, const std::vector<std::string>& words) {
    const id path = text(words[0]), second = words.size() > 1 ? text(words[1]) : id();
    const id manager = VELT_id_FILE;
    if (way == "copy") print(VELT_NSFILEMANAGER_COPY(manager, path, second));
    if (way == "move") print(VELT_NSFILEMANAGER_MOVE(manager, path, second));
    if (way == "link") print(VELT_NSFILEMANAGER_LINK(manager, path, second));
    if (way == "remove") print(VELT_NSFILEMANAGER_DELETE(manager, path));
    if (way == "create") print(VELT_NSFILEMANAGER_CREATE(manager, path, VELT_CDATA(text(std::string(100'000, 'x')))));
    if (way == "folder") print(VELT_NSFILEMANAGER_CREATEDIRECTORY(manager, path));
    if (way == "rights") {
        print(VELT_NSFILEMANAGER_ISREADABLE(manager, path));
        std::putchar(' ');
        print(VELT_NSFILEMANAGER_ISWRITABLE(manager, path));
        std::putchar(' ');
        print(VELT_NSFILEMANAGER_ISEXECUTABLE(manager, path));
        std::putchar(' ');
        print(VELT_NSFILEMANAGER_ISDELETABLE(manager, path));
    }
    return 0;
}

/// A driver that another library could hand over: it looks again and again.
class BusyDriver final : public velt::LoopDriver {
public:
    explicit BusyDriver(velt::LoopCalls calls) : calls_(std::move(calls)) {}
    void wake() override {}
    void wakeAt(velt::LoopTime) override {}
    void watch(int) override { ++watched; }
    void unwatch(int) override { --watched; }
    void wait() override {
        calls_.idle();
        calls_.pass();
    }
    static inline int watched = 0;

private:
    velt::LoopCalls calls_;
};

/// A driver takes over what the one before was to do.
int exchangeDrivers() {
    RunLoop& loop = RunLoop::main();
    std::string said;
    loop.perform([&] { said += "a"; });
    loop.watch(0, [] {});
    loop.after(0.01, [&] { said += "c"; });
    loop.runOnce(1);
    velt::Providers handed{};
    handed.makeMainLoopDriver = [](velt::LoopCalls calls) -> std::unique_ptr<velt::LoopDriver> {
        return std::make_unique<BusyDriver>(std::move(calls));
    };
    velt::provide(handed);
    loop.perform([&] { said += "b"; });
    loop.runUntil(0.05);
    std::printf("%s %d", said.c_str(), BusyDriver::watched);
    return 0;
}

}  // namespace

int main(int count, char** arguments) {
    const std::string way = arguments[1];
    const std::vector<std::string> words(arguments + 2, arguments + count);
    if (way.starts_with("loop")) return failInLoop(way);
    if (way.starts_with("defaults")) return settings(way, words);
    if (way == "driver") return exchangeDrivers();
    if (way == "copy-limited" || way == "create-limited") {
        limitFiles();
        return files(way.substr(0, way.find('-')), words);
    }
    if (way == "as-nobody") {
        constexpr uid_t kNobody = 65534;
        if (geteuid() == 0 && setuid(kNobody) != 0) return 3;
        return files(words[0], {words.begin() + 1, words.end()});
    }
    if (way == "user") {
        for (const auto function :
             {VELT_USER_HOMEDIRECTORY, VELT_USER_DESKTOPDIRECTORY, VELT_USER_TEMPORARYDIRECTORY}) {
            print(function(nil));
            std::putchar(' ');
        }
        return 0;
    }
    if (way == "process") {
        print(VELT_NSPROCESSINFO_ARGUMENTS(nil));
        print(VELT_NSDICTIONARY_OBJECT(VELT_NSPROCESSINFO_ENVIRONMENT(nil), "VELT_TEST_VARIABLE"_v));
        return 0;
    }
    if (way == "bundle") {
        print(VELT_NSBUNDLE_BUNDLEPATH(nil));
        print(VELT_NSBUNDLE_RESOURCEPATH(nil));
        print(VELT_NSBUNDLE_EXECUTABLEPATH(nil));
        return 0;
    }
    if (way == "interface") {
        print(VELT_NSOBJECT_LOADNIB(nil, text(words[0])));
        return 0;
    }
    return 2;
}
