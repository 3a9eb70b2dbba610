#include "VELTRuntime/platform/appkit/controls/path_widget.h"

#include "VELTRuntime/platform/appkit/controls/color_group.h"
#include "VELTRuntime/platform/appkit/controls/path_cell.h"
#include "VELTRuntime/platform/appkit/image.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/text/fitting_line.h"
#include "VELTRuntime/platform/foundation/array.h"

#include <QApplication>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QIcon>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QStyleOptionComboBox>
#include <QStyleOptionFocusRect>
#include <QUrl>
#include <cmath>

namespace velt {

namespace {

constexpr double kIcon = 16, kGap = 4, kEdge = 4, kArrow = 12, kRow = 22;

QIcon iconOf(const NSPathComponentCell& part) {
    if (is<NSImage>(part.image())) return QPixmap::fromImage(as<NSImage>(part.image())->picture());
    const auto* url = is<NSURL>(part.url()) ? as<NSURL>(part.url()) : nullptr;
    const bool isFolder = url && url->isFile() && QFileInfo(QString::fromStdString(url->filePath())).isDir();
    const QStyle::StandardPixmap plain = part.iconName() == "drive-harddisk" ? QStyle::SP_DriveHDIcon
                                         : part.iconName() == "user-home"    ? QStyle::SP_DirHomeIcon
                                         : isFolder                          ? QStyle::SP_DirIcon
                                                                             : QStyle::SP_FileIcon;
    return QIcon::fromTheme(QString::fromStdString(part.iconName()), QApplication::style()->standardIcon(plain));
}

QString nameOf(const NSPathComponentCell& part) { return qtText(part.stringValue()); }

double namedWidth(const NSPathComponentCell& part, const QFontMetricsF& metrics) {
    return kIcon + kGap + std::ceil(metrics.horizontalAdvance(nameOf(part))) + kGap;
}

}  // namespace

NSSize pathSize(const NSPathCell& cell, const QFontMetricsF& metrics) {
    const auto& parts = cell.components();
    double width = 2 * kEdge;
    if (cell.pathStyle() == NSPathCell::kPopUp) {
        constexpr double kPopUpArrow = 28;
        width += kPopUpArrow + (parts.empty() ? 0 : namedWidth(*parts.back(), metrics));
    } else {
        for (const auto& part : parts) width += namedWidth(*part, metrics) + kArrow;
        if (!parts.empty()) width -= kArrow;
    }
    if (parts.empty()) width += metrics.horizontalAdvance(qtText(cell.placeholderString()));
    return {std::ceil(width), std::max(kRow, std::ceil(metrics.height()) + kEdge)};
}

PathWidget::PathWidget() { setAcceptDrops(true); }

NSPathControl* PathWidget::path() const { return static_cast<NSPathControl*>(control()); }
const NSPathCell& PathWidget::cell() const { return path()->ownCell(); }
bool PathWidget::isPopUp() const { return path() && cell().pathStyle() == NSPathCell::kPopUp; }

QAccessible::Role PathWidget::role() const { return isPopUp() ? QAccessible::ButtonMenu : QAccessible::List; }

QString PathWidget::valueText() const { return path() ? qtText(cell().stringValue()) : QString(); }

QSize PathWidget::sizeHint() const {
    if (!path()) return {};
    const NSSize size = cell().cellSize();
    return QSizeF(size.width, size.height).toSize();
}

void PathWidget::cellShown() {
    const int last = static_cast<int>(cell().components().size()) - 1;
    current_ = std::min(current_, last);
    pressed_ = std::min(pressed_, last);
    valueShown();
}

// Where the parts are.

std::vector<PathWidget::Part> PathWidget::layOut() const {
    const auto& cells = cell().components();
    const QFontMetricsF metrics(font());
    std::vector<Part> parts;
    double total = 2 * kEdge;
    for (const auto& part : cells) {
        parts.push_back({0, namedWidth(*part, metrics), true});
        total += parts.back().width + kArrow;
    }
    if (!parts.empty()) total -= kArrow;
    // For want of room the parts from the root on are icons alone; the last one keeps its name as long as it can.
    for (std::size_t i = 0; i + 1 < parts.size() && total > width(); ++i) {
        total -= parts[i].width - kIcon;
        parts[i] = {0, kIcon, false};
    }
    // Then those from the root on are left out, until some of the last one's name can be read.
    std::size_t first = 0;
    if (!parts.empty()) {
        constexpr double kReadable = 60;
        Part& last = parts.back();
        const double least = std::min(last.width, kReadable);
        for (; first + 1 < parts.size() && total - (last.width - least) > width(); ++first) {
            total -= parts[first].width + kArrow;
            parts[first] = {0, 0, false};
        }
        if (total > width()) last.width = std::max(last.width - (total - width()), kIcon);
    }
    double left = kEdge;
    for (std::size_t i = first; i < parts.size(); ++i) {
        parts[i].left = left;
        left += parts[i].width + kArrow;
    }
    return parts;
}

QRect PathWidget::partRect(int index) const {
    const std::vector<Part> parts = layOut();
    if (index < 0 || index >= static_cast<int>(parts.size())) return {};
    if (parts[static_cast<std::size_t>(index)].width <= 0) return {};
    const Part& part = parts[static_cast<std::size_t>(index)];
    const QRect place(static_cast<int>(part.left), 0, static_cast<int>(part.width), height());
    return QStyle::visualRect(layoutDirection(), rect(), place);
}

int PathWidget::partAt(QPointF point) const {
    if (!path()) return -1;
    const int count = static_cast<int>(cell().components().size());
    if (isPopUp()) return rect().contains(point.toPoint()) ? count - 1 : -1;
    for (int i = 0; i < count; ++i) {
        if (partRect(i).contains(point.toPoint())) return i;
    }
    return -1;
}

// Drawing.

void PathWidget::paintEvent(QPaintEvent*) {
    if (!path()) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (isPopUp()) {
        drawPopUp(painter);
        return;
    }
    const QPalette::ColorGroup group = colorGroupOf(*this);
    if (is<NSColor>(cell().backgroundColor())) {
        painter.fillRect(rect(), qtColor(*as<NSColor>(cell().backgroundColor())));
    }
    if (cell().pathStyle() == NSPathCell::kNavigationBar) {
        const QColor face = palette().color(group, QPalette::Button);
        QLinearGradient shade(0, 0, 0, height());
        shade.setColorAt(0, face.lighter(106));
        shade.setColorAt(1, face.darker(106));
        painter.setPen(palette().color(group, QPalette::Mid));
        if (!is<NSColor>(cell().backgroundColor())) painter.setBrush(shade);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
        painter.setBrush(Qt::NoBrush);
    }
    const std::vector<Part> parts = layOut();
    for (std::size_t i = 0; i < parts.size(); ++i) drawPart(painter, static_cast<int>(i), parts[i]);
    if (!parts.empty()) return;
    painter.setPen(palette().color(group, QPalette::PlaceholderText));
    painter.drawText(QRectF(rect()).adjusted(kEdge, 0, -kEdge, 0), Qt::AlignVCenter | Qt::AlignLeading,
                     qtText(cell().placeholderString()));
}

void PathWidget::drawPart(QPainter& painter, int index, const Part& part) const {
    const auto& cells = cell().components();
    const NSPathComponentCell& shown = *cells[static_cast<std::size_t>(index)];
    const QPalette::ColorGroup group = colorGroupOf(*this);
    const QRect place = partRect(index);
    if (place.isEmpty()) return;
    const bool last = index + 1 == static_cast<int>(cells.size());
    const bool focused = hasFocus() && index == (current_ < 0 ? static_cast<int>(cells.size()) - 1 : current_);
    if (pressed_ == index || focused) {
        QColor mark = palette().color(group, QPalette::Highlight);
        mark.setAlphaF(pressed_ == index ? 0.45F : 0.22F);
        painter.setPen(Qt::NoPen);
        painter.setBrush(mark);
        painter.drawRoundedRect(QRectF(place).adjusted(-2, 2, 2, -2), 3, 3);
        painter.setBrush(Qt::NoBrush);
    }
    const auto side = static_cast<int>(std::min(kIcon, std::max(height() - 2.0, 1.0)));
    const QRect iconPlace =
        QStyle::visualRect(layoutDirection(), place, QRect(place.left(), (height() - side) / 2, side, side));
    iconOf(shown).paint(&painter, iconPlace, Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
    painter.setPen(palette().color(group, QPalette::WindowText));
    if (part.named && part.width > kIcon + kGap) {
        QRect text = place.adjusted(static_cast<int>(kIcon + kGap), 0, 0, 0);
        text = QStyle::visualRect(layoutDirection(), place, text);
        const QString name = fittingLine(nameOf(shown), font(), Qt::ElideMiddle, text.width());
        painter.drawText(text, Qt::AlignVCenter | Qt::AlignLeading, name);
    }
    if (last) return;
    QColor arrow = palette().color(group, QPalette::WindowText);
    arrow.setAlphaF(0.55F);
    painter.setPen(QPen(arrow, 1.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const double forward = isRightToLeft() ? -1 : 1;
    const double middle = isRightToLeft() ? place.left() - kArrow / 2 : place.right() + 1 + kArrow / 2;
    constexpr double kHalf = 3;
    const QPointF points[] = {{middle - forward * kHalf / 2, height() / 2.0 - kHalf},
                              {middle + forward * kHalf / 2, height() / 2.0},
                              {middle - forward * kHalf / 2, height() / 2.0 + kHalf}};
    painter.drawPolyline(points, 3);
}

void PathWidget::drawPopUp(QPainter& painter) const {
    QStyleOptionComboBox box;
    box.initFrom(this);
    if (pressed_ >= 0) box.state |= QStyle::State_Sunken;
    box.subControls = QStyle::SC_ComboBoxFrame | QStyle::SC_ComboBoxArrow;
    const auto& cells = cell().components();
    if (cells.empty()) {
        box.currentText = qtText(cell().placeholderString());
    } else {
        box.currentText = nameOf(*cells.back());
        box.currentIcon = iconOf(*cells.back());
        box.iconSize = QSize(static_cast<int>(kIcon), static_cast<int>(kIcon));
    }
    style()->drawComplexControl(QStyle::CC_ComboBox, &box, &painter, this);
    style()->drawControl(QStyle::CE_ComboBoxLabel, &box, &painter, this);
}

// The mouse and the keyboard.

void PathWidget::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !path()) {
        event->ignore();
        return;
    }
    if (isPopUp()) {
        showMenu();
        return;
    }
    pressed_ = partAt(event->position());
    if (pressed_ >= 0) current_ = pressed_;
    update();
}

void PathWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const int released = std::exchange(pressed_, -1);
    update();
    if (!path() || released < 0 || partAt(event->position()) != released) return;
    const Ref<NSPathComponentCell> part = cell().components()[static_cast<std::size_t>(released)];
    path()->clicked(*part);
}

void PathWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    const int at = partAt(event->position());
    if (event->button() != Qt::LeftButton || isPopUp() || at < 0) return;
    const Ref<NSPathComponentCell> part = cell().components()[static_cast<std::size_t>(at)];
    path()->doubleClicked(*part);
}

