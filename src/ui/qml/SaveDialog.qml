// SPDX-License-Identifier: MIT
import QtQuick.Dialogs

// Asks where to save a copy of the movie.
FileDialog {
    function ask(suggestion: url): void {
        currentFolder = String(suggestion).replace(/[^/]*$/, "");
        selectedFile = suggestion;
        open();
    }

    title: qsTr("Save a Copy")
    fileMode: FileDialog.SaveFile
    acceptLabel: qsTr("Save")
    defaultSuffix: "mov"
    nameFilters: [qsTr("QuickTime movies (*.mov)")]
}
