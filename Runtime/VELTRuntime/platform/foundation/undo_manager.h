// Undoing: what was done is written down as the messages that take it back, in groups that are undone at once.
#pragma once

#include "VELTRuntime/platform/object/class.h"

#include <memory>
#include <span>
#include <vector>

/// Two stacks of groups of messages: those that undo and those that redo. What is registered while a group is undone
/// makes up the group that redoes it.
///
/// While it groups by event, a group is begun at the first registration and ended when the run loop comes round; then
/// one command of a person is undone by one undo. Without that, and at the outermost level, each group is the
/// program's.
class VELT_EXPORT NSUndoManager : public NSObject {
    VELT_OBJECT(NSUndoManager, NSObject)
public:
    NSUndoManager();
    ~NSUndoManager() override;

    /// Writes down a message that takes back what is being done; does nothing while registration is off. Raises
    /// "NSInternalInconsistencyException" without a group. Returns a number by which amend finds it.
    std::uint64_t registerUndo(const id& target, velt::Selector selector, std::span<const id> arguments);
    /// Changes the arguments of a message if it is the last one that was registered; false when it is not.
    bool amend(std::uint64_t registration, std::span<const id> arguments);
    /// An object that takes the next message as one to the target, and writes it down.
    id prepareWithInvocationTarget(const id& target);

    void beginUndoGrouping();
    void endUndoGrouping();
    long groupingLevel() const { return level_; }
    bool groupsByEvent() const { return groupsByEvent_; }
    void setGroupsByEvent(bool flag) { groupsByEvent_ = flag; }
    /// Ends the group that this event began.
    void endEvent();

    void disableUndoRegistration() { ++disabled_; }
    void enableUndoRegistration();
    bool isUndoRegistrationEnabled() const { return disabled_ == 0; }

    /// Undoes the last group; raises "NSInternalInconsistencyException" within a group of the program's.
    void undo();
    void redo();
    bool canUndo() const { return !undo_.empty() || (state_ == State::Normal && !open_.actions.empty()); }
    bool canRedo() const { return !redo_.empty(); }
    bool isUndoing() const { return state_ == State::Undoing; }
    bool isRedoing() const { return state_ == State::Redoing; }

    /// What a person calls the group, for the menu; the empty string when it has no name.
    id undoActionName() const;
    id redoActionName() const;
    /// Names the group that is being made, or else the last one.
    void setActionName(const id& name);
    id undoMenuItemTitle() const;
    id redoMenuItemTitle() const;

    /// Most groups that are kept; 0 keeps all.
    unsigned long levelsOfUndo() const { return levels_; }
    void setLevelsOfUndo(unsigned long levels);
    void removeAllActions();
    /// Forgets every message to that object.
    void removeAllActionsWithTarget(const id& target);

    void visitOwned(velt::OwnedVisitor& visitor) override;
    static void describe(velt::ClassBuilder<NSUndoManager>& c);

private:
    struct Action {
        std::uint64_t registration;
        id target;
        velt::Selector selector;
        std::vector<id> arguments;
    };
    struct Group {
        std::vector<Action> actions;
        id name;
    };
    enum class State { Normal, Undoing, Redoing };

    void run(State state, std::vector<Group>& from);
    void push(Group group);
    void trim(std::vector<Group>& groups) const;
    void tell(std::string_view notification);

    std::vector<Group> undo_, redo_;
    Group open_;
    long level_ = 0, disabled_ = 0;
    unsigned long levels_ = 0;
    std::uint64_t registrations_ = 0;
    bool groupsByEvent_ = true, eventGroup_ = false;
    State state_ = State::Normal;
    std::shared_ptr<NSUndoManager*> alive_;  // for the run loop, which may come round after the manager has gone
};
