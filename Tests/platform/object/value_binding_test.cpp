#include "VELTRuntime/platform/object/value_binding.h"

#include "support/observers.h"

using namespace velt::test;
using velt::bindValue;
using velt::setValueForKey;
using velt::unbindValue;

namespace {

/// Shows a number of cents as units, and back.
class CentsTransformer : public NSValueTransformer {
    VELT_OBJECT(CentsTransformer, NSValueTransformer)
public:
    id transformedValue(const id& value) override { return VELT_ID(VELT_CDOUBLE(value) / 100); }
    id reverseTransformedValue(const id& value) override {
        return VELT_ID(static_cast<long>(VELT_CDOUBLE(value) * 100));
    }
    bool allowsReverseTransformation() const override { return true; }
};

class LengthTransformer : public NSValueTransformer {
    VELT_OBJECT(LengthTransformer, NSValueTransformer)
public:
    id length(const id& value) { return value.isNil() ? nil : velt::send(value, "length"); }
    static void describe(velt::ClassBuilder<LengthTransformer>& c) {
        c.method("transformedValue:", &LengthTransformer::length);
    }
};

id options(std::string_view name, const id& value) {
    const id made = emptyDictionary();
    setValueForKey(made, name, value);
    return made;
}

/// Binds itself elsewhere when its property is set for the first time.
class Restless : public NSObject {
    VELT_OBJECT(Restless, NSObject)
public:
    id shown() const { return shown_; }
    void show(const id& value) {
        shown_ = value;
        if (const id other = std::exchange(elsewhere, nil)) bindValue(id(this), "shown", other, "value", nil);
    }
    static void describe(velt::ClassBuilder<Restless>& c) {
        c.property("shown", &Restless::shown, &Restless::show).owns(&Restless::shown_);
    }
    id elsewhere;

private:
    id shown_;
};

class Bindings : public testing::Test {
protected:
    velt::Ref<Model> source = velt::make<Model>(), view = velt::make<Model>();
    void bindViewTo(std::string_view keyPath, const id& with = nil) { bindValue(view, "value", source, keyPath, with); }
};

}  // namespace

TEST_F(Bindings, CarryTheValueBothWays) {
    source->value = integer(1);
    bindViewTo("value");
    EXPECT_VALUE("q 1", view->value);
    setValueForKey(source, "value", integer(2));
    EXPECT_VALUE("q 2", view->value);
    velt::send(view, "setValue:", integer(3));
    EXPECT_VALUE("q 3", source->value);
    setValueForKey(source, "value", nil);
    EXPECT_VALUE("nil", view->value);
}

TEST_F(Bindings, FollowKeyPaths) {
    bindViewTo("next.value");
    EXPECT_VALUE("nil", view->value);
    const velt::Ref<Model> next = velt::make<Model>();
    next->value = str("a");
    setValueForKey(source, "next", next);
    EXPECT_VALUE("'a'", view->value);
    setValueForKey(view, "value", str("b"));
    EXPECT_VALUE("'b'", next->value);
    bindViewTo("list.@count", options("NSRaisesForNotApplicableKeys", boolean(false)));
    VELT_NSMUTABLEARRAY_APPEND(source->list, str("x"));
    EXPECT_VALUE("Q 1", view->value);
    setValueForKey(next, "value", str("c"));
    EXPECT_VALUE("Q 1", view->value);
}

TEST_F(Bindings, EndOneOfTheSameNameThatSettingThePropertyMade) {
    const velt::Ref<Model> other = velt::make<Model>();
    const velt::Ref<Restless> restless = velt::make<Restless>();
    restless->elsewhere = other;
    bindValue(restless, "shown", source, "value", nil);
    EXPECT_FALSE(other->isAttached());
    setValueForKey(source, "value", integer(1));
    EXPECT_VALUE("q 1", restless->shown());
}

TEST_F(Bindings, EndWhenAsked) {
    bindViewTo("value");
    velt::send(view, "unbind:", str("value"));
    velt::send(view, "unbind:", str("value"));
    setValueForKey(source, "value", integer(2));
    EXPECT_VALUE("nil", view->value);
    setValueForKey(view, "value", integer(3));
    EXPECT_VALUE("q 2", source->value);
    EXPECT_FALSE(view->isAttached() || source->isAttached());
    unbindValue(nil, "value");
}

TEST_F(Bindings, EndWhenEitherSideGoes) {
    {
        const velt::Ref<Model> brief = velt::make<Model>();
        bindValue(brief, "value", source, "value", nil);
        EXPECT_EQ(1u, brief->ownerCount());
        EXPECT_EQ(1u, source->ownerCount());
    }
    EXPECT_FALSE(source->isAttached());
    setValueForKey(source, "value", integer(1));
    {
        const velt::Ref<Model> brief = velt::make<Model>();
        bindValue(view, "value", brief, "value", nil);
        setValueForKey(brief, "value", integer(5));
    }
    EXPECT_VALUE("q 5", view->value);
    EXPECT_VALUE("nil", velt::bindingInfo(view, "value"));
    EXPECT_FALSE(view->isAttached());
    setValueForKey(view, "value", integer(6));
}

