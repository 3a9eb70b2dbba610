#include "VELTRuntime/platform/appkit/controls/field_widget.h"

#include "VELTRuntime/platform/appkit/accessibility/said_text.h"
#include "VELTRuntime/platform/appkit/controls/secret_text.h"
#include "VELTRuntime/platform/appkit/controls/text_field.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/text/fitting_line.h"
#include "VELTRuntime/platform/appkit/text/rich_text_drawing.h"
#include "VELTRuntime/platform/appkit/view_events.h"

#include <QAbstractScrollArea>
#include <QAccessibleWidget>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QStyle>
#include <QStyleOption>

namespace velt {

namespace {

constexpr int kTextMargin = 2;

using Bezel = NSTextFieldCell::Bezel;
using LineBreak = NSTextFieldCell::LineBreak;

/// What a field is to those who cannot see it.
class FieldAccessible final : public QAccessibleWidget, public SaidText {
public:
    explicit FieldAccessible(FieldWidget& widget) : QAccessibleWidget(&widget, widget.accessibleRole()) {}
    QAccessible::Role role() const override { return field().accessibleRole(); }
    QString text(QAccessible::Text kind) const override {
        const QString shown =
            kind == QAccessible::Name || kind == QAccessible::Value ? field().accessibleText() : QString();
        if (kind == QAccessible::Name && (role() != QAccessible::StaticText || !widget()->accessibleName().isEmpty()))
            return QAccessibleWidget::text(kind);
        return shown.isEmpty() ? QAccessibleWidget::text(kind) : shown;
    }
    using SaidText::text;
    QString said() const override { return field().accessibleText(); }
    void* interface_cast(QAccessible::InterfaceType type) override {
        // A label says its text as its name, and where there is an editor it says its own.
        const bool shows = type == QAccessible::TextInterface && field().saysText();
        return shows ? static_cast<QAccessibleTextInterface*>(this) : QAccessibleWidget::interface_cast(type);
    }

private:
    FieldWidget& field() const { return *static_cast<FieldWidget*>(widget()); }
};

QAccessibleInterface* accessibleFor(const QString&, QObject* object) {
    auto* widget = dynamic_cast<FieldWidget*>(object);
    return widget ? new FieldAccessible(*widget) : nullptr;
}

/// What is left out of a line that is too long. One that would wrap, had it the room, tells by its end that it goes on.
Qt::TextElideMode elision(long mode) {
    switch (static_cast<LineBreak>(mode)) {
    case LineBreak::Clip: return Qt::ElideNone;
    case LineBreak::TruncateHead: return Qt::ElideLeft;
    case LineBreak::TruncateMiddle: return Qt::ElideMiddle;
    default: return Qt::ElideRight;
    }
}

}  // namespace

Qt::Alignment alignmentOf(long alignment, const QString& text, Qt::LayoutDirection direction) {
    const Qt::Alignment asked = qtAlignment(alignment);
    if (asked != Qt::AlignLeading) return asked;
    const bool fromRight = text.isRightToLeft() || direction == Qt::RightToLeft;
    return (fromRight ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignAbsolute;
}

FieldWidget::FieldWidget() {
    static const bool installed = [] {
        QAccessible::installFactory(accessibleFor);
        return true;
    }();
    static_cast<void>(installed);
}

NSTextField* FieldWidget::field() const { return static_cast<NSTextField*>(viewOf(this)); }

bool FieldWidget::wantsEditor(const NSTextField& field) const { return field.isSelectable(); }

void FieldWidget::makeEditor(Kind kind) {
    if (kind == kind_) return;
    const bool hadFocus = editor_ && editor_->widget().hasFocus();
    const QString text = editor_ ? editor_->text() : QString();
    const int start = editor_ ? editor_->selectionStart() : 0, length = editor_ ? editor_->selectionLength() : 0;
    if (editor_) {
        QWidget& old = editor_->widget();
        editor_ = nullptr;
        setFocusProxy(nullptr);
        old.hide();
        old.deleteLater();  // one of its events may be on its way back through the toolkit
    }
    kind_ = kind;
    if (kind == Kind::None) return;
    const bool isLine = kind == Kind::Line || kind == Kind::SecretLine;
    editor_ = (isLine ? makeLineEditor(*this, kind == Kind::SecretLine) : makePageEditor(*this, kind == Kind::RichLine))
                  .release();
    editor_->setText(text);
    shownRich_ = nil;
    watchEvents(editor_->widget());
    if (auto* page = qobject_cast<QAbstractScrollArea*>(&editor_->widget())) watchEvents(*page->viewport());
    setFocusProxy(&editor_->widget());
    editor_->widget().show();
    if (!hadFocus) return;
    editor_->widget().setFocus(Qt::MouseFocusReason);
    editor_->select(start, length);
}

void FieldWidget::syncColors(const NSTextFieldCell& cell) {
    QPalette colors;
    if (cell.hasOwnTextColor()) {
        const QColor text = qtColor(*as<NSColor>(cell.textColor()));
        for (const auto group : {QPalette::Active, QPalette::Inactive}) {
            for (const auto role : {QPalette::Text, QPalette::WindowText}) colors.setColor(group, role, text);
        }
        // A text that cannot be worked is paler, in its own colour.
        QColor pale = text;
        pale.setAlphaF(text.alphaF() * 0.5F);
        for (const auto role : {QPalette::Text, QPalette::WindowText}) colors.setColor(QPalette::Disabled, role, pale);
    }
    if (cell.hasOwnBackgroundColor()) colors.setColor(QPalette::Base, qtColor(*as<NSColor>(cell.backgroundColor())));
    setPalette(colors);
    if (!editor_) return;
    // The field draws the background, also where the editor stands.
    QPalette within;
    within.setBrush(QPalette::Base, Qt::NoBrush);
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        within.setBrush(group, QPalette::Base, Qt::NoBrush);
        if (!cell.hasOwnTextColor()) continue;
        within.setColor(group, QPalette::Text, colors.color(group, QPalette::Text));
    }
    editor_->widget().setPalette(within);
}

FieldWidget::Kind FieldWidget::kindFor(NSTextField& field) const {
    if (!wantsEditor(field)) return Kind::None;
    if (field.isSecret()) return Kind::SecretLine;
    const bool rich = field.textCell().richText() != nullptr;
    // What cannot be worked is drawn, and paler than an editor would show it.
    if (rich && !field.isEnabled()) return Kind::None;
    if (field.showsSeveralLines()) return Kind::Page;
    // A line keeps the editor in which it is being edited.
    return rich || (kind_ == Kind::RichLine && field.isEditing()) ? Kind::RichLine : Kind::Line;
}

void FieldWidget::syncText(NSTextField& field) {
    if (const NSAttributedString* rich = field.textCell().richText()) {
        const id value = field.objectValue();
        if (!isEqual(value, shownRich_)) editor_->setRichText(*rich, font());
        shownRich_ = value;
        return;
    }
    const QString text = qtText(field.editedText());
    const bool lostAttributes = showsAttributes() && !field.isEditing();
    if (lostAttributes || !editor_->shows(text)) editor_->setText(text);
    if (lostAttributes) shownRich_ = nil;
}

void FieldWidget::sync(NSTextField& field) {
    const NSTextFieldCell& cell = field.textCell();
    makeEditor(kindFor(field));
    syncColors(cell);
    const QString text = qtText(field.editedText()), hint = qtText(cell.placeholderString());
    if (editor_) {
        syncText(field);
        editor_->setLooks(alignmentOf(cell.alignment(), text.isEmpty() ? hint : text, layoutDirection()), hint,
                          !cell.isEditable());
        QWidget& inner = editor_->widget();
        inner.setToolTip(toolTip());
        // Without a name of its own a field is called by what it says of itself.
        if (inner.accessibleName().isEmpty() || inner.accessibleName() != accessibleName())
            inner.setAccessibleName(!accessibleName().isEmpty() ? accessibleName() : hint.isEmpty() ? toolTip() : hint);
    }
    syncParts(field);
    placeEditor();
    update();
}

QRect FieldWidget::frameContents() const {
    const NSTextField* shown = field();
    if (!shown) return rect();
    if (shown->isBezeled()) {
        const int edge = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, this);
        const bool rounded = shown->bezelStyle() == static_cast<unsigned long>(Bezel::Rounded);
        return rect().adjusted(edge + (rounded ? 4 : 0), edge, -edge - (rounded ? 4 : 0), -edge);
    }
    return shown->isBordered() ? rect().adjusted(1, 1, -1, -1) : rect();
}

