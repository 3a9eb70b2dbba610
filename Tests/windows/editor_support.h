// An editor in a window, with the words of a small language, as a development environment sets it up.
#pragma once

#include "support/control_window.h"
#include "support/shown_text.h"

#include "VELTRuntime/editor/view/editor_state.h"
#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/run_loop.h"

#include <QElapsedTimer>
#include <QTimer>
#include <functional>
#include <initializer_list>

namespace velt::test {

inline id wordArray(std::initializer_list<const char*> words) {
    const Ref<NSMutableArray> list = make<NSMutableArray>();
    for (const char* word : words) list->append(str(word));
    return list;
}

// The words by which texts are coloured are those of the first view of the process, so all tests have the same.
inline void giveWords(const id& view) {
    VELT_VLTEXTVIEW_KEYWORDS(view, wordArray({"if", "then", "else", "End", "sub", "dim", "as", "print"}));
    VELT_VLTEXTVIEW_COMMANDS(view, wordArray({"Left", "Mid"}));
    VELT_VLTEXTVIEW_TYPES(view, wordArray({"String", "Integer", "Date"}));
}

/// Lets a person work the list of a completion once it is open; the keys are pressed while it runs. Returns when it is
/// closed.
inline void workCompletion(QWidget& editor, const std::function<void()>& work) {
    constexpr int kLongest = 8000, kOften = 2;  // milliseconds
    bool worked = false;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&] {
        if (myFloatingKeyWindow.isNil() || worked) return;
        worked = true;
        work();
    });
    watch.start(kOften);
    QTimer::singleShot(kLongest, &watch, [&] {
        if (!myFloatingKeyWindow.isNil()) QTest::keyClick(&editor, Qt::Key_Escape);
    });
    QElapsedTimer clock;
    clock.start();
    while ((!worked || !myFloatingKeyWindow.isNil()) && clock.elapsed() < kLongest) {
        RunLoop::current().runOnce(0.02);
    }
    EXPECT_TRUE(worked);
    EXPECT_TRUE(myFloatingKeyWindow.isNil());
}

/// A development environment: tells the editor of what was typed, as its delegate, and writes down what it hears.
class EditorHost : public NSObject {
    VELT_OBJECT(EditorHost, NSObject)

public:
    bool shouldChange(const id&, const id& range, const id& text) {
        ++asked;
        place = VELT_CNSRANGE(range).location;
        typed = text;
        return allows;
    }
    void changed(const id& notification) {
        ++heard;
        const bool isTyped = tells && isString(typed) && textOf(typed).size() == 1;
        const id text = std::exchange(typed, nil);
        if (!isTyped || inside) return;
        inside = true;
        const id view = send(notification, "object");
        id entries[] = {VELT_ID(static_cast<long>(place)), text};
        send(view, "_ShouldChangeText:", id(make<NSMutableArray>(MovedValues{entries})));
        inside = false;
    }
    static void describe(ClassBuilder<EditorHost>& c) {
        c.method("textView:shouldChangeTextInRange:replacementString:", &EditorHost::shouldChange)
            .method("textDidChange:", &EditorHost::changed)
            .method("work:", [](const id&, const id*) { return id(); })
            .owns(&EditorHost::typed);
    }
    bool allows = true, tells = true, inside = false;
    int asked = 0, heard = 0;
    unsigned long place = 0;
    id typed;
};

/// An editor that has the keyboard in a window of its own, within a scroll view if wanted.
class EditorWindow {
public:
    explicit EditorWindow(std::string_view text = "", bool scrolls = false) {
        giveWords(view);
        VELT_NSWINDOW_FRAME(window, VELT_ID(NSRect{{50, 60}, {500, 322}}));
        if (scrolls) {
            const id around = VELT_NSSCROLLVIEW_INIT(nil, "");
            send(around, "setFrame:", rect(0, 0, 500, 300));
            send(around, "setHasVerticalScroller:", boolean(true));
            send(view, "setFrame:", rect(0, 0, 500, 300));
            send(around, "setDocumentView:", view);
            VELT_NSWINDOW_APPEND(window, around);
        } else {
            send(view, "setFrame:", rect(0, 0, 500, 300));
            VELT_NSWINDOW_APPEND(window, view);
        }
        VELT_NSTEXTVIEW_VALUE(view, str(text));
        VELT_NSWINDOW_SHOW(window);
        EXPECT_TRUE(windowBecomesActive(as<NSWindow>(window)->widget()));
        VELT_NSWINDOW_MAKEFIRSTRESPONDER(window, view);
        widget = editor().existingTextWidget();
    }
    ~EditorWindow() {
        VELT_NSTEXTVIEW_DELEGATE(view, nil);
        VELT_NSWINDOW_CLOSE(window);
    }
    EditorWindow(const EditorWindow&) = delete;
    EditorWindow& operator=(const EditorWindow&) = delete;

    VLTextView& editor() const { return *as<VLTextView>(view); }
    std::string text() const { return utf8(VELT_NSTEXTVIEW_VALUE(view)); }
    std::string selected() const { return utf8(description(send(view, "selectedRange"))); }
    void select(unsigned long location, unsigned long length = 0) const {
        send(view, "setSelectedRange:", range(location, length));
    }
    void key(Qt::Key code, Qt::KeyboardModifiers modifiers = {}) const { QTest::keyClick(widget, code, modifiers); }
    void type(const char* keys) const {
        for (; *keys; ++keys) {
            if (*keys == '\n')
                key(Qt::Key_Return);
            else
                QTest::keyClick(widget, *keys);
        }
    }
    std::string breakpoints() const { return utf8(description(VELT_VLTEXTVIEW_BREAKPOINTS(view))); }
    std::string separators() const { return utf8(description(VELT_VLTEXTVIEW_LINESEPARATORS(view))); }
    /// The colours of the text, a letter a unit: k(eyword), b(uilt-in) or type, s(tring), c(omment), . none, o(ther);
    /// a capital on a breakpoint.
    std::string colours() const {
        const id layout = send(view, "layoutManager");
        std::string shown;
        for (std::size_t i = 0; i < editor().textLength(); ++i) {
            const id attributes =
                send(layout, "temporaryAttributesAtCharacterIndex:effectiveRange:", VELT_ID(static_cast<long>(i)), nil);
            const auto* found = attributes.isNil() ? nullptr : as<NSDictionary>(attributes);
            const auto has = [&](const id& dictionary, const char* name) {
                const id colour = found ? found->objectForKey(str(name)) : id();
                return !colour.isNil() && isEqual(colour, as<NSDictionary>(dictionary)->objectForKey(str(name)));
            };
            char letter = found && !found->objectForKey(str("NSColor")).isNil() ? 'o' : '.';
            if (has(dicKeywordsColour, "NSColor")) letter = 'k';
            if (has(dicBuiltinsColour, "NSColor")) letter = 'b';
            if (has(dicStringsColour, "NSColor")) letter = 's';
            if (has(dicCommentsColour, "NSColor")) letter = 'c';
            const bool isBroken = has(dicBreakpointColour, "NSBackgroundColor");
            shown += static_cast<char>(!isBroken ? letter : letter == '.' ? '!' : letter - 'a' + 'A');
        }
        return shown;
    }

    id window = VELT_NSWINDOW_INIT(nil, "");
    id view = VELT_VLTEXTVIEW_INIT(nil, "");
    TextWidget* widget = nullptr;
};

}  // namespace velt::test
