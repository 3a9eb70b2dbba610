// The example programs with windows, run where nobody looks: they work themselves and write what they show.
#include "support/unseen_examples.h"

#include <QColor>
#include <QImage>
#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <set>
#include <vector>

using namespace velt::test;

TEST(DrawingExample, DrawsAndShowsIt) {
    const TemporaryFolder folder;
    const std::string path = folder.write("picture.png", "");
    const ProgramResult result = runUnseen("drawing", path);
    EXPECT_EQ("The picture is in " + path + ".\n", result.output);
    EXPECT_EQ(0, result.status);
    const QImage picture(QString::fromStdString(path));
    ASSERT_EQ(QSize(480, 360), picture.deviceIndependentSize().toSize());
    std::set<QRgb> seen;
    for (int y = 0; y < picture.height() - 45; ++y) {
        for (int x = 0; x < picture.width(); ++x) seen.insert(picture.pixel(x, y));
    }
    for (const QRgb color : {qRgb(255, 0, 0), qRgb(0, 255, 0), qRgb(0, 0, 255), qRgb(128, 0, 128), qRgb(255, 128, 0)}) {
        EXPECT_TRUE(seen.contains(color)) << QColor(color).name().toStdString();
    }
    EXPECT_EQ(qRgb(255, 255, 255), picture.pixel(240, 5)) << "a press on the palette draws nothing";
}

TEST(DrawingExample, SaysWhenItsPictureCannotBeWritten) {
    const ProgramResult result = runUnseen("drawing", "/nowhere/picture.png");
    EXPECT_NE(std::string::npos, result.errors.find("The picture cannot be written to /nowhere/picture.png.\n"));
    EXPECT_EQ(1, result.status);
}

TEST(GradientsExample, ShowsTheChosenOne) {
    const TemporaryFolder folder;
    const std::string path = folder.file("picture.png");
    const ProgramResult result = runUnseen("gradients", path);
    EXPECT_EQ("The picture is in " + path + ".\n", result.output);
    EXPECT_EQ(0, result.status);
    const QImage picture(QString::fromStdString(path));
    ASSERT_EQ(QSize(720, 424), picture.deviceIndependentSize().toSize());
    // The rainbow: in its swatch, upwards to the right in the sheet, out from the middle in the spot.
    const auto hue = [&](int x, int y) { return picture.pixelColor(x, y).hue(); };
    EXPECT_LT(hue(30, 360), hue(90, 360));
    EXPECT_LT(hue(90, 360), hue(160, 360));
    EXPECT_LT(hue(230, 230), hue(342, 134));
    EXPECT_LT(hue(342, 134), hue(450, 40));
    EXPECT_GT(20, hue(602, 134));
    EXPECT_LT(200, hue(602, 32));
    EXPECT_EQ(picture.pixel(2, 2), picture.pixel(205, 17));  // outside of the round corner
}

TEST(ConverterExample, TypesANumberAndLeavesAPicture) {
    const TemporaryFolder folder;
    const std::string path = folder.file("picture.png");
    setenv("VELT_SCREENSHOT", path.c_str(), 1);
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const ProgramResult result = runExample("converter", {});
    unsetenv("VELT_SCREENSHOT");
    EXPECT_EQ("The picture is in " + path + ".\n", result.output);
    EXPECT_EQ(0, result.status) << result.errors;
    EXPECT_FALSE(QImage(QString::fromStdString(path)).isNull());
}

TEST(ControlsExample, ShowsEveryControlAndWorksSome) {
    const TemporaryFolder folder;
    const std::string path = folder.file("picture.png");
    const ProgramResult result = runUnseen("controls", path);
    EXPECT_EQ("The picture is in " + path + ".\n", result.output);
    EXPECT_EQ(0, result.status);
    const QImage picture(QString::fromStdString(path));
    ASSERT_EQ(QSize(1104, 732), picture.deviceIndependentSize().toSize());
    // Every view beside its name shows something: dots of more than one colour. Column by column, with their heights.
    struct Column {
        int left, width;
        std::vector<int> heights;
    };
    const std::vector<Column> columns{
        {20, 120, {26, 26, 28, 26, 26, 24, 22, 22, 26, 32, 26, 20, 24}},
        {260, 170, {20, 20, 20, 20, 24, 26, 26, 26, 26, 26, 26, 26, 26}},
        {550, 150, {24, 28, 40, 28, 18, 18, 18, 18, 26, 20, 20, 26, 24}},
        {822, 170, {48, 46, 4, 70, 30, 64, 76, 84}},
    };
    for (const Column& column : columns) {
        int top = 732 - 700 + 12;
        for (const int height : column.heights) {
            const int room = std::max(height, 24);
            std::set<QRgb> seen;
            for (int y = top; y < top + room; ++y) {
                for (int x = 0; x < column.width; ++x) seen.insert(picture.pixel(column.left + 92 + x, y));
            }
            EXPECT_LT(1u, seen.size()) << "at " << column.left << ", " << top;
            top += room + 16;
        }
    }
}

