#include "VELTRuntime/platform/object/key_value.h"

#include "support/values.h"

using namespace velt::test;

namespace {

class Address : public NSObject {
    VELT_OBJECT(Address, NSObject)
public:
    id city, street;
    static void describe(velt::ClassBuilder<Address>& c) {
        c.property("city", &Address::city).property("street", &Address::street);
    }
};

class Person : public NSObject {
    VELT_OBJECT(Person, NSObject)
public:
    id name, home;
    long age = 30;
    bool married = false;
    NSPoint place;
    velt::Ref<Address> work;

    bool isMarried() const { return married; }
    void setMarried(bool now) { married = now; }
    void setSecret(const id& secret) { secret_ = secret; }
    id secret() const { return secret_; }

    static void describe(velt::ClassBuilder<Person>& c) {
        c.property("name", &Person::name)
            .property("home", &Person::home)
            .property("age", &Person::age)
            .property("place", &Person::place)
            .property("work", &Person::work)
            .method("isMarried", &Person::isMarried)
            .method("setMarried:", &Person::setMarried)
            .method("secret", &Person::secret)
            .method("setSecret:", &Person::setSecret);
    }

private:
    id secret_;
};

/// Answers keys that it has no properties for.
class Bag : public NSObject {
    VELT_OBJECT(Bag, NSObject)
public:
    id values = emptyDictionary();
    long size = 7;
    id undefined(const id& key) { return velt::string("no " + velt::utf8(key)); }
    void setUndefined(const id& value, const id& key) { VELT_NSMUTABLEDICTIONARY_INSERT(values, key, value); }
    void setNilValue(const id& key) { VELT_NSMUTABLEDICTIONARY_INSERT(values, key, str("was nil")); }
    static void describe(velt::ClassBuilder<Bag>& c) {
        c.property("size", &Bag::size)
            .property("values", &Bag::values)
            .method("valueForUndefinedKey:", &Bag::undefined)
            .method("setValue:forUndefinedKey:", &Bag::setUndefined)
            .method("setNilValueForKey:", &Bag::setNilValue);
    }
};

velt::Ref<Person> person(std::string_view name, std::string_view city) {
    velt::Ref<Person> made = velt::make<Person>();
    velt::Ref<Address> home = velt::make<Address>();
    home->city = str(city);
    made->name = str(name);
    made->home = home;
    return made;
}

}  // namespace

TEST(KeyPaths, ReachThroughObjects) {
    const id ada = person("Ada", "London");
    EXPECT_VALUE("'London'", velt::valueForKeyPath(ada, "home.city"));
    EXPECT_VALUE("Q 6", velt::valueForKeyPath(ada, "home.city.length"));
    EXPECT_VALUE("'Ada'", velt::valueForKeyPath(ada, "name"));
    velt::setValueForKeyPath(ada, "home.city", str("Paris"));
    EXPECT_VALUE("'Paris'", velt::send(ada, "valueForKeyPath:", str("home.city")));
    velt::send(ada, "setValue:forKeyPath:", str("Rue X"), str("home.street"));
    EXPECT_VALUE("'Rue X'", velt::valueForKeyPath(ada, "home.street"));
}

TEST(KeyPaths, EndInNilWhereNilIsOnTheWay) {
    const id ada = person("Ada", "London");
    EXPECT_VALUE("nil", velt::valueForKeyPath(ada, "work.city.length"));
    EXPECT_VALUE("nil", velt::valueForKeyPath(nil, "work.city"));
    EXPECT_RAISES("nothing", velt::setValueForKeyPath(ada, "work.city", str("x")));
    EXPECT_VALUE("nil", velt::valueForKeyPath(ada, "work"));
}

TEST(KeyPaths, ReachThroughDictionaries) {
    const id book = emptyDictionary();
    velt::setValueForKeyPath(book, "ada", person("Ada", "London"));
    velt::setValueForKeyPath(book, "ada.home.city", str("Bath"));
    EXPECT_VALUE("'Bath'", velt::valueForKeyPath(book, "ada.home.city"));
    EXPECT_VALUE("nil", velt::valueForKeyPath(book, "bob.home.city"));
    velt::setValueForKeyPath(book, "count", str("an entry"));
    EXPECT_VALUE("'an entry'", velt::valueForKey(book, "count"));
    EXPECT_VALUE("Q 2", velt::valueForKey(book, "@count"));
    velt::setValueForKey(book, "ada", nil);
    EXPECT_VALUE("Q 1", velt::valueForKey(book, "@count"));
    EXPECT_RAISES("NSUnknownKeyException: 'NSDictionary' has no value for key 'x'",
                  velt::setValueForKey(velt::make<NSDictionary>(), "x", str("y")));
}

