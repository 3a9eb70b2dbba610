// Search fields: a text to look for, sent while it is typed or when it is done; what was sought before is at hand.
#pragma once

#include "VELTRuntime/platform/appkit/controls/text_field.h"

class VELT_EXPORT NSSearchFieldCell : public NSTextFieldCell {
    VELT_OBJECT(NSSearchFieldCell, NSTextFieldCell)
public:
    using NSTextFieldCell::NSTextFieldCell;

    /// Texts that were sought, the last one first: an array of strings.
    id recentSearches() const;
    /// Keeps the strings of an array, as many as there may be.
    void setRecentSearches(const id& texts);
    long maximumRecents() const { return maximumRecents_; }
    /// From 0 to 254; -1 stands for the usual 10.
    void setMaximumRecents(long count);
    /// Where the user's settings keep the searches; nil or "" keeps them nowhere. What was kept is there at once.
    id recentsAutosaveName() const { return autosaveName_; }
    void setRecentsAutosaveName(const id& name);
    /// The action goes out on Return alone, not while somebody types.
    bool sendsWholeSearchString() const { return sendsWhole_; }
    void setSendsWholeSearchString(bool flag) { sendsWhole_ = flag; }
    /// The action goes out at every change, without a pause.
    bool sendsSearchStringImmediately() const { return sendsImmediately_; }
    void setSendsSearchStringImmediately(bool flag) { sendsImmediately_ = flag; }

    /// A text was sought: it is the last one now.
    void remember(const id& text);
    static void describe(velt::ClassBuilder<NSSearchFieldCell>& c);

protected:
    double roomBeside() const override;

private:
    void keep(const id& texts);
    void save() const;

    id recents_, autosaveName_;
    long maximumRecents_ = 10;
    bool sendsWhole_ = false, sendsImmediately_ = false;
};

class VELT_EXPORT NSSearchField : public NSTextField {
    VELT_OBJECT(NSSearchField, NSTextField)
public:
    NSSearchFieldCell& searchCell() const { return static_cast<NSSearchFieldCell&>(cellObject()); }
    id recentSearches() const { return searchCell().recentSearches(); }
    void setRecentSearches(const id& texts) { searchCell().setRecentSearches(texts); }
    id recentsAutosaveName() const { return searchCell().recentsAutosaveName(); }
    void setRecentsAutosaveName(const id& name) { searchCell().setRecentsAutosaveName(name); }
    long maximumRecents() const { return searchCell().maximumRecents(); }
    void setMaximumRecents(long count) { searchCell().setMaximumRecents(count); }

    // What the widget reports.
    /// The cross was pressed: the field is empty, and the action goes out.
    void clearSearch() noexcept;
    /// Somebody chose an earlier search.
    void seekAgain(const id& text) noexcept;
    /// The pause after the last key is over.
    void pauseOver() noexcept;
    static void describe(velt::ClassBuilder<NSSearchField>& c);

protected:
    velt::Ref<NSCell> makeCell() const override;
    std::unique_ptr<velt::FieldWidget> makeFieldWidget() override;
    bool perform(std::string_view selector) override;
    void textChanged() override;
    bool finishWithReturn() override;

private:
    void replaceText(const id& text);
};
