// The cells of a path control: the whole path, and one cell for each of its parts.
#pragma once

#include "VELTRuntime/platform/appkit/controls/cell_properties.h"
#include "VELTRuntime/platform/foundation/url.h"

#include <string>
#include <vector>

/// One part of a path: its name, its icon and its place.
class VELT_EXPORT NSPathComponentCell : public NSActionCell {
    VELT_OBJECT(NSPathComponentCell, NSActionCell)
public:
    id url() const { return url_; }
    void setUrl(NSURL* url);
    /// The desktop's name for the icon, for when the cell has no image of its own.
    const std::string& iconName() const { return iconName_; }
    static void describe(velt::ClassBuilder<NSPathComponentCell>& c);

private:
    std::string iconName_;
    id url_;
};

/// The value is a URL or nil.
class VELT_EXPORT NSPathCell : public NSActionCell {
    VELT_OBJECT(NSPathCell, NSActionCell)
public:
    enum Style : unsigned long { kStandard = 0, kNavigationBar = 1, kPopUp = 2 };
    NSPathCell();

    id url() const { return objectValue(); }
    void setUrl(NSURL* url) { setObjectValue(velt::boxResult(url)); }
    /// A URL, the text of one, a file's path from the root, or nil. Raises "VLCastException" with "'NSURL' expected".
    void setObjectValue(const id& value) override;
    /// A file's path, or another URL as it is written.
    id stringValue() const override;

    unsigned long pathStyle() const { return style_; }
    void setPathStyle(unsigned long style);
    /// New array of the cells of the path's parts, from the root on. They are made anew with every URL.
    id pathComponentCells() const;
    /// Shows other cells. Raises "VLCastException" for what is no array of them.
    void setPathComponentCells(const id& cells);
    const std::vector<velt::Ref<NSPathComponentCell>>& components() const { return components_; }
    /// The part that was clicked last, nil before a click on this path.
    id clickedPathComponentCell() const { return clicked_; }
    void setClicked(const id& component) { clicked_ = component; }
    /// What a double click sends; without one it opens the part with the desktop's application for it.
    id doubleActionName() const;
    velt::Selector doubleAction() const { return doubleAction_; }
    void setDoubleAction(const id& name);
    /// The endings of file names that a person may choose or drop; nil for all.
    id allowedTypes() const { return allowedTypes_; }
    void setAllowedTypes(const id& types);
    bool allows(const std::string& path) const;
    id backgroundColor() const { return backgroundColor_; }
    void setBackgroundColor(const id& color);
    /// Shown while there is no URL.
    id placeholderString() const { return placeholder_; }
    void setPlaceholderString(const id& text);

    NSSize cellSize() const override;
    void visitOwned(velt::OwnedVisitor& visitor) override;
    template <class T> static void describePath(velt::ClassBuilder<T>& c);
    static void describe(velt::ClassBuilder<NSPathCell>& c);

private:
    unsigned long style_ = kStandard;
    velt::Selector doubleAction_;
    std::vector<velt::Ref<NSPathComponentCell>> components_;
    id clicked_, allowedTypes_, backgroundColor_, placeholder_;
};

class VELT_EXPORT NSPathControl : public velt::ControlOf<NSPathCell> {
    VELT_OBJECT(NSPathControl, NSControl)
public:
    bool isEditable() const { return ownCell().isEditable(); }
    void setEditable(bool flag) { ownCell().setEditable(flag); }
    /// A person clicked a part.
    void clicked(NSPathComponentCell& component) noexcept;
    void doubleClicked(NSPathComponentCell& component) noexcept;
    /// A person chose or dropped a file; nothing when it is not allowed.
    void chosen(const std::string& path) noexcept;
    static void describe(velt::ClassBuilder<NSPathControl>& c);

protected:
    std::unique_ptr<QWidget> makeWidget() override;
    void syncWidget(QWidget& widget) override;
};
