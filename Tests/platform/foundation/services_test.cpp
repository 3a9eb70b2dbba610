#include "VELTRuntime/platform/foundation/bundle.h"

#include "support/processes.h"
#include "support/values.h"

using namespace velt::test;

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