TEST(ControlsExample, WearsDarkColoursWhenAsked) {
    const TemporaryFolder folder;
    const std::string path = folder.file("picture.png");
    const ProgramResult result = runUnseen("controls", path, {"--dark"});
    EXPECT_EQ(0, result.status) << result.errors;
    const QImage picture(QString::fromStdString(path));
    ASSERT_FALSE(picture.isNull());
    // Hardly anything is bright: the texts, a picture, the lit parts of controls.
    int bright = 0, all = 0;
    for (int y = 0; y < picture.height(); y += 2) {
        for (int x = 0; x < picture.width(); x += 2, ++all) bright += qGray(picture.pixel(x, y)) > 128 ? 1 : 0;
    }
    EXPECT_LT(bright, all / 12);
}

TEST(TablesExample, SortsItsMillionRowsAndChangesSome) {
    const TemporaryFolder folder;
    const std::string path = folder.file("picture.png");
    const ProgramResult result = runUnseen("tables", path);
    EXPECT_EQ("The picture is in " + path + ".\n", result.output);
    EXPECT_EQ(0, result.status) << result.errors;
    const QImage picture(QString::fromStdString(path));
    ASSERT_EQ(QSize(520, 420), picture.deviceIndependentSize().toSize());
    // A checked box is darker than one that is not; the edited row is in the colour of what is selected.
    const auto darkness = [&](QRect part) {
        int sum = 0;
        for (int y = part.top(); y <= part.bottom(); ++y) {
            for (int x = part.left(); x <= part.right(); ++x) sum += 255 - qGray(picture.pixel(x, y));
        }
        return sum;
    };
    const auto cell = [](int row, int left, int width) { return QRect(left, 38 + row * 24, width, 22); };
    constexpr int kDone = 294, kDoneWidth = 40;
    EXPECT_LT(darkness(cell(2, kDone, kDoneWidth)), darkness(cell(4, kDone, kDoneWidth)));
    EXPECT_LT(4 * darkness(cell(5, kDone, kDoneWidth)), darkness(cell(6, kDone, kDoneWidth)));
    for (int row = 0; row < 14; ++row) EXPECT_LT(0, darkness(cell(row, 112, 60))) << row;
}

TEST(NotesExample, AddsANoteAndShowsAnother) {
    const TemporaryFolder folder;
    const std::string path = folder.file("picture.png");
    const EnvironmentVariable configuration("XDG_CONFIG_HOME", folder.file("config"));
    const ProgramResult result = runUnseen("notes", path);
    EXPECT_EQ("The picture is in " + path + ".\n", result.output);
    EXPECT_EQ(0, result.status) << result.errors;
    const QImage picture(QString::fromStdString(path));
    // The menu bar and the toolbar are above the content.
    EXPECT_NEAR(780.0 / 568.0, static_cast<double>(picture.width()) / picture.height(), 0.05);
    EXPECT_TRUE(std::filesystem::exists(folder.file("config/notes.plist")));
}

TEST(DialogsExample, AnswersItsDialogsAndShowsTheCodes) {
    const TemporaryFolder folder;
    const std::string path = folder.file("picture.png");
    const ProgramResult result = runUnseen("dialogs", path);
    EXPECT_EQ("The picture is in " + path + ".\n", result.output);
    EXPECT_EQ(0, result.status);
    // The window has grown by the view that it was expanded by.
    const QImage picture(QString::fromStdString(path));
    EXPECT_EQ(QSize(520, 480), picture.deviceIndependentSize().toSize());
}
