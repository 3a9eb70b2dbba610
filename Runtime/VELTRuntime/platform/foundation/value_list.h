// The storage of arrays: values side by side, eight bytes each. A value may be moved by copying its bytes, which lets
// a long list grow in place.
#pragma once

#include "VELTRuntime/values/value.h"

#include <algorithm>
#include <cassert>
#include <cstring>
#include <new>
#include <span>

namespace velt {

/// Values that their new owner may move out of where they are; nil stays behind.
struct MovedValues {
    std::span<id> values;
};

/// A growing list of values.
class ValueList {
public:
    ValueList() noexcept = default;
    ValueList(ValueList&& other) noexcept
        : items_(std::exchange(other.items_, nullptr)), count_(std::exchange(other.count_, 0)),
          capacity_(std::exchange(other.capacity_, 0)) {}
    ValueList& operator=(ValueList&& other) noexcept {
        std::swap(items_, other.items_);
        std::swap(count_, other.count_);
        std::swap(capacity_, other.capacity_);
        return *this;
    }
    ~ValueList() {
        clear();
        std::free(static_cast<void*>(items_));
    }

    std::size_t size() const noexcept { return count_; }
    std::size_t capacity() const noexcept { return capacity_; }
    std::span<const id> items() const noexcept { return {items_, count_}; }
    std::span<id> items() noexcept { return {items_, count_}; }
    const id& operator[](std::size_t index) const {
        assert(index < count_);
        return items_[index];
    }
    id& operator[](std::size_t index) {
        assert(index < count_);
        return items_[index];
    }

    void reserve(std::size_t capacity) {
        if (capacity > capacity_) reallocate(capacity);
    }
    void append(id value) {
        if (count_ == capacity_) reallocate(grown(count_ + 1));
        new (items_ + count_) id(std::move(value));
        ++count_;
    }
    void insert(std::size_t index, id value) {
        assert(index <= count_);
        if (count_ == capacity_) reallocate(grown(count_ + 1));
        std::memmove(static_cast<void*>(items_ + index + 1), static_cast<const void*>(items_ + index),
                     (count_ - index) * sizeof(id));
        new (items_ + index) id(std::move(value));
        ++count_;
    }
    /// Takes the value out. The list is whole again before the caller drops it.
    id remove(std::size_t index) {
        assert(index < count_);
        id removed = std::move(items_[index]);
        std::memmove(static_cast<void*>(items_ + index), static_cast<const void*>(items_ + index + 1),
                     (count_ - index - 1) * sizeof(id));
        --count_;
        return removed;
    }
    /// Drops all values; what their ends do to this list happens to an empty one.
    void clear() noexcept {
        while (count_ > 0) {
            --count_;
            const id dropped = std::move(items_[count_]);
        }
    }

private:
    /// Short lists double; long ones grow by an eighth, since moving them costs little and their slack much.
    std::size_t grown(std::size_t needed) const {
        const std::size_t more = capacity_ < 4096 ? capacity_ : capacity_ / 8;
        return std::max({needed, capacity_ + more, std::size_t{4}});
    }
    void reallocate(std::size_t capacity) {
        if (capacity > SIZE_MAX / sizeof(id)) throw std::bad_alloc();
        void* memory = std::realloc(static_cast<void*>(items_), capacity * sizeof(id));
        if (!memory) throw std::bad_alloc();
        items_ = static_cast<id*>(memory);
        capacity_ = capacity;
    }

    id* items_ = nullptr;
    std::size_t count_ = 0;
    std::size_t capacity_ = 0;
};

}  // namespace velt
