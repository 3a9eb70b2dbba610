#include "support/archives.h"
#include "support/generated.h"

using namespace velt::test;
using velt::arrayOf;

namespace {

/// A class that keeps one value of each kind and another object.
class Card : public NSObject {
    VELT_OBJECT(Card, NSObject)
public:
    void encodeWithCoder(const id& coder) {
        auto& to = *velt::to<NSCoder>(coder);
        to.encodeObject(name, str("name"));
        to.encodeObject(next, str("next"));
        to.encodeConditionalObject(watcher, str("watcher"));
        to.encodeInteger(number, str("number"));
        to.encodeBool(marked, str("marked"));
        to.encodeFloat(0.1F, str("float"));
        to.encodeDouble(0.1, str("double"));
        to.encodeBytes(velt::make<NSData>("bytes and more").get(), 5, str("bytes"));
        to.encodePoint({1.5, -2}, str("point"));
        to.encodeSize({3, 4}, str("size"));
        to.encodeRect({{1, 2}, {3, 0.1}}, str("rect"));
        to.encodeRange({7, 8}, str("range"));
        to.encodeObject(str("own"), str("$class"));
    }
    void initWithCoder(const id& coder) {
        auto& from = *velt::to<NSCoder>(coder);
        name = from.decodeObject(str("name"));
        next = from.decodeObject(str("next"));
        watcher = from.decodeObject(str("watcher"));
        number = from.decodeInteger(str("number"));
        marked = from.decodeBool(str("marked"));
        EXPECT_EQ(0.1F, from.decodeFloat(str("float")));
        EXPECT_EQ(0.1, from.decodeDouble(str("double")));
        EXPECT_VALUE("NSData <62797465 73>", from.decodeBytes(str("bytes")));
        EXPECT_EQ((NSPoint{1.5, -2}), from.decodePoint(str("point")));
        EXPECT_EQ((NSSize{3, 4}), from.decodeSize(str("size")));
        EXPECT_EQ((NSRect{{1, 2}, {3, 0.1}}), from.decodeRect(str("rect")));
        EXPECT_EQ((NSRange{7, 8}), from.decodeRange(str("range")));
        EXPECT_VALUE("'own'", from.decodeObject(str("$class")));
        EXPECT_TRUE(from.containsValue(str("next")));
        EXPECT_FALSE(from.containsValue(str("missing")));
        EXPECT_VALUE("nil", from.decodeObject(str("missing")));
        EXPECT_EQ(0, from.decodeInt(str("missing")));
        EXPECT_FALSE(from.decodeBool(str("missing")));
        EXPECT_EQ(NSRect{}, from.decodeRect(str("missing")));
        EXPECT_VALUE("nil", from.decodeBytes(str("missing")));
    }
    static void describe(velt::ClassBuilder<Card>& c) {
        c.property("name", &Card::name)
            .property("next", &Card::next)
            .owns(&Card::watcher)
            .method("encodeWithCoder:", &Card::encodeWithCoder)
            .method("initWithCoder:", &Card::initWithCoder);
    }

