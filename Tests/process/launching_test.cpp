// Opening files and applications, with desktop entries of the tests' own in a folder of their own.
#include "VELTRuntime/process/launching.h"

#include "VELTRuntime/process/desktop_entry.h"
#include "VELTRuntime/process/file_types.h"
#include "support/child_tasks.h"
#include "support/environment.h"
#include "support/processes.h"
#include "support/values.h"

#include <gtest/gtest.h>
#include <unistd.h>

using namespace velt;
using namespace velt::test;

namespace {

/// A desktop in a folder: nothing of the machine's own is seen while it exists.
class Desktop {
public:
    Desktop() {
        for (const char* name : {"data", "data/applications", "data/mime", "config", "system", "system/applications"}) {
            std::filesystem::create_directory(folder_.file(name));
        }
        folder_.write("data/mime/globs2", "50:text/x-csrc:*.c:cs\n50:text/plain:*.txt\n50:image/png:*.png\n"
                                          "50:application/gzip:*.gz\n60:application/x-tarball:*.tar.gz\n# end\n");
        const std::string script =
            folder_.write("record", "#!/bin/sh\nprintf '%s|' \"$@\" >\"$0.out.part\"\nmv \"$0.out.part\" \"$0.out\"\n");
        std::filesystem::permissions(script, std::filesystem::perms::owner_all);
    }
    /// An application that records the arguments that it is started with after its own name.
    void add(const std::string& name, const std::string& more, const std::string& arguments = "%f",
             const std::string& place = "data") {
        folder_.write(place + "/applications/" + name + ".desktop",
                      "[Desktop Entry]\nType=Application\nName=" + name + "\nExec=\"" + folder_.file("record") + "\" " +
                          name + " " + arguments + "\n" + more + "\n[Other Group]\nName=Wrong\n");
    }
    std::string write(const std::string& name, const std::string& text) { return folder_.write(name, text); }
    std::string file(const std::string& name) const { return folder_.file(name); }
    /// What the application was started with that a call starts; the call's result when it says False.
    template <class Call> std::string started(Call&& call) {
        std::filesystem::remove(folder_.file("record.out"));
        if (!VELT_CBOOL(call())) return "False";
        EXPECT_TRUE(runLoopUntil([&] { return std::filesystem::exists(folder_.file("record.out")); }));
        return contentOf(folder_.file("record.out"));
    }
    std::string launched(const std::string& application) {
        return started([&] { return VELT_LAUNCH(string(application), nil, VELT_ID(BOOL{0})); });
    }
    std::string opened(const std::string& application, const std::string& path) {
        return started([&] { return VELT_LAUNCH(string(application), string(path), VELT_ID(BOOL{1})); });
    }

private:
    TemporaryFolder folder_;
    EnvironmentVariable home_{"XDG_DATA_HOME", folder_.file("data")}, folders_{"XDG_DATA_DIRS", folder_.file("system")},
        configuration_{"XDG_CONFIG_HOME", folder_.file("config")},
        configurations_{"XDG_CONFIG_DIRS", folder_.file("none")}, desktop_{"XDG_CURRENT_DESKTOP", "Tests:Other"};
};

}  // namespace

TEST(Launching, FindsApplicationsByNameProgramAndGenericName) {
    Desktop desktop;
    desktop.add("Sketch Pad", "GenericName=Drawing Program\nName[de]=Zeichenblock");
    desktop.add("record", "");
    EXPECT_EQ(desktop.launched("Sketch Pad"), "Sketch|Pad|");
    EXPECT_EQ(desktop.launched("sketch pad"), "Sketch|Pad|");
    EXPECT_EQ(desktop.launched("Zeichenblock"), "Sketch|Pad|");
    EXPECT_EQ(desktop.launched("Drawing program"), "Sketch|Pad|");
    EXPECT_EQ(desktop.launched("Record"), "record|");
    EXPECT_EQ(desktop.launched("Wrong"), "False");
    EXPECT_EQ(desktop.launched(""), "False");
}

