// The widget of a text view: shows the text and its temporary attributes, and hands what a person does to the view.
//
// It never changes the text by itself: keys, input methods, drops and pastes become messages to the view, and the
// document follows the view's storage unit by unit. Moving about and selecting are the toolkit's own.
#pragma once

#include "VELTRuntime/platform/foundation/attributed_string.h"

#include <QBasicTimer>
#include <QPlainTextEdit>
#include <limits>

class NSTextView;

namespace velt {

class FindBar;

class TextWidget final : public QPlainTextEdit {
public:
    TextWidget();

    /// Shows a whole text. The document gets the rest of a long one while nothing else happens, or when it is asked
    /// for.
    void load(const NSAttributedString& text);
    /// Has the text in the document as far as a position at least.
    void loadUpTo(std::size_t position);
    void loadAll() { loadUpTo(std::numeric_limits<std::size_t>::max()); }
    /// A range of what is shown has become another part of the text, of that length from the same place.
    void replaceShown(NSRange range, const NSAttributedString& text, std::size_t newLength);
    /// While it is set, showing another text or selection does not scroll.
    void setKeepsPlace(bool flag) { keepsPlace_ = flag; }
    /// Shows the attributes of a range anew.
    void reformat(NSRange range, const NSAttributedString& text);
    void select(std::size_t anchor, std::size_t position, const std::vector<NSRange>& further);
    /// Scrolls so that a position can be seen.
    void reveal(std::size_t position);
    NSRange charactersIn(const QRectF& rect) const;
    /// Moves the insertion point as a command of that name says; false when there is none.
    bool move(const QString& command);
    /// The range from the insertion point to where a deleting command reaches.
    std::pair<std::size_t, std::size_t> reachOf(QTextCursor::MoveOperation operation);
    /// Does what the key that is being delivered asks for. False when it is none of a text's.
    bool interpretKey();
    bool hasKey() const { return key_ != nullptr; }

    /// Shows the find bar, or takes the keyboard to it.
    void showFindBar();
    void closeFindBar();
    bool isFindBarShown() const;
    /// Says beside what is looked for how the search went.
    void tellFindResult(const QString& text);

    /// Shows all fonts that many times their size; the text's own stay as they are. The text's fonts are shown anew.
    void setScale(double scale, const NSAttributedString& text);
    QFont scaled(QFont font) const;

    // For what is shown beside the text.
    using QPlainTextEdit::blockBoundingGeometry;
    using QPlainTextEdit::blockBoundingRect;
    using QPlainTextEdit::contentOffset;
    using QPlainTextEdit::firstVisibleBlock;
    using QPlainTextEdit::setViewportMargins;
    using QPlainTextEdit::viewportMargins;

protected:
    bool event(QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    QMimeData* createMimeDataFromSelection() const override;
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    NSTextView* view() const;
    void documentChanged(int position, int removed, int added);
    void selectionMoved();
    void reload(const NSAttributedString& text);
    void loadPiece(const NSAttributedString& text);
    void showTemporaryFormats();
    void showTemporaryFormats(const QTextBlock& block, const NSTextView& view);
    void placeFindBar();
    bool pressKey(QKeyEvent& event);
    QTextCharFormat formatOf(const id& attributes) const;
    void insertRuns(QTextCursor& cursor, const NSAttributedString& text, NSRange range);

    bool keepsPlace_ = false;
    bool applying_ = false;  // what happens in the document is the view's doing
    int lastPosition_ = 0;
    int turned_ = 0;  // of the wheel, since the last step of the zoom
    double scale_ = 1;
    std::size_t loaded_ = 0;  // so much of the text is in the document
    QBasicTimer loading_;
    std::size_t anchor_ = 0, position_ = 0;  // the selection as it was last asked for, and what else is selected
    std::vector<NSRange> further_;
    QKeyEvent* key_ = nullptr;
    FindBar* findBar_ = nullptr;
};

/// The text and looks that a clipboard or a drag brings; nil when it brings no text.
id textFrom(const QMimeData& source, bool rich);
/// What a clipboard or a drag gets of a text.
std::unique_ptr<QMimeData> mimeDataOf(const NSAttributedString& text, bool rich, const QFont& font);

}  // namespace velt
