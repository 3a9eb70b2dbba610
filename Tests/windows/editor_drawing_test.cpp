// What an editor draws is what its text and its temporary attributes are, after every key.
#include "windows/editor_support.h"

#include <QScrollBar>
#include <fstream>
#include <iterator>

using namespace velt::test;
using velt::Ref;

namespace {

std::string shippedProgram() {
    std::ifstream file(VELT_SOURCE_FOLDER "/Examples/editor/programs/ledger.bas");
    return {std::istreambuf_iterator<char>(file), {}};
}

QColor colourAt(const EditorWindow& shown, std::size_t position) {
    const id layout = velt::send(shown.view, "layoutManager");
    const id attributes = velt::send(
        layout, "temporaryAttributesAtCharacterIndex:effectiveRange:", VELT_ID(static_cast<long>(position)), nil);
    if (attributes.isNil()) return {};
    const id colour = velt::as<NSDictionary>(attributes)->objectForKey(str("NSColor"));
    return colour.isNil() ? QColor() : velt::qtColor(*velt::as<NSColor>(colour));
}

/// The first place in sight that is drawn in another colour than it has, or is another character; empty when there is
/// none.
std::string wronglyDrawn(const EditorWindow& shown) {
    const velt::SourceBuffer& buffer = shown.editor().buffer();
    for (const auto& row : shown.widget->firstRowsInSight()) {
        const QString drawn = shown.widget->layoutOf(row.line).text();
        const NSRange line = buffer.line(row.line);
        for (int i = 0; i < drawn.size(); ++i) {
            const std::size_t place = line.location + static_cast<std::size_t>(i);
            const QBrush brush = drawnFormat(*shown.widget, row.line, i).foreground();
            const QColor colour = brush.style() == Qt::NoBrush ? QColor() : brush.color();
            if (drawn[i] == QChar(buffer.at(place)) && colour == colourAt(shown, place)) continue;
            return QStringLiteral("line %1, %2 of %3").arg(row.line).arg(i).arg(drawn).toStdString();
        }
    }
    return "";
}

}  // namespace

TEST(EditorDrawing, ShowsTextAndColoursAsTheyAreAfterEveryKey) {
    EditorWindow shown(shippedProgram(), true);
    const Ref<EditorHost> host = velt::make<EditorHost>();
    VELT_NSTEXTVIEW_DELEGATE(shown.view, host);
    VELT_VLTEXTVIEW_TURNOFFWRAPPING(shown.view);
    VELT_VLTEXTVIEW_TURNONAUTOINDENT(shown.view);
    velt::send(shown.view, "performSyntaxHighlighting::", shown.view, boolean(true));
    VELT_VLTEXTVIEW_GOTOLINE(shown.view, integer(119));
    shown.select(shown.editor().selectedRange().location);
    shown.widget->verticalScrollBar()->setValue(112);
    QApplication::processEvents();
    ASSERT_EQ("", wronglyDrawn(shown));
    const auto press = [&](const std::function<void()>& key) {
        key();
        EXPECT_EQ("", wronglyDrawn(shown));
        VELT_VLTEXTVIEW_PERFORMSYNTAXHIGHLIGHTING(shown.view);
        QApplication::processEvents();
        ASSERT_EQ("", wronglyDrawn(shown));
    };
    press([&] { shown.key(Qt::Key_End); });
    press([&] { shown.key(Qt::Key_Return); });
    for (const char key : std::string("if a > 3 then print \"it's\" ' why\n  dim x as Integer 'c\n\"open")) {
        SCOPED_TRACE(testing::Message() << "after '" << key << "' at " << shown.selected());
        press([&] {
            if (key == '\n')
                shown.key(Qt::Key_Return);
            else
                QTest::keyClick(shown.widget, key);
        });
        if (testing::Test::HasFatalFailure()) return;
    }
    while (VELT_CBOOL(VELT_NSTEXTVIEW_CANUNDO(shown.view))) press([&] { shown.key(Qt::Key_Z, Qt::ControlModifier); });
    EXPECT_EQ(shippedProgram(), shown.text());
}
