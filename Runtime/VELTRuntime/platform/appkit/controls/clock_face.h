// A clock with hands that a person can turn.
#pragma once

#include <QTime>
#include <QWidget>
#include <functional>

namespace velt {

class ClockFace final : public QWidget {
public:
    explicit ClockFace(QWidget& parent);

    QTime time() const { return time_; }
    /// Shows a time, with the hand of the seconds or without.
    void setTime(QTime time, bool withSeconds);
    /// A person turned a hand.
    std::function<void(QTime)> onChange;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    enum class Hand { None, Hour, Minute };
    void turn(int seconds);
    void turnTo(QPointF point);
    double radius() const;

    QTime time_{0, 0};
    bool withSeconds_ = true;
    Hand held_ = Hand::None;
    int wheel_ = 0;
};

}  // namespace velt
