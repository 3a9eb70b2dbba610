#include "VELTRuntime/platform/appkit/tables/cell_painting.h"

#include "VELTRuntime/platform/appkit/application.h"
#include "VELTRuntime/platform/appkit/color.h"
#include "VELTRuntime/platform/appkit/controls/button_look.h"
#include "VELTRuntime/platform/appkit/controls/field_widget.h"
#include "VELTRuntime/platform/appkit/controls/secret_text.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/font.h"
#include "VELTRuntime/platform/appkit/image.h"
#include "VELTRuntime/platform/appkit/menus/pop_up_button_cell.h"
#include "VELTRuntime/platform/appkit/menus/pop_up_look.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/tables/table_view.h"
#include "VELTRuntime/platform/appkit/text/fitting_line.h"
#include "VELTRuntime/platform/appkit/text/rich_text_drawing.h"
#include "VELTRuntime/platform/foundation/attributed_string.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>

namespace velt {

namespace {

constexpr int kMargin = 3;  // between a cell's edge and its text

/// By itself a text stands where it is read from: the right for one that is read so, or in a table that is.
Qt::Alignment alignmentOf(const NSCell& cell, const QString& text, Qt::LayoutDirection direction) {
    constexpr long kJustified = 3, kNatural = 4;
    const long asked = cell.alignment() == kJustified ? kNatural : cell.alignment();
    return velt::alignmentOf(asked, text, direction) | Qt::AlignVCenter;
}

void drawImage(QPainter& painter, const QRect& rect, const QImage& picture) {
    if (picture.isNull() || rect.isEmpty()) return;
    QSizeF size = picture.deviceIndependentSize();
    // Shrunk to the place, never enlarged.
    if (size.width() > rect.width() || size.height() > rect.height()) size.scale(rect.size(), Qt::KeepAspectRatio);
    const QRectF place(rect.center().x() - size.width() / 2 + 0.5, rect.center().y() - size.height() / 2 + 0.5,
                       size.width(), size.height());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(place, picture);
}

void drawText(QPainter& painter, const QStyleOptionViewItem& option, const NSCell& cell, const QStyle& style) {
    const QRect rect = option.rect.adjusted(kMargin, 0, -kMargin, 0);
    const QFont font = cell.hasOwnFont() ? as<NSFont>(cell.font())->font() : option.font;
    const bool selected = option.state & QStyle::State_Selected,
               enabled = (option.state & QStyle::State_Enabled) && cell.isEnabled();
    const QPalette::ColorGroup group = !enabled                              ? QPalette::Disabled
                                       : option.state & QStyle::State_Active ? QPalette::Active
                                                                             : QPalette::Inactive;
    painter.setFont(font);
    painter.setPen(option.palette.color(group, selected ? QPalette::HighlightedText : QPalette::Text));
    QString text = shownText(cell, style);
    const Qt::Alignment alignment = alignmentOf(cell, text, option.direction);
    const NSAttributedString* rich = isSecret(cell) ? nullptr : attributedStringOf(cell.objectValue());
    if (rich) {
        const bool wraps = cell.wraps() && QFontMetrics(font).lineSpacing() * 2 <= rect.height();
        const RichTextStyle looks{font,  painter.pen().color(), option.direction,    alignment | Qt::AlignAbsolute,
                                  wraps, Qt::ElideRight,        !enabled || selected};
        drawRichText(painter, rect, *rich, looks);
        return;
    }
    if (cell.wraps() && QFontMetrics(font).lineSpacing() * 2 <= rect.height()) {
        painter.drawText(rect, static_cast<int>(alignment) | Qt::TextWordWrap, text);
        return;
    }
    text.replace(u'\n', QChar::LineSeparator);
    drawLine(painter, rect, text, alignment, Qt::ElideRight);
}

}  // namespace

NSTableView* tableOf(const QWidget* view) {
    NSView* shown = viewOf(view);
    return dynamic_cast<NSTableView*>(shown);
}

void drawCell(QPainter& painter, const QStyleOptionViewItem& option, const NSCell& cell) {
    const QStyle& style = option.widget ? *option.widget->style() : *QApplication::style();
    painter.save();
    painter.setClipRect(option.rect, Qt::IntersectClip);
    if (const auto* popUp = dynamic_cast<const NSPopUpButtonCell*>(&cell)) {
        QStyleOption part = option;
        part.state &= ~(QStyle::State_Selected | QStyle::State_HasFocus | QStyle::State_MouseOver);
        const bool selected = option.state & QStyle::State_Selected;
        if (selected && !cell.isBordered()) {
            for (const QPalette::ColorRole role : {QPalette::ButtonText, QPalette::Text, QPalette::WindowText}) {
                part.palette.setColor(role, option.palette.color(QPalette::HighlightedText));
            }
        }
        drawPopUp(painter, part, *popUp, style, nullptr);
    } else if (const auto* button = dynamic_cast<const NSButtonCell*>(&cell)) {
        QStyleOption part = option;
        part.state &= ~(QStyle::State_HasFocus | QStyle::State_MouseOver);
        part.rect.adjust(kMargin, 0, -kMargin, 0);
        drawButton(painter, part, lookOf(*button, button->isHighlighted()), style, nullptr);
    } else if (const id value = cell.objectValue(); is<NSImage>(value)) {
        drawImage(painter, option.rect, as<NSImage>(value)->picture());
    } else if (is<NSImage>(cell.image())) {
        QStyleOptionViewItem text = option;
        const int side = option.rect.height();
        const QRect place(option.rect.topLeft(), QSize(side, side));
        drawImage(painter, QStyle::visualRect(option.direction, option.rect, place).adjusted(1, 1, -1, -1),
                  as<NSImage>(cell.image())->picture());
        text.rect = QStyle::visualRect(option.direction, option.rect, option.rect.adjusted(side, 0, 0, 0));
        drawText(painter, text, cell, style);
    } else {
        drawText(painter, option, cell, style);
    }
    painter.restore();
}

void CellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& given, const QModelIndex& index) const {
    QStyleOptionViewItem option = given;
    NSTableView* table = tableOf(option.widget);
    if (!table) return;
    const Ref<NSTableView> kept(table);
    const QStyle& style = *option.widget->style();
    style.drawPrimitive(QStyle::PE_PanelItemViewItem, &option, painter, option.widget);
    runReported([&] {
        const id cell = kept->preparedCell(index);
        if (is<NSCell>(cell)) drawCell(*painter, option, *as<NSCell>(cell));
    });
    if (kept->gridStyleMask()) {
        const id color = kept->gridColor();
        painter->setPen(is<NSColor>(color) ? qtColor(*as<NSColor>(color)) : option.palette.color(QPalette::Midlight));
        const bool mirrored = option.direction == Qt::RightToLeft;
        const QRect& rect = option.rect;
        if (kept->gridStyleMask() & 1) {
            painter->drawLine(mirrored ? rect.topLeft() : rect.topRight(),
                              mirrored ? rect.bottomLeft() : rect.bottomRight());
        }
        if (kept->gridStyleMask() & 2) painter->drawLine(rect.bottomLeft(), rect.bottomRight());
    }
    if (option.state & QStyle::State_HasFocus) {
        QStyleOptionFocusRect focus;
        focus.QStyleOption::operator=(option);
        focus.state |= QStyle::State_KeyboardFocusChange | QStyle::State_Item;
        style.drawPrimitive(QStyle::PE_FrameFocusRect, &focus, painter, option.widget);
    }
}

