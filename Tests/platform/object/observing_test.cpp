#include "support/observers.h"

using namespace velt::test;
using velt::addObserver;
using velt::kObserveInitial;
using velt::kObserveNew;
using velt::kObserveOld;
using velt::kObservePrior;
using velt::removeObserver;

namespace {

constexpr unsigned kBoth = kObserveNew | kObserveOld;

class Observing : public testing::Test {
protected:
    velt::Ref<Model> model = velt::make<Model>();
    velt::Ref<Watcher> watcher = velt::make<Watcher>();
    void watch(std::string_view keyPath, unsigned options = kBoth) { addObserver(model, watcher, keyPath, options); }
};

}  // namespace

TEST_F(Observing, HearsOfChangesByKeyAndByMessage) {
    watch("value");
    velt::setValueForKey(model, "value", integer(1));
    velt::send(model, "setValue:", integer(2));
    velt::send(model, VELT_SELECTOR("setValue:"), integer(3));
    velt::send(model, "setValue:forKeyPath:", nil, str("value"));
    EXPECT_EQ("value 1 nil->1; value 1 1->2; value 1 2->3; value 1 3->nil", watcher->told());
    EXPECT_EQ(model.get(), watcher->lastObject);
    velt::setValueForKey(model, "number", integer(5));
    EXPECT_EQ("", watcher->told());
}

TEST_F(Observing, HearsOfChangesBySettersOfCpp) {
    watch("title");
    model->setTitle(str("a"));
    velt::setValueForKey(model, "title", str("b"));
    velt::send(model, "setTitle:", str("c"));
    EXPECT_EQ("title 1 nil->a; title 1 a->b; title 1 b->c", watcher->told());
}

TEST_F(Observing, GivesWhatWasAskedFor) {
    watch("value", 0);
    velt::setValueForKey(model, "value", integer(1));
    EXPECT_EQ("value 1", watcher->told());
    removeObserver(model, watcher, "value");
    watch("value", kObserveNew);
    velt::setValueForKey(model, "value", integer(2));
    EXPECT_EQ("value 1 nil->2", watcher->told());
    removeObserver(model, watcher, "value");
    watch("value", kObserveOld);
    velt::setValueForKey(model, "value", integer(3));
    EXPECT_EQ("value 1 2->nil", watcher->told());
}

TEST_F(Observing, BeginsWithTheValueAndTellsBeforeTheChange) {
    velt::setValueForKey(model, "value", integer(1));
    watch("value", kBoth | kObserveInitial | kObservePrior);
    EXPECT_EQ("value 1 nil->1", watcher->told());
    velt::setValueForKey(model, "value", integer(2));
    EXPECT_EQ("value 1 1->nil prior; value 1 1->2", watcher->told());
}

TEST_F(Observing, HandsTheContextOver) {
    addObserver(model, watcher, "value", 0, str("mine"));
    velt::setValueForKey(model, "value", integer(1));
    EXPECT_VALUE("'mine'", watcher->lastContext);
}

TEST_F(Observing, FollowsPathsWhoseMiddleChanges) {
    const velt::Ref<Model> first = velt::make<Model>(), second = velt::make<Model>();
    first->value = integer(1);
    second->value = integer(2);
    model->next = first;
    watch("next.value");
    velt::setValueForKey(first, "value", integer(10));
    EXPECT_EQ("next.value 1 1->10", watcher->told());
    velt::setValueForKey(model, "next", second);
    EXPECT_EQ("next.value 1 10->2", watcher->told());
    velt::setValueForKey(first, "value", integer(11));
    EXPECT_EQ("", watcher->told());
    velt::setValueForKey(second, "value", integer(20));
    EXPECT_EQ("next.value 1 2->20", watcher->told());
    velt::setValueForKey(model, "next", nil);
    EXPECT_EQ("next.value 1 20->nil", watcher->told());
    velt::setValueForKey(second, "value", integer(21));
    EXPECT_EQ("", watcher->told());
    velt::setValueForKey(model, "next", second);
    velt::setValueForKey(second, "value", integer(22));
    EXPECT_EQ("next.value 1 nil->21; next.value 1 21->22", watcher->told());
    EXPECT_FALSE(first->isAttached());
}

