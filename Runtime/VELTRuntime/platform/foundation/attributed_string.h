// Attributed strings: text whose ranges carry attributes.
#pragma once

#include "VELTRuntime/platform/foundation/run_list.h"
#include "VELTRuntime/values/string.h"

#include <string>

namespace velt {
struct UnarchivedFill;
/// Raises "NSRangeException" naming an object and what is asked of it unless a range lies within a text of a length.
VELT_EXPORT void requireRange(const NSObject& asked, const char* operation, NSRange range, std::size_t length);
}  // namespace velt

/// Text with attributes that does not change. Positions count UTF-16 units.
class VELT_EXPORT NSAttributedString : public NSObject {
public:
    /// That text without attributes.
    explicit NSAttributedString(std::u16string_view text = {});
    /// That text with the same attributes, a dictionary or nil, everywhere.
    NSAttributedString(std::u16string_view text, const id& attributes);
    /// That text with those attributes, as many units of them.
    NSAttributedString(std::u16string_view text, velt::RunList runs);
    /// The text and attributes of another one; the text is shared.
    explicit NSAttributedString(const NSAttributedString& other);

    static velt::Class& entry();
    velt::Class& isa() const override { return entry(); }
    /// The text without its attributes.
    id description() const override;
    /// The same text with equal attributes everywhere.
    bool isEqual(const id& other) const override;
    std::size_t hash() const override;
    id copy() const override;
    void visitOwned(velt::OwnedVisitor& visitor) override;

    std::u16string_view view() const { return text_->view(); }
    std::size_t length() const { return text_->length(); }
    /// The text as a new string, which shares it.
    id string() const { return velt::freshCopy(*text_); }
    /// The attributes, a dictionary or nil, of the unit at that position, and the range over which they are the same;
    /// raises "NSRangeException" beyond the end.
    id attributesAt(long position) const { return attributesAt(position, nullptr); }
    id attributesAt(long position, NSRange* range) const;
    /// One attribute of that unit, nil when it has none of that name, and the range over which the value is equal.
    id attributeAt(const id& name, long position, NSRange* range = nullptr) const;
    /// A new attributed string of a part; raises "NSRangeException" when the range goes beyond the end.
    id attributedSubstring(NSRange range) const;
    static void describe(velt::ClassBuilder<NSAttributedString>& c);

    /// Calls a function with begin, end and attributes (a dictionary or nil) of every run in order.
    template <class F> void forEachRun(F&& function) const {
        std::size_t begin = 0;
        for (const velt::RunList::Run& run : runs_.runs()) {
            function(begin, run.end, run.attributes);
            begin = run.end;
        }
    }
    const velt::RunList& runs() const { return runs_; }

protected:
    friend velt::UnarchivedFill;
    void appendText(std::u16string_view text, const id& attributes);
    /// Raises "NSRangeException" naming the operation unless the range lies within the text.
    void requireRange(const char* operation, NSRange range) const;

    velt::Ref<NSMutableString> text_;
    velt::RunList runs_;
};

/// Text with attributes that may be changed in place. A range that goes beyond the end raises "NSRangeException" and
/// changes nothing.
class VELT_EXPORT NSMutableAttributedString : public NSAttributedString {
public:
    using NSAttributedString::NSAttributedString;
    explicit NSMutableAttributedString(const NSAttributedString& other) : NSAttributedString(other) {}
    static velt::Class& entry();
    velt::Class& isa() const override { return entry(); }

    void append(const NSAttributedString& other);
    /// Puts a text in the place of a range. It takes the attributes of the first unit that it replaces, or else of the
    /// unit before it, or else of the one behind it.
    void replaceCharacters(NSRange range, std::u16string_view text);
    void replaceCharacters(NSRange range, const NSAttributedString& text);
    /// The attributes that a text gets which replaces a range.
    id attributesForReplacing(NSRange range) const;
    /// Adds one attribute to those of every unit of a range, or replaces it there.
    void addAttribute(const id& name, const id& value, NSRange range);
    /// Adds all attributes of a dictionary.
    void addAttributes(const id& attributes, NSRange range);
    void removeAttribute(const id& name, NSRange range);
    /// Replaces the attributes of a range by those of a dictionary, or by none.
    void setAttributes(const id& attributes, NSRange range);
    /// Takes text and attributes of another one.
    void setAttributedString(const NSAttributedString& other);
    /// Changes between the two may be shown together.
    virtual void beginEditing() {}
    virtual void endEditing() {}
    static void describe(velt::ClassBuilder<NSMutableAttributedString>& c);

protected:
    /// A change was made: a range as it was before has now another length; its text is the same when only attributes
    /// changed.
    virtual void edited(NSRange, std::size_t /*newLength*/, bool /*textChanged*/) {}

private:
    void putText(NSRange range, std::u16string_view text);
};

namespace velt {

/// The attributed string behind a value, or null when it is none.
inline const NSAttributedString* attributedStringOf(const id& value) {
    return isKind(value.word(), Kind::AttributedString) ? static_cast<const NSAttributedString*>(value.object())
                                                        : nullptr;
}

/// Attributes with one more, or with another value of it; the old ones are a dictionary or nil.
VELT_EXPORT id attributesWith(const id& attributes, const id& name, const id& value);
/// Attributes without one of them; nil when none is left.
VELT_EXPORT id attributesWithout(const id& attributes, const id& name);
/// Attributes and those of another dictionary, which win.
VELT_EXPORT id mergedAttributes(const id& attributes, const id& added);

/// Messages that tell a range beside their result put it, as the only element, into a mutable array that the caller
/// passes; nil when he does not want it. Raises "'NSMutableArray' expected" for anything else.
VELT_EXPORT void storeRange(const id& array, NSRange range);

}  // namespace velt
