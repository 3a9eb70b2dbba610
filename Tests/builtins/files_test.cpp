#include "support/processes.h"
#include "support/values.h"

#include <sys/stat.h>
#include <unistd.h>

using namespace velt::test;

namespace {

class Clicker : public NSObject {
    VELT_OBJECT(Clicker, NSObject)
public:
    void click(const id&) {}
    static void describe(velt::ClassBuilder<Clicker>& c) { c.method("click:", &Clicker::click); }
};

class FileFunctions : public ::testing::Test {
protected:
    id at(const std::string& name) const { return str(folder.file(name)); }

    TemporaryFolder folder;
    const id file = str(folder.write("file", "content"));
    const id manager = VELT_id_FILE;
};

}  // namespace

TEST_F(FileFunctions, CopyMoveAndRemove) {
    EXPECT_VALUE("c 1", VELT_FILE_COPY(nil, file, at("copy")));
    EXPECT_EQ("content", contentOf(folder.file("copy")));
    EXPECT_VALUE("c 1", VELT_FILE_MOVE(nil, at("copy"), at("moved")));
    EXPECT_EQ("content", contentOf(folder.file("moved")));
    EXPECT_VALUE("c 0", VELT_FILE_MOVE(nil, at("copy"), at("moved2")));
    EXPECT_VALUE("c 1", VELT_FILE_REMOVEFILE(nil, at("moved")));
    EXPECT_VALUE("c 0", VELT_FILE_REMOVEFILE(nil, at("moved")));
}

TEST_F(FileFunctions, LeaveAnExistingDestinationUnchanged) {
    folder.write("other", "kept");
    EXPECT_VALUE("c 0", VELT_FILE_COPY(nil, file, at("other")));
    EXPECT_VALUE("c 0", VELT_FILE_MOVE(nil, file, at("other")));
    EXPECT_VALUE("c 0", VELT_NSFILEMANAGER_COPY(manager, file, at("other")));
    EXPECT_VALUE("c 0", VELT_NSFILEMANAGER_MOVE(manager, file, at("other")));
    EXPECT_VALUE("c 0", VELT_NSFILEMANAGER_LINK(manager, file, at("other")));
    EXPECT_EQ("kept", contentOf(folder.file("other")));
}

TEST_F(FileFunctions, CreateFilesAndFolders) {
    EXPECT_VALUE("c 1", VELT_FILE_CREATEFILE(nil, file));
    EXPECT_EQ("", contentOf(folder.file("file")));
    EXPECT_VALUE("c 1", VELT_FILE_CREATEFILE(nil, at("new")));
    EXPECT_VALUE("c 0", VELT_FILE_CREATEFILE(nil, at("missing/new")));
    EXPECT_VALUE("c 1", VELT_FILE_CREATEDIR(nil, at("folder")));
    EXPECT_VALUE("c 0", VELT_FILE_CREATEDIR(nil, at("folder")));
    EXPECT_VALUE("c 0", VELT_FILE_CREATEDIR(nil, at("missing/inner")));
    EXPECT_VALUE("c 0", VELT_FILE_CREATEFILE(nil, at("folder")));
    EXPECT_VALUE("NSMutableArray (file, folder, new)", VELT_FILE_LIST(nil, at("")));
    EXPECT_VALUE("nil", VELT_FILE_LIST(nil, at("missing")));
    EXPECT_VALUE("nil", VELT_FILE_LIST(nil, file));
    EXPECT_VALUE("NSMutableArray ()", VELT_FILE_LIST(nil, at("folder")));
    EXPECT_VALUE("c 1", VELT_FILE_REMOVEFILE(nil, at("folder")));
}

TEST_F(FileFunctions, OfTheManagerDoTheSame) {
    EXPECT_VALUE("c 1", VELT_NSFILEMANAGER_CREATEDIRECTORY(manager, at("folder")));
    EXPECT_VALUE("c 0", VELT_NSFILEMANAGER_CREATEDIRECTORY(manager, at("folder")));
    EXPECT_VALUE("c 1", VELT_NSFILEMANAGER_CREATE(manager, at("folder/data"), data(std::string_view("a\0b", 3))));
    EXPECT_EQ(std::string("a\0b", 3), contentOf(folder.file("folder/data")));
    EXPECT_VALUE("c 1", VELT_NSFILEMANAGER_CREATE(manager, at("folder/data"), str("text")));
    EXPECT_EQ("text", contentOf(folder.file("folder/data")));
    EXPECT_VALUE("c 1", VELT_NSFILEMANAGER_CREATE(manager, at("folder/data"), nil));
    EXPECT_EQ("", contentOf(folder.file("folder/data")));
    EXPECT_CAST_FAILURE("'Data' expected", VELT_NSFILEMANAGER_CREATE(manager, at("folder/data"), integer(5)));
    EXPECT_VALUE("c 1", VELT_NSFILEMANAGER_CREATEFILE(manager, at("folder/empty")));
    EXPECT_VALUE("c 1", VELT_NSFILEMANAGER_COPY(manager, at("folder"), at("copy")));
    EXPECT_VALUE("c 1", VELT_NSFILEMANAGER_LINK(manager, file, at("copy/linked")));
    EXPECT_VALUE("c 1", VELT_NSFILEMANAGER_MOVE(manager, at("copy"), at("moved")));
    EXPECT_VALUE("NSMutableArray (data, empty, linked)", VELT_NSFILEMANAGER_LIST(manager, at("moved")));
    EXPECT_VALUE("nil", VELT_NSFILEMANAGER_LIST(manager, at("copy")));
    EXPECT_VALUE("c 1", VELT_NSFILEMANAGER_DELETE(manager, at("moved")));
    EXPECT_VALUE("c 0", VELT_NSFILEMANAGER_DELETE(manager, at("moved")));
    EXPECT_EQ("content", contentOf(folder.file("file")));
}

