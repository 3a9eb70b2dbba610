#include "VELTRuntime/platform/appkit/menus/pop_up_look.h"

#include "VELTRuntime/platform/appkit/font.h"
#include "VELTRuntime/platform/appkit/image.h"
#include "VELTRuntime/platform/appkit/menus/pop_up_button_cell.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/text/fitting_line.h"

#include <QFontMetrics>
#include <QIcon>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <algorithm>

namespace velt {

namespace {

const NSMenuItem* shownItem(const NSPopUpButtonCell& cell) {
    if (cell.pullsDown()) return cell.menuObject().items().empty() ? nullptr : cell.menuObject().items().front().get();
    const id selected = cell.selectedItem();
    return selected.isNil() ? nullptr : as<NSMenuItem>(selected);
}

QIcon iconOf(const NSMenuItem* item) {
    if (!item || !is<NSImage>(item->image())) return {};
    return QIcon(QPixmap::fromImage(as<NSImage>(item->image())->picture()));
}

}  // namespace

void drawPopUp(QPainter& painter, const QStyleOption& given, const NSPopUpButtonCell& cell, const QStyle& style,
               const QWidget* widget) {
    QStyleOptionComboBox option;
    option.QStyleOption::operator=(given);
    option.type = QStyleOptionComboBox::Type;
    option.version = QStyleOptionComboBox::Version;
    option.editable = false;
    option.frame = cell.isBordered();
    option.subControls = QStyle::SC_ComboBoxFrame | QStyle::SC_ComboBoxEditField | QStyle::SC_ComboBoxArrow;
    if (option.state & QStyle::State_Sunken) option.activeSubControls = QStyle::SC_ComboBoxArrow;
    const NSMenuItem* item = shownItem(cell);
    const int small = style.pixelMetric(QStyle::PM_SmallIconSize, &option, widget);
    option.iconSize = QSize(small, small);
    option.currentIcon = iconOf(item);
    painter.setFont(as<NSFont>(cell.font())->font());
    const QRect field = style.subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, widget);
    const int room = field.width() - (option.currentIcon.isNull() ? 0 : small + 8) - 2;
    option.currentText = fittingLine(qtText(cell.title()), painter.font(), Qt::ElideRight, std::max(0, room));
    if (cell.isBordered()) {
        style.drawComplexControl(QStyle::CC_ComboBox, &option, &painter, widget);
    } else if (cell.arrowPosition() != 0) {
        QStyleOption arrow = option;
        arrow.rect = style.subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, widget);
        constexpr int kArrow = 9;
        arrow.rect = QStyle::alignedRect(option.direction, Qt::AlignCenter, {kArrow, kArrow}, arrow.rect);
        style.drawPrimitive(QStyle::PE_IndicatorArrowDown, &arrow, &painter, widget);
    }
    style.drawControl(QStyle::CE_ComboBoxLabel, &option, &painter, widget);
}

QSize popUpSize(const NSPopUpButtonCell& cell, const QStyle& style) {
    const QFontMetrics metrics(as<NSFont>(cell.font())->font());
    int width = metrics.horizontalAdvance(qtText(cell.title()));
    const int small = style.pixelMetric(QStyle::PM_SmallIconSize);
    int height = metrics.height();
    for (const Ref<NSMenuItem>& item : cell.menuObject().items()) {
        int own = metrics.horizontalAdvance(qtText(item->title()));
        if (!item->image().isNil()) {
            own += small + 4;
            height = std::max(height, small);
        }
        if (!cell.pullsDown() || item.get() == cell.menuObject().items().front().get()) width = std::max(width, own);
    }
    QStyleOptionComboBox option;
    option.fontMetrics = metrics;
    option.frame = cell.isBordered();
    return style.sizeFromContents(QStyle::CT_ComboBox, &option, QSize(width + 4, height + 2));
}

}  // namespace velt
