// What the example editor offers while somebody types, and its search for whole words: the parts that need no window.
#include "editor/assistant.h"
#include "editor/whole_words.h"

#include "support/values.h"

#include <gtest/gtest.h>
#include <set>
#include <string>

using namespace editor;
using velt::Ref;

namespace {

id text(std::string_view value) { return velt::string(value); }

constexpr const char* kSource = R"(' a source
Const Limit = 10
Dim books As NSMutableArray, shelf As Shelf
Dim first = Add(1, 2)

Class Thing
  Public Dim name As String
  Function Label(prefix As String) As String
    Return prefix & name
  End Function
End Class

Class Shelf Inherits Thing
  Private Dim width, height As Integer
  Sub Put(book As NSMutableString, ByVal place As Integer, Optional hard As Boolean = True)
    Dim found As New NSMutableDictionary ' Dim hidden As String
    For i = 0 To width
      For Each page In books
        found.
      Next
    Next i
  End Sub
  Function Books() As NSMutableArray
    Return books
  End Function
End Class

Function Add(a As Integer, b As Integer) As Integer
  Return a + b
End Function

Sub Main
  Try
    shelf.Put("x", 1)
  Catch failure
  End Try
End Sub
)";
constexpr long kInPut = 18, kInMain = 33, kOutside = 4;

class EditorAssistant : public testing::Test {
protected:
    EditorAssistant() {
        assistant->language = language;
        language->read(text(VELT_SOURCE_FOLDER "/Examples/editor/Resources"));
        read(kSource);
    }
    void read(const char* source) { assistant->source->read(text(source)); }
    std::string choices(const char* expression, long line) {
        return velt::utf8(VELT_JOIN(assistant->choices(text(expression), number(line)), " "_v));
    }
    std::string signature(const char* expression, long line = kInMain) {
        return velt::utf8(assistant->signature(text(expression), number(line)));
    }
    std::string typeOf(const char* expression, long line = kInMain) {
        return velt::utf8(assistant->typeOf(text(expression), number(line)));
    }
    /// The names that a line of the source sees of the source itself.
    std::string visible(long line) {
        std::string all;
        const id seen = assistant->source->visibleIn(number(line));
        for (long i = 0; i < VELT_CINTEGER(VELT_NSARRAY_COUNT(seen)); ++i) {
            all += velt::utf8(toDeclaration(VELT_NSARRAY_OBJECT(seen, number(i)))->name) + " ";
        }
        return all;
    }

    Ref<Language> language = velt::make<Language>();
    Ref<Assistant> assistant = velt::make<Assistant>();
};

}  // namespace

TEST(EditorSourceText, FindsTheWordWithWhichATextBegins) {
    EXPECT_EQ("name_1", velt::utf8(firstWord("name_1(2)"_v)));
    EXPECT_EQ("Größe", velt::utf8(firstWord("Größe As String"_v)));
    EXPECT_EQ("", velt::utf8(firstWord("(x)"_v)));
    EXPECT_EQ("", velt::utf8(firstWord(""_v)));
}

TEST(EditorSourceText, TakesTheCommentFromALine) {
    EXPECT_EQ("x = 1 ", velt::utf8(withoutComment("x = 1 ' one"_v)));
    EXPECT_EQ("x = \"it's\" ", velt::utf8(withoutComment("x = \"it's\" ' one \" more"_v)));
    EXPECT_EQ("", velt::utf8(withoutComment("'"_v)));
    EXPECT_EQ("x = \"it's", velt::utf8(withoutComment("x = \"it's"_v)));
}

TEST(EditorSourceText, SaysWhetherWhatFollowsIsCode) {
    EXPECT_TRUE(VELT_CBOOL(goesOnAsCode("x = list"_v)));
    EXPECT_TRUE(VELT_CBOOL(goesOnAsCode("x = \"it's\" & list"_v)));
    EXPECT_FALSE(VELT_CBOOL(goesOnAsCode("x = \"a list"_v)));
    EXPECT_FALSE(VELT_CBOOL(goesOnAsCode("x = 1 ' a list"_v)));
    EXPECT_TRUE(VELT_CBOOL(goesOnAsCode(""_v)));
}

