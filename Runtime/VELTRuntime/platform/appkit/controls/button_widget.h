// The widget of a button: presses by mouse and keys; what it shows is its cell's.
#pragma once

#include <QAbstractButton>

class NSButton;

namespace velt {

class ButtonWidget final : public QAbstractButton {
public:
    ButtonWidget();

    QSize sizeHint() const override;
    /// The button that it shows; null when that has gone.
    NSButton* button() const;
    /// Tells those who listen for the blind of a new state.
    void stateShown(long state);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool hitButton(const QPoint& position) const override;

private:
    bool moveInGroup(int key);
    long shown_ = 0;
};

}  // namespace velt
