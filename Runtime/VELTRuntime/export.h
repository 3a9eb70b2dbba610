// Which symbols the shared libraries show.
#pragma once

#define VELT_EXPORT __attribute__((visibility("default")))

/// An exported function whose usual case is inline; the library holds it as a symbol too.
#define VELT_INLINE_EXPORT inline VELT_EXPORT

#define VELT_LIKELY(condition) __builtin_expect(static_cast<bool>(condition), 1)
#define VELT_UNLIKELY(condition) __builtin_expect(static_cast<bool>(condition), 0)

/// Inlined even where the compiler sees little use in it: a call that takes a variable's address, be it only on the way
/// of an exception, would keep the variable in memory everywhere.
#define VELT_ALWAYS_INLINE [[gnu::always_inline]]

/// A function that the usual case does not call: the compiler keeps the way there out of the hot code's registers.
#define VELT_COLD [[gnu::cold]]
