// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Zelvo
import Zelvo.Audio as Audio

// View of an AlbumTableViewController: a sheet with the list of albums.
Sheet {
    id: root

    required property Audio.AlbumTableViewController controller

    focus: true
    Accessible.name: controller.title
    onClosed: controller.dismissViewController()
}
