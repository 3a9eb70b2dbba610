#include "VELTRuntime/platform/object/attached_table.h"

#include "VELTRuntime/platform/object/departures.h"
#include "VELTRuntime/platform/object/observation.h"
#include "VELTRuntime/platform/object/value_binding.h"

namespace velt {

AttachedTable& AttachedTable::shared() {
    static AttachedTable& instance = *[] {
        addDepartureHandler(&forgetAttached);
        return new AttachedTable;  // objects may go after static destruction
    }();
    return instance;
}

Attached* AttachedTable::find(NSObject* object) {
    const auto found = rows_.find(object);
    return found == rows_.end() ? nullptr : &found->second;
}

Attached& AttachedTable::row(NSObject* object) {
    HeadAccess::of(object).fetch_or(ObjectHead::kAttached, std::memory_order_relaxed);
    watchDeparture(object);
    return rows_[object];
}

void AttachedTable::tidy(NSObject* object) {
    const auto found = rows_.find(object);
    if (found == rows_.end() || !found->second.isEmpty()) return;
    rows_.erase(found);
    HeadAccess::of(object).fetch_and(~ObjectHead::kAttached, std::memory_order_relaxed);
}

std::optional<Attached> AttachedTable::take(NSObject* object) {
    auto node = rows_.extract(object);
    if (node.empty()) return std::nullopt;
    HeadAccess::of(object).fetch_and(~ObjectHead::kAttached, std::memory_order_relaxed);
    return std::move(node.mapped());
}

void forgetAttached(NSObject* object) noexcept {
    AttachedTable& table = AttachedTable::shared();
    std::optional<Attached> own;
    std::vector<std::shared_ptr<ValueBinding>> undone;
    std::vector<ObservationRef> ended;
    {
        const std::lock_guard lock(table.mutex());
        own = table.take(object);
        if (!own) return;
        for (const auto* observations : {&own->observed, &own->observing}) {
            for (const auto& [serial, observation] : *observations) {
                // A binding whose observed object goes is undone at the bound object too.
                if (const auto binding = observation->binding.lock()) {
                    if (Attached* bound =
                            observation->observer == object ? nullptr : table.find(observation->observer)) {
                        bound->bindings.erase(binding->name());
                    }
                    undone.push_back(binding);
                    for (const ObservationRef& side : binding->observations()) ended.push_back(side);
                }
                ended.push_back(observation);
            }
        }
        for (const auto& [key, watches] : own->watches) {
            for (const auto& [serial, watch] : watches) {
                std::erase_if(watch.observation->places, [&](const auto& place) { return place.object == object; });
            }
        }
        for (const ObservationRef& observation : ended) endObservation(observation);
    }
}

void visitAttached(NSObject* object, OwnedVisitor& visitor) {
    AttachedTable& table = AttachedTable::shared();
    std::vector<ObservationRef> observations;
    std::vector<std::shared_ptr<ValueBinding>> bindings;
    {
        const std::lock_guard lock(table.mutex());
        const Attached* row = table.find(object);
        if (!row) return;
        for (const auto& [serial, observation] : row->observed) observations.push_back(observation);
        for (const auto& [name, binding] : row->bindings) bindings.push_back(binding);
    }
    for (const ObservationRef& observation : observations) visitor.visit(observation->context);
    for (const auto& binding : bindings) binding->visitOwned(visitor);
}

}  // namespace velt
