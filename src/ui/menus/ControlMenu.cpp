// SPDX-License-Identifier: MIT
#include "ui/menus/ControlMenu.h"

#include "model/Model.h"
#include "shared/Signal.h"
#include "ui/controls/Alerts.h"
#include "ui/menus/TimePickerView.h"

namespace zelvo::ui {

ControlMenu::ControlMenu(const Services& given, QObject* parent)
    : QObject(parent)
    , services(given)
    , recordButton(services.model, services.runLoop, [this] { recordButtonAction(); })
    , durationButton(
          {.image = "DurationButton", .name = tr("Duration"), .key = "Ctrl+D"},
          [this] { durationButtonAction(); })
    , undoButton(
          {.image = "Undo", .name = tr("Undo"), .key = "Ctrl+Z"}, [this] { undoButtonAction(); })
    , redoButton(
          {.image = "Redo", .name = tr("Redo"), .key = "Ctrl+Shift+Z"},
          [this] { redoButtonAction(); })
    , historyButton(
          {.image = "EditHistory", .name = tr("History"), .key = "Ctrl+H"},
          [this] { historyButtonAction(); })
    , deleteAllButton({.image = "Trashcan", .name = tr("Delete all"), .key = {}}, [this] {
        deleteAllButtonAction();
    }) {
    signals().undoStateSignal.subscribe(
        lifetime, [this] { services.runLoop.post(lifetime.guard([this] { showUndoState(); })); });
    showUndoState();
}

ControlMenu::~ControlMenu() = default;

void ControlMenu::setButtonsEnabled(bool isUsable) {
    if (enabled == isUsable)
        return;
    enabled = isUsable;
    showUndoState();
    Q_EMIT changed();
}

QList<MyButton*> ControlMenu::buttonObjects() {
    return {&durationButton, &undoButton, &redoButton, &historyButton, &deleteAllButton};
}

void ControlMenu::showUndoState() {
    const actions::ActionController& controller = services.model.actionController();
    const bool hasActions = !controller.recordedActions().empty();
    const bool isOfStyle = !enabled && styling.canUndo;
    undoButton.setEnabled(isOfStyle ? styling.canUndo() : controller.undoManager.canUndo());
    redoButton.setEnabled(isOfStyle ? styling.canRedo() : controller.undoManager.canRedo());
    historyButton.setEnabled(hasActions);
    deleteAllButton.setEnabled(hasActions);
}

void ControlMenu::pressIfUsable(MyButton& button) const {
    if (enabled)
        button.click();
}

void ControlMenu::record() {
    pressIfUsable(recordButton);
}

void ControlMenu::undo() {
    if (undoButton.isEnabled())
        undoButton.click();
    else if (enabled && services.model.actionController().canPutBack())
        services.model.actionController().putBack();
}

void ControlMenu::redo() {
    redoButton.click();
}

void ControlMenu::showHistory() {
    pressIfUsable(historyButton);
}

void ControlMenu::askForDuration() {
    pressIfUsable(durationButton);
}

void ControlMenu::askToDeleteAll() {
    pressIfUsable(deleteAllButton);
}

void ControlMenu::recordButtonAction() const {
    if (playAction)
        playAction(true);
}

void ControlMenu::durationButtonAction() {
    services.model.stop(model::Reset::toStart);
    picker = std::make_shared<TimePickerView>(services.model.duration());
    const auto setDuration = [&runLoop = services.runLoop, &model = services.model, own = picker] {
        runLoop.post([&model, own] { model.setDuration(own->duration()); });
    };
    services.alerts.show(
        {.title = tr("Duration").toStdString(),
         .message = {},
         .actions =
             {{.title = tr("Ok").toStdString(), .handler = setDuration},
              {.title = tr("Cancel").toStdString(), .role = AlertRole::cancel}},
         .content = picker.get(),
         .contentView = "TimePicker"});
}

void ControlMenu::undoButtonAction() const {
    const auto& action = enabled ? undoAction : styling.undo;
    if (action)
        action();
}

void ControlMenu::redoButtonAction() const {
    const auto& action = enabled ? redoAction : styling.redo;
    if (action)
        action();
}

void ControlMenu::historyButtonAction() const {
    if (showHistoryAction)
        showHistoryAction();
}

void ControlMenu::deleteAllButtonAction() const {
    services.alerts.show(
        {.title = tr("Delete all recorded actions?").toStdString(),
         .message = {},
         .actions = {
             {.title = tr("Delete").toStdString(),
              .role = AlertRole::destructive,
              .handler = deleteAllActions},
             {.title = tr("Cancel").toStdString(), .role = AlertRole::cancel}}});
}

} // namespace zelvo::ui
