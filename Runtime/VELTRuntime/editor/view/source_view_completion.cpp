// Completion in an editor view: when it opens, where, and what the environment offers.
#include "VELTRuntime/editor/completion_expression.h"
#include "VELTRuntime/editor/view/running_completion.h"
#include "VELTRuntime/editor/view/source_view_parts.h"
#include "VELTRuntime/platform/appkit/text/text_widget.h"
#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/attributed_string.h"
#include "VELTRuntime/platform/foundation/timer.h"

#include <QGuiApplication>
#include <QScreen>

using velt::Ref;

namespace {

/// The texts among the elements of an array, with or without attributes.
std::vector<std::u16string> textsIn(const id& array) {
    std::vector<std::u16string> texts;
    const NSArray* values = velt::arrayOf(array);
    if (!values) return texts;
    for (const id& value : values->items()) {
        const NSAttributedString* attributed = velt::attributedStringOf(value);
        if (attributed)
            texts.emplace_back(attributed->view());
        else if (velt::isString(value))
            texts.emplace_back(velt::textOf(value));
    }
    return texts;
}

id arrayFrom(const std::vector<std::u16string>& texts) {
    const Ref<NSMutableArray> array = velt::make<NSMutableArray>();
    for (const std::u16string& text : texts) array->append(velt::string(text));
    return array;
}

}  // namespace

// What the completion asks.

void VLTextView::Parts::startTimer(double seconds) {
    view.completionTimer_ = NSTimer::scheduled(seconds, id(static_cast<NSObject*>(&view)),
                                               velt::Selector::named("doCompletion:"), nil, false);
}

void VLTextView::Parts::stopTimer() {
    const id timer = std::exchange(view.completionTimer_, nil);
    if (velt::is<NSTimer>(timer)) velt::as<NSTimer>(timer)->invalidate();
}

std::vector<std::u16string> VLTextView::Parts::types() { return textsIn(view.typeList()); }

std::vector<std::u16string> VLTextView::Parts::members(const std::u16string& expression) {
    const velt::Selector asks = velt::Selector::named("__TextView_GetCompletion::");
    const id host = view.delegate();
    if (!velt::respondsTo(host, asks)) return {};
    return textsIn(velt::send(host, asks, id(static_cast<NSObject*>(&view)), velt::string(expression)));
}

std::u16string VLTextView::Parts::signature(const std::u16string& expression) {
    const velt::Selector asks = velt::Selector::named("__TextView_GetCompletion2::");
    const id host = view.delegate();
    if (!velt::respondsTo(host, asks)) return {};
    const id text = velt::send(host, asks, id(static_cast<NSObject*>(&view)), velt::string(expression));
    return std::u16string(velt::isString(text) ? velt::textOf(text) : std::u16string_view());
}

void VLTextView::Parts::run(velt::CompletionPopup& popup) {
    const Ref<Autocompletion> controller = velt::make<Autocompletion>(view, popup);
    const Ref<Autocompletion> below = std::exchange(shown, controller);
    controller->popupAssistantAt(view.insertionPointGlobalCoordinate(), id(static_cast<NSObject*>(&view)));
    shown = below;
}

void VLTextView::Parts::popupChanged(const velt::CompletionPopup&) {
    if (shown) shown->popupChanged();
}

void VLTextView::Parts::popupEnded(const velt::CompletionPopup&) {
    if (shown) shown->popupEnded();
}

// What programs ask of the view.

void VLTextView::startCompletionTimer() { parts_->completion.startTimer(); }

void VLTextView::stopCompletionTimer() { parts_->completion.stopTimer(); }

void VLTextView::doCompletion(const id&) {
    const Ref<VLTextView> kept(this);
    const std::shared_ptr<Parts> parts = parts_;
    parts->completion.timerFired();
}

