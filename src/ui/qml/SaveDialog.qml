// SPDX-License-Identifier: MIT
import QtQuick.Dialogs

// Asks where to save a copy of the movie.
FileDialog {
    function ask(suggestion: url): void {
        currentFolder = String(suggestion).replace(/[^/]*$/, "");
        selectedFile = suggestion;
        defaultSuffix = String(suggestion).replace(/.*[.]/, "");
        open();
    }

    title: qsTr("Save a Copy")
    fileMode: FileDialog.SaveFile
    acceptLabel: qsTr("Save")
    nameFilters: [qsTr("Movies (*.mov *.mp4 *.webm)")]
}
