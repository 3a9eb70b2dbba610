// How a text view lays its text out: the space it has, and attributes that are shown but are no part of the text.
#pragma once

#include "VELTRuntime/platform/appkit/text/temporary_layer.h"
#include "VELTRuntime/platform/object/class.h"

#include <memory>

class NSTextView;

/// The space into which text is laid out.
class VELT_EXPORT NSTextContainer final : public NSObject {
    VELT_OBJECT(NSTextContainer, NSObject)
public:
    explicit NSTextContainer(NSTextView* view = nullptr) : view_(view) {}
    NSSize containerSize() const { return size_; }
    void setContainerSize(NSSize size);
    /// Lines are as wide as the view. Without that they break at the container's width, and do not when it is wider
    /// than any window.
    bool widthTracksTextView() const { return tracksWidth_; }
    void setWidthTracksTextView(bool flag);
    bool heightTracksTextView() const { return tracksHeight_; }
    void setHeightTracksTextView(bool flag) { tracksHeight_ = flag; }
    id textView() const;
    void forgetView() { view_ = nullptr; }
    static void describe(velt::ClassBuilder<NSTextContainer>& c);

private:
    NSTextView* view_;
    NSSize size_{1e7, 1e7};
    bool tracksWidth_ = true, tracksHeight_ = false;
};

/// Keeps the temporary attributes of a text view: they move with the text, are drawn over its own, and are never part
/// of it or of what can be undone.
class VELT_EXPORT NSLayoutManager final : public NSObject {
    VELT_OBJECT(NSLayoutManager, NSObject)
public:
    explicit NSLayoutManager(NSTextView* view = nullptr);

    /// Each raises "NSRangeException" when the range goes beyond the text's end. Attributes are a dictionary or nil.
    void setTemporaryAttributes(const id& attributes, NSRange range);
    void addTemporaryAttributes(const id& attributes, NSRange range);
    void removeTemporaryAttribute(const id& name, NSRange range);
    /// The attributes of a unit and the range over which they are the same.
    id temporaryAttributesAt(long position, NSRange* range) const;
    const velt::TemporaryLayer& temporaryLayer() const { return *layer_; }
    /// Keeps the attributes elsewhere from now on; the layer is as long as the text.
    void keepIn(std::unique_ptr<velt::TemporaryLayer> layer) { layer_ = std::move(layer); }

    /// The units that lie within a rectangle of the view; all when the view is not shown. A unit is a glyph here.
    NSRange glyphRangeForBoundingRect(NSRect rect, const id& container) const;

    void textChanged(NSRange range, std::size_t newLength);
    void forgetView() { view_ = nullptr; }
    void visitOwned(velt::OwnedVisitor& visitor) override;
    static void describe(velt::ClassBuilder<NSLayoutManager>& c);

private:
    void change(const char* operation, NSRange range, const std::function<id(const id&)>& changed);

    NSTextView* view_;
    std::unique_ptr<velt::TemporaryLayer> layer_;
};
