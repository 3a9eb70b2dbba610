// What a person does while a completion is open, before anybody else hears of it.
#pragma once

#include <QObject>

class Autocompletion;
class QKeyEvent;

namespace velt {

/// While it lives, the keys of an editor's widget go to its completion; a click beside the list, and the editor's
/// losing the keyboard or going out of sight, end it.
class CompletionKeys final : public QObject {
public:
    CompletionKeys(QWidget& page, QWidget& list, Autocompletion& completion);
    ~CompletionKeys() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool pressed(QKeyEvent& event);

    QWidget& page_;
    QWidget& list_;
    Autocompletion& completion_;
};

}  // namespace velt