QSize CellDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
    return {option.rect.width(), rowHeight_};
}

QWidget* CellDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                    const QModelIndex& index) const {
    NSTableView* table = tableOf(option.widget);
    if (!table) return nullptr;
    const Ref<NSTableView> kept(table);
    id cell;
    runReported([&] { cell = kept->preparedCell(index); });
    // Buttons and images are worked in place.
    if (!is<NSCell>(cell) || is<NSButtonCell>(cell) || is<NSImage>(as<NSCell>(cell)->objectValue())) return nullptr;
    auto* editor = new QLineEdit(parent);
    editor->setFrame(false);
    if (isSecret(*as<NSCell>(cell))) editor->setEchoMode(QLineEdit::Password);
    if (as<NSCell>(cell)->hasOwnFont()) editor->setFont(as<NSFont>(as<NSCell>(cell)->font())->font());
    return editor;
}

bool CellDelegate::editorEvent(QEvent* event, QAbstractItemModel*, const QStyleOptionViewItem& option,
                               const QModelIndex& index) {
    auto* view = qobject_cast<QAbstractItemView*>(const_cast<QWidget*>(option.widget));
    NSTableView* table = tableOf(view);
    if (!table) return false;
    const bool isKey = event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Space;
    const bool isMouse = (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonRelease) &&
                         static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton;
    if (!isKey && !isMouse) return false;
    const Ref<NSTableView> kept(table);
    bool taken = false;
    runReported([&] {
        const id value = kept->preparedCell(index);
        if (!is<NSButtonCell>(value) || !as<NSCell>(value)->isEnabled() || !kept->mayEdit(index)) return;
        if (is<NSPopUpButtonCell>(value)) {
            if (event->type() == QEvent::MouseButtonRelease) return;
            taken = true;
            const Ref<NSPopUpButtonCell> cell(as<NSPopUpButtonCell>(value));
            QMenu& menu = cell->menuObject().widget();
            const QPersistentModelIndex place(index);
            // The cell shows other rows before the choice is made and as soon as it is. Of a menu that was left without
            // a choice nothing is heard any more.
            const long before = cell->indexOfSelectedItem();
            QObject::disconnect(choice_);
            choice_ = QObject::connect(
                &menu, &QMenu::triggered, view,
                [kept, cell, place, before](QAction*) {
                    const long chosen = cell->indexOfSelectedItem();
                    if (chosen == before || !place.isValid()) return;
                    runReported([&] { kept->setValueAt(place, VELT_ID(chosen)); });
                },
                Qt::SingleShotConnection);
            kept->endSelecting();  // the menu takes the mouse's going up
            cell->popUp(*view->viewport(), option.rect);
            return;
        }
        auto& cell = *as<NSButtonCell>(value);
        taken = true;
        if (event->type() == QEvent::MouseButtonPress) return;
        kept->setValueAt(index, VELT_ID(cell.showsStateBy() ? cell.nextState() : cell.state()));
        NSApplication::sharedApplication().sendAction(cell.action(), cell.target(), kept);
    });
    return taken;
}

}  // namespace velt
