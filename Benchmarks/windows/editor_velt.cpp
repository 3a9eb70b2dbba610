// What a person waits for in a shown source editor: a key, opening a file, colours, formatting, replacing, shifting;
// and what it keeps in memory.
#include "editor_work.h"

#include <QAbstractScrollArea>
#include <VELTRuntime/VELTRuntimeUI.h>

namespace {

id words(std::initializer_list<std::string_view> names) {
    const velt::Ref<NSMutableArray> list = velt::make<NSMutableArray>();
    for (const std::string_view name : names) list->append(velt::string(name));
    return list;
}

/// A development environment as the delegate: has each line formatted, and colours laid, as they are typed.
class Environment : public NSObject {
    VELT_OBJECT(Environment, NSObject)
public:
    bool shouldChange(const id&, const id& range, const id& text) {
        place = static_cast<long>(VELT_CNSRANGE(range).location);
        typed = text;
        return true;
    }
    void changed(const id& notification) {
        const id text = std::exchange(typed, nil);
        if (inside || !velt::isString(text) || velt::textOf(text).size() != 1) return;
        inside = true;
        const id view = velt::send(notification, VELT_SELECTOR("object"));
        id entries[] = {VELT_ID(place), text};
        velt::send(view, VELT_SELECTOR("_ShouldChangeText:"), velt::make<NSMutableArray>(velt::MovedValues{entries}));
        VELT_VLTEXTVIEW_PERFORMSYNTAXHIGHLIGHTING(view);
        inside = false;
    }
    static void describe(velt::ClassBuilder<Environment>& c) {
        c.method("textView:shouldChangeTextInRange:replacementString:", &Environment::shouldChange)
            .method("textDidChange:", &Environment::changed)
            .owns(&Environment::typed);
    }
    id typed;
    long place = 0;
    bool inside = false;
};

struct Shown {
    explicit Shown(bool hasEnvironment) {
        VELT_VLTEXTVIEW_KEYWORDS(view, words({"if", "then", "dim", "as", "end", "for", "to", "next", "sub"}));
        VELT_VLTEXTVIEW_COMMANDS(view, words({"msgbox", "say", "first", "left", "mid"}));
        VELT_VLTEXTVIEW_TYPES(view, words({"integer", "string"}));
        if (hasEnvironment) VELT_NSTEXTVIEW_DELEGATE(view, environment);
        const NSRect all{{0, 0}, {editor::kWidth, editor::kHeight}};
        velt::as<NSView>(around)->setFrame(all);
        velt::send(around, VELT_SELECTOR("setHasVerticalScroller:"), VELT_ID(static_cast<BOOL>(1)));
        editor().setFrame(all);
        velt::send(around, VELT_SELECTOR("setDocumentView:"), view);
        VELT_NSWINDOW_CONTENTSIZE(window, VELT_ID(all.size));
        VELT_NSWINDOW_APPEND(window, around);
        VELT_VLTEXTVIEW_TURNOFFWRAPPING(view);
        VELT_VLTEXTVIEW_TURNONAUTOINDENT(view);
        VELT_NSWINDOW_SHOW(window);
        VELT_NSWINDOW_MAKEFIRSTRESPONDER(window, view);
        editor::settle();
    }
    VLTextView& editor() const { return *velt::as<VLTextView>(view); }
    QAbstractScrollArea& widget() const { return static_cast<QAbstractScrollArea&>(editor().widget()); }
    void set(const std::string& text) const {
        VELT_NSTEXTVIEW_VALUE(view, velt::string(std::string_view(text)));
        VELT_VLTEXTVIEW_PERFORMSYNTAXHIGHLIGHTING(view);
        editor::settle();
    }
    velt::Ref<Environment> environment = velt::make<Environment>();
    id view = VELT_VLTEXTVIEW_INIT(nil, "");
    id around = VELT_NSSCROLLVIEW_INIT(nil, "");
    id window = VELT_NSWINDOW_INIT(nil, "");
};

/// In the middle of a source of so many lines.
void keys(int lines) {
    const Shown shown(true);
    shown.set(editor::source(lines));
    VELT_VLTEXTVIEW_GOTOLINE(shown.view, VELT_ID(static_cast<long>(lines) / 2));
    shown.editor().setSelectedRange({shown.editor().selectedRange().location, 0});
    editor::settle();
    editor::typeKeys(shown.widget(), *shown.widget().viewport());
}

/// A file, until it is painted; and what its text keeps in memory, a unit.
void open(const char* path) {
    const Shown shown(true);
    const id file = velt::string(std::string_view(path));
    const long before = form::residentKilobytes();
    editor::PaintWatch watch(*shown.widget().viewport());
    form::Steps steps;
    VELT_VLTEXTVIEW_LOAD(shown.view, file);
    watch.begin();
    shown.widget().viewport()->update();
    watch.wait();
    steps.end("open");
    editor::settle();
    malloc_trim(0);
    const auto units = static_cast<double>(shown.editor().textLength());
    std::printf("memory %.3f\n", static_cast<double>(form::residentKilobytes() - before) * 1024 / units);
    form::Steps more;
    velt::send(shown.view, VELT_SELECTOR("performSyntaxHighlighting::"), shown.view, VELT_ID(static_cast<BOOL>(1)));
    more.end("coloured");
    malloc_trim(0);
    const double coloured = static_cast<double>(form::residentKilobytes() - before);
    std::printf("coloured_memory %.3f\n", coloured * 1024 / units);
}

/// A command on a whole source, until it is painted, and the same taken back.
template <class Command> void command(const std::string& text, bool hasDelegate, Command run) {
    const Shown shown(hasDelegate);
    shown.set(text);
    velt::send(shown.view, VELT_SELECTOR("performSyntaxHighlighting::"), shown.view, VELT_ID(static_cast<BOOL>(1)));
    editor::settle();
    form::Steps steps;
    run(shown.view);
    steps.end("done");
    editor::settle();
    steps.end("painted");
    VELT_NSTEXTVIEW_UNDO(shown.view);
    steps.end("undone");
    editor::settle();
    if (VELT_CBOOL(VELT_NSTEXTVIEW_CANUNDO(shown.view))) std::printf("undone_in_several_steps 1\n");
    if (velt::utf8(VELT_NSTEXTVIEW_VALUE(shown.view)) != text) std::printf("not_undone 1\n");
}

void replaceAll(const id& view) {
    VELT_VLTEXTVIEW_FINDREPLACEALL(view, velt::string(u"counter"), velt::string(u"quantities"));
}
void shift(const id& view) {
    const auto length = static_cast<unsigned long>(velt::as<VLTextView>(view)->textLength());
    velt::as<VLTextView>(view)->setSelectedRange({0, length});
    VELT_VLTEXTVIEW_SHIFTRIGHT(view);
}
void format(const id& view) { VELT_VLTEXTVIEW_AUTOFORMAT(view); }

}  // namespace

int main(int count, char** arguments) {
    const std::string work = count > 1 ? arguments[1] : "keys";
    const int lines = count > 2 ? std::atoi(arguments[2]) : 100'000;
    const bool hasDelegate = count > 3;
    NSApplication::sharedApplication();
    editor::beStill();
    if (work == "source") std::fputs(editor::source(lines).c_str(), stdout);
    if (work == "keys") keys(lines);
    if (work == "open" && count > 2) open(arguments[2]);
    if (work == "replace") command(editor::source(lines), hasDelegate, replaceAll);
    if (work == "shift") command(editor::source(lines), hasDelegate, shift);
    if (work == "format") command(editor::source(lines), hasDelegate, format);
    return 0;
}
