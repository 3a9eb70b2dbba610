// The rows that both programs of the table comparison show, and what they do with them.
#pragma once

namespace rows {

inline constexpr int kMany = 1'000'000, kFew = 1'000;
inline constexpr int kFrames = 300, kFrameStep = 37;  // rows a frame, so that every frame shows other ones
inline constexpr int kMenuItems = 10'000;

/// A number for a row, the same at every run and in no order.
inline unsigned scrambled(unsigned row) { return (row * 2'654'435'761U) >> 8; }

}  // namespace rows
