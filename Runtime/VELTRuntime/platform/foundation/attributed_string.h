// Attributed strings: text whose ranges carry attributes.
#pragma once

#include "VELTRuntime/values/string.h"
#include "VELTRuntime/values/structures.h"

#include <string>
#include <vector>

namespace velt {
struct UnarchivedFill;
}

/// Text with attributes that does not change.
class VELT_EXPORT NSAttributedString : public NSObject {
public:
    /// That text without attributes.
    explicit NSAttributedString(std::u16string_view text = {}) : NSAttributedString(velt::Kind::AttributedString) {
        appendText(text, nil);
    }
    /// The text and attributes of another one.
    explicit NSAttributedString(const NSAttributedString& other)
        : NSObject(velt::Kind::AttributedString), text_(other.text_), runs_(other.runs_) {}

    static velt::Class& entry();
    velt::Class& isa() const override { return entry(); }
    /// The text without its attributes.
    id description() const override;
    /// The same text with equal attributes everywhere.
    bool isEqual(const id& other) const override;
    std::size_t hash() const override;
    id copy() const override;
    void visitOwned(velt::OwnedVisitor& visitor) override;

    std::u16string_view view() const { return text_; }
    std::size_t length() const { return text_.size(); }
    /// The text as a new string.
    id string() const { return velt::string(std::u16string_view(text_)); }
    /// The attributes, a dictionary or nil, of the unit at that position; raises "NSRangeException" beyond the end.
    id attributesAt(long position) const;
    static void describe(velt::ClassBuilder<NSAttributedString>& c);

    /// Calls a function with begin, end and attributes (a dictionary or nil) of every run in order.
    template <class F> void forEachRun(F&& function) const {
        std::size_t begin = 0;
        for (const Run& run : runs_) {
            function(begin, run.end, run.attributes);
            begin = run.end;
        }
    }

protected:
    friend velt::UnarchivedFill;
    /// The attributes of the units before a position, from the end of the run before.
    struct Run {
        std::size_t end;
        id attributes;
    };
    explicit NSAttributedString(velt::Kind kind) : NSObject(kind) {}
    void appendText(std::u16string_view text, const id& attributes);

    std::u16string text_;
    std::vector<Run> runs_;
};

/// Text with attributes that may be changed in place.
class VELT_EXPORT NSMutableAttributedString final : public NSAttributedString {
public:
    explicit NSMutableAttributedString(std::u16string_view text = {}) : NSAttributedString(text) {}
    explicit NSMutableAttributedString(const NSAttributedString& other) : NSAttributedString(other) {}
    static velt::Class& entry();
    velt::Class& isa() const override { return entry(); }

    void append(const NSAttributedString& other);
    /// Adds one attribute to those of every unit of a range, or replaces it there; raises "NSRangeException" when the
    /// range goes beyond the end.
    void addAttribute(const id& name, const id& value, NSRange range);
    /// Replaces the attributes of a range; raises "NSRangeException" when it goes beyond the end.
    void setAttributes(const id& attributes, NSRange range);
    static void describe(velt::ClassBuilder<NSMutableAttributedString>& c);

private:
    /// Puts what `changed` makes of a run's attributes in their place, within a range.
    template <class Change> void changeRuns(const char* operation, NSRange range, Change changed);
};

namespace velt {

/// The attributed string behind a value, or null when it is none.
inline const NSAttributedString* attributedStringOf(const id& value) {
    return isKind(value.word(), Kind::AttributedString) ? static_cast<const NSAttributedString*>(value.object())
                                                        : nullptr;
}

}  // namespace velt