TEST(KeyPaths, SpreadOverArrays) {
    const id people = array(person("Ada", "London"), person("Bob", "Rome"));
    EXPECT_VALUE("NSMutableArray (Ada, Bob)", velt::valueForKey(people, "name"));
    EXPECT_VALUE("NSMutableArray (London, Rome)", velt::valueForKeyPath(people, "home.city"));
    EXPECT_VALUE("NSMutableArray ()", velt::valueForKeyPath(people, "work.city"));
    EXPECT_VALUE("Q 2", velt::valueForKey(people, "@count"));
    velt::setValueForKeyPath(people, "home.city", str("Oslo"));
    EXPECT_VALUE("NSMutableArray (Oslo, Oslo)", velt::valueForKeyPath(people, "home.city"));
    EXPECT_RAISES("NSUnknownKeyException: 'Person' has no value for key 'weight'", velt::valueForKey(people, "weight"));
}

TEST(KeyPaths, FailByClassAndKey) {
    const id ada = person("Ada", "London");
    EXPECT_RAISES("NSUnknownKeyException: 'Address' has no value for key 'zip'",
                  velt::valueForKeyPath(ada, "home.zip"));
    EXPECT_RAISES("NSUnknownKeyException: 'Address' has no value for key 'zip'",
                  velt::setValueForKeyPath(ada, "home.zip", nil));
    EXPECT_RAISES("NSUnknownKeyException: 'Address' has no value for key ''", velt::valueForKeyPath(ada, "home."));
    EXPECT_RAISES("NSUnknownKeyException: 'Person' has no value for key ''", velt::valueForKeyPath(ada, ""));
    EXPECT_RAISES("NSUnknownKeyException: 'Person' has no value for key '@count'", velt::valueForKey(ada, "@count"));
    EXPECT_RAISES("NSInvalidArgumentException: a value of 'NSNumber' is no key",
                  velt::send(ada, "valueForKey:", integer(1)));
    EXPECT_RAISES("NSInvalidArgumentException: nil is no key", velt::send(ada, "setValue:forKeyPath:", nil, nil));
}

TEST(Keys, ReachTruthValuesByTheirQuestion) {
    const id ada = person("Ada", "London");
    EXPECT_VALUE("c 0", velt::valueForKey(ada, "married"));
    velt::setValueForKey(ada, "married", str("yes"));
    EXPECT_VALUE("c 1", velt::valueForKey(ada, "married"));
}

TEST(Keys, ReachGettersAndSettersWithoutAProperty) {
    const id ada = person("Ada", "London");
    velt::setValueForKey(ada, "secret", str("x"));
    EXPECT_VALUE("'x'", velt::valueForKey(ada, "secret"));
    EXPECT_FALSE(velt::hasValueForKey(ada, "setSecret:"));
    EXPECT_TRUE(velt::hasValueForKey(ada, "secret"));
    EXPECT_FALSE(velt::hasValueForKey(nil, "secret"));
}

TEST(Keys, WithAColonNameNoMethods) {
    const id ada = person("Ada", "London");
    EXPECT_RAISES("NSUnknownKeyException: 'Person' has no value for key 'value:forKey'",
                  velt::setValueForKey(ada, "value:forKey", str("name")));
    EXPECT_FALSE(velt::canSetMemberForKey(ada, "value:forKey"));
    EXPECT_TRUE(velt::isValidForKey(ada, "value:forKey", str("name")));
    EXPECT_TRUE(velt::canSetMemberForKey(ada, "secret"));
    EXPECT_TRUE(velt::canSetMemberForKey(ada, "name"));
    EXPECT_FALSE(velt::canSetMemberForKey(nil, "name"));
}

TEST(Keys, DoNotTakeNilForNumbersAndStructures) {
    const id ada = person("Ada", "London");
    EXPECT_RAISES("NSInvalidArgumentException: 'Person' cannot take nil for key 'age'",
                  velt::setValueForKey(ada, "age", nil));
    EXPECT_RAISES("NSInvalidArgumentException: 'Person' cannot take nil for key 'place'",
                  velt::setValueForKey(ada, "place", nil));
    EXPECT_VALUE("q 30", velt::valueForKey(ada, "age"));
    velt::setValueForKey(ada, "name", nil);
    EXPECT_VALUE("nil", velt::valueForKey(ada, "name"));
    velt::setValueForKey(ada, "work", nil);
    EXPECT_CAST_FAILURE("'Address' expected", velt::setValueForKey(ada, "work", str("London")));
}