TEST(Launching, PrefersTheUsersEntryAndHidesWhatItHides) {
    Desktop desktop;
    desktop.add("editor", "", "user", "data");
    desktop.add("editor", "", "system", "system");
    desktop.add("viewer", "Hidden=true", "", "data");
    desktop.add("viewer", "", "", "system");
    desktop.add("absent", "TryExec=/no/such/program");
    EXPECT_EQ(desktop.launched("editor"), "editor|user|");
    EXPECT_EQ(desktop.launched("viewer"), "False");
    EXPECT_EQ(desktop.launched("absent"), "False");
}

TEST(Launching, IsFalseForAProgramThatIsNotThere) {
    Desktop desktop;
    desktop.write("data/applications/gone.desktop", "[Desktop Entry]\nType=Application\nName=Gone\nExec=/no/such %f\n");
    desktop.write("data/applications/odd.desktop", "[Desktop Entry]\nType=Application\nName=Odd\nExec=\"open\n");
    EXPECT_EQ(desktop.launched("Gone"), "False");
    EXPECT_EQ(desktop.launched("Odd"), "False");
}

TEST(Launching, GivesTheFileWhereTheCommandWantsIt) {
    Desktop desktop;
    const std::string path = desktop.write("a b'é.txt", "");
    desktop.add("plain", "", "");
    desktop.add("first", "", "-f %F last");
    desktop.add("address", "Icon=pencil", "%u 100%% %i %c %k %m");
    desktop.add("quoted", "", R"("a \"b\" \\\\ %f" x\sy)");
    EXPECT_EQ(desktop.opened("plain", path), "plain|" + path + "|");
    EXPECT_EQ(desktop.opened("first", path), "first|-f|" + path + "|last|");
    EXPECT_EQ(desktop.launched("first"), "first|-f|last|");
    EXPECT_EQ(desktop.opened("address", path), "address|file://" + desktop.file("a%20b'%C3%A9.txt") +
                                                   "|100%|--icon|pencil|address|" +
                                                   desktop.file("data/applications/address.desktop") + "|");
    EXPECT_EQ(desktop.launched("quoted"), "quoted|a \"b\" \\ %f|x|y|");
}

TEST(Launching, OpensNothingThatIsNotThere) {
    Desktop desktop;
    desktop.add("editor", "MimeType=text/plain;");
    EXPECT_EQ(desktop.opened("editor", desktop.file("missing")), "False");
    EXPECT_EQ(desktop.started([&] { return VELT_TEXTEDIT(string(desktop.file("missing"))); }), "False");
}

TEST(Launching, TakesTheUsersDefaults) {
    Desktop desktop;
    for (const char* name : {"one", "two", "three"}) desktop.add(name, "MimeType=text/plain;");
    const std::string path = desktop.write("x.txt", "");
    const auto edited = [&] { return desktop.started([&] { return VELT_TEXTEDIT(string(path)); }); };
    EXPECT_EQ(edited(), "one|" + path + "|");
    desktop.write("config/mimeapps.list", "[Removed Associations]\ntext/plain=one.desktop;\n");
    EXPECT_EQ(edited(), "three|" + path + "|");
    desktop.write("config/mimeapps.list", "[Added Associations]\ntext/plain=two.desktop;one.desktop;\n");
    EXPECT_EQ(edited(), "two|" + path + "|");
    desktop.write("config/mimeapps.list", "[Default Applications]\ntext/plain=gone.desktop;three.desktop;\n");
    EXPECT_EQ(edited(), "three|" + path + "|");
    desktop.write("config/tests-mimeapps.list", "[Default Applications]\ntext/plain=one.desktop\n");
    EXPECT_EQ(edited(), "one|" + path + "|");
}

