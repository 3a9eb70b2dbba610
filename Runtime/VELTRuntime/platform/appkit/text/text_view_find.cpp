// Finding and replacing in a text view.
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/text/find_actions.h"
#include "VELTRuntime/platform/appkit/text/text_finder.h"
#include "VELTRuntime/platform/appkit/text/text_view.h"
#include "VELTRuntime/platform/appkit/text/text_widget.h"
#include "VELTRuntime/platform/foundation/array.h"

#include <QApplication>

using velt::Ref;
using velt::TextWidget;

velt::FindRequest& NSTextView::findRequest() const {
    // One for all text views: what was looked for in one is looked for in the next.
    static velt::FindRequest& shared = *new velt::FindRequest;
    return shared;
}

void NSTextView::performFindPanelAction(const id& sender) {
    if (sender.isNil()) return;
    const id action = velt::isNumber(sender) ? sender : velt::send(sender, VELT_SELECTOR("tag"));
    find(VELT_CINTEGER(action));
}

bool NSTextView::find(long action) {
    const Ref<NSTextView> kept(this);
    const NSRange selected = ranges_.front();
    velt::FindRequest& request = findRequest();
    const auto replaceSelected = [&] {
        if (!velt::isMatch(text(), request, selected)) return false;
        const id replacement = velt::string(std::u16string_view(request.replacement));
        if (!change(selected, replacement)) return false;
        setSelectedRange({selected.location, request.replacement.size()});
        return true;
    };
    const auto done = [&] {
        switch (action) {
        case velt::kShowFindBar: static_cast<TextWidget&>(widget()).showFindBar(); return true;
        case velt::kFindNext: return findNext(false);
        case velt::kFindPrevious: return findNext(true);
        case velt::kReplaceAll: return replaceMatches({0, textLength()});
        case velt::kReplace: return replaceSelected();
        case velt::kReplaceAndFind: {
            const bool replaced = replaceSelected();
            return findNext(false) || replaced;
        }
        case velt::kUseSelection:
            if (selected.length > 0) request.text = text().substr(selected.location, selected.length);
            return selected.length > 0;
        case velt::kReplaceAllInSelection: return replaceMatches(selected);
        case velt::kSelectAllMatches: return selectMatches({0, textLength()});
        case velt::kSelectAllMatchesInSelection: return selectMatches(selected);
        default: return true;  // no action of finding
        }
    }();
    if (!done) QApplication::beep();
    return done;
}

bool NSTextView::findNext(bool backward) {
    const velt::FindRequest& request = findRequest();
    const NSRange selected = ranges_.front(), whole{0, textLength()};
    const std::size_t from = backward ? selected.location : selected.location + selected.length;
    std::optional<NSRange> found = velt::findMatch(text(), request, from, backward, whole);
    const bool wrapped = !found && request.wraps;
    if (wrapped) found = velt::findMatch(text(), request, backward ? whole.length : 0, backward, whole);
    TextWidget* widget = existingTextWidget();
    if (widget) {
        widget->tellFindResult(!found ? QStringLiteral("Not found") : wrapped ? QStringLiteral("Wrapped") : QString());
    }
    if (!found) return false;
    setSelectedRange(*found);
    scrollRangeToVisible(*found);
    return true;
}

bool NSTextView::replaceMatches(NSRange within) {
    const velt::FindRequest& request = findRequest();
    const std::vector<NSRange> matches = velt::findAll(text(), request, within);
    const auto tellResult = [this](const QString& result) {
        if (TextWidget* widget = existingTextWidget()) widget->tellFindResult(result);
    };
    if (matches.empty()) return tellResult(QStringLiteral("Not found")), false;
    // One change from the first match to the last, however many there are.
    const NSRange all{matches.front().location,
                      matches.back().location + matches.back().length - matches.front().location};
    const id part = attributedPart(all);
    std::vector<NSRange> inPart = matches;
    for (NSRange& match : inPart) match.location -= all.location;
    const Ref<NSAttributedString> replaced =
        velt::replacedMatches(*velt::attributedStringOf(part), inPart, request.replacement);
    const bool everywhere = within.location == 0 && within.length == textLength();
    const std::size_t grown = replaced->length() - all.length;  // may wrap around; so does its sum
    if (!change(all, isRichText() ? id(replaced) : replaced->string())) return false;
    tellResult(QStringLiteral("Replaced: %1").arg(matches.size()));
    if (!everywhere) setSelectedRange({within.location, within.length + grown});
    return true;
}

bool NSTextView::selectMatches(NSRange within) {
    const std::vector<NSRange> matches = velt::findAll(text(), findRequest(), within);
    if (matches.empty()) return false;
    const Ref<NSMutableArray> ranges = velt::make<NSMutableArray>();
    for (const NSRange& match : matches) ranges->append(VELT_ID(match));
    setSelectedRanges(ranges);
    scrollRangeToVisible(matches.front());
    return true;
}

void NSTextView::cancelOperation(const id&) {
    if (TextWidget* widget = existingTextWidget()) widget->closeFindBar();
}