TEST(EditorLanguage, KnowsTheArgumentsOfEveryBuiltin) {
    const Ref<Language> language = velt::make<Language>();
    language->read(text(VELT_SOURCE_FOLDER "/Examples/editor/Resources"));
    const long count = VELT_CINTEGER(VELT_NSARRAY_COUNT(language->builtins));
    EXPECT_EQ(count, VELT_CINTEGER(VELT_NSDICTIONARY_COUNT(language->functions)));
    for (long i = 0; i < count; ++i) {
        const id name = VELT_NSARRAY_OBJECT(language->builtins, number(i));
        const Ref<Declaration> builtin = language->builtin(name);
        ASSERT_TRUE(builtin) << velt::utf8(name);
        EXPECT_EQ(velt::utf8(name), velt::utf8(builtin->name));
        EXPECT_EQ('(', velt::utf8(builtin->parameters).front()) << velt::utf8(name);
    }
}

TEST(EditorLanguage, KnowsMembersOfItsOwnTypesAlone) {
    const Ref<Language> language = velt::make<Language>();
    language->read(text(VELT_SOURCE_FOLDER "/Examples/editor/Resources"));
    const id owners = VELT_NSDICTIONARY_KEYS(language->members);
    for (long i = 0; i < VELT_CINTEGER(VELT_NSARRAY_COUNT(owners)); ++i) {
        const Ref<Declaration> member =
            toDeclaration(VELT_NSARRAY_OBJECT(language->membersOf(VELT_NSARRAY_OBJECT(owners, number(i))), number(0)));
        EXPECT_TRUE(VELT_CBOOL(VELT_NSARRAY_CONTAINS(language->types, member->owner))) << velt::utf8(member->owner);
    }
    EXPECT_EQ(0, VELT_CINTEGER(VELT_NSARRAY_COUNT(language->membersOf("Nothing"_v))));
}

TEST(EditorLanguage, RaisesWhenItsFilesAreNotThere) {
    const Ref<Language> language = velt::make<Language>();
    try {
        language->read("/nowhere"_v);
        FAIL();
    } catch (const NSException& failure) {
        EXPECT_EQ("ReadString failed", failure.reason());
    }
}

TEST_F(EditorAssistant, SeesFromALineWhatItCanName) {
    EXPECT_EQ("Limit books shelf first Thing Shelf Add Main ", visible(kOutside));
    EXPECT_EQ("Limit books shelf first Thing Shelf width height Put book place hard found i page Books Add Main ",
              visible(kInPut));
    EXPECT_EQ("Limit books shelf first Thing Shelf Add Main failure ", visible(kInMain));
}

TEST_F(EditorAssistant, OffersTheMembersOfADeclaredType) {
    EXPECT_EQ("Append(Value) Contains(Value) Count Insert(Value, Position) Remove(Position) RemoveAll() "
              "RemoveObject(Value) Replace(Value, Position)",
              choices("books", kInMain));
    EXPECT_EQ(choices("books", kInMain), choices("BOOKS", kInMain));
    EXPECT_EQ("Contains(Key) Count Key(Position) Keys Values", choices("NSDictionary", kInMain));
    EXPECT_NE(std::string::npos, choices("found", kInPut).find("RemoveAll()"));
    EXPECT_EQ("", choices("found", kInMain));
    EXPECT_EQ("", choices("unknown", kInMain));
    EXPECT_EQ("", choices("3", kInMain));
    EXPECT_EQ("", choices("", kInMain));
}

TEST_F(EditorAssistant, OffersWhatAClassOfTheSourceHasAndInherits) {
    const std::string members =
        "width height Put(book As NSMutableString, ByVal place As Integer, Optional hard As Boolean = True) Books() "
        "name Label(prefix As String)";
    EXPECT_EQ(members, choices("shelf", kInMain));
    EXPECT_EQ(members, choices("Me", kInPut));
    EXPECT_EQ("name Label(prefix As String)", choices("MyBase", kInPut));
    EXPECT_EQ("", choices("Me", kInMain));
}

TEST_F(EditorAssistant, FollowsAnExpressionFromMemberToMember) {
    EXPECT_EQ("NSMutableArray", typeOf("shelf.Books()"));
    EXPECT_EQ("Integer", typeOf("shelf.Books().Count"));
    EXPECT_EQ("Integer", typeOf("Me.height", kInPut));
    EXPECT_EQ("Integer", typeOf("Add(1, shelf.Books().Count)"));
    EXPECT_EQ("NSMutableArray", typeOf("Split(a.b, c)"));
    EXPECT_EQ("", typeOf("books(1)"));
    EXPECT_EQ("", typeOf("shelf.nothing.Count"));
    EXPECT_EQ("", typeOf("."));
    EXPECT_EQ("", typeOf(")"));
}

