// The C++ that Documentation/compiled-programs.md shows, compiled and run. The last test holds the two together.
#include "VELTRuntime/VELTRuntime.h"

#include "support/documents.h"
#include "support/processes.h"

#include <gtest/gtest.h>
#include <thread>

namespace {

namespace whole_program {
std::string written;
void writeLine(const id& text) { written += velt::utf8(VELT_CSTRING(text)) + "\n"; }
int program(int, char**) {
    VELTS("hello.bas", "Main", "2", "");
    id name = VELT__STRING(VELT_UCASE("world"_v));
    VELTS("hello.bas", "Main", "3", "");
    writeLine(VELT_CONCAT("Hello, "_v, name));
    return 0;
}
int main(int count, char** arguments) { return velt::runProgram(program, count, arguments); }
}  // namespace whole_program

TEST(CompiledProgram, RunsItsStatementsAndEndsWithItsStatus) {
    EXPECT_EQ(whole_program::main(0, nullptr), 0);
    EXPECT_EQ(whole_program::written, "Hello, WORLD\n");
    EXPECT_STREQ(META_acCurrentFile, "hello.bas");
    EXPECT_STREQ(META_acCurrentScope, "Main");
    EXPECT_STREQ(META_acCurrentLine, "3");
}

TEST(CompiledProgram, EndsWithAReportWhenAFailureLeavesIt) {
    const auto fails = [](int, char**) {
        VELTS("fail.bas", "Main", "7", "");
        VELT_SUB("a"_v, VELT_ID(1L));
        return 0;
    };
    testing::internal::CaptureStderr();
    EXPECT_EQ(velt::runProgram(fails, 0, nullptr), EXIT_FAILURE);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "fail.bas:7: in Main: VLCastException: Number expected\n");
}

TEST(CompiledLiterals, HaveTheKindsOfTheLanguage) {
    const id text = "Grüße"_v;
    const id integer = VELT_ID(5L);
    const id real = VELT_ID(2.5);
    const id single = VELT_ID(1.5f);
    const id hexadecimal = VELT_ID(0xFFL);
    const id yes = VELT_ID(BOOL{1});
    const id nothing = nil;
    EXPECT_EQ(velt::utf8(text), "Grüße");
    EXPECT_EQ(velt::utf8(VELT_TYPENAME(integer)), "Integer");
    EXPECT_EQ(velt::utf8(VELT_TYPENAME(real)), "Double");
    EXPECT_EQ(velt::utf8(VELT_TYPENAME(single)), "Single");
    EXPECT_EQ(VELT_CINTEGER(hexadecimal), 255);
    EXPECT_EQ(velt::utf8(VELT_TYPENAME(yes)), "Boolean");
    EXPECT_TRUE(nothing.isNil());
}

TEST(CompiledVariables, AreCheckedWhenTheyHaveAType) {
    VELTS("vars.bas", "Main", "2", "");
    id count = VELT__INTEGER(VELT_ID(2.7));
    VELTS("vars.bas", "Main", "3", "");
    id name = VELT__STRING("Ann"_v);
    VELTS("vars.bas", "Main", "4", "");
    id anything = name;
    VELTS("vars.bas", "Main", "5", "");
    anything = VELT_ADD(count, VELT_ID(1L));
    EXPECT_EQ(velt::utf8(VELT_INFO(count)), "2");
    EXPECT_EQ(velt::utf8(VELT_INFO(anything)), "3");
    EXPECT_THROW(count = VELT__INTEGER("5"_v), NSException);
}

id greeting(id name, id times) {
    VELTS("greet.bas", "Greeting", "2", "");
    id text = VELT__STRING(""_v);
    VELTS("greet.bas", "Greeting", "3", "");
    for (id i = VELT_ID(1L); VELT_CBOOL(VELT_SMALLEREQUAL(i, times)); i = VELT_ADD(i, VELT_ID(1L))) {
        VELTS("greet.bas", "Greeting", "4", "");
        text = VELT__STRING(VELT_CONCAT(VELT_CONCAT(text, "Hello, "_v), name));
    }
    VELTS("greet.bas", "Greeting", "6", "");
    return VELT__STRING(text);
}

TEST(CompiledProcedures, GetCheckedArguments) {
    VELTS("greet.bas", "Main", "10", "");
    id text = greeting(VELT__STRING("Ann "_v), VELT__INTEGER(VELT_ID(2L)));
    EXPECT_EQ(velt::utf8(text), "Hello, Ann Hello, Ann ");
    EXPECT_STREQ(META_acCurrentLine, "6");
}

