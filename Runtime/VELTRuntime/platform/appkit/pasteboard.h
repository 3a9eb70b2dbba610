// Pasteboards: what is dragged from one place to another, as values by their types.
#pragma once

#include "VELTRuntime/platform/object/class.h"

#include "VELTRuntime/values/structures.h"

#include <memory>
#include <utility>
#include <vector>

class QMimeData;

class VELT_EXPORT NSPasteboard : public NSObject {
    VELT_OBJECT(NSPasteboard, NSObject)
public:
    /// New array of the types of what is there, the best first.
    id types() const;
    /// Forgets everything, and says which types come. A type that has no value yet when it is asked for is asked of
    /// the owner by "pasteboard:provideDataForType:". How often the pasteboard has changed.
    long declareTypes(const id& types, const id& owner);
    long clearContents() { return declareTypes(nil, nil); }
    long changeCount() const { return changes_; }
    /// The first of those types that is there; nil when none is.
    id availableTypeFromArray(const id& types) const;

    /// Puts a value there, of any kind; true.
    bool setValue(const id& value, const id& type);
    /// The value of a type; nil when there is none.
    id value(const id& type);
    /// A text, or the text in data; nil when there is none.
    id stringForType(const id& type);
    /// Data, or a text as UTF-8; nil when there is none.
    id dataForType(const id& type);
    static void describe(velt::ClassBuilder<NSPasteboard>& c);
    void visitOwned(velt::OwnedVisitor& visitor) override;

private:
    std::vector<std::pair<id, id>> values_;  // by type, in the order of their declaration
    id owner_;
    long changes_ = 0;
};

/// What is being dragged over a view, and where.
class VELT_EXPORT NSDraggingInfo : public NSObject {
    VELT_OBJECT(NSDraggingInfo, NSObject)
public:
    NSDraggingInfo() = default;
    NSDraggingInfo(const id& pasteboard, const id& source, NSPoint location, unsigned long mask)
        : pasteboard_(pasteboard), source_(source), location_(location), mask_(mask) {}
    id draggingPasteboard() const { return pasteboard_; }
    /// The view that the drag began in; nil when it comes from elsewhere.
    id draggingSource() const { return source_; }
    /// In the coordinates of the window, from its lower left corner.
    NSPoint draggingLocation() const { return location_; }
    unsigned long draggingSourceOperationMask() const { return mask_; }
    static void describe(velt::ClassBuilder<NSDraggingInfo>& c);

private:
    id pasteboard_, source_;
    NSPoint location_{};
    unsigned long mask_ = 0;
};

namespace velt {

/// What may be done with something that is dragged; the numbers are those that programs use.
enum DragOperation : unsigned long { kDragCopy = 1, kDragLink = 2, kDragGeneric = 4, kDragMove = 16 };

/// A pasteboard as other programs on the desktop read it: its texts and its files. The caller owns it.
std::unique_ptr<QMimeData> mimeOf(NSPasteboard& pasteboard);
/// What another program drags, as far as programs here know its types.
Ref<NSPasteboard> pasteboardOf(const QMimeData& dragged);

}  // namespace velt
