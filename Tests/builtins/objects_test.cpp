#include "support/observers.h"

using namespace velt::test;

namespace {

class Greeter : public Model {
    VELT_OBJECT(Greeter, Model)
public:
    id greet(const id& name) { return VELT_CONCAT(str("hello "), name); }
    id greetBoth(const id& first, const id& second) { return VELT_CONCAT(greet(first), second); }
    id hello() { return str("hello"); }
    id init() {
        value = str("initialised");
        return id(this);
    }
    static void describe(velt::ClassBuilder<Greeter>& c) {
        c.method("greet:", &Greeter::greet)
            .method("greet:and:", &Greeter::greetBoth)
            .method("hello", &Greeter::hello)
            .method("init", &Greeter::init);
    }
};

}  // namespace

TEST(Property, IsReadAndSetByKeyPath) {
    const velt::Ref<Greeter> greeter = velt::make<Greeter>();
    greeter->next = velt::make<Greeter>();
    EXPECT_VALUE("nil", VELT_PROPERTY(greeter, str("next.value"), integer(5)));
    EXPECT_VALUE("q 5", VELT_PROPERTY(greeter, str("next.value")));
    EXPECT_VALUE("nil", VELT_PROPERTY(greeter, str("next.next.value")));
    EXPECT_VALUE("nil", VELT_PROPERTY(nil, str("next")));
    const id book = emptyDictionary();
    VELT_PROPERTY(book, integer(5), str("five"));
    EXPECT_VALUE("'five'", VELT_PROPERTY(book, integer(5)));
    EXPECT_RAISES("NSUnknownKeyException: 'Greeter' has no value for key 'weight'",
                  VELT_PROPERTY(greeter, str("weight")));
    EXPECT_RAISES("NSUnknownKeyException: 'Greeter' has no value for key 'label'",
                  VELT_PROPERTY(greeter, str("label"), nil));
}

TEST(ValueForKeyPath, TakesThePathAsItIs) {
    const velt::Ref<Greeter> greeter = velt::make<Greeter>();
    greeter->number = 7;
    EXPECT_VALUE("q 7", VELT_NSOBJECT_VALUEFORKEYPATH(greeter, str("number")));
    EXPECT_RAISES("NSInvalidArgumentException: a value of 'NSNumber' is no key",
                  VELT_NSOBJECT_VALUEFORKEYPATH(greeter, integer(5)));
    EXPECT_RAISES("NSInvalidArgumentException: nil is no key", VELT_NSOBJECT_VALUEFORKEYPATH(greeter, nil));
    EXPECT_VALUE("nil", VELT_NSOBJECT_VALUEFORKEYPATH(nil, integer(5)));
}

TEST(SetValueForKey, TakesTheValueBeforeTheKey) {
    const velt::Ref<Greeter> greeter = velt::make<Greeter>();
    EXPECT_VALUE("nil", VELT_NSOBJECT_SETVALUEFORKEY(greeter, str("12"), str("number")));
    EXPECT_EQ(12, greeter->number);
    EXPECT_RAISES("NSUnknownKeyException: 'Greeter' has no value for key 'next.value'",
                  VELT_NSOBJECT_SETVALUEFORKEY(greeter, str("x"), str("next.value")));
    EXPECT_RAISES("NSInvalidArgumentException: a value of 'NSNumber' is no key",
                  VELT_NSOBJECT_SETVALUEFORKEY(greeter, str("x"), integer(1)));
    EXPECT_RAISES("NSInvalidArgumentException: 'Greeter' cannot take nil for key 'number'",
                  VELT_NSOBJECT_SETVALUEFORKEY(greeter, nil, str("number")));
}

TEST(Init, IsSentToTheObject) {
    const velt::Ref<Greeter> greeter = velt::make<Greeter>();
    EXPECT_TRUE(VELT_NSOBJECT_INIT(greeter) == id(greeter));
    EXPECT_VALUE("'initialised'", greeter->value);
    EXPECT_VALUE("q 5", VELT_NSOBJECT_INIT(integer(5)));
    EXPECT_VALUE("nil", VELT_NSOBJECT_INIT(nil));
}

TEST(ClassTests, TakeNamesAndClasses) {
    const id greeter = velt::make<Greeter>();
    EXPECT_VALUE("c 1", VELT_NSOBJECT_ISKINDOFCLASS(greeter, str("Greeter")));
    EXPECT_VALUE("c 1", VELT_NSOBJECT_ISKINDOFCLASS(greeter, str("NSObject")));
    EXPECT_VALUE("c 0", VELT_NSOBJECT_ISKINDOFCLASS(greeter, str("NSArray")));
    EXPECT_VALUE("c 0", VELT_NSOBJECT_ISKINDOFCLASS(greeter, str("NoSuchClass")));
    EXPECT_VALUE("c 0", VELT_NSOBJECT_ISKINDOFCLASS(nil, str("NSObject")));
    EXPECT_VALUE("c 1", VELT_NSOBJECT_ISKINDOFCLASS(integer(1), str("NSNumber")));
    EXPECT_VALUE("c 1", VELT_NSOBJECT_ISKINDOFCLASS(greeter, velt::send(velt::make<Model>(), "class")));
    EXPECT_VALUE("c 0", VELT_NSOBJECT_ISMEMBEROFCLASS(greeter, str("Model")));
    EXPECT_VALUE("c 1", VELT_NSOBJECT_ISMEMBEROFCLASS(greeter, str("Greeter")));
    EXPECT_VALUE("c 0", VELT_NSOBJECT_ISMEMBEROFCLASS(greeter, str("NoSuchClass")));
    EXPECT_VALUE("c 0", VELT_NSOBJECT_ISMEMBEROFCLASS(nil, str("NoSuchClass")));
}

