// SPDX-License-Identifier: MIT
import QtQuick
import QtMultimedia
import Zelvo

// A movie that begins again when it has ended. Apart from its users, so that these load where there
// is no player.
VideoOutput {
    id: root

    property url movie
    readonly property bool isShowing: player.hasVideo && player.error === MediaPlayer.NoError

    MediaPlayer {
        id: player

        source: root.movie
        videoOutput: colors
        loops: MediaPlayer.Infinite
        onSourceChanged: play()
    }
    TrueColorSink {
        id: colors

        target: root.videoSink
    }
    Component.onDestruction: { // pictures come on a thread of their own: none may find its screen gone
        colors.target = null;
        player.stop();
    }
}
