// SPDX-License-Identifier: MIT
import QtQuick.Dialogs

// Asks where a copy of the movie goes.
FileDialog {
    function ask(suggestion: url): void {
        currentFolder = String(suggestion).replace(/[^/]*$/, "");
        selectedFile = suggestion;
        open();
    }

    title: "Save a Copy"
    fileMode: FileDialog.SaveFile
    acceptLabel: "Save"
    defaultSuffix: "mov"
    nameFilters: ["QuickTime movies (*.mov)"]
}
