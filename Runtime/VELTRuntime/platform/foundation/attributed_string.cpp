#include "VELTRuntime/platform/foundation/attributed_string.h"

#include "VELTRuntime/platform/foundation/dictionary.h"
#include "VELTRuntime/platform/object/class.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/text/hashing.h"

#include <algorithm>
#include <climits>

velt::Class& NSAttributedString::entry() {
    static velt::Class& cls = velt::declareClass<NSAttributedString>("NSAttributedString", &NSObject::entry());
    return cls;
}
velt::Class& NSMutableAttributedString::entry() {
    static velt::Class& cls =
        velt::declareClass<NSMutableAttributedString>("NSMutableAttributedString", &NSAttributedString::entry());
    return cls;
}

void NSAttributedString::appendText(std::u16string_view text, const id& attributes) {
    if (text.empty()) return;
    text_ += text;
    if (!runs_.empty() && runs_.back().attributes == attributes) {
        runs_.back().end = text_.size();
    } else {
        runs_.push_back({text_.size(), attributes});
    }
}

id NSAttributedString::description() const { return string(); }

bool NSAttributedString::isEqual(const id& other) const {
    const NSAttributedString* attributed = velt::attributedStringOf(other);
    if (!attributed || attributed->text_ != text_) return false;
    // Runs may be cut differently: walk both to the nearest end.
    const auto same = [](const id& a, const id& b) { return a == b || velt::isEqual(a, b); };
    for (std::size_t i = 0, j = 0; i < runs_.size() && j < attributed->runs_.size();) {
        const Run &a = runs_[i], &b = attributed->runs_[j];
        if (!same(a.attributes, b.attributes)) return false;
        i += a.end <= b.end;
        j += b.end <= a.end;
    }
    return true;
}

std::size_t NSAttributedString::hash() const { return velt::text::hashOf(text_); }

id NSAttributedString::copy() const { return velt::make<NSAttributedString>(*this); }

void NSAttributedString::visitOwned(velt::OwnedVisitor& visitor) {
    for (Run& run : runs_) {
        if (run.attributes.isObject()) visitor.visit(run.attributes);
    }
    NSObject::visitOwned(visitor);
}

id NSAttributedString::attributesAt(long position) const {
    if (static_cast<std::size_t>(position) >= length()) {
        velt::raiseRange("'" + isa().name() + "' attributesAtIndex:", position, length());
    }
    for (const Run& run : runs_) {
        if (static_cast<std::size_t>(position) < run.end) return run.attributes;
    }
    return nil;
}

void NSMutableAttributedString::append(const NSAttributedString& other) {
    const NSMutableAttributedString source(other);  // the other may be this one
    std::size_t begin = 0;
    for (const Run& run : source.runs_) {
        appendText(source.view().substr(begin, run.end - begin), run.attributes);
        begin = run.end;
    }
}

template <class Change>
void NSMutableAttributedString::changeRuns(const char* operation, NSRange range, Change changed) {
    if (range.location > length() || range.length > length() - range.location) {
        std::size_t end = 0;
        if (__builtin_add_overflow(range.location, range.length, &end)) end = LONG_MAX;
        velt::raiseRange(std::string("'NSMutableAttributedString' ") + operation, static_cast<long long>(end),
                         length());
    }
    const std::size_t rangeEnd = range.location + range.length;
    NSMutableAttributedString result;
    std::size_t begin = 0;
    for (const Run& run : runs_) {
        // The run's parts before, within and behind the range; any of them may be empty.
        const std::size_t first = std::clamp(range.location, begin, run.end);
        const std::size_t last = std::clamp(rangeEnd, first, run.end);
        result.appendText(view().substr(begin, first - begin), run.attributes);
        if (first < last) result.appendText(view().substr(first, last - first), changed(run.attributes));
        result.appendText(view().substr(last, run.end - last), run.attributes);
        begin = run.end;
    }
    text_.swap(result.text_);
    runs_.swap(result.runs_);
}

void NSMutableAttributedString::setAttributes(const id& attributes, NSRange range) {
    changeRuns("setAttributes:range:", range, [&](const id&) { return attributes; });
}

void NSMutableAttributedString::addAttribute(const id& name, const id& value, NSRange range) {
    changeRuns("addAttribute:value:range:", range, [&](const id& attributes) {
        const NSDictionary* old = velt::dictionaryOf(attributes);
        const auto extended = old ? velt::make<NSMutableDictionary>(*old) : velt::make<NSMutableDictionary>();
        extended->setObject(value, name);
        return extended->copy();
    });
}

void NSAttributedString::describe(velt::ClassBuilder<NSAttributedString>& c) {
    c.property("length", &NSAttributedString::length)
        .property("string", &NSAttributedString::string)
        .method("attributesAtIndex:", &NSAttributedString::attributesAt)
        .method("mutableCopy", [](const id& self, const id*) {
            return id(velt::make<NSMutableAttributedString>(*velt::attributedStringOf(self)));
        });
}

void NSMutableAttributedString::describe(velt::ClassBuilder<NSMutableAttributedString>& c) {
    c.method("setAttributes:range:", &NSMutableAttributedString::setAttributes)
        .method("addAttribute:value:range:", &NSMutableAttributedString::addAttribute)
        .method("appendAttributedString:", [](const id& self, const id* a) {
            const auto* other = velt::to<NSAttributedString>(a[0]);
            if (!other) {
                velt::raise(velt::kInvalidArgumentException,
                            "'NSMutableAttributedString' appendAttributedString:: nil cannot be appended");
            }
            velt::as<NSMutableAttributedString>(self)->append(*other);
            return id();
        });
}