TEST_F(FileFunctions, TellFilesFromFolders) {
    std::filesystem::create_symlink("file", folder.file("link"));
    std::filesystem::create_symlink("missing", folder.file("broken"));
    struct Row {
        std::string name;
        const char *exists, *isFile, *isFolder;
    };
    for (const Row& row :
         {Row{"file", "c 1", "c 1", "c 0"}, Row{"", "c 1", "c 0", "c 1"}, Row{"link", "c 1", "c 1", "c 0"},
          Row{"missing", "c 0", "c 0", "c 0"}, Row{"broken", "c 0", "c 0", "c 0"}}) {
        EXPECT_VALUE(row.exists, VELT_NSFILEMANAGER_EXISTS(manager, at(row.name))) << row.name;
        EXPECT_VALUE(row.isFile, VELT_NSFILEMANAGER_EXISTSFILE(manager, at(row.name))) << row.name;
        EXPECT_VALUE(row.isFolder, VELT_NSFILEMANAGER_EXISTSDIRECTORY(manager, at(row.name))) << row.name;
    }
    EXPECT_VALUE("c 0", VELT_NSFILEMANAGER_EXISTS(manager, str("")));
}

TEST_F(FileFunctions, TellWhatTheUserMayDo) {
    EXPECT_VALUE("c 1", VELT_NSFILEMANAGER_ISREADABLE(manager, file));
    EXPECT_VALUE("c 1", VELT_NSFILEMANAGER_ISWRITABLE(manager, file));
    EXPECT_VALUE("c 0", VELT_NSFILEMANAGER_ISEXECUTABLE(manager, file));
    EXPECT_VALUE("c 1", VELT_NSFILEMANAGER_ISDELETABLE(manager, file));
    EXPECT_VALUE("c 1", VELT_NSFILEMANAGER_ISEXECUTABLE(manager, str("/bin/sh")));
    EXPECT_VALUE("c 0", VELT_NSFILEMANAGER_ISDELETABLE(manager, str("/")));
    for (const auto function : {VELT_NSFILEMANAGER_ISREADABLE, VELT_NSFILEMANAGER_ISWRITABLE,
                                VELT_NSFILEMANAGER_ISEXECUTABLE, VELT_NSFILEMANAGER_ISDELETABLE}) {
        EXPECT_VALUE("c 0", function(manager, at("missing")));
    }
}

TEST_F(FileFunctions, ChangeTheWorkingFolder) {
    const id before = VELT_NSFILEMANAGER_PATH(manager);
    EXPECT_VALUE("nil", VELT_NSFILEMANAGER_PATH(manager, at("")));
    const std::string here = std::filesystem::canonical(folder.file("")).string();
    EXPECT_EQ(here, velt::utf8(VELT_NSFILEMANAGER_PATH(manager)));
    EXPECT_VALUE("c 1", VELT_NSFILEMANAGER_EXISTSFILE(manager, str("file")));
    VELT_NSFILEMANAGER_PATH(manager, at("missing"));
    EXPECT_EQ(here, velt::utf8(VELT_NSFILEMANAGER_PATH(manager)));
    VELT_NSFILEMANAGER_PATH(manager, before);
}

TEST_F(FileFunctions, ConvertTheirPaths) {
    EXPECT_VALUE("c 0", VELT_FILE_REMOVEFILE(nil, integer(123456)));
    EXPECT_VALUE("c 1", VELT_NSFILEMANAGER_EXISTS(manager, velt::test::data(folder.file("file"))));
    EXPECT_RAISES("VLException: nil has no text: a string cannot be made from it", VELT_FILE_LIST(nil, nil));
    // A zero in a path would hide what follows it.
    EXPECT_VALUE("c 0", VELT_NSFILEMANAGER_EXISTS(manager, str(std::string_view("/tmp\0/x", 7))));
    EXPECT_VALUE("c 0", VELT_FILE_REMOVEFILE(nil, str(folder.file("file") + std::string("\0x", 2))));
    EXPECT_EQ("content", contentOf(folder.file("file")));
}