TEST_F(Observing, FollowsValuesThatFollowFromOthers) {
    model->value = str("a");
    watch("label");
    velt::setValueForKey(model, "value", str("b"));
    EXPECT_EQ("label 1 label a->label b", watcher->told());
    const velt::Ref<Model> next = velt::make<Model>();
    velt::setValueForKey(model, "next", next);
    velt::setValueForKey(next, "value", integer(1));
    EXPECT_EQ("label 1 label b->label b; label 1 label b->label b", watcher->told());
}

TEST_F(Observing, HearsOfElementsOfTheObservedArray) {
    watch("list");
    const id list = model->list;
    VELT_NSMUTABLEARRAY_APPEND(list, str("a"));
    VELT_NSMUTABLEARRAY_INSERT(list, str("b"), integer(0));
    VELT_NSMUTABLEARRAY_REPLACE(list, str("c"), integer(1));
    VELT_NSMUTABLEARRAY_REMOVE(list, integer(0));
    EXPECT_EQ("list 2 nil->(a) at {0, 1}; list 2 nil->(b) at {0, 1}; list 4 (a)->(c) at {1, 1}; "
              "list 3 (b)->nil at {0, 1}",
              watcher->told());
    velt::send(list, "addObject:", str("d"));
    VELT_NSMUTABLEARRAY_REMOVEALL(list);
    VELT_NSMUTABLEARRAY_REMOVEALL(list);
    EXPECT_EQ("list 2 nil->(d) at {1, 1}; list 3 (c, d)->nil at {0, 2}", watcher->told());
    EXPECT_RAISES("NSRangeException: 'NSMutableArray' removeObjectAtIndex:: index 0 is out of range; the count is 0",
                  VELT_NSMUTABLEARRAY_REMOVE(list, integer(0)));
    EXPECT_EQ("", watcher->told());
}

TEST_F(Observing, FollowsTheArrayThatThePropertyHolds) {
    watch("list", kObserveNew);
    const id before = model->list;
    velt::setValueForKey(model, "list", array(integer(1)));
    VELT_NSMUTABLEARRAY_APPEND(before, integer(2));
    VELT_NSMUTABLEARRAY_APPEND(model->list, integer(3));
    EXPECT_EQ("list 1 nil->(1); list 2 nil->(3) at {1, 1}", watcher->told());
    EXPECT_FALSE(before.object()->isAttached());
    velt::setValueForKey(model, "value", nil);
    watch("value", kObserveNew);
    velt::setValueForKey(model, "value", array());
    VELT_NSMUTABLEARRAY_APPEND(model->value, integer(4));
    EXPECT_EQ("value 1 nil->(); value 2 nil->(4) at {0, 1}", watcher->told());
}

TEST_F(Observing, FollowsWhatIsComputedOverAnArray) {
    watch("list.@count");
    watch("list.@sum.self", kObserveNew);
    VELT_NSMUTABLEARRAY_APPEND(model->list, integer(5));
    EXPECT_EQ("list.@count 1 0->1; list.@sum.self 1 nil->5", watcher->told());
    velt::setValueForKey(model, "list", array(integer(1), integer(2)));
    EXPECT_EQ("list.@count 1 1->2; list.@sum.self 1 nil->3", watcher->told());
}

TEST_F(Observing, FollowsWhatTheElementsOfAnArrayHave) {
    const velt::Ref<Model> first = velt::make<Model>(), second = velt::make<Model>();
    first->value = integer(1);
    second->value = integer(2);
    VELT_NSMUTABLEARRAY_APPEND(model->list, first);
    VELT_NSMUTABLEARRAY_APPEND(model->list, first);
    watch("list.@sum.value", kObserveNew);
    velt::setValueForKey(first, "value", integer(10));
    EXPECT_EQ("list.@sum.value 1 nil->20", watcher->told());
    VELT_NSMUTABLEARRAY_APPEND(model->list, second);
    velt::setValueForKey(second, "value", integer(3));
    EXPECT_EQ("list.@sum.value 1 nil->22; list.@sum.value 1 nil->23", watcher->told());
    VELT_NSMUTABLEARRAY_REMOVE(model->list, integer(2));
    EXPECT_EQ("list.@sum.value 1 nil->20", watcher->told());
    velt::setValueForKey(second, "value", integer(4));
    EXPECT_EQ("", watcher->told());
}

