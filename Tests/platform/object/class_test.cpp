#include "support/values.h"

using namespace velt::test;

namespace {

/// Describes itself by something that need not be a text.
class Wordless final : public NSObject {
public:
    explicit Wordless(const id& answer) : answer_(answer) {}
    id description() const override { return answer_; }

private:
    id answer_;
};

class Counter : public NSObject {
    VELT_OBJECT(Counter, NSObject)
public:
    id add(const id& amount) {
        count = VELT_ADD(count, amount);
        return count;
    }
    void reset() { count = integer(0); }
    double scaled(double factor, long times, bool negative) const {
        return (negative ? -factor : factor) * static_cast<double>(times);
    }
    NSPoint moved(NSPoint p, NSSize by) { return {p.x + by.width, p.y + by.height}; }
    std::size_t sizeOf(NSArray* list) const { return list ? list->count() : 0; }
    id label() const { return label_; }
    void setLabel(const id& label) { label_ = label; }
    long twice() const { return 2 * VELT_CINTEGER(count); }

    static void describe(velt::ClassBuilder<Counter>& c) {
        c.property("count", &Counter::count)
            .property("step", &Counter::step)
            .property("label", &Counter::label, &Counter::setLabel)
            .property("twice", &Counter::twice)
            .owns(&Counter::label_)
            .method("add:", &Counter::add)
            .method("reset", &Counter::reset)
            .method("scaled:times:negative:", &Counter::scaled)
            .method("moved:by:", &Counter::moved)
            .method("sizeOf:", &Counter::sizeOf);
    }

    id count = integer(0);
    long step = 3;

private:
    id label_;
};

class LoudCounter : public Counter {
    VELT_OBJECT(LoudCounter, Counter)
public:
    void reset() { count = integer(100); }
    static void describe(velt::ClassBuilder<LoudCounter>& c) { c.method("reset", &LoudCounter::reset); }
};

template <int Depth> class Deep : public Deep<Depth - 1> {
public:
    static velt::Class& entry() {
        static const std::string name = "Deep" + std::to_string(Depth);
        static velt::Class& cls = velt::declareClass<Deep>(name.c_str(), &Deep<Depth - 1>::entry());
        return cls;
    }
    velt::Class& isa() const override { return entry(); }
};
template <> class Deep<0> : public NSObject {
public:
    static velt::Class& entry() { return NSObject::entry(); }
};

class Impostor : public NSObject {};

}  // namespace

TEST(Classes, AreKnownByNameFromTheStart) {
    ASSERT_TRUE(velt::Class::named("Counter"));
    EXPECT_EQ("Counter", velt::Class::named("Counter")->name());
    EXPECT_EQ(&NSObject::entry(), velt::Class::named("LoudCounter")->superclass()->superclass());
    EXPECT_FALSE(velt::Class::named("NoSuchClass"));
    EXPECT_TRUE(velt::Class::known("NSPanel").isKindOf(velt::Class::known("NSResponder")));
    EXPECT_FALSE(velt::Class::known("NSResponder").isKindOf(velt::Class::known("NSPanel")));
    EXPECT_VALUE("'LoudCounter'", VELT_CLASSNAME(velt::Class::named("LoudCounter")->newObject()));
}

TEST(Classes, TellKindsApartAtAnyDepth) {
    const id deep = velt::make<Deep<20>>();
    EXPECT_TRUE(velt::is<Deep<3>>(deep));
    EXPECT_TRUE(velt::is<Deep<15>>(deep));
    EXPECT_TRUE(velt::is<NSObject>(deep));
    EXPECT_FALSE(velt::is<Deep<16>>(velt::make<Deep<15>>()));
    EXPECT_FALSE(velt::is<Counter>(deep));
    EXPECT_FALSE(velt::is<NSObject>(nil));
    EXPECT_TRUE(velt::is<NSNumber>(integer(1)));
    EXPECT_CAST_FAILURE("'Counter' expected", velt::to<Counter>(deep));
    EXPECT_EQ(nullptr, velt::to<Counter>(nil));
}

TEST(Classes, CannotBeEnteredTwice) {
    EXPECT_RAISES("NSInternalInconsistencyException: class 'Counter' is entered twice",
                  velt::declareClass<Impostor>("Counter", &NSObject::entry()));
    EXPECT_RAISES("NSInternalInconsistencyException: class 'NSPanel' is entered twice",
                  velt::declareClass<Impostor>("NSPanel", &NSObject::entry()));
}

TEST(Messages, ConvertTheirArgumentsAndResults) {
    const id counter = velt::make<Counter>();
    EXPECT_VALUE("q 5", velt::send(counter, "add:", integer(5)));
    EXPECT_VALUE("d 7.5", velt::send(counter, "add:", real(2.5)));
    EXPECT_VALUE("nil", velt::send(counter, "reset"));
    EXPECT_VALUE("q 0", velt::send(counter, "count"));
    EXPECT_VALUE("d -7.5", velt::send(counter, "scaled:times:negative:", str("2.5"), integer(3), str("yes")));
    EXPECT_VALUE("{CGPoint=dd} {4, 6}", velt::send(counter, "moved:by:", point(1, 2), size(3, 4)));
    EXPECT_VALUE("Q 2", velt::send(counter, "sizeOf:", array(integer(1), integer(2))));
    EXPECT_CAST_FAILURE("'NSArray' expected", velt::send(counter, "sizeOf:", str("x")));
    EXPECT_CAST_FAILURE("'Double' expected", velt::send(counter, "scaled:times:negative:", nil, integer(3), nil));
}

