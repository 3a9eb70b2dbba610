// The library's own classes answer every message that classes.txt lists. Programs send them by name, so no compiler
// sees when one is missing.
#include <VELTRuntime/VELTRuntimeUI.h>

#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <sstream>

namespace {

using Messages = std::map<std::string, std::set<std::string>>;

Messages listedMessages() {
    Messages messages;
    std::ifstream file(VELT_EXPORT_LISTS "/classes.txt");
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line.front() == '#') continue;
        std::istringstream words(line);
        std::string cls, selector;
        words >> cls >> selector;
        std::set<std::string>& selectors = messages[cls];
        if (!selector.empty()) selectors.insert(selector);
    }
    return messages;
}

/// An object of the class answers the message, or the class does.
bool answers(const velt::Class& cls, const std::string& selector) {
    const velt::Selector named = velt::Selector::named(selector);
    return cls.method(named) || cls.classMethod(named);
}

TEST(LibraryClasses, AnswerEveryListedMessage) {
    const Messages messages = listedMessages();
    EXPECT_GE(messages.size(), 13U);
    for (const auto& [name, selectors] : messages) {
        const velt::Class* cls = velt::Class::named(name);
        if (!cls) {
            ADD_FAILURE() << "There is no class " << name << ", which answers " << selectors.size() << " messages";
            continue;
        }
        for (const std::string& selector : selectors) {
            EXPECT_TRUE(answers(*cls, selector)) << "A " << name << " does not answer " << selector;
        }
    }
}

}  // namespace
