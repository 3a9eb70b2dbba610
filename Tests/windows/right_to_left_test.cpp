// Everything runs from right to left too: VELT_TESTS_RIGHT_TO_LEFT set in the environment turns the desktop round.
#include <VELTRuntime/VELTRuntimeUI.h>

#include "VELTRuntime/platform/appkit/application_object.h"

#include <QApplication>
#include <QMainWindow>
#include <cstdlib>
#include <gtest/gtest.h>

namespace {

bool isAsked() { return std::getenv("VELT_TESTS_RIGHT_TO_LEFT") != nullptr; }

class Direction : public ::testing::Environment {
    void SetUp() override {
        velt::requireApplicationObject("the tests");
        if (isAsked()) QApplication::setLayoutDirection(Qt::RightToLeft);
    }
};

[[maybe_unused]] const auto* const added = ::testing::AddGlobalTestEnvironment(new Direction);

}  // namespace

TEST(RightToLeft, ReachesTheWidgetsOfWindowsAndViews) {
    const auto expected = isAsked() ? Qt::RightToLeft : Qt::LeftToRight;
    const id window = VELT_NSWINDOW_INIT(nil, "");
    EXPECT_EQ(expected, velt::as<NSWindow>(window)->widget().layoutDirection());
    EXPECT_EQ(expected, velt::as<NSView>(VELT_NSWINDOW_CONTENTVIEW(window))->widget().layoutDirection());
}

TEST(RightToLeft, LeavesThePlacesThatProgramsSet) {
    const id window = VELT_NSWINDOW_INIT(nil, "");
    VELT_NSWINDOW_FRAME(window, VELT_ID(NSRect{{10, 20}, {300, 222}}));
    const velt::Ref<NSView> view = velt::make<NSView>(NSRect{{30, 40}, {50, 60}});
    VELT_NSWINDOW_APPEND(window, view);
    velt::as<NSWindow>(window)->widget();
    EXPECT_EQ(QRect(30, 100, 50, 60), view->widget().geometry());
}
