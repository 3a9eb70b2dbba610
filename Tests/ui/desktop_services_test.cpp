#include <VELTRuntime/VELTRuntimeUI.h>

#include "VELTRuntime/platform/appkit/screen.h"
#include "VELTRuntime/platform/object/providers.h"
#include "support/values.h"

#include <QApplication>
#include <QScreen>
#include <thread>

using namespace velt::test;

namespace {

/// The application object on a screen that nobody sees.
class WithApplication : public ::testing::Test {
    static inline char name_[] = "tests";
    static inline char* arguments_[] = {name_, nullptr};
    struct Environment {
        Environment() { setenv("QT_QPA_PLATFORM", "offscreen", 1); }
    } environment_;
    int count_ = 1;
    QApplication application_{count_, arguments_};
};

}  // namespace

TEST(ScreenFrame, IsZeroWithoutAnApplicationObject) {
    ASSERT_FALSE(QCoreApplication::instance());
    EXPECT_VALUE("{CGRect={CGPoint=dd}{CGSize=dd}} {{0, 0}, {0, 0}}", VELT_SCREENRECT());
}

TEST(DesktopCoordinates, PointUpFromTheLowerEdge) {
    const NSRect belowATopPanel{{0, 30}, {800, 570}}, aboveABottomPanel{{0, 0}, {800, 560}};
    EXPECT_EQ((NSRect{{0, 0}, {800, 570}}), velt::flipped(belowATopPanel, 600));
    EXPECT_EQ((NSRect{{0, 40}, {800, 560}}), velt::flipped(aboveABottomPanel, 600));
    EXPECT_EQ(belowATopPanel, velt::flipped(velt::flipped(belowATopPanel, 600), 600));
}

TEST(Alert, IsNotSoundedWithoutAnApplicationObject) {
    ASSERT_FALSE(QCoreApplication::instance());
    ASSERT_TRUE(velt::providers().soundAlert);
    EXPECT_FALSE(velt::providers().soundAlert());
}

TEST_F(WithApplication, TheScreenFrameIsWhatPanelsLeaveFree) {
    const QScreen* screen = QGuiApplication::primaryScreen();
    ASSERT_TRUE(screen);
    const QRect free = screen->availableGeometry();
    ASSERT_FALSE(free.isEmpty());
    const NSRect frame = VELT_CNSRECT(VELT_SCREENRECT());
    EXPECT_EQ((NSSize{double(free.width()), double(free.height())}), frame.size);
}

TEST_F(WithApplication, TheAlertIsLeftToTheDesktopOnTheMainThread) {
    EXPECT_TRUE(velt::providers().soundAlert());
    bool sounded = true;
    std::thread([&] { sounded = velt::providers().soundAlert(); }).join();
    EXPECT_FALSE(sounded);
}
