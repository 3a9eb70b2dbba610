#include "VELTRuntime/platform/foundation/undo_manager.h"

#include "support/values.h"

#include "VELTRuntime/platform/foundation/notification_center.h"
#include "VELTRuntime/platform/foundation/run_loop.h"
#include "VELTRuntime/platform/object/cycles.h"

using namespace velt::test;
using velt::Ref;

namespace {

/// A number that can be set, and takes back every setting.
class UndoableNumber : public NSObject {
    VELT_OBJECT(UndoableNumber, NSObject)

public:
    void setTo(const id& value) {
        manager->registerUndo(id(this), velt::Selector::named("setTo:"), std::span<const id>(&number, 1));
        number = value;
    }
    void setBoth(const id& a, const id& b) {
        number = a;
        other = b;
    }
    void fail() { velt::raise("VLException", "cannot be undone"); }
    void heard(const id& notification) { told += velt::utf8(velt::send(notification, "name")) + " "; }
    static void describe(velt::ClassBuilder<UndoableNumber>& c) {
        c.method("setTo:", &UndoableNumber::setTo)
            .method("setBoth:and:", &UndoableNumber::setBoth)
            .method("fail", &UndoableNumber::fail)
            .method("heard:", &UndoableNumber::heard)
            .owns(&UndoableNumber::number)
            .owns(&UndoableNumber::other)
            .owns(&UndoableNumber::manager);
    }
    id number = integer(0), other;
    Ref<NSUndoManager> manager = velt::make<NSUndoManager>();
    std::string told;
};

}  // namespace

TEST(UndoManagers, TakeBackGroupsAndMakeThemAgain) {
    const Ref<UndoableNumber> counter = velt::make<UndoableNumber>();
    NSUndoManager& manager = *counter->manager;
    EXPECT_FALSE(manager.canUndo());
    for (long value : {1L, 2L, 3L}) {
        manager.beginUndoGrouping();
        counter->setTo(integer(value));
        velt::send(counter->manager, "setActionName:", str("Set " + std::to_string(value)));
        manager.endUndoGrouping();
    }
    EXPECT_VALUE("'Undo Set 3'", manager.undoMenuItemTitle());
    manager.undo();
    EXPECT_VALUE("q 2", counter->number);
    EXPECT_VALUE("'Set 3'", manager.redoActionName());
    manager.undo();
    EXPECT_VALUE("q 1", counter->number);
    manager.redo();
    EXPECT_VALUE("q 2", counter->number);
    EXPECT_VALUE("'Set 2'", manager.undoActionName());
    manager.beginUndoGrouping();
    counter->setTo(integer(9));  // another way from here: nothing to make again
    manager.endUndoGrouping();
    EXPECT_FALSE(manager.canRedo());
    for (int i = 0; i < 5; ++i) manager.undo();
    EXPECT_VALUE("q 0", counter->number);
    for (int i = 0; i < 5; ++i) manager.redo();
    EXPECT_VALUE("q 9", counter->number);
    EXPECT_VALUE("'Redo'", manager.redoMenuItemTitle());
}

TEST(UndoManagers, MakeOneGroupOfAnEvent) {
    const Ref<UndoableNumber> counter = velt::make<UndoableNumber>();
    counter->setTo(integer(1));
    counter->setTo(integer(2));
    EXPECT_VALUE("c 1", velt::send(counter->manager, "canUndo"));
    velt::RunLoop::current().runOnce(0.01);
    counter->setTo(integer(3));
    velt::send(counter->manager, "undo");
    EXPECT_VALUE("q 2", counter->number);
    velt::send(counter->manager, "undo");
    EXPECT_VALUE("q 0", counter->number);
}

TEST(UndoManagers, TakeMessagesOfAnyKind) {
    const Ref<UndoableNumber> counter = velt::make<UndoableNumber>();
    const id manager = counter->manager;
    velt::send(manager, "registerUndoWithTarget:selector:object:", counter, str("setTo:"), integer(7));
    velt::send(manager, "undo");
    EXPECT_VALUE("q 7", counter->number);
    velt::send(velt::send(manager, "prepareWithInvocationTarget:", counter), "setBoth:and:", integer(4), nil);
    counter->other = str("there");
    velt::send(manager, "undo");
    EXPECT_VALUE("q 4", counter->number);
    EXPECT_TRUE(counter->other.isNil());
    EXPECT_RAISES("NSInvalidArgumentException: 'NSUndoManager' registerUndo: 'setBoth:and:' takes another number of "
                  "arguments",
                  velt::send(manager, "registerUndoWithTarget:selector:object:", counter, str("setBoth:and:"), nil));
}

