#include "VELTRuntime/platform/foundation/run_loop.h"
#include "VELTRuntime/platform/object/cycles.h"
#include "support/generated.h"
#include "support/values.h"

#include <thread>

using namespace velt::test;
using velt::RunLoop;

namespace {

class Listener : public NSObject {
    VELT_OBJECT(Listener, NSObject)
public:
    void hear(const id& what) {
        heard += velt::utf8(velt::description(what)) + " ";
        thread = std::this_thread::get_id();
    }
    void tick() { heard += "tick "; }
    void fail(const id& what) { VELT_CINTEGER(what); }
    static void describe(velt::ClassBuilder<Listener>& c) {
        c.method("hear:", &Listener::hear).method("tick", &Listener::tick).method("fail:", &Listener::fail);
    }

    std::string heard;
    std::thread::id thread;
};

void finish() { RunLoop::current().runUntil(60, RunLoop::WhenDone::Return); }

}  // namespace

TEST(DelayedMessages, ComeWithTheRunLoopInTheOrderOfTheirTimes) {
    const auto listener = velt::make<Listener>();
    EXPECT_VALUE("nil", VELT_NSOBJECT_PERFORMSELECTORDELAYED(listener, str("hear:"), str("c"), real(0.003)));
    VELT_NSOBJECT_PERFORMSELECTORDELAYED(listener, str("hear:"), str("b"), str("0.001"));
    EXPECT_VALUE("nil", VELT_NSOBJECT_PERFORMSELECTORNEXTRUNLOOP(listener, str("hear:"), str("a")));
    VELT_NSOBJECT_PERFORMSELECTORNEXTRUNLOOP(listener, str("tick"), str("ignored"));
    EXPECT_EQ("", listener->heard);
    finish();
    EXPECT_EQ("a tick b c ", listener->heard);
}

TEST(DelayedMessages, KeepTheirReceiverAndArgumentUntilTheyAreSent) {
    auto listener = velt::make<Listener>();
    const id object = listener, argument = array(integer(1));
    const auto owners = object.object()->ownerCount();
    VELT_NSOBJECT_PERFORMSELECTORNEXTRUNLOOP(object, str("hear:"), argument);
    EXPECT_EQ(owners + 1, object.object()->ownerCount());
    EXPECT_EQ(2u, argument.object()->ownerCount());
    finish();
    EXPECT_EQ("(1) ", listener->heard);
    EXPECT_EQ(owners, object.object()->ownerCount());
    EXPECT_EQ(1u, argument.object()->ownerCount());
}

TEST(DelayedMessages, AreCancelledByTheirTarget) {
    const auto listener = velt::make<Listener>(), other = velt::make<Listener>();
    for (const auto& target : {listener, other, listener}) {
        VELT_NSOBJECT_PERFORMSELECTORDELAYED(target, str("hear:"), str("x"), real(0));
    }
    velt::send(other, "cancelPreviousPerformRequestsWithTarget:", listener);
    finish();
    EXPECT_EQ("", listener->heard);
    EXPECT_EQ("x ", other->heard);
    EXPECT_EQ(2u, id(listener).object()->ownerCount());
}

TEST(DelayedMessages, FailWhenTheyAreScheduledOnlyByTheirOwnArguments) {
    const id listener = velt::make<Listener>();
    EXPECT_CAST_FAILURE("'Double' expected",
                        VELT_NSOBJECT_PERFORMSELECTORDELAYED(listener, str("hear:"), nil, array()));
    EXPECT_FALSE(RunLoop::current().isPending());
    VELT_NSOBJECT_PERFORMSELECTORNEXTRUNLOOP(nil, str("hear:"), nil);
    EXPECT_FALSE(RunLoop::current().isPending());
    EXPECT_RAISES("nothing", VELT_NSOBJECT_PERFORMSELECTORNEXTRUNLOOP(listener, str("fly:"), nil));
    velt::send(listener, "cancelPreviousPerformRequestsWithTarget:", listener);
    EXPECT_FALSE(RunLoop::current().isPending());
}

TEST(DelayedMessages, AreSentByName) {
    const auto listener = velt::make<Listener>();
    velt::send(listener, "performSelector:withObject:afterDelay:", str("hear:"), str("a"), integer(0));
    velt::send(listener, "performSelectorOnMainThread:withObject:waitUntilDone:", str("hear:"), str("b"),
               boolean(true));
    EXPECT_EQ("b ", listener->heard);
    finish();
    EXPECT_EQ("b a ", listener->heard);
}

TEST(DelayedMessages, MayBeAMillion) {
    const auto listener = velt::make<Listener>();
    const int many = iterations(1'000'000);
    for (int i = 0; i < many; ++i) {
        VELT_NSOBJECT_PERFORMSELECTORNEXTRUNLOOP(listener, i % 2 ? str("tick") : str("hear:"), str("x"));
    }
    finish();
    EXPECT_EQ(static_cast<std::size_t>(many / 2) * 7, listener->heard.size());
}

TEST(MainThreadMessages, AreSentAtOnceFromTheMainThreadThatWaits) {
    const auto listener = velt::make<Listener>();
    EXPECT_VALUE("nil", VELT_NSOBJECT_PERFORMSELECTORONMAINTHREAD(listener, str("hear:"), str("a"), boolean(true)));
    EXPECT_EQ("a ", listener->heard);
    EXPECT_CAST_FAILURE("'Integer' expected",
                        VELT_NSOBJECT_PERFORMSELECTORONMAINTHREAD(listener, str("fail:"), nil, boolean(true)));
    EXPECT_RAISES("NSInvalidArgumentException: 'Listener' does not understand 'fly:'",
                  VELT_NSOBJECT_PERFORMSELECTORONMAINTHREAD(listener, str("fly:"), nil, boolean(true)));
    EXPECT_CAST_FAILURE("'Boolean' expected",
                        VELT_NSOBJECT_PERFORMSELECTORONMAINTHREAD(listener, str("hear:"), nil, array()));
    VELT_NSOBJECT_PERFORMSELECTORONMAINTHREAD(listener, str("hear:"), str("b"), boolean(false));
    EXPECT_EQ("a ", listener->heard);
    finish();
    EXPECT_EQ("a b ", listener->heard);
}

TEST(MainThreadMessages, ComeFromOtherThreads) {
    const auto listener = velt::make<Listener>();
    const RunLoop::Expectation expectation;
    bool done = false;
    std::thread thread([&] {
        const velt::ThreadScope scope;
        const id target = listener;
        for (int i = 0; i < 100; ++i) {
            VELT_NSOBJECT_PERFORMSELECTORONMAINTHREAD(target, str("hear:"), integer(i), boolean(i % 10 == 9));
            if (i % 10 == 9) {
                EXPECT_TRUE(listener->heard.ends_with(" " + std::to_string(i) + " "));
            }
        }
        EXPECT_CAST_FAILURE("'Integer' expected",
                            VELT_NSOBJECT_PERFORMSELECTORONMAINTHREAD(target, str("fail:"), nil, boolean(true)));
        RunLoop::main().perform([&] { done = true; });
    });
    while (!done) RunLoop::current().runOnce(60);
    thread.join();
    EXPECT_EQ(std::this_thread::get_id(), listener->thread);
    EXPECT_TRUE(listener->heard.starts_with("0 1 2 3 "));
    EXPECT_TRUE(listener->heard.ends_with(" 98 99 "));
}
