#include "VELTRuntime/platform/object/providers.h"

#include "support/environment.h"
#include "support/processes.h"
#include "support/values.h"

#include <dlfcn.h>

using namespace velt::test;
namespace fs = std::filesystem;

namespace {

/// A folder with a copy of the library without windows alone, which programs load from there while this object lives.
class LonelyLibrary {
public:
    LonelyLibrary() {
        Dl_info own{};
        dladdr(reinterpret_cast<void*>(&velt::raiseNotProvided), &own);
        fs::copy_file(own.dli_fname, folder_.file("libVELTRuntime.so.0"));
    }
    std::string file(const std::string& name) const { return folder_.file(name); }
    void write(const std::string& name, const std::string& text) const { folder_.write(name, text); }

private:
    TemporaryFolder folder_;
    EnvironmentVariable variable_{"LD_LIBRARY_PATH", folder_.file("")};
};

/// A library is found although it is not beside the other one: it is installed, or the address sanitizer looks for it
/// in the name of the program, which knows the build folder.
bool isFoundElsewhere() {
    return dlsym(RTLD_DEFAULT, "__asan_init") ||
           std::system("/sbin/ldconfig -p 2>/dev/null | grep -q libVELTRuntimeUI.so.0") == 0;
}

}  // namespace

TEST(LibraryWithWindows, IsNamedWithTheReasonWhenItIsMissing) {
    if (isFoundElsewhere()) GTEST_SKIP() << "programs find another copy of the library";
    const LonelyLibrary library;
    EXPECT_EQ("VLException: loading an image needs libVELTRuntimeUI.so.0: libVELTRuntimeUI.so.0: cannot open shared "
              "object file: No such file or directory\n",
              runProgram("image", {"/tmp/a.png"}).output);
}

TEST(LibraryWithWindows, IsNamedWithTheReasonWhenTheOneBesideIsBroken) {
    const LonelyLibrary library;
    library.write("libVELTRuntimeUI.so.0", "no library");
    EXPECT_EQ("VLException: loading an image needs libVELTRuntimeUI.so.0: " + library.file("libVELTRuntimeUI.so.0") +
                  ": file too short\n",
              runProgram("image", {"/tmp/a.png"}).output);
}