    id name, next, watcher;
    long number = 0;
    bool marked = false;
};

/// A class that talks to its coder by messages alone, as a compiled program may.
class Note : public NSObject {
    VELT_OBJECT(Note, NSObject)
public:
    void encodeWithCoder(const id& coder) {
        velt::send(coder, "encodeObject:forKey:", text, str("text"));
        velt::send(coder, "encodeInt:forKey:", integer(-5), str("int"));
        velt::send(coder, "encodeInt64:forKey:", integer(INT64_MAX), str("long"));
        velt::send(coder, "encodeBool:forKey:", boolean(true), str("bool"));
        velt::send(coder, "encodeDouble:forKey:", real(2.5), str("double"));
        velt::send(coder, "encodeRect:forKey:", rect(1, 2, 3, 4), str("rect"));
    }
    id initWithCoder(const id& coder) {
        text = velt::send(coder, "decodeObjectForKey:", str("text"));
        EXPECT_VALUE("q -5", velt::send(coder, "decodeIntForKey:", str("int")));
        EXPECT_VALUE("q 9223372036854775807", velt::send(coder, "decodeInt64ForKey:", str("long")));
        EXPECT_VALUE("c 1", velt::send(coder, "decodeBoolForKey:", str("bool")));
        EXPECT_VALUE("d 2.5", velt::send(coder, "decodeDoubleForKey:", str("double")));
        EXPECT_VALUE("{CGRect={CGPoint=dd}{CGSize=dd}} {{1, 2}, {3, 4}}",
                     velt::send(coder, "decodeRectForKey:", str("rect")));
        EXPECT_VALUE("c 1", velt::send(coder, "containsValueForKey:", str("text")));
        EXPECT_RAISES("NSInvalidUnarchiveOperationException: the value under key 'long' is no number of 32 bits",
                      velt::send(coder, "decodeIntForKey:", str("long")));
        EXPECT_RAISES("NSInvalidUnarchiveOperationException: the value under key 'text' is no number",
                      velt::send(coder, "decodeDoubleForKey:", str("text")));
        EXPECT_RAISES("NSInvalidUnarchiveOperationException: the value under key 'text' is no rectangle",
                      velt::send(coder, "decodeRectForKey:", str("text")));
        EXPECT_RAISES("NSInvalidUnarchiveOperationException: the value under key 'int' is no data",
                      velt::send(coder, "decodeBytesForKey:", str("int")));
        EXPECT_RAISES("NSInvalidArgumentException: 'NSKeyedUnarchiver' objects cannot encode",
                      velt::send(coder, "encodeInt:forKey:", integer(1), str("x")));
        return text == nil ? id() : id(this);
    }
    static void describe(velt::ClassBuilder<Note>& c) {
        c.property("text", &Note::text)
            .method("encodeWithCoder:", &Note::encodeWithCoder)
            .method("initWithCoder:", &Note::initWithCoder);
    }
    id text;
};

/// An object that another one stands for when it is read.
class Nickname : public NSObject {
    VELT_OBJECT(Nickname, NSObject)
public:
    void encodeWithCoder(const id& coder) { velt::to<NSCoder>(coder)->encodeObject(str("nick"), str("n")); }
    id initWithCoder(const id& coder) { return velt::to<NSCoder>(coder)->decodeObject(str("n")); }
    static void describe(velt::ClassBuilder<Nickname>& c) {
        c.method("encodeWithCoder:", &Nickname::encodeWithCoder).method("initWithCoder:", &Nickname::initWithCoder);
    }
};

/// A list of objects that each read the next one.
class Link : public NSObject {
    VELT_OBJECT(Link, NSObject)
public:
    void encodeWithCoder(const id& coder) { velt::to<NSCoder>(coder)->encodeObject(next, str("next")); }
    void initWithCoder(const id& coder) { next = velt::to<NSCoder>(coder)->decodeObject(str("next")); }
    static void describe(velt::ClassBuilder<Link>& c) {
        c.property("next", &Link::next)
            .method("encodeWithCoder:", &Link::encodeWithCoder)
            .method("initWithCoder:", &Link::initWithCoder);
    }
    id next;
};

class Plain : public NSObject {
    VELT_OBJECT(Plain, NSObject)
};
class LaterCard : public Card {
    VELT_OBJECT(LaterCard, Card)
};
/// No object of it can be made without a number.
class NumberedCard : public Card {
    VELT_OBJECT(NumberedCard, Card)
public:
    explicit NumberedCard(long itsNumber) { number = itsNumber; }
};
class KeptList : public NSArray {
    VELT_OBJECT(KeptList, NSArray)
};
/// Raises while it is read.
class Refusing : public NSObject {
    VELT_OBJECT(Refusing, NSObject)
public:
    void encodeWithCoder(const id&) {}
    void initWithCoder(const id&) { velt::raise("RefusedException", "not this one"); }
    static void describe(velt::ClassBuilder<Refusing>& c) {
        c.method("encodeWithCoder:", &Refusing::encodeWithCoder).method("initWithCoder:", &Refusing::initWithCoder);
    }
};

velt::Ref<Card> card(const char* name, const id& next = nil) {
    auto made = velt::make<Card>();
    made->name = str(name);
    made->next = next;
    made->number = 42;
    made->marked = true;
    return made;
}

const char* kNotCodable = "NSInvalidArgumentException: 'Plain' objects cannot be archived";

}  // namespace

