// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo
import Zelvo.Screens as Screens

// View of a BlurCover: hides `source` behind a blurred picture of it, which is taken once, when the
// cover appears. `source` must not contain the cover.
Item {
    id: root

    required property Screens.BlurCover controller
    required property Item source

    visible: controller.isPresent
    opacity: controller.alpha

    Behavior on opacity {
        NumberAnimation { duration: root.controller.fadeMilliseconds * Theme.motion }
    }

    Loader {
        readonly property bool isShown: root.visible

        anchors.fill: parent
        onIsShownChanged: {
            if (isShown)
                setSource("BlurredPicture.qml", { picture: root.source });
            else
                source = "";
        }
    }
}
