// A whole program typed key by key, with the lists that open meanwhile, as a person types it.
#include "windows/editor_support.h"

using namespace velt::test;
using velt::Ref;

namespace {

/// An environment that also offers names.
class OfferingHost : public EditorHost {
    VELT_OBJECT(OfferingHost, EditorHost)

public:
    id members(const id&, const id& expression) {
        asked += "members(" + velt::utf8(expression) + ") ";
        return wordArray({"title", "count", "items("});
    }
    id signature(const id&, const id& expression) {
        asked += "signature(" + velt::utf8(expression) + ") ";
        return str("Left(Text, Count)");
    }
    static void describe(velt::ClassBuilder<OfferingHost>& c) {
        c.method("__TextView_GetCompletion::", &OfferingHost::members)
            .method("__TextView_GetCompletion2::", &OfferingHost::signature);
    }
    std::string asked;
};

class TypedPrograms : public testing::Test {
protected:
    void SetUp() override {
        VELT_NSTEXTVIEW_DELEGATE(shown.view, host);
        VELT_VLTEXTVIEW_TURNONAUTOINDENT(shown.view);
    }
    void TearDown() override { velt::send(shown.view, "stopCompletionTimer"); }

    /// Types on once a list is open, until that is closed. It opens when typing has rested for a while, or at once for
    /// who is in a hurry.
    void inList(const std::function<void()>& keys, bool waits) {
        if (!waits) QTimer::singleShot(0, shown.widget, [this] { velt::send(shown.view, "doCompletion:", nil); });
        workCompletion(*shown.widget, keys);
    }

    /// Ten lines; all that closes a block and all that needs spaces is left to the editor.
    void typeRoutine(int number, bool waits) {
        const std::string name = "name" + std::to_string(number);
        const auto line = [&](const std::string& keys) { shown.type((keys + "\n").c_str()); };
        line("SUB work" + std::to_string(number));
        shown.type(("dim " + name + " as ").c_str());
        inList([&] { shown.type("s\n"); }, waits);
        line("");
        shown.type((name + "=\"a+b\"&left(").c_str());
        inList([&] { shown.type((name + ",2)").c_str()); }, waits);
        line("");
        line("if " + name + "<>\"\" then ' keep a+b");
        line("print  " + name);
        line("else");
        shown.type("object.");
        inList(
            [&] {
                shown.type("ti");
                // Who knows the name by heart closes the list and types on.
                shown.key(number % 2 == 0 ? Qt::Key_Return : Qt::Key_Escape);
            },
            waits);
        line(number % 2 == 0 ? "" : "tle");
        line("end if");
        back(2);
        shown.type("print mid(");
        inList(
            [&] {
                shown.type((name + ",1").c_str());
                shown.key(Qt::Key_Backspace);
                shown.type("2)");
            },
            waits);
        line("");
        line("end sub");
        back(2);
    }
    void back(int count) {
        for (int i = 0; i < count; ++i) shown.key(Qt::Key_Backspace);
    }
    static std::string routine(int number) {
        const std::string name = "name" + std::to_string(number);
        std::string text;
        for (const std::string& line :
             {"sub work" + std::to_string(number), "  dim " + name + " as String",
              "  " + name + " = \"a+b\" & Left(" + name + ", 2)", "  if " + name + " <> \"\" then ' keep a+b",
              "    print " + name, std::string("  else"), std::string("    object.title"), std::string("  End if"),
              "  print Mid(" + name + ", 2)", std::string(" End sub")}) {
            text.append(line).append("\n");
        }
        return text;
    }

    EditorWindow shown;
    Ref<OfferingHost> host = velt::make<OfferingHost>();
};

}  // namespace

TEST_F(TypedPrograms, EndAsExpectedAfterTwoHundredLines) {
    constexpr int kRoutines = 20;
    shown.type("' a program\n");
    std::string expected = "' a program\n";
    for (int i = 0; i < kRoutines; ++i) {
        host->asked.clear();
        typeRoutine(i, i == 0);
        expected += routine(i);
        ASSERT_EQ(expected, shown.text()) << "after routine " << i;
        ASSERT_EQ("signature(left) members(object) signature(mid) ", host->asked);
        ASSERT_EQ(0, VELT_CINTEGER(velt::send(shown.view, "nCompletionRunning")));
    }
    EXPECT_EQ(201, VELT_CINTEGER(VELT_VLTEXTVIEW_LINE(shown.view)));
    // It is coloured as any other text.
    velt::send(shown.view, "performSyntaxHighlighting::", shown.view, boolean(true));
    EXPECT_EQ("cccccccccccc"
              "kkk......."
              "..kkk.......kk.bbbbbb.",
              shown.colours().substr(0, 44));
    // All of it can be taken back.
    for (int i = 0; i < 20000 && VELT_CBOOL(VELT_NSTEXTVIEW_CANUNDO(shown.view)); ++i) VELT_NSTEXTVIEW_UNDO(shown.view);
    EXPECT_EQ("", shown.text());
    for (int i = 0; i < 20000 && VELT_CBOOL(VELT_NSTEXTVIEW_CANREDO(shown.view)); ++i) VELT_NSTEXTVIEW_REDO(shown.view);
    EXPECT_EQ(expected, shown.text());
}