void PathWidget::keyPressEvent(QKeyEvent* event) {
    if (!path()) return;
    const int last = static_cast<int>(cell().components().size()) - 1;
    if (isPopUp()) {
        if (event->key() == Qt::Key_Down || event->key() == Qt::Key_Up)
            showMenu();
        else
            PressedWidget::keyPressEvent(event);
        return;
    }
    int at = current_ < 0 ? last : current_;
    switch (event->key()) {
    case Qt::Key_Left: at += isRightToLeft() ? 1 : -1; break;
    case Qt::Key_Right: at += isRightToLeft() ? -1 : 1; break;
    case Qt::Key_Home: at = 0; break;
    case Qt::Key_End: at = last; break;
    default: PressedWidget::keyPressEvent(event); return;
    }
    current_ = last < 0 ? -1 : std::clamp(at, 0, last);
    update();
}

void PathWidget::press() {
    if (!path()) return;
    if (isPopUp()) {
        showMenu();
        return;
    }
    const auto& cells = cell().components();
    if (cells.empty()) return;
    const Ref<NSPathComponentCell> part = current_ < 0 ? cells.back() : cells[static_cast<std::size_t>(current_)];
    path()->clicked(*part);
}

void PathWidget::showMenu() {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto& cells = cell().components();
    if (cell().isEditable()) {
        connect(menu->addAction(QStringLiteral("Choose…")), &QAction::triggered, this, [this] { choose(); });
        if (!cells.empty()) menu->addSeparator();
    }
    for (auto part = cells.rbegin(); part != cells.rend(); ++part) {
        const Ref<NSPathComponentCell>& kept = *part;
        // A menu would take a single & for a mark.
        const QString name = nameOf(*kept).replace(u'&', QStringLiteral("&&"));
        connect(menu->addAction(iconOf(*kept), name), &QAction::triggered, this, [this, kept] {
            if (path()) path()->clicked(*kept);
        });
    }
    menu->popup(mapToGlobal(QPoint(0, height())));
}

