#include "VELTRuntime/platform/foundation/date.h"
#include "VELTRuntime/platform/foundation/notification_center.h"
#include "VELTRuntime/platform/foundation/user.h"
#include "support/environment.h"
#include "support/processes.h"
#include "support/values.h"

#include <unistd.h>

using namespace velt::test;

namespace {

class Spectator : public NSObject {
    VELT_OBJECT(Spectator, NSObject)
public:
    void ready(const id& notification) { last = notification; }
    void plain() {}
    static void describe(velt::ClassBuilder<Spectator>& c) {
        c.method("Ready:", &Spectator::ready).method("Tick", &Spectator::plain).owns(&Spectator::last);
    }
    id last;
};

const id ignored = nil;

/// What a copy of a program, placed at a path below a folder, says about its bundle.
std::string bundleOfProgramAt(const TemporaryFolder& folder, const std::string& place) {
    const std::filesystem::path program = folder.file(place);
    std::filesystem::create_directories(program.parent_path());
    std::filesystem::copy_file(std::filesystem::path(VELT_TEST_PROGRAMS) / "services", program);
    return runPath(program.string(), {"bundle"}, "").output;
}

std::string bundleText(const std::string& bundle, const std::string& resources, const std::string& program) {
    return "'" + bundle + "''" + resources + "''" + program + "'";
}

}  // namespace

TEST(User, HasNamesAndFolders) {
    EXPECT_NE("", velt::utf8(VELT_USER_USERNAME(ignored)));
    EXPECT_NE("", velt::utf8(VELT_USER_FULLUSERNAME(integer(5))));
    const EnvironmentVariable home("HOME", "/home/somebody/"), temporary("TMPDIR", "/var/somewhere");
    EXPECT_VALUE("'/home/somebody'", VELT_USER_HOMEDIRECTORY(ignored));
    EXPECT_VALUE("'/home/somebody/Desktop'", VELT_USER_DESKTOPDIRECTORY(ignored));
    EXPECT_VALUE("'/var/somewhere/'", VELT_USER_TEMPORARYDIRECTORY(ignored));
}

TEST(User, HasFoldersWithoutAnEnvironmentToo) {
    const EnvironmentVariable home("HOME", "relative"), temporary("TMPDIR", std::nullopt),
        configuration("XDG_CONFIG_HOME", "");
    const std::string own = velt::utf8(VELT_USER_HOMEDIRECTORY(ignored));
    EXPECT_TRUE(own.starts_with('/')) << own;
    EXPECT_VALUE("'" + own + "/Desktop'", VELT_USER_DESKTOPDIRECTORY(ignored));
    EXPECT_VALUE("'/tmp/'", VELT_USER_TEMPORARYDIRECTORY(ignored));
    EXPECT_EQ(own + "/.config", velt::configurationFolder());
    const EnvironmentVariable root("TMPDIR", "/");
    EXPECT_VALUE("'/'", VELT_USER_TEMPORARYDIRECTORY(ignored));
}

TEST(User, KnowsTheHomesOfOthers) {
    EXPECT_VALUE("'/root'", VELT_USER_HOMEDIRECTORYFORUSER(ignored, str("root")));
    EXPECT_VALUE("nil", VELT_USER_HOMEDIRECTORYFORUSER(ignored, str("no such user")));
    EXPECT_RAISES("nothing", VELT_USER_HOMEDIRECTORYFORUSER(ignored, integer(5)));
}

TEST(Bundle, IsTheProgramsFolder) {
    const TemporaryFolder folder;
    const std::string here = folder.file("tools");
    EXPECT_EQ(bundleText(here, here + "/Resources", here + "/program"), bundleOfProgramAt(folder, "tools/program"));
}

TEST(Bundle, IsTheApplicationsFolderWhenTheProgramLiesInOne) {
    const TemporaryFolder folder;
    const std::string app = folder.file("My.app"), resources = app + "/Contents/Resources";
    for (const std::string place : {"/Contents/MacOS/program", "/Contents/Linux/program"}) {
        EXPECT_EQ(bundleText(app, resources, app + place), bundleOfProgramAt(folder, "My.app" + place));
    }
}

TEST(Bundle, NeedsBothTheApplicationAndItsContents) {
    const TemporaryFolder folder;
    for (const std::string place : {"Name/Contents/MacOS", "Other.app/bin"}) {
        const std::string here = folder.file(place);
        EXPECT_EQ(bundleText(here, here + "/Resources", here + "/program"),
                  bundleOfProgramAt(folder, place + "/program"));
    }
}

TEST(Process, HasArgumentsEnvironmentAndNumber) {
    const EnvironmentVariable variable("VELT_TEST_VARIABLE", "a=b");
    EXPECT_EQ("(" + std::string(VELT_TEST_PROGRAMS) + "/services, process, , \xC3\xA4 b)'a=b'",
              runProgram("services", {"process", "", "\xC3\xA4 b"}).output);
    EXPECT_VALUE("q " + std::to_string(getpid()), VELT_NSPROCESSINFO_PID(ignored));
    EXPECT_VALUE("'VELTRuntimeTests'", velt::send(VELT_id_NSPROCESSINFO, "processName"));
    EXPECT_NE("", velt::utf8(velt::send(VELT_id_NSPROCESSINFO, "hostName")));
}

