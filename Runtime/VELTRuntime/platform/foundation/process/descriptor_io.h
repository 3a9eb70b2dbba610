// Reading and writing descriptors that other processes hold the other ends of.
#pragma once

#include "VELTRuntime/export.h"
#include "VELTRuntime/platform/foundation/data.h"

#include <optional>
#include <string>
#include <string_view>

namespace velt {

inline constexpr std::string_view kFileHandleException = "NSFileHandleOperationException";

/// Raises "NSFileHandleOperationException": the operation and the system's reason.
[[noreturn]] VELT_EXPORT void raiseDescriptorFailure(std::string_view operation, int error);

/// Waits until something can be read or the other end has gone, at most some milliseconds unless that is -1; false when
/// the time is over.
VELT_EXPORT bool waitReadable(int descriptor, int milliseconds);

/// Reads what is there, waiting for it. Empty at the end. The bytes are the thread's own buffer, valid until its next
/// read. Raises "NSFileHandleOperationException" naming the operation.
VELT_EXPORT std::string_view readPiece(int descriptor, std::string_view operation);

/// The same without waiting, for a descriptor that does not block; nothing when nothing is there.
VELT_EXPORT std::optional<std::string_view> readPieceNow(int descriptor, std::string_view operation);

/// The bytes of the piece that the thread has just read, for a data value: the thread's buffer itself when they fill a
/// good part of it. The piece is gone then.
VELT_EXPORT Bytes takePiece(std::string_view piece);

/// Writes everything, waiting while the reader is slow. Returns 0, or the system's error: EPIPE when nobody reads any
/// more. No signal is left behind.
VELT_EXPORT int writeAll(int descriptor, std::string_view bytes);

}  // namespace velt
