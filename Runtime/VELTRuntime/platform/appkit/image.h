// Images: pictures that were read from files or drawn, and the desktop's icons.
#pragma once

#include "VELTRuntime/platform/object/class.h"
#include "VELTRuntime/values/structures.h"

#include <memory>
#include <string>
#include <string_view>

class NSWindow;
class QImage;

/// A picture; it does not change. Images may be made and read on any thread.
class VELT_EXPORT NSImage final : public NSObject {
    VELT_OBJECT(NSImage, NSObject)
public:
    /// The picture in a file (path in UTF-8), turned upright as the file says; null when the file cannot be read or
    /// holds no picture. The file's content decides its format, not its name.
    static velt::Ref<NSImage> fromFile(const std::string& path);
    /// The picture in those bytes, as above; null when they hold none.
    static velt::Ref<NSImage> fromBytes(std::string_view bytes);
    /// The image of that name: a file of the program's resources, with or without its extension, else the desktop's
    /// icon of that name or of what the name usually stands for ("NSFolder"). Null when there is none. Icons are had on
    /// the main thread only.
    static velt::Ref<NSImage> named(const std::string& name);
    /// What a window shows at this moment, its contents without the title bar.
    static velt::Ref<NSImage> ofWindow(NSWindow& window);
    /// An empty image.
    NSImage();
    /// That picture, shared.
    explicit NSImage(const QImage& picture);
    ~NSImage() override;

    /// "<NSImage {16, 32}>", with the size.
    id description() const override;
    /// Itself: an image cannot be changed.
    id copy() const override;

    /// Width and height in the program's units: dots, unless the picture says that several make a unit.
    NSSize size() const;
    /// There is something to draw.
    bool isValid() const;
    /// Draws a part of the image, all of it for the empty rectangle, over a rectangle of what is being drawn into. The
    /// fraction is the opacity, from 0 to 1. Nothing happens when nothing is being drawn.
    void drawInRect(NSRect rect, NSRect from, long operation, double fraction) const;
    /// The picture as a PNG file's bytes, a data value; nil for an empty image.
    id pngRepresentation() const;
    const QImage& picture() const { return *picture_; }
    static void describe(velt::ClassBuilder<NSImage>& c);

private:
    std::unique_ptr<const QImage> picture_;
};