TEST(Keys, ThatAreUndefinedMayBeAnsweredByTheClass) {
    const velt::Ref<Bag> bag = velt::make<Bag>();
    EXPECT_VALUE("'no such'", velt::valueForKey(bag, "such"));
    velt::setValueForKey(bag, "such", integer(3));
    EXPECT_VALUE("NSMutableDictionary {such = 3}", bag->values);
    velt::setValueForKey(bag, "size", nil);
    EXPECT_VALUE("'was nil'", velt::valueForKeyPath(bag, "values.size"));
    EXPECT_EQ(7, bag->size);
}

TEST(Keys, AreReadAndSetManyAtOnce) {
    const id ada = person("Ada", "London");
    EXPECT_VALUE("NSMutableDictionary {name = Ada; age = 30}",
                 velt::send(ada, "dictionaryWithValuesForKeys:", array(str("name"), str("age"), str("work"))));
    const id changes = emptyDictionary();
    VELT_NSMUTABLEDICTIONARY_INSERT(changes, str("name"), str("Eve"));
    VELT_NSMUTABLEDICTIONARY_INSERT(changes, str("age"), str("41"));
    velt::send(ada, "setValuesForKeysWithDictionary:", changes);
    EXPECT_VALUE("'Eve'", velt::valueForKey(ada, "name"));
    EXPECT_VALUE("q 41", velt::valueForKey(ada, "age"));
    EXPECT_VALUE("NSMutableDictionary {}", velt::send(ada, "dictionaryWithValuesForKeys:", nil));
}

namespace {
/// Empties the collection that its keys are taken from.
class Emptying : public NSObject {
    VELT_OBJECT(Emptying, NSObject)
public:
    id keys = array(), values = emptyDictionary();
    id undefined(const id& key) {
        VELT_NSMUTABLEARRAY_REMOVEALL(keys);
        return key;
    }
    void setUndefined(const id& value, const id& key) {
        VELT_NSMUTABLEDICTIONARY_REMOVEALL(values);
        told += velt::utf8(key) + "=" + velt::utf8(value) + " ";
    }
    static void describe(velt::ClassBuilder<Emptying>& c) {
        c.owns(&Emptying::keys)
            .owns(&Emptying::values)
            .method("valueForUndefinedKey:", &Emptying::undefined)
            .method("setValue:forUndefinedKey:", &Emptying::setUndefined);
    }
    std::string told;
};
}  // namespace

TEST(Keys, AreReadAndSetAsTheyWereWhenThatChangesTheCollection) {
    const velt::Ref<Emptying> emptying = velt::make<Emptying>();
    for (const char* key : {"a", "b", "c"}) {
        VELT_NSMUTABLEARRAY_APPEND(emptying->keys, str(key));
        VELT_NSMUTABLEDICTIONARY_INSERT(emptying->values, str(key), str(key));
    }
    EXPECT_VALUE("NSMutableDictionary {a = a; b = b; c = c}",
                 velt::send(emptying, "dictionaryWithValuesForKeys:", emptying->keys));
    velt::send(emptying, "setValuesForKeysWithDictionary:", emptying->values);
    EXPECT_EQ("a=a b=b c=c ", emptying->told);
}

namespace {
/// Takes positive numbers only.
class Checked : public NSObject {
    VELT_OBJECT(Checked, NSObject)
public:
    id amount, next;
    static void describe(velt::ClassBuilder<Checked>& c) {
        c.property("amount", &Checked::amount)
            .property("next", &Checked::next)
            .method("validateAmount:error:", [](const id&, const id* a) { return VELT_GREATER(a[0], integer(0)); });
    }
};
}  // namespace

TEST(Keys, AreValidWhenTheClassSaysSo) {
    const velt::Ref<Checked> checked = velt::make<Checked>();
    EXPECT_VALUE("c 1", velt::send(checked, "validateValue:forKey:error:", integer(1), str("amount"), nil));
    EXPECT_VALUE("c 0", velt::send(checked, "validateValue:forKey:error:", integer(0), str("amount"), nil));
    EXPECT_VALUE("c 1", velt::send(checked, "validateValue:forKey:error:", integer(0), str("next"), nil));
    EXPECT_VALUE("c 1", velt::send(checked, "validateValue:forKeyPath:error:", integer(0), str("next.amount"), nil));
    checked->next = velt::make<Checked>();
    EXPECT_VALUE("c 0", velt::send(checked, "validateValue:forKeyPath:error:", integer(0), str("next.amount"), nil));
    EXPECT_RAISES("NSInvalidArgumentException: nil is no key",
                  velt::send(checked, "validateValue:forKey:error:", integer(1), nil, nil));
}
