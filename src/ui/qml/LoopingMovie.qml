// SPDX-License-Identifier: MIT
import QtQuick
import QtMultimedia
import Zelvo

// A movie that starts again when it has ended. It is in its own file, so that the other views can be
// loaded on a system without a media player.
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
    Component.onDestruction: { // pictures come from another thread: stop it before the output is gone
        colors.target = null;
        player.stop();
    }
}
