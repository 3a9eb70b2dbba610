#include <VELTRuntime/VELTRuntimeUI.h>

#include "support/values.h"

#include "VELTRuntime/platform/foundation/run_loop.h"
#include "VELTRuntime/platform/object/cycles.h"

#include <QApplication>
#include <QMainWindow>
#include <QPointer>
#include <QTest>
#include <QWidget>

using namespace velt::test;
using velt::Ref;

namespace {

/// Counts the objects of a class of this test that live.
template <class Base> class Counted : public Base {
public:
    template <class... A> explicit Counted(A&&... arguments) : Base(std::forward<A>(arguments)...) { ++alive; }
    ~Counted() override { --alive; }
    static inline int alive = 0;
};

class CountedButton : public Counted<NSButton> {
    VELT_OBJECT(CountedButton, NSButton)
};
class CountedField : public Counted<NSTextField> {
    VELT_OBJECT(CountedField, NSTextField)
};
class CountedView : public Counted<NSView> {
    VELT_OBJECT(CountedView, NSView)
public:
    bool acceptsFirstResponder() const override { return true; }
};
class CountedWindow : public Counted<NSWindow> {
    VELT_OBJECT(CountedWindow, NSWindow)
};

/// A form as programs write it: it owns its window and parts, whose target and delegate it is.
class Form : public Counted<NSObject> {
    VELT_OBJECT(Form, NSObject)
public:
    Ref<CountedWindow> window = velt::make<CountedWindow>();
    Ref<CountedView> inner = velt::make<CountedView>();
    Ref<CountedButton> button = velt::make<CountedButton>();
    Ref<CountedField> field = velt::make<CountedField>();
    int pressedCount = 0;

    void pressed(const id&) {
        ++pressedCount;
        field->setStringValue(str("pressed"));
    }
    static void describe(velt::ClassBuilder<Form>& c) {
        c.method("pressed:", &Form::pressed)
            .owns(&Form::window)
            .owns(&Form::inner)
            .owns(&Form::button)
            .owns(&Form::field);
    }

    void open() {
        const id self(this);
        window->setFrame({{30, 40}, {260, 160}});
        window->setDelegate(self);
        inner->setFrame({{10, 10}, {240, 100}});
        button->setFrame({{10, 10}, {100, 24}});
        field->setFrame({{10, 50}, {200, 24}});
        for (NSControl* control : {static_cast<NSControl*>(button.get()), static_cast<NSControl*>(field.get())}) {
            control->setTarget(self);
            control->setActionName(str("pressed:"));
            control->setDelegate(self);
            inner->addSubview(control);
        }
        button->setNextKeyView(field.get());
        field->setNextKeyView(button.get());
        field->setNextResponder(self);
        VELT_NSWINDOW_APPEND(window, inner);
        VELT_NSWINDOW_SHOW(window);
    }
    void use() {
        QTest::mouseClick(&button->widget(), Qt::LeftButton);
        window->makeFirstResponder(field);
        QTest::keyClicks(field->widget().focusProxy(), QStringLiteral("abc"));
    }
};

struct Living {
    int forms = Counted<NSObject>::alive, windows = Counted<NSWindow>::alive, views = Counted<NSView>::alive,
        buttons = Counted<NSButton>::alive, fields = Counted<NSTextField>::alive;
    qsizetype widgets = QApplication::allWidgets().size();
    bool operator==(const Living&) const = default;
    friend std::ostream& operator<<(std::ostream& out, const Living& l) {
        return out << "forms " << l.forms << ", windows " << l.windows << ", views " << l.views << ", buttons "
                   << l.buttons << ", fields " << l.fields << ", widgets " << l.widgets;
    }
};

Living livingAfterCollection() {
    velt::collectCycles();
    velt::RunLoop::current().runOnce(0.01);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return {};
}

void openUseAndClose(int times) {
    for (int i = 0; i < times; ++i) {
        const Ref<Form> form = velt::make<Form>();
        form->open();
        form->use();
        EXPECT_EQ(1, form->pressedCount);
        VELT_NSWINDOW_CLOSE(form->window);
    }
}

/// A window with a field in a view of its own, each held by the test too.
struct Nested {
    Nested() {
        window->setFrame({{30, 40}, {260, 160}});
        outer->setFrame({{10, 10}, {200, 100}});
        middle->setFrame({{5, 5}, {180, 80}});
        field->setFrame({{5, 5}, {100, 24}});
        field->setStringValue(str("kept"));
        outer->addSubview(middle.get());
        middle->addSubview(field.get());
        VELT_NSWINDOW_APPEND(window, outer);
        VELT_NSWINDOW_SHOW(window);
    }
    ~Nested() { VELT_NSWINDOW_CLOSE(window); }

