// The widget of a text view: draws the text of the view's storage and its temporary attributes, and hands what a person
// does to the view.
//
// It keeps no text of its own and never changes the view's by itself: keys, input methods, drops and pastes become
// messages to the view, which tells of every change. Moving about and selecting are done here.
#pragma once

#include "VELTRuntime/export.h"
#include "VELTRuntime/platform/appkit/text/shown_lines.h"
#include "VELTRuntime/platform/foundation/attributed_string.h"

#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <QElapsedTimer>
#include <QPointer>
#include <functional>

class NSTextView;

namespace velt {

class FindBar;

class VELT_EXPORT TextWidget final : public QAbstractScrollArea, private LineSource {
public:
    TextWidget();
    ~TextWidget() override;

    // The text. All of it is the view's; these say what of it is another one now.
    /// Shows the view's text, once the widget has one.
    void fill();
    void textReplaced();
    void textChanged(NSRange range, std::size_t newLength);
    void attributesChanged(NSRange range);
    void temporaryAttributesChanged();
    /// While it is set, another text or selection does not scroll.
    void setKeepsPlace(bool flag) { keepsPlace_ = flag; }
    bool keepsPlace() const { return keepsPlace_; }

    // The selection, as the view has it.
    void select(std::size_t anchor, std::size_t position, const std::vector<NSRange>& further);
    std::size_t insertionPoint() const { return position_; }
    /// Scrolls so that a position can be seen.
    void reveal(std::size_t position);

    // What a person does.
    /// Moves the insertion point as a command of that name says; false when there is none.
    bool move(const QString& command);
    /// The range from the insertion point to where a deleting command reaches.
    std::pair<std::size_t, std::size_t> reachOf(QTextCursor::MoveOperation operation);
    /// Does what the key that is being delivered asks for. False when it is none of a text's.
    bool interpretKey();
    bool hasKey() const { return key_ != nullptr; }

    // The find bar.
    /// Shows it, or takes the keyboard to it.
    void showFindBar();
    void closeFindBar();
    bool isFindBarShown() const;
    /// Says beside what is looked for how the search went.
    void tellFindResult(const QString& text);

    // How it is shown.
    void setReadOnly(bool flag);
    bool isReadOnly() const { return isReadOnly_; }
    void setSelectable(bool flag);
    bool isSelectable() const { return isSelectable_; }
    void setAlignment(Qt::Alignment alignment);
    /// Lines break at the widget's edge.
    void setBreaksLines(bool flag);
    bool breaksLines() const { return breaksLines_; }
    /// Shows all fonts that many times their size; the text's own stay as they are.
    void setScale(double scale);
    QFont scaled(QFont font) const;

    // Places, in dots of the viewport.
    /// The line as it is laid out; its text is what is drawn.
    const QTextLayout& layoutOf(std::size_t line) { return lines_.line(line).layout; }
    std::size_t lineCount() const { return lines_.index().count(); }
    std::size_t lineOf(std::size_t position) const { return lines_.index().lineAt(position); }
    QRect caretRect(std::size_t position);
    QRect caretRect() { return caretRect(position_); }
    std::size_t positionAt(const QPoint& place);
    NSRange charactersIn(const QRectF& rect);
    struct ShownRow {
        std::size_t line = 0;
        QRect place;
        double ascent = 0;
    };
    /// The first rows of the lines that begin in sight.
    std::vector<ShownRow> firstRowsInSight();
    /// Called when there are more or fewer lines.
    std::function<void()> onLineCount;
    // For what is shown beside the text.
    using QAbstractScrollArea::setViewportMargins;
    using QAbstractScrollArea::viewportMargins;

    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
    QSize sizeHint() const override { return {256, 192}; }

protected:
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    static constexpr int kMargin = 4;  // around the text
    /// What a person selects by as the mouse is drawn.
    enum class Unit { Characters, Words, Lines };

    std::u16string_view shownText() const override;
    QList<QTextLayout::FormatRange> formatsOf(NSRange range) const override;
    const QTextCharFormat& formatOf(const id& attributes) const;
    NSTextView* view() const;

    // Layout and scrolling.
    void updateStyle();
    void layOutSeen();
    void updateBars();
    void askForUpdate();
    void updateSeen();
    std::size_t lastRowsInSight();
    double topOf(const ShownLines::Row& row);
    ShownLines::Row rowAtHeight(double height);
    template <class Each> void forEachLineInSight(Each&& each);
    double left() const;
    void setTop(const ShownLines::Row& row);
    void updateLines(std::size_t first, std::size_t last);
    void updateCaret();
    void placeFindBar();

