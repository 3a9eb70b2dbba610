#include "VELTRuntime/platform/foundation/bundle.h"

#include "support/processes.h"
#include "support/values.h"

using namespace velt::test;

namespace {

/// What a copy of the bundle program, placed at a path below a folder, says about its bundle.
std::string bundleOfProgramAt(const TemporaryFolder& folder, const std::string& place) {
    namespace fs = std::filesystem;
    const fs::path program = folder.file(place);
    fs::create_directories(program.parent_path());
    fs::copy_file(fs::path(VELT_TEST_PROGRAMS) / "bundle", program);
    return runPath(program.string(), {}, "").output;
}

std::string bundleText(const std::string& bundle, const std::string& resources, const std::string& program) {
    return "bundle " + bundle + "\nresources " + resources + "\nprogram " + program + "\n";
}

}  // namespace

TEST(Services, KnowTheProcessAndItsFiles) {
    EXPECT_VALUE("q " + std::to_string(getpid()), velt::valueForKey(VELT_id_NSPROCESSINFO, "processIdentifier"));
    EXPECT_GE(VELT_CINTEGER(VELT_NSARRAY_COUNT(velt::valueForKey(VELT_id_NSPROCESSINFO, "arguments"))), 1);
    EXPECT_VALUE("c 1",
                 VELT_NSDICTIONARY_CONTAINS(velt::valueForKey(VELT_id_NSPROCESSINFO, "environment"), str("PATH")));
    const std::string program = NSBundle::mainBundle().executablePath();
    EXPECT_TRUE(program.ends_with("/VELTRuntimeTests")) << program;
    EXPECT_EQ(NSBundle::mainBundle().bundlePath() + "/Resources", NSBundle::mainBundle().resourcePath());
    EXPECT_VALUE("c 1", velt::send(VELT_id_FILE, "fileExistsAtPath:", str(program)));
    EXPECT_VALUE("c 0", velt::send(VELT_id_FILE, "fileExistsAtPath:", str("/no/such/file")));
}

TEST(MainBundle, IsTheFolderOfTheProgram) {
    const TemporaryFolder folder;
    const std::string here = folder.file("tools");
    EXPECT_EQ(bundleText(here, here + "/Resources", here + "/program"), bundleOfProgramAt(folder, "tools/program"));
}

TEST(MainBundle, IsTheApplicationAroundAProgramInContents) {
    const TemporaryFolder folder;
    const std::string app = folder.file("Name.app");
    EXPECT_EQ(bundleText(app, app + "/Contents/Resources", app + "/Contents/MacOS/program"),
              bundleOfProgramAt(folder, "Name.app/Contents/MacOS/program"));
    EXPECT_EQ(bundleText(app, app + "/Contents/Resources", app + "/Contents/Linux/program"),
              bundleOfProgramAt(folder, "Name.app/Contents/Linux/program"));
}

TEST(MainBundle, NeedsBothTheApplicationAndItsContents) {
    const TemporaryFolder folder;
    const std::string plain = folder.file("Name/Contents/MacOS"), bare = folder.file("Other.app/bin");
    EXPECT_EQ(bundleText(plain, plain + "/Resources", plain + "/program"),
              bundleOfProgramAt(folder, "Name/Contents/MacOS/program"));
    EXPECT_EQ(bundleText(bare, bare + "/Resources", bare + "/program"),
              bundleOfProgramAt(folder, "Other.app/bin/program"));
}

TEST(MainBundle, AnswersByName) {
    EXPECT_VALUE("'" + NSBundle::mainBundle().bundlePath() + "'", velt::send(VELT_id_NSBUNDLE, "bundlePath"));
    EXPECT_VALUE("'" + NSBundle::mainBundle().resourcePath() + "'", velt::send(VELT_id_NSBUNDLE, "resourcePath"));
    EXPECT_VALUE("'" + NSBundle::mainBundle().executablePath() + "'", velt::send(VELT_id_NSBUNDLE, "executablePath"));
}

TEST(FileManager, FollowsSymbolicLinks) {
    const TemporaryFolder folder;
    const std::string file = folder.write("there", "x");
    std::filesystem::create_symlink(file, folder.file("link"));
    std::filesystem::create_symlink(folder.file("gone"), folder.file("dangling"));
    EXPECT_VALUE("c 1", velt::send(VELT_id_FILE, "fileExistsAtPath:", str(folder.file("link"))));
    EXPECT_VALUE("c 0", velt::send(VELT_id_FILE, "fileExistsAtPath:", str(folder.file("dangling"))));
    EXPECT_VALUE("c 0", velt::send(VELT_id_FILE, "fileExistsAtPath:", str("")));
}
