// Who observes which notifications: found by name and sender with two look-ups, delivered in the order in which the
// observers were added, changed by anyone at any moment, from any thread, while notifications are delivered too.
#pragma once

#include "VELTRuntime/platform/object/object.h"
#include "VELTRuntime/platform/object/selector.h"

#include <array>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace velt {

/// Observers and senders are known by their words and not kept alive; the owner of the table watches their departure.
class VELT_EXPORT ObserverTable {
public:
    using Name = std::optional<std::u16string_view>;

    /// An observer that is to be told, and how.
    struct Delivery {
        id observer;
        Selector selector;
    };
    class VELT_EXPORT Walk;

    /// No name stands for every name, the nil word for every sender.
    void add(Word observer, Selector selector, Name name, Word sender);
    /// Removes what was added for the observer with that name and sender; none of them stands for every one.
    void remove(Word observer, Name name, Word sender);
    /// Removes all that an object takes part in, as observer or sender.
    void forget(Word object);
    std::size_t size() const;

private:
    struct Bucket;
    /// One observer's wish. It stays in its bucket, no longer live, until the bucket is tidied.
    struct Observation {
        std::uint64_t order;
        Word observer;
        Selector selector;
        Bucket* bucket;
        bool live = true;
        std::array<Observation*, 2> before{}, after{};  // neighbours among its observer's and its sender's
    };
    struct NameEntry;
    /// The wishes for one name and one sender.
    struct Bucket {
        NameEntry* name = nullptr;
        Word sender = kNilWord;
        std::vector<std::unique_ptr<Observation>> observations;
        std::size_t live = 0;
        unsigned walks = 0;  // under way; the bucket is not tidied meanwhile
    };
    struct NameEntry {
        const std::u16string* text = nullptr;  // null for every name
        Bucket anySender;
        std::unordered_map<Word, std::unique_ptr<Bucket>> bySender;
    };
    struct NameHash {
        using is_transparent = void;
        std::size_t operator()(std::u16string_view name) const { return std::hash<std::u16string_view>()(name); }
    };
    enum Side : std::size_t { kObserver, kSender };

    NameEntry& entryFor(Name name);
    static Bucket& bucketFor(NameEntry& entry, Word sender);
    std::unordered_map<Word, Observation*>& heads(Side side) { return side == kObserver ? observers_ : senders_; }
    static Word wordOf(const Observation& o, Side side) { return side == kObserver ? o.observer : o.bucket->sender; }
    void link(Observation& observation, Side side);
    void unlink(Observation& observation, Side side);
    void drop(Observation& observation);
    void tidy(Bucket& bucket);

    mutable std::mutex mutex_;
    std::unordered_map<std::u16string, NameEntry, NameHash, std::equal_to<>> names_;
    NameEntry anyName_;
    std::unordered_map<Word, Observation*> observers_, senders_;  // the newest of each
    std::uint64_t nextOrder_ = 0;
    std::size_t size_ = 0;
};

/// The way of one notification through its observers: those that were there when it began and are still there when
/// their turn comes.
class VELT_EXPORT ObserverTable::Walk {
public:
    Walk(ObserverTable& table, std::u16string_view name, Word sender);
    ~Walk();
    Walk(const Walk&) = delete;
    Walk& operator=(const Walk&) = delete;

    /// The next one; its observer is nil at the end.
    Delivery next();

private:
    struct Cursor {
        Bucket* bucket;
        std::size_t next;
        std::size_t end;
    };
    void begin(Bucket& bucket);
    void begin(NameEntry& entry, Word sender);

    ObserverTable& table_;
    std::array<Cursor, 4> cursors_;
    std::size_t count_ = 0;
};

}  // namespace velt
