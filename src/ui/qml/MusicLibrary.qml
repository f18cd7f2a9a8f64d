// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Zelvo
import Zelvo.Audio as Audio

// View of an AlbumTableViewController: a sheet with the list of albums, over which the songs of one
// come from the right.
Sheet {
    id: root

    required property Audio.AlbumTableViewController controller

    focus: true
    Accessible.name: controller.title
    onClosed: controller.dismissViewController()

    FocusStack {
        anchors.fill: parent
        focus: true

        AlbumList {
            width: parent.width
            height: parent.height
            focus: true
            controller: root.controller
        }
        Loader {
            id: page

            readonly property Audio.SongsTableViewController songs: root.controller.songs

            width: parent.width
            height: parent.height
            visible: status === Loader.Ready
            x: visible ? 0 : width
            onSongsChanged: {
                if (songs)
                    setSource("SongList.qml", { controller: songs, covers: root.controller.covers });
                else
                    source = "";
            }

            Behavior on x {
                NumberAnimation { duration: 180 * Theme.motion; easing.type: Easing.OutCubic }
            }
        }
    }
}
