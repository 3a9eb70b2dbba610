#include "VELTRuntime/platform/appkit/text/text_accessible.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"

#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/text/rich_text.h"
#include "VELTRuntime/platform/appkit/text/text_view.h"
#include "VELTRuntime/platform/appkit/text/text_widget.h"

#include <QAccessibleWidget>

namespace velt {

namespace {

class TextAccessible final : public QAccessibleWidget,
                             public QAccessibleTextInterface,
                             public QAccessibleEditableTextInterface {
public:
    explicit TextAccessible(TextWidget* shown) : QAccessibleWidget(shown, QAccessible::EditableText) {}

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.multiLine = true;
        state.selectableText = shown().isSelectable();
        state.readOnly = shown().isReadOnly();
        state.editable = !shown().isReadOnly();
        return state;
    }
    QString text(QAccessible::Text which) const override {
        return which == QAccessible::Value ? part(0, characterCount()) : QAccessibleWidget::text(which);
    }
    void setText(QAccessible::Text which, const QString& text) override {
        if (which != QAccessible::Value) return QAccessibleWidget::setText(which, text);
        replaceText(0, characterCount(), text);
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
        if (type == QAccessible::EditableTextInterface) return static_cast<QAccessibleEditableTextInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    // Reading.
    int characterCount() const override { return view() ? static_cast<int>(view()->shown().length()) : 0; }
    QString text(int begin, int end) const override { return part(begin, end); }
    int cursorPosition() const override { return static_cast<int>(shown().insertionPoint()); }
    void setCursorPosition(int position) override { select(position, position); }
    int selectionCount() const override { return view() && view()->selectedRange().length > 0 ? 1 : 0; }
    void selection(int index, int* begin, int* end) const override {
        const NSRange range = index == 0 && view() ? view()->selectedRange() : NSRange{};
        *begin = static_cast<int>(range.location);
        *end = static_cast<int>(range.location + range.length);
    }
    void addSelection(int begin, int end) override { select(begin, end); }
    void setSelection(int index, int begin, int end) override {
        if (index == 0) select(begin, end);
    }
    void removeSelection(int index) override {
        if (index == 0) select(cursorPosition(), cursorPosition());
    }
    QRect characterRect(int position) const override {
        if (position < 0 || position > characterCount()) return {};
        QRect rect = shown().caretRect(static_cast<std::size_t>(position));
        const QRect next = shown().caretRect(static_cast<std::size_t>(std::min(position + 1, characterCount())));
        if (next.top() == rect.top()) rect = rect.united(next);
        return rect.translated(shown().viewport()->mapToGlobal(QPoint()));
    }
    int offsetAtPoint(const QPoint& point) const override {
        return static_cast<int>(shown().positionAt(shown().viewport()->mapFromGlobal(point)));
    }
    void scrollToSubstring(int begin, int end) override {
        shown().reveal(within(end));
        shown().reveal(within(begin));
    }
    QString attributes(int position, int* begin, int* end) const override {
        *begin = *end = position;
        const NSTextView* asked = view();
        if (!asked || position < 0 || position >= characterCount()) return {};
        NSRange run;
        const QTextCharFormat format = charFormatOf(asked->shown().attributesAt(position, &run));
        *begin = static_cast<int>(run.location);
        *end = static_cast<int>(run.location + run.length);
        const QFont font = format.font().resolve(shown().font());
        QString text = QStringLiteral("font-family:\"%1\";font-size:%2pt;").arg(font.family()).arg(font.pointSizeF());
        if (font.bold()) text += QStringLiteral("font-weight:bold;");
        if (font.italic()) text += QStringLiteral("font-style:italic;");
        if (font.underline()) text += QStringLiteral("text-underline-style:solid;");
        return text;
    }

    // Editing, as a person does it.
    void deleteText(int begin, int end) override { replaceText(begin, end, QString()); }
    void insertText(int position, const QString& text) override { replaceText(position, position, text); }
    void replaceText(int begin, int end, const QString& text) override {
        NSTextView* asked = view();
        if (!asked) return;
        const Ref<NSTextView> kept(asked);
        const std::size_t from = within(std::min(begin, end)), to = within(std::max(begin, end));
        runReported([&] {
            kept->commandBegins();
            kept->change({from, to - from}, textValue(text));
        });
    }

private:
    TextWidget& shown() const { return static_cast<TextWidget&>(*widget()); }
    NSTextView* view() const {
        NSView* found = viewOf(widget());
        return found ? static_cast<NSTextView*>(found) : nullptr;
    }
    std::size_t within(int position) const {
        return static_cast<std::size_t>(std::clamp(position, 0, characterCount()));
    }
    QString part(int begin, int end) const {
        const NSTextView* asked = view();
        if (!asked || end <= begin) return {};
        return qtText(asked->shown().view().substr(within(begin), within(end) - within(begin)));
    }
    void select(int begin, int end) {
        NSTextView* asked = view();
        if (!asked || !asked->isSelectable()) return;
        const Ref<NSTextView> kept(asked);
        const std::size_t from = within(std::min(begin, end)), to = within(std::max(begin, end));
        runReported([&] {
            kept->setSelectedRange({from, to - from});
            kept->scrollRangeToVisible({from, to - from});
        });
    }
};

QAccessibleInterface* accessibleOf(const QString&, QObject* object) {
    auto* shown = dynamic_cast<TextWidget*>(object);
    return shown ? new TextAccessible(shown) : nullptr;
}

}  // namespace

void installTextAccessibility() {
    [[maybe_unused]] static const bool isInstalled = [] {
        QAccessible::installFactory(accessibleOf);
        return true;
    }();
}

}  // namespace velt
