#include "VELTRuntime/platform/object/selector.h"

#include <algorithm>
#include <deque>
#include <mutex>
#include <unordered_map>

namespace velt {

namespace {

struct SelectorTable {
    std::mutex mutex;
    std::deque<Selector::Row> rows;
    std::unordered_map<std::string_view, const Selector::Row*> byName;
};

SelectorTable& table() {
    static SelectorTable& instance = *new SelectorTable;  // outlives every other static object
    return instance;
}

}  // namespace

Selector Selector::named(std::string_view name) {
    SelectorTable& all = table();
    const std::lock_guard lock(all.mutex);
    if (const auto found = all.byName.find(name); found != all.byName.end()) return Selector(found->second);
    const auto colons = static_cast<unsigned>(std::count(name.begin(), name.end(), ':'));
    const Row& row = all.rows.emplace_back(Row{std::string(name), colons});
    all.byName.emplace(row.name, &row);
    return Selector(&row);
}

Selector Selector::existing(std::string_view name) {
    SelectorTable& all = table();
    const std::lock_guard lock(all.mutex);
    const auto found = all.byName.find(name);
    return found == all.byName.end() ? Selector() : Selector(found->second);
}

const std::string& Selector::name() const {
    static const std::string& none = *new std::string;
    return row_ ? row_->name : none;
}

std::string_view Selector::setterSuffix() const {
    const std::string_view whole = name();
    const bool isSetter = argumentCount() == 1 && whole.size() > 4 && whole.starts_with("set") && whole.ends_with(':');
    return isSetter ? whole.substr(3, whole.size() - 4) : std::string_view();
}

std::string capitalized(std::string_view key) {
    std::string name(key);
    if (!name.empty() && name[0] >= 'a' && name[0] <= 'z') name[0] = static_cast<char>(name[0] - 'a' + 'A');
    return name;
}

std::string setterName(std::string_view key) { return "set" + capitalized(key) + ":"; }

}  // namespace velt