TEST_F(Observing, TellsNilAsTheNullObject) {
    id told;
    watcher->onChange = [&] { told = watcher->lastChange; };
    watch("value", kObserveOld | kObserveNew | kObserveInitial);
    EXPECT_VALUE("NSMutableDictionary {kind = 1; new = <null>}", told);
    velt::setValueForKey(model, "value", integer(1));
    EXPECT_VALUE("NSMutableDictionary {kind = 1; old = <null>; new = 1}", told);
    EXPECT_TRUE(velt::valueForKey(told, "old") == NSNull::null());
    velt::setValueForKey(model, "value", nil);
    EXPECT_VALUE("NSMutableDictionary {kind = 1; old = 1; new = <null>}", told);
}

TEST_F(Observing, MakesArraysChangeable) {
    velt::setValueForKey(model, "list", frozenArray(integer(1)));
    watch("list", kObserveNew);
    const id list = velt::send(model, "mutableArrayValueForKey:", str("list"));
    VELT_NSMUTABLEARRAY_APPEND(list, integer(2));
    EXPECT_EQ("list 1 nil->(1); list 2 nil->(2) at {1, 1}", watcher->told());
    EXPECT_TRUE(velt::send(model, "mutableArrayValueForKey:", str("list")) == list);
    EXPECT_VALUE("NSMutableArray ()", velt::mutableArrayForKey(model, "value"));
    EXPECT_CAST_FAILURE("'NSArray' expected", velt::mutableArrayForKey(model, "number"));
}

TEST_F(Observing, HearsOfEntriesOfADictionary) {
    const id book = emptyDictionary();
    addObserver(book, watcher, "a", kBoth);
    VELT_NSMUTABLEDICTIONARY_INSERT(book, str("a"), integer(1));
    VELT_NSMUTABLEDICTIONARY_INSERT(book, str("b"), integer(1));
    VELT_NSMUTABLEDICTIONARY_REPLACE(book, str("a"), integer(2));
    VELT_NSMUTABLEDICTIONARY_REMOVE(book, str("a"));
    VELT_NSMUTABLEDICTIONARY_REMOVE(book, str("a"));
    velt::setValueForKey(book, "a", integer(3));
    VELT_NSMUTABLEDICTIONARY_REMOVEALL(book);
    EXPECT_EQ("a 1 nil->1; a 1 1->2; a 1 2->nil; a 1 nil->3; a 1 3->nil", watcher->told());
    model->value = book;
    watch("value.c.d");
    velt::setValueForKeyPath(model, "value.c", emptyDictionary());
    velt::setValueForKeyPath(model, "value.c.d", integer(4));
    EXPECT_EQ("value.c.d 1; value.c.d 1 nil->4", watcher->told());
}

TEST_F(Observing, HearsOfChangesThatTheProgramAnnounces) {
    watch("value");
    velt::send(model, "willChangeValueForKey:", str("value"));
    model->value = integer(8);
    EXPECT_EQ("", watcher->told());
    velt::send(model, "didChangeValueForKey:", str("value"));
    EXPECT_EQ("value 1 nil->8", watcher->told());
    velt::send(model, "didChangeValueForKey:", str("value"));
    velt::send(integer(1), "willChangeValueForKey:", str("value"));
    EXPECT_EQ("", watcher->told());
    watch("announced", 0);
    velt::willChangeValue(*model, "announced");
    velt::didChangeValue(*model, "announced");
    EXPECT_EQ("announced 1", watcher->told());
    watch("announced", kObserveOld);
    EXPECT_RAISES("NSUnknownKeyException: 'Model' has no value for key 'announced'",
                  velt::willChangeValue(*model, "announced"));
}

TEST_F(Observing, HearsOnceOfAChangeWithinAChange) {
    watch("value");
    velt::willChangeValue(*model, "value");
    velt::setValueForKey(model, "value", integer(1));
    velt::setValueForKey(model, "value", integer(2));
    velt::didChangeValue(*model, "value");
    EXPECT_EQ("value 1 nil->2", watcher->told());
}

