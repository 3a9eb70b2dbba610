// reader.bas: a window in which a text is read.
#pragma once

#include "preferences/settings.h"

namespace reader {

class Reader : public NSObject {
    VELT_OBJECT(Reader, NSObject)

public:
    id window, header, greeting, clock, text, ticker;
    velt::Ref<ReaderPreferences> preferences = velt::make<ReaderPreferences>();

    static void describe(velt::ClassBuilder<Reader>& c);
    void open(id story);
    void build();
    void dress();
    void showTime();
    id timeText(id format);
    id greetingText();
    void tick();

    void showPreferences(id sender);
    void biggerText(id sender);
    void smallerText(id sender);
    void closeReader(id sender);
    void quit(id sender);
    id windowShouldClose(id sender);
    void alertSheetDidEnd(id alert, id code, id what);
    void windowWillClose(id notification);
};

/// The main menu, whose items the reader answers.
id mainMenu(velt::Ref<Reader> owner);

}  // namespace reader
