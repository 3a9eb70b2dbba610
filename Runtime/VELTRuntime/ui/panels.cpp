#include "VELTRuntime/ui/panels.h"

#include "VELTRuntime/platform/appkit/application.h"
#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/platform/appkit/controls/text_field.h"
#include "VELTRuntime/platform/appkit/panels/alert.h"
#include "VELTRuntime/platform/appkit/panels/drawer.h"
#include "VELTRuntime/platform/appkit/panels/save_panel.h"
#include "VELTRuntime/platform/appkit/panels/sheets.h"
#include "VELTRuntime/platform/appkit/screen.h"
#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/run_loop.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/values/boxing.h"
#include "VELTRuntime/values/load_state.h"
#include "VELTRuntime/values/string.h"

#define VELT_WRAPPER_TABLE "VELTRuntime/ui/panels.def"
#include "VELTRuntime/ui/accessor_definitions.h"

using namespace velt;

namespace {

id textOrNil(const id& value) { return value.isNil() ? id() : VELT_CSTRING(value); }
id textOrWord(const id& value) { return value.isNil() ? string(u"Nil") : VELT_CSTRING(value); }

/// A format without arguments: two percent signs stand for one.
id formatted(const id& format) {
    if (!isString(format)) return format;
    std::u16string text;
    const std::u16string_view given = textOf(format);
    for (std::size_t i = 0; i < given.size(); ++i) {
        text += given[i];
        if (given[i] == u'%' && i + 1 < given.size() && given[i + 1] == u'%') ++i;
    }
    return string(std::u16string_view(text));
}

NSApplication& application() { return NSApplication::sharedApplication(); }

/// The key window. While the desktop is passing the keyboard on nobody has it: then the window in front. A sheet whose
/// end is being told is about to go; what its delegate begins lies where it lay.
id windowForSheet() {
    const id key = application().keyWindow();
    if (key.isNil()) return application().mainWindow();
    return boxResult(&windowBehindEnded(*as<NSWindow>(key)));
}

NSRect frameOf(const id& object) { return object.isNil() ? NSRect{} : VELT_CNSRECT(send(object, "frame")); }

void setFrameAnimated(const id& window, const NSRect& frame) {
    send(window, VELT_SELECTOR("setFrame:display:animate:"), VELT_ID(frame), VELT_ID(BOOL{1}), VELT_ID(BOOL{1}));
}

}  // namespace

// Message and alert panels.

id VELT_MSGBOX(const id& title, const id& message) {
    requireMainThread("VELT_MSGBOX");
    const id first = textOrWord(title);
    if (message.isNil()) return VELT_ID(NSRunAlertPanel(nil, first, nil, nil, nil));
    return VELT_ID(NSRunAlertPanel(first, VELT_CSTRING(message), nil, nil, nil));
}

id VELT__MSGBOX(const id& message) {
    requireMainThread("VELT__MSGBOX");
    return VELT_ID(NSRunAlertPanel(nil, textOrWord(message), nil, nil, nil));
}

id VELT_ALERTPANEL(const id& title, const id& message, const id& defaultButton, const id& alternateButton,
                   const id& otherButton) {
    requireMainThread("VELT_ALERTPANEL");
    const id shownTitle = textOrWord(title), shownMessage = textOrWord(message);
    const id first = textOrNil(defaultButton), second = textOrNil(alternateButton), third = textOrNil(otherButton);
    return VELT_ID(NSRunAlertPanel(shownTitle, shownMessage, first, second, third));
}

id VELT_INFORMATIONALALERTPANEL(const id& title, const id& message, const id& defaultButton, const id& alternateButton,
                                const id& otherButton) {
    requireMainThread("VELT_INFORMATIONALALERTPANEL");
    const id shownTitle = textOrWord(title), shownMessage = textOrWord(message);
    const id first = textOrNil(defaultButton), second = textOrNil(alternateButton), third = textOrNil(otherButton);
    return VELT_ID(NSRunInformationalAlertPanel(shownTitle, shownMessage, first, second, third));
}

