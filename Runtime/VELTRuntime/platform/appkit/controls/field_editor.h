// The editors that stand in fields: one line that scrolls, or several that wrap.
#pragma once

#include "VELTRuntime/values/value.h"

#include <QString>
#include <memory>
#include <string_view>

class NSAttributedString;
class NSTextField;
class QFont;
class QWidget;

namespace velt {

/// What a field does with the editor that stands in it. Positions count UTF-16 units.
class FieldEditor {
public:
    virtual ~FieldEditor() = default;
    virtual QWidget& widget() = 0;
    virtual QString text() const = 0;
    /// That text stands in it, as far as the editor can show it.
    virtual bool shows(const QString& text) const = 0;
    /// Puts a text in place of all; nobody typed it, and it cannot be undone.
    virtual void setText(const QString& text) = 0;
    /// The same for a text with attributes; the font is that of the parts that name none. An editor of plain text shows
    /// it plainly.
    virtual void setRichText(const NSAttributedString& text, const QFont& font);
    /// The text with the attributes that it is shown with: an attributed string, or a plain one from a plain editor.
    virtual id richText() const;
    virtual int selectionStart() const = 0;
    virtual int selectionLength() const = 0;
    virtual void select(int start, int length) = 0;
    /// Puts a text in the place of the selection, as if it were typed.
    virtual void insert(const QString& text) = 0;
    virtual void cut() = 0;
    virtual void copy() = 0;
    virtual void paste() = 0;
    virtual void undo() = 0;
    virtual void redo() = 0;
    virtual void setLooks(Qt::Alignment alignment, const QString& placeholder, bool readOnly) = 0;
    void selectAll() { select(0, static_cast<int>(text().size())); }
};

std::unique_ptr<FieldEditor> makeLineEditor(QWidget& parent, bool secret);
/// For several lines, or for one line that may have attributes.
std::unique_ptr<FieldEditor> makePageEditor(QWidget& parent, bool oneLine);

}  // namespace velt
