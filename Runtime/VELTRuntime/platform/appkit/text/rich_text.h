// Attributed strings as the toolkit's documents, which read HTML, and back. Everything that shows or reads rich text
// goes through here.
#pragma once

#include "VELTRuntime/platform/foundation/attributed_string.h"

#include <QTextCharFormat>
#include <QTextDocument>

namespace velt {

/// A document that fetches nothing: no pictures, no style sheets, neither from the disk nor from the network.
class ClosedDocument final : public QTextDocument {
public:
    using QTextDocument::QTextDocument;

protected:
    QVariant loadResource(int, const QUrl&) override { return {}; }
};

/// The text of an HTML document: fonts, colours, links, lists (as text, with their marks) and alignment become
/// attributes. Where the HTML says nothing of fonts at all, the text has none of its own; otherwise all of it has.
/// Pictures are left out. Needs no application object.
Ref<NSAttributedString> attributedFromHtml(const QString& html);
Ref<NSAttributedString> attributedFromDocument(const QTextDocument& document);

/// Shows a text in a document, whose default font is that of text without one.
void fillDocument(QTextDocument& document, const NSAttributedString& text, const QFont& font);
/// How text with such attributes (a dictionary or nil) looks.
QTextCharFormat charFormatOf(const id& attributes);
/// The text as HTML, for the clipboard.
QString htmlOf(const NSAttributedString& text, const QFont& font);

}  // namespace velt
