#include "VELTRuntime/platform/foundation/notification_center.h"

#include "VELTRuntime/platform/foundation/observer_table.h"
#include "VELTRuntime/platform/object/cycles.h"
#include "support/generated.h"
#include "support/values.h"

#include <atomic>
#include <thread>

using namespace velt::test;

namespace {

NSNotificationCenter& center() { return NSNotificationCenter::defaultCenter(); }

class Observer : public NSObject {
    VELT_OBJECT(Observer, NSObject)
public:
    void see(NSNotification* notification) {
        seen += velt::utf8(notification->name()) + " ";
        last = id(notification);
        if (whenSeen) whenSeen();
    }
    void fail(const id&) { VELT_CINTEGER(nil); }
    static void describe(velt::ClassBuilder<Observer>& c) {
        c.method("see:", &Observer::see)
            .method("fail:", &Observer::fail)
            .owns(&Observer::last)
            .owns(&Observer::friend_);
    }

    std::string seen;
    id last, friend_;
    std::function<void()> whenSeen;
};

/// May be told by several threads at once.
class CountingObserver : public NSObject {
    VELT_OBJECT(CountingObserver, NSObject)
public:
    void see(const id&) { ++count; }
    static void describe(velt::ClassBuilder<CountingObserver>& c) { c.method("see:", &CountingObserver::see); }
    std::atomic<int> count = 0;
};

class Notifications : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(0u, center().observerCount()); }
    void TearDown() override {
        for (const auto& observer : {a, b, c}) center().removeObserver(observer);
        ASSERT_EQ(0u, center().observerCount());
    }
    static void add(const id& observer, const id& name = nil, const id& object = nil) {
        center().addObserver(observer, VELT_SELECTOR("see:"), name, object);
    }

    velt::Ref<Observer> a = velt::make<Observer>(), b = velt::make<Observer>(), c = velt::make<Observer>();
    id sender = array(), other = array();
};

}  // namespace

TEST_F(Notifications, CarryNameObjectAndInformation) {
    add(a, str("Ready"));
    const id information = emptyDictionary();
    center().post(str("Ready"), sender, information);
    EXPECT_VALUE("'Ready'", velt::valueForKey(a->last, "name"));
    EXPECT_EQ(sender, velt::send(a->last, "object"));
    EXPECT_EQ(information, velt::send(a->last, "userInfo"));
    center().post(str("Ready"));
    EXPECT_VALUE("nil", velt::send(a->last, "object"));
    a->last = nil;
}

TEST_F(Notifications, AreSelectedByNameAndObject) {
    const auto all = velt::make<Observer>(), named = velt::make<Observer>(), from = velt::make<Observer>(),
               both = velt::make<Observer>();
    add(all);
    add(named, str("A"));
    add(from, nil, sender);
    add(both, str("A"), sender);
    for (const char* name : {"A", "B"}) {
        for (const id& object : {sender, other, id()}) center().post(str(name), object);
    }
    EXPECT_EQ("A A A B B B ", all->seen);
    EXPECT_EQ("A A A ", named->seen);
    EXPECT_EQ("A B ", from->seen);
    EXPECT_EQ("A ", both->seen);
}

TEST_F(Notifications, ComeInTheOrderOfTheObserversAdding) {
    std::string order;
    a->whenSeen = [&] { order += "a"; };
    b->whenSeen = [&] { order += "b"; };
    c->whenSeen = [&] { order += "c"; };
    add(c, nil, sender);
    add(a, str("A"));
    add(b);
    add(c, str("A"), sender);
    add(b, str("A"));
    add(a);
    center().post(str("A"), sender);
    EXPECT_EQ("cabcba", order);
}

TEST_F(Notifications, StopWhenTheObserverIsRemoved) {
    const auto count = [](int expected) { EXPECT_EQ(static_cast<std::size_t>(expected), center().observerCount()); };
    add(a, str("A"));
    add(a, str("A"), sender);
    add(a, str("B"), sender);
    add(a, str("B"), other);
    add(a);
    add(b, str("A"));
    center().removeObserver(a, str("A"), sender);
    count(5);
    center().removeObserver(a, str("C"));
    center().removeObserver(c);
    count(5);
    center().removeObserver(a, str("B"));
    count(3);
    center().removeObserver(a, nil, sender);
    count(3);
    center().post(str("A"), sender);
    EXPECT_EQ("A A ", a->seen);
    center().removeObserver(a);
    count(1);
    center().post(str("A"), sender);
    EXPECT_EQ("A A ", a->seen);
    EXPECT_EQ("A A ", b->seen);
}

