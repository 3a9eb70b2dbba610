// The main thread told from the others without a call: every wrapper asks.
#pragma once

namespace velt {

enum class ThreadPlace : signed char { Unknown, Main, Other };

/// Where the calling thread stands; unknown until isMainThread was asked on it.
[[gnu::visibility("hidden"), gnu::tls_model("initial-exec")]] extern constinit thread_local ThreadPlace threadPlace;

}  // namespace velt
