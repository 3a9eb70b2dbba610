#include "VELTRuntime/platform/foundation/observer_table.h"

#include "VELTRuntime/platform/object/departures.h"

#include <algorithm>

namespace velt {

ObserverTable::NameEntry& ObserverTable::entryFor(Name name) {
    if (!name) return anyName_;
    const auto found = names_.find(*name);
    if (found != names_.end()) return found->second;
    const auto made = names_.try_emplace(std::u16string(*name)).first;
    made->second.text = &made->first;
    return made->second;
}

ObserverTable::Bucket& ObserverTable::bucketFor(NameEntry& entry, Word sender) {
    Bucket* bucket = &entry.anySender;
    if (sender != kNilWord) {
        auto& place = entry.bySender[sender];
        if (!place) place = std::make_unique<Bucket>();
        bucket = place.get();
    }
    bucket->name = &entry;
    bucket->sender = sender;
    return *bucket;
}

void ObserverTable::link(Observation& observation, Side side) {
    Observation*& head = heads(side)[wordOf(observation, side)];
    observation.after[side] = head;
    if (head) head->before[side] = &observation;
    head = &observation;
}

void ObserverTable::unlink(Observation& observation, Side side) {
    Observation* const before = observation.before[side];
    Observation* const after = observation.after[side];
    if (after) after->before[side] = before;
    if (before) {
        before->after[side] = after;
    } else if (after) {
        heads(side)[wordOf(observation, side)] = after;
    } else {
        heads(side).erase(wordOf(observation, side));
    }
}

void ObserverTable::add(Word observer, Selector selector, Name name, Word sender) {
    const std::lock_guard lock(mutex_);
    Bucket& bucket = bucketFor(entryFor(name), sender);
    auto added = std::make_unique<Observation>(Observation{nextOrder_++, observer, selector, &bucket});
    link(*added, kObserver);
    if (sender != kNilWord) link(*added, kSender);
    bucket.observations.push_back(std::move(added));
    ++bucket.live;
    ++size_;
}

void ObserverTable::drop(Observation& observation) {
    observation.live = false;
    unlink(observation, kObserver);
    if (observation.bucket->sender != kNilWord) unlink(observation, kSender);
    --size_;
    --observation.bucket->live;
    tidy(*observation.bucket);
}

/// Takes out what is not live any more, when that is much; the bucket and the name go when they are empty.
void ObserverTable::tidy(Bucket& bucket) {
    if (bucket.walks > 0 || bucket.live * 2 > bucket.observations.size()) return;
    std::erase_if(bucket.observations, [](const auto& observation) { return !observation->live; });
    if (bucket.live > 0) return;
    NameEntry& entry = *bucket.name;
    if (bucket.sender != kNilWord) entry.bySender.erase(bucket.sender);
    const bool isUsed = entry.anySender.live > 0 || entry.anySender.walks > 0 || !entry.bySender.empty();
    if (entry.text && !isUsed) names_.erase(names_.find(*entry.text));
}

void ObserverTable::remove(Word observer, Name name, Word sender) {
    const std::lock_guard lock(mutex_);
    const auto found = observers_.find(observer);
    Observation* next = found == observers_.end() ? nullptr : found->second;
    while (next) {
        Observation& observation = *std::exchange(next, next->after[kObserver]);
        const std::u16string* const text = observation.bucket->name->text;
        if (name && !(text && *text == *name)) continue;
        if (sender != kNilWord && observation.bucket->sender != sender) continue;
        drop(observation);
    }
}

void ObserverTable::forget(Word object) {
    const std::lock_guard lock(mutex_);
    for (const Side side : {kObserver, kSender}) {
        for (;;) {
            const auto found = heads(side).find(object);
            if (found == heads(side).end()) break;
            drop(*found->second);
        }
    }
}

std::size_t ObserverTable::size() const {
    const std::lock_guard lock(mutex_);
    return size_;
}

ObserverTable::Walk::Walk(ObserverTable& table, std::u16string_view name, Word sender) : table_(table) {
    const std::lock_guard lock(table_.mutex_);
    if (const auto found = table_.names_.find(name); found != table_.names_.end()) begin(found->second, sender);
    begin(table_.anyName_, sender);
}

void ObserverTable::Walk::begin(NameEntry& entry, Word sender) {
    begin(entry.anySender);
    if (sender == kNilWord || entry.bySender.empty()) return;
    if (const auto found = entry.bySender.find(sender); found != entry.bySender.end()) begin(*found->second);
}

void ObserverTable::Walk::begin(Bucket& bucket) {
    if (bucket.live == 0) return;
    ++bucket.walks;
    cursors_[count_++] = {&bucket, 0, bucket.observations.size()};
}

ObserverTable::Walk::~Walk() {
    const std::lock_guard lock(table_.mutex_);
    for (std::size_t i = 0; i < count_; ++i) {
        --cursors_[i].bucket->walks;
        table_.tidy(*cursors_[i].bucket);
    }
}

ObserverTable::Delivery ObserverTable::Walk::next() {
    const std::lock_guard lock(table_.mutex_);
    for (;;) {
        Cursor* first = nullptr;
        const Observation* observation = nullptr;
        for (std::size_t i = 0; i < count_; ++i) {
            Cursor& cursor = cursors_[i];
            while (cursor.next < cursor.end && !cursor.bucket->observations[cursor.next]->live) ++cursor.next;
            if (cursor.next == cursor.end) continue;
            const Observation* candidate = cursor.bucket->observations[cursor.next].get();
            if (observation && observation->order < candidate->order) continue;
            observation = candidate;
            first = &cursor;
        }
        if (!observation) return {};
        ++first->next;
        const Word word = observation->observer;
        id observer = isHeapWord(word) ? shareIfAlive(asObjectWord(word)) : id::share(word);
        if (!observer.isNil()) return {std::move(observer), observation->selector};
    }
}

}  // namespace velt
