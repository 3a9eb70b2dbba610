// How long a test waits for what comes sooner or later.
#pragma once

#include <QTest>

namespace velt::test {

/// Longer than a busy machine takes, in milliseconds: whoever waits goes on as soon as what is awaited is there.
constexpr int kPatience = 30'000;

/// Lets events be handled until a condition holds; false when it does not come to hold.
template <class Condition> bool comesTrue(Condition&& condition) {
    return QTest::qWaitFor(std::forward<Condition>(condition), kPatience);
}

inline bool comesIntoView(QWidget* widget) { return QTest::qWaitForWindowExposed(widget, kPatience); }
inline bool becomesActive(QWidget* widget) { return QTest::qWaitForWindowActive(widget, kPatience); }

}  // namespace velt::test
