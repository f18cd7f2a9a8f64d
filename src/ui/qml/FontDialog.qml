// SPDX-License-Identifier: MIT
import QtQuick.Dialogs

// Asks for a font or an archive of fonts. It begins in the given folder, and the next time where
// the user was.
FileDialog {
    property bool hasBegun: false

    function ask(filters: list<string>, folder: url): void {
        if (!hasBegun)
            currentFolder = folder;
        hasBegun = true;
        nameFilters = filters;
        open();
    }

    title: qsTr("Import Fonts")
    fileMode: FileDialog.OpenFile
    acceptLabel: qsTr("Import")
}
