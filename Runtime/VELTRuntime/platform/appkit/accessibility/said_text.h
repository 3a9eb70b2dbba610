// What a control shows in words, for those who ask for its text: a value that is no number is read this way.
#pragma once

#include <QAccessible>

#include <algorithm>

namespace velt {

/// A text that can be read and neither selected nor changed.
class SaidText : public QAccessibleTextInterface {
public:
    virtual QString said() const = 0;

    QString text(int start, int end) const override {
        const int from = std::clamp(start, 0, characterCount());
        return said().mid(from, std::max(0, end - from));
    }
    int characterCount() const override { return static_cast<int>(said().size()); }
    void selection(int, int* start, int* end) const override { *start = *end = 0; }
    int selectionCount() const override { return 0; }
    void addSelection(int, int) override {}
    void removeSelection(int) override {}
    void setSelection(int, int, int) override {}
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int) override {}
    // Where its letters stand is not known: the control draws its value as it likes.
    QRect characterRect(int) const override { return {}; }
    int offsetAtPoint(const QPoint&) const override { return -1; }
    void scrollToSubstring(int, int) override {}
    QString attributes(int, int* start, int* end) const override {
        *start = 0;
        *end = characterCount();
        return {};
    }
};

}  // namespace velt
