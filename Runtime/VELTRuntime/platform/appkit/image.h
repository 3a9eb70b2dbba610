// Images: pictures that were read from files.
#pragma once

#include "VELTRuntime/platform/object/class.h"
#include "VELTRuntime/values/structures.h"

#include <memory>
#include <string>

class QImage;

/// A picture; it does not change. Images may be made and read on any thread.
class VELT_EXPORT NSImage final : public NSObject {
    VELT_OBJECT(NSImage, NSObject)
public:
    /// The picture in a file (path in UTF-8), turned upright as the file says; null when the file cannot be read or
    /// holds no picture. The file's content decides its format, not its name.
    static velt::Ref<NSImage> fromFile(const std::string& path);
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
    const QImage& picture() const { return *picture_; }
    static void describe(velt::ClassBuilder<NSImage>& c);

private:
    std::unique_ptr<const QImage> picture_;
};
