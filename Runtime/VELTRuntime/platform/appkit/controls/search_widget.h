// The widget of a search field: a magnifier with the menu of earlier searches, the text, a cross that clears it.
#pragma once

#include "VELTRuntime/platform/appkit/controls/field_widget.h"

#include <QTimer>

class NSSearchField;

namespace velt {

class FieldButton;

class SearchWidget final : public FieldWidget {
public:
    SearchWidget();
    /// Tells the field after a short pause; a pause that is going on starts anew.
    void startPause();
    void stopPause() { pause_.stop(); }
    /// Opens the menu of earlier searches; false when there are none.
    bool openRecents();

protected:
    void syncParts(NSTextField& field) override;
    int leadingRoom() const override { return kPart; }
    int trailingRoom() const override { return kPart; }
    void resizeEvent(QResizeEvent* event) override;

private:
    static constexpr int kPart = 20;
    void placeParts();
    NSSearchField* searchField() const;

    FieldButton* magnifier_;
    FieldButton* cross_;
    QTimer pause_;
};

}  // namespace velt
