// Text storages: the attributed strings behind text views.
#pragma once

#include "VELTRuntime/platform/foundation/attributed_string.h"

#include <vector>

namespace velt {

/// Who shows a text storage, and hears of every change at once.
class StorageWatcher {
public:
    /// A range as it was before has now another length; its text is the same when only attributes changed.
    virtual void storageChanged(NSRange range, std::size_t newLength, bool textChanged) = 0;

protected:
    ~StorageWatcher() = default;
};

}  // namespace velt

/// A text whose changes show at once in the views that show it.
class VELT_EXPORT NSTextStorage final : public NSMutableAttributedString {
    VELT_OBJECT(NSTextStorage, NSMutableAttributedString)
public:
    NSTextStorage() = default;

    /// The watcher does not own the storage's life nor the other way round; it removes itself.
    void addWatcher(velt::StorageWatcher& watcher) { watchers_.push_back(&watcher); }
    void removeWatcher(velt::StorageWatcher& watcher) { std::erase(watchers_, &watcher); }

protected:
    void edited(NSRange range, std::size_t newLength, bool textChanged) override {
        const std::vector<velt::StorageWatcher*> watchers = watchers_;
        for (velt::StorageWatcher* watcher : watchers) watcher->storageChanged(range, newLength, textChanged);
    }

private:
    std::vector<velt::StorageWatcher*> watchers_;
};
