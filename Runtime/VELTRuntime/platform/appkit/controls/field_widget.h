// The widget of a field: its frame, its text when nobody can work it, and the place of the editor when somebody can.
#pragma once

#include "VELTRuntime/platform/appkit/controls/field_editor.h"

#include <QAccessible>
#include <QWidget>

class NSTextField;
class NSTextFieldCell;

namespace velt {

class FieldWidget : public QWidget {
public:
    FieldWidget();

    /// Takes over all that the field's cell says.
    void sync(NSTextField& field);
    /// The editor; null while the text can be neither changed nor selected.
    FieldEditor* editor() const { return editor_; }
    /// The editor shows a text's attributes.
    bool showsAttributes() const { return !shownRich_.isNil(); }
    /// A person's typing made this of the text with attributes.
    void typedRich(const id& text) { shownRich_ = text; }
    /// The field that it shows; null when that has gone.
    NSTextField* field() const;
    /// Where the text stands: within the frame, beside what else the field shows.
    virtual QRect textRect() const;

    QSize sizeHint() const override;
    /// What it is to those who cannot see it, and what it says to them.
    virtual QAccessible::Role accessibleRole() const;
    virtual QString accessibleText() const;
    /// It shows a value besides its editor.
    virtual bool saysText() const { return false; }

protected:
    /// A subclass brings its own parts up to date.
    virtual void syncParts(NSTextField&) {}
    /// The room that parts take at the text's leading and trailing side.
    virtual int leadingRoom() const { return 0; }
    virtual int trailingRoom() const { return 0; }
    virtual bool wantsEditor(const NSTextField& field) const;
    QRect frameContents() const;
    virtual void placeEditor();
    /// Draws the background and the frame.
    void paintFrame(QPainter& painter);
    /// Draws the text, or what the field shows besides the editor.
    virtual void paintText(QPainter& painter, NSTextField& field);

    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    /// What stands in the field: nothing, plain text, a line with attributes, several lines.
    enum class Kind { None, Line, SecretLine, RichLine, Page };
    Kind kindFor(NSTextField& field) const;
    void syncText(NSTextField& field);
    void makeEditor(Kind kind);
    void syncColors(const NSTextFieldCell& cell);

    FieldEditor* editor_ = nullptr;  // one of the widget's children
    Kind kind_ = Kind::None;
    id shownRich_;  // the text with attributes that the editor was given; nil for a plain one
};

/// How a text of the program's alignment stands in a widget.
Qt::Alignment alignmentOf(long alignment, const QString& text, Qt::LayoutDirection direction);

}  // namespace velt
