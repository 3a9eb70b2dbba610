// dialogs.bas as the translator writes it: every dialog by a button.
#include "support/screenshot.h"

namespace {

class Dialogs : public NSObject {
    VELT_OBJECT(Dialogs, NSObject)

public:
    id window, dialog, drawer, extra, log, row = VELT_ID(0L);

    static void describe(velt::ClassBuilder<Dialogs>& c) {
        c.property("window", &Dialogs::window)
            .property("dialog", &Dialogs::dialog)
            .property("drawer", &Dialogs::drawer)
            .property("extra", &Dialogs::extra)
            .property("log", &Dialogs::log)
            .method("message:", &Dialogs::message)
            .method("alert:", &Dialogs::alert)
            .method("informational:", &Dialogs::informational)
            .method("critical:", &Dialogs::critical)
            .method("input:", &Dialogs::input)
            .method("alertSheet:", &Dialogs::alertSheet)
            .method("alertSheetDidEnd:returnCode:contextInfo:", &Dialogs::alertSheetDidEnd)
            .method("sheet:", &Dialogs::sheet)
            .method("sheetDidEnd:returnCode:contextInfo:", &Dialogs::sheetDidEnd)
            .method("modal:", &Dialogs::modal)
            .method("done:", &Dialogs::done)
            .method("slideDrawer:", &Dialogs::slideDrawer)
            .method("expand:", &Dialogs::expand)
            .method("openFile:", &Dialogs::openFile);
    }

    void say(const id& what, const id& answer) {
        VELTS("dialogs.bas", "Dialogs.Say", "12", "");
        VELT_NSTEXTVIEW_APPEND(log, VELT_CONCAT(VELT_CONCAT(VELT_CONCAT(what, ": "_v), VELT_CSTRING(answer)),
                                                VELT_CHARACTER(VELT_ID(10L))));
    }
    void message(const id&) {
        VELTS("dialogs.bas", "Dialogs.Message", "16", "");
        say("message box"_v, VELT_MSGBOX("Message box"_v, "It has one button."_v));
    }
    void alert(const id&) {
        VELTS("dialogs.bas", "Dialogs.Alert", "20", "");
        say("alert"_v,
            VELT_ALERTPANEL("Save the changes?"_v, "They are lost otherwise."_v, "Save"_v, "Cancel"_v, "Discard"_v));
    }
    void informational(const id&) {
        VELTS("dialogs.bas", "Dialogs.Informational", "24", "");
        say("informational"_v, VELT_INFORMATIONALALERTPANEL("Done"_v, "All files were copied."_v, nil, nil, nil));
    }
    void critical(const id&) {
        VELTS("dialogs.bas", "Dialogs.Critical", "28", "");
        say("critical"_v,
            VELT_CRITICALALERTPANEL("Erase the disk?"_v, "Nothing can be brought back."_v, "Erase"_v, "Cancel"_v, nil));
    }
    void input(const id&) {
        VELTS("dialogs.bas", "Dialogs.Input", "32", "");
        id text = VELT_INPUTPANEL("Your name"_v, "It is shown in the title."_v, "Ada"_v);
        VELTS("dialogs.bas", "Dialogs.Input", "33", "");
        if (VELT_CBOOL(VELT_EQUAL(text, nil))) text = "(nil)"_v;
        VELTS("dialogs.bas", "Dialogs.Input", "34", "");
        say("input"_v, text);
    }
    void alertSheet(const id&) {
        VELTS("dialogs.bas", "Dialogs.AlertSheet", "38", "");
        VELT_BEGINALERTSHEET(id(this), "Close the document?"_v, "It has changes."_v, "a document"_v, "Close"_v,
                             "Cancel"_v, nil);
    }
    void alertSheetDidEnd(const id&, const id& returnCode, const id& contextInfo) {
        VELTS("dialogs.bas", "Dialogs.AlertSheetDidEnd", "42", "");
        say(VELT_CONCAT("alert sheet of "_v, contextInfo), returnCode);
    }
    void sheet(const id&) {
        VELTS("dialogs.bas", "Dialogs.Sheet", "46", "");
        VELT_BEGINSHEET(id(this), dialog, "the window"_v);
    }
    void sheetDidEnd(const id&, const id& returnCode, const id& contextInfo) {
        VELTS("dialogs.bas", "Dialogs.SheetDidEnd", "50", "");
        VELT_NSWINDOW_HIDE(dialog);
        VELTS("dialogs.bas", "Dialogs.SheetDidEnd", "51", "");
        say(VELT_CONCAT("sheet of "_v, contextInfo), returnCode);
    }
    void modal(const id&) {
        VELTS("dialogs.bas", "Dialogs.Modal", "55", "");
        say("modal session"_v, VELT_BEGINMODAL(dialog));
        VELTS("dialogs.bas", "Dialogs.Modal", "56", "");
        VELT_NSWINDOW_HIDE(dialog);
    }
    void done(const id&) {
        VELTS("dialogs.bas", "Dialogs.Done", "61", "");
        VELT_ENDSHEET(dialog, VELT_ID(5L));
        VELTS("dialogs.bas", "Dialogs.Done", "62", "");
        VELT_ENDMODAL(VELT_ID(7L));
    }
    void slideDrawer(const id&) {
        VELTS("dialogs.bas", "Dialogs.SlideDrawer", "66", "");
        VELT_NSDRAWER_TOGGLE(drawer);
    }
    void expand(const id&) {
        VELTS("dialogs.bas", "Dialogs.Expand", "70", "");
        if (VELT_CBOOL(VELT_EQUAL(VELT_NSVIEW_WINDOW(extra), nil))) {
            VELTS("dialogs.bas", "Dialogs.Expand", "71", "");
            VELT_BEGINEXPANDING(extra, window);
        } else {
            VELTS("dialogs.bas", "Dialogs.Expand", "73", "");
            VELT_ENDEXPANDING(extra, window);
        }
    }
    void openFile(const id&) {
        VELTS("dialogs.bas", "Dialogs.OpenFile", "78", "");
        say("open panel"_v, VELT_NSOPENPANEL_RUN(nil));
        VELTS("dialogs.bas", "Dialogs.OpenFile", "79", "");
        say("file"_v, VELT_NSOPENPANEL_FILENAME(nil));
    }