id signOf(id n) {
    VELTS("sign.bas", "SignOf", "2", "");
    if (VELT_CBOOL(VELT_SMALLER(n, VELT_ID(0L)))) {
        VELTS("sign.bas", "SignOf", "3", "");
        return VELT__STRING("minus"_v);
    } else if (VELTS("sign.bas", "SignOf", "4", ""), VELT_CBOOL(VELT_EQUAL(n, VELT_ID(0L)))) {
        VELTS("sign.bas", "SignOf", "5", "");
        return VELT__STRING("zero"_v);
    }
    return VELT__STRING("plus"_v);
}

id sumTo(id n) {
    VELTS("sum.bas", "SumTo", "2", "");
    id sum = VELT__INTEGER(VELT_ID(0L));
    VELTS("sum.bas", "SumTo", "3", "");
    id i = VELT__INTEGER(VELT_ID(1L));
    while (VELTS("sum.bas", "SumTo", "4", ""), VELT_CBOOL(VELT_SMALLEREQUAL(i, n))) {
        VELTS("sum.bas", "SumTo", "5", "");
        sum = VELT__INTEGER(VELT_ADD(sum, i));
        VELTS("sum.bas", "SumTo", "6", "");
        i = VELT__INTEGER(VELT_ADD(i, VELT_ID(1L)));
    }
    return sum;
}

TEST(CompiledStatements, BranchAndRepeat) {
    EXPECT_EQ(velt::utf8(signOf(VELT_ID(-2L))), "minus");
    EXPECT_EQ(velt::utf8(signOf(VELT_ID(0.0))), "zero");
    EXPECT_EQ(velt::utf8(signOf(VELT_ID(5L))), "plus");
    EXPECT_EQ(VELT_CINTEGER(sumTo(VELT_ID(10L))), 55);
}

TEST(CompiledStatements, RecordTheLineOfALoopsConditionEveryTimeRound) {
    try {
        sumTo("ten"_v);
        FAIL() << "a string has no order";
    } catch (const NSException& failure) {
        EXPECT_EQ(velt::reportText(failure), "sum.bas:4: in SumTo: VLCastException: 'Boolean' or number expected");
    }
}

class Account : public NSObject {
    VELT_OBJECT(Account, NSObject)

public:
    id owner;
    id balance = VELT_ID(0.0);

    static void describe(velt::ClassBuilder<Account>& c) {
        c.property("owner", &Account::owner)
            .property("balance", &Account::balance)
            .property("inDebt", &Account::inDebt)
            .method("deposit:", &Account::deposit)
            .method("transfer:to:", &Account::transferTo);
    }

    void deposit(id amount) {
        VELTS("bank.bas", "Account.Deposit", "6", "");
        balance = VELT__DOUBLE(VELT_ADD(balance, amount));
    }
    id transferTo(id amount, id other) {
        VELTS("bank.bas", "Account.Transfer", "9", "");
        deposit(VELT__DOUBLE(VELT_MINUS(amount)));
        VELTS("bank.bas", "Account.Transfer", "10", "");
        velt::to<Account>(other)->deposit(VELT__DOUBLE(amount));
        VELTS("bank.bas", "Account.Transfer", "11", "");
        return VELT__DOUBLE(balance);
    }
    id inDebt() {
        VELTS("bank.bas", "Account.InDebt", "14", "");
        return VELT__BOOLEAN(VELT_SMALLER(balance, VELT_ID(0.0)));
    }
};

class SavingsAccount : public Account {
    VELT_OBJECT(SavingsAccount, Account)

public:
    static void describe(velt::ClassBuilder<SavingsAccount>& c) {
        c.method("addInterest:", &SavingsAccount::addInterest);
    }
    void addInterest(id percent) {
        VELTS("bank.bas", "SavingsAccount.AddInterest", "21", "");
        deposit(VELT__DOUBLE(VELT_DIV(VELT_MUL(balance, percent), VELT_ID(100.0))));
    }
};

TEST(CompiledClasses, MakeObjectsAndCallThem) {
    VELTS("bank.bas", "Main", "30", "");
    velt::Ref<Account> ann = velt::make<Account>();
    VELTS("bank.bas", "Main", "31", "");
    ann->owner = VELT__STRING("Ann"_v);
    VELTS("bank.bas", "Main", "32", "");
    ann->deposit(VELT__DOUBLE(VELT_ID(100L)));
    VELTS("bank.bas", "Main", "33", "");
    id bob = velt::make<SavingsAccount>();
    VELTS("bank.bas", "Main", "34", "");
    id left = velt::send(ann, "transfer:to:", VELT_ID(30.0), bob);
    VELTS("bank.bas", "Main", "35", "");
    velt::send(bob, "addInterest:", VELT_ID(10L));
    EXPECT_EQ(velt::utf8(VELT_INFO(left)), "70");
    EXPECT_EQ(velt::utf8(VELT_INFO(velt::valueForKey(bob, "balance"))), "33");
    EXPECT_THROW(velt::send(ann, "addInterest:", VELT_ID(10L)), NSException);
    EXPECT_THROW(velt::to<Account>("Ann"_v), NSException);
}