TEST(UndoManagers, SayWhatIsOutOfOrder) {
    const Ref<UndoableNumber> counter = velt::make<UndoableNumber>();
    NSUndoManager& manager = *counter->manager;
    EXPECT_RAISES("NSInternalInconsistencyException: 'NSUndoManager' endUndoGrouping: no group was begun",
                  manager.endUndoGrouping());
    EXPECT_RAISES("NSInternalInconsistencyException: 'NSUndoManager' enableUndoRegistration: registration is not off",
                  manager.enableUndoRegistration());
    manager.beginUndoGrouping();
    EXPECT_RAISES("NSInternalInconsistencyException: 'NSUndoManager' undo: a group has not been ended", manager.undo());
    manager.endUndoGrouping();
    manager.setGroupsByEvent(false);
    EXPECT_RAISES("NSInternalInconsistencyException: 'NSUndoManager' registerUndo: no group was begun",
                  counter->setTo(integer(1)));
    manager.disableUndoRegistration();
    counter->setTo(integer(1));
    EXPECT_FALSE(manager.canUndo());
}

TEST(UndoManagers, AreWholeAfterAnActionThatRaises) {
    const Ref<UndoableNumber> counter = velt::make<UndoableNumber>();
    NSUndoManager& manager = *counter->manager;
    manager.registerUndo(counter, velt::Selector::named("fail"), {});
    EXPECT_RAISES("VLException: cannot be undone", manager.undo());
    EXPECT_FALSE(manager.isUndoing());
    EXPECT_FALSE(manager.canUndo());
    counter->setTo(integer(1));
    manager.undo();
    EXPECT_VALUE("q 0", counter->number);
}

TEST(UndoManagers, AreWholeAfterAnActionThatEndsTheirGroup) {
    const Ref<UndoableNumber> counter = velt::make<UndoableNumber>();
    NSUndoManager& manager = *counter->manager;
    manager.registerUndo(counter->manager, velt::Selector::named("endUndoGrouping"), {});
    manager.undo();
    EXPECT_FALSE(manager.isUndoing());
    EXPECT_FALSE(manager.canUndo());
    counter->setTo(integer(1));
    manager.undo();
    EXPECT_VALUE("q 0", counter->number);
}

TEST(UndoManagers, KeepAsManyGroupsAsTheyAreTold) {
    const Ref<UndoableNumber> counter = velt::make<UndoableNumber>();
    NSUndoManager& manager = *counter->manager;
    manager.setLevelsOfUndo(2);
    for (long value : {1L, 2L, 3L}) {
        counter->setTo(integer(value));
        manager.endEvent();
    }
    for (int i = 0; i < 3; ++i) manager.undo();
    EXPECT_VALUE("q 1", counter->number);
    manager.removeAllActionsWithTarget(counter);
    EXPECT_FALSE(manager.canRedo());
}

TEST(UndoManagers, TellWhenTheyUndoAndRedo) {
    const Ref<UndoableNumber> counter = velt::make<UndoableNumber>();
    auto& center = NSNotificationCenter::defaultCenter();
    center.addObserver(counter, velt::Selector::named("heard:"), nil, counter->manager);
    counter->setTo(integer(1));
    counter->manager->undo();
    counter->manager->redo();
    EXPECT_EQ("NSUndoManagerWillUndoChangeNotification NSUndoManagerDidUndoChangeNotification "
              "NSUndoManagerWillRedoChangeNotification NSUndoManagerDidRedoChangeNotification ",
              counter->told);
    center.removeObserver(counter);
}

TEST(UndoManagers, GoWithTheirTargets) {
    velt::collectCycles();
    {
        const Ref<UndoableNumber> counter = velt::make<UndoableNumber>();
        counter->setTo(integer(1));  // the manager owns the counter, which owns the manager
    }
    velt::RunLoop::current().runOnce(0.01);
    EXPECT_EQ(2u, velt::collectCycles());
}

TEST(UndoManagers, AreWholeWhenACollectionBeginsWithWhatTheyForget) {
    const auto collecting = [](auto&& forget) {
        velt::setCycleStress(true);
        forget();
        velt::setCycleStress(false);
    };
    const Ref<UndoableNumber> counter = velt::make<UndoableNumber>();
    NSUndoManager& manager = *counter->manager;
    const auto setFourTimes = [&] {
        for (long i = 0; i < 4; ++i) {
            counter->setTo(integer(i));
            manager.endEvent();
        }
    };
    setFourTimes();
    collecting([&] { manager.removeAllActions(); });
    EXPECT_FALSE(manager.canUndo());
    setFourTimes();
    collecting([&] { manager.setLevelsOfUndo(1); });
    manager.undo();
    EXPECT_VALUE("q 2", counter->number);
    EXPECT_FALSE(manager.canUndo());
    manager.setLevelsOfUndo(0);
    setFourTimes();
    for (int i = 0; i < 4; ++i) manager.undo();
    EXPECT_TRUE(manager.canRedo());
    collecting([&] { counter->setTo(integer(7)); });
    EXPECT_FALSE(manager.canRedo());
    manager.removeAllActionsWithTarget(counter);
    EXPECT_FALSE(manager.canUndo());
    EXPECT_VALUE("q 7", counter->number);
}
