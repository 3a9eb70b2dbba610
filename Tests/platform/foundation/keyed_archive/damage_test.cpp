#include "support/archives.h"
#include "support/generated.h"

#include "VELTRuntime/platform/foundation/attributed_string.h"
#include "VELTRuntime/platform/foundation/date.h"
#include "VELTRuntime/platform/foundation/keyed_archive/archive_damage.h"
#include "VELTRuntime/platform/foundation/null.h"
#include "VELTRuntime/platform/foundation/url.h"

using namespace velt::test;

namespace {

const id& arrayClass() {
    static const id cls = archivedClass("NSMutableArray", "NSArray", "NSObject");
    return cls;
}
id listOf(const id& references) { return dictionary(str("$class"), uid(2), str("NS.objects"), references); }
/// The damage of an archive whose root is of a class with some content.
template <class... Content> std::string damageIn(const char* className, const Content&... content) {
    return damageOf(archiveOf(dictionary(str("$class"), uid(2), content...), archivedClass(className, "NSObject"),
                              str("text"), integer(3), dictionary(str("$class"), uid(6), str("NS.objects"), array()),
                              arrayClass()));
}

/// One of everything that an archive can hold.
std::string sample() {
    const auto text = velt::make<NSMutableAttributedString>(u"some text");
    text->setAttributes(dictionary(str("a"), str("b")), {0, 4});
    const id list = array(integer(1), natural(2), real(0.5), single(0.5F), boolean(true), shortNumber(9),
                          str("changes"), velt::frozenString("stays"), str("\xE2\x82\xAC"), point(1, 2),
                          rect(1, 2, 3, 4), range(5, 6), data("bytes"), mutableData("more"), velt::make<NSDate>(1e8),
                          NSNull::null(), NSURL::withString("http://example.org/"), text, frozenArray(integer(1)),
                          dictionary(str("key"), integer(1), integer(2), str("two")));
    return NSKeyedArchiver::archive(list);
}

}  // namespace

TEST(DamagedArchives, AreNoArchivesAtAll) {
    EXPECT_EQ("the archive is no dictionary", damageOf(binaryListOf(array(integer(1)))));
    EXPECT_EQ("$top is no dictionary", damageOf(binaryListOf(dictionary())));
    EXPECT_EQ("$top is no dictionary",
              damageOf(binaryListOf(dictionary(str("$top"), uid(1), str("$objects"), array()))));
    const id top = dictionary(str("root"), uid(1));
    EXPECT_EQ("$objects is no list of objects", damageOf(binaryListOf(dictionary(str("$top"), top))));
    EXPECT_EQ("$objects is no list of objects",
              damageOf(binaryListOf(dictionary(str("$top"), top, str("$objects"), array()))));
    const id objects = array(str("$null"), str("x"));
    EXPECT_EQ("$archiver is no name",
              damageOf(binaryListOf(dictionary(str("$archiver"), uid(1), str("$top"), top, str("$objects"), objects))));
    EXPECT_EQ("$version is no number", damageOf(binaryListOf(dictionary(str("$version"), str("1"), str("$top"), top,
                                                                        str("$objects"), objects))));
    EXPECT_NE("nothing", damageOf(""));
    EXPECT_NE("nothing", damageOf("bplist00"));
}

TEST(DamagedArchives, ReferToWhatIsNotThere) {
    EXPECT_EQ("there is no object 1", damageOf(archiveOf()));
    EXPECT_EQ("there is no object 7", damageOf(archiveOf(listOf(array(uid(7))), arrayClass())));
    EXPECT_EQ("there is no object 4294967295", damageOf(archiveOf(listOf(array(uid(UINT32_MAX))), arrayClass())));
    EXPECT_EQ("there is no object 9", damageOf(archiveOf(dictionary(str("$class"), uid(9)))));
    EXPECT_EQ("an object has no class", damageOf(archiveOf(dictionary(str("NS.objects"), array()))));
    EXPECT_EQ("an object has no class", damageOf(archiveOf(dictionary(str("$class"), str("NSArray")))));
    EXPECT_EQ("$top has no root",
              damageOf(binaryListOf(dictionary(str("$top"), dictionary(), str("$objects"), array(str("$null"))))));
}

