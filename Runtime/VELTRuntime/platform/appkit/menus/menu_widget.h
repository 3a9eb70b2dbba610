// The toolkit's menu of an NSMenu: reports its opening and closing, shows alternate items while their modifiers are
// held.
#pragma once

#include <QMenu>

class NSMenu;

namespace velt {

class MenuWidget final : public QMenu {
public:
    explicit MenuWidget(NSMenu& menu);
    /// The menu has gone; this widget follows.
    void forget() { menu_ = nullptr; }
    /// Of an item and its alternates, the one for the modifiers that are held is shown.
    void showAlternates(Qt::KeyboardModifiers held);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    NSMenu* menu_;
};

}  // namespace velt
