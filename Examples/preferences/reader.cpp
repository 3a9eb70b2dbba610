// reader.bas as the translator writes it.
#include "preferences/reader.h"

namespace reader {

void Reader::describe(velt::ClassBuilder<Reader>& c) {
    c.property("window", &Reader::window)
        .property("header", &Reader::header)
        .property("greeting", &Reader::greeting)
        .property("clock", &Reader::clock)
        .property("text", &Reader::text)
        .property("ticker", &Reader::ticker)
        .owns(&Reader::preferences)
        .method("dress", &Reader::dress)
        .method("tick", &Reader::tick)
        .method("showPreferences:", &Reader::showPreferences)
        .method("biggerText:", &Reader::biggerText)
        .method("smallerText:", &Reader::smallerText)
        .method("closeReader:", &Reader::closeReader)
        .method("quit:", &Reader::quit)
        .method("windowShouldClose:", &Reader::windowShouldClose)
        .method("alertSheetDidEnd:returnCode:contextInfo:", &Reader::alertSheetDidEnd)
        .method("windowWillClose:", &Reader::windowWillClose);
}

void Reader::open(id story) {
    VELTS("reader.bas", "Reader.Open", "13", "");
    VELT_NSUSERDEFAULTS_REGISTERDEFAULTS(nil, preferences->defaults());
    VELTS("reader.bas", "Reader.Open", "14", "");
    preferences->owner = id(this);
    VELTS("reader.bas", "Reader.Open", "15", "");
    VELT_NSOBJECT_PERFORMSELECTOR1(preferences, "initWithWindowNibName:"_v, "Preferences"_v);
    VELTS("reader.bas", "Reader.Open", "16", "");
    build();
    VELTS("reader.bas", "Reader.Open", "17", "");
    VELT_NSTEXTVIEW_VALUE(text, story);
    VELTS("reader.bas", "Reader.Open", "18", "");
    VELT_NSTEXTVIEW_GOTOFIRSTCHARACTER(text);
    VELTS("reader.bas", "Reader.Open", "19", "");
    id frame = VELT__NSARRAY(VELT_NSUSERDEFAULTS_GET(nil, "Frame"_v));
    VELTS("reader.bas", "Reader.Open", "20", "");
    if (VELT_CBOOL(VELT_ORELSE(VELT_EQUAL(frame, nil), VELT_NOT(VELT_NSUSERDEFAULTS_GET(nil, "KeepsFrame"_v))))) {
        VELTS("reader.bas", "Reader.Open", "21", "");
        VELT_NSWINDOW_CENTER(window);
    } else {
        VELTS("reader.bas", "Reader.Open", "23", "");
        VELT_NSWINDOW_FRAME(window,
                            VELT_RECT_INIT(nil, "", VELT_NSARRAY_OBJECT(frame, number(0)),
                                           VELT_NSARRAY_OBJECT(frame, number(1)), VELT_NSARRAY_OBJECT(frame, number(2)),
                                           VELT_NSARRAY_OBJECT(frame, number(3))));
    }
    VELTS("reader.bas", "Reader.Open", "25", "");
    dress();
    VELTS("reader.bas", "Reader.Open", "26", "");
    tick();
    VELTS("reader.bas", "Reader.Open", "27", "");
    VELT_NSWINDOW_SHOW(window);
}

void Reader::build() {
    VELTS("reader.bas", "Reader.Build", "31", "");
    window = VELT_NSWINDOW_INIT(id(this), "");
    VELTS("reader.bas", "Reader.Build", "32", "");
    VELT_NSWINDOW_TITLE(window, "Reader"_v);
    VELTS("reader.bas", "Reader.Build", "33", "");
    VELT_NSWINDOW_CONTENTMINSIZE(window, newSize(320, 200));
    VELTS("reader.bas", "Reader.Build", "34", "");
    VELT_NSWINDOW_CONTENTSIZE(window, newSize(560, 420));
    VELTS("reader.bas", "Reader.Build", "35", "");
    header = velt::make<VLBackgroundView>();
    VELTS("reader.bas", "Reader.Build", "36", "");
    VELT_NSVIEW_AUTORESIZINGMASK(header, number(10));
    VELTS("reader.bas", "Reader.Build", "37", "");
    greeting = VELT_LABEL_INIT(id(this), "");
    VELTS("reader.bas", "Reader.Build", "38", "");
    VELT_NSVIEW_FRAME(greeting, newRect(16, 10, 330, 22));
    VELTS("reader.bas", "Reader.Build", "39", "");
    VELT_NSVIEW_APPEND(header, greeting);
    VELTS("reader.bas", "Reader.Build", "40", "");
    clock = VELT_LABEL_INIT(id(this), "");
    VELTS("reader.bas", "Reader.Build", "41", "");
    VELT_NSCONTROL_ALIGNMENT(clock, number(1));
    VELTS("reader.bas", "Reader.Build", "42", "");
    VELT_NSVIEW_AUTORESIZINGMASK(clock, number(1));
    VELTS("reader.bas", "Reader.Build", "43", "");
    VELT_NSVIEW_APPEND(header, clock);
    VELTS("reader.bas", "Reader.Build", "44", "");
    VELT_NSWINDOW_APPEND(window, header);
    VELTS("reader.bas", "Reader.Build", "45", "");
    text = VELT_NSTEXTVIEW_INIT(id(this), "");
    VELTS("reader.bas", "Reader.Build", "46", "");
    VELT_NSTEXTVIEW_RICHTEXT(text, boolean(false));
    VELTS("reader.bas", "Reader.Build", "47", "");
    VELT_NSTEXT_EDITABLE(text, boolean(false));
    VELTS("reader.bas", "Reader.Build", "48", "");
    VELT_NSVIEW_AUTORESIZINGMASK(text, number(18));
    VELTS("reader.bas", "Reader.Build", "49", "");
    VELT_NSVIEW_TOOLTIP(text, "Text"_v);
    VELTS("reader.bas", "Reader.Build", "50", "");
    VELT_NSWINDOW_APPEND(window, text);
    VELTS("reader.bas", "Reader.Build", "51", "");
    VELT_NSWINDOW_DELEGATE(window, id(this));
    VELTS("reader.bas", "Reader.Build", "52", "");
    VELT_NSWINDOW_INITIALFIRSTRESPONDER(window, text);
}

void Reader::dress() {
    VELTS("reader.bas", "Reader.Dress", "57", "");
    id ink = keptColor(VELT__STRING("TextColor"_v));
    VELTS("reader.bas", "Reader.Dress", "58", "");
    id paper = keptColor(VELT__STRING("PaperColor"_v));
    VELTS("reader.bas", "Reader.Dress", "59", "");
    id size = VELT__DOUBLE(VELT_NSUSERDEFAULTS_GET(nil, "FontSize"_v));
    VELTS("reader.bas", "Reader.Dress", "60", "");
    id width = VELT__DOUBLE(VELT_NSVIEW_WIDTH(VELT_NSWINDOW_CONTENTVIEW(window)));
    VELTS("reader.bas", "Reader.Dress", "61", "");
    id height = VELT__DOUBLE(VELT_NSVIEW_HEIGHT(VELT_NSWINDOW_CONTENTVIEW(window)));
    VELTS("reader.bas", "Reader.Dress", "62", "");
    id room = VELT__INTEGER(number(0));
    VELTS("reader.bas", "Reader.Dress", "63", "");
    if (VELT_CBOOL(VELT_ORELSE(VELT_NSUSERDEFAULTS_GET(nil, "Greets"_v), VELT_NSUSERDEFAULTS_GET(nil, "ShowsClock"_v))))
        room = VELT__INTEGER(number(42));
    VELTS("reader.bas", "Reader.Dress", "64", "");
    VELT_NSVIEW_VISIBLE(header, VELT_GREATER(room, number(0)));
    VELTS("reader.bas", "Reader.Dress", "65", "");
    VELT_NSVIEW_FRAME(header, VELT_RECT_INIT(nil, "", number(0), VELT_SUB(height, room), width, room));
    VELTS("reader.bas", "Reader.Dress", "66", "");
    VELT_VLBACKGROUNDVIEW_SETBACKGROUNDGRADIENT(header, blended(paper, VELT_ID(0.12), ink),
                                                blended(paper, VELT_ID(0.04), ink));
    VELTS("reader.bas", "Reader.Dress", "67", "");
    VELT_NSVIEW_FRAME(clock,
                      VELT_RECT_INIT(nil, "", VELT_SUB(width, number(156)), number(10), number(140), number(22)));
    VELTS("reader.bas", "Reader.Dress", "68", "");
    VELT_NSTEXTFIELD_TEXTCOLOR(greeting, ink);
    VELTS("reader.bas", "Reader.Dress", "69", "");
    VELT_NSTEXTFIELD_TEXTCOLOR(clock, ink);
    VELTS("reader.bas", "Reader.Dress", "70", "");
    VELT_NSVIEW_FRAME(text, VELT_RECT_INIT(nil, "", number(0), number(0), width, VELT_SUB(height, room)));
    VELTS("reader.bas", "Reader.Dress", "71", "");
    VELT_NSTEXTVIEW_FONT(
        text, VELT_NSOBJECT_PERFORMSELECTOR1(
                  ofClass<NSFont>(),
                  VELT_NSARRAY_OBJECT(
                      VELT_SPLIT("systemFontOfSize: boldSystemFontOfSize: userFixedPitchFontOfSize:"_v, " "_v),
                      VELT_NSUSERDEFAULTS_GET(nil, "Typeface"_v)),
                  size));
    VELTS("reader.bas", "Reader.Dress", "72", "");
    VELT_PROPERTY(text, "textColor"_v, ink);
    VELTS("reader.bas", "Reader.Dress", "73", "");
    VELT_PROPERTY(text, "backgroundColor"_v, paper);
    VELTS("reader.bas", "Reader.Dress", "74", "");
    showTime();
}

void Reader::showTime() {
    VELTS("reader.bas", "Reader.ShowTime", "78", "");
    VELT_NSCONTROL_STRINGVALUE(greeting, ""_v);
    VELTS("reader.bas", "Reader.ShowTime", "79", "");
    VELT_NSCONTROL_STRINGVALUE(clock, ""_v);
    VELTS("reader.bas", "Reader.ShowTime", "80", "");
    if (VELT_CBOOL(VELT_NSUSERDEFAULTS_GET(nil, "Greets"_v))) VELT_NSCONTROL_STRINGVALUE(greeting, greetingText());
    VELTS("reader.bas", "Reader.ShowTime", "81", "");
    if (VELT_CBOOL(VELT_NSUSERDEFAULTS_GET(nil, "ShowsClock"_v))) {
        VELTS("reader.bas", "Reader.ShowTime", "82", "");
        id format = VELT__STRING("%H:%M"_v);
        VELTS("reader.bas", "Reader.ShowTime", "83", "");
        if (VELT_CBOOL(VELT_NSUSERDEFAULTS_GET(nil, "ShowsSeconds"_v))) format = VELT__STRING("%H:%M:%S"_v);
        VELTS("reader.bas", "Reader.ShowTime", "84", "");
        VELT_NSCONTROL_STRINGVALUE(clock, timeText(format));
    }
}

id Reader::timeText(id format) {
    VELTS("reader.bas", "Reader.TimeText", "89", "");
    return VELT__STRING(velt::send(VELT_NSOBJECT_PERFORMSELECTOR0(ofClass<NSDate>(), "date"_v),
                                   "descriptionWithCalendarFormat:timeZone:locale:", format, nil, nil));
}

id Reader::greetingText() {
    VELTS("reader.bas", "Reader.GreetingText", "93", "");
    id hour = VELT__INTEGER(VELT_ID(VELT_CINTEGER(timeText(VELT__STRING("%H"_v)))));
    VELTS("reader.bas", "Reader.GreetingText", "94", "");
    id words = VELT__STRING("Good evening"_v);
    VELTS("reader.bas", "Reader.GreetingText", "95", "");
    if (VELT_CBOOL(VELT_SMALLER(hour, number(18)))) words = VELT__STRING("Good afternoon"_v);
    VELTS("reader.bas", "Reader.GreetingText", "96", "");
    if (VELT_CBOOL(VELT_SMALLER(hour, number(12)))) words = VELT__STRING("Good morning"_v);
    VELTS("reader.bas", "Reader.GreetingText", "97", "");
    if (VELT_CBOOL(VELT_EQUAL(VELT_NSUSERDEFAULTS_GET(nil, "Name"_v), ""_v)))
        return VELT__STRING(VELT_CONCAT(words, "."_v));
    VELTS("reader.bas", "Reader.GreetingText", "98", "");
    return VELT__STRING(
        VELT_CONCAT(VELT_CONCAT(VELT_CONCAT(words, ", "_v), VELT_NSUSERDEFAULTS_GET(nil, "Name"_v)), "."_v));
}

void Reader::tick() {
    VELTS("reader.bas", "Reader.Tick", "103", "");
    showTime();
    VELTS("reader.bas", "Reader.Tick", "104", "");
    ticker = VELT_NSTIMER_INIT(id(this), "tick", VELT_ID(1.0));
}

void Reader::showPreferences(id sender) {
    VELTS("reader.bas", "Reader.ShowPreferences", "108", "");
    VELT_NSOBJECT_PERFORMSELECTOR1(preferences, "showWindow:"_v, sender);
}

void Reader::biggerText(id) {
    VELTS("reader.bas", "Reader.BiggerText", "112", "");
    VELT_NSUSERDEFAULTS_SET(nil, "FontSize"_v,
                            VELT_MIN(VELT_ID(32.0), VELT_ADD(VELT_NSUSERDEFAULTS_GET(nil, "FontSize"_v), number(2))));
}

void Reader::smallerText(id) {
    VELTS("reader.bas", "Reader.SmallerText", "116", "");
    VELT_NSUSERDEFAULTS_SET(nil, "FontSize"_v,
                            VELT_MAX(VELT_ID(10.0), VELT_SUB(VELT_NSUSERDEFAULTS_GET(nil, "FontSize"_v), number(2))));
}

void Reader::closeReader(id sender) {
    VELTS("reader.bas", "Reader.CloseReader", "120", "");
    if (VELT_CBOOL(preferences->closeIfKey())) return;
    VELTS("reader.bas", "Reader.CloseReader", "121", "");
    VELT_NSOBJECT_PERFORMSELECTOR1(window, "performClose:"_v, sender);
}

void Reader::quit(id sender) {
    VELTS("reader.bas", "Reader.Quit", "126", "");
    VELT_NSOBJECT_PERFORMSELECTOR1(window, "performClose:"_v, sender);
}

id Reader::windowShouldClose(id) {
    VELTS("reader.bas", "Reader.WindowShouldClose", "130", "");
    if (VELT_CBOOL(VELT_NOT(VELT_NSUSERDEFAULTS_GET(nil, "AsksToClose"_v)))) return VELT__BOOLEAN(boolean(true));
    VELTS("reader.bas", "Reader.WindowShouldClose", "131", "");
    VELT_BEGINALERTSHEET(id(this), "Close the reader?"_v, "The preferences say that you want to be asked."_v, "close"_v,
                         "Close"_v, "Cancel"_v, nil);
    VELTS("reader.bas", "Reader.WindowShouldClose", "132", "");
    return VELT__BOOLEAN(boolean(false));
}

void Reader::alertSheetDidEnd(id, id code, id) {
    VELTS("reader.bas", "Reader.AlertSheetDidEnd", "136", "");
    if (VELT_CBOOL(VELT_EQUAL(code, number(1000)))) VELT_NSWINDOW_CLOSE(window);
}

void Reader::windowWillClose(id) {
    VELTS("reader.bas", "Reader.WindowWillClose", "141", "");
    id frame = VELT__NSMUTABLEARRAY(velt::make<NSMutableArray>());
    VELTS("reader.bas", "Reader.WindowWillClose", "142", "");
    VELT_NSMUTABLEARRAY_APPEND(frame, VELT_NSWINDOW_X(window));
    VELTS("reader.bas", "Reader.WindowWillClose", "143", "");
    VELT_NSMUTABLEARRAY_APPEND(frame, VELT_NSWINDOW_Y(window));
    VELTS("reader.bas", "Reader.WindowWillClose", "144", "");
    VELT_NSMUTABLEARRAY_APPEND(frame, VELT_NSWINDOW_WIDTH(window));
    VELTS("reader.bas", "Reader.WindowWillClose", "145", "");
    VELT_NSMUTABLEARRAY_APPEND(frame, VELT_NSWINDOW_HEIGHT(window));
    VELTS("reader.bas", "Reader.WindowWillClose", "146", "");
    VELT_NSUSERDEFAULTS_SET(nil, "Frame"_v, frame);
    VELTS("reader.bas", "Reader.WindowWillClose", "147", "");
    VELT_NSTIMER_STOP(ticker);
    VELTS("reader.bas", "Reader.WindowWillClose", "148", "");
    VELT_NSOBJECT_PERFORMSELECTOR0(preferences, "close"_v);
}

namespace {

void addItem(id menu, velt::Ref<Reader> owner, id title, id action, id key) {
    VELTS("reader.bas", "AddItem", "153", "");
    id item = VELT_NSMENUITEM_INIT(owner, "", title);
    VELTS("reader.bas", "AddItem", "154", "");
    VELT_NSMENUITEM_ACTIONNAME(item, action);
    VELTS("reader.bas", "AddItem", "155", "");
    VELT_NSMENUITEM_KEYEQUIVALENT(item, key);
    VELTS("reader.bas", "AddItem", "156", "");
    VELT_NSMENU_APPENDMENUITEM(menu, item);
}

}  // namespace

id mainMenu(velt::Ref<Reader> owner) {
    VELTS("reader.bas", "MainMenu", "160", "");
    id main = VELT_NSMENU_INIT(nil, "", "Reader"_v);
    VELTS("reader.bas", "MainMenu", "161", "");
    id menu = VELT_NSMENU_INIT(nil, "", "File"_v);
    VELTS("reader.bas", "MainMenu", "162", "");
    VELT_NSMENU_APPENDMENU(main, menu);
    VELTS("reader.bas", "MainMenu", "163", "");
    addItem(menu, owner, VELT__STRING("Preferences…"_v), VELT__STRING("showPreferences"_v), VELT__STRING(","_v));
    VELTS("reader.bas", "MainMenu", "164", "");
    VELT_NSMENU_APPENDSEPARATOR(menu);
    VELTS("reader.bas", "MainMenu", "165", "");
    addItem(menu, owner, VELT__STRING("Close"_v), VELT__STRING("closeReader"_v), VELT__STRING("w"_v));
    VELTS("reader.bas", "MainMenu", "166", "");
    addItem(menu, owner, VELT__STRING("Quit"_v), VELT__STRING("quit"_v), VELT__STRING("q"_v));
    VELTS("reader.bas", "MainMenu", "167", "");
    menu = VELT__NSMENU(VELT_NSMENU_INIT(nil, "", "View"_v));
    VELTS("reader.bas", "MainMenu", "168", "");
    VELT_NSMENU_APPENDMENU(main, menu);
    VELTS("reader.bas", "MainMenu", "169", "");
    addItem(menu, owner, VELT__STRING("Bigger Text"_v), VELT__STRING("biggerText"_v), VELT__STRING("+"_v));
    VELTS("reader.bas", "MainMenu", "170", "");
    addItem(menu, owner, VELT__STRING("Smaller Text"_v), VELT__STRING("smallerText"_v), VELT__STRING("-"_v));
    VELTS("reader.bas", "MainMenu", "171", "");
    return VELT__NSMENU(main);
}

}  // namespace reader
