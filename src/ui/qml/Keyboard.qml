// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Window
import Zelvo.Menus as Menus
import Zelvo.Layouter as Layouter
import Zelvo.Main as MainScreen

// The keys of the main screen. A button with the focus still gets its own keys, except the space
// bar: it starts and stops a run, unless the user is typing in a field.
FocusScope {
    id: root

    required property MainScreen.MainViewController main
    required property Window window

    readonly property Menus.ActionsMenu catalogue: main.panel as Menus.ActionsMenu
    readonly property Layouter.LayouterMenu layouter: main.panel as Layouter.LayouterMenu

    // A digit holds a button of the tab down until the key is released. Negative: no digit.
    function digit(event: KeyEvent): int {
        return event.modifiers & ~Qt.KeypadModifier || event.isAutoRepeat ? -1 : event.key - Qt.Key_1;
    }
    // The pressed digits by their place on the keyboard. A key's name is not enough: it changes if a
    // modifier is pressed before the key is released.
    property var held: ({})

    function idOf(event: KeyEvent): int {
        return event.nativeScanCode || event.key;
    }
    function isPlayed(event: KeyEvent): bool {
        return catalogue !== null && digit(event) >= 0 && digit(event) < catalogue.actionsStackView.length;
    }
    function hold(event: KeyEvent): void {
        held[idOf(event)] = digit(event);
        catalogue.pressButton(digit(event));
    }
    function letGo(key: int): void {
        const place = held[key];
        delete held[key];
        if (catalogue && place !== undefined)
            catalogue.releaseButton(place);
    }
    // Arrow keys, Page Up and Page Down move the selected node; [ and ] change its size; Tab selects
    // the next node; Return writes a text, or asks for another picture. True if there was something to do.
    function movesNode(event: KeyEvent): bool {
        const step = event.modifiers & Qt.ShiftModifier ? 10 : 1;
        const moves = {
            [Qt.Key_Left]: [-step, 0, 0], [Qt.Key_Right]: [step, 0, 0],
            [Qt.Key_Down]: [0, -step, 0], [Qt.Key_Up]: [0, step, 0],
            [Qt.Key_PageDown]: [0, 0, -step], [Qt.Key_PageUp]: [0, 0, step]
        };
        const move = moves[event.key];
        if (move)
            return layouter.nudge(move[0], move[1], move[2]);
        if (event.key === Qt.Key_Tab)
            return layouter.takeNext(1);
        if (event.key === Qt.Key_Backtab)
            return layouter.takeNext(-1);
        if (event.key === Qt.Key_Return || event.key === Qt.Key_Enter)
            return !event.isAutoRepeat && layouter.openSelected();
        if (event.text === "[" || event.text === "]")
            return layouter.grow(event.text === "[" ? 1 / 1.05 : 1.05);
        return false;
    }
    function toggleFullScreen(): void {
        window.visibility = window.visibility === Window.FullScreen ? Window.Windowed : Window.FullScreen;
    }

    Keys.onPressed: event => {
        if (isPlayed(event))
            hold(event);
        else if (event.key === Qt.Key_S && catalogue && !event.modifiers)
            catalogue.speedButton.click();
        else if (event.key === Qt.Key_I && layouter && !layouter.isBackVisible && !event.modifiers)
            layouter.inspirator.button.click();
        else if (event.key === Qt.Key_Escape && layouter && layouter.isBackVisible)
            layouter.backButtonClicked();
        else if (layouter && movesNode(event))
            event.accepted = true;
        else if (event.key === Qt.Key_Escape && window.visibility === Window.FullScreen)
            window.visibility = Window.Windowed;
        else
            return;
        event.accepted = true;
    }
    Keys.onReleased: event => {
        if (!event.isAutoRepeat)
            letGo(idOf(event));
    }
    // If another window gets the keyboard, this one is not told that keys are released.
    onActiveFocusChanged: if (!activeFocus) Object.keys(held).forEach(letGo)

    Shortcut { sequence: "Space"; autoRepeat: false; enabled: root.enabled; onActivated: root.main.controlMenu.record() }
    Shortcut { sequence: "Ctrl+Z"; enabled: root.enabled; onActivated: root.main.controlMenu.undo() }
    Shortcut { sequence: "Ctrl+Shift+Z"; enabled: root.enabled; onActivated: root.main.controlMenu.redo() }
    Shortcut { sequence: "Ctrl+N"; enabled: root.enabled; onActivated: root.main.document.askForNew() }
    Shortcut { sequence: "Ctrl+O"; enabled: root.enabled; onActivated: root.main.document.askToOpen() }
    Shortcut { sequence: "Ctrl+S"; enabled: root.enabled; onActivated: root.main.document.save() }
    Shortcut { sequence: "Ctrl+Shift+S"; enabled: root.enabled; onActivated: root.main.document.saveAs() }
    Shortcut { sequence: "F10"; enabled: root.enabled; onActivated: root.main.document.menuButton.click() }
    Shortcut { sequence: "Ctrl+H"; enabled: root.enabled; onActivated: root.main.controlMenu.showHistory() }
    Shortcut { sequence: "Ctrl+D"; enabled: root.enabled; onActivated: root.main.controlMenu.askForDuration() }
    Shortcut { sequence: "Ctrl+E"; enabled: root.enabled; onActivated: root.main.share() }
    Shortcut { sequence: "Ctrl+V"; autoRepeat: false; enabled: root.enabled; onActivated: root.main.paste() }
    Shortcut { sequences: ["F1", "?"]; enabled: root.enabled; onActivated: root.main.help.button.click() }
    Shortcut { sequence: "F2"; enabled: root.enabled; onActivated: root.layouter ? root.layouter.stackView.askForFocus() : root.main.mainMenu.askForStyle() }
    Shortcut { sequence: "F3"; enabled: root.enabled; onActivated: root.catalogue ? root.catalogue.stackView.askForFocus() : root.main.mainMenu.askForActions() }
    Shortcut { sequence: "P"; autoRepeat: false; enabled: root.enabled && root.catalogue; onActivated: root.main.timeline.playButton.click() }
    Shortcut { sequence: "Ctrl+Right"; enabled: root.enabled && root.catalogue; onActivated: root.catalogue.nextTab() }
    Shortcut { sequence: "Ctrl+Left"; enabled: root.enabled && root.catalogue; onActivated: root.catalogue.previousTab() }
    Shortcut { sequence: "Ctrl+F"; enabled: root.enabled && root.catalogue; onActivated: root.catalogue.searchButton.click() }
    Shortcut { sequence: "F11"; onActivated: root.toggleFullScreen() }
    Shortcut { sequence: "Ctrl+Shift+T"; onActivated: root.main.toggleVisualizer() }
}
