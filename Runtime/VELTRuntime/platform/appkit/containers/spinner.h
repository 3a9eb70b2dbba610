// The turning wheel that says that something goes on, and the filling disc that says how far it has come.
#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QWidget>

namespace velt {

class Spinner final : public QWidget {
public:
    explicit Spinner(QWidget* parent);

    /// Turns while it is seen. Standing still it shows the wheel pale.
    void setTurning(bool turning);
    /// Shows a part of a disc, from 0 to 1, in place of the wheel; below 0 the wheel.
    void setPart(double part);

protected:
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void syncTimer();

    bool turning_ = false;
    double part_ = -1;
    QBasicTimer timer_;
    QElapsedTimer clock_;
};

}  // namespace velt
