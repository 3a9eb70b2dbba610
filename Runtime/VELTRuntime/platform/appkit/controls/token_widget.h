// The widget of a token field: the tokens, and behind them the text that is being typed.
#pragma once

#include "VELTRuntime/platform/appkit/controls/field_widget.h"

#include <QTimer>
#include <vector>

class NSTokenField;

namespace velt {

class TokenWidget final : public FieldWidget {
public:
    TokenWidget();
    /// Shows the completions of what is typed after some seconds, if there are any.
    void offerCompletions(double seconds);
    QString accessibleText() const override;
    bool saysText() const override { return true; }

protected:
    void syncParts(NSTextField& field) override;
    void placeEditor() override;
    void paintText(QPainter& painter, NSTextField& field) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void layOut();
    void showCompletions();
    NSTokenField* tokenField() const;

    std::vector<QString> texts_;
    std::vector<QRect> places_;
    QRect rest_;  // where the editor stands
    QTimer pause_;
};

}  // namespace velt
