#include "VELTRuntime/platform/foundation/url.h"

#include "VELTRuntime/platform/object/class.h"
#include "VELTRuntime/values/string.h"

#include <algorithm>

namespace velt {

namespace {

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool isDecimal(char c) { return c >= '0' && c <= '9'; }

int hexadecimal(char c) {
    if (isDecimal(c)) return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

bool isEscape(std::string_view text, std::size_t at) {
    return text[at] == '%' && at + 2 < text.size() && hexadecimal(text[at + 1]) >= 0 && hexadecimal(text[at + 2]) >= 0;
}

/// Every character may stand in a URL, with those in `more` beside letters, digits and the marks that are always
/// allowed.
bool consistsOf(std::string_view text, std::string_view more) {
    constexpr std::string_view kAlways = "-._~!$&'()*+,;=";
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '%' ? !isEscape(text, i)
                     : !isLetter(c) && !isDecimal(c) && kAlways.find(c) == kAlways.npos && more.find(c) == more.npos) {
            return false;
        }
    }
    return true;
}

/// Takes the text up to the first of some characters off the front.
std::string_view takeUntil(std::string_view& text, std::string_view ends) {
    const std::size_t end = std::min(text.find_first_of(ends), text.size());
    const std::string_view taken = text.substr(0, end);
    text.remove_prefix(end);
    return taken;
}

bool parseAuthority(std::string_view authority, UrlParts& parts) {
    if (const std::size_t at = authority.find('@'); at != authority.npos) {
        if (!consistsOf(authority.substr(0, at), ":")) return false;
        authority.remove_prefix(at + 1);
    }
    std::string_view port;
    if (authority.starts_with('[')) {
        const std::size_t close = authority.find(']');
        if (close == authority.npos || !consistsOf(authority.substr(1, close - 1), ":")) return false;
        parts.host = authority.substr(0, close + 1);
        port = authority.substr(close + 1);
    } else {
        port = authority;
        parts.host = takeUntil(port, ":");
        if (!consistsOf(parts.host, "")) return false;
    }
    if (!port.empty() && (port[0] != ':' || !std::all_of(port.begin() + 1, port.end(), isDecimal))) return false;
    return true;
}

}  // namespace

std::optional<UrlParts> parseUrl(std::string_view text) {
    UrlParts parts;
    std::string_view rest = text;
    const std::size_t mark = rest.find_first_of(":/?#");
    if (mark != rest.npos && rest[mark] == ':') {
        const std::string_view scheme = rest.substr(0, mark);
        const bool legal =
            !scheme.empty() && isLetter(scheme[0]) && std::all_of(scheme.begin(), scheme.end(), [](char c) {
                return isLetter(c) || isDecimal(c) || c == '+' || c == '-' || c == '.';
            });
        if (!legal) return std::nullopt;
        parts.scheme = scheme;
        for (char& c : parts.scheme) c = static_cast<char>(c >= 'A' && c <= 'Z' ? c + 32 : c);
        rest.remove_prefix(mark + 1);
    }
    if (rest.starts_with("//")) {
        rest.remove_prefix(2);
        if (!parseAuthority(takeUntil(rest, "/?#"), parts)) return std::nullopt;
    }
    parts.path = takeUntil(rest, "?#");
    if (!consistsOf(parts.path, ":@/")) return std::nullopt;
    if (rest.starts_with('?')) {
        rest.remove_prefix(1);
        if (!consistsOf(takeUntil(rest, "#"), ":@/?")) return std::nullopt;
    }
    if (rest.starts_with('#') && !consistsOf(rest.substr(1), ":@/?")) return std::nullopt;
    return parts;
}

std::string percentDecoded(std::string_view text) {
    std::string decoded;
    decoded.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (isEscape(text, i)) {
            decoded += static_cast<char>(hexadecimal(text[i + 1]) * 16 + hexadecimal(text[i + 2]));
            i += 2;
        } else {
            decoded += text[i];
        }
    }
    return decoded;
}

}  // namespace velt

velt::Class& NSURL::entry() {
    static velt::Class& cls = velt::declareClass<NSURL>("NSURL", &NSObject::entry());
    return cls;
}

velt::Ref<NSURL> NSURL::withString(std::string_view text) {
    auto parts = velt::parseUrl(text);
    return parts ? velt::make<NSURL>(std::string(text), std::move(*parts)) : velt::Ref<NSURL>();
}

id NSURL::description() const { return velt::string(text_); }

bool NSURL::isEqual(const id& other) const { return velt::is<NSURL>(other) && velt::as<NSURL>(other)->text_ == text_; }

std::size_t NSURL::hash() const { return std::hash<std::string>()(text_); }

id NSURL::copy() const { return id(const_cast<NSURL*>(this)); }

void NSURL::describe(velt::ClassBuilder<NSURL>& c) {
    using namespace velt;
    c.method("absoluteString", [](const id& url, const id*) { return velt::string(as<NSURL>(url)->text()); })
        .method("scheme", [](const id& url, const id*) { return velt::string(as<NSURL>(url)->parts().scheme); })
        .method("host", [](const id& url, const id*) { return velt::string(as<NSURL>(url)->parts().host); })
        .method("path", [](const id& url, const id*) { return velt::string(as<NSURL>(url)->filePath()); })
        .method("isFileURL", [](const id& url, const id*) { return boxResult(as<NSURL>(url)->isFile()); });
}
