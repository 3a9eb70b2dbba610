#include "VELTRuntime/platform/appkit/controls/search_field.h"

#include "VELTRuntime/platform/appkit/controls/search_widget.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/user_defaults.h"

#include <algorithm>

using velt::Ref;

// The cell.

double NSSearchFieldCell::roomBeside() const {
    constexpr double kParts = 48;
    return kParts;
}

id NSSearchFieldCell::recentSearches() const { return recents_.isNil() ? id(velt::make<NSArray>()) : recents_; }

void NSSearchFieldCell::keep(const id& texts) {
    std::vector<id> kept;
    if (const NSArray* given = velt::arrayOf(texts)) {
        for (const id& text : given->items()) {
            if (static_cast<long>(kept.size()) == maximumRecents_) break;
            if (velt::isString(text)) kept.push_back(velt::copy(text));
        }
    }
    recents_ = velt::make<NSArray>(std::span<const id>(kept));
    changed();
}

void NSSearchFieldCell::setRecentSearches(const id& texts) {
    keep(texts);
    save();
}

void NSSearchFieldCell::setMaximumRecents(long count) {
    constexpr long kUsual = 10, kMost = 254;
    maximumRecents_ = count < 0 ? kUsual : std::min(count, kMost);
    if (!recents_.isNil()) keep(recents_);
}

void NSSearchFieldCell::setRecentsAutosaveName(const id& name) {
    autosaveName_ = velt::isString(name) ? velt::copy(name) : nil;
    if (autosaveName_.isNil() || velt::asString(autosaveName_).length() == 0) return;
    const id kept = NSUserDefaults::standardUserDefaults().objectForKey(autosaveName_);
    if (velt::isArray(kept)) keep(kept);
}

void NSSearchFieldCell::save() const {
    if (autosaveName_.isNil() || velt::asString(autosaveName_).length() == 0) return;
    NSUserDefaults::standardUserDefaults().setObject(recentSearches(), autosaveName_);
}

void NSSearchFieldCell::remember(const id& text) {
    if (!velt::isString(text) || velt::asString(text).length() == 0 || maximumRecents_ == 0) return;
    const Ref<NSMutableArray> texts = velt::make<NSMutableArray>();
    texts->append(text);
    const id before = recentSearches();
    for (const id& other : velt::arrayOf(before)->items()) {
        if (!velt::isEqual(other, text)) texts->append(other);
    }
    setRecentSearches(texts);
}

void NSSearchFieldCell::describe(velt::ClassBuilder<NSSearchFieldCell>& c) {
    c.property("recentSearches", &NSSearchFieldCell::recentSearches, &NSSearchFieldCell::setRecentSearches)
        .property("maximumRecents", &NSSearchFieldCell::maximumRecents, &NSSearchFieldCell::setMaximumRecents)
        .property("recentsAutosaveName", &NSSearchFieldCell::recentsAutosaveName,
                  &NSSearchFieldCell::setRecentsAutosaveName)
        .property("sendsWholeSearchString", &NSSearchFieldCell::sendsWholeSearchString,
                  &NSSearchFieldCell::setSendsWholeSearchString)
        .property("sendsSearchStringImmediately", &NSSearchFieldCell::sendsSearchStringImmediately,
                  &NSSearchFieldCell::setSendsSearchStringImmediately)
        .owns(&NSSearchFieldCell::recents_)
        .owns(&NSSearchFieldCell::autosaveName_);
}

// The field.

Ref<NSCell> NSSearchField::makeCell() const {
    Ref<NSSearchFieldCell> cell = velt::make<NSSearchFieldCell>();
    prepareCell(*cell);
    cell->setBezelStyle(static_cast<unsigned long>(NSTextFieldCell::Bezel::Rounded));
    cell->setUsesSingleLineMode(true);
    cell->setSendsActionOnEndEditing(false);
    return cell;
}

std::unique_ptr<velt::FieldWidget> NSSearchField::makeFieldWidget() { return std::make_unique<velt::SearchWidget>(); }

void NSSearchField::textChanged() {
    auto* shown = static_cast<velt::SearchWidget*>(fieldWidget());
    changed();  // the cross comes and goes
    const NSSearchFieldCell& cell = searchCell();
    if (cell.sendsWholeSearchString() || !shown) return;
    if (cell.sendsSearchStringImmediately()) {
        sendOwnAction();
    } else {
        shown->startPause();
    }
}

void NSSearchField::pauseOver() noexcept {
    const Ref<NSSearchField> kept(this);
    velt::runReported([this] { sendOwnAction(); });
}

bool NSSearchField::finishWithReturn() {
    if (auto* shown = static_cast<velt::SearchWidget*>(fieldWidget())) shown->stopPause();
    searchCell().remember(stringValue());
    return NSTextField::finishWithReturn();
}

bool NSSearchField::perform(std::string_view selector) {
    auto* shown = static_cast<velt::SearchWidget*>(fieldWidget());
    if (selector == "cancelOperation:") {
        if (velt::asString(stringValue()).length() == 0) return false;
        clearSearch();
        return true;
    }
    if (selector == "moveDown:" && shown) return shown->openRecents();
    return NSTextField::perform(selector);
}

void NSSearchField::replaceText(const id& text) {
    velt::FieldEditor* shown = editor();
    auto* around = static_cast<velt::SearchWidget*>(fieldWidget());
    if (!shown || !isEditable()) return;
    // As if it were typed: the delegate is asked and told.
    shown->selectAll();
    shown->insert(velt::qtText(text));
    if (around) around->stopPause();
    if (!searchCell().sendsSearchStringImmediately() || searchCell().sendsWholeSearchString()) sendOwnAction();
}

void NSSearchField::clearSearch() noexcept {
    const Ref<NSSearchField> kept(this);
    velt::runReported([this] {
        if (velt::FieldEditor* shown = editor()) shown->widget().setFocus(Qt::MouseFocusReason);
        replaceText(nil);
    });
}

void NSSearchField::seekAgain(const id& text) noexcept {
    const Ref<NSSearchField> kept(this);
    velt::runReported([&] {
        // The menu goes, and its text with it.
        const id sought = text;  // NOLINT(performance-unnecessary-copy-initialization)
        searchCell().remember(sought);
        replaceText(sought);
    });
}

void NSSearchField::describe(velt::ClassBuilder<NSSearchField>& c) {
    c.property("recentSearches", &NSSearchField::recentSearches, &NSSearchField::setRecentSearches)
        .property("maximumRecents", &NSSearchField::maximumRecents, &NSSearchField::setMaximumRecents)
        .property("recentsAutosaveName", &NSSearchField::recentsAutosaveName, &NSSearchField::setRecentsAutosaveName);
}