void VLTextView::getCompletion(long end, const id& text) {
    const id content = VELT_CSTRING(text);
    const velt::SourceBuffer lines(velt::textOf(content));
    const std::size_t place = std::min(static_cast<std::size_t>(std::max(0L, end)), lines.length());
    const NSRange before = velt::rangeBetween(lines.lineRangeAt(place).location, place);
    parts_->completion.setExpression(std::u16string(velt::expressionAtEnd(lines.view(before))));
}

void VLTextView::popupCompletionAtInsertion(const id& candidates, NSRange typed) {
    const Ref<VLTextView> kept(this);
    const std::shared_ptr<Parts> parts = parts_;
    parts->completion.open(textsIn(candidates), typed.location, static_cast<std::ptrdiff_t>(typed.length));
}

void VLTextView::setCompletionType(bool as, bool members, bool arguments) {
    parts_->completion.setModes({as, members, arguments});
}

NSPoint VLTextView::insertionPointGlobalCoordinate() const {
    velt::TextWidget* widget = existingTextWidget();
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (!widget || !screen) return {};
    const QRect caret = widget->caretRect();
    const QPoint below = widget->viewport()->mapToGlobal(caret.bottomLeft());
    return {static_cast<double>(below.x()), static_cast<double>(screen->geometry().height() - below.y())};
}

id VLTextView::completedExpression() const { return velt::string(parts_->completion.expression()); }
long VLTextView::completionsRunning() const { return parts_->completion.runningCount(); }
bool VLTextView::completesTypes() const { return parts_->completion.modes().types; }
bool VLTextView::completesMembers() const { return parts_->completion.modes().members; }
bool VLTextView::completesArguments() const { return parts_->completion.modes().arguments; }
unsigned long VLTextView::lastInsertion() const { return parts_->completion.lastInsertion(); }
unsigned long VLTextView::nextInsertion() const { return parts_->completion.nextInsertion(); }
unsigned long VLTextView::beforeNextInsertion() const { return parts_->completion.beforeNextInsertion(); }

id VLTextView::runningCompletions() const {
    const Ref<NSMutableArray> list = velt::make<NSMutableArray>();
    for (const velt::Completion::Running& each : parts_->completion.running()) {
        const Ref<runningcompletion> open = velt::make<runningcompletion>();
        open->as = each.modes.types;
        open->members = each.modes.members;
        open->arguments = each.modes.arguments;
        open->typed = {each.location, static_cast<unsigned long>(std::max<std::ptrdiff_t>(0, each.length))};
        open->candidates = arrayFrom(each.candidates);
        open->view = id(static_cast<NSObject*>(const_cast<VLTextView*>(this)));
        list->append(open);
    }
    return list;
}

void VLTextView::describeCompletion(velt::ClassBuilder<VLTextView>& c) {
    c.property("runningCompletions", &VLTextView::runningCompletions)
        .property("completionTimer", &VLTextView::completionTimer)
        .property("sCompletion", &VLTextView::completedExpression)
        .property("nCompletionRunning", &VLTextView::completionsRunning)
        .property("bAs", &VLTextView::completesTypes)
        .property("bClass", &VLTextView::completesMembers)
        .property("bBuiltin", &VLTextView::completesArguments)
        .property("lastInsertionIndex", &VLTextView::lastInsertion)
        .property("nextInsertionIndex", &VLTextView::nextInsertion)
        .property("nextInsertionIndex2", &VLTextView::beforeNextInsertion)
        .method("startCompletionTimer", &VLTextView::startCompletionTimer)
        .method("stopCompletionTimer", &VLTextView::stopCompletionTimer)
        .method("doCompletion:", &VLTextView::doCompletion)
        .method("getCompletion::", &VLTextView::getCompletion)
        .method("popupCompletionAtInsertion::", &VLTextView::popupCompletionAtInsertion)
        .method("setCompletionType:::", &VLTextView::setCompletionType)
        .method("insertionPointGlobalCoordinate", &VLTextView::insertionPointGlobalCoordinate);
}