TEST_F(EditorAssistant, ShowsHowRoutinesAndBuiltinsAreCalled) {
    EXPECT_EQ("Left(Text, Count) As String", signature("Left"));
    EXPECT_EQ("Left(Text, Count) As String", signature("left"));
    EXPECT_EQ("Add(a As Integer, b As Integer) As Integer", signature("Add"));
    EXPECT_EQ("Append(Value)", signature("books.Append"));
    EXPECT_EQ("Label(prefix As String) As String", signature("shelf.Label"));
    EXPECT_EQ("Books() As NSMutableArray", signature("Books", kInPut));
    EXPECT_EQ("", signature("books"));
    EXPECT_EQ("", signature("nobody"));
    EXPECT_EQ("", signature("shelf.Nothing"));
    EXPECT_EQ("", signature(""));
}

TEST_F(EditorAssistant, OffersEveryNameOnRequest) {
    const std::string all = " " + choices("!§$%&/()=?", kInPut) + " ";
    for (const char* name : {" found ", " i ", " width ", " Left(Text, Count) ", " NSWindow ", " ElseIf "}) {
        EXPECT_NE(std::string::npos, all.find(name)) << name;
    }
    EXPECT_EQ(std::string::npos, all.find(" hidden "));
    EXPECT_EQ(std::string::npos, all.find(" failure "));
}

TEST_F(EditorAssistant, TakesAnySourceAsItIs) {
    for (const char* source : {"", "\r\n", "Class\nEnd Class\nEnd Class", "Sub\nEnd Sub", "Function f(\nDim a As",
                               "Dim ,, x", "Class A Inherits A\nSub s()\n", "End", "Private Public Shared", "For"}) {
        read(source);
        for (const char* expression : {"a", "Me", "A", "s", "f", "x.y.z", "((", "))", "!§$%&/()=?"}) {
            choices(expression, 1);
            signature(expression, 2);
        }
    }
    read("Class A Inherits A\nDim x As A\nEnd Class\r\nDim y As A\r");
    EXPECT_EQ(std::string("x x x x").substr(0, 3), choices("y", 5).substr(0, 3));
    EXPECT_EQ("A", typeOf("y.x.x", 5));
}

TEST_F(EditorAssistant, KnowsTheShippedPrograms) {
    const id source = VELT_READSTRING(text(VELT_SOURCE_FOLDER "/Examples/editor/programs/ledger.bas"));
    assistant->source->read(source);
    EXPECT_EQ("PadRight(text As String, width As Integer) As String", signature("PadRight", 60));
    EXPECT_NE("", choices("transactions", 60));
    EXPECT_EQ("NSMutableDictionary", typeOf("accounts", 60));
}

TEST(EditorWholeWords, StandAlone) {
    const Ref<WholeWords> words = velt::make<WholeWords>();
    words->word = "as"_v;
    const id line = "as has As, as_x (as)as1 bas as"_v;
    std::string places;
    for (long at = -1; (at = VELT_CINTEGER(words->nextPlace(line, number(at + 1)))) >= 0;) {
        places += std::to_string(at) + " ";
    }
    EXPECT_EQ("0 17 28 ", places);
    words->respectsCase = boolean(false);
    EXPECT_EQ(7, VELT_CINTEGER(words->nextPlace(line, number(1))));
    EXPECT_EQ(17, VELT_CINTEGER(words->previousPlace(line, number(29))));
    EXPECT_EQ(28, VELT_CINTEGER(words->previousPlace(line, number(30))));
    EXPECT_EQ(-1, VELT_CINTEGER(words->previousPlace(line, number(1))));
}

TEST(EditorWholeWords, AreReplacedAtOnce) {
    const Ref<WholeWords> words = velt::make<WholeWords>();
    words->word = "a"_v;
    EXPECT_EQ("aa ab aa.aa", velt::utf8(words->replaced("a ab a.a"_v, "aa"_v)));
    EXPECT_EQ(3, VELT_CINTEGER(words->replacements));
    EXPECT_EQ("none", velt::utf8(words->replaced("none"_v, "aa"_v)));
    EXPECT_EQ(0, VELT_CINTEGER(words->replacements));
    words->word = ""_v;
    EXPECT_EQ("a", velt::utf8(words->replaced("a"_v, "b"_v)));
}

TEST(EditorWholeWords, MayBeginOrEndWithOtherSigns) {
    const Ref<WholeWords> words = velt::make<WholeWords>();
    words->word = "(a)"_v;
    EXPECT_EQ("f[], x [] y", velt::utf8(words->replaced("f(a), x (a) y"_v, "[]"_v)));
}
