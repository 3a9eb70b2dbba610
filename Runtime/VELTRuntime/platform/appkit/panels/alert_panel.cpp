#include "VELTRuntime/platform/appkit/panels/alert_panel.h"

#include "VELTRuntime/platform/appkit/application.h"
#include "VELTRuntime/platform/appkit/image.h"
#include "VELTRuntime/platform/appkit/panels/alert.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/view_widget.h"
#include "VELTRuntime/platform/foundation/array.h"

#include <QAccessible>
#include <QApplication>
#include <QDialogButtonBox>
#include <QIcon>
#include <QLabel>
#include <QMainWindow>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <algorithm>
#include <cmath>

namespace velt {

namespace {

constexpr int kLeastText = 220, kMostText = 420;  // dots, where the text may be broken
constexpr int kMargin = 18, kGap = 10;
constexpr double kLeastButton = 80, kButtonHeight = 26;

QIcon iconOf(const AlertContents& contents) {
    if (is<NSImage>(contents.icon)) return QIcon(QPixmap::fromImage(as<NSImage>(contents.icon)->picture()));
    const QStyle::StandardPixmap pixmap = contents.style == NSAlert::Critical        ? QStyle::SP_MessageBoxCritical
                                          : contents.style == NSAlert::Informational ? QStyle::SP_MessageBoxInformation
                                                                                     : QStyle::SP_MessageBoxWarning;
    return QApplication::style()->standardIcon(pixmap);
}

/// A text as a person reads it: a program may pass a value of any kind.
QString shownText(const id& value) {
    if (value.isNil()) return {};
    return qtText(isString(value) ? value : description(value));
}

/// Icon and texts.
class AlertTexts final : public QWidget {
public:
    explicit AlertTexts(const AlertContents& contents) {
        const int iconSize = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
        auto* icon = new QLabel(this);
        icon->setObjectName(QStringLiteral("icon"));
        icon->setPixmap(iconOf(contents).pixmap(QSize(iconSize, iconSize), devicePixelRatioF()));
        QLabel* message = label(shownText(contents.message), "message");
        QFont bold = message->font();
        bold.setBold(true);
        message->setFont(bold);
        QLabel* informative = label(shownText(contents.informative), "informative");

        const int width = std::clamp(std::max(natural(*message), natural(*informative)), kLeastText, kMostText);
        const int left = iconSize + kMargin;
        setFixedWidth(left + width);
        int y = 0;
        const auto put = [&](QWidget* widget, int height) {
            widget->setGeometry(left, y, width, height);
            y += height;
        };
        if (message->text().isEmpty()) {
            message->hide();
        } else {
            put(message, message->heightForWidth(width));
            if (!informative->text().isEmpty()) y += kGap / 2;
        }
        if (informative->text().isEmpty()) {
            informative->hide();
        } else {
            const QScreen* screen = QGuiApplication::primaryScreen();
            const int most = screen ? screen->availableGeometry().height() / 2 : 400;
            const int height = informative->heightForWidth(width);
            put(height > most ? scrolled(*informative) : informative, std::min(height, most));
        }
        icon->setGeometry(0, 0, iconSize, iconSize);
        setFixedHeight(std::max(y, iconSize));
        if (isRightToLeft()) {
            for (QWidget* child : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
                child->move(this->width() - child->x() - child->width(), child->y());
            }
        }
    }

private:
    QLabel* label(const QString& text, const char* name) {
        auto* made = new QLabel(text, this);
        made->setObjectName(QLatin1String(name));
        made->setTextFormat(Qt::PlainText);
        made->setWordWrap(true);
        made->setAlignment(Qt::AlignTop | Qt::AlignLeading);
        made->setTextInteractionFlags(Qt::TextSelectableByMouse);
        return made;
    }
    static int natural(const QLabel& label) {
        const QRect all(0, 0, kMostText, 1'000'000);
        return label.fontMetrics().boundingRect(all, Qt::TextWordWrap, label.text()).width() + 2;
    }
    QWidget* scrolled(QLabel& text) {
        auto* area = new QScrollArea(this);
        area->setWidgetResizable(true);
        area->setFrameShape(QFrame::NoFrame);
        area->setWidget(&text);
        return area;
    }
};

/// Shows the texts as a part of the panel's content.
class AlertTextView final : public NSView {
public:
    explicit AlertTextView(const AlertContents& contents) : contents_(contents) {
        const QSize size = widget().size();
        setFrame({{}, {static_cast<double>(size.width()), static_cast<double>(size.height())}});
    }

protected:
    std::unique_ptr<QWidget> makeWidget() override { return std::make_unique<AlertTexts>(contents_); }

private:
    const AlertContents& contents_;  // while it is being made
};

/// The desktop wants the button that confirms at the right end.
bool confirmsAtTheEnd() {
    const int layout = QApplication::style()->styleHint(QStyle::SH_DialogButtonLayout);
    return layout == QDialogButtonBox::MacLayout || layout == QDialogButtonBox::GnomeLayout;
}

double wholeWidth(const std::vector<Ref<NSButton>>& buttons) {
    double width = 0;
    for (const Ref<NSButton>& button : buttons) width += button->frame().size.width + kGap;
    return width - kGap;
}

}  // namespace

AlertPanel::AlertPanel() : NSPanel({}, kTitledWindow) {
    setHidesOnDeactivate(false);
    setReleasedWhenClosed(false);
}

void AlertPanel::setContents(const AlertContents& contents) {
    releaseContents();
    contents_ = contents;
    setTitle(textValue(shownText(contents.message)));
    const Ref<AlertTextView> texts = make<AlertTextView>(contents_);
    for (const Ref<NSButton>& button : contents_.buttons) {
        button->sizeToFit();
        button->setFrameSize({std::max(kLeastButton, button->frame().size.width + 12), kButtonHeight});
    }
    const NSSize text = texts->frame().size;
    const NSSize more = contents_.accessory ? contents_.accessory->frame().size : NSSize{};
    const double moreHeight = contents_.accessory ? more.height + kGap : 0;
    const double inner = std::max({text.width, more.width, wholeWidth(contents_.buttons)});
    const NSSize size{inner + 2 * kMargin, text.height + moreHeight + kButtonHeight + 3 * kMargin};
    setContentSize(size);
    NSView& content = *as<NSView>(contentView());
    const bool mirrored = QApplication::isRightToLeft();
    const auto put = [&](NSView& view, double x, double y) {
        content.addSubview(&view);
        view.setFrameOrigin({mirrored ? size.width - x - view.frame().size.width : x, y});
    };
    put(*texts, kMargin, size.height - kMargin - text.height);
    if (contents_.accessory) {
        put(*contents_.accessory, kMargin + inner - more.width, kMargin * 2 + kButtonHeight);
    }
    std::vector<Ref<NSButton>> row = contents_.buttons;
    if (confirmsAtTheEnd()) std::reverse(row.begin(), row.end());
    double x = size.width - kMargin - wholeWidth(row);
    for (const Ref<NSButton>& button : row) {
        put(*button, x, kMargin);
        x += button->frame().size.width + kGap;
        button->setTarget(boxResult(this));
        button->setActionName(string(u"answer:"));
    }
    recalculateKeyViewLoop();
    // What is to be filled in comes first, then the button that Return presses.
    NSView* first = contents_.buttons.front().get();
    if (contents_.accessory) {
        const auto find = [](const auto& self, NSView& view) -> NSView* {
            if (view.acceptsFirstResponder()) return &view;
            for (const Ref<NSView>& subview : view.subviewList()) {
                if (NSView* found = self(self, *subview)) return found;
            }
            return nullptr;
        };
        if (NSView* found = find(find, *contents_.accessory)) first = found;
    }
    setInitialFirstResponder(boxResult(first));
    center();
    widget().setAccessibleName(shownText(contents.message));
    widget().setAccessibleDescription(shownText(contents.informative));
    QAccessibleEvent alert(&widget(), QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void AlertPanel::releaseContents() {
    for (const Ref<NSButton>& button : contents_.buttons) {
        button->removeFromSuperview();
        button->setTarget(nil);
    }
    if (contents_.accessory) contents_.accessory->removeFromSuperview();
    contents_ = {};
    setInitialFirstResponder(nil);
    setContentView(nullptr);
}

void AlertPanel::answer(const id& sender) {
    if (!is<NSButton>(sender)) return;
    const Ref<AlertPanel> kept(this);
    const long code = as<NSButton>(sender)->tag();
    NSApplication& application = NSApplication::sharedApplication();
    if (application.modalWindow() == boxResult(this)) {
        application.stopModalWithCode(code);
    } else {
        application.endSheetReturningCode(this, code);
    }
}

bool AlertPanel::mayClose() {
    for (const Ref<NSButton>& button : contents_.buttons) {
        if (textOf(button->keyEquivalent()) == u"\x1b") {
            button->performClick(boxResult(this));
            break;
        }
    }
    return false;
}

void AlertPanel::describe(ClassBuilder<AlertPanel>& c) { c.method("answer:", &AlertPanel::answer); }

}  // namespace velt