TEST(Messages, ReachTheSubclassFirst) {
    const id counter = velt::make<LoudCounter>();
    velt::send(counter, "reset");
    EXPECT_VALUE("q 100", velt::valueForKey(counter, "count"));
    EXPECT_VALUE("q 101", velt::send(counter, "add:", integer(1)));
}

TEST(Messages, FailByNameAndDoNothingToNil) {
    const id counter = velt::make<Counter>();
    EXPECT_RAISES("NSInvalidArgumentException: 'Counter' does not understand 'fly:'", velt::send(counter, "fly:", nil));
    EXPECT_RAISES("NSInvalidArgumentException: 'NSNumber' does not understand 'fly'", velt::send(integer(5), "fly"));
    EXPECT_RAISES("NSInvalidArgumentException: 'add:' of 'Counter' takes 1 arguments, not 2",
                  velt::send(counter, "add:", nil, nil));
    EXPECT_VALUE("nil", velt::send(nil, "anything:at:all:"));
    EXPECT_TRUE(velt::respondsTo(counter, VELT_SELECTOR("add:")));
    EXPECT_FALSE(velt::respondsTo(counter, VELT_SELECTOR("add")));
    EXPECT_FALSE(velt::respondsTo(nil, VELT_SELECTOR("description")));
}

TEST(Descriptions, AreTextsWhateverAClassAnswers) {
    for (const id& answer : {id(), integer(5), array()}) {
        const id object = velt::make<Wordless>(answer);
        for (const id& text : {velt::description(object), VELT_CSTRING(object), VELT_INFO(object),
                               VELT_JOIN(array(object), str(",")), VELT_CONCAT(object, str(""))}) {
            ASSERT_TRUE(velt::isString(text));
            EXPECT_TRUE(velt::utf8(text).starts_with("<NSObject 0x")) << velt::utf8(text);
        }
    }
}

TEST(Messages, ReachNumbersInTheWord) {
    EXPECT_VALUE("'5'", velt::send(integer(5), "stringValue"));
    EXPECT_VALUE("q -1", velt::send(integer(5), "compare:", real(5.5)));
    EXPECT_VALUE("'5'", velt::send(integer(5), "description"));
    EXPECT_VALUE("c 1", velt::send(integer(5), "isEqual:", real(5.0)));
    EXPECT_VALUE("'NSNumber'", velt::send(real(1e100), "className"));
    EXPECT_VALUE("c 1", velt::send(str("x"), "respondsToSelector:", str("length")));
    EXPECT_VALUE("Q 1", velt::send(str("x"), "length"));
}

TEST(Keys, ReachFieldsPropertiesAndMethods) {
    const id counter = velt::make<Counter>();
    velt::setValueForKey(counter, "count", integer(8));
    velt::setValueForKey(counter, "step", str("12"));
    velt::setValueForKey(counter, "label", str("name"));
    EXPECT_VALUE("q 8", velt::valueForKey(counter, "count"));
    EXPECT_VALUE("q 12", velt::valueForKey(counter, "step"));
    EXPECT_VALUE("'name'", velt::valueForKey(counter, "label"));
    EXPECT_VALUE("q 16", velt::valueForKey(counter, "twice"));
    EXPECT_VALUE("'name'", velt::send(counter, "label"));
    velt::send(counter, "setLabel:", str("other"));
    EXPECT_VALUE("'other'", velt::send(counter, "valueForKey:", str("label")));
    velt::send(counter, "setValue:forKey:", integer(1), str("count"));
    EXPECT_VALUE("q 2", velt::valueForKey(counter, "twice"));
    EXPECT_VALUE("'Counter'", velt::valueForKey(counter, "className"));
    EXPECT_VALUE("nil", velt::valueForKey(nil, "count"));
}

TEST(Keys, FailByName) {
    const id counter = velt::make<Counter>();
    EXPECT_RAISES("NSUnknownKeyException: 'Counter' has no value for key 'weight'",
                  velt::valueForKey(counter, "weight"));
    EXPECT_RAISES("NSUnknownKeyException: 'Counter' has no value for key 'twice'",
                  velt::setValueForKey(counter, "twice", integer(1)));
    EXPECT_RAISES("NSUnknownKeyException: 'NSNumber' has no value for key ''", velt::valueForKey(integer(1), ""));
    EXPECT_CAST_FAILURE("'Integer' expected", velt::setValueForKey(counter, "step", array()));
}

TEST(Descriptions, NameTheClass) {
    const std::string text = velt::utf8(velt::description(velt::make<Counter>()));
    EXPECT_TRUE(text.starts_with("<Counter 0x") && text.ends_with(">")) << text;
    EXPECT_RAISES("NSInvalidArgumentException: 'Counter' objects cannot be copied", VELT_CLONE(velt::make<Counter>()));
}
