// The widget of a combo box: its text, the arrow, and the list that opens under it.
#pragma once

#include "VELTRuntime/platform/appkit/controls/field_widget.h"

#include <QPointer>

class NSComboBox;
class QListWidget;

namespace velt {

class FieldButton;

class ComboWidget final : public FieldWidget {
public:
    ComboWidget();
    void openList();
    void closeList();
    /// The list while it is open, or null.
    QListWidget* list() const;
    QAccessible::Role accessibleRole() const override { return QAccessible::ComboBox; }

protected:
    void syncParts(NSTextField& field) override;
    int trailingRoom() const override { return kPart; }
    void resizeEvent(QResizeEvent* event) override;

private:
    static constexpr int kPart = 20;
    void placeParts();
    NSComboBox* comboBox() const;

    FieldButton* arrow_;
    QPointer<QListWidget> list_;
};

}  // namespace velt
