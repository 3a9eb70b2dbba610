#include "VELTRuntime/platform/foundation/undo_manager.h"

#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/notification_center.h"
#include "VELTRuntime/platform/foundation/null.h"
#include "VELTRuntime/platform/foundation/run_loop.h"
#include "VELTRuntime/platform/object/drop_elements.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/id_of.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/string.h"

#include <algorithm>

using velt::Ref;

namespace {

[[noreturn]] void raiseOrder(const char* call, const char* reason) {
    velt::raise(velt::kInternalInconsistencyException, std::string("'NSUndoManager' ") + call + ": " + reason);
}

/// Writes messages down in place of their receiver.
class UndoRecorder final : public NSObject {
public:
    UndoRecorder(const id& manager, const id& target) : manager_(manager), target_(target) {}
    static velt::Class& entry() {
        static velt::Class& cls = velt::declareClass<UndoRecorder>("UndoRecorder", &NSObject::entry());
        return cls;
    }
    velt::Class& isa() const override { return entry(); }
    id forward(const id& name, const id& arguments) {
        std::vector<id> values;
        for (const id& value : velt::arrayOf(arguments)->items()) {
            values.push_back(value == NSNull::null() ? id() : value);
        }
        velt::as<NSUndoManager>(manager_)->registerUndo(target_, velt::Selector::named(velt::utf8(name)), values);
        return nil;
    }
    static void describe(velt::ClassBuilder<UndoRecorder>& c) {
        c.method("forwardMessage:arguments:", &UndoRecorder::forward)
            .owns(&UndoRecorder::manager_)
            .owns(&UndoRecorder::target_);
    }

private:
    id manager_, target_;
};

}  // namespace

NSUndoManager::NSUndoManager() : alive_(std::make_shared<NSUndoManager*>(this)) {}
NSUndoManager::~NSUndoManager() { *alive_ = nullptr; }

std::uint64_t NSUndoManager::registerUndo(const id& target, velt::Selector selector, std::span<const id> arguments) {
    if (disabled_ > 0 || target.isNil()) return 0;
    if (arguments.size() != selector.argumentCount()) {
        velt::raise(velt::kInvalidArgumentException,
                    "'NSUndoManager' registerUndo: '" + selector.name() + "' takes another number of arguments");
    }
    if (level_ == 0) {
        if (!groupsByEvent_) raiseOrder("registerUndo", "no group was begun");
        beginUndoGrouping();
        eventGroup_ = true;
        velt::RunLoop::current().perform([alive = alive_] {
            if (*alive) (*alive)->endEvent();
        });
    }
    if (state_ == State::Normal) velt::dropAll(redo_);
    open_.actions.push_back({++registrations_, target, selector, std::vector<id>(arguments.begin(), arguments.end())});
    return registrations_;
}

bool NSUndoManager::amend(std::uint64_t registration, std::span<const id> arguments) {
    if (registration == 0 || registration != registrations_ || state_ != State::Normal || disabled_ > 0) return false;
    Group* last = !open_.actions.empty() ? &open_ : undo_.empty() ? nullptr : &undo_.back();
    if (!last || last->actions.empty() || last->actions.back().registration != registration) return false;
    std::vector<id> replaced(arguments.begin(), arguments.end());
    last->actions.back().arguments.swap(replaced);
    return true;
}

id NSUndoManager::prepareWithInvocationTarget(const id& target) {
    return velt::make<UndoRecorder>(velt::idOf(this), target);
}

void NSUndoManager::beginUndoGrouping() { ++level_; }

void NSUndoManager::endUndoGrouping() {
    if (level_ == 0) raiseOrder("endUndoGrouping", "no group was begun");
    if (--level_ > 0) return;
    eventGroup_ = false;
    Group closed = std::exchange(open_, {});
    if (!closed.actions.empty()) push(std::move(closed));
}

void NSUndoManager::endEvent() {
    // Groups that the program left open within the event's go on.
    if (eventGroup_ && level_ == 1 && state_ == State::Normal) endUndoGrouping();
}

void NSUndoManager::push(Group group) {
    std::vector<Group>& stack = state_ == State::Undoing ? redo_ : undo_;
    stack.push_back(std::move(group));
    trim(stack);
}

void NSUndoManager::trim(std::vector<Group>& groups) const {
    if (levels_ == 0 || groups.size() <= levels_) return;
    const auto kept = groups.end() - static_cast<std::ptrdiff_t>(levels_);
    velt::dropFrom(groups, std::rotate(groups.begin(), kept, groups.end()));
}

void NSUndoManager::enableUndoRegistration() {
    if (disabled_ == 0) raiseOrder("enableUndoRegistration", "registration is not off");
    --disabled_;
}

void NSUndoManager::tell(std::string_view notification) {
    NSNotificationCenter::defaultCenter().post(velt::string(notification), velt::idOf(this));
}

void NSUndoManager::run(State state, std::vector<Group>& from) {
    if (from.empty()) return;
    const Ref<NSUndoManager> kept(this);
    const bool undoing = state == State::Undoing;
    tell(undoing ? "NSUndoManagerWillUndoChangeNotification" : "NSUndoManagerWillRedoChangeNotification");
    if (from.empty()) return;
    Group group = std::move(from.back());
    from.pop_back();
    state_ = state;
    beginUndoGrouping();
    const auto finish = [&] {
        if (level_ > 0) {  // unless an action ended the group
            open_.name = group.name;
            endUndoGrouping();
        }
        state_ = State::Normal;
    };
    try {
        for (auto action = group.actions.rbegin(); action != group.actions.rend(); ++action) {
            velt::sendMessage(action->target, action->selector, action->arguments);
        }
    } catch (...) {
        finish();
        throw;
    }
    finish();
    tell(undoing ? "NSUndoManagerDidUndoChangeNotification" : "NSUndoManagerDidRedoChangeNotification");
}

