// URLs, as RFC 3986 writes them.
#pragma once

#include "VELTRuntime/platform/object/object.h"

#include <optional>
#include <string>
#include <string_view>

namespace velt {

/// The parts of a URL, as written; parts that are missing are empty.
struct UrlParts {
    std::string scheme;  // in lower case
    std::string host;
    std::string path;
};

/// The parts of a URL or relative reference in UTF-8, or nothing when the text is neither: it may hold no spaces and no
/// characters beyond those that RFC 3986 allows.
VELT_EXPORT std::optional<UrlParts> parseUrl(std::string_view text);

/// The text with every %xx replaced by its byte.
VELT_EXPORT std::string percentDecoded(std::string_view text);

}  // namespace velt

/// A URL that was parsed; it does not change.
class VELT_EXPORT NSURL final : public NSObject {
public:
    /// The URL of a UTF-8 text, or null when it is none.
    static velt::Ref<NSURL> withString(std::string_view text);
    NSURL(std::string text, velt::UrlParts parts) : text_(std::move(text)), parts_(std::move(parts)) {}

    static velt::Class& entry();
    velt::Class& isa() const override { return entry(); }
    id description() const override;
    bool isEqual(const id& other) const override;
    std::size_t hash() const override;
    id copy() const override;

    const std::string& text() const { return text_; }
    const velt::UrlParts& parts() const { return parts_; }
    bool isFile() const { return parts_.scheme == "file"; }
    /// The path with its escapes decoded.
    std::string filePath() const { return velt::percentDecoded(parts_.path); }
    static void describe(velt::ClassBuilder<NSURL>& c);

private:
    std::string text_;
    velt::UrlParts parts_;
};