TEST(Launching, KnowsWhatTheNamesStandFor) {
    Desktop desktop;
    desktop.add("images", "MimeType=image/png;");
    desktop.add("text", "MimeType=text/plain;");
    desktop.add("files", "MimeType=inode/directory;");
    desktop.add("designer", "MimeType=application/x-designer;");
    desktop.add("browser", "MimeType=text/html;x-scheme-handler/http;x-scheme-handler/https;", "%u");
    desktop.add("mail", "MimeType=x-scheme-handler/mailto;", "%u");
    const std::string picture = desktop.write("p.png", ""), source = desktop.write("s.c", ""),
                      page = desktop.write("page", "<html>"), form = desktop.write("f.ui", "<ui version=\"4.0\">");
    EXPECT_EQ(desktop.started([&] { return VELT_PREVIEW(string(picture)); }), "images|" + picture + "|");
    EXPECT_EQ(desktop.started([&] { return VELT_PREVIEW(string(source)); }), "text|" + source + "|");
    EXPECT_EQ(desktop.started([&] { return VELT_TEXTEDIT(string(source)); }), "text|" + source + "|");
    EXPECT_EQ(desktop.started([&] { return VELT_FINDER(string(desktop.file("data"))); }),
              "files|" + desktop.file("data") + "|");
    EXPECT_EQ(desktop.started([&] { return VELT_VELTINTERFACEBUILDER(string(form)); }), "designer|" + form + "|");
    EXPECT_EQ(desktop.started([&] { return VELT_SAFARI(string(page)); }), "browser|file://" + page + "|");
    EXPECT_EQ(desktop.started([&] { return VELT_SAFARI("https://example.org/a?b#c"_v); }),
              "browser|https://example.org/a?b#c|");
    EXPECT_EQ(desktop.started([&] { return VELT_SAFARI("mailto:a@b.org"_v); }), "mail|mailto:a@b.org|");
    EXPECT_EQ(desktop.started([&] { return VELT_SAFARI("gopher://x"_v); }), "False");
    EXPECT_EQ(desktop.started([&] { return VELT_SAFARI("no address"_v); }), "False");
    EXPECT_EQ(desktop.launched("TextEdit"), "text|");
    EXPECT_EQ(desktop.launched("Preview"), "images|");
    EXPECT_EQ(desktop.opened("Finder", picture), "files|" + picture + "|");
}

TEST(Launching, ConvertsTheFlagFirstAndNeedsStrings) {
    EXPECT_CAST_FAILURE("'Boolean' expected", VELT_LAUNCH(nil, nil, nil));
    EXPECT_CAST_FAILURE("'String' expected", VELT_LAUNCH(nil, nil, VELT_ID(BOOL{0})));
    EXPECT_CAST_FAILURE("'String' expected", VELT_LAUNCH("x"_v, VELT_ID(1L), VELT_ID(BOOL{0})));
    EXPECT_CAST_FAILURE("'String' expected", VELT_PREVIEW(nil));
    EXPECT_CAST_FAILURE("'String' expected", VELT_TEXTEDIT(VELT_ID(1L)));
    EXPECT_CAST_FAILURE("'String' expected", VELT_FINDER(nil));
    EXPECT_CAST_FAILURE("'String' expected", VELT_VELTINTERFACEBUILDER(nil));
    EXPECT_CAST_FAILURE("'String' expected", VELT_SAFARI(nil));
}

TEST(FileTypes, ComeFromTheNameAndElseFromTheContent) {
    Desktop desktop;
    EXPECT_EQ(typeOfFile(desktop.write("A.PNG", "")), "image/png");
    EXPECT_EQ(typeOfFile(desktop.write("a.tar.gz", "")), "application/x-tarball");
    EXPECT_EQ(typeOfFile(desktop.write("a.C", "int x;")), "text/plain");
    EXPECT_EQ(typeOfFile(desktop.write("letter", "%PDF-1.7")), "application/pdf");
    EXPECT_EQ(typeOfFile(desktop.write("bytes", std::string("a\0b", 3))), "application/octet-stream");
    EXPECT_EQ(typeOfFile(desktop.file("")), "inode/directory");
    EXPECT_EQ(typeOfFile(desktop.file("missing")), "");
}
