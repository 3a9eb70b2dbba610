// Notifications: one object says by name that something happened, and all that asked for it are told.
#pragma once

#include "VELTRuntime/platform/object/class.h"

#include <memory>
#include <string_view>

namespace velt {
class ObserverTable;
}

/// What an observer is told: the name, the object that it comes from, and what comes with it.
class VELT_EXPORT NSNotification final : public NSObject {
    VELT_OBJECT(NSNotification, NSObject)
public:
    NSNotification(const id& name, const id& object, const id& userInfo)
        : name_(name), object_(object), userInfo_(userInfo) {}
    id name() const { return name_; }
    id object() const { return object_; }
    id userInfo() const { return userInfo_; }
    static void describe(velt::ClassBuilder<NSNotification>& c);

private:
    id name_, object_, userInfo_;
};

/// Where notifications are posted and observed. Observers and senders are not kept alive: what was added for them goes
/// when they go. All of it may be called from any thread, and while a notification is delivered.
class VELT_EXPORT NSNotificationCenter final : public NSObject {
public:
    static NSNotificationCenter& defaultCenter();
    static velt::Class& entry();
    velt::Class& isa() const override { return entry(); }

    /// Sends the observer a message with the notification as its argument whenever one of that name (a string) comes
    /// from that object; nil stands for every name and for every object. Added twice, it is told twice.
    void addObserver(const id& observer, velt::Selector selector, const id& name, const id& object);
    /// Removes what was added for that observer, name and object; nil stands for every one.
    void removeObserver(const id& observer, const id& name = nil, const id& object = nil);
    /// Tells the observers on this thread, in the order in which they were added, before it returns. What an observer
    /// raises leaves here, and those after it are not told.
    void post(const id& name, const id& object = nil, const id& userInfo = nil);
    void post(const NSNotification& notification);
    /// Number of observers that were added and not removed.
    std::size_t observerCount() const;
    static void describe(velt::ClassBuilder<NSNotificationCenter>& c);

private:
    NSNotificationCenter();
    ~NSNotificationCenter() override;

    std::unique_ptr<velt::ObserverTable> table_;
};

namespace velt {

/// Tells a delegate, when it answers that message, and then the observers of the default centre what happened to an
/// object: each gets the notification of that name.
VELT_EXPORT void tellDelegateAndObservers(const id& delegate, std::string_view selector, std::string_view notification,
                                          const id& object, const id& userInfo = nil);

}  // namespace velt
