#include "VELTRuntime/platform/appkit/controls/token_field.h"

#include "VELTRuntime/platform/appkit/controls/control.h"
#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/attributed_string.h"
#include "VELTRuntime/platform/object/drop_elements.h"

#include <algorithm>

using velt::Ref;

namespace {

bool isSpace(char16_t unit) { return unit == u' ' || unit == u'\t' || unit == u'\n' || unit == u'\r'; }

std::u16string_view trimmed(std::u16string_view text) {
    while (!text.empty() && isSpace(text.front())) text.remove_prefix(1);
    while (!text.empty() && isSpace(text.back())) text.remove_suffix(1);
    return text;
}

}  // namespace

id NSTokenFieldCell::delegate() const { return control() ? control()->delegate() : id(); }

id NSTokenFieldCell::objectValue() const {
    Ref<NSMutableArray> values = velt::make<NSMutableArray>();
    for (const id& token : tokens_) values->append(token);
    if (!pending_.isNil() && velt::asString(pending_).length() > 0) values->append(pending_);
    return values;
}

void NSTokenFieldCell::publish() { store(objectValue()); }

void NSTokenFieldCell::setObjectValue(const id& value) {
    std::vector<id> tokens;
    if (const NSArray* given = velt::arrayOf(value)) {
        for (const id& token : given->items()) tokens.push_back(velt::isString(token) ? velt::copy(token) : token);
    } else if (velt::isString(value) || velt::attributedStringOf(value)) {
        for (const id& piece : piecesOf(velt::isString(value) ? value : velt::description(value))) {
            tokens.push_back(tokenFor(piece));
        }
    } else if (!value.isNil()) {
        tokens.push_back(value);
    }
    tokens_ = std::move(tokens);
    pending_ = nil;
    publish();
    changed();
}

id NSTokenFieldCell::stringValue() const {
    std::u16string text;
    const auto add = [&text](const id& piece) {
        if (!text.empty()) text += u", ";
        text += velt::textOf(piece);
    };
    // The delegate that is asked may change the tokens.
    const std::vector<id> tokens = tokens_;
    for (const id& token : tokens) add(textOf(token));
    if (!pending_.isNil() && velt::asString(pending_).length() > 0) add(pending_);
    return velt::string(std::u16string_view(text));
}

id NSTokenFieldCell::attributedStringValue() const {
    return velt::make<NSAttributedString>(velt::textOf(stringValue()));
}

void NSTokenFieldCell::takeTyped(const id& text) {
    pending_ = velt::copy(text);
    publish();
}

void NSTokenFieldCell::replaceTokens(std::size_t first, std::size_t count, const std::vector<id>& with) {
    // Delegates and observers may have taken tokens away since the places were counted.
    first = std::min(first, tokens_.size());
    count = std::min(count, tokens_.size() - first);
    const auto begin = tokens_.begin() + static_cast<std::ptrdiff_t>(first);
    const auto at = velt::dropRange(tokens_, begin, begin + static_cast<std::ptrdiff_t>(count));
    tokens_.insert(at, with.begin(), with.end());
    publish();
}

id NSTokenFieldCell::tokenizingCharacterSet() const { return separators_.isNil() ? ","_v : separators_; }

void NSTokenFieldCell::setTokenizingCharacterSet(const id& characters) {
    separators_ = velt::isString(characters) ? velt::copy(characters) : nil;
}

bool NSTokenFieldCell::isSeparator(char16_t unit) const {
    const id separators = tokenizingCharacterSet();
    return velt::textOf(separators).find(unit) != std::u16string_view::npos;
}

std::vector<id> NSTokenFieldCell::piecesOf(const id& text) const {
    std::vector<id> pieces;
    std::u16string_view rest = velt::textOf(text);
    while (!rest.empty()) {
        std::size_t end = 0;
        while (end < rest.size() && !isSeparator(rest[end]) && rest[end] != u'\n' && rest[end] != u'\r') ++end;
        if (const std::u16string_view piece = trimmed(rest.substr(0, end)); !piece.empty()) {
            pieces.push_back(velt::string(piece));
        }
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return pieces;
}

id NSTokenFieldCell::textOf(const id& token) const {
    const velt::Selector asks = VELT_SELECTOR("tokenField:displayStringForRepresentedObject:");
    if (const id asked = delegate(); velt::respondsTo(asked, asks)) {
        id shown = velt::send(asked, asks, controlView(), token);
        if (velt::isString(shown)) return shown;
    }
    return velt::isString(token) ? token : velt::description(token);
}

id NSTokenFieldCell::tokenFor(const id& text) const {
    const velt::Selector asks = VELT_SELECTOR("tokenField:representedObjectForEditingString:");
    if (const id asked = delegate(); velt::respondsTo(asked, asks)) {
        id token = velt::send(asked, asks, controlView(), text);
        if (!token.isNil()) return token;
    }
    return text;
}

void NSTokenFieldCell::visitOwned(velt::OwnedVisitor& visitor) {
    for (id& token : tokens_) visitor.visit(token);
    // A dropped cycle takes the tokens away and leaves their places.
    std::erase_if(tokens_, [](const id& token) { return token.isNil(); });
    NSTextFieldCell::visitOwned(visitor);
}

void NSTokenFieldCell::describe(velt::ClassBuilder<NSTokenFieldCell>& c) {
    c.property("tokenizingCharacterSet", &NSTokenFieldCell::tokenizingCharacterSet,
               &NSTokenFieldCell::setTokenizingCharacterSet)
        .property("completionDelay", &NSTokenFieldCell::completionDelay, &NSTokenFieldCell::setCompletionDelay)
        .owns(&NSTokenFieldCell::pending_)
        .owns(&NSTokenFieldCell::separators_);
}
