// The direction in which windows are read while a test looks at them, whatever the tests run with.
#pragma once

#include <QApplication>

namespace velt::test {

/// Sets the direction of all widgets while it exists.
class Direction {
public:
    explicit Direction(Qt::LayoutDirection direction) : before_(QApplication::layoutDirection()) {
        QApplication::setLayoutDirection(direction);
    }
    ~Direction() { QApplication::setLayoutDirection(before_); }
    Direction(const Direction&) = delete;
    Direction& operator=(const Direction&) = delete;

private:
    Qt::LayoutDirection before_;
};

}  // namespace velt::test
