#include "VELTRuntime/platform/foundation/url_resolution.h"

#include <algorithm>

namespace velt {

namespace {

/// The five components as written. A component that is absent differs from one that is empty.
struct Components {
    std::string_view scheme, authority, path, query;
    std::string_view fragment;
    bool hasScheme = false, hasAuthority = false, hasQuery = false, hasFragment = false;

    explicit Components(std::string_view text) {
        if (const std::size_t mark = text.find('#'); mark != text.npos) {
            hasFragment = true;
            fragment = text.substr(mark + 1);
            text = text.substr(0, mark);
        }
        if (const std::size_t mark = text.find('?'); mark != text.npos) {
            hasQuery = true;
            query = text.substr(mark + 1);
            text = text.substr(0, mark);
        }
        if (const std::size_t mark = text.find_first_of(":/"); mark != text.npos && text[mark] == ':') {
            hasScheme = true;
            scheme = text.substr(0, mark);
            text.remove_prefix(mark + 1);
        }
        if (text.starts_with("//")) {
            hasAuthority = true;
            const std::size_t end = std::min(text.find('/', 2), text.size());
            authority = text.substr(2, end - 2);
            text.remove_prefix(end);
        }
        path = text;
    }
};

std::string withoutDotSegments(std::string_view path) {
    std::string result;
    while (!path.empty()) {
        if (path.starts_with("../")) {
            path.remove_prefix(3);
        } else if (path.starts_with("./")) {
            path.remove_prefix(2);
        } else if (path.starts_with("/./")) {
            path.remove_prefix(2);
        } else if (path == "/.") {
            path = "/";
        } else if (path.starts_with("/../") || path == "/..") {
            path = path == "/.." ? std::string_view("/") : path.substr(3);
            const std::size_t last = result.rfind('/');
            result.resize(last == result.npos ? 0 : last);
        } else if (path == "." || path == "..") {
            path = {};
        } else {
            const std::size_t end = std::min(path.find('/', 1), path.size());
            result += path.substr(0, end);
            path.remove_prefix(end);
        }
    }
    return result;
}

std::string mergedPath(const Components& base, std::string_view path) {
    if (base.hasAuthority && base.path.empty()) return std::string("/").append(path);
    const std::size_t last = base.path.rfind('/');
    return std::string(base.path.substr(0, last == base.path.npos ? 0 : last + 1)) + std::string(path);
}

}  // namespace

std::string resolveUrl(std::string_view base, std::string_view reference) {
    const Components from(base), to(reference);
    Components whole = to;
    std::string path;
    if (to.hasScheme || to.hasAuthority) {
        path = withoutDotSegments(to.path);
    } else {
        whole.hasAuthority = from.hasAuthority;
        whole.authority = from.authority;
        if (to.path.empty()) {
            path = from.path;
            if (!to.hasQuery) {
                whole.hasQuery = from.hasQuery;
                whole.query = from.query;
            }
        } else {
            path = withoutDotSegments(to.path.starts_with('/') ? std::string(to.path) : mergedPath(from, to.path));
        }
    }
    if (!to.hasScheme) {
        whole.hasScheme = from.hasScheme;
        whole.scheme = from.scheme;
    }
    std::string text;
    if (whole.hasScheme) text.append(whole.scheme).append(":");
    if (whole.hasAuthority) text.append("//").append(whole.authority);
    text.append(path);
    if (whole.hasQuery) text.append("?").append(whole.query);
    if (whole.hasFragment) text.append("#").append(whole.fragment);
    return text;
}

}  // namespace velt