TEST_F(Bindings, TellWhatTheyAreBoundTo) {
    EXPECT_VALUE("nil", velt::send(view, "infoForBinding:", str("value")));
    const id with = options("NSNullPlaceholder", str("none"));
    velt::send(view, "bind:toObject:withKeyPath:options:", str("value"), source, str("next.value"), with);
    const id info = velt::send(view, "infoForBinding:", str("value"));
    EXPECT_TRUE(velt::valueForKey(info, "NSObservedObject") == id(source));
    EXPECT_VALUE("'next.value'", velt::valueForKey(info, "NSObservedKeyPath"));
    EXPECT_TRUE(velt::valueForKey(info, "NSOptions") == with);
    EXPECT_VALUE("nil", velt::bindingInfo(integer(1), "value"));
}

TEST_F(Bindings, ShowThePlaceholderForNil) {
    bindViewTo("value", options("NSNullPlaceholder", str("none")));
    EXPECT_VALUE("'none'", view->value);
    setValueForKey(source, "value", str("some"));
    EXPECT_VALUE("'some'", view->value);
    setValueForKey(source, "value", nil);
    EXPECT_VALUE("'none'", view->value);
    EXPECT_VALUE("nil", source->value);
}

TEST_F(Bindings, TransformByName) {
    source->value = integer(250);
    bindViewTo("value", options("NSValueTransformerName", str("CentsTransformer")));
    EXPECT_VALUE("d 2.5", view->value);
    setValueForKey(view, "value", real(3));
    EXPECT_VALUE("q 300", source->value);
    EXPECT_VALUE("d 3", view->value);
    bindViewTo("value", options("NSValueTransformer", velt::make<CentsTransformer>()));
    EXPECT_VALUE("d 3", view->value);
    bindViewTo("value", options("NSValueTransformerName", str("NSIsNil")));
    EXPECT_VALUE("c 0", view->value);
    setValueForKey(source, "value", nil);
    EXPECT_VALUE("c 1", view->value);
}

TEST_F(Bindings, DoNotCarryBackWithoutAWayBack) {
    source->value = str("four");
    bindViewTo("value", options("NSValueTransformerName", str("LengthTransformer")));
    EXPECT_VALUE("Q 4", view->value);
    setValueForKey(view, "value", integer(9));
    EXPECT_VALUE("'four'", source->value);
}

TEST_F(Bindings, ShowWhatTheObjectMadeOfTheValue) {
    bindViewTo("limited");
    setValueForKey(view, "value", integer(700));
    EXPECT_EQ(100, source->limited());
    EXPECT_VALUE("q 100", view->value);
}

TEST_F(Bindings, DoNotLoop) {
    bindViewTo("value");
    bindValue(source, "value", view, "value", nil);
    const velt::Ref<Watcher> watcher = velt::make<Watcher>();
    velt::addObserver(view, watcher, "value", velt::kObserveNew);
    setValueForKey(source, "value", integer(1));
    EXPECT_VALUE("q 1", view->value);
    EXPECT_VALUE("q 1", source->value);
    setValueForKey(view, "value", integer(2));
    EXPECT_VALUE("q 2", source->value);
    EXPECT_VALUE("q 2", view->value);
    EXPECT_LT(watcher->log.size(), 8u);
}

TEST_F(Bindings, ThatContradictEachOtherComeToRest) {
    bindViewTo("value", options("NSValueTransformerName", str("NSNegateBoolean")));
    bindValue(source, "value", view, "value", nil);
    setValueForKey(source, "value", boolean(true));
    setValueForKey(view, "value", boolean(true));
    EXPECT_EQ('c', *velt::typeCode(source->value));
}

TEST_F(Bindings, OfAnObjectToItselfFollow) {
    bindValue(view, "value", view, "title", nil);
    view->setTitle(str("x"));
    EXPECT_VALUE("'x'", view->value);
    setValueForKey(view, "value", str("y"));
    EXPECT_VALUE("'y'", view->title());
}

TEST_F(Bindings, FormChains) {
    const velt::Ref<Model> last = velt::make<Model>();
    bindViewTo("value");
    bindValue(last, "value", view, "value", nil);
    setValueForKey(source, "value", integer(4));
    EXPECT_VALUE("q 4", last->value);
    setValueForKey(last, "value", integer(5));
    EXPECT_VALUE("q 5", source->value);
}

