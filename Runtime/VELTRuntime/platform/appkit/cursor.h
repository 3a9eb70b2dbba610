// Cursors: the shape of the mouse's pointer.
#pragma once

#include "VELTRuntime/platform/object/class.h"
#include "VELTRuntime/values/structures.h"

#include <memory>

class NSImage;
class QCursor;

/// One shape; it does not change. Shapes are shown over all of the program's windows, on the main thread only.
class VELT_EXPORT NSCursor final : public NSObject {
    VELT_OBJECT(NSCursor, NSObject)
public:
    /// An arrow.
    NSCursor();
    explicit NSCursor(const QCursor& cursor);
    /// A picture, and the point of it that points, from its upper left corner. An arrow for an empty picture.
    NSCursor(const NSImage& image, NSPoint hotSpot);
    ~NSCursor() override;

    /// Shows it until another one is set; the arrow lets each view show its own again.
    void set() const;
    /// Shows it until it is popped; then what was shown before.
    void push() const;
    static void pop();
    /// No pointer is shown until as many calls of unhide.
    static void hide();
    static void unhide();
    /// The one that was set or pushed last; an arrow at first.
    static velt::Ref<NSCursor> currentCursor();

    /// The picture that it was made of; nil for the desktop's shapes.
    id image() const { return image_; }
    NSPoint hotSpot() const;
    const QCursor& cursor() const { return *cursor_; }
    static void describe(velt::ClassBuilder<NSCursor>& c);

private:
    std::unique_ptr<const QCursor> cursor_;
    id image_;
};
