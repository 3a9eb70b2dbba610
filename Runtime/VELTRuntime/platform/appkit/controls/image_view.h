// Image views: an image in a window, which a person may replace when the program lets him.
#pragma once

#include "VELTRuntime/platform/appkit/controls/control.h"
#include "VELTRuntime/platform/appkit/controls/image_cell.h"

class QMimeData;

class VELT_EXPORT NSImageView : public NSControl {
    VELT_OBJECT(NSImageView, NSControl)
public:
    NSImageCell& imageCell() const { return *velt::as<NSImageCell>(cell()); }

    id image() const { return imageCell().image(); }
    void setImage(const id& image) { imageCell().setImage(image); }
    unsigned long imageScaling() const { return imageCell().imageScaling(); }
    void setImageScaling(unsigned long scaling) { imageCell().setImageScaling(scaling); }
    unsigned long imageAlignment() const { return imageCell().imageAlignment(); }
    void setImageAlignment(unsigned long alignment) { imageCell().setImageAlignment(alignment); }
    unsigned long imageFrameStyle() const { return imageCell().imageFrameStyle(); }
    void setImageFrameStyle(unsigned long style) { imageCell().setImageFrameStyle(style); }
    /// A person may drop another image on it, paste one and delete it.
    bool isEditable() const { return imageCell().isEditable(); }
    void setEditable(bool flag) { imageCell().setEditable(flag); }
    bool allowsCutCopyPaste() const { return allowsCutCopyPaste_; }
    void setAllowsCutCopyPaste(bool flag) { allowsCutCopyPaste_ = flag; }

    // The first responder's actions. A change sends the view's action.
    void cut(const id& sender);
    void copyImage(const id& sender);
    void paste(const id& sender);
    void deleteImage(const id& sender);
    /// Takes the image that is dragged or on the clipboard, as a person's change; false when there is none.
    bool takeImage(const QMimeData& data);
    static bool holdsImage(const QMimeData& data);

    static void describe(velt::ClassBuilder<NSImageView>& c);

protected:
    velt::Ref<NSCell> makeCell() const override { return velt::make<NSImageCell>(); }
    bool takesKeys() const override { return isEditable(); }
    std::unique_ptr<QWidget> makeWidget() override;
    void syncWidget(QWidget& widget) override;

private:
    void replace(const id& image);
    bool allowsCutCopyPaste_ = true;
};
