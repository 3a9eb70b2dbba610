// How the editor's text is coloured: a layer above the text that is not part of it, is not saved and not undone.
#pragma once

#include "VELTRuntime/editor/text_buffer.h"

namespace velt {

/// A colour by what it means; the view knows how it looks. Further ones may be told apart by other numbers.
enum class Ink : std::uint16_t { None, Keyword, Builtin, Type, String, Comment, Breakpoint };

/// A range in one ink.
struct InkRun {
    std::uint32_t begin, end;
    Ink ink;
    friend bool operator==(const InkRun&, const InkRun&) = default;
};

/// Lays runs over others: both in order, neither overlapping within itself.
VELT_EXPORT std::vector<InkRun> laidOver(std::span<const InkRun> below, std::span<const InkRun> above);

/// One colour at each position of a text. Neighbours of one ink are one run.
class VELT_EXPORT InkLayer {
public:
    /// The ink at a position within the text, and the run that holds it.
    Ink at(std::size_t position, NSRange* run = nullptr) const;
    /// The runs within a range that are not Ink::None, cut off at its ends.
    std::vector<InkRun> runs(NSRange range) const;
    bool isEmpty() const { return borders_.size() == 0; }

    void set(NSRange range, Ink ink);
    /// Only these runs are within a range then; they lie in it, in order.
    void replace(NSRange range, std::span<const InkRun> runs);
    /// Text that comes in has no ink.
    void textChanged(NSRange replaced, std::size_t inserted);

private:
    /// From here to the next border.
    struct Border {
        std::uint32_t position;
        Ink ink;
    };
    Ink inkBefore(std::size_t index) const { return index == 0 ? Ink::None : borders_[index - 1].ink; }
    void append(std::vector<Border>& to, Ink before, std::size_t position, Ink ink) const;

    MovingList<Border> borders_;
};

/// The foreground and the background of a text, which move with its edits.
class VELT_EXPORT DisplayAttributes final : private SourceListener {
public:
    struct Inks {
        Ink foreground = Ink::None, background = Ink::None;
        friend bool operator==(const Inks&, const Inks&) = default;
    };

    /// The buffer must outlive it.
    explicit DisplayAttributes(SourceBuffer& buffer);
    ~DisplayAttributes() { buffer_.removeListener(*this); }
    DisplayAttributes(const DisplayAttributes&) = delete;
    DisplayAttributes& operator=(const DisplayAttributes&) = delete;

    /// What a position has, and the longest range around it that has the same.
    Inks at(std::size_t position, NSRange* effective = nullptr) const;
    const InkLayer& foreground() const { return foreground_; }
    const InkLayer& background() const { return background_; }

    /// Takes the place of both.
    void set(NSRange range, Inks inks) {
        setForeground(range, inks.foreground);
        setBackground(range, inks.background);
    }
    void setForeground(NSRange range, Ink ink) { changed().foreground_.set(range, ink); }
    void setBackground(NSRange range, Ink ink) { changed().background_.set(range, ink); }
    void replaceForeground(NSRange range, std::span<const InkRun> runs) { changed().foreground_.replace(range, runs); }
    /// Grows with every call that sets something; edits of the text do not count.
    std::uint64_t version() const { return version_; }

private:
    DisplayAttributes& changed() {
        ++version_;
        return *this;
    }
    void textChanged(NSRange replaced, std::size_t inserted) override {
        foreground_.textChanged(replaced, inserted);
        background_.textChanged(replaced, inserted);
    }

    SourceBuffer& buffer_;
    InkLayer foreground_, background_;
    std::uint64_t version_ = 0;
};

}  // namespace velt