id VELT_CRITICALALERTPANEL(const id& title, const id& message, const id& defaultButton, const id& alternateButton,
                           const id& otherButton) {
    requireMainThread("VELT_CRITICALALERTPANEL");
    const id shownTitle = VELT_CSTRING(title), shownMessage = VELT_CSTRING(message);  // programs rely on it
    const id first = textOrNil(defaultButton), second = textOrNil(alternateButton), third = textOrNil(otherButton);
    return VELT_ID(NSRunCriticalAlertPanel(shownTitle, shownMessage, first, second, third));
}

id VELT_INPUTPANEL(const id& message, const id& informative, const id& initial) {
    requireMainThread("VELT_INPUTPANEL");
    const Ref<NSAlert> alert = NSAlert::withTexts(message, "OK"_v, "Cancel"_v, nil, formatted(informative));
    const Ref<NSTextField> field = make<NSTextField>();
    field->setFrame({{0, 0}, {200, 24}});
    field->setStringValue(initial);
    alert->setAccessoryView(field.get());
    if (alert->runModal() != kAlertDefault) return nil;
    return VELT_CSTRING(field->stringValue());
}

// Sheets.

id VELT_BEGINALERTSHEET(const id& delegate, const id& message, const id& informative, const id& context,
                        const id& button1, const id& button2, const id& button3) {
    requireMainThread("VELT_BEGINALERTSHEET");
    static id p;
    p = VELT_CSTRING(context);
    const Ref<NSAlert> alert = make<NSAlert>();
    for (const id& button : {button1, button2, button3}) {
        if (!button.isNil()) alert->addButtonWithTitle(VELT_CSTRING(button));
    }
    alert->setMessageText(VELT_CSTRING(message));
    alert->setInformativeText(VELT_CSTRING(informative));
    alert->setAlertStyle(NSAlert::Warning);
    const id key = windowForSheet();
    alert->beginSheet(to<NSWindow>(key), delegate, "alertSheetDidEnd:returnCode:contextInfo:"_v, p);
    return nil;
}

id VELT_BEGINSHEET(const id& delegate, const id& sheet, const id& context) {
    requireMainThread("VELT_BEGINSHEET");
    static id p;
    p = VELT_CSTRING(context);
    const id toolbar = send(sheet, VELT_SELECTOR("toolbar"));
    if (!toolbar.isNil()) {
        constexpr double kUntilItIsSeen = 0.05;  // seconds
        RunLoop::main().after(kUntilItIsSeen, [toolbar] {
            if (respondsTo(toolbar, VELT_SELECTOR("Show"))) send(toolbar, VELT_SELECTOR("Show"));
        });
    }
    const id key = windowForSheet();
    send(id(&application()), "beginSheet:modalForWindow:modalDelegate:didEndSelector:contextInfo:", sheet, key,
         delegate, "sheetDidEnd:returnCode:contextInfo:"_v, p);
    return nil;
}

id VELT_ENDSHEET(const id& sheet, const id& code) {
    requireMainThread("VELT_ENDSHEET");
    if (code.isNil()) {
        send(id(&application()), VELT_SELECTOR("endSheet:"), sheet);
    } else {
        send(id(&application()), VELT_SELECTOR("endSheet:returnCode:"), sheet,
             VELT_ID(static_cast<long>(VELT_CBYTE(code))));
    }
    return nil;
}

// Modal sessions.

id VELT_BEGINMODAL(const id& window) {
    requireMainThread("VELT_BEGINMODAL");
    return VELT_ID(application().runModalForWindow(to<NSWindow>(VELT_CNSWINDOW(window))));
}

id VELT_ENDMODAL(const id& code) {
    requireMainThread("VELT_ENDMODAL");
    if (code.isNil()) {
        application().stopModal();
    } else {
        application().stopModalWithCode(VELT_CBYTE(code));
    }
    return nil;
}

