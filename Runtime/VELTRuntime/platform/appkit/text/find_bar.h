// The bar at the foot of a text view in which a person says what to find and what to put in its place.
#pragma once

#include "VELTRuntime/platform/appkit/text/text_finder.h"

#include <QWidget>
#include <functional>

class QCheckBox;
class QLabel;
class QLineEdit;

namespace velt {

class FindBar final : public QWidget {
public:
    explicit FindBar(QWidget& parent);

    /// Shows what a request says, and keeps the request as the person has it from then on.
    void show(FindRequest& request);
    void takeKeyboard();
    void tellResult(const QString& text);

    /// The person asks for an action, by its number, or closes the bar.
    std::function<void(long)> onAction;
    std::function<void()> onClose;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void take();
    void ask(long action);

    FindRequest* request_ = nullptr;
    QLineEdit *find_, *replace_;
    QCheckBox *caseMatters_, *wholeWords_, *wraps_, *inSelection_;
    QLabel* result_;
};

}  // namespace velt
