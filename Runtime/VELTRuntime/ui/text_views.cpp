#include "VELTRuntime/ui/text_views.h"

#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/platform/appkit/text/text_view.h"
#include "VELTRuntime/platform/foundation/attributed_string.h"
#include "VELTRuntime/values/boxing.h"
#include "VELTRuntime/values/string.h"

#include <climits>

#define VELT_WRAPPER_TABLE "VELTRuntime/ui/text_views.def"
#include "VELTRuntime/ui/accessor_definitions.h"

using namespace velt;

namespace {

/// Puts the insertion point somewhere and scrolls there.
void goTo(const id& view, unsigned long position) {
    const id place = VELT_ID(NSRange{position, 0});
    send(view, VELT_SELECTOR("setSelectedRange:"), place);
    send(view, VELT_SELECTOR("scrollRangeToVisible:"), place);
}

id undoManagerOf(const char* wrapper, const id& view) {
    requireMainThread(wrapper);
    return send(view, VELT_SELECTOR("undoManager"));
}

id asked(const char* wrapper, const id& view, Selector question) {
    const id manager = undoManagerOf(wrapper, view);
    return manager.isNil() ? VELT_ID(BOOL{0}) : send(manager, question);
}

}  // namespace

id VELT_NSTEXTVIEW_INIT(const id& owner, const char*) {
    requireMainThread("VELT_NSTEXTVIEW_INIT");
    Ref<NSTextView> view = make<NSTextView>();
    view->setDelegate(owner);
    return view;
}

id VELT_NSTEXTVIEW_VALUE(const id& view) {
    return ui::get(view, VELT_WRAPPER(NSTEXTVIEW_VALUE, "string"), ui::ValueKind::Object);
}

id VELT_NSTEXTVIEW_VALUE(const id& view, const id& text) {
    ui::set(view, VELT_WRAPPER(NSTEXTVIEW_VALUE, "setString:"), ui::ValueKind::Text, text);
    static const Class& editor = Class::known("VLTextView");
    if (isKindOf(view, editor)) {
        send(view, VELT_SELECTOR("performSyntaxHighlighting::"), view, VELT_ID(BOOL{1}));
    }
    return nil;
}

id VELT_NSTEXTVIEW_APPEND(const id& view, const id& text) {
    requireMainThread("VELT_NSTEXTVIEW_APPEND");
    const id content = VELT_CSTRING(text);
    const id storage = send(view, VELT_SELECTOR("textStorage"));
    if (storage.isNil()) return nil;
    const id added = make<NSAttributedString>(textOf(content));
    send(storage, VELT_SELECTOR("appendAttributedString:"), added);
    goTo(view, static_cast<unsigned long>(VELT_CINTEGER(send(storage, VELT_SELECTOR("length")))));
    return nil;
}

id VELT_NSTEXTVIEW_HASSELECTION(const id& view) {
    requireMainThread("VELT_NSTEXTVIEW_HASSELECTION");
    if (view.isNil()) return VELT_ID(0L);
    const NSRange range = VELT_CNSRANGE(send(view, VELT_SELECTOR("selectedRange")));
    return VELT_ID(range.location == LONG_MAX ? 0L : 1L);  // an integer; programs rely on it
}

id VELT_NSTEXTVIEW_GOTOFIRSTCHARACTER(const id& view) {
    requireMainThread("VELT_NSTEXTVIEW_GOTOFIRSTCHARACTER");
    goTo(view, 0);
    return nil;
}

id VELT_NSTEXTVIEW_UNDO(const id& view) {
    send(undoManagerOf("VELT_NSTEXTVIEW_UNDO", view), VELT_SELECTOR("undo"));
    return nil;
}

id VELT_NSTEXTVIEW_REDO(const id& view) {
    send(undoManagerOf("VELT_NSTEXTVIEW_REDO", view), VELT_SELECTOR("redo"));
    return nil;
}

id VELT_NSTEXTVIEW_CANUNDO(const id& view) { return asked("VELT_NSTEXTVIEW_CANUNDO", view, VELT_SELECTOR("canUndo")); }

id VELT_NSTEXTVIEW_CANREDO(const id& view) { return asked("VELT_NSTEXTVIEW_CANREDO", view, VELT_SELECTOR("canRedo")); }