// Drawers.

id VELT_BEGINDRAWER(const id& drawer) {
    requireMainThread("VELT_BEGINDRAWER");
    if (!is<NSDrawer>(drawer)) raiseCast("'NSDrawer' expected");
    as<NSDrawer>(drawer)->open();
    return nil;
}

id VELT_ENDDRAWER(const id& drawer) {
    requireMainThread("VELT_ENDDRAWER");
    if (!is<NSDrawer>(drawer)) raiseCast("'NSDrawer' expected");
    as<NSDrawer>(drawer)->close();
    return nil;
}

id VELT_NSDRAWER_INIT(const id&, const char*) {
    requireMainThread("VELT_NSDRAWER_INIT");
    return make<NSDrawer>();
}

id VELT_NSDRAWER_TOGGLERIGHTRESIZINGWINDOW(const id& drawer) {
    requireMainThread("VELT_NSDRAWER_TOGGLERIGHTRESIZINGWINDOW");
    const NSRect screen = visibleScreenFrame();
    const id window = send(drawer, VELT_SELECTOR("parentWindow"));
    const NSRect frame = frameOf(window);
    const NSRect drawerFrame = frameOf(send(send(drawer, VELT_SELECTOR("contentView")), VELT_SELECTOR("window")));
    if (drawer.isNil()) return nil;
    if (VELT_CINTEGER(send(drawer, VELT_SELECTOR("state"))) == NSDrawer::Open) {
        send(drawer, VELT_SELECTOR("close"));
        return nil;
    }
    const double rightEnd = frame.origin.x + frame.size.width + drawerFrame.size.width;
    // The width, not the right edge; programs rely on it.
    if (rightEnd > screen.size.width) {
        setFrameAnimated(window,
                         {frame.origin, {frame.size.width - (rightEnd - screen.size.width), frame.size.height}});
    }
    send(drawer, VELT_SELECTOR("openOnEdge:"), VELT_ID(static_cast<long>(Edge::Right)));
    return nil;
}

// Windows that expand by a view.

namespace {

double windowHeightOf(const id& view) {
    if (view.isNil()) return 0;
    const NSSize size =
        VELT_CNSSIZE(send(view, VELT_SELECTOR("convertSize:toView:"), VELT_ID(frameOf(view).size), nil));
    return size.height;
}

}  // namespace

id VELT_BEGINEXPANDING(const id& view, const id& window) {
    requireMainThread("VELT_BEGINEXPANDING");
    const double height = windowHeightOf(view);
    NSRect frame = frameOf(window);
    frame.size.height += height;
    frame.origin.y -= height;
    if (height > 0) setFrameAnimated(window, frame);
    send(view, VELT_SELECTOR("setHidden:"), VELT_ID(BOOL{1}));
    send(send(window, VELT_SELECTOR("contentView")), VELT_SELECTOR("addSubview:"), view);
    send(view, VELT_SELECTOR("setFrameOrigin:"), VELT_ID(NSPoint{0, 0}));
    send(view, VELT_SELECTOR("setHidden:"), VELT_ID(BOOL{0}));
    return nil;
}

id VELT_ENDEXPANDING(const id& view, const id& window) {
    requireMainThread("VELT_ENDEXPANDING");
    const double height = windowHeightOf(view);
    NSRect frame = frameOf(window);
    frame.size.height -= height;
    frame.origin.y += height;
    setFrameAnimated(window, frame);
    send(view, VELT_SELECTOR("removeFromSuperview"));
    return nil;
}

// The open panel.

namespace {

/// A new array that may be changed of what another holds; an empty one for what is no array.
id arrayCopy(const id& list) {
    const Ref<NSMutableArray> copied = make<NSMutableArray>();
    if (const NSArray* given = arrayOf(list)) copied->appendAll(*given);
    return copied;
}

id firstOf(const id& list) {
    const NSArray* given = arrayOf(list);
    return given && given->count() > 0 ? given->at(0) : id();
}

}  // namespace

