// SPDX-License-Identifier: MIT
import QtQuick.Dialogs

// Asks for objects and their parts. It begins in the given folder, and the next time where the user
// was.
FileDialog {
    property bool hasBegun: false

    function ask(filters: list<string>, folder: url): void {
        if (!hasBegun)
            currentFolder = folder;
        hasBegun = true;
        nameFilters = filters;
        open();
    }

    title: qsTr("Import Objects")
    fileMode: FileDialog.OpenFiles
    acceptLabel: qsTr("Import")
}