void PathWidget::choose() {
    if (!path()) return;
    auto* dialog = new QFileDialog(this, QStringLiteral("Choose"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    const QFileInfo now(valueText());
    const bool folder = cell().url().isNil() || now.isDir();
    dialog->setFileMode(folder ? QFileDialog::Directory : QFileDialog::ExistingFile);
    if (folder && !cell().url().isNil())
        dialog->setDirectory(now.absoluteFilePath());
    else if (!cell().url().isNil())
        dialog->selectFile(now.absoluteFilePath());
    const id types = cell().allowedTypes();
    if (is<NSArray>(types)) {
        QStringList patterns;
        for (const id& type : as<NSArray>(types)->items()) patterns << QStringLiteral("*.") + qtText(type);
        dialog->setFileMode(QFileDialog::ExistingFile);
        dialog->setNameFilter(patterns.join(u' '));
    }
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString& file) {
        if (path()) path()->chosen(file.toStdString());
    });
    dialog->open();
}

void PathWidget::dragEnterEvent(QDragEnterEvent* event) {
    if (!path() || !isEnabled() || !cell().isEditable()) return;
    const QList<QUrl> urls = event->mimeData()->urls();
    if (urls.size() == 1 && urls.front().isLocalFile() && cell().allows(urls.front().toLocalFile().toStdString()))
        event->acceptProposedAction();
}

void PathWidget::dropEvent(QDropEvent* event) {
    const QList<QUrl> urls = event->mimeData()->urls();
    if (!path() || urls.isEmpty() || !urls.front().isLocalFile()) return;
    event->acceptProposedAction();
    path()->chosen(urls.front().toLocalFile().toStdString());
}

}  // namespace velt