void VELT_OPENPANEL_Init() {
    VELT_idOPENPANEL_CANCHOOSEFILES = boxResult(true);
    VELT_idOPENPANEL_CANCHOOSEDIRECTORIES = boxResult(false);
    VELT_idOPENPANEL_RESOLVESALIASES = boxResult(false);
    VELT_idOPENPANEL_ALLOWSMULTIPLESELECTION = boxResult(false);
}

#define VELT_OPENPANEL_OPTION(name, convert)                                                                           \
    id VELT_NSOPENPANEL_##name(const id&) { return VELT_idOPENPANEL_##name; }                                          \
    id VELT_NSOPENPANEL_##name(const id&, const id& value) {                                                           \
        VELT_idOPENPANEL_##name = convert(value);                                                                      \
        return nil;                                                                                                    \
    }
#define VELT_OPENPANEL_FLAG(value) boxResult(VELT_CBOOL(value) != 0)
VELT_OPENPANEL_OPTION(CANCHOOSEFILES, VELT_OPENPANEL_FLAG)
VELT_OPENPANEL_OPTION(CANCHOOSEDIRECTORIES, VELT_OPENPANEL_FLAG)
VELT_OPENPANEL_OPTION(RESOLVESALIASES, VELT_OPENPANEL_FLAG)
VELT_OPENPANEL_OPTION(ALLOWSMULTIPLESELECTION, VELT_OPENPANEL_FLAG)
VELT_OPENPANEL_OPTION(DIRECTORY, VELT_CSTRING)
VELT_OPENPANEL_OPTION(FILE, VELT_CSTRING)
VELT_OPENPANEL_OPTION(TYPES, VELT_CARRAY)
#undef VELT_OPENPANEL_OPTION
#undef VELT_OPENPANEL_FLAG

id VELT_NSOPENPANEL_RUN(const id&) {
    requireMainThread("VELT_NSOPENPANEL_RUN");
    NSOpenPanel& panel = NSOpenPanel::openPanel();
    panel.setCanChooseFiles(VELT_CBOOL(VELT_idOPENPANEL_CANCHOOSEFILES));
    panel.setCanChooseDirectories(VELT_CBOOL(VELT_idOPENPANEL_CANCHOOSEDIRECTORIES));
    panel.setResolvesAliases(VELT_CBOOL(VELT_idOPENPANEL_RESOLVESALIASES));
    panel.setAllowsMultipleSelection(VELT_CBOOL(VELT_idOPENPANEL_ALLOWSMULTIPLESELECTION));
    const id directory = VELT_idOPENPANEL_DIRECTORY, file = VELT_idOPENPANEL_FILE, types = VELT_idOPENPANEL_TYPES;
    const bool confirmed = panel.runModalForDirectory(directory, file, types) == kPanelConfirmed;
    VELT_idOPENPANEL_FILENAMES = arrayCopy(confirmed ? panel.filenames() : id());
    VELT_idOPENPANEL_URLS = arrayCopy(confirmed ? panel.urls() : id());
    VELT_OPENPANEL_Init();
    return boxResult(confirmed);
}

id VELT_NSOPENPANEL_FILENAMES(const id&) { return arrayCopy(VELT_idOPENPANEL_FILENAMES); }
id VELT_NSOPENPANEL_URLS(const id&) { return arrayCopy(VELT_idOPENPANEL_URLS); }
id VELT_NSOPENPANEL_FILENAME(const id&) {
    const id first = firstOf(VELT_idOPENPANEL_FILENAMES);
    return first.isNil() ? string(std::u16string_view()) : first;
}
id VELT_NSOPENPANEL_URL(const id&) {
    const id first = firstOf(VELT_idOPENPANEL_URLS);
    return first.isNil() ? string(std::u16string_view()) : VELT_CSTRING(first);
}