void NSUndoManager::undo() {
    if (state_ != State::Normal) return;
    endEvent();
    if (level_ > 0) raiseOrder("undo", "a group has not been ended");
    run(State::Undoing, undo_);
}

void NSUndoManager::redo() {
    if (state_ != State::Normal) return;
    endEvent();
    if (level_ > 0) raiseOrder("redo", "a group has not been ended");
    run(State::Redoing, redo_);
}

id NSUndoManager::undoActionName() const {
    const Group* group = !open_.actions.empty() ? &open_ : undo_.empty() ? nullptr : &undo_.back();
    return group && velt::isString(group->name) ? group->name : ""_v;
}

id NSUndoManager::redoActionName() const {
    return !redo_.empty() && velt::isString(redo_.back().name) ? redo_.back().name : ""_v;
}

void NSUndoManager::setActionName(const id& name) {
    const id text = name.isNil() ? ""_v : VELT_CSTRING(name);
    if (level_ > 0) {
        open_.name = text;
    } else if (!undo_.empty()) {
        undo_.back().name = text;
    }
}

id NSUndoManager::undoMenuItemTitle() const {
    const std::string name = velt::utf8(undoActionName());
    return velt::string(name.empty() ? "Undo" : "Undo " + name);
}

id NSUndoManager::redoMenuItemTitle() const {
    const std::string name = velt::utf8(redoActionName());
    return velt::string(name.empty() ? "Redo" : "Redo " + name);
}

void NSUndoManager::setLevelsOfUndo(unsigned long levels) {
    levels_ = levels;
    trim(undo_);
    trim(redo_);
}

void NSUndoManager::removeAllActions() {
    velt::dropAll(undo_);
    velt::dropAll(redo_);
    velt::dropAll(open_.actions);
    if (eventGroup_ && state_ == State::Normal) {
        level_ = 0;
        eventGroup_ = false;
    }
}

void NSUndoManager::removeAllActionsWithTarget(const id& target) {
    const auto clear = [&](Group& group) {
        const auto isOther = [&](const Action& action) { return action.target != target; };
        velt::dropFrom(group.actions, std::stable_partition(group.actions.begin(), group.actions.end(), isOther));
    };
    clear(open_);
    for (std::vector<Group>* groups : {&undo_, &redo_}) {
        for (Group& group : *groups) clear(group);
        std::erase_if(*groups, [](const Group& group) { return group.actions.empty(); });
    }
}

void NSUndoManager::visitOwned(velt::OwnedVisitor& visitor) {
    const auto visit = [&](Group& group) {
        for (Action& action : group.actions) {
            visitor.visit(action.target);
            for (id& argument : action.arguments) {
                if (argument.isObject()) visitor.visit(argument);
            }
        }
    };
    visit(open_);
    for (std::vector<Group>* groups : {&undo_, &redo_}) {
        for (Group& group : *groups) visit(group);
    }
    NSObject::visitOwned(visitor);
}

void NSUndoManager::describe(velt::ClassBuilder<NSUndoManager>& c) {
    c.method("registerUndoWithTarget:selector:object:",
             [](const id& self, const id* a) {
                 const auto selector = velt::Selector::named(velt::utf8(VELT_CSTRING(a[1])));
                 const std::span<const id> arguments(&a[2], selector.argumentCount() == 0 ? 0 : 1);
                 velt::as<NSUndoManager>(self)->registerUndo(a[0], selector, arguments);
                 return id();
             })
        .method("prepareWithInvocationTarget:", &NSUndoManager::prepareWithInvocationTarget)
        .method("beginUndoGrouping", &NSUndoManager::beginUndoGrouping)
        .method("endUndoGrouping", &NSUndoManager::endUndoGrouping)
        .property("groupingLevel", &NSUndoManager::groupingLevel)
        .property("groupsByEvent", &NSUndoManager::groupsByEvent, &NSUndoManager::setGroupsByEvent)
        .method("disableUndoRegistration", &NSUndoManager::disableUndoRegistration)
        .method("enableUndoRegistration", &NSUndoManager::enableUndoRegistration)
        .method("isUndoRegistrationEnabled", &NSUndoManager::isUndoRegistrationEnabled)
        .method("undo", &NSUndoManager::undo)
        .method("undoNestedGroup", &NSUndoManager::undo)
        .method("redo", &NSUndoManager::redo)
        .property("canUndo", &NSUndoManager::canUndo)
        .property("canRedo", &NSUndoManager::canRedo)
        .method("isUndoing", &NSUndoManager::isUndoing)
        .method("isRedoing", &NSUndoManager::isRedoing)
        .property("undoActionName", &NSUndoManager::undoActionName)
        .property("redoActionName", &NSUndoManager::redoActionName)
        .method("setActionName:", &NSUndoManager::setActionName)
        .property("undoMenuItemTitle", &NSUndoManager::undoMenuItemTitle)
        .property("redoMenuItemTitle", &NSUndoManager::redoMenuItemTitle)
        .property("levelsOfUndo", &NSUndoManager::levelsOfUndo, &NSUndoManager::setLevelsOfUndo)
        .method("removeAllActions", &NSUndoManager::removeAllActions)
        .method("removeAllActionsWithTarget:", &NSUndoManager::removeAllActionsWithTarget);
}
