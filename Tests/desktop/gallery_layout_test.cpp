// The gallery looks as it did: every control is where it was, as large as it was, at each size of the screen and in
// each direction of reading. Letters may look otherwise. After a change that is meant, VELT_RENEW_LAYOUTS=1 set for
// this program stores what is seen now in Tests/data.
#include "support/layout.h"
#include "support/unseen_examples.h"

#include <QPainter>
#include <algorithm>
#include <gtest/gtest.h>

using namespace velt::test;

namespace {

constexpr int kTolerance = 4;

/// A control of the gallery, and how high it is.
struct Row {
    const char* name;
    int height;
};

/// A column of the gallery: where its controls begin, and how far they may reach.
struct Column {
    int left, width;
    std::vector<Row> rows;
};

std::vector<Place> places() {
    const Column columns[] = {{112,
                               130,
                               {{"Default", 26},
                                {"Push", 26},
                                {"Bevel", 28},
                                {"Square", 26},
                                {"Textured", 26},
                                {"Soft", 24},
                                {"Pill", 22},
                                {"Recessed", 22},
                                {"Gradient", 26},
                                {"Round", 32},
                                {"Help", 26},
                                {"Triangle", 20},
                                {"Disclosure", 24}}},
                              {352,
                               178,
                               {{"Check box", 20},
                                {"Mixed", 20},
                                {"Left radio", 20},
                                {"Right radio", 20},
                                {"Segments", 24},
                                {"Pop-up", 26},
                                {"Combo box", 26},
                                {"Text", 26},
                                {"Rich text", 26},
                                {"Secure", 26},
                                {"Search", 26},
                                {"Tokens", 26},
                                {"Date", 26}}},
                              {642,
                               160,
                               {{"Slider", 24},
                                {"Steps", 28},
                                {"Knob", 40},
                                {"Stepper", 28},
                                {"Relevance", 18},
                                {"Capacity", 18},
                                {"Level", 18},
                                {"Rating", 18},
                                {"Colour", 26},
                                {"Progress", 20},
                                {"Busy", 20},
                                {"Spinning", 26},
                                {"Path", 24}}},
                              {914,
                               176,
                               {{"Image", 48},
                                {"Box", 46},
                                {"Line", 4},
                                {"Scroll", 70},
                                {"Split", 30},
                                {"Tabs", 64},
                                {"Browser", 76},
                                {"Outline", 84}}}};
    constexpr int kTop = 44, kGap = 16, kLeastHeight = 24, kMargin = 7;
    std::vector<Place> all;
    for (const Column& column : columns) {
        int top = kTop;
        for (const Row& row : column.rows) {
            const int height = std::max(row.height, kLeastHeight);
            all.push_back({row.name, {column.left - kMargin, top - kMargin, column.width, height + 2 * kMargin}});
            top += height + kGap;
        }
    }
    all.push_back({"Log", {10, 624, 1084, 100}});
    return all;
}

struct Mode {
    const char *file, *scale;
    bool fromRight;
};
constexpr Mode kModes[] = {{"gallery_layout.txt", "1", false},
                           {"gallery_layout_twice_the_size.txt", "2", false},
                           {"gallery_layout_from_right_to_left.txt", "1", true}};

QImage pictureOf(const Mode& mode) {
    const TemporaryFolder folder;
    const std::string path = folder.file("picture.png");
    const EnvironmentVariable scale("QT_SCALE_FACTOR", mode.scale);
    const EnvironmentVariable fromRight("VELT_SCREENSHOT_FROM_RIGHT",
                                        mode.fromRight ? std::optional("1") : std::nullopt);
    const ProgramResult result = runUnseen("controls", path);
    EXPECT_EQ(0, result.status) << result.errors;
    QImage picture(QString::fromStdString(path));
    picture.setDevicePixelRatio(std::atof(mode.scale));
    return picture.convertToFormat(QImage::Format_RGB32);
}

}  // namespace

TEST(GalleryLayout, IsWhatItWas) {
    for (const Mode& mode : kModes) {
        SCOPED_TRACE(mode.file);
        const std::string path = std::string(VELT_SOURCE_FOLDER "/Tests/data/") + mode.file;
        const std::vector<Seen> now = layoutOf(pictureOf(mode), places());
        if (qEnvironmentVariableIsSet("VELT_RENEW_LAYOUTS")) std::ofstream(path) << written(now);
        EXPECT_EQ("", changes(readLayout(path), now, kTolerance));
        for (const Seen& one : now) EXPECT_FALSE(one.box.isEmpty()) << one.name;
    }
}

TEST(GalleryLayout, TellsWhatMovedAndWhatIsGone) {
    const QImage picture = pictureOf(kModes[0]);
    const std::vector<Seen> before = layoutOf(picture, places());
    QImage changed = picture;
    QPainter painter(&changed);
    const auto boxOf = [&](const char* name) {
        return std::find_if(before.begin(), before.end(), [&](const Seen& one) { return one.name == name; })->box;
    };
    const QRect slider = boxOf("Slider"), save = boxOf("Default");
    painter.fillRect(slider.adjusted(-2, -2, 2, 2), QColor(picture.pixel(1, 1)));
    painter.fillRect(save.adjusted(-2, -2, 2, 2), QColor(picture.pixel(1, 1)));
    painter.drawImage(save.topLeft() + QPoint(9, 0), picture.copy(save));
    painter.end();
    const std::string told = changes(before, layoutOf(changed, places()), kTolerance);
    EXPECT_EQ(0U, told.find("Default moved from ")) << told;
    EXPECT_NE(std::string::npos, told.find("\nSlider is gone\n")) << told;
    EXPECT_EQ("", changes(before, layoutOf(picture, places()), 0));
}