    Ref<NSWindow> window = velt::make<NSWindow>();
    Ref<NSView> outer = velt::make<NSView>(), middle = velt::make<NSView>();
    Ref<CountedField> field = velt::make<CountedField>();
};

void dropWithItsPlace(Ref<NSView>& view) {
    view->removeFromSuperview();
    view = nullptr;
    livingAfterCollection();
}

}  // namespace

TEST(DroppedForms, LeaveNeitherObjectsNorWidgetsBehind) {
    openUseAndClose(3);
    const Living before = livingAfterCollection();
    EXPECT_EQ(0, before.forms);
    openUseAndClose(300);
    EXPECT_EQ(before, livingAfterCollection());
}

TEST(DroppedForms, KeepWhatTheProgramStillHolds) {
    const Living before = livingAfterCollection();
    Ref<CountedField> kept;
    {
        const Ref<Form> form = velt::make<Form>();
        form->open();
        kept = form->field;
        VELT_NSWINDOW_CLOSE(form->window);
        kept->setTarget(nil);
        kept->setDelegate(nil);
        kept->setNextResponder(nil);
        form->button->setNextKeyView(nullptr);
        kept->setNextKeyView(nullptr);
    }
    Living after = livingAfterCollection();
    EXPECT_EQ(before.fields + 1, after.fields);
    EXPECT_EQ(before.windows, after.windows);
    EXPECT_TRUE(kept->superview().isNil());
    EXPECT_TRUE(kept->window().isNil());
    EXPECT_FALSE(kept->widget().isVisible());
    kept = nullptr;
    EXPECT_EQ(before, livingAfterCollection());
}

TEST(DroppedViews, LetTheirSubviewsGoOnElsewhere) {
    Nested nested;
    QPointer<QWidget> widget = &nested.field->widget();
    nested.middle = nullptr;
    dropWithItsPlace(nested.outer);
    ASSERT_FALSE(widget.isNull());
    EXPECT_FALSE(widget->isVisible());
    EXPECT_EQ(nullptr, widget->parentWidget());
    VELT_NSWINDOW_APPEND(nested.window, nested.field);
    EXPECT_EQ(widget.data(), &nested.field->widget());
    EXPECT_TRUE(widget->isVisible());
    EXPECT_VALUE("'kept'", nested.field->stringValue());
}

TEST(DroppedViews, LetTheirSubviewsGoOnBeforeTheirWidgetsEnd) {
    Nested nested;
    QPointer<QWidget> widget = &nested.field->widget();
    nested.outer->removeFromSuperview();
    nested.outer = nullptr;
    VELT_NSWINDOW_APPEND(nested.window, nested.middle);
    EXPECT_TRUE(widget->isVisible());
    livingAfterCollection();
    ASSERT_FALSE(widget.isNull());
    EXPECT_TRUE(widget->isVisible());
    EXPECT_TRUE(nested.window->widget().isAncestorOf(widget));
}

TEST(DroppedViews, EndTheWidgetOfASubviewThatGoesLater) {
    Nested nested;
    QPointer<QWidget> field = &nested.field->widget(), middle = &nested.middle->widget();
    nested.outer->removeFromSuperview();
    nested.outer = nullptr;
    // Its widget still lies in the one that is about to end, within another one that stays.
    nested.field->removeFromSuperview();
    nested.middle->addSubview(nested.field.get());
    nested.field->removeFromSuperview();
    nested.field = nullptr;
    livingAfterCollection();
    EXPECT_TRUE(field.isNull());
    EXPECT_FALSE(middle.isNull());
    EXPECT_TRUE(middle->children().isEmpty());
}

TEST(DroppedViews, TakeTheirWidgetsAlong) {
    Nested nested;
    QPointer<QWidget> outer = &nested.outer->widget(), middle = &nested.middle->widget(),
                      field = &nested.field->widget();
    nested.middle = nullptr;
    nested.field = nullptr;
    dropWithItsPlace(nested.outer);
    EXPECT_TRUE(outer.isNull());
    EXPECT_TRUE(middle.isNull());
    EXPECT_TRUE(field.isNull());
}