TEST_F(Observing, HearsOfElementsThatTheProgramAnnounces) {
    model->value = frozenArray(integer(1));
    watch("value");
    velt::send(model, "willChange:valuesAtIndexes:forKey:", integer(2), range(1, 1), str("value"));
    model->value = frozenArray(integer(1), integer(2));
    velt::send(model, "didChange:valuesAtIndexes:forKey:", integer(2), range(1, 1), str("value"));
    EXPECT_EQ("value 2 nil->(2) at {1, 1}", watcher->told());
    EXPECT_RAISES("NSInvalidArgumentException: 5 is no kind of change",
                  velt::send(model, "willChange:valuesAtIndexes:forKey:", integer(5), range(1, 1), str("value")));
}

TEST_F(Observing, ForgetsAChangeThatFails) {
    watch("number");
    EXPECT_CAST_FAILURE("'Integer' expected", velt::setValueForKey(model, "number", array()));
    EXPECT_EQ("", watcher->told());
    velt::setValueForKey(model, "number", integer(1));
    EXPECT_EQ("number 1 0->1", watcher->told());
}

TEST_F(Observing, EndsWithTheLatestRegistration) {
    addObserver(model, watcher, "value", 0, str("first"));
    addObserver(model, watcher, "value", 0, str("second"));
    removeObserver(model, watcher, "value");
    velt::setValueForKey(model, "value", integer(1));
    EXPECT_EQ("value 1", watcher->told());
    EXPECT_VALUE("'first'", watcher->lastContext);
    velt::send(model, "removeObserver:forKeyPath:", watcher, str("value"));
    velt::setValueForKey(model, "value", integer(2));
    EXPECT_EQ("", watcher->told());
    EXPECT_FALSE(model->isAttached());
    EXPECT_FALSE(watcher->isAttached());
}

TEST_F(Observing, EndsByContext) {
    const id first = str("first"), second = str("second");
    addObserver(model, watcher, "value", 0, first);
    addObserver(model, watcher, "value", 0, second);
    velt::send(model, "removeObserver:forKeyPath:context:", watcher, str("value"), first);
    velt::setValueForKey(model, "value", integer(1));
    EXPECT_EQ("value 1", watcher->told());
    EXPECT_TRUE(watcher->lastContext == second);
}

TEST_F(Observing, FailsByName) {
    EXPECT_RAISES("NSRangeException: 'Watcher' does not observe 'value' of 'Model'",
                  removeObserver(model, watcher, "value"));
    EXPECT_RAISES("NSRangeException: nil does not observe 'value' of 'Model'", removeObserver(model, nil, "value"));
    EXPECT_RAISES("NSInvalidArgumentException: a value of 'NSNumber' cannot be observed",
                  addObserver(integer(1), watcher, "value", 0));
    EXPECT_RAISES("NSInvalidArgumentException: nil cannot observe", addObserver(model, nil, "value", 0));
    EXPECT_RAISES("NSUnknownKeyException: 'Model' has no value for key 'nothing'", watch("nothing.value"));
    EXPECT_RAISES(
        "NSInternalInconsistencyException: 'Model' heard of a change of 'value' of nil and does not handle it",
        velt::send(model, "observeValueForKeyPath:ofObject:change:context:", str("value"), nil, nil, nil));
    EXPECT_FALSE(model->isAttached());
    addObserver(model, model, "value", 0);
    EXPECT_RAISES("NSInternalInconsistencyException: 'Model' heard of a change of 'value' of 'Model' and does not "
                  "handle it",
                  velt::setValueForKey(model, "value", integer(1)));
}

TEST_F(Observing, IsSafeToEndWhileAChangeIsTold) {
    const velt::Ref<Watcher> second = velt::make<Watcher>();
    watch("value");
    addObserver(model, second, "value", kBoth);
    watcher->onChange = [&] {
        removeObserver(model, watcher, "value");
        removeObserver(model, second, "value");
    };
    velt::setValueForKey(model, "value", integer(1));
    EXPECT_EQ("value 1 nil->1", watcher->told());
    EXPECT_EQ("", second->told());
}