TEST_F(Notifications, AreToldTwiceToWhoAsksTwice) {
    add(a, str("A"));
    add(a, str("A"));
    center().post(str("A"));
    EXPECT_EQ("A A ", a->seen);
}

TEST_F(Notifications, DoNotKeepTheirObserversOrSendersAlive) {
    const id observer = velt::make<Observer>();
    const auto owners = observer.object()->ownerCount();
    {
        const id gone = velt::make<Observer>(), from = array(), text = str("a sender that is a string");
        add(gone, str("A"));
        add(observer, str("A"), from);
        add(observer, nil, text);
        add(observer, str("A"));
        EXPECT_EQ(owners, observer.object()->ownerCount());
        EXPECT_EQ(4u, center().observerCount());
    }
    EXPECT_EQ(1u, center().observerCount());
    center().post(str("A"));
    EXPECT_EQ("A ", velt::as<Observer>(observer)->seen);
}

TEST_F(Notifications, LetDroppedCyclesOfObserversGo) {
    {
        auto first = velt::make<Observer>(), second = velt::make<Observer>();
        add(first, str("A"));
        add(second, str("A"), first);
        first->friend_ = second;
        second->friend_ = first;
    }
    EXPECT_EQ(2u, center().observerCount());
    velt::collectCycles();
    EXPECT_EQ(0u, center().observerCount());
}

TEST_F(Notifications, AllowChangesWhileTheyArePosted) {
    a->whenSeen = [&] {
        center().removeObserver(b);
        add(c, str("A"));
        center().removeObserver(a);
        a->whenSeen = nullptr;
    };
    add(a, str("A"));
    add(b, str("A"));
    center().post(str("A"));
    EXPECT_EQ("A ", a->seen);
    EXPECT_EQ("", b->seen);
    EXPECT_EQ("", c->seen);
    center().post(str("A"));
    EXPECT_EQ("A ", a->seen);
    EXPECT_EQ("A ", c->seen);
}

TEST_F(Notifications, DropAnObserverThatGoesWhileTheyArePosted) {
    id gone = velt::make<Observer>();
    a->whenSeen = [&] { gone = nil; };
    add(a, str("A"));
    add(gone, str("A"));
    add(b, str("A"));
    center().post(str("A"));
    EXPECT_EQ("A ", b->seen);
    EXPECT_EQ(2u, center().observerCount());
}

TEST_F(Notifications, MayBePostedByAnObserver) {
    int depth = 0;
    a->whenSeen = [&] {
        if (++depth < 3) center().post(str("A"));
    };
    add(a, str("A"));
    add(b, str("A"));
    center().post(str("A"));
    EXPECT_EQ("A A A ", a->seen);
    EXPECT_EQ("A A A ", b->seen);
}

TEST_F(Notifications, EndWithWhatAnObserverRaises) {
    add(a, str("A"));
    center().addObserver(b, VELT_SELECTOR("fail:"), str("A"), nil);
    add(c, str("A"));
    EXPECT_CAST_FAILURE("'Integer' expected", center().post(str("A")));
    EXPECT_EQ("A ", a->seen);
    EXPECT_EQ("", c->seen);
    center().removeObserver(b);
    center().post(str("A"));
    EXPECT_EQ("A ", c->seen);
}

TEST_F(Notifications, NeedANameToBePosted) {
    EXPECT_CAST_FAILURE("'String' expected", center().post(nil));
    EXPECT_CAST_FAILURE("'String' expected", center().post(integer(5)));
    EXPECT_CAST_FAILURE("'String' expected", add(a, integer(5)));
}

TEST_F(Notifications, AreReachedByName) {
    const id shared = VELT_id_NSNOTIFICATIONCENTER;
    velt::send(shared, "addObserver:selector:name:object:", a, str("see:"), str("A"), nil);
    velt::send(shared, "postNotificationName:object:", str("A"), sender);
    velt::send(shared, "postNotificationName:object:userInfo:", str("A"), sender, emptyDictionary());
    velt::send(shared, "postNotification:", a->last);
    EXPECT_EQ("A A A ", a->seen);
    a->last = nil;
    velt::send(shared, "removeObserver:name:object:", a, str("A"), nil);
    velt::send(shared, "addObserver:selector:name:object:", a, str("see:"), nil, nil);
    velt::send(shared, "removeObserver:", a);
    EXPECT_EQ(0u, center().observerCount());
}

