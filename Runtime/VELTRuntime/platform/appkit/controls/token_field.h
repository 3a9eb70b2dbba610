// Token fields: a row of things, each shown as one piece, made from what is typed.
#pragma once

#include "VELTRuntime/platform/appkit/controls/text_field.h"

#include <vector>

class VELT_EXPORT NSTokenFieldCell : public NSTextFieldCell {
    VELT_OBJECT(NSTokenFieldCell, NSTextFieldCell)
public:
    using NSTextFieldCell::NSTextFieldCell;

    /// An array of the tokens: what they stand for, and behind them the text that is being typed, if any.
    id objectValue() const override;
    /// Takes an array, or a text that is cut into tokens.
    void setObjectValue(const id& value) override;
    /// The tokens' texts with a comma and a space between them.
    id stringValue() const override;
    id attributedStringValue() const override;
    void takeTyped(const id& text) override;
    bool finishTyping() override { return true; }

    /// The characters that end a token, as a text; a comma unless the program says otherwise.
    id tokenizingCharacterSet() const;
    void setTokenizingCharacterSet(const id& characters);
    bool isSeparator(char16_t unit) const;
    /// The seconds after which completions are offered.
    double completionDelay() const { return completionDelay_; }
    void setCompletionDelay(double seconds) { completionDelay_ = seconds; }

    const std::vector<id>& tokens() const { return tokens_; }
    /// Replaces some tokens by others, as a person does; places beyond the last token are left out.
    void replaceTokens(std::size_t first, std::size_t count, const std::vector<id>& with);
    id pendingText() const { return pending_; }
    /// What a token is shown as: the delegate's word, or else its own text.
    id textOf(const id& token) const;
    /// What a text stands for: the delegate's word, or else the text.
    id tokenFor(const id& text) const;
    /// The pieces of a text between the separators, without the space around them.
    std::vector<id> piecesOf(const id& text) const;

    void visitOwned(velt::OwnedVisitor& visitor) override;
    static void describe(velt::ClassBuilder<NSTokenFieldCell>& c);

private:
    id delegate() const;
    void publish();

    std::vector<id> tokens_;
    id pending_, separators_;
    double completionDelay_ = 0;
};

class VELT_EXPORT NSTokenField : public NSTextField {
    VELT_OBJECT(NSTokenField, NSTextField)
public:
    NSTokenFieldCell& tokenCell() const { return static_cast<NSTokenFieldCell&>(cellObject()); }
    id tokenizingCharacterSet() const { return tokenCell().tokenizingCharacterSet(); }
    void setTokenizingCharacterSet(const id& characters) { tokenCell().setTokenizingCharacterSet(characters); }
    double completionDelay() const { return tokenCell().completionDelay(); }
    void setCompletionDelay(double seconds) { tokenCell().setCompletionDelay(seconds); }

    id editedText() const override;
    /// The token that is selected, -1 when the text behind them is being edited.
    long selectedToken() const { return selected_; }
    void cutText(const id& sender) override;
    void copyText(const id& sender) override;
    void pasteText(const id& sender) override;
    void deleteText(const id& sender) override;
    void cellChanged(NSCell& cell) override;

    // What the widget reports.
    void selectToken(long index) noexcept;
    /// Somebody chose a completion of what is typed.
    void completeWith(const id& text) noexcept;
    /// Texts with which what is typed may go on; the delegate's word. An array, or nil.
    id completions() noexcept;
    static void describe(velt::ClassBuilder<NSTokenField>& c);

protected:
    velt::Ref<NSCell> makeCell() const override;
    std::unique_ptr<velt::FieldWidget> makeFieldWidget() override;
    bool perform(std::string_view selector) override;
    void takeTyped() override;
    void textChanged() override;
    bool endingEdit(Movement movement) override;

private:
    bool addTokens(const std::vector<id>& texts);
    bool removeSelected();
    /// Makes tokens of what is typed; false when there was nothing to make.
    bool makeTokens();

    long selected_ = -1;
};
