// SPDX-License-Identifier: MIT
#include "actions/MyUndoManager.h"

#include "platform/foundation/Check.h"
#include "shared/Signal.h"

#include <utility>

namespace zelvo::actions {

void MyUndoManager::add(MyUndoManagerActionType type, const XACPtr& xact) {
    undoActions.push_back({type, xact});
    redoActions.clear();
    undoneEdits.clear();
    ui::signals().undoStateSignal.fire();
}

void MyUndoManager::add(ListEdit edit) {
    edits.push_back({std::move(edit), undoActions.size()});
    redoActions.clear();
    undoneEdits.clear();
    ui::signals().undoStateSignal.fire();
}

void MyUndoManager::clear() {
    undoActions.clear();
    redoActions.clear();
    edits.clear();
    undoneEdits.clear();
    ui::signals().undoStateSignal.fire();
}

bool MyUndoManager::isEditNext(const EditStack& edits, const Stack& records) {
    return !edits.empty() && edits.back().height == records.size();
}

std::string MyUndoManager::undoTitle() const {
    if (isEditNext(edits, undoActions))
        return edits.back().edit.title;
    return undoActions.empty() ? std::string() : undoActions.back().xact->title;
}

std::string MyUndoManager::redoTitle() const {
    if (isEditNext(undoneEdits, redoActions))
        return undoneEdits.back().edit.title;
    return redoActions.empty() ? std::string() : redoActions.back().xact->title;
}

void MyUndoManager::undo() {
    isUndoing = true;
    if (isEditNext(edits, undoActions)) {
        undoneEdits.push_back({std::move(edits.back().edit), redoActions.size()});
        edits.pop_back();
        replaceList(undoneEdits.back().edit.before);
    } else {
        carryOut(undoActions, redoActions);
    }
    isUndoing = false;
}

void MyUndoManager::redo() {
    isRedoing = true;
    if (isEditNext(undoneEdits, redoActions)) {
        edits.push_back({std::move(undoneEdits.back().edit), undoActions.size()});
        undoneEdits.pop_back();
        replaceList(edits.back().edit.after);
    } else {
        carryOut(redoActions, undoActions);
    }
    isRedoing = false;
}

void MyUndoManager::replaceList(const std::vector<XACPtr>& records) const {
    if (actionController != nullptr)
        actionController->replaceActions(records);
    ui::signals().undoStateSignal.fire();
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