QRect FieldWidget::textRect() const {
    const QRect inner = frameContents();
    const QRect logical = inner.adjusted(leadingRoom(), 0, -trailingRoom(), 0);
    return QStyle::visualRect(layoutDirection(), inner, logical);
}

void FieldWidget::placeEditor() {
    if (editor_) editor_->widget().setGeometry(textRect());
}

void FieldWidget::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    placeEditor();
}

void FieldWidget::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange || event->type() == QEvent::StyleChange ||
        event->type() == QEvent::FontChange) {
        if (!field()) return;
        const Ref<NSTextField> shown(field());
        runReported([&] { sync(*shown); });
    }
}

void FieldWidget::mousePressEvent(QMouseEvent* event) {
    if (editor_ && isEnabled()) {
        editor_->widget().setFocus(Qt::MouseFocusReason);
        event->accept();
    } else {
        event->ignore();
    }
}

QSize FieldWidget::sizeHint() const {
    const NSTextField* shown = field();
    if (!shown) return QWidget::sizeHint();
    const NSSize size = shown->textCell().cellSize();
    return {static_cast<int>(size.width), static_cast<int>(size.height)};
}

QAccessible::Role FieldWidget::accessibleRole() const {
    const NSTextField* shown = field();
    return shown && !editor_ ? QAccessible::StaticText : QAccessible::Client;
}

