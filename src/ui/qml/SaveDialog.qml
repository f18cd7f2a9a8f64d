// SPDX-License-Identifier: MIT
import QtQuick.Dialogs

// Asks where a copy of the movie goes.
FileDialog {
    title: "Save a Copy"
    fileMode: FileDialog.SaveFile
    acceptLabel: "Save"
    defaultSuffix: "mov"
    nameFilters: ["QuickTime movies (*.mov)"]
}
