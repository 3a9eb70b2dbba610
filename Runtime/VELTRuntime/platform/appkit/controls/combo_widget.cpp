#include "VELTRuntime/platform/appkit/controls/combo_widget.h"

#include "VELTRuntime/platform/appkit/controls/combo_box.h"
#include "VELTRuntime/platform/appkit/controls/field_parts.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/qt_values.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QListWidget>
#include <QScreen>
#include <QStyle>
#include <algorithm>

namespace velt {

namespace {

/// The open list. Its keys choose; all others are typed into the field.
class ComboList final : public QListWidget {
public:
    ComboList(ComboWidget& box, QWidget* editor) : QListWidget(&box), box_(&box), editor_(editor) {
        setWindowFlag(Qt::Popup);
        setAttribute(Qt::WA_DeleteOnClose);
        setMouseTracking(true);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setFrameShape(QFrame::StyledPanel);
    }

protected:
    void keyPressEvent(QKeyEvent* event) override {
        switch (event->key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown: QListWidget::keyPressEvent(event); return;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (currentRow() >= 0) Q_EMIT itemClicked(currentItem());
            close();
            return;
        case Qt::Key_Escape:
        case Qt::Key_F4: close(); return;
        default: break;
        }
        if (event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab) close();
        if (editor_) QCoreApplication::sendEvent(editor_, event);
    }
    bool event(QEvent* event) override {
        // Tab is a key like others here.
        if (event->type() == QEvent::KeyPress) {
            keyPressEvent(static_cast<QKeyEvent*>(event));
            return true;
        }
        return QListWidget::event(event);
    }
    void mouseMoveEvent(QMouseEvent* event) override {
        QListWidget::mouseMoveEvent(event);
        if (QListWidgetItem* under = itemAt(event->position().toPoint())) setCurrentItem(under);
    }

    void hideEvent(QHideEvent* event) override {
        QListWidget::hideEvent(event);
        NSComboBox* shown = box_ ? static_cast<NSComboBox*>(box_->field()) : nullptr;
        if (shown && !std::exchange(dismissed_, true)) shown->willDismiss();
    }

private:
    QPointer<ComboWidget> box_;
    bool dismissed_ = false;
    QPointer<QWidget> editor_;
};

}  // namespace

ComboWidget::ComboWidget() : arrow_(new FieldButton(FieldButton::Sign::Arrow, QObject::tr("Show the list"), *this)) {
    connect(arrow_, &QAbstractButton::pressed, this, [this] {
        if (editor()) editor()->widget().setFocus(Qt::MouseFocusReason);
        runReported([this] { openList(); });
        arrow_->setDown(false);
    });
}

NSComboBox* ComboWidget::comboBox() const { return static_cast<NSComboBox*>(field()); }

QListWidget* ComboWidget::list() const { return list_ && list_->isVisible() ? list_.data() : nullptr; }

void ComboWidget::openList() {
    NSComboBox* box = comboBox();
    if (!box || list() || !isEnabled()) return;
    const Ref<NSComboBox> kept(box);
    box->willPopUp();
    QStringList texts;
    const long count = box->numberOfItems();
    for (long i = 0; i < count; ++i) texts << qtText(box->textOfItem(i));
    const long selected = box->indexOfSelectedItem();
    if (comboBox() != box || list()) return;  // the program took it away, or opened it itself
    const NSComboBoxCell& cell = box->comboCell();
    auto* opened = new ComboList(*this, editor() ? &editor()->widget() : nullptr);
    list_ = opened;
    opened->setFont(font());
    const int rowHeight = static_cast<int>(cell.itemHeight() + cell.intercellSpacing().height);
    for (const QString& text : texts) (new QListWidgetItem(text, opened))->setSizeHint({0, rowHeight});
    opened->setVerticalScrollBarPolicy(cell.hasVerticalScroller() ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
    opened->setCurrentRow(static_cast<int>(selected));
    connect(opened, &QListWidget::itemClicked, this, [this, opened](QListWidgetItem* row) {
        const int index = opened->row(row);
        opened->close();
        if (NSComboBox* shown = comboBox()) shown->chose(index);
    });
    const long rows = std::clamp(count, 1L, std::max(1L, cell.numberOfVisibleItems()));
    const QRect room = screen()->availableGeometry();
    const int height = static_cast<int>(std::min<long>(rows * rowHeight + 2, room.height()));
    QRect place(mapToGlobal(rect().bottomLeft()), QSize(width(), height));
    // Where there is no room below, it opens above; where there is none above either, it covers the field.
    if (place.bottom() > room.bottom()) place.moveBottom(mapToGlobal(rect().topLeft()).y());
    if (place.top() < room.top()) place.moveTop(room.top());
    opened->setGeometry(place);
    opened->setAccessibleName(accessibleName());
    opened->show();
    opened->scrollToItem(opened->currentItem());
}

void ComboWidget::closeList() {
    if (list_) list_->close();
}

void ComboWidget::syncParts(NSTextField&) { placeParts(); }

void ComboWidget::placeParts() {
    const QRect inner = frameContents();
    const QRect end(inner.right() - kPart + 1, inner.top(), kPart, inner.height());
    arrow_->setGeometry(QStyle::visualRect(layoutDirection(), inner, end));
}

void ComboWidget::resizeEvent(QResizeEvent* event) {
    FieldWidget::resizeEvent(event);
    placeParts();
}

}  // namespace velt
