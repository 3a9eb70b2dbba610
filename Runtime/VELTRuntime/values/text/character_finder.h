// Searching any text for a needle by canonical equivalence, with or without case.
#pragma once

#include "VELTRuntime/values/text/folded_window.h"
#include "VELTRuntime/values/text/literal_search.h"
#include "VELTRuntime/values/text/search.h"

namespace velt::text {

/// Finds one needle, which is not empty, in one text again and again. Where all characters have a representative,
/// pieces of the text are searched for the needle's representatives; around a character without one, and for a needle
/// with one, windows in comparison form are searched. Pieces and windows begin small, so that a near match costs
/// little.
class CharacterFinder {
public:
    CharacterFinder(std::u16string_view haystack, std::u16string_view needle, Case respect);

    /// As Finder's.
    std::optional<Match> next(std::size_t from);
    std::optional<Match> last();

private:
    bool pieceCovers(std::size_t position) const { return position >= pieceBegin_ && position - pieceBegin_ < base_; }
    void loadPiece(std::size_t begin, std::size_t size);
    void loadWindow(std::size_t begin, std::size_t wantedEnd);
    void prepareForm();

    std::optional<Match> lastInPiece(std::size_t begin, std::size_t end);
    std::optional<Match> lastInWindow(std::size_t begin, std::size_t end);

    bool isCharacterStart(std::size_t at) const;
    std::optional<Match> nextInWindow(std::size_t from);
    std::optional<Match> matchOfClusters(std::size_t cluster);
    std::optional<Match> matchWithin(std::size_t cluster, std::size_t behind) const;
    std::optional<Match> matchFrom(std::size_t position, std::size_t cluster) const;

    std::u16string_view haystack_;
    std::u16string_view needle_;
    Case respect_;
    const UnitForms& forms_;

    // By representatives.
    std::u16string represented_;  // the needle; shorter when it has a character without a representative
    bool isRepresented_;
    LiteralFinder pieceFinder_;
    std::u16string piece_;
    std::size_t pieceBegin_ = 0;
    std::size_t base_ = 0;  // so many places at the piece's begin are decided by the piece
    std::size_t pieceSize_, windowSize_;

    // By windows.
    std::u16string form_;        // the needle's comparison form; empty until it is needed
    bool beginsWithin_ = false;  // the needle may match from the middle of a character on
    LiteralFinder formFinder_;
    FoldedWindow window_;
};

}  // namespace velt::text