TEST(CompiledClasses, AreReachedByKey) {
    id account = velt::make<Account>();
    VELTS("bank.bas", "Main", "40", "");
    velt::setValueForKey(account, "owner", "Ann"_v);
    VELTS("bank.bas", "Main", "41", "");
    velt::setValueForKey(account, "balance", VELT_ID(-5.0));
    VELTS("bank.bas", "Main", "42", "");
    id inDebt = velt::valueForKey(account, "inDebt");
    EXPECT_TRUE(VELT_CBOOL(inDebt));
    EXPECT_EQ(velt::utf8(velt::as<Account>(account)->owner), "Ann");
}

class Countdown : public NSObject {
    VELT_OBJECT(Countdown, NSObject)

public:
    Countdown() = default;
    Countdown(const id& owner, const char* action) {
        const velt::Selector selector = velt::Selector::named(action);
        if (!velt::respondsTo(owner, selector)) return;
        target_ = owner;
        action_ = selector;
    }

    static void describe(velt::ClassBuilder<Countdown>& c) {
        c.owns(&Countdown::target_).method("finish", &Countdown::finish);
    }
    void finish() { velt::send(target_, action_, id(this)); }

private:
    id target_;
    velt::Selector action_;
};

id VELT_COUNTDOWN_INIT(const id& owner, const char* action) { return velt::make<Countdown>(owner, action); }

class Rocket : public NSObject {
    VELT_OBJECT(Rocket, NSObject)

public:
    id countdown;
    id started = VELT_ID(BOOL{0});

    static void describe(velt::ClassBuilder<Rocket>& c) {
        c.property("countdown", &Rocket::countdown)
            .property("started", &Rocket::started)
            .method("prepare", &Rocket::prepare)
            .method("liftOff:", &Rocket::liftOff);
    }
    void prepare() {
        VELTS("rocket.bas", "Rocket.Prepare", "5", "");
        countdown = VELT_COUNTDOWN_INIT(id(this), "liftOff:");
    }
    void liftOff(id) {
        VELTS("rocket.bas", "Rocket.LiftOff", "8", "");
        started = VELT__BOOLEAN(VELT_ID(BOOL{1}));
    }
};

TEST(CompiledCallbacks, AreSentByNameToATargetThatIsKept) {
    id rocket = velt::make<Rocket>();
    velt::send(rocket, "prepare");
    id countdown = velt::valueForKey(rocket, "countdown");
    velt::send(countdown, "finish");
    EXPECT_TRUE(VELT_CBOOL(velt::valueForKey(rocket, "started")));
    EXPECT_NO_THROW(velt::send(VELT_COUNTDOWN_INIT("no rocket"_v, "liftOff:"), "finish"));
}

TEST(CompiledOwnership, FreesObjectsThatOnlyOwnEachOther) {
    velt::collectCycles();
    velt::send(id(velt::make<Rocket>()), "prepare");  // the rocket owns its countdown, whose target is the rocket
    EXPECT_EQ(velt::collectCycles(), 2u);
}

TEST(CompiledCollections, AreReadAndChangedThroughTheirFunctions) {
    VELTS("list.bas", "Main", "2", "");
    id list = velt::make<NSMutableArray>();
    VELTS("list.bas", "Main", "3", "");
    VELT_NSMUTABLEARRAY_APPEND(list, "pear"_v);
    VELTS("list.bas", "Main", "4", "");
    VELT_NSMUTABLEARRAY_REPLACE(list, "apple"_v, VELT_ID(0L));
    VELTS("list.bas", "Main", "5", "");
    id first = VELT__STRING(VELT_NSMUTABLEARRAY_OBJECT(list, VELT_ID(0L)));
    VELTS("list.bas", "Main", "6", "");
    id prices = velt::make<NSMutableDictionary>();
    VELTS("list.bas", "Main", "7", "");
    VELT_NSMUTABLEDICTIONARY_INSERT(prices, first, VELT_ID(1.5));
    VELTS("list.bas", "Main", "8", "");
    id price = VELT_NSMUTABLEDICTIONARY_OBJECT(prices, "apple"_v);
    EXPECT_EQ(VELT_CDOUBLE(price), 1.5);
}

