// The widget of a pop-up button: opens the menu by mouse and keys; what it shows is its cell's.
#pragma once

#include <QAbstractButton>
#include <QElapsedTimer>

class NSPopUpButton;

namespace velt {

class PopUpWidget final : public QAbstractButton {
public:
    PopUpWidget();
    QSize sizeHint() const override;
    /// The button that it shows; null when that has gone.
    NSPopUpButton* button() const;
    /// Opens the menu.
    void open();
    /// Tells those who listen for the blind of another selection.
    void titleShown(const QString& title);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool moveSelection(int key);
    void search(const QString& typed);

    QString typed_, shown_;
    QElapsedTimer sinceTyped_;
};

}  // namespace velt
