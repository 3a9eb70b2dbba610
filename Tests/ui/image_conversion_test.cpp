#include <VELTRuntime/VELTRuntimeUI.h>

#include "support/processes.h"
#include "support/values.h"

#include <QImage>

using namespace velt::test;
namespace fs = std::filesystem;

namespace {

/// Writes a picture of that size as a file of a folder and returns its path.
std::string writePicture(const TemporaryFolder& folder, const std::string& name, int width, int height,
                         const char* format = "png") {
    QImage picture(width, height, QImage::Format_RGB32);
    picture.fill(Qt::red);
    EXPECT_TRUE(picture.save(QString::fromStdString(folder.file(name)), format));
    return folder.file(name);
}

}  // namespace

TEST(ImageConversion, LoadsTheFileOfAPath) {
    const TemporaryFolder folder;
    const id image = VELT_CNSIMAGE(str(writePicture(folder, "ä.png", 16, 32)));
    EXPECT_VALUE("NSImage <NSImage {16, 32}>", image);
    EXPECT_VALUE("{CGSize=dd} {16, 32}", velt::send(image, "size"));
    EXPECT_VALUE("c 1", velt::send(image, "isValid"));
    EXPECT_EQ(qRgb(255, 0, 0), velt::as<NSImage>(image)->picture().pixel(15, 31));
}

TEST(ImageConversion, LooksAtTheContentOfAFileNotAtItsName) {
    const TemporaryFolder folder;
    const std::string path = writePicture(folder, "picture.txt", 3, 2, "bmp");
    EXPECT_VALUE("NSImage <NSImage {3, 2}>", VELT_CNSIMAGE(str(path)));
}

TEST(ImageConversion, GivesNilForFilesWithoutAPicture) {
    const TemporaryFolder folder;
    EXPECT_TRUE(VELT_CNSIMAGE(str(folder.file("missing.png"))).isNil());
    EXPECT_TRUE(VELT_CNSIMAGE(str(folder.write("text.png", "no picture"))).isNil());
    EXPECT_TRUE(VELT_CNSIMAGE(str(folder.write("empty.png", ""))).isNil());
    EXPECT_TRUE(VELT_CNSIMAGE(str(folder.file(""))).isNil());
    EXPECT_TRUE(VELT_CNSIMAGE(str("")).isNil());
}

TEST(ImageConversion, PassesImagesThrough) {
    const id image = velt::make<NSImage>(QImage(1, 1, QImage::Format_RGB32));
    EXPECT_TRUE(VELT_CNSIMAGE(image) == image);
    EXPECT_TRUE(VELT__NSIMAGE(image) == image);
    EXPECT_TRUE(VELT_CLONE(image) == image);
    EXPECT_VALUE("'NSImage'", VELT_CLASSNAME(image));
}

TEST(ImageConversion, RejectsOtherKinds) {
    for (const id& wrong : {id(), integer(1), data("x"), array(), point(1, 2)}) {
        EXPECT_CAST_FAILURE("'NSImage' expected", VELT_CNSIMAGE(wrong));
    }
    EXPECT_TRUE(VELT__NSIMAGE(nil).isNil());
    EXPECT_CAST_FAILURE("'NSImage' expected", VELT__NSIMAGE(str("a.png")));
}

TEST(ImageConversion, TakesBareNamesFromTheResourceFolder) {
    const TemporaryFolder folder;
    fs::create_directory(folder.file("Resources"));
    fs::copy_file(fs::path(VELT_TEST_PROGRAMS) / "image", folder.file("program"));
    fs::rename(writePicture(folder, "icon.png", 4, 5), folder.file("Resources/icon.png"));
    EXPECT_EQ("<NSImage {4, 5}>\n", runPath(folder.file("program"), {"icon.png"}, "").output);
    EXPECT_EQ("nil\n", runPath(folder.file("program"), {"./icon.png"}, "").output);
}

TEST(LibraryWithWindows, IsLoadedAtTheFirstNeed) {
    const TemporaryFolder folder;
    EXPECT_EQ("<NSImage {7, 8}>\n", runProgram("image", {writePicture(folder, "a.png", 7, 8)}).output);
    EXPECT_EQ("nil\n", runProgram("image", {folder.file("missing.png")}).output);
}

TEST(AttributedStringConversion, ReadsHtmlWithoutADisplay) {
    const id text = VELT_CATTRIBUTEDSTRING(str("<b>a</b> &amp; <u>b</u>"));
    EXPECT_VALUE("NSAttributedString a & b", text);
    EXPECT_VALUE("q 1", velt::send(text, "attribute:atIndex:effectiveRange:", str("NSUnderline"), integer(4), nil));
    EXPECT_FALSE(velt::send(text, "attribute:atIndex:effectiveRange:", str("NSFont"), integer(0), nil).isNil());
}