TEST_F(Notifications, NumberAMillionAndMore) {
    const int many = iterations(1'000'000);
    velt::Ref<NSMutableArray> observers = velt::make<NSMutableArray>();
    for (int i = 0; i < many / 10; ++i) {
        observers->append(velt::make<Observer>());
        add(observers->at(i), str("A"), i % 2 ? sender : id());
    }
    center().post(str("A"), sender);
    EXPECT_EQ("A ", velt::as<Observer>(observers->at(many / 10 - 1))->seen);
    observers->removeAll();
    EXPECT_EQ(0u, center().observerCount());
    int count = 0;
    a->whenSeen = [&] { ++count; };
    add(a, str("B"));
    for (int i = 0; i < many; ++i) center().post(i % 2 ? str("B") : str("nobody's"), sender);
    EXPECT_EQ(many / 2, count);
}

TEST_F(Notifications, ComeAndGoOnEveryThread) {
    std::atomic<bool> done = false;
    std::vector<std::thread> threads;
    for (int t = 0; t < 2; ++t) {
        threads.emplace_back([&] {
            const velt::ThreadScope scope;
            for (int i = 0; i < iterations(20'000); ++i) {
                const id observer = velt::make<CountingObserver>();
                add(observer, str("A"), i % 3 ? sender : id());
                center().post(str("A"), sender);
                EXPECT_LT(0, velt::as<CountingObserver>(observer)->count);
                if (i % 2) center().removeObserver(observer);
            }
        });
    }
    std::thread poster([&] {
        const velt::ThreadScope scope;
        while (!done) center().post(str("A"), sender);
    });
    for (std::thread& thread : threads) thread.join();
    done = true;
    poster.join();
    EXPECT_EQ(0u, center().observerCount());
}

class GeneratedObservers : public Generated {};

TEST_F(GeneratedObservers, AreToldAsAPlainListSays) {
    struct Added {
        velt::Word observer;
        std::optional<std::u16string> name;
        velt::Word sender;
    };
    std::vector<Added> expected;
    velt::ObserverTable table;
    const velt::Selector selector = VELT_SELECTOR("see:");
    const auto word = [](std::size_t number) {
        return number == 0 ? velt::kNilWord : velt::integerWord(static_cast<long>(number));
    };
    const auto name = [&]() -> std::optional<std::u16string> {
        const std::size_t number = below(5);
        if (number == 0) return std::nullopt;
        return std::u16string(number, u'n');
    };
    const auto viewOf = [](const std::optional<std::u16string>& text) {
        return text ? velt::ObserverTable::Name(*text) : std::nullopt;
    };
    for (int step = 0; step < iterations(20'000); ++step) {
        const Added chosen{word(1 + below(8)), name(), word(below(6))};
        switch (below(4)) {
        case 0:
            table.remove(chosen.observer, viewOf(chosen.name), chosen.sender);
            std::erase_if(expected, [&](const Added& added) {
                return added.observer == chosen.observer && (!chosen.name || added.name == chosen.name) &&
                       (chosen.sender == velt::kNilWord || added.sender == chosen.sender);
            });
            break;
        case 1: {
            const std::u16string posted = chosen.name.value_or(u"unknown");
            std::vector<velt::Word> told, wanted;
            for (const Added& added : expected) {
                if ((!added.name || *added.name == posted) &&
                    (added.sender == velt::kNilWord || added.sender == chosen.sender)) {
                    wanted.push_back(added.observer);
                }
            }
            velt::ObserverTable::Walk walk(table, posted, chosen.sender);
            for (auto next = walk.next(); !next.observer.isNil(); next = walk.next()) {
                told.push_back(next.observer.word());
            }
            ASSERT_EQ(wanted, told);
            break;
        }
        case 2:
            if (below(20) != 0) break;
            table.forget(chosen.observer);
            std::erase_if(expected, [&](const Added& added) {
                return added.observer == chosen.observer || added.sender == chosen.observer;
            });
            break;
        default: table.add(chosen.observer, selector, viewOf(chosen.name), chosen.sender); expected.push_back(chosen);
        }
        ASSERT_EQ(expected.size(), table.size());
    }
}
