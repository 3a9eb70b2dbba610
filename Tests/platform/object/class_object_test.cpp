#include "VELTRuntime/platform/object/class_object.h"

#include "support/values.h"

using namespace velt::test;

namespace {

class Shape : public NSObject {
    VELT_OBJECT(Shape, NSObject)
public:
    id joined(const id& a, const id& b) { return VELT_CONCAT(a, b); }
    long sides() const { return 4; }
    void setSides(long) {}
    static void describe(velt::ClassBuilder<Shape>& c) {
        c.method("join:with:", &Shape::joined)
            .method("sides", &Shape::sides)
            .classMethod("unit", [](const id& cls, const id*) { return velt::send(cls, "new"); })
            .classMethod("named:", [](const id&, const id* a) { return a[0]; });
    }
};

class Square : public Shape {
    VELT_OBJECT(Square, Shape)
};

/// A class of C++ alone: objects of it are Squares to the program.
class SecretSquare : public Square {
public:
    explicit SecretSquare(long sides) : sides_(sides) {}
    long sides_;
};

id classNamed(std::string_view name) { return velt::Class::named(name)->object(); }

}  // namespace

TEST(ClassValues, AreOneAClass) {
    const id square = velt::make<Square>();
    EXPECT_TRUE(velt::send(square, "class") == classNamed("Square"));
    EXPECT_TRUE(velt::send(square, "superclass") == classNamed("Shape"));
    EXPECT_TRUE(velt::send(classNamed("Square"), "superclass") == classNamed("Shape"));
    EXPECT_VALUE("nil", velt::send(classNamed("NSObject"), "superclass"));
    EXPECT_VALUE("'Square'", velt::description(classNamed("Square")));
    EXPECT_VALUE("'Square'", velt::send(classNamed("Square"), "className"));
    EXPECT_TRUE(velt::send(classNamed("Square"), "class") == classNamed("Square"));
    EXPECT_TRUE(velt::copy(classNamed("Square")) == classNamed("Square"));
    EXPECT_VALUE("'NSNumber'", velt::description(velt::send(integer(1), "class")));
}

TEST(ClassValues, MakeObjects) {
    const id made = velt::send(velt::send(classNamed("Square"), "alloc"), "init");
    EXPECT_VALUE("'Square'", velt::send(made, "className"));
    EXPECT_VALUE("'Square'", velt::send(velt::send(classNamed("Square"), "new"), "className"));
    EXPECT_RAISES("NSInvalidArgumentException: 'NSNumber' objects cannot be made by name",
                  velt::send(classNamed("NSNumber"), "new"));
}

TEST(ClassValues, AnswerClassMethodsOfTheirClassAndItsSuperclasses) {
    EXPECT_VALUE("'Square'", velt::send(velt::send(classNamed("Square"), "unit"), "className"));
    EXPECT_VALUE("'x'", velt::send(classNamed("Shape"), "named:", str("x")));
    EXPECT_TRUE(velt::respondsTo(classNamed("Square"), VELT_SELECTOR("unit")));
    EXPECT_FALSE(velt::respondsTo(velt::make<Square>(), VELT_SELECTOR("unit")));
    EXPECT_FALSE(velt::respondsTo(classNamed("NSObject"), VELT_SELECTOR("unit")));
    EXPECT_RAISES("NSInvalidArgumentException: 'Class' does not understand 'sides'",
                  velt::send(classNamed("Shape"), "sides"));
    EXPECT_RAISES("NSInvalidArgumentException: 'named:' of 'Class' takes 1 arguments, not 0",
                  velt::sendMessage(classNamed("Shape"), velt::Selector::named("named:"), {}));
}

TEST(ClassValues, AreAskedAboutKindsAndMessages) {
    const id square = velt::make<Square>(), shapeClass = classNamed("Shape"), squareClass = classNamed("Square");
    EXPECT_VALUE("c 1", velt::send(square, "isKindOfClass:", shapeClass));
    EXPECT_VALUE("c 0", velt::send(square, "isMemberOfClass:", shapeClass));
    EXPECT_VALUE("c 1", velt::send(square, "isMemberOfClass:", str("Square")));
    EXPECT_VALUE("c 0", velt::send(square, "isKindOfClass:", str("NoSuchClass")));
    EXPECT_VALUE("c 1", velt::send(squareClass, "isSubclassOfClass:", shapeClass));
    EXPECT_VALUE("c 0", velt::send(shapeClass, "isSubclassOfClass:", squareClass));
    EXPECT_VALUE("c 1", velt::send(squareClass, "instancesRespondToSelector:", str("sides")));
    EXPECT_VALUE("c 0", velt::send(squareClass, "instancesRespondToSelector:", str("unit")));
}

TEST(Messages, AreSentByTheirTexts) {
    const id square = velt::make<Square>();
    EXPECT_VALUE("q 4", velt::send(square, "performSelector:", str("sides")));
    EXPECT_VALUE("c 1", velt::send(square, "performSelector:withObject:", str("isEqual:"), square));
    EXPECT_VALUE("'ab'",
                 velt::send(square, "performSelector:withObject:withObject:", str("join:with:"), str("a"), str("b")));
}

TEST(MessageSites, FindEveryReceiversOwnMethod) {
    const id receivers[] = {velt::make<Square>(), velt::make<SecretSquare>(1),
                            integer(5),           str("text"),
                            velt::make<Shape>(),  array(str("x")),
                            real(1e100),          nil};
    const char* const expected[] = {"'Square'", "'Square'",         "'NSNumber'", "'NSMutableString'",
                                    "'Shape'",  "'NSMutableArray'", "'NSNumber'", "nil"};
    for (int round = 0; round < 3; ++round) {
        for (std::size_t i = 0; i < std::size(receivers); ++i) {
            for (int again = 0; again < 2; ++again) {
                EXPECT_VALUE(expected[i], velt::send(receivers[i], VELT_SELECTOR("className")));
            }
        }
    }
}

TEST(MessageSites, CheckTheNumberOfArguments) {
    const id square = velt::make<Square>();
    for (int round = 0; round < 2; ++round) {
        EXPECT_RAISES("NSInvalidArgumentException: 'join:with:' of 'Square' takes 2 arguments, not 1",
                      velt::send(square, VELT_SELECTOR("join:with:"), nil));
        EXPECT_VALUE("'ab'", velt::send(square, VELT_SELECTOR("join:with:"), str("a"), str("b")));
    }
    EXPECT_RAISES("NSInvalidArgumentException: 'Square' does not understand 'fly'",
                  velt::send(square, VELT_SELECTOR("fly")));
}

TEST(Messages, PassValuesWithoutCountingOwners) {
    const id square = velt::make<Square>(), text = str("a");
    EXPECT_VALUE("'aa'", velt::send(square, VELT_SELECTOR("join:with:"), text, text));
    EXPECT_EQ(1u, text.object()->ownerCount());
    EXPECT_EQ(1u, square.object()->ownerCount());
}