class SettingFunctions : public ::testing::Test {
protected:
    // The standard settings are placed at their first use; nothing of the user's own is touched.
    static void SetUpTestSuite() { configuration_.emplace("XDG_CONFIG_HOME", folder().file("config")); }
    static void TearDownTestSuite() {
        VELT_NSUSERDEFAULTS_SYNCHRONIZE(ignored);
        configuration_.reset();
    }
    static const TemporaryFolder& folder() {
        static const TemporaryFolder instance;
        return instance;
    }

private:
    inline static std::optional<EnvironmentVariable> configuration_;
};

TEST_F(SettingFunctions, GiveTheStoredThenTheRegisteredValue) {
    const id key = str("fall-back");
    const id values = emptyDictionary();
    velt::send(values, "setObject:forKey:", integer(1), key);
    EXPECT_VALUE("nil", VELT_NSUSERDEFAULTS_GET(ignored, key));
    EXPECT_VALUE("nil", VELT_NSUSERDEFAULTS_REGISTERDEFAULTS(ignored, values));
    EXPECT_VALUE("q 1", VELT_NSUSERDEFAULTS_GET(ignored, key));
    EXPECT_VALUE("nil", VELT_NSUSERDEFAULTS_SET(ignored, key, integer(2)));
    EXPECT_VALUE("q 2", VELT_NSUSERDEFAULTS_GET(str("whatever"), key));
    EXPECT_VALUE("nil", VELT_NSUSERDEFAULTS_REMOVE(ignored, key));
    EXPECT_VALUE("q 1", VELT_NSUSERDEFAULTS_GET(ignored, key));
    VELT_NSUSERDEFAULTS_SET(ignored, key, integer(2));
    VELT_NSUSERDEFAULTS_SET(ignored, key, nil);
    EXPECT_VALUE("q 1", VELT_NSUSERDEFAULTS_GET(ignored, key));
    EXPECT_RAISES("nothing", VELT_NSUSERDEFAULTS_REGISTERDEFAULTS(ignored, nil));
    EXPECT_CAST_FAILURE("'NSMutableDictionary' expected", VELT_NSUSERDEFAULTS_REGISTERDEFAULTS(ignored, array()));
}

TEST_F(SettingFunctions, MergeWhatIsRegistered) {
    const id first = emptyDictionary(), second = emptyDictionary();
    velt::send(first, "setObject:forKey:", integer(1), str("m1"));
    velt::send(first, "setObject:forKey:", integer(1), str("m2"));
    velt::send(second, "setObject:forKey:", integer(2), str("m2"));
    VELT_NSUSERDEFAULTS_REGISTERDEFAULTS(ignored, first);
    VELT_NSUSERDEFAULTS_REGISTERDEFAULTS(ignored, second);
    EXPECT_VALUE("q 1", VELT_NSUSERDEFAULTS_GET(ignored, str("m1")));
    EXPECT_VALUE("q 2", VELT_NSUSERDEFAULTS_GET(ignored, str("m2")));
}

TEST_F(SettingFunctions, KeepEveryKindOfValue) {
    const id nested = emptyDictionary();
    velt::send(nested, "setObject:forKey:", array(str("x"), data("bytes")), str("list"));
    const std::pair<const char*, id> values[] = {{"k1", integer(-5)},   {"k2", real(2.5)},    {"k3", boolean(true)},
                                                 {"k4", str("text")},   {"k5", nested},       {"k6", array()},
                                                 {"k7", NSDate::now()}, {"k8", data("bytes")}};
    for (const auto& [key, value] : values) VELT_NSUSERDEFAULTS_SET(ignored, str(key), value);
    EXPECT_VALUE("c 1", VELT_NSUSERDEFAULTS_SYNCHRONIZE(ignored));
    for (const auto& [key, value] : values) {
        EXPECT_TRUE(velt::isEqual(value, VELT_NSUSERDEFAULTS_GET(ignored, str(key)))) << key;
    }
    EXPECT_VALUE("c 1", VELT_NSUSERDEFAULTS_GET(ignored, str("k3")));
}

TEST_F(SettingFunctions, CopyWhatTheyKeepAndWhatTheyGive) {
    const id list = array(integer(1)), key = integer(7);
    VELT_NSUSERDEFAULTS_SET(ignored, key, list);
    VELT_NSMUTABLEARRAY_APPEND(list, integer(2));
    const id given = VELT_NSUSERDEFAULTS_GET(ignored, str("7"));
    EXPECT_VALUE("NSMutableArray (1)", given);
    VELT_NSMUTABLEARRAY_APPEND(given, integer(3));
    EXPECT_VALUE("NSMutableArray (1)", VELT_NSUSERDEFAULTS_GET(ignored, key));
}