    void place(id title, const char* action) {
        VELTS("dialogs.bas", "Dialogs.Place", "83", "");
        id button = VELT_PUSHBUTTON_INIT(id(this), action);
        VELTS("dialogs.bas", "Dialogs.Place", "84", "");
        VELT_NSBUTTON_TITLE(button, title);
        VELTS("dialogs.bas", "Dialogs.Place", "85", "");
        VELT_NSVIEW_FRAME(button,
                          VELT_RECT_INIT(nil, "", VELT_ID(16L), VELT_SUB(VELT_ID(380L), VELT_MUL(row, VELT_ID(34L))),
                                         VELT_ID(130L), VELT_ID(26L)));
        VELTS("dialogs.bas", "Dialogs.Place", "86", "");
        VELT_NSVIEW_AUTORESIZINGMASK(button, VELT_ID(8L));
        VELTS("dialogs.bas", "Dialogs.Place", "87", "");
        VELT_NSWINDOW_APPEND(window, button);
        VELTS("dialogs.bas", "Dialogs.Place", "88", "");
        row = VELT__INTEGER(VELT_ADD(row, VELT_ID(1L)));
    }

    void open() {
        VELTS("dialogs.bas", "Dialogs.Open", "92", "");
        window = VELT_NSWINDOW_INIT(id(this), "");
        VELTS("dialogs.bas", "Dialogs.Open", "93", "");
        VELT_NSWINDOW_TITLE(window, "Dialogs"_v);
        VELTS("dialogs.bas", "Dialogs.Open", "94", "");
        VELT_NSWINDOW_CONTENTSIZE(window, VELT_SIZE_INIT(nil, "", VELT_ID(520L), VELT_ID(420L)));
        VELTS("dialogs.bas", "Dialogs.Open", "95", "");
        place("Message"_v, "message:");
        VELTS("dialogs.bas", "Dialogs.Open", "96", "");
        place("Alert"_v, "alert:");
        VELTS("dialogs.bas", "Dialogs.Open", "97", "");
        place("Informational"_v, "informational:");
        VELTS("dialogs.bas", "Dialogs.Open", "98", "");
        place("Critical"_v, "critical:");
        VELTS("dialogs.bas", "Dialogs.Open", "99", "");
        place("Input"_v, "input:");
        VELTS("dialogs.bas", "Dialogs.Open", "100", "");
        place("Alert sheet"_v, "alertSheet:");
        VELTS("dialogs.bas", "Dialogs.Open", "101", "");
        place("Sheet"_v, "sheet:");
        VELTS("dialogs.bas", "Dialogs.Open", "102", "");
        place("Modal"_v, "modal:");
        VELTS("dialogs.bas", "Dialogs.Open", "103", "");
        place("Drawer"_v, "slideDrawer:");
        VELTS("dialogs.bas", "Dialogs.Open", "104", "");
        place("Expand"_v, "expand:");
        VELTS("dialogs.bas", "Dialogs.Open", "105", "");
        place("Open panel"_v, "openFile:");
        VELTS("dialogs.bas", "Dialogs.Open", "106", "");
        log = VELT_NSTEXTVIEW_INIT(id(this), "");
        VELTS("dialogs.bas", "Dialogs.Open", "107", "");
        VELT_NSVIEW_FRAME(log, VELT_RECT_INIT(nil, "", VELT_ID(162L), VELT_ID(16L), VELT_ID(342L), VELT_ID(390L)));
        VELTS("dialogs.bas", "Dialogs.Open", "108", "");
        VELT_NSTEXT_EDITABLE(log, VELT_ID(BOOL{0}));
        VELTS("dialogs.bas", "Dialogs.Open", "109", "");
        VELT_NSVIEW_AUTORESIZINGMASK(log, VELT_ID(10L));
        VELTS("dialogs.bas", "Dialogs.Open", "110", "");
        VELT_NSWINDOW_APPEND(window, log);
        VELTS("dialogs.bas", "Dialogs.Open", "111", "");
        dialog = VELT_NSWINDOW_INIT(id(this), "");
        VELTS("dialogs.bas", "Dialogs.Open", "112", "");
        VELT_NSWINDOW_TITLE(dialog, "A dialog"_v);
        VELTS("dialogs.bas", "Dialogs.Open", "113", "");
        VELT_NSWINDOW_CONTENTSIZE(dialog, VELT_SIZE_INIT(nil, "", VELT_ID(220L), VELT_ID(80L)));
        VELTS("dialogs.bas", "Dialogs.Open", "114", "");
        id doneButton = VELT_PUSHBUTTON_INIT(id(this), "done:");
        VELTS("dialogs.bas", "Dialogs.Open", "115", "");
        VELT_NSBUTTON_TITLE(doneButton, "Done"_v);
        VELTS("dialogs.bas", "Dialogs.Open", "116", "");
        VELT_NSVIEW_FRAME(doneButton, VELT_RECT_INIT(nil, "", VELT_ID(60L), VELT_ID(24L), VELT_ID(100L), VELT_ID(26L)));
        VELTS("dialogs.bas", "Dialogs.Open", "117", "");
        VELT_NSWINDOW_APPEND(dialog, doneButton);
        VELTS("dialogs.bas", "Dialogs.Open", "118", "");
        drawer = VELT_NSDRAWER_INIT(id(this), "");
        VELTS("dialogs.bas", "Dialogs.Open", "119", "");
        VELT_NSDRAWER_PARENTWINDOW(drawer, window);
        VELTS("dialogs.bas", "Dialogs.Open", "120", "");
        extra = VELT_NSBOX_INIT(id(this), "");
        VELTS("dialogs.bas", "Dialogs.Open", "121", "");
        VELT_NSVIEW_FRAME(extra, VELT_RECT_INIT(nil, "", VELT_ID(0L), VELT_ID(0L), VELT_ID(520L), VELT_ID(60L)));
        VELTS("dialogs.bas", "Dialogs.Open", "122", "");
        VELT_NSWINDOW_CENTERANDSHOW(window);
    }

    /// What it does where nobody works it: each dialog that waits is answered a moment later, as by its first button.
    void work() {
        for (const auto ask : {&Dialogs::message, &Dialogs::alert, &Dialogs::informational, &Dialogs::critical,
                               &Dialogs::input, &Dialogs::modal}) {
            velt::RunLoop::main().after(0.05, [this] {
                const id shown = NSApplication::sharedApplication().modalWindow();
                const id button = VELT_NSWINDOW_DEFAULTBUTTONCELL(shown);
                if (button.isNil()) return done(nil);
                velt::send(button, "performClick:", shown);
            });
            (this->*ask)(nil);
        }
        sheet(nil);
        done(nil);
        expand(nil);
    }
};

int program(int, char**) {
    VELTS("dialogs.bas", "Main", "127", "");
    const velt::Ref<Dialogs> dialogs = velt::make<Dialogs>();
    VELTS("dialogs.bas", "Main", "128", "");
    dialogs->open();
    example::shotWhenAsked(dialogs->window, [dialogs] { dialogs->work(); });
    return 0;
}

}  // namespace

int main(int count, char** arguments) { return example::runShowing("dialogs", program, count, arguments); }
