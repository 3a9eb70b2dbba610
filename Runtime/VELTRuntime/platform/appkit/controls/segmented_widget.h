// The widget of a segmented control: one button a segment, joined in a row.
#pragma once

#include <QAbstractButton>
#include <vector>

class NSSegmentedCell;
class NSSegmentedControl;

namespace velt {

/// The size in which all segments can be seen.
QSize segmentsSize(const NSSegmentedCell& cell, const QStyle& style);

class SegmentedWidget;

class SegmentButton final : public QAbstractButton {
public:
    SegmentButton(SegmentedWidget& row, long place);
    long place() const { return place_; }
    SegmentedWidget& row() const { return row_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void nextCheckState() override {}  // the cell decides

private:
    SegmentedWidget& row_;
    long place_;
};

class SegmentedWidget final : public QWidget {
public:
    SegmentedWidget();

    NSSegmentedControl* control() const;
    /// Takes number, contents and states of the segments from the cell.
    void sync();
    QRect segmentRect(long place) const;
    long count() const { return static_cast<long>(buttons_.size()); }
    /// A key moves among the segments; where one is selected, it is the one moved to.
    void move(long from, bool forward);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void arrange();
    void setCurrent(long place);

    std::vector<SegmentButton*> buttons_;  // children
    long current_ = 0;                     // the one that gets the keys
};

}  // namespace velt
