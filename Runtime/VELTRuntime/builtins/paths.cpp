// The pieces of a path, divided at "/".
#include "VELTRuntime/builtins/string_arguments.h"
#include "VELTRuntime/builtins/strings.h"

using namespace velt;

namespace {

/// Begin and length of the last component; one "/" at the end does not count, a lone "/" is a component itself.
struct Component {
    std::size_t begin, length;
};

Component lastComponent(std::u16string_view path) {
    if (path.size() > 1 && path.back() == u'/') path.remove_suffix(1);
    if (path == u"/") return {0, 1};
    const std::size_t slash = path.rfind(u'/');
    const std::size_t begin = slash == path.npos ? 0 : slash + 1;
    return {begin, path.size() - begin};
}

}  // namespace

id VELT_FILENAME(const id& path) {
    requireStrings(path);
    const Component last = lastComponent(textOf(path));
    return piece(path, last.begin, last.length);
}

id VELT_FILEEXTENSION(const id& path) {
    requireStrings(path);
    const Component last = lastComponent(textOf(path));
    const std::size_t dot = textOf(path).substr(last.begin, last.length).rfind(u'.');
    if (dot == std::u16string_view::npos) return emptyString();
    return piece(path, last.begin + dot + 1, last.length - dot - 1);
}

id VELT_FILEPATH(const id& path) {
    requireStrings(path);
    const std::size_t size = textOf(path).size();
    const std::size_t component = lastComponent(textOf(path)).length;
    if (component == 0) return freshCopy(asString(path));
    const long length = static_cast<long>(size) - static_cast<long>(component) - 1;
    if (length < 0) raiseRange("'FilePath'", length, size);  // a bare name; programs rely on it
    return piece(path, 0, static_cast<std::size_t>(length));
}
