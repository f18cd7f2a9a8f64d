// SPDX-License-Identifier: MIT
import QtQuick
import QtMultimedia

// A movie that begins again when it has ended. Apart from its users, so that these load where there
// is no player.
VideoOutput {
    id: root

    property url movie
    readonly property bool isShowing: player.hasVideo && player.error === MediaPlayer.NoError

    MediaPlayer {
        id: player

        source: root.movie
        videoOutput: root
        loops: MediaPlayer.Infinite
        onSourceChanged: play()
    }
}
