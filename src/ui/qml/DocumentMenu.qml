// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo
import Zelvo.Documents as Documents

// What can be done with the document, and the documents of late.
MenuPopup {
    id: root

    required property Documents.DocumentController controller

    y: parent.height + 6
    visible: controller.isMenuOpen
    onClosed: controller.isMenuOpen = false
    model: controller.menu
    name: controller.menuButton.name
    headedFrom: controller.commandCount
    heading: qsTr("Recent")
    hasTips: true
}
