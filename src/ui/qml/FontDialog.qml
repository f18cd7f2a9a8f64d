// SPDX-License-Identifier: MIT
import QtQuick.Dialogs

// Asks for a font or an archive of fonts.
FileDialog {
    function ask(filters: list<string>): void {
        nameFilters = filters;
        open();
    }

    title: qsTr("Import Fonts")
    fileMode: FileDialog.OpenFile
    acceptLabel: qsTr("Import")
}
