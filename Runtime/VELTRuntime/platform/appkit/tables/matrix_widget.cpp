#include "VELTRuntime/platform/appkit/tables/matrix_widget.h"

#include "VELTRuntime/platform/appkit/color.h"
#include "VELTRuntime/platform/appkit/controls/button_cell.h"
#include "VELTRuntime/platform/appkit/controls/color_group.h"
#include "VELTRuntime/platform/appkit/controls/secret_text.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/font.h"
#include "VELTRuntime/platform/appkit/image.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/tables/cell_painting.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionViewItem>
#include <QToolTip>
#include <cmath>

namespace velt {

QRect MatrixWidget::rectOf(const NSMatrix& matrix, MatrixPlace place) const {
    const NSRect frame = matrix.cellFrameAt(place.row, place.column);
    return QRectF(frame.origin.x, frame.origin.y, frame.size.width, frame.size.height).toRect();
}

MatrixPlace MatrixWidget::placeOf(const QMouseEvent& event) const {
    return matrix()->placeAt({event.position().x(), event.position().y()});
}

void MatrixWidget::matrixChanged() {
    // An edit whose cell has gone ends without a word.
    NSMatrix* shown = matrix();
    if (editor_ && shown && shown->cellAt(edited_.row, edited_.column).isNil()) endEdit(false, false);
    if (editor_ && shown) editor_->setGeometry(rectOf(*shown, edited_));
    valueShown();
}

// Drawing.

void MatrixWidget::paintEvent(QPaintEvent* event) {
    NSMatrix* shown = matrix();
    if (!shown) return;
    const Ref<NSMatrix> kept(shown);
    QPainter painter(this);
    runReported([&] {
        if (kept->drawsBackground()) {
            const id color = kept->backgroundColor();
            painter.fillRect(rect(),
                             is<NSColor>(color) ? qtColor(*as<NSColor>(color)) : palette().color(QPalette::Window));
        }
        for (long row = 0; row < kept->numberOfRows(); ++row) {
            for (long column = 0; column < kept->numberOfColumns(); ++column) {
                const MatrixPlace place{row, column};
                if (rectOf(*kept, place).intersects(event->rect())) paintCell(painter, *kept, place);
            }
        }
    });
}

void MatrixWidget::paintCell(QPainter& painter, NSMatrix& matrix, MatrixPlace place) {
    const Ref<NSCell> cell(as<NSCell>(matrix.cellAt(place.row, place.column)));
    const bool isButton = dynamic_cast<const NSButtonCell*>(cell.get()) != nullptr;
    const bool enabled = isEnabled() && cell->isEnabled();
    QStyleOptionViewItem option;
    option.initFrom(this);
    option.font = font();
    option.rect = rectOf(matrix, place);
    option.state.setFlag(QStyle::State_Enabled, enabled);
    option.state.setFlag(QStyle::State_Active, isActiveWindow());
    option.state.setFlag(QStyle::State_HasFocus, false);
    if (!enabled) option.palette.setCurrentColorGroup(QPalette::Disabled);
    if (matrix.drawsCellBackground()) {
        const id color = matrix.cellBackgroundColor();
        painter.fillRect(option.rect,
                         is<NSColor>(color) ? qtColor(*as<NSColor>(color)) : palette().color(QPalette::Base));
    }
    const bool list = matrix.mode() == static_cast<unsigned long>(MatrixMode::List);
    // Buttons show in their own way that they are on or pressed.
    const bool shown =
        (!isButton && (cell->isHighlighted() || (matrix.showsSelection() && matrix.isSelected(place)))) ||
        (isButton && list && matrix.isSelected(place));
    if (shown) {
        painter.fillRect(option.rect, palette().color(colorGroupOf(*this, enabled), QPalette::Highlight));
        option.state |= QStyle::State_Selected;
    } else if (!isButton && (cell->isBezeled() || cell->isEditable())) {
        painter.fillRect(option.rect, palette().color(QPalette::Base));
    }
    if (!isButton && (cell->isBezeled() || cell->isBordered())) {
        QStyleOptionFrame frame;
        frame.initFrom(this);
        frame.rect = option.rect;
        frame.lineWidth = 1;
        frame.frameShape = QFrame::StyledPanel;
        frame.state.setFlag(QStyle::State_Enabled, enabled);
        frame.state.setFlag(QStyle::State_Sunken, cell->isBezeled());
        style()->drawPrimitive(QStyle::PE_Frame, &frame, &painter, this);
        option.rect.adjust(1, 1, -1, -1);
    }
    drawCell(painter, option, *cell);
    if (hasFocus() && place == matrix.keyPlace()) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        focus.rect = rectOf(matrix, place);
        focus.state |= QStyle::State_KeyboardFocusChange | QStyle::State_Item;
        focus.backgroundColor = palette().color(shown ? QPalette::Highlight : QPalette::Window);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
    }
}

// The person.

bool MatrixWidget::event(QEvent* event) {
    NSMatrix* shown = matrix();
    if (event->type() == QEvent::ToolTip && shown) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const MatrixPlace place = shown->placeAt({static_cast<double>(help->x()), static_cast<double>(help->y())});
        const QString text = qtText(shown->toolTipForCell(shown->cellAt(place.row, place.column)));
        if (!text.isEmpty()) {
            QToolTip::showText(help->globalPos(), text, this, rectOf(*shown, place));
            return true;
        }
    }
    return PressedWidget::event(event);
}