TEST(DamagedArchives, HaveClassesThatAreNone) {
    const id object = dictionary(str("$class"), uid(2));
    EXPECT_EQ("a class is no dictionary", damageOf(archiveOf(object, str("NSArray"))));
    EXPECT_EQ("a class is no dictionary", damageOf(archiveOf(dictionary(str("$class"), uid(0)))));
    EXPECT_EQ("a class has no name", damageOf(archiveOf(object, dictionary(str("$classes"), array(str("NSArray"))))));
    EXPECT_EQ("a class has no name", damageOf(archiveOf(dictionary(str("$class"), uid(1)))));
    EXPECT_EQ("a class has no name", damageOf(archiveOf(object, dictionary(str("$classname"), uid(2)))));
    EXPECT_EQ("$classes is no list",
              damageOf(archiveOf(object, dictionary(str("$classname"), str("X"), str("$classes"), str("NSArray")))));
    EXPECT_EQ("a class has no name", damageOf(archiveOf(object, dictionary(str("$classname"), str("X"), str("$classes"),
                                                                           array(str("Y"), integer(1))))));
}

TEST(DamagedArchives, HoldOtherKindsThanTheyShould) {
    EXPECT_EQ("a 'NSMutableArray' stands in place of an object", damageOf(archiveOf(array())));
    EXPECT_EQ("a 'PropertyListUid' stands in place of an object", damageOf(archiveOf(uid(1))));
    EXPECT_EQ("'NS.objects' is no list", damageIn("NSArray", str("NS.objects"), str("x")));
    EXPECT_EQ("a collection holds nil", damageIn("NSArray", str("NS.objects"), array(uid(0))));
    EXPECT_EQ("keys and values do not pair",
              damageIn("NSDictionary", str("NS.keys"), array(uid(3)), str("NS.objects"), array()));
    EXPECT_EQ("keys and values do not pair", damageIn("NSDictionary", str("NS.keys"), array(uid(3))));
    EXPECT_EQ("a collection holds nil",
              damageIn("NSDictionary", str("NS.keys"), array(uid(3)), str("NS.objects"), array(uid(0))));
    EXPECT_EQ("a string has no text", damageIn("NSMutableString"));
    EXPECT_EQ("a string has no text", damageIn("NSMutableString", str("NS.string"), integer(1)));
    EXPECT_EQ("the bytes of a string are no UTF-8", damageIn("NSString", str("NS.bytes"), data("\xFF")));
    EXPECT_EQ("data has no bytes", damageIn("NSMutableData", str("NS.data"), str("x")));
    EXPECT_EQ("a date has no time", damageIn("NSDate", str("NS.time"), str("x")));
    EXPECT_EQ("a URL has no text", damageIn("NSURL", str("NS.relative"), integer(1)));
    EXPECT_EQ("a URL has no text", damageIn("NSURL", str("NS.base"), uid(3), str("NS.relative"), uid(3)));
    EXPECT_EQ("'a b' is no URL", damageIn("NSURL", str("NS.relative"), str("a b")));
    EXPECT_EQ("a number has no value", damageIn("NSNumber", str("NS.intval"), str("1")));
    EXPECT_EQ("a number has no value", damageIn("NSNumber"));
    EXPECT_EQ("a structure has no value", damageIn("NSValue", str("NS.pointval"), str("{1, }")));
    EXPECT_EQ("a structure has no value", damageIn("NSValue", str("NS.sizeval"), str("{1, 2}x")));
    EXPECT_EQ("a structure has no value", damageIn("NSValue", str("NS.rectval"), str("{1, 2}")));
    EXPECT_EQ("a range has no value", damageIn("NSValue", str("NS.rangeval.location"), integer(1)));
}