TEST(RespondsToSelector, AsksTheObjectOrItsClass) {
    const id greeter = velt::make<Greeter>();
    EXPECT_VALUE("c 1", VELT_NSOBJECT_RESPONDSTOSELECTOR(greeter, str("greet:")));
    EXPECT_VALUE("c 0", VELT_NSOBJECT_RESPONDSTOSELECTOR(greeter, str("greet")));
    EXPECT_VALUE("c 0", VELT_NSOBJECT_RESPONDSTOSELECTOR(nil, str("greet:")));
    EXPECT_VALUE("c 1", VELT_NSOBJECT_INSTANCESRESPONDSTOSELECTOR(str("Greeter"), str("greet:and:")));
    EXPECT_VALUE("c 1", VELT_NSOBJECT_INSTANCESRESPONDSTOSELECTOR(velt::send(greeter, "class"), str("hello")));
    EXPECT_VALUE("c 0", VELT_NSOBJECT_INSTANCESRESPONDSTOSELECTOR(str("Model"), str("hello")));
    EXPECT_VALUE("c 0", VELT_NSOBJECT_INSTANCESRESPONDSTOSELECTOR(str("NoSuchClass"), str("hello")));
    EXPECT_VALUE("c 0", VELT_NSOBJECT_INSTANCESRESPONDSTOSELECTOR(nil, str("hello")));
}

TEST(InstancesRespondToSelector, KnowsClassesOfWhichThereIsNoObjectYet) {
    const std::pair<const char*, const char*> messages[] = {
        {"VLTask", "setSName:"},       {"NSTask", "launch"},   {"NSDate", "timeIntervalSinceReferenceDate"},
        {"NSArray", "objectAtIndex:"}, {"NSString", "length"}, {"NSMutableDictionary", "setObject:forKey:"},
    };
    for (const auto& [cls, selector] : messages) {
        EXPECT_VALUE("c 1", VELT_NSOBJECT_INSTANCESRESPONDSTOSELECTOR(str(cls), str(selector))) << cls;
    }
}

TEST(PerformSelector, SendsWithNoOneOrTwoArguments) {
    const id greeter = velt::make<Greeter>();
    EXPECT_VALUE("'hello'", VELT_NSOBJECT_PERFORMSELECTOR0(greeter, str("hello")));
    EXPECT_VALUE("'hello Ada'", VELT_NSOBJECT_PERFORMSELECTOR1(greeter, str("greet:"), str("Ada")));
    EXPECT_VALUE("'hello AdaBob'", VELT_NSOBJECT_PERFORMSELECTOR2(greeter, str("greet:and:"), str("Ada"), str("Bob")));
    EXPECT_VALUE("nil", VELT_NSOBJECT_PERFORMSELECTOR1(nil, str("greet:"), str("Ada")));
    EXPECT_RAISES("NSInvalidArgumentException: 'Greeter' does not understand 'fly'",
                  VELT_NSOBJECT_PERFORMSELECTOR0(greeter, str("fly")));
    EXPECT_RAISES("NSInvalidArgumentException: 'Greeter' does not understand '5'",
                  VELT_NSOBJECT_PERFORMSELECTOR0(greeter, integer(5)));
    EXPECT_RAISES("NSInvalidArgumentException: 'greet:' of 'Greeter' takes 1 arguments, not 0",
                  VELT_NSOBJECT_PERFORMSELECTOR0(greeter, str("greet:")));
}

TEST(Bind, CarriesValuesUntilUnbind) {
    const velt::Ref<Greeter> shown = velt::make<Greeter>(), source = velt::make<Greeter>();
    const id options = emptyDictionary();
    VELT_NSMUTABLEDICTIONARY_INSERT(options, str("NSNullPlaceholder"), str("nobody"));
    EXPECT_VALUE("nil", VELT_NSOBJECT_BIND(shown, str("value"), source, str("title"), options));
    EXPECT_VALUE("'nobody'", shown->value);
    source->setTitle(str("Ada"));
    EXPECT_VALUE("'Ada'", shown->value);
    VELT_PROPERTY(shown, str("value"), str("Bob"));
    EXPECT_VALUE("'Bob'", source->title());
    EXPECT_VALUE("nil", VELT_NSOBJECT_UNBIND(shown, str("value")));
    source->setTitle(str("Eve"));
    EXPECT_VALUE("'Bob'", shown->value);
    EXPECT_RAISES("nothing", VELT_NSOBJECT_BIND(shown, str("value"), source, str("title"), nil));
    EXPECT_CAST_FAILURE("'NSMutableDictionary' expected",
                        VELT_NSOBJECT_BIND(shown, str("value"), source, str("title"), array()));
    EXPECT_VALUE("nil", VELT_NSOBJECT_UNBIND(nil, str("value")));
}