TEST_F(SettingFunctions, RefuseWhatCannotBeKept) {
    EXPECT_RAISES("NSInvalidArgumentException: the setting 'w' cannot be kept: 'Spectator' is no property-list value",
                  VELT_NSUSERDEFAULTS_SET(ignored, str("w"), velt::make<Spectator>()));
}

TEST_F(SettingFunctions, AreReadByTypeThroughMessages) {
    const id defaults = VELT_id_NSUSERDEFAULTS;
    velt::send(defaults, "setInteger:forKey:", str("12"), str("n"));
    velt::send(defaults, "setDouble:forKey:", str("2.5"), str("d"));
    velt::send(defaults, "setBool:forKey:", str("yes"), str("b"));
    velt::send(defaults, "setObject:forKey:", array(integer(1)), str("l"));
    EXPECT_VALUE("q 12", velt::send(defaults, "integerForKey:", str("n")));
    EXPECT_VALUE("d 12", velt::send(defaults, "doubleForKey:", str("n")));
    EXPECT_VALUE("'12'", velt::send(defaults, "stringForKey:", str("n")));
    EXPECT_VALUE("d 2.5", velt::send(defaults, "doubleForKey:", str("d")));
    EXPECT_VALUE("q 2", velt::send(defaults, "integerForKey:", str("d")));
    EXPECT_VALUE("c 1", velt::send(defaults, "boolForKey:", str("b")));
    EXPECT_VALUE("NSMutableArray (1)", velt::send(defaults, "arrayForKey:", str("l")));
    EXPECT_VALUE("q 0", velt::send(defaults, "integerForKey:", str("l")));
    EXPECT_VALUE("d 0", velt::send(defaults, "doubleForKey:", str("none")));
    EXPECT_VALUE("c 0", velt::send(defaults, "boolForKey:", str("none")));
    for (const char* message : {"stringForKey:", "dictionaryForKey:", "dataForKey:"}) {
        EXPECT_VALUE("nil", velt::send(defaults, message, str("l")));
    }
    velt::send(defaults, "removeObjectForKey:", str("n"));
    EXPECT_VALUE("nil", velt::send(defaults, "objectForKey:", str("n")));
    EXPECT_VALUE("c 1", VELT_NSDICTIONARY_CONTAINS(velt::send(defaults, "dictionaryRepresentation"), str("d")));
}

TEST(NotificationFunctions, CallTheMethodOfTheNotificationsName) {
    const auto watcher = velt::make<Spectator>();
    const id sender = array(), information = emptyDictionary();
    EXPECT_VALUE("nil", VELT_NSNOTIFICATIONCENTER_ADDOBSERVER(watcher, str("Ready"), nil));
    EXPECT_VALUE("nil", VELT_NSNOTIFICATIONCENTER_POSTNOTIFICATIONNAME(sender, str("Ready"), information));
    EXPECT_VALUE("'Ready'", velt::send(watcher->last, "name"));
    EXPECT_EQ(sender, velt::send(watcher->last, "object"));
    EXPECT_EQ(information, velt::send(watcher->last, "userInfo"));
    EXPECT_VALUE("nil", VELT_NSNOTIFICATIONCENTER_REMOVEOBSERVER(watcher, str("Ready"), nil));
    watcher->last = nil;
    VELT_NSNOTIFICATIONCENTER_POSTNOTIFICATIONNAME(sender, str("Ready"), nil);
    EXPECT_VALUE("nil", watcher->last);
}

TEST(NotificationFunctions, CallOnlyForTheObjectAskedFor) {
    const auto watcher = velt::make<Spectator>();
    const id sender = array(), other = array();
    VELT_NSNOTIFICATIONCENTER_ADDOBSERVER(watcher, str("Ready"), sender);
    VELT_NSNOTIFICATIONCENTER_POSTNOTIFICATIONNAME(other, str("Ready"), nil);
    EXPECT_VALUE("nil", watcher->last);
    VELT_NSNOTIFICATIONCENTER_POSTNOTIFICATIONNAME(sender, str("Ready"), nil);
    EXPECT_EQ(sender, velt::send(watcher->last, "object"));
}

TEST(NotificationFunctions, IgnoreAnObserverWithoutTheMethod) {
    const auto before = NSNotificationCenter::defaultCenter().observerCount();
    const auto watcher = velt::make<Spectator>();
    EXPECT_RAISES("nothing", VELT_NSNOTIFICATIONCENTER_ADDOBSERVER(watcher, str("Tick"), nil));
    EXPECT_RAISES("nothing", VELT_NSNOTIFICATIONCENTER_ADDOBSERVER(nil, str("Ready"), nil));
    EXPECT_EQ(before, NSNotificationCenter::defaultCenter().observerCount());
    EXPECT_RAISES("nothing", VELT_NSNOTIFICATIONCENTER_POSTNOTIFICATIONNAME(nil, str("Tick"), nil));
    EXPECT_CAST_FAILURE("'NSMutableDictionary' expected",
                        VELT_NSNOTIFICATIONCENTER_POSTNOTIFICATIONNAME(nil, str("Tick"), str("information")));
}
