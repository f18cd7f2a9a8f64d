// SPDX-License-Identifier: MIT
#pragma once

#include "actions/XAC.h"

#include <cstddef>
#include <string>
#include <vector>

namespace zelvo::actions {

/// What an entry does to the list of recorded actions.
enum class MyUndoManagerActionType { add, remove };

/// The list that undo and redo change.
class UndoneList {
public:
    virtual ~UndoneList() = default;
    virtual void append(const XACPtr& xac) = 0;
    virtual void removeActions(int identifier) = 0;
    /// Changes the whole list.
    virtual void replaceActions(const std::vector<XACPtr>& records) = 0;
};

/// A change to the list as a whole, such as moving some acts to another time.
struct ListEdit {
    std::string title; ///< shown in undo messages
    std::vector<XACPtr> before;
    std::vector<XACPtr> after;
};

/// Undo and redo of the performance: two stacks of changes to the list of records. The stage itself
/// does not change; the difference shows in the next run.
///
/// Removing works by identifier, so it removes a whole gesture. Adding puts back only the record on
/// the stack: a gesture that was undone comes back as its first record only. Main thread only.
///
/// Edits of the list as a whole have stacks of their own. Each edit remembers how high the other
/// stack was, so that all steps are undone and redone in the order in which they were made.
class MyUndoManager {
public:
    struct Entry {
        MyUndoManagerActionType type;
        XACPtr xact;
    };

    using Stack = std::vector<Entry>; ///< the last entry is the top

    explicit MyUndoManager(UndoneList* list)
        : actionController(list) {}

    bool isUndoing = false;
    bool isRedoing = false;
    UndoneList* actionController; ///< not owned; it owns this manager
    Stack undoActions;
    Stack redoActions;

    /// Adds a new step and clears what could be redone.
    void add(MyUndoManagerActionType type, const XACPtr& xact);
    /// The same for an edit. The list has been changed already.
    void add(ListEdit edit);
    void clear();

    [[nodiscard]] bool canUndo() const { return !undoActions.empty() || !edits.empty(); }

    [[nodiscard]] bool canRedo() const { return !redoActions.empty() || !undoneEdits.empty(); }

    /// The title of the next step to undo or redo; empty if there is none.
    [[nodiscard]] std::string undoTitle() const;
    [[nodiscard]] std::string redoTitle() const;

    /// Applies the top entry. Check canUndo or canRedo first.
    void undo();
    void redo();

private:
    struct EditStep {
        ListEdit edit;
        std::size_t height = 0; ///< of the stack of records when the edit came
    };

    using EditStack = std::vector<EditStep>;

    [[nodiscard]] static bool isEditNext(const EditStack& edits, const Stack& records);
    void carryOut(Stack& from, Stack& to) const;
    void replaceList(const std::vector<XACPtr>& records) const;

    EditStack edits;
    EditStack undoneEdits;
};

} // namespace zelvo::actions
