#include "VLPreferences.h"

#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/dictionary.h"
#include "VELTRuntime/platform/foundation/timer.h"
#include "VELTRuntime/platform/foundation/user_defaults.h"
#include "VELTRuntime/platform/object/observing.h"
#include "VELTRuntime/values/string.h"

VLPreferences::~VLPreferences() { VLPreferences::dissolve(); }

id VLPreferences::preferencesItems() const { return velt::make<NSMutableArray>(); }
id VLPreferences::preferencesItemIdentifiers() const { return velt::make<NSMutableArray>(); }
id VLPreferences::preferencesDefaults() const { return velt::make<NSMutableDictionary>(); }

void VLPreferences::setupToolbar() {
    const id own = self();
    const id items = velt::send(own, VELT_SELECTOR("PreferencesItems"));
    const id labels = velt::send(own, VELT_SELECTOR("PreferencesItemIdentifiers"));
    const NSArray *views = velt::arrayOf(items), *names = velt::arrayOf(labels);
    if (views && names && views->count() == names->count()) {
        for (std::size_t i = 0; i < views->count(); ++i) {
            velt::send(own, VELT_SELECTOR("addView:label:"), views->items()[i], names->items()[i]);
        }
    }
    setCrossFade(false);
    setShiftSlowsAnimation(false);
}

id VLPreferences::initWithWindow(const id& ignored) {
    id made = KRPrefsWindowController::initWithWindow(ignored);
    NSTimer::scheduled(0, made, velt::Selector::named("delayed_addObserver"), nil, false);
    return made;
}

void VLPreferences::delayedAddObserver() {
    removeObservers();
    const id own = self(), values = velt::send(own, VELT_SELECTOR("PreferencesDefaults"));
    const id defaults(&NSUserDefaults::standardUserDefaults());
    const NSDictionary* wanted = velt::dictionaryOf(values);
    if (!wanted) return;
    wanted->forEach([&](const id& key, const id&) {
        const std::string name = velt::utf8(VELT_CSTRING(key));
        velt::addObserver(defaults, own, name, velt::kObserveOld);
        watched_.push_back(name);
    });
}

void VLPreferences::removeObservers() {
    const id own = self(), defaults(&NSUserDefaults::standardUserDefaults());
    for (const std::string& key : std::exchange(watched_, {})) velt::removeObserver(defaults, own, key);
}

void VLPreferences::observeValue(const id& keyPath, const id&, const id&, const id&) {
    velt::send(self(), VELT_SELECTOR("PreferencesChanged:"), velt::send(keyPath, VELT_SELECTOR("copy")));
}

/// Observing keeps nobody alive and ends with who observes.
void VLPreferences::dissolve() {
    watched_.clear();
    KRPrefsWindowController::dissolve();
}

void VLPreferences::describe(velt::ClassBuilder<VLPreferences>& c) {
    c.method("PreferencesItems", &VLPreferences::preferencesItems)
        .method("PreferencesItemIdentifiers", &VLPreferences::preferencesItemIdentifiers)
        .method("PreferencesDefaults", &VLPreferences::preferencesDefaults)
        .method("PreferencesChanged:", &VLPreferences::preferencesChanged)
        .method("setupToolbar", &VLPreferences::setupToolbar)
        .method("initWithWindow:", &VLPreferences::initWithWindow)
        .method("delayed_addObserver", &VLPreferences::delayedAddObserver)
        .method("observeValueForKeyPath:ofObject:change:context:", &VLPreferences::observeValue)
        .method("finalize", &VLPreferences::removeObservers);
}