TEST_F(Bindings, FailByName) {
    EXPECT_RAISES("NSInvalidArgumentException: nil cannot be observed", bindValue(view, "value", nil, "value", nil));
    EXPECT_RAISES("NSInvalidArgumentException: a value of 'NSNumber' cannot be bound",
                  bindValue(integer(1), "value", source, "value", nil));
    EXPECT_RAISES("NSInvalidArgumentException: no value transformer is named 'None'",
                  bindViewTo("value", options("NSValueTransformerName", str("None"))));
    EXPECT_RAISES("NSUnknownKeyException: 'Model' has no value for key 'colour'",
                  bindValue(view, "colour", source, "value", nil));
    EXPECT_RAISES("NSUnknownKeyException: 'Model' has no value for key 'colour'", bindViewTo("colour"));
    EXPECT_RAISES("NSInvalidArgumentException: 'Model' cannot take nil for key 'number'",
                  bindValue(view, "number", source, "value", nil));
    EXPECT_FALSE(view->isAttached() || source->isAttached());
}

TEST_F(Bindings, MaySkipKeysThatDoNotApply) {
    const id lenient = options("NSRaisesForNotApplicableKeys", boolean(false));
    setValueForKey(lenient, "NSNullPlaceholder", str("not applicable"));
    source->next = str("a text");
    bindViewTo("next.colour", lenient);
    EXPECT_VALUE("'not applicable'", view->value);
    EXPECT_RAISES("nothing", setValueForKey(view, "value", integer(1)));
    const velt::Ref<Model> next = velt::make<Model>();
    next->value = next;
    bindViewTo("next.value.number", lenient);
    EXPECT_VALUE("'not applicable'", view->value);
    setValueForKey(source, "next", next);
    EXPECT_VALUE("q 0", view->value);
    next->value = nil;
    source->next = nil;
    bindViewTo("label", lenient);
    EXPECT_RAISES("nothing", setValueForKey(view, "value", integer(1)));
    bindViewTo("label");
    EXPECT_RAISES("NSUnknownKeyException: 'Model' has no value for key 'label'",
                  setValueForKey(view, "value", integer(1)));
}

TEST_F(Bindings, BothWaysBetweenDroppedObjectsAreReclaimed) {
    const long before = Model::living();
    {
        const velt::Ref<Model> a = velt::make<Model>(), b = velt::make<Model>();
        a->next = b;
        b->next = a;
        bindValue(a, "value", b, "value", options("NSNullPlaceholder", a));
        bindValue(b, "title", a, "title", options("NSNullPlaceholder", b));
        bindValue(a, "number", a, "limited", options("self", a));
    }
    velt::collectCycles();
    EXPECT_EQ(before, Model::living().load());
}

TEST(ValueTransformers, AreRegisteredByName) {
    const id cents = velt::make<CentsTransformer>();
    const id cls = velt::Class::named("NSValueTransformer")->object();
    velt::send(cls, "setValueTransformer:forName:", cents, str("Cents"));
    EXPECT_TRUE(velt::send(cls, "valueTransformerForName:", str("Cents")) == cents);
    EXPECT_VALUE("c 1", VELT_NSARRAY_CONTAINS(velt::send(cls, "valueTransformerNames"), str("Cents")));
    NSValueTransformer::setForName(nil, "Cents");
    NSValueTransformer::setForName(nil, "Cents");
    EXPECT_VALUE("nil", NSValueTransformer::forName("Cents"));
    EXPECT_VALUE("nil", NSValueTransformer::forName("Model"));
    EXPECT_CAST_FAILURE("'NSValueTransformer' expected", NSValueTransformer::setForName(str("x"), "Cents"));
    EXPECT_TRUE(NSValueTransformer::forName("CentsTransformer") == NSValueTransformer::forName("CentsTransformer"));
}

TEST(ValueTransformers, ComeWithThreeThatEveryProgramHas) {
    const auto apply = [](const char* name, const id& value) {
        return velt::send(NSValueTransformer::forName(name), "transformedValue:", value);
    };
    EXPECT_VALUE("c 0", apply("NSNegateBoolean", boolean(true)));
    EXPECT_VALUE("c 1", apply("NSNegateBoolean", nil));
    EXPECT_VALUE("c 1", apply("NSIsNil", nil));
    EXPECT_VALUE("c 0", apply("NSIsNil", integer(0)));
    EXPECT_VALUE("c 0", apply("NSIsNotNil", nil));
    EXPECT_VALUE("c 1", apply("NSIsNotNil", str("")));
    const id negation = NSValueTransformer::forName("NSNegateBoolean"), isNil = NSValueTransformer::forName("NSIsNil");
    EXPECT_VALUE("c 0", velt::send(negation, "reverseTransformedValue:", boolean(true)));
    EXPECT_VALUE("c 0", velt::send(isNil, "allowsReverseTransformation"));
    EXPECT_RAISES("NSInvalidArgumentException: 'NSValueTransformer' has no reverse transformation",
                  velt::send(isNil, "reverseTransformedValue:", boolean(true)));
    EXPECT_VALUE("'same'", velt::make<NSValueTransformer>()->transformedValue(str("same")));
}