TEST(ArchivedClasses, CodeThemselvesByKey) {
    const id read = roundTrip(card("first", card("second")));
    ASSERT_TRUE(velt::is<Card>(read));
    const auto* first = velt::as<Card>(read);
    EXPECT_VALUE("'first'", first->name);
    EXPECT_EQ(42, first->number);
    EXPECT_TRUE(first->marked);
    EXPECT_VALUE("'second'", velt::to<Card>(first->next)->name);
    EXPECT_VALUE("nil", velt::to<Card>(first->next)->next);
}

TEST(ArchivedClasses, CodeThemselvesByMessages) {
    const auto note = velt::make<Note>();
    note->text = str("remember");
    EXPECT_VALUE("'remember'", velt::to<Note>(roundTrip(note))->text);
}

TEST(ArchivedClasses, MayReferToEachOtherInCircles) {
    const auto first = card("first"), second = card("second", first);
    first->next = second;
    second->watcher = first;
    const id read = roundTrip(array(first, second));
    auto *a = velt::to<Card>(arrayOf(read)->at(0)), *b = velt::to<Card>(arrayOf(read)->at(1));
    EXPECT_EQ(id(b), a->next);
    EXPECT_EQ(id(a), b->next);
    EXPECT_EQ(id(a), b->watcher);
    first->next = nil;
    a->next = nil;
}

TEST(ArchivedClasses, ReferConditionallyOnlyToWhatIsWritten) {
    const auto watched = card("watched"), watcher = card("watcher");
    watched->watcher = watcher;
    EXPECT_VALUE("nil", velt::to<Card>(roundTrip(watched))->watcher);
    const id both = roundTrip(array(watched, watcher));
    EXPECT_EQ(arrayOf(both)->at(1), velt::to<Card>(arrayOf(both)->at(0))->watcher);
}

TEST(ArchivedClasses, ReferConditionallyToValuesThatAreWrittenToo) {
    for (const id& value : {velt::frozenString("text"), velt::frozenString("$null"), integer(77), integer(LONG_MAX),
                            real(0.5), id(velt::make<NSData>("data"))}) {
        const auto watched = card("watched");
        watched->watcher = value;
        EXPECT_VALUE("nil", velt::to<Card>(roundTrip(watched))->watcher);
        const id both = roundTrip(array(watched, value));
        EXPECT_TRUE(velt::isEqual(value, velt::to<Card>(arrayOf(both)->at(0))->watcher)) << show(value);
    }
}

TEST(ArchivedClasses, MayPutAnotherObjectInTheirPlace) {
    const id nickname = velt::make<Nickname>();
    EXPECT_VALUE("NSMutableArray (nick, nick)", roundTrip(array(nickname, nickname)));
}

TEST(ArchivedClasses, InheritTheirCoding) {
    const auto later = velt::make<LaterCard>();
    later->name = str("x");
    EXPECT_TRUE(velt::is<LaterCard>(roundTrip(later)));
}

TEST(ArchivedClasses, WhoseObjectsNeedArgumentsGiveTheirFirstSuperclassThatCanBeRead) {
    const id read = roundTrip(velt::make<NumberedCard>(3));
    ASSERT_TRUE(velt::is<Card>(read));
    EXPECT_EQ(3, velt::to<Card>(read)->number);
    EXPECT_VALUE("'<'NumberedCard' objects cannot be read>'",
                 unarchived(archiveOf(dictionary(str("$class"), uid(2)), archivedClass("NumberedCard", "NSObject"))));
}

TEST(ArchivedClasses, OfNoCodingAreNamed) {
    EXPECT_RAISES(kNotCodable, NSKeyedArchiver::archive(velt::make<Plain>()));
    EXPECT_RAISES(kNotCodable, NSKeyedArchiver::archive(array(integer(1), dictionary(str("a"), velt::make<Plain>()))));
    EXPECT_RAISES(kNotCodable, NSKeyedArchiver::archive(card("holder", velt::make<Plain>())));
    // A subclass of a collection has its own reasons; what it adds would be lost.
    EXPECT_RAISES("NSInvalidArgumentException: 'KeptList' objects cannot be archived",
                  NSKeyedArchiver::archive(velt::make<KeptList>()));
}

TEST(ArchivedClasses, PassOnWhatTheyRaise) {
    const std::string archive = NSKeyedArchiver::archive(array(velt::make<Refusing>()));
    EXPECT_RAISES("RefusedException: not this one", NSKeyedUnarchiver::unarchive(archive));
}