QString FieldWidget::accessibleText() const {
    const NSTextField* shown = field();
    return shown && !shown->isSecret() ? qtText(shown->stringValue()) : QString();
}

// Drawing.

void FieldWidget::paintFrame(QPainter& painter) {
    const NSTextField* shown = field();
    if (!shown) return;
    const NSTextFieldCell& cell = shown->textCell();
    const bool fills = cell.drawsBackground() && (!cell.isLabel() || cell.hasOwnBackgroundColor());
    const QBrush base = palette().brush(QPalette::Base);
    if (!cell.isBezeled()) {
        if (fills) painter.fillRect(rect(), base);
        if (cell.isBordered()) {
            painter.setPen(palette().color(QPalette::Mid));
            painter.drawRect(rect().adjusted(0, 0, -1, -1));
        }
        return;
    }
    const bool hasKeyboard = editor_ && editor_->widget().hasFocus();
    if (cell.bezelStyle() != static_cast<unsigned long>(Bezel::Rounded)) {
        QStyleOptionFrame option;
        option.initFrom(this);
        option.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, this);
        option.state |= QStyle::State_Sunken;
        option.state.setFlag(QStyle::State_HasFocus, hasKeyboard);
        option.state.setFlag(QStyle::State_ReadOnly, !cell.isEditable());
        if (!fills) option.palette.setBrush(QPalette::Base, Qt::transparent);
        style()->drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, this);
        return;
    }
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF outline = QRectF(rect()).adjusted(1, 1, -1, -1);
    constexpr double kMostRadius = 12;
    const double radius = std::min(outline.height() / 2, kMostRadius);
    QColor line = hasKeyboard ? palette().color(QPalette::Highlight) : palette().color(QPalette::Text);
    if (!hasKeyboard) line.setAlphaF(0.35F);
    painter.setPen(QPen(line, hasKeyboard ? 2 : 1));
    painter.setBrush(fills ? base : QBrush(Qt::NoBrush));
    painter.drawRoundedRect(outline, radius, radius);
    painter.restore();
}

void FieldWidget::paintText(QPainter& painter, NSTextField& field) {
    if (editor_) return;
    const NSTextFieldCell& cell = field.textCell();
    QString text = qtText(cell.stringValue());
    const bool onBase = !cell.isLabel();
    QColor color = palette().color(onBase ? QPalette::Text : QPalette::WindowText);
    if (text.isEmpty()) {
        text = qtText(cell.placeholderString());
        color = palette().color(QPalette::PlaceholderText);
    }
    if (text.isEmpty()) return;
    if (field.isSecret()) text = dotsFor(text, *style());
    const QRect place = textRect().adjusted(kTextMargin, 0, -kTextMargin, 0);
    const bool several = field.showsSeveralLines();
    if (const NSAttributedString* rich = cell.richText()) {
        const RichTextStyle style{
            .font = font(),
            .color = color,
            .direction = layoutDirection(),
            .alignment =
                alignmentOf(cell.alignment(), text, layoutDirection()) | (several ? Qt::AlignTop : Qt::AlignVCenter),
            .wraps = several,
            .elided = elision(cell.lineBreakMode()),
            .faded = !isEnabled(),
        };
        drawRichText(painter, place, *rich, style);
        return;
    }
    painter.setPen(color);
    painter.setFont(font());
    const Qt::Alignment alignment = alignmentOf(cell.alignment(), text, layoutDirection());
    // One line stands in the middle of its field, several start at the top.
    if (!several) {
        drawLine(painter, place, text.section(QLatin1Char('\n'), 0, 0), alignment, elision(cell.lineBreakMode()));
        return;
    }
    const bool byCharacter = cell.lineBreakMode() == static_cast<long>(LineBreak::CharWrap);
    const int wrapping = byCharacter ? Qt::TextWrapAnywhere : Qt::TextWordWrap;
    painter.drawText(place, static_cast<int>(alignment | Qt::AlignTop) | wrapping, text);
}

void FieldWidget::paintEvent(QPaintEvent*) {
    if (!field()) return;
    const Ref<NSTextField> shown(field());
    QPainter painter(this);
    // Formatters and delegates are asked.
    runReported([&] {
        paintFrame(painter);
        paintText(painter, *shown);
    });
}

}  // namespace velt