TEST(DamagedArchives, HaveRunsThatDoNotFit) {
    const char* misfit = "the runs of an attributed string do not fit its text";
    const char* damaged = "the runs of an attributed string are damaged";
    const auto damage = [](std::string_view runs) {
        return damageOf(
            archiveOf(dictionary(str("$class"), uid(2), str("NSString"), uid(3), str("NSAttributes"), uid(4),
                                 str("NSAttributeInfo"), data(runs)),
                      archivedClass("NSAttributedString", "NSObject"), str("text"),
                      dictionary(str("$class"), uid(6), str("NS.objects"), array(uid(5))),
                      dictionary(str("$class"), uid(7), str("NS.keys"), array(), str("NS.objects"), array()),
                      arrayClass(), archivedClass("NSDictionary", "NSObject")));
    };
    EXPECT_EQ("nothing", damage(std::string_view("\4\0", 2)));
    EXPECT_EQ("nothing", damage(std::string_view("\1\0\3\0", 4)));
    EXPECT_EQ("nothing", damage(std::string_view("\x84\0\0", 3)));
    EXPECT_EQ(misfit, damage(std::string_view("\5\0", 2)));
    EXPECT_EQ(misfit, damage(std::string_view("\3\0", 2)));
    EXPECT_EQ(misfit, damage(std::string_view("\4\1", 2)));
    EXPECT_EQ(misfit, damage(""));
    EXPECT_EQ(damaged, damage("\4"));
    EXPECT_EQ(damaged, damage("\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x01"));
    EXPECT_EQ("the attributes of a text are no dictionary",
              damageIn("NSAttributedString", str("NSString"), uid(3), str("NSAttributes"), uid(4)));
    EXPECT_EQ(damaged, damageIn("NSAttributedString", str("NSString"), uid(3), str("NSAttributes"), uid(5)));
    EXPECT_EQ("an attributed string has no text", damageIn("NSAttributedString"));
}

TEST(DamagedArchives, HaveCirclesWhereNoneCanBe) {
    EXPECT_EQ("object 1 cannot be a part of itself",
              damageIn("NSURL", str("NS.base"), uid(1), str("NS.relative"), uid(3)));
    EXPECT_EQ("object 1 cannot be a part of itself", damageIn("NSMutableString", str("NS.string"), uid(1)));
    EXPECT_EQ("object 1 cannot be a part of itself", damageIn("NSMutableData", str("NS.data"), uid(1)));
    // A dictionary as its own key, alone and within a list.
    EXPECT_EQ("object 1 has a key that holds too much",
              damageIn("NSMutableDictionary", str("NS.keys"), array(uid(1)), str("NS.objects"), array(uid(3))));
    EXPECT_EQ("object 1 has a key that holds too much",
              damageOf(archiveOf(
                  dictionary(str("$class"), uid(2), str("NS.keys"), array(uid(3)), str("NS.objects"), array(uid(3))),
                  archivedClass("NSDictionary", "NSObject"),
                  dictionary(str("$class"), uid(4), str("NS.objects"), array(uid(1))), arrayClass())));
}

TEST(DamagedArchives, HaveKeysThatTakeForeverToCompare) {
    // Each list holds the next one twice: few objects, but 2^40 to look at.
    const auto objects = velt::make<NSMutableArray>();
    objects->append(str("$null"));
    objects->append(dictionary(str("$class"), uid(2), str("NS.keys"), array(uid(4)), str("NS.objects"), array(uid(4))));
    objects->append(archivedClass("NSDictionary", "NSObject"));
    objects->append(arrayClass());
    for (std::uint32_t i = 4; i < 44; ++i) {
        objects->append(dictionary(str("$class"), uid(3), str("NS.objects"), array(uid(i + 1), uid(i + 1))));
    }
    objects->append(str("end"));
    EXPECT_EQ(
        "object 1 has a key that holds too much",
        damageOf(binaryListOf(dictionary(str("$top"), dictionary(str("root"), uid(1)), str("$objects"), objects))));
}

TEST(DamagedArchives, DoNotGrowWithoutEnd) {
    // Many small objects that share one long list, as no writer shares it.
    const auto list = velt::make<NSMutableArray>(), objects = velt::make<NSMutableArray>();
    for (int i = 0; i < 20000; ++i) list->append(uid(3));
    objects->append(str("$null"));
    const auto all = velt::make<NSMutableArray>();
    objects->append(dictionary(str("$class"), uid(2), str("NS.objects"), all));
    objects->append(arrayClass());
    objects->append(str("x"));
    const id shared = dictionary(str("$class"), uid(2), str("NS.objects"), list);
    for (std::uint32_t i = 4; i < 2000; ++i) {
        objects->append(shared);
        all->append(uid(i));
    }
    const std::string archive =
        binaryListOf(dictionary(str("$top"), dictionary(str("root"), uid(1)), str("$objects"), objects));
    EXPECT_EQ("the archive would become far larger than it is", damageOf(archive));
}

