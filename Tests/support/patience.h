// How long a test waits for what comes sooner or later.
#pragma once

#include <QTest>

namespace velt::test {

/// Longer than a busy machine takes, in milliseconds: whoever waits goes on as soon as what is awaited is there.
constexpr int kPatience = 30'000;

/// When somebody begins to wonder, and how long a turn of a test that looks again and again takes.
constexpr int kSoon = 2'000, kTurn = 20;

/// Lets events be handled until a condition holds; false when it does not come to hold.
template <class Condition> bool comesTrue(Condition&& condition) {
    return QTest::qWaitFor(std::forward<Condition>(condition), kPatience);
}

inline bool comesIntoView(QWidget* widget) { return QTest::qWaitForWindowExposed(widget, kPatience); }
inline bool becomesActive(QWidget* widget) { return QTest::qWaitForWindowActive(widget, kPatience); }

}  // namespace velt::test
