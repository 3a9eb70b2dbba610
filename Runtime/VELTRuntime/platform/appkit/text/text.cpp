#include "VELTRuntime/platform/appkit/text/text.h"

#include "VELTRuntime/platform/appkit/color.h"
#include "VELTRuntime/platform/foundation/notification_center.h"
#include "VELTRuntime/values/string.h"

void NSText::setBackgroundColor(const id& color) {
    backgroundColor_ = velt::boxResult(velt::to<NSColor>(color));
    changed();
}

void NSText::setDrawsBackground(bool flag) {
    drawsBackground_ = flag;
    changed();
}

void NSText::setAlignment(long alignment) {
    alignment_ = alignment;
    changed();
}

void NSText::setEditable(bool flag) {
    editable_ = flag;
    selectable_ = selectable_ || flag;
    changed();
}

void NSText::setSelectable(bool flag) {
    selectable_ = flag;
    editable_ = editable_ && flag;
    changed();
}

void NSText::setRichText(bool flag) {
    richText_ = flag;
    changed();
}

void NSText::tell(std::string_view delegateSelector, std::string_view notification) {
    velt::tellDelegateAndObservers(delegate_, delegateSelector, notification, id(static_cast<NSObject*>(this)));
}

void NSText::describe(velt::ClassBuilder<NSText>& c) {
    c.property("string", &NSText::string, &NSText::setString)
        .method("replaceCharactersInRange:withString:", &NSText::replaceCharacters)
        .property("selectedRange", &NSText::selectedRange, &NSText::setSelectedRange)
        .method("scrollRangeToVisible:", &NSText::scrollRangeToVisible)
        .property("font", &NSText::font, &NSText::setFont)
        .property("textColor", &NSText::textColor, &NSText::setTextColor)
        .property("backgroundColor", &NSText::backgroundColor, &NSText::setBackgroundColor)
        .property("drawsBackground", &NSText::drawsBackground, &NSText::setDrawsBackground)
        .property("alignment", &NSText::alignment, &NSText::setAlignment)
        .flag("editable", &NSText::isEditable, &NSText::setEditable)
        .flag("selectable", &NSText::isSelectable, &NSText::setSelectable)
        .flag("richText", &NSText::isRichText, &NSText::setRichText)
        .flag("horizontallyResizable", &NSText::isHorizontallyResizable, &NSText::setHorizontallyResizable)
        .flag("verticallyResizable", &NSText::isVerticallyResizable, &NSText::setVerticallyResizable)
        .property("minSize", &NSText::minSize, &NSText::setMinSize)
        .property("maxSize", &NSText::maxSize, &NSText::setMaxSize)
        .property("delegate", &NSText::delegate, &NSText::setDelegate)
        .method("cut:", &NSText::cut)
        .method("copy:", &NSText::copySelection)
        .method("paste:", &NSText::paste)
        .method("delete:", &NSText::deleteSelection)
        .method("selectAll:", &NSText::selectAll)
        .owns(&NSText::backgroundColor_)
        .owns(&NSText::delegate_);
}