void MatrixWidget::mousePressEvent(QMouseEvent* event) {
    NSMatrix* shown = matrix();
    if (!shown || event->button() != Qt::LeftButton) return;
    const Ref<NSMatrix> kept(shown);
    twice_ = false;
    endEdit(true, false);
    runReported([&] {
        if (!matrix()) return;
        if (kept->canBecomeKeyView()) setFocus(Qt::MouseFocusReason);
        kept->pressed(placeOf(*event), event->modifiers() & Qt::ShiftModifier,
                      event->modifiers() & Qt::ControlModifier);
    });
}

void MatrixWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
    twice_ = true;
}

void MatrixWidget::mouseMoveEvent(QMouseEvent* event) {
    NSMatrix* shown = matrix();
    if (!shown || !(event->buttons() & Qt::LeftButton)) return;
    const Ref<NSMatrix> kept(shown);
    runReported([&] { kept->dragged(placeOf(*event)); });
}

void MatrixWidget::mouseReleaseEvent(QMouseEvent* event) {
    NSMatrix* shown = matrix();
    if (!shown || event->button() != Qt::LeftButton) return;
    const Ref<NSMatrix> kept(shown);
    const bool twice = std::exchange(twice_, false);
    runReported([&] { kept->released(placeOf(*event), twice); });
}

void MatrixWidget::keyPressEvent(QKeyEvent* event) {
    NSMatrix* shown = matrix();
    constexpr Qt::KeyboardModifiers kShortcuts = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    if (!shown || (event->modifiers() & kShortcuts)) {
        event->ignore();
        return;
    }
    const Ref<NSMatrix> kept(shown);
    runReported([&] { event->setAccepted(kept->keyPressed(event->key(), event->modifiers() & Qt::ShiftModifier)); });
}

// Texts.

void MatrixWidget::edit(MatrixPlace place) {
    NSMatrix* shown = matrix();
    if (!shown) return;
    endEdit(true, false);
    const Ref<NSCell> cell(as<NSCell>(shown->cellAt(place.row, place.column)));
    if (!cell) return;
    edited_ = place;
    editor_ = new QLineEdit(this);
    editor_->installEventFilter(this);
    editor_->setGeometry(rectOf(*shown, place));
    editor_->setFont(cell->hasOwnFont() ? as<NSFont>(cell->font())->font() : font());
    if (isSecret(*cell)) editor_->setEchoMode(QLineEdit::Password);
    editor_->setText(qtText(cell->stringValue()));
    editor_->setAccessibleName(toolTip());
    editor_->selectAll();
    editor_->show();
    editor_->setFocus(Qt::OtherFocusReason);
}

void MatrixWidget::endEdit(bool keep, bool sends) {
    QLineEdit* editor = std::exchange(editor_, nullptr);
    if (!editor) return;
    const QString text = editor->text();
    const bool hadFocus = editor->hasFocus();
    editor->removeEventFilter(this);
    editor->hide();
    editor->deleteLater();
    if (hadFocus) setFocus(Qt::OtherFocusReason);
    NSMatrix* shown = matrix();
    if (!keep || !shown) return;
    const Ref<NSMatrix> kept(shown);
    const MatrixPlace place = edited_;
    runReported([&] { kept->edited(place, textValue(text), sends); });
}

bool MatrixWidget::editNext(bool forward) {
    NSMatrix* shown = matrix();
    if (!shown) return false;
    const long columns = shown->numberOfColumns(), count = columns * shown->numberOfRows();
    for (long at = edited_.row * columns + edited_.column + (forward ? 1 : -1); at >= 0 && at < count;
         at += forward ? 1 : -1) {
        const id cell = shown->cellAt(at / columns, at % columns);
        if (!as<NSCell>(cell)->isEditable() || !as<NSCell>(cell)->isEnabled()) continue;
        const Ref<NSMatrix> kept(shown);
        endEdit(true, false);
        runReported([&] {
            kept->selectCellAt(at / columns, at % columns);
            kept->selectTextAt(at / columns, at % columns);
        });
        return true;
    }
    return false;
}

bool MatrixWidget::eventFilter(QObject* watched, QEvent* event) {
    if (watched != editor_) return PressedWidget::eventFilter(watched, event);
    if (event->type() == QEvent::FocusOut) {
        if (static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason) endEdit(true, false);
        return false;
    }
    if (event->type() != QEvent::KeyPress) return false;
    const int key = static_cast<QKeyEvent*>(event)->key();
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter: endEdit(true, true); return true;
    case Qt::Key_Escape: endEdit(false, false); return true;
    case Qt::Key_Tab: return editNext(true);
    case Qt::Key_Backtab: return editNext(false);
    default: return false;
    }
}

// Those who cannot see.

QAccessible::Role MatrixWidget::role() const {
    const NSMatrix* shown = matrix();
    return shown && shown->mode() == static_cast<unsigned long>(MatrixMode::List) ? QAccessible::List
                                                                                  : QAccessible::Grouping;
}

QString MatrixWidget::valueText() const {
    NSMatrix* shown = matrix();
    if (!shown) return {};
    const id cell = shown->selectedCell();
    if (!is<NSCell>(cell)) return {};
    const QString text = qtText(as<NSCell>(cell)->title());
    return isSecret(*as<NSCell>(cell)) ? dotsFor(text, *style()) : text;
}

void MatrixWidget::press() {
    NSMatrix* shown = matrix();
    if (!shown) return;
    const Ref<NSMatrix> kept(shown);
    runReported([&] { kept->performClick(nil); });
}

}  // namespace velt
