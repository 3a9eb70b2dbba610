// The gallery looks as it did: every control is where it was, as large as it was, at each size of the screen and in
// each direction of reading. Letters may look otherwise. After a change that is meant, VELT_RENEW_LAYOUTS=1 set for
// this program stores what is seen now in Tests/data.
#include "support/layout.h"
#include "support/processes.h"

#include <QPainter>
#include <gtest/gtest.h>

using namespace velt::test;

namespace {

constexpr int kTolerance = 4;

/// The grid in which the gallery places its controls, a label and a control in each.
std::vector<Place> places() {
    const char* const names[] = {
        "Push",    "Bevel",    "Square",     "Textured",  "Soft",   "Pill",       "Recessed",    "Gradient", "Round",
        "Help",    "Triangle", "Disclosure", "Check box", "Mixed",  "Left radio", "Right radio", "Segments", "Text",
        "Secure",  "Search",   "Tokens",     "Combo box", "Pop-up", "Date",       "Path",        "Slider",   "Knob",
        "Stepper", "Level",    "Colour",     "Progress",  "Busy",   "Spinning",   "Image",       "Box",      "Line",
        "Scroll",  "Split",    "Tabs",       "Browser",   "Outline"};
    std::vector<Place> all;
    int number = 0;
    for (const char* name : names) {
        const int x = 16 + number / 12 * 240, middle = 40 + number % 12 * 52;
        all.push_back({name, {x + 92, middle - 25, 140, 50}});
        ++number;
    }
    all.push_back({"Log", {10, 640, 964, 166}});
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
    const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
    qputenv("VELT_SCREENSHOT", path.c_str());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_SCALE_FACTOR", mode.scale);
    if (mode.fromRight) qputenv("VELT_SCREENSHOT_FROM_RIGHT", "1");
    const ProgramResult result = runExample("controls");
    qunsetenv("VELT_SCREENSHOT_FROM_RIGHT");
    qunsetenv("VELT_SCREENSHOT");
    qunsetenv("QT_SCALE_FACTOR");
    qputenv("QT_QPA_PLATFORM", platform);
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
    const QRect slider = before[25].box, save = before[0].box;
    painter.fillRect(slider.adjusted(-2, -2, 2, 2), QColor(picture.pixel(1, 1)));
    painter.fillRect(save.adjusted(-2, -2, 2, 2), QColor(picture.pixel(1, 1)));
    painter.drawImage(save.topLeft() + QPoint(9, 0), picture.copy(save));
    painter.end();
    const std::string told = changes(before, layoutOf(changed, places()), kTolerance);
    EXPECT_EQ(0U, told.find("Push moved from ")) << told;
    EXPECT_NE(std::string::npos, told.find("\nSlider is gone\n")) << told;
    EXPECT_EQ("", changes(before, layoutOf(picture, places()), 0));
}