    // Drawing.
    void drawLine(QPainter& painter, std::size_t number, const QPointF& place, const QRectF& clip);
    void drawCaret(QPainter& painter, std::size_t position);
    void blink();
    void showCaret();

    // Selecting.
    std::size_t selectionBegin() const { return std::min(anchor_, position_); }
    std::size_t selectionEnd() const { return std::max(anchor_, position_); }
    bool hasSelection() const { return anchor_ != position_; }
    void place(std::size_t position, bool keepsAnchor);
    void selectByPerson(std::size_t anchor, std::size_t position);
    void moveBy(QTextCursor::MoveOperation operation, bool keepsAnchor);
    void moveByPage(bool down, bool keepsAnchor);
    bool moveByKey(QKeyEvent& event);
    static bool isMovement(const QKeyEvent& event);
    NSRange unitAt(std::size_t position) const;
    void extendTo(std::size_t position);
    void offerSelection() const;
    void tellReadersOfText(NSRange range, std::size_t newLength);
    void tellReadersOfSelection();

    bool pressKey(QKeyEvent& event);
    /// The key is for the text, though the program may use it elsewhere. False when the toolkit is to decide.
    bool takesShortcut(QKeyEvent& event);
    void compose(const QInputMethodEvent& event);
    bool canInsert(const QMimeData& source) const;
    void insert(const QMimeData& source);
    std::unique_ptr<QMimeData> selectionData() const;
    void startDrag();
    void setDropPlace(std::optional<std::size_t> position);
    /// The link at a place of the viewport; nil when there is none.
    id attributeUnder(const id& name, const QPoint& place, std::size_t* position = nullptr);
    void updateMouseCursor(const QPoint& place);

    ShownLines lines_{*this};
    ShownLines::Row top_;
    bool keepsPlace_ = false, settingBars_ = false, updateIsAsked_ = false, wasShown_ = false, isFilled_ = false;
    bool isReadOnly_ = false, isSelectable_ = true, breaksLines_ = true;
    Qt::Alignment alignment_ = Qt::AlignLeading;
    double scale_ = 1;
    // How attributes look, by their dictionaries, which are kept so that each stays what it is.
    mutable std::map<const void*, std::pair<id, QTextCharFormat>> looks_;

    std::size_t anchor_ = 0, position_ = 0;
    std::vector<NSRange> further_;
    std::optional<double> across_;  // where the insertion point wants to be while it moves up and down
    bool caretIsLit_ = false;
    QBasicTimer blinking_, scrolling_;
    std::optional<std::size_t> dropPlace_;

    Unit unit_ = Unit::Characters;
    NSRange unitRange_;  // where drawing the mouse began
    bool isSelecting_ = false, mayDrag_ = false;
    QPoint pressed_, drawnTo_;
    QElapsedTimer sinceDoubleClick_;
    int turned_ = 0;  // of the wheel, since the last step of the zoom

    QKeyEvent* key_ = nullptr;
    FindBar* findBar_ = nullptr;
};

template <class Each> void TextWidget::forEachLineInSight(Each&& each) {
    const double bottom = viewport()->height();
    const std::size_t count = lineCount();
    double y = topOf({top_.line, 0});
    for (std::size_t number = top_.line; number < count && y < bottom; ++number) {
        each(number, y);
        y += lines_.line(number).height;
    }
}

/// While it exists, what is shown anew and selected does not scroll a widget, if there is one and for as long as it is
/// there.
class PlaceKeeper {
public:
    explicit PlaceKeeper(TextWidget* widget) : widget_(widget), before_(widget && widget->keepsPlace()) {
        if (widget_) widget_->setKeepsPlace(true);
    }
    ~PlaceKeeper() {
        if (widget_) widget_->setKeepsPlace(before_);
    }
    PlaceKeeper(const PlaceKeeper&) = delete;
    PlaceKeeper& operator=(const PlaceKeeper&) = delete;

private:
    const QPointer<TextWidget> widget_;
    const bool before_;
};

/// The text and looks that a clipboard or a drag brings; nil when it brings no text.
id textFrom(const QMimeData& source, bool rich);
/// What a clipboard or a drag gets of a text.
std::unique_ptr<QMimeData> mimeDataOf(const NSAttributedString& text, bool rich, const QFont& font);

}  // namespace velt