TEST(DamagedArchives, HaveNumbersThatDoNotFitTheirTypes) {
    const auto damage = [](const id& number, const id& types) {
        const id list = archiveList(number);
        velt::mutableDictionaryOf(list)->setObject(types, str("VELT.numberTypes"));
        return show(unarchived(binaryListOf(list)));
    };
    EXPECT_EQ("s 5", damage(integer(5), dictionary(str("s"), array(integer(1)))));
    EXPECT_EQ("f 0.5", damage(real(0.5), dictionary(str("f"), array(integer(1)))));
    EXPECT_EQ("'text'", damage(str("text"), dictionary(str("s"), array(integer(1)))));
    const char* misfit = "'<a number does not fit its type>'";
    EXPECT_EQ(misfit, damage(integer(70000), dictionary(str("s"), array(integer(1)))));
    EXPECT_EQ(misfit, damage(integer(300), dictionary(str("c"), array(integer(1)))));
    EXPECT_EQ(misfit, damage(integer(INT64_MAX), dictionary(str("i"), array(integer(1)))));
    EXPECT_EQ(misfit, damage(integer(-1), dictionary(str("Q"), array(integer(1)))));
    EXPECT_EQ(misfit, damage(real(1.5), dictionary(str("Q"), array(integer(1)))));
    EXPECT_EQ(misfit, damage(natural(UINT64_MAX), dictionary(str("q"), array(integer(1)))));
    EXPECT_EQ(misfit, damage(integer(1), dictionary(str("x"), array(integer(1)))));
    const char* damaged = "'<VELT.numberTypes is damaged>'";
    EXPECT_EQ(damaged, damage(integer(1), dictionary(str("s"), array(integer(2)))));
    EXPECT_EQ(damaged, damage(integer(1), dictionary(str("s"), array(integer(-1)))));
    EXPECT_EQ(damaged, damage(integer(1), dictionary(str("s"), array(str("1")))));
    EXPECT_EQ(damaged, damage(integer(1), dictionary(str("s"), integer(1))));
    EXPECT_EQ(damaged, damage(integer(1), dictionary(str("short"), array(integer(1)))));
    EXPECT_EQ("'<VELT.numberTypes is no dictionary>'", damage(integer(1), array()));
}

TEST(DamagedArchives, CutShortAnywhereAreFailures) {
    const std::string whole = sample();
    ASSERT_EQ("nothing", damageOf(whole));
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_NE("nothing", damageOf(std::string_view(whole).substr(0, length))) << length;
    }
}

TEST(DamagedArchives, WithAnyByteChangedAreReadOrRefused) {
    const std::string whole = sample();
    int refused = 0, read = 0;
    for (std::size_t at = 0; at < whole.size(); ++at) {
        for (const int change : {0x01, 0x10, 0x80, 0xFF}) {
            std::string changed = whole;
            changed[at] = static_cast<char>(changed[at] ^ change);
            const id root = unarchived(changed);
            (velt::isString(root) ? refused : read) += 1;
            // What was read is whole: it can be shown and written again.
            if (!root.isNil()) {
                EXPECT_NE("", velt::utf8(velt::description(root)));
            }
        }
    }
    EXPECT_GT(refused, 100);
    EXPECT_GT(read, 100);
}

class GeneratedDamage : public Generated {};

TEST_F(GeneratedDamage, InSeveralPlacesIsReadOrRefused) {
    const std::string whole = sample();
    for (int i = 0; i < iterations(5000); ++i) {
        std::string changed = whole;
        for (std::size_t changes = 1 + below(8); changes > 0; --changes) {
            changed[below(changed.size())] = static_cast<char>(bits());
        }
        const id root = unarchived(changed);
        if (!root.isNil()) {
            ASSERT_NE("", NSKeyedArchiver::archive(root));
        }
    }
}