TEST_F(FileFunctions, AskTheirReceiver) {
    EXPECT_VALUE("c 0", VELT_NSFILEMANAGER_EXISTS(nil, file));
    EXPECT_VALUE("c 0", VELT_NSFILEMANAGER_COPY(nil, file, at("copy")));
    EXPECT_VALUE("nil", VELT_NSFILEMANAGER_LIST(nil, at("")));
    EXPECT_VALUE("nil", VELT_NSFILEMANAGER_PATH(nil));
    const std::string lead = "NSInvalidArgumentException: 'NSMutableArray' does not understand ";
    EXPECT_RAISES(lead + "'fileExistsAtPath:'", VELT_NSFILEMANAGER_EXISTS(array(), file));
    EXPECT_RAISES(lead + "'fileExistsAtPath:isDirectory:'", VELT_NSFILEMANAGER_EXISTSFILE(array(), file));
    EXPECT_RAISES(lead + "'copyItemAtPath:toPath:error:'", VELT_NSFILEMANAGER_COPY(array(), file, at("copy")));
    EXPECT_RAISES(lead + "'currentDirectoryPath'", VELT_NSFILEMANAGER_PATH(array()));
}

// Programs rely on it.
TEST_F(FileFunctions, SendTheManagerAnActionThatItDoesNotUnderstand) {
    const id clicker = velt::make<Clicker>();
    EXPECT_RAISES("NSInvalidArgumentException: 'NSFileManager' does not understand 'setAction:'",
                  VELT_NSFILEMANAGER_INIT(clicker, "click:"));
    EXPECT_EQ(VELT_id_FILE, VELT_NSFILEMANAGER_INIT(clicker, "press:"));
    EXPECT_EQ(VELT_id_FILE, VELT_NSFILEMANAGER_INIT(nil, "click:"));
    EXPECT_EQ(VELT_id_FILE, VELT_NSFILEMANAGER_INIT(clicker, nullptr));
}

TEST_F(FileFunctions, AreAnsweredByNameInBothFamilies) {
    EXPECT_VALUE("c 1", velt::send(manager, "copyPath:toPath:handler:", file, at("a"), nil));
    EXPECT_VALUE("c 1", velt::send(manager, "copyItemAtPath:toPath:error:", file, at("b"), nil));
    EXPECT_VALUE("c 1", velt::send(manager, "movePath:toPath:handler:", at("a"), at("c"), nil));
    EXPECT_VALUE("c 1", velt::send(manager, "moveItemAtPath:toPath:error:", at("b"), at("d"), nil));
    EXPECT_VALUE("c 1", velt::send(manager, "linkPath:toPath:handler:", file, at("e"), nil));
    EXPECT_VALUE("c 1", velt::send(manager, "linkItemAtPath:toPath:error:", file, at("f"), nil));
    EXPECT_VALUE("c 1", velt::send(manager, "removeFileAtPath:handler:", at("c"), nil));
    EXPECT_VALUE("c 1", velt::send(manager, "removeItemAtPath:error:", at("d"), nil));
    EXPECT_VALUE("c 1", velt::send(manager, "createDirectoryAtPath:attributes:", at("g"), nil));
    EXPECT_VALUE("c 1", velt::send(manager, "createDirectoryAtPath:withIntermediateDirectories:attributes:error:",
                                   at("g/h/i"), boolean(true), nil, nil));
    EXPECT_VALUE("c 0", velt::send(manager, "createDirectoryAtPath:withIntermediateDirectories:attributes:error:",
                                   at("g/j/k"), boolean(false), nil, nil));
    EXPECT_VALUE("c 1", velt::send(manager, "createFileAtPath:contents:attributes:", at("g/h/l"), data("x"), nil));
    EXPECT_VALUE("NSMutableArray (e, f, file, g)", velt::send(manager, "directoryContentsAtPath:", at("")));
    EXPECT_VALUE("NSMutableArray (h)", velt::send(manager, "contentsOfDirectoryAtPath:error:", at("g"), nil));
    EXPECT_VALUE("NSMutableArray (e, f, file, g, g/h, g/h/i, g/h/l)", velt::send(manager, "subpathsAtPath:", at("")));
    EXPECT_VALUE("nil", velt::send(manager, "subpathsAtPath:", file));
    EXPECT_VALUE("c 1", velt::send(manager, "fileExistsAtPath:", file));
    EXPECT_VALUE("c 0", velt::send(manager, "changeCurrentDirectoryPath:", file));
}
