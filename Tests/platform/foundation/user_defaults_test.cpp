#include "VELTRuntime/platform/foundation/user_defaults.h"

#include "VELTRuntime/platform/foundation/date.h"
#include "VELTRuntime/platform/foundation/property_list/property_list.h"
#include "support/environment.h"
#include "support/generated.h"
#include "support/processes.h"
#include "support/values.h"

#include <sys/stat.h>
#include <thread>
#include <unistd.h>

using namespace velt::test;
using velt::SettingsFile;

namespace {

/// Programs started meanwhile keep their settings in a folder of the test's own.
class Settings : public ::testing::Test {
protected:
    ProgramResult run(std::vector<std::string> arguments) { return runProgram("services", arguments); }
    /// The settings of the program `services` as they are in its file.
    std::string kept() {
        const std::string bytes = contentOf(folder.file("config/services.plist"));
        return bytes.empty() ? "nothing" : show(velt::readPropertyList(bytes));
    }

    TemporaryFolder folder;
    const std::string path = folder.file("settings/test.plist");

private:
    EnvironmentVariable configuration_{"XDG_CONFIG_HOME", folder.file("config")};
};

}  // namespace

TEST_F(Settings, AreKeptInAFileThatOthersRead) {
    SettingsFile first(path), second(path);
    EXPECT_VALUE("nil", first.value(str("a")));
    first.set(str("a"), integer(1));
    first.set(str("b"), str("text"));
    EXPECT_VALUE("q 1", first.value(str("a")));
    EXPECT_TRUE(first.hasChanges());
    EXPECT_VALUE("nil", second.value(str("a")));
    EXPECT_TRUE(first.synchronize());
    EXPECT_FALSE(first.hasChanges());
    EXPECT_VALUE("nil", second.value(str("a")));
    EXPECT_TRUE(second.synchronize());
    EXPECT_VALUE("q 1", second.value(str("a")));
    EXPECT_VALUE("NSMutableDictionary {a = 1; b = text}", second.values());
    struct stat status {};
    ASSERT_EQ(0, ::stat(folder.file("settings").c_str(), &status));
    EXPECT_EQ(0700u, status.st_mode & 0777u) << "settings are the user's own";
}

TEST_F(Settings, WriteOnlyWhatWasChanged) {
    SettingsFile first(path), second(path);
    first.set(str("a"), integer(1));
    first.set(str("b"), integer(1));
    first.set(str("c"), integer(1));
    EXPECT_TRUE(first.synchronize());
    EXPECT_TRUE(second.synchronize());
    first.set(str("a"), integer(2));
    first.set(str("b"), nil);
    EXPECT_VALUE("nil", first.value(str("b")));
    second.set(str("c"), integer(3));
    second.set(str("d"), integer(3));
    EXPECT_TRUE(first.synchronize());
    EXPECT_TRUE(second.synchronize());
    EXPECT_VALUE("NSMutableDictionary {a = 2; c = 3; d = 3}", second.values());
    EXPECT_VALUE("NSMutableDictionary {a = 2; c = 1}", first.values());
    EXPECT_TRUE(first.synchronize());
    EXPECT_VALUE("NSMutableDictionary {a = 2; c = 3; d = 3}", first.values());
}

TEST_F(Settings, PutADamagedFileAside) {
    std::filesystem::create_directory(folder.file("settings"));
    for (const char* damaged : {"<plist><dict>", "<plist version=\"1.0\"><array/></plist>"}) {
        folder.write("settings/test.plist", damaged);
        SettingsFile settings(path);
        ::testing::internal::CaptureStderr();
        EXPECT_VALUE("nil", settings.value(str("a")));
        const std::string said = ::testing::internal::GetCapturedStderr();
        EXPECT_EQ("The settings in " + path + " could not be read and are now in " + path + ".damaged: ",
                  said.substr(0, said.find(".damaged: ") + 10));
        EXPECT_EQ(damaged, contentOf(path + ".damaged"));
        settings.set(str("a"), integer(1));
        EXPECT_TRUE(settings.synchronize());
        EXPECT_EQ(damaged, contentOf(path + ".damaged"));
    }
}

