// SPDX-License-Identifier: MIT
#include "actions/MyUndoManager.h"

#include "platform/foundation/Check.h"
#include "shared/Signal.h"

namespace zelvo::actions {

void MyUndoManager::add(MyUndoManagerActionType type, const XACPtr& xact) {
    undoActions.push_back({type, xact});
    redoActions.clear();
    ui::signals().undoStateSignal.fire();
}

void MyUndoManager::clear() {
    undoActions.clear();
    redoActions.clear();
    ui::signals().undoStateSignal.fire();
}

std::string MyUndoManager::undoTitle() const {
    return canUndo() ? undoActions.back().xact->title : std::string();
}

std::string MyUndoManager::redoTitle() const {
    return canRedo() ? redoActions.back().xact->title : std::string();
}

void MyUndoManager::undo() {
    isUndoing = true;
    carryOut(undoActions, redoActions);
    isUndoing = false;
}

void MyUndoManager::redo() {
    isRedoing = true;
    carryOut(redoActions, undoActions);
    isRedoing = false;
}

void MyUndoManager::carryOut(Stack& from, Stack& to) const {
    CHECK(!from.empty(), "there is nothing to undo or redo");
    const Entry entry = std::move(from.back());
    from.pop_back();
    switch (entry.type) {
    case MyUndoManagerActionType::remove:
        if (actionController != nullptr)
            actionController->removeActions(entry.xact->identifier);
        to.push_back({MyUndoManagerActionType::add, entry.xact});
        break;
    case MyUndoManagerActionType::add:
        if (actionController != nullptr)
            actionController->append(entry.xact);
        to.push_back({MyUndoManagerActionType::remove, entry.xact});
        break;
    }
    ui::signals().undoStateSignal.fire();
}

} // namespace zelvo::actions
