// SPDX-License-Identifier: MIT
import QtQuick.Dialogs

// Asks for files to import. It begins in the given folder, and the next time where the user was.
FileDialog {
    property bool takesMany: false
    property bool hasBegun: false

    function ask(filters: list<string>, folder: url): void {
        if (!hasBegun)
            currentFolder = folder;
        hasBegun = true;
        nameFilters = filters;
        open();
    }

    fileMode: takesMany ? FileDialog.OpenFiles : FileDialog.OpenFile
    acceptLabel: qsTr("Import")
}