TEST_F(Settings, AreNotLostWhenTheyCannotBeWritten) {
    folder.write("settings", "a file where the folder should be");
    SettingsFile settings(path);
    settings.set(str("a"), integer(1));
    ::testing::internal::CaptureStderr();
    EXPECT_FALSE(settings.synchronize());
    EXPECT_FALSE(settings.synchronize());
    EXPECT_EQ("The settings are not kept: " + path + ".lock: Not a directory\n",
              ::testing::internal::GetCapturedStderr());
    EXPECT_VALUE("q 1", settings.value(str("a")));
    std::filesystem::remove(folder.file("settings"));
    EXPECT_TRUE(settings.synchronize());
    EXPECT_VALUE("NSMutableDictionary {a = 1}", SettingsFile(path).values());
}

TEST_F(Settings, ThatCannotBeReadAreNotTakenForNone) {
    std::filesystem::create_directories(path);
    SettingsFile settings(path);
    ::testing::internal::CaptureStderr();
    EXPECT_VALUE("nil", settings.value(str("a")));
    EXPECT_FALSE(settings.synchronize());
    settings.set(str("a"), integer(1));
    EXPECT_FALSE(settings.synchronize());
    EXPECT_EQ("The settings cannot be read: " + path + ": Is a directory\n", ::testing::internal::GetCapturedStderr());
    EXPECT_VALUE("NSMutableDictionary {a = 1}", settings.values());
    std::filesystem::remove(path);
    EXPECT_TRUE(settings.synchronize());
    EXPECT_VALUE("NSMutableDictionary {a = 1}", SettingsFile(path).values());
}

TEST_F(Settings, ThatMayNotBeReadAreNotReplaced) {
    if (geteuid() == 0) GTEST_SKIP() << "the administrator may read every file";
    SettingsFile first(path), second(path);
    first.set(str("a"), integer(1));
    EXPECT_TRUE(first.synchronize());
    ASSERT_EQ(0, ::chmod(path.c_str(), 0200));
    second.set(str("b"), integer(2));
    ::testing::internal::CaptureStderr();
    EXPECT_FALSE(second.synchronize());
    EXPECT_EQ("The settings cannot be read: " + path + ": Permission denied\n",
              ::testing::internal::GetCapturedStderr());
    ASSERT_EQ(0, ::chmod(path.c_str(), 0600));
    EXPECT_TRUE(second.synchronize());
    EXPECT_VALUE("NSMutableDictionary {a = 1; b = 2}", second.values());
}

TEST_F(Settings, ThatAreDamagedAndCannotBePutAsideAreNotReplaced) {
    std::filesystem::create_directories(path + ".damaged");
    folder.write("settings/test.plist", "no settings");
    SettingsFile settings(path);
    settings.set(str("a"), integer(1));
    ::testing::internal::CaptureStderr();
    EXPECT_FALSE(settings.synchronize());
    const std::string said = ::testing::internal::GetCapturedStderr(), begin = "The settings cannot be read: " + path;
    EXPECT_EQ(begin, said.substr(0, begin.size()));
    EXPECT_EQ("no settings", contentOf(path));
}

TEST_F(Settings, HoldEveryCharacterAndDate) {
    const id text = str(u"a\x01\xD800z");
    SettingsFile settings(path);
    settings.set(str("text"), text);
    settings.set(str("date"), velt::make<NSDate>(1e300));
    EXPECT_TRUE(settings.synchronize());
    SettingsFile other(path);
    EXPECT_TRUE(velt::isEqual(text, other.value(str("text"))));
    EXPECT_TRUE(velt::isEqual(velt::make<NSDate>(1e300), other.value(str("date"))));
    EXPECT_EQ("bplist", contentOf(path).substr(0, 6));
    other.set(str("text"), nil);
    other.set(str("date"), nil);
    EXPECT_TRUE(other.synchronize());
    EXPECT_EQ("<?xml", contentOf(path).substr(0, 5)) << "again for people to read";
}

TEST_F(Settings, LieWithinEachOtherAsDeepAsAFileMayHoldThem) {
    const auto nested = [](unsigned levels) {
        id value = array();
        for (unsigned i = 1; i < levels; ++i) value = array(value);
        return value;
    };
    NSUserDefaults defaults;
    defaults.setObject(nested(velt::kMostPropertyListLevels - 1), str("deep"));
    EXPECT_TRUE(defaults.synchronize());
    EXPECT_RAISES(
        "NSInvalidArgumentException: the setting 'deep' cannot be kept: 'NSMutableArray' is no property-list value",
        defaults.setObject(nested(velt::kMostPropertyListLevels), str("deep")));
    EXPECT_TRUE(velt::isArray(velt::valueForKey(defaults.dictionaryRepresentation(), "deep")));
}