TEST(ArchivedClasses, ThatAreNotKnownGiveTheirFirstKnownSuperclass) {
    const id content = dictionary(str("$class"), uid(2), str("NS.objects"), array(uid(3)));
    EXPECT_VALUE("NSMutableArray (x)",
                 unarchived(archiveOf(content, archivedClass("ShoppingList", "NSMutableArray", "NSArray", "NSObject"),
                                      str("x"))));
    EXPECT_VALUE("'<'ShoppingList' objects cannot be read>'",
                 unarchived(archiveOf(content, archivedClass("ShoppingList", "NSObject"), str("x"))));
    EXPECT_VALUE("'<'Plain' objects cannot be read>'",
                 unarchived(archiveOf(content, archivedClass("Plain", "NSObject"), str("x"))));
    // Known by name, without the library that would make one.
    EXPECT_VALUE("'<'NSColor' objects cannot be read>'",
                 unarchived(archiveOf(content, archivedClass("NSColor", "NSObject"), str("x"))));
}

TEST(ArchivedClasses, LieWithinEachOtherAsDeepAsTheStackAllows) {
    const auto chain = [](int depth) {
        id first = velt::make<Link>();
        for (int i = 1; i < depth; ++i) {
            auto link = velt::make<Link>();
            link->next = first;
            first = link;
        }
        return first;
    };
    id read = roundTrip(chain(1000));
    int links = 0;
    for (; velt::is<Link>(read); ++links) read = id(velt::as<Link>(read)->next);
    EXPECT_EQ(1000, links);
    if (!velt::test::kKeepsDeepStacks) return;
    EXPECT_EQ("objects lie too deep in each other", damageOf(NSKeyedArchiver::archive(chain(100000))));
}

TEST(Archivers, WriteAndReadPieceByPiece) {
    const auto archiver = velt::make<NSKeyedArchiver>();
    const id list = array(integer(1));
    velt::send(archiver, "encodeObject:forKey:", list, str("list"));
    velt::mutableArrayOf(list)->append(integer(2));  // too late
    archiver->encodeObject(list, str("again"));
    archiver->encodeInteger(7, str("seven"));
    const id bytes = velt::send(archiver, "encodedData");
    EXPECT_RAISES("NSInvalidArgumentException: the archive is finished: nothing can be added",
                  archiver->encodeInteger(8, str("eight")));
    const auto unarchiver = velt::make<NSKeyedUnarchiver>(velt::dataOf(bytes)->characters());
    EXPECT_VALUE("NSMutableArray (1)", unarchiver->decodeObject(str("list")));
    EXPECT_EQ(unarchiver->decodeObject(str("list")), unarchiver->decodeObject(str("again")));
    EXPECT_VALUE("q 7", velt::send(unarchiver, "decodeIntegerForKey:", str("seven")));
    EXPECT_RAISES("NSInvalidUnarchiveOperationException: $top has no root", unarchiver->decodeRoot());
    EXPECT_CAST_FAILURE("'String' expected", unarchiver->decodeObject(integer(1)));
    EXPECT_RAISES("NSInvalidArgumentException: 'NSKeyedArchiver' objects cannot decode",
                  archiver->decodeObject(str("list")));
    EXPECT_RAISES(
        "NSRangeException: 'NSKeyedArchiver' encodeBytes:length:forKey:: index 4 is out of range; the count is 4",
        velt::make<NSKeyedArchiver>()->encodeBytes(velt::make<NSData>("abc").get(), 4, str("x")));
}

TEST(Archivers, AnswerByName) {
    const auto archiver = velt::make<NSKeyedArchiver>();
    const id bytes = velt::send(archiver, "archivedDataWithRootObject:", array(integer(1), str("a")));
    EXPECT_TRUE(velt::dataOf(bytes)->characters().starts_with("bplist00"));
    const auto unarchiver = velt::make<NSKeyedUnarchiver>(velt::dataOf(bytes)->characters());
    EXPECT_VALUE("NSMutableArray (1, a)", velt::send(unarchiver, "unarchiveObjectWithData:", bytes));
    EXPECT_VALUE("nil", velt::send(unarchiver, "unarchiveObjectWithData:", data("junk")));
}
