// Objects that observe and are observed, with a log that tests compare.
#pragma once

#include "support/values.h"

#include "VELTRuntime/platform/foundation/null.h"
#include "VELTRuntime/platform/object/observing.h"

#include <atomic>

namespace velt::test {

/// A model with a value, one that follows from it, a list and a link to another model.
class Model : public NSObject {
    VELT_OBJECT(Model, NSObject)
public:
    Model() { ++living(); }
    ~Model() override { --living(); }
    /// How many there are, on whatever thread they were made.
    static std::atomic<long>& living() {
        static std::atomic<long> count = 0;
        return count;
    }

    id value, list = make<NSMutableArray>(), next;
    long number = 0;

    id title() const { return title_; }
    /// Tells observers itself, as the setters of C++ classes do.
    void setTitle(const id& title) {
        changeValue(*this, "title", [&] { title_ = title; });
    }
    id label() const { return VELT_CONCAT(str("label "), value); }
    long limited() const { return limited_; }
    void setLimited(long limited) { limited_ = std::min(limited, 100L); }

    static void describe(ClassBuilder<Model>& c) {
        c.property("value", &Model::value)
            .property("list", &Model::list)
            .property("next", &Model::next)
            .property("number", &Model::number)
            .property("title", &Model::title, &Model::setTitle)
            .property("limited", &Model::limited, &Model::setLimited)
            .property("label", &Model::label)
            .owns(&Model::title_)
            .keyPathsForValuesAffecting("label", {"value", "next.value"});
    }

private:
    id title_;
    long limited_ = 0;
};

/// Writes down what it is told, one line a change: "path kind old->new", with the indexes and "prior" where given.
class Watcher : public NSObject {
    VELT_OBJECT(Watcher, NSObject)
public:
    void observe(const id& keyPath, const id& object, const id& change, const id& context) {
        lastObject = object.object();
        lastContext = context;
        lastChange = change;
        const auto entry = [&](const char* key) {
            const id found = valueForKey(change, key);
            return is<NSNull>(found) ? id() : found;
        };
        std::string line = utf8(keyPath) + " " + utf8(VELT_CSTRING(entry("kind")));
        const id oldValue = entry("old"), newValue = entry("new");
        if (!oldValue.isNil() || !newValue.isNil()) {
            line += " " + (oldValue.isNil() ? "nil" : utf8(velt::description(oldValue))) + "->" +
                    (newValue.isNil() ? "nil" : utf8(velt::description(newValue)));
        }
        if (const id indexes = entry("indexes")) line += " at " + utf8(velt::description(indexes));
        if (!entry("notificationIsPrior").isNil()) line += " prior";
        log.push_back(line);
        if (onChange) onChange();
    }
    /// What was told since the last call, joined by "; ".
    std::string told() {
        std::string all;
        for (const std::string& line : std::exchange(log, {})) all += (all.empty() ? "" : "; ") + line;
        return all;
    }
    static void describe(ClassBuilder<Watcher>& c) {
        c.method("observeValueForKeyPath:ofObject:change:context:", &Watcher::observe)
            .owns(&Watcher::lastContext)
            .property("owned", &Watcher::owned);
    }

    std::vector<std::string> log;
    std::function<void()> onChange;
    NSObject* lastObject = nullptr;
    id lastContext, lastChange, owned;
};

}  // namespace velt::test