TEST_F(Settings, AreWrittenByManyAtOnce) {
    constexpr int kThreads = 4;
    const int each = std::max(iterations(40), 5);
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) {
        threads.emplace_back([&, t] {
            const velt::ThreadScope scope;
            SettingsFile settings(path);
            for (int i = 0; i < each; ++i) {
                settings.set(str(std::to_string(t) + "." + std::to_string(i)), integer(i));
                EXPECT_TRUE(settings.synchronize());
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(static_cast<std::size_t>(kThreads * each), SettingsFile(path).values()->count());
}

TEST_F(Settings, OfTwoProcessesDoNotOverwriteEachOther) {
    const int each = std::max(iterations(60), 5);
    std::vector<std::thread> threads;
    for (const char* prefix : {"a", "b"}) {
        threads.emplace_back([&, prefix] {
            const ProgramResult result = run({"defaults-many", prefix, std::to_string(each)});
            EXPECT_EQ(0, result.status);
            EXPECT_EQ("", result.errors);
        });
    }
    for (std::thread& thread : threads) thread.join();
    SettingsFile settings(folder.file("config/services.plist"));
    EXPECT_EQ(static_cast<std::size_t>(2 * each), settings.values()->count());
}

TEST_F(Settings, AreWrittenAtTheEndOfAProgramThatWroteOtherFiles) {
    EXPECT_EQ(0, run({"defaults-and-file", folder.file("other.txt")}).status);
    EXPECT_EQ("NSMutableDictionary {key = value}", kept());
    EXPECT_EQ("text", contentOf(folder.file("other.txt")));
}

TEST_F(Settings, AreWrittenAtTheEndOfTheProgram) {
    EXPECT_EQ(0, run({"defaults-set", "colour", "green"}).status);
    EXPECT_EQ("NSMutableDictionary {colour = green}", kept());
    EXPECT_EQ("'green'", run({"defaults-get", "colour"}).output);
    EXPECT_EQ("nil", run({"defaults-get", "taste"}).output);
    EXPECT_EQ(0, run({"defaults-remove", "colour"}).status);
    EXPECT_EQ("NSMutableDictionary {}", kept());
    EXPECT_EQ("nil", run({"defaults-get", "colour"}).output);
}

TEST_F(Settings, AreWrittenWhenTheRunLoopIsIdle) {
    const ProgramResult result = run({"defaults-idle", folder.file("config/services.plist")});
    EXPECT_EQ(0, result.status) << result.errors;
    EXPECT_EQ("there", result.output);
}

TEST_F(Settings, LieWhereTheDesktopSays) {
    const EnvironmentVariable home("HOME", folder.file("home")), none("XDG_CONFIG_HOME", std::nullopt);
    EXPECT_EQ(folder.file("home/.config/services.plist"), run({"defaults-path"}).output);
    const EnvironmentVariable relative("XDG_CONFIG_HOME", "relative");
    EXPECT_EQ(folder.file("home/.config/services.plist"), run({"defaults-path"}).output);
}

TEST_F(Settings, RefuseWhatAPropertyListCannotHold) {
    NSUserDefaults defaults;
    EXPECT_RAISES("NSInvalidArgumentException: the setting 'a' cannot be kept: 'NSObject' is no property-list value",
                  defaults.setObject(velt::make<NSObject>(), str("a")));
    EXPECT_RAISES("NSInvalidArgumentException: the setting '5' cannot be kept: 'NSValue' is no property-list value",
                  defaults.setObject(array(str("x"), array(point(1, 2))), integer(5)));
    const id keyed = emptyDictionary();
    velt::send(keyed, "setObject:forKey:", str("value"), integer(1));
    EXPECT_RAISES("NSInvalidArgumentException: the setting 'a' cannot be kept: 'NSNumber' is no property-list value",
                  defaults.setObject(keyed, str("a")));
    const id endless = array();
    VELT_NSMUTABLEARRAY_APPEND(endless, endless);
    EXPECT_RAISES(
        "NSInvalidArgumentException: the setting 'a' cannot be kept: 'NSMutableArray' is no property-list value",
        defaults.setObject(endless, str("a")));
    EXPECT_VALUE("nil", defaults.objectForKey(str("a")));
    VELT_NSMUTABLEARRAY_REMOVEALL(endless);
    const id registered = emptyDictionary();
    velt::send(registered, "setObject:forKey:", velt::make<NSObject>(), str("b"));
    EXPECT_RAISES("NSInvalidArgumentException: the setting 'b' cannot be kept: 'NSObject' is no property-list value",
                  velt::send(id(&NSUserDefaults::standardUserDefaults()), "registerDefaults:", registered));
}
