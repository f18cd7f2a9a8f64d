// SPDX-License-Identifier: MIT
#pragma once

#include "actions/XAC.h"

#include <string>
#include <vector>

namespace zelvo::actions {

/// What carrying out an entry does to the list of recorded actions.
enum class MyUndoManagerActionType { add, remove };

/// The list that undo and redo change.
class UndoneList {
public:
    virtual ~UndoneList() = default;
    virtual void append(const XACPtr& xac) = 0;
    virtual void removeActions(int identifier) = 0;
};

/// Undo and redo of the performance: two stacks of what to do to the list of records. The stage
/// itself is not touched; the change shows on the next run.
///
/// Removing goes by identifier and so takes a whole gesture, while adding puts back only the one
/// record that the stack holds: a gesture that was undone comes back as its first record alone.
/// Main thread only.
class MyUndoManager {
public:
    struct Entry {
        MyUndoManagerActionType type;
        XACPtr xact;
    };

    using Stack = std::vector<Entry>; ///< last entry on top

    explicit MyUndoManager(UndoneList* list)
        : actionController(list) {}

    bool isUndoing = false;
    bool isRedoing = false;
    UndoneList* actionController; ///< not owned: it owns this manager
    Stack undoActions;
    Stack redoActions;

    /// Keeps a new step, which makes redoing what was undone before impossible.
    void add(MyUndoManagerActionType type, const XACPtr& xact);
    void clear();

    [[nodiscard]] bool canUndo() const { return !undoActions.empty(); }

    [[nodiscard]] bool canRedo() const { return !redoActions.empty(); }

    /// The title of what would be undone or redone; empty if there is none.
    [[nodiscard]] std::string undoTitle() const;
    [[nodiscard]] std::string redoTitle() const;

    /// Carries out the top entry. Callers ask canUndo and canRedo first.
    void undo();
    void redo();

private:
    void carryOut(Stack& from, Stack& to) const;
};

} // namespace zelvo::actions
