// Loading of http and https URLs through libcurl, which is itself loaded at the first URL: linking it would cost every
// program's start.
#pragma once

#include "VELTRuntime/export.h"

#include <optional>
#include <string>

namespace velt {

/// How long loading may take, in seconds.
struct UrlTimeouts {
    long connect = 30;
    long stall = 60;  // without a byte
};
/// The time-outs of this process; a test may set shorter ones.
VELT_EXPORT UrlTimeouts& urlTimeouts();

/// The whole body at a URL, following redirects; blocks. Nothing, with the reason in `failure`, for other schemes, when
/// the server cannot be reached, is not to be trusted, answers with a status of 400 or above, or stalls. The
/// environment variable SSL_CERT_FILE may name a file of authorities to trust in place of the system's.
VELT_EXPORT std::optional<std::string> loadUrl(const std::string& url, std::string& failure);

}  // namespace velt
