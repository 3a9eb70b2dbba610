// Rows of tables dragged by a person: through the window system's own drag and drop, within a table and to another one.
#include "support/person.h"
#include "support/shown_program.h"

#include <QThread>
#include <cstdlib>
#include <gtest/gtest.h>

using namespace velt::test;

namespace {

class DraggedRows : public testing::Test {
protected:
    void SetUp() override {
        if (!Person::isThere()) GTEST_SKIP() << "xdotool is not installed";
        ASSERT_TRUE(program_.window().exists());
        said_ = program_.window().find("text", "All rows");
        ASSERT_TRUE(says("Ash Birch Cedar Elm | Iris Lily"));
        ASSERT_TRUE(waitFor([&] { return row("Lily").isValid(); })) << program_.window().tree();
    }
    QRect row(const char* name) const { return program_.window().find("cell", name).extents(); }
    bool says(const char* rows) const {
        return waitFor([&] { return said_.text() == rows; });
    }
    /// Drags a row to a place, as slowly as the window system needs to tell both ends of it.
    void drag(const char* name, QPoint to, bool look = false) const {
        const QPoint from = row(name).center();
        Person::hold(from);
        constexpr int kSteps = 12;
        for (int i = 1; i <= kSteps; ++i) {
            Person::moveTo(from + (to - from) * i / kSteps);
            QThread::msleep(20);
        }
        if (look) lookDuring();
        Person::letGo();
    }
    /// Writes the screen into the folder that VELT_SCREENSHOTS names, for people to look at.
    static void lookDuring() {
        const char* folder = std::getenv("VELT_SCREENSHOTS");
        if (!folder) return;
        QGuiApplication::primaryScreen()->grabWindow(0).save(QString::fromUtf8(folder) +
                                                             QStringLiteral("/dragged-rows.png"));
    }
    /// The upper edge of a row: what is dropped there comes before it.
    QPoint before(const char* name) const { return {row(name).center().x(), row(name).top() + 1}; }

    const ShownProgram program_{QStringLiteral(VELT_TEST_PROGRAMS "/dragged_rows"), "Rows"};
    Accessible said_;
};

}  // namespace

TEST_F(DraggedRows, ComeToAnotherPlaceOfTheirTable) {
    drag("Ash", before("Elm"));
    EXPECT_TRUE(says("Birch Cedar Ash Elm | Iris Lily")) << said_.text();
    drag("Elm", before("Birch"));
    EXPECT_TRUE(says("Elm Birch Cedar Ash | Iris Lily")) << said_.text();
}

TEST_F(DraggedRows, ComeIntoAnotherTable) {
    drag("Birch", before("Lily"), true);
    EXPECT_TRUE(says("Ash Cedar Elm | Iris Birch Lily")) << said_.text();
    drag("Iris", before("Ash"));
    EXPECT_TRUE(says("Iris Ash Cedar Elm | Birch Lily")) << said_.text();
    EXPECT_TRUE(program_.runs());
}

TEST_F(DraggedRows, StayWhereTheyWereWhenDroppedElsewhere) {
    const QRect seen = program_.window().extents();
    drag("Cedar", {seen.right() + 60, seen.center().y()});
    // The next drag works, and finds all as it was.
    drag("Ash", before("Cedar"));
    EXPECT_TRUE(says("Birch Ash Cedar Elm | Iris Lily")) << said_.text();
}
