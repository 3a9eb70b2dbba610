#include "VELTRuntime/platform/foundation/notification_center.h"

#include "VELTRuntime/platform/foundation/observer_table.h"
#include "VELTRuntime/platform/object/class_object.h"
#include "VELTRuntime/platform/object/departures.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/string.h"

namespace {

/// The name of a notification as a key of the table; valid while the string is.
velt::ObserverTable::Name nameOf(const id& name) {
    if (name.isNil()) return std::nullopt;
    if (!velt::isString(name)) velt::raiseCast("'String' expected");
    return velt::textOf(name);
}

void watch(const id& value) {
    if (NSObject* object = value.object()) velt::watchDeparture(object);
}

}  // namespace

void NSNotification::describe(velt::ClassBuilder<NSNotification>& c) {
    c.property("name", &NSNotification::name)
        .property("object", &NSNotification::object)
        .property("userInfo", &NSNotification::userInfo)
        .owns(&NSNotification::name_)
        .owns(&NSNotification::object_)
        .owns(&NSNotification::userInfo_);
}

velt::Class& NSNotificationCenter::entry() {
    static velt::Class& cls = velt::declareClass<NSNotificationCenter>("NSNotificationCenter", &NSObject::entry());
    return cls;
}

NSNotificationCenter& NSNotificationCenter::defaultCenter() {
    static NSNotificationCenter& center = *new NSNotificationCenter;  // the only one; threads use it to the very end
    return center;
}

NSNotificationCenter::NSNotificationCenter() : table_(std::make_unique<velt::ObserverTable>()) {
    velt::addDepartureHandler(
        [](NSObject* object) noexcept { defaultCenter().table_->forget(velt::objectWord(object)); });
}

NSNotificationCenter::~NSNotificationCenter() = default;

void NSNotificationCenter::addObserver(const id& observer, velt::Selector selector, const id& name, const id& object) {
    if (observer.isNil()) return;
    const auto key = nameOf(name);
    watch(observer);
    watch(object);
    table_->add(observer.word(), selector, key, object.word());
}

void NSNotificationCenter::removeObserver(const id& observer, const id& name, const id& object) {
    table_->remove(observer.word(), nameOf(name), object.word());
}

void NSNotificationCenter::post(const id& name, const id& object, const id& userInfo) {
    if (!nameOf(name)) velt::raiseCast("'String' expected");
    // The name that observers see stays as it is now.
    post(*velt::make<NSNotification>(name.object()->copy(), object, userInfo));
}

void NSNotificationCenter::post(const NSNotification& notification) {
    const id argument(const_cast<NSNotification*>(&notification));
    velt::ObserverTable::Walk walk(*table_, velt::textOf(notification.name()), notification.object().word());
    for (;;) {
        const velt::ObserverTable::Delivery delivery = walk.next();
        if (delivery.observer.isNil()) return;
        velt::send(delivery.observer, delivery.selector, argument);
    }
}

std::size_t NSNotificationCenter::observerCount() const { return table_->size(); }

void NSNotificationCenter::describe(velt::ClassBuilder<NSNotificationCenter>& c) {
    using namespace velt;
    using Center = NSNotificationCenter;
    c.method("addObserver:selector:name:object:",
             [](const id& self, const id* a) {
                 as<Center>(self)->addObserver(a[0], toSelector(a[1]), a[2], a[3]);
                 return id();
             })
        .method("removeObserver:",
                [](const id& self, const id* a) {
                    as<Center>(self)->removeObserver(a[0]);
                    return id();
                })
        .method("removeObserver:name:object:",
                [](const id& self, const id* a) {
                    as<Center>(self)->removeObserver(a[0], a[1], a[2]);
                    return id();
                })
        .method("postNotification:",
                [](const id& self, const id* a) {
                    if (const auto* notification = to<NSNotification>(a[0])) as<Center>(self)->post(*notification);
                    return id();
                })
        .method("postNotificationName:object:",
                [](const id& self, const id* a) {
                    as<Center>(self)->post(a[0], a[1]);
                    return id();
                })
        .method("isObserved:of:",  // whether anybody would be told
                [](const id& self, const id* a) {
                    const auto name = nameOf(a[0]);
                    if (!name) return VELT_ID(static_cast<BOOL>(0));
                    ObserverTable::Walk walk(*as<Center>(self)->table_, *name, a[1].word());
                    return VELT_ID(static_cast<BOOL>(!walk.next().observer.isNil()));
                })
        .method("postNotificationName:object:userInfo:", [](const id& self, const id* a) {
            as<Center>(self)->post(a[0], a[1], a[2]);
            return id();
        });
}

void velt::tellDelegateAndObservers(const id& delegate, std::string_view selector, std::string_view notification,
                                    const id& object, const id& userInfo) {
    const id told(make<NSNotification>(string(notification), object, userInfo));
    // The owner may let go of it when it hears.
    const id hears = delegate;  // NOLINT(performance-unnecessary-copy-initialization): kept alive
    const Selector message = Selector::named(selector);
    if (respondsTo(hears, message)) send(hears, message, told);
    NSNotificationCenter::defaultCenter().post(*as<NSNotification>(told));
}
