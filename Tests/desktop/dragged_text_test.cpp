// Words of texts dragged by a person, through the window system's own drag and drop.
#include "support/person.h"
#include "support/shown_program.h"

#include <QThread>
#include <gtest/gtest.h>

using namespace velt::test;

namespace {

class DraggedText : public testing::Test {
protected:
    void SetUp() override {
        if (!Person::isThere()) GTEST_SKIP() << "xdotool is not installed";
        ASSERT_TRUE(program_.window().exists());
        left_ = program_.window().find("text", "Left");
        right_ = program_.window().find("text", "Right");
        ASSERT_TRUE(hold("alpha beta", "one two")) << program_.window().tree();
    }
    bool hold(const char* left, const char* right) const {
        return waitFor([&] { return left_.text() == left && right_.text() == right; });
    }
    /// Within the first word of a text.
    static QPoint firstWordOf(const Accessible& text) { return text.extents().topLeft() + QPoint(14, 12); }
    static QPoint farBehind(const Accessible& text) { return {text.extents().right() - 20, firstWordOf(text).y()}; }
    /// As slowly as the window system needs to tell both ends of it.
    static void drag(QPoint from, QPoint to) {
        Person::hold(from);
        constexpr int kSteps = 12;
        for (int i = 1; i <= kSteps; ++i) {
            Person::moveTo(from + (to - from) * i / kSteps);
            QThread::msleep(20);
        }
        Person::letGo();
    }

    const ShownProgram program_{QStringLiteral(VELT_TEST_PROGRAMS "/dragged_text"), "Texts"};
    Accessible left_, right_;
};

}  // namespace

TEST_F(DraggedText, GoesFromOneTextToAnother) {
    drag(firstWordOf(left_), farBehind(right_));
    EXPECT_TRUE(hold(" beta", "one twoalpha")) << left_.text() << " | " << right_.text();
    EXPECT_TRUE(program_.runs());
}

TEST_F(DraggedText, GoesToAnotherPlaceOfItsText) {
    drag(firstWordOf(left_), farBehind(left_));
    EXPECT_TRUE(hold(" betaalpha", "one two")) << left_.text() << " | " << right_.text();
}

TEST_F(DraggedText, StaysWhereNobodyTakesIt) {
    const QRect seen = program_.window().extents();
    drag(firstWordOf(left_), {seen.right() + 60, seen.center().y()});
    drag(firstWordOf(left_), farBehind(right_));
    EXPECT_TRUE(hold(" beta", "one twoalpha")) << left_.text() << " | " << right_.text();
}
