// The temporary attributes of an editor view: inks over the editor's own copy of the text, which knows its lines.
#pragma once

#include "VELTRuntime/editor/highlighter.h"
#include "VELTRuntime/platform/appkit/text/temporary_layer.h"
#include "VELTRuntime/platform/appkit/text/text_storage.h"

namespace velt {

class ViewTarget;

/// Keeps a buffer in step with a storage, and its inks. Attributes that a program lays get inks of their own, one for
/// each different background and one for each different rest.
class SourceLayer final : public TemporaryLayer {
public:
    explicit SourceLayer(Ref<NSTextStorage> storage)
        : storage_(std::move(storage)), buffer_(storage_->view()), inks_(buffer_), highlighter_(buffer_, inks_) {}

    const SourceBuffer& buffer() const { return buffer_; }
    /// For changes that the storage gets later, as one.
    SourceBuffer& changeableBuffer() { return buffer_; }
    const NSTextStorage& storage() const { return *storage_; }
    /// Who made changes that only the buffer has; null when there are none.
    ViewTarget* ahead() const { return ahead_; }
    void setAhead(ViewTarget* target) { ahead_ = target; }
    /// The storage gets what the buffer has already.
    void setIsAhead(bool flag) { isAhead_ = flag; }
    Highlighter& highlighter() { return highlighter_; }

    std::size_t length() const override { return buffer_.length(); }
    id at(std::size_t position, NSRange& range) const override;
    void change(NSRange range, const std::function<id(const id&)>& changed) override;
    void textChanged(NSRange range, std::size_t newLength) override;
    void visitOwned(OwnedVisitor& visitor) override;

private:
    const id& attributesOf(Ink ink) const;
    Ink inkFor(const id& attributes);

    Ref<NSTextStorage> storage_;
    SourceBuffer buffer_;
    DisplayAttributes inks_;
    Highlighter highlighter_;
    ViewTarget* ahead_ = nullptr;
    bool isAhead_ = false;
    std::vector<id> laid_;  // what programs laid; its first one is behind the editor's own inks
};

}  // namespace velt
