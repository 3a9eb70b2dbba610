// The preferences window of a compiled program: its panes and its defaults come from methods that the program's class
// answers, and every change of a default that it names comes back to it.
#pragma once

#include "KRPrefsWindowController.h"

class VELT_EXPORT VLPreferences : public KRPrefsWindowController {
    VELT_OBJECT(VLPreferences, KRPrefsWindowController)
public:
    ~VLPreferences() override;

    /// The views of the panes and their labels, in order; empty arrays here.
    id preferencesItems() const;
    id preferencesItemIdentifiers() const;
    /// The defaults to be watched, as keys, and their first values; an empty dictionary here.
    id preferencesDefaults() const;
    /// A default that is watched was set; its key, a string. Nothing here.
    void preferencesChanged(const id&) {}

    /// Adds the panes, when there are as many labels as views, and lets them change without a fade.
    void setupToolbar();
    /// The watching begins at the run loop's next turn, when the program's object is whole.
    id initWithWindow(const id& ignored);
    void delayedAddObserver();
    /// Ends the watching.
    void removeObservers();
    void observeValue(const id& keyPath, const id& object, const id& change, const id& context);

    void dissolve() override;
    static void describe(velt::ClassBuilder<VLPreferences>& c);

private:
    std::vector<std::string> watched_;  // keys
};
