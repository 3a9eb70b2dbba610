// Dialogs: message and alert panels, the input panel, sheets, modal sessions, drawers, windows that expand by a view,
// the open and the save panel.
#pragma once

#include "VELTRuntime/ui/accessors.h"

#define VELT_WRAPPER_TABLE "VELTRuntime/ui/panels.def"
#include "VELTRuntime/ui/accessor_declarations.h"

/// Shows a title and a message and waits for the answer; returns its code, an Integer: 1 for the default button. With
/// nil as the message, the first text is the message of a panel without a title. nil as the first is the text "Nil".
VELT_EXPORT id VELT_MSGBOX(const id& title, const id& message);
/// Shows a message without a title ("Nil" for nil) and waits; the code as an Integer.
VELT_EXPORT id VELT__MSGBOX(const id& message);
/// Shows an alert with up to three buttons and waits: 1 for the default button, 0 for the alternate, -1 for the other.
/// A nil button is absent; without any there is the platform's single default button. nil as title or message is the
/// text "Nil".
VELT_EXPORT id VELT_ALERTPANEL(const id& title, const id& message, const id& defaultButton, const id& alternateButton,
                               const id& otherButton);
/// The same with the icon of a piece of information.
VELT_EXPORT id VELT_INFORMATIONALALERTPANEL(const id& title, const id& message, const id& defaultButton,
                                            const id& alternateButton, const id& otherButton);
/// The same with the icon of a danger. Title and message are converted as they are, so nil is no text here; programs
/// rely on it.
VELT_EXPORT id VELT_CRITICALALERTPANEL(const id& title, const id& message, const id& defaultButton,
                                       const id& alternateButton, const id& otherButton);
/// Asks for a line of text and waits. A new string that may be changed, or nil when it was not confirmed.
VELT_EXPORT id VELT_INPUTPANEL(const id& message, const id& informative, const id& initial);

/// Shows an alert as the sheet of the key window, and returns nil. A nil button is absent. The delegate is sent
/// "alertSheetDidEnd:returnCode:contextInfo:" with the alert, the button's code (1000 for the first, then 1001, 1002)
/// and the context's text.
VELT_EXPORT id VELT_BEGINALERTSHEET(const id& delegate, const id& message, const id& informative, const id& context,
                                    const id& button1, const id& button2, const id& button3);
/// Shows a window as the sheet of the key window, and returns nil. When it is ended, the delegate is sent
/// "sheetDidEnd:returnCode:contextInfo:" with the sheet, the code and the context's text. The sheet's toolbar is sent
/// "Show" a moment later, when it has that message.
VELT_EXPORT id VELT_BEGINSHEET(const id& delegate, const id& sheet, const id& context);
/// Ends a sheet, with a code unless that is nil. The delegate orders it out.
VELT_EXPORT id VELT_ENDSHEET(const id& sheet, const id& code);

/// Runs the program for one window alone until the session is ended; returns its code, an Integer. Raises "'NSWindow'
/// expected".
VELT_EXPORT id VELT_BEGINMODAL(const id& window);
/// Ends the innermost modal session, with a code unless that is nil.
VELT_EXPORT id VELT_ENDMODAL(const id& code);

/// Open and close a drawer; raise "'NSDrawer' expected", for nil too.
VELT_EXPORT id VELT_BEGINDRAWER(const id& drawer);
VELT_EXPORT id VELT_ENDDRAWER(const id& drawer);
/// A new drawer of 100 by 100 at the right edge. Ignores its arguments.
VELT_EXPORT id VELT_NSDRAWER_INIT(const id& owner, const char* action);
/// Closes an open drawer. A closed one opens on the right; before that, its window is made narrower by what would not
/// find room on the screen.
VELT_EXPORT id VELT_NSDRAWER_TOGGLERIGHTRESIZINGWINDOW(const id& drawer);

/// Lets a window grow downward by a view's height and shows the view there; and the other way round.
VELT_EXPORT id VELT_BEGINEXPANDING(const id& view, const id& window);
VELT_EXPORT id VELT_ENDEXPANDING(const id& view, const id& window);

/// Sets what holds for one run of the open panel: files can be chosen, folders, aliases and several files cannot.
VELT_EXPORT void VELT_OPENPANEL_Init();
/// The open panel's options, which belong to the program; the receiver is ignored. The four truth values hold for one
/// run.
VELT_EXPORT id VELT_NSOPENPANEL_CANCHOOSEFILES(const id& ignored);
VELT_EXPORT id VELT_NSOPENPANEL_CANCHOOSEFILES(const id& ignored, const id& flag);
VELT_EXPORT id VELT_NSOPENPANEL_CANCHOOSEDIRECTORIES(const id& ignored);
VELT_EXPORT id VELT_NSOPENPANEL_CANCHOOSEDIRECTORIES(const id& ignored, const id& flag);
VELT_EXPORT id VELT_NSOPENPANEL_RESOLVESALIASES(const id& ignored);
VELT_EXPORT id VELT_NSOPENPANEL_RESOLVESALIASES(const id& ignored, const id& flag);
VELT_EXPORT id VELT_NSOPENPANEL_ALLOWSMULTIPLESELECTION(const id& ignored);
VELT_EXPORT id VELT_NSOPENPANEL_ALLOWSMULTIPLESELECTION(const id& ignored, const id& flag);
VELT_EXPORT id VELT_NSOPENPANEL_DIRECTORY(const id& ignored);
VELT_EXPORT id VELT_NSOPENPANEL_DIRECTORY(const id& ignored, const id& path);
VELT_EXPORT id VELT_NSOPENPANEL_FILE(const id& ignored);
VELT_EXPORT id VELT_NSOPENPANEL_FILE(const id& ignored, const id& name);
VELT_EXPORT id VELT_NSOPENPANEL_TYPES(const id& ignored);
VELT_EXPORT id VELT_NSOPENPANEL_TYPES(const id& ignored, const id& types);
/// Shows the open panel and waits; True when a person confirmed.
VELT_EXPORT id VELT_NSOPENPANEL_RUN(const id& ignored);
/// New arrays of what the last run chose: paths, addresses.
VELT_EXPORT id VELT_NSOPENPANEL_FILENAMES(const id& ignored);
VELT_EXPORT id VELT_NSOPENPANEL_URLS(const id& ignored);
/// The first of them, an address as its text; a new empty string when nothing was chosen.
VELT_EXPORT id VELT_NSOPENPANEL_FILENAME(const id& ignored);
VELT_EXPORT id VELT_NSOPENPANEL_URL(const id& ignored);
