// What holds for every wrapper holds for those too that no table has: they belong to the main thread, and stay safe
// after their window has gone.
#include "support/values.h"

#include "VELTRuntime/platform/foundation/run_loop.h"

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <thread>

using namespace velt::test;

namespace {

/// A call of one wrapper with all arguments but its receiver.
struct Call {
    const char* name;
    id (*make)();  // the receiver; null when there is none
    std::function<id(const id&)> call;
};

id view() { return VELT_NSVIEW_INIT(nil, ""); }
id window() { return VELT_NSWINDOW_INIT(nil, ""); }
id button() { return VELT_PUSHBUTTON_INIT(nil, ""); }
id page() { return VELT_NSTEXTVIEW_INIT(nil, ""); }
id editor() { return VELT_VLTEXTVIEW_INIT(nil, ""); }
id cell() { return VELT_NSCELL_INIT(nil, ""); }
id search() { return VELT_NSSEARCHFIELD_INIT(nil, ""); }
id table() { return VELT_NSTABLEVIEW_INIT(nil, ""); }
id column() { return VELT_NSTABLECOLUMN_INIT(nil, "column"); }
id combo() { return VELT_NSCOMBOBOX_INIT(nil, ""); }
id item() { return VELT_NSMENUITEM_INIT(nil, ""); }
id menu() { return VELT_NSMENU_INIT(nil, "menu"); }
id event() { return VELT_NSEVENT_INIT(nil, ""); }
id application() { return id(static_cast<NSObject*>(&NSApplication::sharedApplication())); }
id matrix() { return VELT_NSMATRIX_INIT(nil, ""); }
id toolbar() { return VELT_NSTOOLBAR_INIT(nil, "bar"); }
id background() { return velt::make<VLBackgroundView>(); }
id drawer() { return VELT_NSDRAWER_INIT(nil, ""); }
id popUp() {
    const id made = VELT_NSPOPUPBUTTON_INIT(nil, "");
    VELT_NSPOPUPBUTTON_APPEND(made, str("One"));
    return made;
}

#define CONSTRUCTOR(function, ...)                                                                                     \
    {                                                                                                                  \
        "VELT_" #function, nullptr, [](const id&) { return VELT_##function(nil, "" __VA_OPT__(, ) __VA_ARGS__); }      \
    }
#define CALL(function, make, ...)                                                                                      \
    {                                                                                                                  \
        "VELT_" #function, make,                                                                                       \
            [](const id& receiver) { return VELT_##function(receiver __VA_OPT__(, ) __VA_ARGS__); }                    \
    }

/// A call of a function that waits for a person, or that has no receiver.
#define FUNCTION(function, ...)                                                                                        \
    {                                                                                                                  \
        "VELT_" #function, nullptr, [](const id&) { return VELT_##function(__VA_ARGS__); }                             \
    }

// Objects that arguments name are made on the main thread, before any of the calls.
const id& someView() {
    static const id made = view();
    return made;
}
const id& someMenu() {
    static const id made = menu();
    return made;
}
const id& someItem() {
    static const id made = item();
    return made;
}
const id& someWindow() {
    static const id made = window();
    return made;
}
const id& someImage() {
    static const id made = VELT_NSIMAGE_INIT(nil, "");
    return made;
}

const std::vector<Call>& calls() {
    static const std::vector<Call> all{
#define VELT_BUTTON(kind, type, bezel) CONSTRUCTOR(kind##_INIT),
#define VELT_INDICATOR_BUTTON(kind, type) CONSTRUCTOR(kind##_INIT),
#include "VELTRuntime/ui/button_kinds.def"
        CONSTRUCTOR(NSBUTTON_INIT),
        CONSTRUCTOR(NSBUTTONCELL_INIT),
        CONSTRUCTOR(NSIMAGEVIEW_INIT),
        CONSTRUCTOR(NSIMAGEVIEW_INIT, someImage()),
        CONSTRUCTOR(NSIMAGECELL_INIT),
        CONSTRUCTOR(NSIMAGECELL_INIT, someImage()),
        CONSTRUCTOR(NSSEGMENTEDCONTROL_INIT),
        CONSTRUCTOR(NSBOX_INIT),
        CONSTRUCTOR(VERTICALLINE_INIT),
        CONSTRUCTOR(HORIZONTALLINE_INIT),
        CONSTRUCTOR(NSTABVIEW_INIT),
        CONSTRUCTOR(NSSCROLLVIEW_INIT),
        CONSTRUCTOR(NSSPLITVIEW_INIT),
        CONSTRUCTOR(VERTICALSPLITVIEW_INIT),
        CONSTRUCTOR(HORIZONTALSPLITVIEW_INIT),
        CONSTRUCTOR(NSPROGRESSINDICATOR_INIT),
        CONSTRUCTOR(INDETERMINATEPROGRESSINDICATOR_INIT),
        CONSTRUCTOR(CIRCULARPROGRESSINDICATOR_INIT),
        CONSTRUCTOR(NSCELL_INIT),
        CONSTRUCTOR(NSCELL_INIT, str("text")),
        CONSTRUCTOR(NSMENU_INIT),
        CONSTRUCTOR(NSMENU_INIT, str("title")),
        CONSTRUCTOR(NSMENUITEM_INIT),
        CONSTRUCTOR(NSMENUITEM_INIT, str("title")),
        CONSTRUCTOR(NSPOPUPBUTTON_INIT),
        CONSTRUCTOR(NSPOPUPBUTTONCELL_INIT),
        CONSTRUCTOR(LABEL_INIT),
        CONSTRUCTOR(NSTEXTFIELD_INIT),
        CONSTRUCTOR(NSSECURETEXTFIELD_INIT),
        CONSTRUCTOR(NSSEARCHFIELD_INIT),
        CONSTRUCTOR(NSTOKENFIELD_INIT),
        CONSTRUCTOR(NSCOMBOBOX_INIT),
        CONSTRUCTOR(NSTEXTVIEW_INIT),
        CONSTRUCTOR(NSSLIDER_INIT),
        CONSTRUCTOR(CIRCULARSLIDER_INIT),
        CONSTRUCTOR(NSLEVELINDICATOR_INIT),
        CONSTRUCTOR(NSSTEPPER_INIT),
        CONSTRUCTOR(NSDATEPICKER_INIT),
        CONSTRUCTOR(NSCOLORWELL_INIT),
        CONSTRUCTOR(NSPATHCONTROL_INIT),
        CONSTRUCTOR(NSBROWSER_INIT),
        CONSTRUCTOR(NSOUTLINEVIEW_INIT),
        CONSTRUCTOR(NSTABLEVIEW_INIT),
        CONSTRUCTOR(NSTABLECOLUMN_INIT),
        CONSTRUCTOR(NSTABLECOLUMN_INIT, str("name"), str("title")),
        CONSTRUCTOR(NSVIEW_INIT),
        CONSTRUCTOR(CUSTOMVIEW_INIT),
        CONSTRUCTOR(NSWINDOW_INIT),
        CONSTRUCTOR(NSPANEL_INIT),
        CONSTRUCTOR(NSEVENT_INIT),
        CONSTRUCTOR(NSFONT_INIT, str("Sans"), integer(12)),
        CALL(NSAPPLICATION_HIDESPOTLIGHTFORHELP, application),
        CALL(NSAPPLICATION_SHOWOTHERAPPLICATION, application, integer(-1)),
        CALL(NSEVENT_KEY, event),
        CALL(NSFONT_FONT, button),
        CALL(NSCONTROL_FONT, button),
        CALL(NSCELL_FONT, cell),
        CALL(NSCONTROL_ACTIONNAME, button, str("nothing")),
        CALL(NSMENU_APPEND, menu, str("item")),
        CALL(NSMENU_APPENDMENU, menu, someMenu()),
        CALL(NSMENU_PREPENDMENU, menu, someMenu()),
        CALL(NSMENU_INSERTMENU, menu, someMenu(), integer(0)),
        CALL(NSMENU_PREPENDMENUITEM, menu, str("item")),
        CALL(NSMENU_INSERTMENUITEM, menu, str("item"), integer(0)),
        CALL(NSMENU_APPENDSEPARATOR, menu),
        CALL(NSMENU_PREPENDSEPARATOR, menu),
        CALL(NSMENU_INSERTSEPARATOR, menu, integer(0)),
        CALL(NSMENU_REMOVEALL, menu),
        CALL(NSMENUITEM_ACTIONNAME, item, str("nothing")),
        CALL(NSPOPUPBUTTON_APPENDWITHIMAGE, popUp, someImage(), str("two")),
        CALL(NSPOPUPBUTTON_INSERT, popUp, integer(0), str("zero")),
        CALL(NSPOPUPBUTTON_INSERTWITHIMAGE, popUp, integer(0), someImage(), str("zero")),
        CALL(NSPOPUPBUTTON_INDEX, popUp, someItem()),
        CALL(NSPOPUPBUTTON_UNSELECTALL, popUp),
        CALL(NSSEARCHFIELD_SENDSWHOLESEARCHSTRING, search),
        CALL(NSSEARCHFIELD_SENDSWHOLESEARCHSTRING, search, boolean(true)),
        CALL(NSTABLEVIEW_DOUBLEACTIONNAME, table, str("nothing")),
        CALL(NSTABLEVIEW_SELECTROW, table, integer(0)),
        CALL(NSTABLECOLUMN_VISIBLE, column),
        CALL(NSTABLECOLUMN_VISIBLE, column, boolean(false)),
        CALL(NSCOMBOBOX_INSERT, combo, integer(0), str("item")),
        CALL(NSCOMBOBOX_APPENDSEPARATOR, combo),
        CALL(NSCOMBOBOX_INDEX, combo, str("item")),
        CALL(NSCOMBOBOX_CONTAINS, combo, str("item")),
        CALL(NSTEXTVIEW_VALUE, page),
        CALL(NSTEXTVIEW_VALUE, page, str("text")),
        CALL(NSTEXTVIEW_APPEND, page, str("text")),
        CALL(NSTEXTVIEW_HASSELECTION, page),
        CALL(NSTEXTVIEW_GOTOFIRSTCHARACTER, page),
        CALL(NSTEXTVIEW_UNDO, page),
        CALL(NSTEXTVIEW_REDO, page),
        CALL(NSTEXTVIEW_CANUNDO, page),
        CALL(NSTEXTVIEW_CANREDO, page),
        CONSTRUCTOR(VLTEXTVIEW_INIT),
        CALL(VLTEXTVIEW_LOAD, editor, str("/dev/null")),
        CALL(VLTEXTVIEW_SAVE, editor, str("/nowhere/source")),
        CALL(VLTEXTVIEW_PERFORMSYNTAXHIGHLIGHTING, editor),
        CALL(VLTEXTVIEW_FINDNEXT, editor, str("text")),
        CALL(VLTEXTVIEW_FINDPREVIOUS, editor, str("text")),
        CALL(VLTEXTVIEW_FINDREPLACE, editor, str("text")),
        CALL(VLTEXTVIEW_FINDREPLACEFIND, editor, str("text"), str("other")),
        CALL(VLTEXTVIEW_FINDREPLACEALL, editor, str("text"), str("other")),
        CALL(VLBACKGROUNDVIEW_SETBACKGROUNDGRADIENT, background, nil, nil),
        CALL(VLBACKGROUNDVIEW_SETBACKGROUNDIMAGE, background, someImage(), real(0.5)),
        CALL(NSVIEW_REMOVE, view, someView()),
        CALL(NSVIEW_REPLACE, view, someView(), someView()),
        CALL(NSVIEW_REDRAW, view),
        CALL(NSVIEW_SHOW, view),
        CALL(NSVIEW_HIDE, view),
        CALL(NSVIEW_VISIBLE, view),
        CALL(NSVIEW_VISIBLE, view, boolean(true)),
        CALL(NSVIEW_X, view),
        CALL(NSVIEW_X, view, integer(4)),
        CALL(NSVIEW_Y, view),
        CALL(NSVIEW_Y, view, integer(4)),
        CALL(NSVIEW_WIDTH, view),
        CALL(NSVIEW_WIDTH, view, integer(4)),
        CALL(NSVIEW_HEIGHT, view),
        CALL(NSVIEW_HEIGHT, view, integer(4)),
        CALL(NSWINDOW_FRAME, window),
        CALL(NSWINDOW_FRAME, window, rect(10, 10, 200, 100)),
        CALL(NSWINDOW_X, window),
        CALL(NSWINDOW_X, window, integer(4)),
        CALL(NSWINDOW_Y, window),
        CALL(NSWINDOW_Y, window, integer(4)),
        CALL(NSWINDOW_WIDTH, window),
        CALL(NSWINDOW_WIDTH, window, integer(40)),
        CALL(NSWINDOW_HEIGHT, window),
        CALL(NSWINDOW_HEIGHT, window, integer(40)),
        CALL(NSWINDOW_CONTENTRECTFORFRAMERECT, window, rect(0, 0, 9, 9)),
        CALL(NSWINDOW_FRAMERECTFORCONTENTRECT, window, rect(0, 0, 9, 9)),
        CALL(NSWINDOW_MINFRAMEWIDTHWITHTITLE, window, str("title")),
        CALL(NSWINDOW_CENTERANDSHOW, window),
        CALL(NSWINDOW_VISIBLE, window),
        CALL(NSWINDOW_VISIBLE, window, boolean(true)),
        CALL(NSWINDOW_VISIBLE, window, boolean(false)),
        CALL(NSWINDOW_APPEND, window, someView()),
        CALL(NSWINDOW_MAKEFIRSTRESPONDER, window, someView()),
        CALL(NSWINDOW_DOCUMENTICON, window),
        CALL(NSWINDOW_DOCUMENTICON, window, someImage()),
        CONSTRUCTOR(NSMATRIX_INIT),
        CALL(NSMATRIX_ADDROW, matrix, array()),
        CONSTRUCTOR(NSTOOLBAR_INIT),
        CONSTRUCTOR(NSTOOLBARITEM_INIT),
        CALL(NSTOOLBAR_SHOW, toolbar),
        CALL(NSTOOLBAR_HIDE, toolbar),
        FUNCTION(MSGBOX, str("title"), str("message")),
        FUNCTION(_MSGBOX, str("message")),
        FUNCTION(ALERTPANEL, nil, nil, nil, nil, nil),
        FUNCTION(INFORMATIONALALERTPANEL, nil, nil, nil, nil, nil),
        FUNCTION(CRITICALALERTPANEL, str("title"), str("message"), nil, nil, nil),
        FUNCTION(INPUTPANEL, str("message"), str("more"), str("text")),
        FUNCTION(BEGINALERTSHEET, nil, str("message"), str("more"), nil, nil, nil, nil),
        FUNCTION(BEGINSHEET, nil, someWindow(), nil),
        FUNCTION(ENDSHEET, someWindow(), nil),
        FUNCTION(BEGINMODAL, someWindow()),
        FUNCTION(ENDMODAL, nil),
        CONSTRUCTOR(NSDRAWER_INIT),
        CALL(BEGINDRAWER, drawer),
        CALL(ENDDRAWER, drawer),
        CALL(NSDRAWER_TOGGLERIGHTRESIZINGWINDOW, drawer),
        CALL(BEGINEXPANDING, view, someWindow()),
        CALL(ENDEXPANDING, view, someWindow()),
        FUNCTION(VLTEXTVIEW_PRINTSHOWINGPRINTPANEL, nil, str("project"), str("file"), boolean(true)),
        FUNCTION(NSOPENPANEL_RUN, nil),
        CALL(FIRSTRESPONDER_SENDACTION, nullptr, str("nobodyAnswersThis:")),
        CALL(FIRSTRESPONDER_SENDACTION2, nullptr, str("nobodyAnswersThis:"), nil),
    };
    return all;
}

/// Wrappers that no thread disturbs, and why.
const std::map<std::string, const char*> kOfEveryThread{
    {"VELT_NSCOLOR_INIT", "a colour is a value"},
    {"VELT_NSIMAGE_INIT", "an image is a value"},
    {"VELT_NSBUTTON_BUTTONTYPE", "always the same number, whatever the button"},
    {"VELT_NSVIEW_TAG", "the setter refuses everything"},
    {"VELT_NSVIEW_WINDOW", "the setter refuses everything"},
    {"VELT_NSWINDOW_CONTENTSIZE", "the getter always gives 0"},
    {"VELT_NSTOOLBARITEM_ITEMIDENTIFIER", "the setter does nothing"},
    {"VELT_NSOPENPANEL_CANCHOOSEFILES", "a value of the program's"},
    {"VELT_NSOPENPANEL_CANCHOOSEDIRECTORIES", "a value of the program's"},
    {"VELT_NSOPENPANEL_RESOLVESALIASES", "a value of the program's"},
    {"VELT_NSOPENPANEL_ALLOWSMULTIPLESELECTION", "a value of the program's"},
    {"VELT_NSOPENPANEL_DIRECTORY", "a value of the program's"},
    {"VELT_NSOPENPANEL_FILE", "a value of the program's"},
    {"VELT_NSOPENPANEL_TYPES", "a value of the program's"},
    {"VELT_NSOPENPANEL_FILENAMES", "a value of the program's"},
    {"VELT_NSOPENPANEL_FILENAME", "a value of the program's"},
    {"VELT_NSOPENPANEL_URLS", "a value of the program's"},
    {"VELT_NSOPENPANEL_URL", "a value of the program's"},
};

}  // namespace

TEST(HandWrittenWrappers, BelongToTheMainThread) {
    for (const id& made : {someView(), someMenu(), someItem(), someImage(), someWindow()}) EXPECT_FALSE(made.isNil());
    for (const Call& one : calls()) {
        SCOPED_TRACE(one.name);
        const id receiver = one.make ? one.make() : nil;
        std::thread([&] {
            const velt::ThreadScope scope;
            EXPECT_RAISES(std::string("NSInternalInconsistencyException: ") + one.name +
                              " was called on another thread than the main one, to which windows and views belong",
                          one.call(receiver));
        }).join();
    }
}

TEST(HandWrittenWrappers, StaySafeAfterTheWindowWasClosed) {
    for (const Call& one : calls()) {
        if (!one.make) continue;
        SCOPED_TRACE(one.name);
        const id receiver = one.make();
        const id shown = velt::is<NSWindow>(receiver) ? receiver : window();
        VELT_NSWINDOW_FRAME(shown, rect(20, 20, 200, 100));
        if (velt::is<NSView>(receiver)) VELT_NSWINDOW_APPEND(shown, receiver);
        VELT_NSWINDOW_SHOW(shown);
        velt::RunLoop::current().runOnce(0);
        if (velt::is<NSView>(receiver)) VELT_NSVIEW_REMOVE(nil, receiver);
        VELT_NSWINDOW_CLOSE(shown);
        velt::RunLoop::current().runOnce(0);
        EXPECT_EQ("nothing", raised([&] { one.call(receiver); }));
        VELT_NSWINDOW_CLOSE(shown);
        velt::RunLoop::current().runOnce(0);
    }
}

TEST(HandWrittenWrappers, AreAllHere) {
    std::set<std::string> named;
    for (const Call& one : calls()) named.insert(one.name);
    std::size_t found = 0;
    for (const auto& file : std::filesystem::directory_iterator(VELT_SOURCE_FOLDER "/Runtime/VELTRuntime/ui")) {
        std::ifstream in(file.path());
        const std::string text{std::istreambuf_iterator<char>(in), {}};
        if (file.path().extension() == ".def") {
            // Every table is among the rows that the tests of the convention walk over.
            std::ifstream rows(VELT_SOURCE_FOLDER "/Tests/windows/wrapper_rows.h");
            const std::string walked{std::istreambuf_iterator<char>(rows), {}};
            const std::string name = file.path().filename();
            EXPECT_TRUE(name == "button_kinds.def" || walked.find("ui/" + name) != std::string::npos) << name;
        }
        if (file.path().extension() != ".h") continue;
        const std::regex declaration("VELT_EXPORT id (VELT_[A-Z0-9_]+)\\(");
        for (std::sregex_iterator at(text.begin(), text.end(), declaration), end; at != end; ++at) {
            ++found;
            const std::string name = (*at)[1];
            EXPECT_TRUE(named.contains(name) || kOfEveryThread.contains(name)) << name;
        }
    }
    EXPECT_LT(80U, found);
}
