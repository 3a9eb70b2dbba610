#include "VELTRuntime/platform/appkit/controls/token_widget.h"

#include "VELTRuntime/platform/appkit/controls/token_field.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/text/fitting_line.h"
#include "VELTRuntime/platform/foundation/array.h"

#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QStyle>
#include <algorithm>
#include <cmath>

namespace velt {

namespace {

constexpr int kGap = 3, kPadding = 8;
constexpr int kLeastEditor = 40;  // room to type in

/// Completions take no keys but those that choose; all others are typed on.
class CompletionMenu final : public QMenu {
public:
    CompletionMenu(QWidget& field, QWidget& editor) : QMenu(&field), editor_(&editor) {
        setAttribute(Qt::WA_DeleteOnClose);
    }

protected:
    void keyPressEvent(QKeyEvent* event) override {
        switch (event->key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_Return:
        case Qt::Key_Enter: QMenu::keyPressEvent(event); return;
        case Qt::Key_Escape: close(); return;
        default: break;
        }
        close();
        if (editor_) QCoreApplication::sendEvent(editor_, event);
    }

private:
    QPointer<QWidget> editor_;
};

}  // namespace

TokenWidget::TokenWidget() {
    pause_.setSingleShot(true);
    connect(&pause_, &QTimer::timeout, this, [this] { showCompletions(); });
}

NSTokenField* TokenWidget::tokenField() const { return static_cast<NSTokenField*>(field()); }

QString TokenWidget::accessibleText() const {
    const NSTokenField* shown = tokenField();
    return shown ? qtText(shown->stringValue()) : QString();
}

void TokenWidget::syncParts(NSTextField& field) {
    const auto& cell = static_cast<NSTokenField&>(field).tokenCell();
    // The delegate that is asked may change the tokens.
    const std::vector<id> tokens = cell.tokens();
    std::vector<QString> texts;
    texts.reserve(tokens.size());
    for (const id& token : tokens) texts.push_back(qtText(cell.textOf(token)));
    if (tokens != cell.tokens()) return;  // and they are shown already
    texts_ = std::move(texts);
    if (FieldEditor* shown = editor(); shown && !texts_.empty())
        shown->setLooks(alignmentOf(cell.alignment(), {}, layoutDirection()), {}, !cell.isEditable());
}

void TokenWidget::layOut() {
    const QRect inner = textRect().adjusted(2, 0, -2, 0);
    const QFontMetrics metrics(font());
    const QFontMetricsF widths(font());
    const NSTextField* shown = field();
    const int lineHeight = metrics.height() + 6;
    const bool several = shown && inner.height() >= 2 * lineHeight;
    const int tokenHeight = metrics.height() + 2;
    int x = inner.left(), y = several ? inner.top() + 2 : inner.center().y() - tokenHeight / 2 + 1;
    const auto place = [&](int width) {
        if (several && x > inner.left() && x + width > inner.right()) {
            x = inner.left();
            y += lineHeight;
        }
        QRect at(x, y, several ? std::min(width, inner.width()) : width, tokenHeight);
        x = at.right() + 1 + kGap;
        return at;
    };
    places_.clear();
    for (const QString& text : texts_)
        places_.push_back(place(static_cast<int>(std::ceil(widths.horizontalAdvance(text))) + 2 * kPadding));
    const int typed = editor() ? metrics.horizontalAdvance(editor()->text()) + 8 : 0;
    rest_ = place(std::max(kLeastEditor, typed));
    rest_.setRight(std::max(rest_.right(), inner.right()));
    if (several) {
        rest_.setRight(inner.right());
    } else if (const int over = rest_.left() + std::max(kLeastEditor, std::min(typed, inner.width())) - inner.right();
               over > 0 && editor() && editor()->widget().hasFocus()) {
        // While somebody types, one row moves so that what is typed can be seen.
        const NSTokenField* tokens = tokenField();
        int moves = over;
        if (tokens && tokens->selectedToken() >= 0 && tokens->selectedToken() < static_cast<long>(places_.size())) {
            const QRect selected = places_[static_cast<std::size_t>(tokens->selectedToken())];
            moves = std::clamp(selected.left() - inner.left(), 0, over);
        }
        for (QRect& at : places_) at.translate(-moves, 0);
        rest_.translate(-moves, 0);
        rest_.setRight(inner.right());
        if (rest_.width() < 1) rest_.setWidth(1);
    }
    for (QRect& at : places_) at = QStyle::visualRect(layoutDirection(), inner, at);
    rest_ = QStyle::visualRect(layoutDirection(), inner, rest_);
}

void TokenWidget::placeEditor() {
    layOut();
    if (!editor()) return;
    editor()->widget().setGeometry(texts_.empty() ? textRect() : rest_);
}

void TokenWidget::paintText(QPainter& painter, NSTextField& field) {
    if (texts_.empty()) {
        FieldWidget::paintText(painter, field);
        return;
    }
    const NSTokenField& shown = static_cast<NSTokenField&>(field);
    painter.save();
    painter.setClipRect(textRect());
    painter.setRenderHint(QPainter::Antialiasing);
    for (std::size_t i = 0; i < places_.size(); ++i) {
        const bool selected =
            shown.selectedToken() == static_cast<long>(i) && editor() && editor()->widget().hasFocus();
        QColor fill = palette().color(QPalette::Highlight);
        constexpr float kQuiet = 0.22F;
        if (!selected) fill.setAlphaF(isEnabled() ? kQuiet : kQuiet / 2);
        const QRectF at = QRectF(places_[i]).adjusted(0.5, 0.5, -0.5, -0.5);
        QColor edge = palette().color(QPalette::Highlight);
        edge.setAlphaF(isEnabled() ? 0.6F : 0.3F);
        painter.setPen(QPen(edge, 1));
        painter.setBrush(fill);
        painter.drawRoundedRect(at, at.height() / 2, at.height() / 2);
        painter.setPen(palette().color(selected ? QPalette::HighlightedText : QPalette::Text));
        const QRect inside = places_[i].adjusted(kPadding, 0, -kPadding, 0);
        drawLine(painter, inside, texts_[i], Qt::AlignHCenter, Qt::ElideRight);
    }
    painter.restore();
}

void TokenWidget::mousePressEvent(QMouseEvent* event) {
    FieldWidget::mousePressEvent(event);
    NSTokenField* shown = tokenField();
    if (!shown || !editor() || !isEnabled()) return;
    for (std::size_t i = 0; i < places_.size(); ++i) {
        if (!places_[i].contains(event->pos())) continue;
        shown->selectToken(static_cast<long>(i));
        return;
    }
    shown->selectToken(-1);
}

void TokenWidget::offerCompletions(double seconds) {
    constexpr double kMilliseconds = 1000;
    pause_.start(static_cast<int>(std::clamp(seconds, 0.0, 10.0) * kMilliseconds));
}

void TokenWidget::showCompletions() {
    NSTokenField* shown = tokenField();
    if (!shown || !editor() || !editor()->widget().hasFocus()) return;
    const id found = shown->completions();
    const NSArray* texts = arrayOf(found);
    if (!texts || texts->count() == 0) return;
    auto* menu = new CompletionMenu(*this, editor()->widget());
    for (const id& text : texts->items()) {
        QAction* action = menu->addAction(qtText(text).replace(QLatin1Char('&'), QStringLiteral("&&")));
        connect(action, &QAction::triggered, this, [this, text] {
            if (NSTokenField* chosen = tokenField()) chosen->completeWith(text);
        });
    }
    const QRect at = editor()->widget().geometry();
    menu->popup(mapToGlobal(layoutDirection() == Qt::RightToLeft ? at.bottomRight() : at.bottomLeft()));
    menu->setActiveAction(menu->actions().front());
}

}  // namespace velt
