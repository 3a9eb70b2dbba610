#include "VELTRuntime/editor/view/find_indicator.h"

#include "VELTRuntime/editor/view/source_view.h"
#include "VELTRuntime/platform/appkit/text/text_widget.h"

#include <QPainter>
#include <QTimer>

namespace velt {

namespace {

constexpr int kShownMilliseconds = 700, kMargin = 3;
constexpr double kRounding = 4;

/// A plate over a text: keeps no text of its own, but a picture of it.
class Plate final : public QWidget {
public:
    Plate(QWidget& over, QRect around) : QWidget(&over), picture_(over.grab(around)) {
        setObjectName(QStringLiteral("findIndicator"));
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setGeometry(around.adjusted(-kMargin, -kMargin, kMargin, kMargin));
        QTimer::singleShot(kShownMilliseconds, this, &QObject::deleteLater);
        show();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QColor lit = palette().color(QPalette::Highlight);
        painter.setPen(QPen(lit, 2));
        painter.setBrush(palette().color(QPalette::Base));
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), kRounding, kRounding);
        painter.drawPixmap(QPoint(kMargin, kMargin), picture_);
    }

private:
    QPixmap picture_;
};

}  // namespace

void showFindIndicator(VLTextView& view, NSRange range) {
    TextWidget* widget = view.existingTextWidget();
    if (!widget || !widget->isVisible()) return;
    QWidget& page = *widget->viewport();
    delete page.findChild<Plate*>(QStringLiteral("findIndicator"), Qt::FindDirectChildrenOnly);
    const QRect begin = widget->caretRect(range.location);
    const QRect end = widget->caretRect(range.location + range.length);
    // A match over several lines is lit on its first one.
    QRect around = begin.top() == end.top() ? begin.united(end) : begin.united(begin.translated(page.width(), 0));
    around = around.intersected(page.rect());
    if (!around.isEmpty()) new Plate(page, around);
}

}  // namespace velt