TEST_F(Observing, IsSafeToBeginWhileAChangeIsTold) {
    const velt::Ref<Watcher> second = velt::make<Watcher>();
    watch("value");
    watcher->onChange = [&] {
        if (watcher->log.size() == 1) addObserver(model, second, "value", kBoth);
    };
    velt::setValueForKey(model, "value", integer(1));
    EXPECT_EQ("", second->told());
    velt::setValueForKey(model, "value", integer(2));
    EXPECT_EQ("value 1 1->2", second->told());
}

TEST_F(Observing, MayChangeTheValueAgain) {
    watch("value");
    watcher->onChange = [&] {
        if (model->value == integer(1)) velt::setValueForKey(model, "value", integer(2));
    };
    velt::setValueForKey(model, "value", integer(1));
    EXPECT_EQ("value 1 nil->1; value 1 1->2", watcher->told());
}

TEST_F(Observing, KeepsNeitherSideAliveAndEndsWithEither) {
    const long before = Model::living();
    {
        const velt::Ref<Model> brief = velt::make<Model>();
        addObserver(brief, watcher, "value", 0);
        EXPECT_EQ(1u, brief->ownerCount());
    }
    EXPECT_EQ(before, Model::living().load());
    EXPECT_FALSE(watcher->isAttached());
    {
        const velt::Ref<Watcher> brief = velt::make<Watcher>();
        addObserver(model, brief, "value", 0);
        addObserver(model, brief, "next.value", 0);
        EXPECT_EQ(1u, brief->ownerCount());
    }
    EXPECT_FALSE(model->isAttached());
    velt::setValueForKey(model, "value", integer(1));
}

TEST_F(Observing, OutlivesAnObjectInTheMiddle) {
    watch("next.value");
    {
        const velt::Ref<Model> brief = velt::make<Model>();
        velt::setValueForKey(model, "next", brief);
    }
    model->next = nil;  // not announced: the object goes with its observation
    velt::setValueForKey(model, "next", velt::make<Model>());
    velt::setValueForKeyPath(model, "next.value", integer(1));
    EXPECT_EQ("next.value 1; next.value 1; next.value 1 nil->1", watcher->told());
}

TEST_F(Observing, KeepsTheContextWithoutKeepingACycleAlive) {
    const long before = Model::living();
    {
        const velt::Ref<Model> own = velt::make<Model>();
        const velt::Ref<Watcher> its = velt::make<Watcher>();
        own->next = its;
        its->owned = own;
        addObserver(own, its, "value", kBoth, array(own, its));
        addObserver(own, own, "next", kBoth, own);
    }
    velt::collectCycles();
    EXPECT_EQ(before, Model::living().load());
}

TEST_F(Observing, ReachesThousandsOfObserversInOrder) {
    std::vector<velt::Ref<Watcher>> many;
    std::vector<std::size_t> order;
    for (std::size_t i = 0; i < 3000; ++i) {
        many.push_back(velt::make<Watcher>());
        many.back()->onChange = [&order, i] { order.push_back(i); };
        addObserver(model, many.back(), "value", 0);
    }
    velt::setValueForKey(model, "value", integer(1));
    ASSERT_EQ(3000u, order.size());
    EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));
    for (const auto& each : many) removeObserver(model, each, "value");
    EXPECT_FALSE(model->isAttached());
}

TEST_F(Observing, MayChangeTheArrayBeforeItChanges) {
    VELT_NSMUTABLEARRAY_APPEND(model->list, integer(1));
    watch("list", kObservePrior);
    watcher->onChange = [&] {
        if (watcher->log.size() == 1) VELT_NSMUTABLEARRAY_REMOVEALL(model->list);
    };
    EXPECT_RAISES("NSRangeException: 'NSMutableArray' replaceObjectAtIndex:withObject:: index 0 is out of range; the "
                  "count is 0",
                  VELT_NSMUTABLEARRAY_REPLACE(model->list, integer(2), integer(0)));
    EXPECT_VALUE("NSMutableArray ()", model->list);
}

TEST_F(Observing, HearsOfKeysThatTheClassKeepsItself) {
    const id book = emptyDictionary();
    addObserver(book, watcher, "a", kObserveNew);
    velt::send(book, "setValue:forKey:", integer(1), str("a"));
    velt::send(book, "setObject:forKey:", integer(2), str("a"));
    EXPECT_EQ("a 1 nil->1; a 1 nil->2", watcher->told());
}
