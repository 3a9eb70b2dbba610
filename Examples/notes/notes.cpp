// notes.bas as the translator writes it. --dark shows it in dark colours on whatever desktop, --reverse as those see it
// who read from right to left.
#include "notes/document.h"

#include "support/screenshot.h"

namespace {

using notes::NotesDocument;

int program(int count, char** arguments) {
    example::dressAsAsked(count, arguments);
    VELTS("notes.bas", "Main", "5", "");
    velt::Ref<NotesDocument> document = velt::make<NotesDocument>();
    VELTS("notes.bas", "Main", "6", "");
    VELT_PROPERTY(notes::application(), "delegate"_v, document);
    VELTS("notes.bas", "Main", "7", "");
    VELT_PROPERTY(notes::application(), "mainMenu"_v, notes::mainMenu(document));
    VELTS("notes.bas", "Main", "8", "");
    document->open();
    // Where nobody works it, it adds a note and goes back to one of the others.
    example::shotWhenAsked(document->window, [document] {
        document->newNote(nil);
        VELT_NSTEXTVIEW_INSERT(document->text, "Call the bookbinder\nAsk about the spine, and about the price."_v);
        velt::send(document->window, "makeFirstResponder:", document->table);
        VELT_NSTABLEVIEW_SELECTROW(document->table, notes::number(2));
        document->book->edited = notes::boolean(false);  // nobody is there to be asked
    });
    return 0;
}

}  // namespace

int main(int count, char** arguments) { return example::runShowing("notes", program, count, arguments); }
