// The stopwatch example, run as a person without a display runs it.
#include <VELTRuntime/VELTRuntimeUI.h>

#include "support/environment.h"
#include "support/processes.h"

#include <QImage>
#include <gtest/gtest.h>

using namespace velt::test;

TEST(StopwatchExample, WorksItselfAndLeavesAPictureOfItsWindow) {
    const TemporaryFolder folder;
    const EnvironmentVariable screenshot("VELT_SCREENSHOT", folder.file("stopwatch.png"));
    const ProgramResult result = runExample("stopwatch");
    EXPECT_EQ("The picture is in " + folder.file("stopwatch.png") + ".\n", result.output);
    EXPECT_EQ(std::string::npos, result.errors.find("stopwatch")) << result.errors;
    EXPECT_EQ(0, result.status);
    const QImage picture(QString::fromStdString(folder.file("stopwatch.png")));
    ASSERT_FALSE(picture.isNull());
    EXPECT_NEAR(340.0 / 260.0, static_cast<double>(picture.width()) / picture.height(), 0.01);
    // The time in large digits stands out against the window's background.
    const QRgb background = picture.pixel(2, 2);
    int drawn = 0;
    for (int x = 0; x < picture.width(); ++x) drawn += picture.pixel(x, picture.height() / 7) != background;
    EXPECT_LT(10, drawn);
}
