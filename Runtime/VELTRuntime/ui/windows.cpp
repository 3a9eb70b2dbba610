#include "VELTRuntime/ui/windows.h"

#include "VELTRuntime/platform/appkit/application.h"
#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/platform/appkit/panel.h"
#include "VELTRuntime/platform/appkit/view.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/ui/frame_parts.h"
#include "VELTRuntime/values/boxing.h"
#include "VELTRuntime/values/string.h"

#define VELT_WRAPPER_TABLE "VELTRuntime/ui/windows.def"
#include "VELTRuntime/ui/accessor_definitions.h"

using namespace velt;
using ui::ValueKind;

id VELT_NSWINDOW_INIT(const id&, const char*) {
    requireMainThread("VELT_NSWINDOW_INIT");
    const Ref<NSWindow> window = make<NSWindow>();
    window->setDelegate(window);
    return window;
}

id VELT_NSPANEL_INIT(const id&, const char*) {
    requireMainThread("VELT_NSPANEL_INIT");
    return make<NSPanel>();
}

namespace {

/// A message with a rectangle or a text and the window's own style mask.
id sendWithStyle(const id& window, const char* name, const char* selector, const id& argument, const id& zero) {
    requireMainThread(name);
    if (window.isNil()) return zero;
    return send(window, Selector::named(selector), argument, send(window, VELT_SELECTOR("styleMask")));
}

}  // namespace

id VELT_NSWINDOW_FRAME(const id& window) {
    return ui::get(window, VELT_WRAPPER(NSWINDOW_FRAME, "frame"), ValueKind::Rect);
}
id VELT_NSWINDOW_FRAME(const id& window, const id& frame) {
    requireMainThread("VELT_NSWINDOW_FRAME");
    send(window, VELT_SELECTOR("setFrame:display:"), VELT_ID(VELT_CNSRECT(frame)), VELT_ID(BOOL{1}));
    return nil;
}

namespace {
void setWindowFrame(const id& window, const NSRect& frame) { VELT_NSWINDOW_FRAME(window, VELT_ID(frame)); }
}  // namespace
VELT_FRAME_PARTS(NSWINDOW, setWindowFrame)

id VELT_NSWINDOW_CONTENTSIZE(const id&) { return VELT_ID(0L); }  // programs rely on it

id VELT_NSWINDOW_CONTENTRECTFORFRAMERECT(const id& window, const id& rect) {
    const id converted = VELT_ID(VELT_CNSRECT(rect));
    return sendWithStyle(window, "VELT_NSWINDOW_CONTENTRECTFORFRAMERECT",
                         "contentRectForFrameRect:styleMask:", converted, VELT_ID(NSRect{}));
}
id VELT_NSWINDOW_FRAMERECTFORCONTENTRECT(const id& window, const id& rect) {
    const id converted = VELT_ID(VELT_CNSRECT(rect));
    return sendWithStyle(window, "VELT_NSWINDOW_FRAMERECTFORCONTENTRECT",
                         "frameRectForContentRect:styleMask:", converted, VELT_ID(NSRect{}));
}
id VELT_NSWINDOW_MINFRAMEWIDTHWITHTITLE(const id& window, const id& title) {
    const id converted = VELT_CSTRING(title);
    return sendWithStyle(window, "VELT_NSWINDOW_MINFRAMEWIDTHWITHTITLE", "minFrameWidthWithTitle:styleMask:", converted,
                         VELT_ID(0.0));
}

id VELT_NSWINDOW_CENTERANDSHOW(const id& window) {
    requireMainThread("VELT_NSWINDOW_CENTERANDSHOW");
    VELT_NSWINDOW_CENTER(window);
    return VELT_NSWINDOW_SHOW(window);
}

id VELT_NSWINDOW_VISIBLE(const id& window) {
    return ui::get(window, VELT_WRAPPER(NSWINDOW_VISIBLE, "isVisible"), ValueKind::Boolean);
}
id VELT_NSWINDOW_VISIBLE(const id& window, const id& flag) {
    requireMainThread("VELT_NSWINDOW_VISIBLE");
    return VELT_CBOOL(flag) ? VELT_NSWINDOW_SHOW(window) : VELT_NSWINDOW_HIDE(window);
}

id VELT_NSWINDOW_APPEND(const id& window, const id& view) {
    requireMainThread("VELT_NSWINDOW_APPEND");
    if (!is<NSView>(view)) raiseCast("'NSView' expected");
    send(send(window, VELT_SELECTOR("contentView")), VELT_SELECTOR("addSubview:"), view);
    return nil;
}

id VELT_NSWINDOW_MAKEFIRSTRESPONDER(const id& window, const id& responder) {
    const id converted = VELT_CNSRESPONDER(responder);
    if (window.isNil()) return VELT_ID(BOOL{0});
    return ui::pass(window, VELT_WRAPPER(NSWINDOW_MAKEFIRSTRESPONDER, "makeFirstResponder:"), converted);
}

id VELT_NSWINDOW_DOCUMENTICON(const id& window) {
    return ui::get(window, VELT_WRAPPER(NSWINDOW_DOCUMENTICON, "documentIcon"), ValueKind::Object);
}
id VELT_NSWINDOW_DOCUMENTICON(const id& window, const id& image) {
    return ui::set(window, VELT_WRAPPER(NSWINDOW_DOCUMENTICON, "setDocumentIcon:"), ValueKind::Object,
                   VELT_CNSIMAGE(image));
}

id VELT_FIRSTRESPONDER_SENDACTION(const id& ignored, const id& name) {
    requireMainThread("VELT_FIRSTRESPONDER_SENDACTION");
    return VELT_FIRSTRESPONDER_SENDACTION2(ignored, name, nil);
}
id VELT_FIRSTRESPONDER_SENDACTION2(const id&, const id& name, const id& sender) {
    requireMainThread("VELT_FIRSTRESPONDER_SENDACTION2");
    if (!isString(name)) raiseCast("'String' expected");
    std::string action = utf8(name);
    if (action.find(':') == action.npos) action += ':';
    const bool answered = NSApplication::sharedApplication().sendAction(Selector::named(action), nil, sender);
    return boxResult(answered);
}
