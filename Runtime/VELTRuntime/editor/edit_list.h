// Changes of a text in their order, with all that it needs to take them back.
#pragma once

#include "VELTRuntime/editor/text_buffer.h"

namespace velt {

class EditList {
public:
    bool isEmpty() const { return edits_.empty(); }
    /// A text came in the place of a range that held another one.
    void add(std::size_t position, std::u16string_view removed, std::u16string_view inserted) {
        edits_.push_back({static_cast<std::uint32_t>(position), static_cast<std::uint32_t>(removed.size()),
                          static_cast<std::uint32_t>(inserted.size())});
        texts_ += removed;
        texts_ += inserted;
    }
    /// Calls a function with the range and the text of each change that takes one back, from the last to the first.
    template <class Change> void takeBack(Change&& change) const {
        std::size_t end = texts_.size();
        for (std::size_t i = edits_.size(); i-- > 0;) {
            const Edit& edit = edits_[i];
            end -= std::size_t{edit.inserted} + edit.removed;
            change(NSRange{edit.position, edit.inserted}, std::u16string_view(texts_).substr(end, edit.removed));
        }
    }
    /// The same for the changes themselves.
    template <class Change> void doAgain(Change&& change) const {
        std::size_t begin = 0;
        for (const Edit& edit : edits_) {
            change(NSRange{edit.position, edit.removed},
                   std::u16string_view(texts_).substr(begin + edit.removed, edit.inserted));
            begin += std::size_t{edit.removed} + edit.inserted;
        }
    }

private:
    struct Edit {
        std::uint32_t position, removed, inserted;
    };
    std::vector<Edit> edits_;
    std::u16string texts_;  // of each change first what it removed, then what it inserted
};

}  // namespace velt
