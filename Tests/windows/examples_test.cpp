// The example programs with windows, run where nobody looks: they work themselves and write what they show.
#include "support/processes.h"

#include <QColor>
#include <QImage>
#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <set>

using velt::test::ProgramResult;
using velt::test::runExample;
using velt::test::TemporaryFolder;

TEST(DrawingExample, DrawsAndShowsIt) {
    const TemporaryFolder folder;
    const std::string path = folder.write("picture.png", "");
    setenv("VELT_SCREENSHOT", path.c_str(), 1);
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const ProgramResult result = runExample("drawing", {});
    unsetenv("VELT_SCREENSHOT");
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
    EXPECT_EQ(qRgb(255, 255, 255), picture.pixel(240, 5));
}

TEST(DrawingExample, SaysWhenItsPictureCannotBeWritten) {
    setenv("VELT_SCREENSHOT", "/nowhere/picture.png", 1);
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const ProgramResult result = runExample("drawing", {});
    unsetenv("VELT_SCREENSHOT");
    EXPECT_NE(std::string::npos, result.errors.find("The picture cannot be written to /nowhere/picture.png.\n"));
    EXPECT_EQ(1, result.status);
}

TEST(ControlsExample, ShowsEveryControlAndWorksSome) {
    const TemporaryFolder folder;
    const std::string path = folder.file("picture.png");
    setenv("VELT_SCREENSHOT", path.c_str(), 1);
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const ProgramResult result = runExample("controls", {});
    unsetenv("VELT_SCREENSHOT");
    EXPECT_EQ("The picture is in " + path + ".\n", result.output);
    EXPECT_EQ(0, result.status);
    const QImage picture(QString::fromStdString(path));
    ASSERT_EQ(QSize(984, 812), picture.deviceIndependentSize().toSize());
    // Every place of the grid shows something: dots of more than one colour.
    for (int place = 0; place < 41; ++place) {
        const int x = 16 + 92 + place / 12 * 240, top = 812 - 760 - 12 + place % 12 * 52 - 20;
        std::set<QRgb> seen;
        for (int y = std::max(top, 0); y < top + 40; ++y) {
            for (int i = 0; i < 136; ++i) seen.insert(picture.pixel(x + i, y));
        }
        EXPECT_LT(1u, seen.size()) << "place " << place;
    }
}

TEST(DialogsExample, AnswersItsDialogsAndShowsTheCodes) {
    const TemporaryFolder folder;
    const std::string path = folder.file("picture.png");
    setenv("VELT_SCREENSHOT", path.c_str(), 1);
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const ProgramResult result = runExample("dialogs", {});
    unsetenv("VELT_SCREENSHOT");
    EXPECT_EQ("The picture is in " + path + ".\n", result.output);
    EXPECT_EQ(0, result.status);
    // The window has grown by the view that it was expanded by.
    const QImage picture(QString::fromStdString(path));
    EXPECT_EQ(QSize(520, 480), picture.deviceIndependentSize().toSize());
}