id lengthOf(id path) {
    try {
        VELTS("read.bas", "LengthOf", "3", "");
        return VELT__INTEGER(VELT_LEN(VELT_READSTRING(path)));
    } catch (const NSException& failure) {
        VELTS("read.bas", "LengthOf", "5", "");
        id reason = VELT__STRING(velt::string(failure.reason()));
        VELTS("read.bas", "LengthOf", "6", "");
        VELT_EXCEPTION("ReadFailure"_v, VELT_CONCAT(VELT_CONCAT(path, ": "_v), reason), nil);
    }
    return nil;
}

TEST(CompiledExceptions, AreCaughtAndRaisedWithTheirPlace) {
    try {
        lengthOf("/no/such/file"_v);
        FAIL() << "the file does not exist";
    } catch (const NSException& failure) {
        EXPECT_EQ(failure.name(), "ReadFailure");
        EXPECT_EQ(failure.reason(), "/no/such/file: ReadString failed");
        EXPECT_EQ(velt::reportText(failure), "read.bas:6: in LengthOf: ReadFailure: /no/such/file: ReadString failed");
    }
}

class Member : public NSObject {
    VELT_OBJECT(Member, NSObject)

public:
    id name, friends = velt::make<NSMutableArray>();

    id encodeWithCoder(id coder) {
        VELTS("club.bas", "Member.EncodeWithCoder", "5", "");
        VELT_NSOBJECT_PERFORMSELECTOR2(coder, "encodeObject:forKey:"_v, name, "name"_v);
        VELTS("club.bas", "Member.EncodeWithCoder", "6", "");
        return VELT_NSOBJECT_PERFORMSELECTOR2(coder, "encodeObject:forKey:"_v, friends, "friends"_v);
    }
    void initWithCoder(id coder) {
        VELTS("club.bas", "Member.InitWithCoder", "9", "");
        name = VELT__STRING(VELT_NSOBJECT_PERFORMSELECTOR1(coder, "decodeObjectForKey:"_v, "name"_v));
        VELTS("club.bas", "Member.InitWithCoder", "10", "");
        friends = VELT__NSMUTABLEARRAY(VELT_NSOBJECT_PERFORMSELECTOR1(coder, "decodeObjectForKey:"_v, "friends"_v));
    }

    static void describe(velt::ClassBuilder<Member>& c) {
        c.property("name", &Member::name)
            .property("friends", &Member::friends)
            .method("encodeWithCoder:", &Member::encodeWithCoder)
            .method("initWithCoder:", &Member::initWithCoder);
    }
};

TEST(CompiledArchives, KeepMembersWhoKnowEachOther) {
    const velt::test::TemporaryFolder folder;
    const id path = velt::string(folder.file("club"));
    const velt::Ref<Member> ann = velt::make<Member>(), ben = velt::make<Member>();
    ann->name = "Ann"_v;
    ben->name = "Ben"_v;
    VELT_NSMUTABLEARRAY_APPEND(ann->friends, ben);
    VELT_NSMUTABLEARRAY_APPEND(ben->friends, ann);
    ASSERT_TRUE(VELT_CBOOL(VELT_WRITEKEYEDARCHIVE(ann, path)));
    const id read = VELT_READKEYEDARCHIVE(path);
    const id other = VELT_NSMUTABLEARRAY_OBJECT(VELT_PROPERTY(read, "friends"_v), VELT_ID(0L));
    EXPECT_EQ(velt::utf8(VELT_PROPERTY(other, "name"_v)), "Ben");
    EXPECT_TRUE(
        VELT_CBOOL(VELT_EQUALEQUAL(read, VELT_NSMUTABLEARRAY_OBJECT(VELT_PROPERTY(other, "friends"_v), VELT_ID(0L)))));
}

TEST(CompiledThreads, ShareValuesWhileAScopeSaysSo) {
    id total = VELT_ID(0L);
    std::thread worker([&total] {
        const velt::ThreadScope scope;
        total = sumTo(VELT_ID(1000L));
    });
    worker.join();
    EXPECT_EQ(VELT_CINTEGER(total), 500500);
}

TEST(CompiledProgramsDocument, ShowsOnlyCodeThatIsCompiledHere) {
    EXPECT_GE(
        velt::test::blocksFoundIn("Documentation/compiled-programs.md", "Tests/contract/compiled_programs_test.cpp"),
        15u);
}

TEST(ReadmeDocument, ShowsTheProgramThatIsBuiltOutsideTheProject) {
    EXPECT_EQ(velt::test::blocksFoundIn("README.md", "Tests/install/hello.cpp"), 1u);
}

}  // namespace
