// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Lifetime.h"
#include "ui/controls/MyButton.h"
#include "ui/controls/Services.h"
#include "ui/menus/RecordButton.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <memory>

namespace zelvo::ui {

class TimePickerView;

/// The controls of the performance: start and stop, duration, undo, redo, history, delete all. The
/// screen sets what the buttons do.
class ControlMenu final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(zelvo::ui::RecordButton* recordButton READ recordObject CONSTANT)
    Q_PROPERTY(QList<zelvo::ui::MyButton*> buttons READ buttonObjects CONSTANT)
    Q_PROPERTY(zelvo::ui::MyButton* undoButton READ undoObject CONSTANT)
    Q_PROPERTY(zelvo::ui::MyButton* redoButton READ redoObject CONSTANT)
    Q_PROPERTY(bool buttonsEnabled READ buttonsEnabled WRITE setButtonsEnabled NOTIFY changed)
    Q_PROPERTY(qreal alpha READ alpha NOTIFY changed)

public:
    explicit ControlMenu(const Services& given, QObject* parent = nullptr);
    ~ControlMenu() override;
    ControlMenu(const ControlMenu&) = delete;
    ControlMenu& operator=(const ControlMenu&) = delete;

    // Each may be empty.
    std::function<void(bool)> playAction; ///< true if the record button was used
    std::function<void()> showHistoryAction;
    std::function<void()> deleteAllActions; ///< called after the user has confirmed
    std::function<void()> undoAction;
    std::function<void()> redoAction;

    /// Undo and redo while the menu is disabled: those of styling. All or none are set.
    struct StyleUndo {
        std::function<bool()> canUndo;
        std::function<bool()> canRedo;
        std::function<void()> undo;
        std::function<void()> redo;
    };

    StyleUndo styling;

private:
    Services services;

public:
    RecordButton recordButton;
    MyButton durationButton;
    MyButton undoButton;
    MyButton redoButton;
    MyButton historyButton;
    MyButton deleteAllButton;

    /// Reads again what can be undone and redone.
    void showUndoState();

    [[nodiscard]] MyButton* undoObject() { return &undoButton; }

    [[nodiscard]] MyButton* redoObject() { return &redoButton; }

    /// Whether the whole menu is enabled, except for undo and redo; false also dims it.
    [[nodiscard]] bool buttonsEnabled() const { return enabled; }

    void setButtonsEnabled(bool isUsable);

    /// Opacity of the whole menu.
    [[nodiscard]] qreal alpha() const { return enabled ? 1.0 : 0.1; }

    [[nodiscard]] RecordButton* recordObject() { return &recordButton; }

    /// The buttons after the record button, in order.
    [[nodiscard]] QList<MyButton*> buttonObjects();

    // Actions of the buttons, also for keys. They do nothing while the button or the menu is
    // disabled.
    Q_INVOKABLE void record();
    Q_INVOKABLE void undo();
    Q_INVOKABLE void redo();
    Q_INVOKABLE void showHistory();
    Q_INVOKABLE void askForDuration();
    Q_INVOKABLE void askToDeleteAll();

Q_SIGNALS:
    void changed();

private:
    void recordButtonAction() const;
    void durationButtonAction();
    void undoButtonAction() const;
    void redoButtonAction() const;
    void historyButtonAction() const;
    void deleteAllButtonAction() const;
    void pressIfUsable(MyButton& button) const;

    bool enabled = false;
    /// Of the last duration dialog, which may still be shown.
    std::shared_ptr<TimePickerView> picker;
    foundation::Lifetime lifetime;
};

} // namespace zelvo::ui
