// SPDX-License-Identifier: MIT
import QtMultimedia
import QtQuick
import Zelvo
import Zelvo.Screens as Screens

// View of a PreviewViewController: the finished movie, its player controls, and the share panel.
FocusStack {
    id: root

    required property Screens.PreviewViewController controller

    focus: true
    Component.onDestruction: { // pictures come from another thread: stop it before the output is gone
        colors.target = null;
        player.stop();
    }

    FocusScope {
        id: movie

        anchors.fill: parent
        Keys.onEscapePressed: root.controller.dismissController()
        Keys.onLeftPressed: player.setPosition(Math.max(0, player.position - 1000))
        Keys.onRightPressed: player.setPosition(Math.min(player.duration, player.position + 1000))

        Shortcut {
            sequence: "Space"
            autoRepeat: false
            enabled: movie.enabled
            onActivated: root.controller.togglePlaying()
        }
        Rectangle {
            anchors.fill: parent
            color: "black"
        }
        MouseArea {
            anchors.fill: parent
            hoverEnabled: true
            onWheel: wheel => wheel.accepted = true
        }
        ScreenBar {
            id: bar

            width: parent.width
            title: root.controller.title

            leading: ScreenButton {
                text: qsTr("Cancel")
                name: qsTr("Close the preview")
                key: "Esc"
                fill: Theme.separator
                onClicked: root.controller.dismissController()
            }
            trailing: ScreenButton {
                id: shareButton

                text: qsTr("Share")
                fill: Theme.accent
                onClicked: root.controller.share()
            }
        }
        Item {
            id: screen

            anchors.top: bar.bottom
            anchors.bottom: controls.top
            width: parent.width

            VideoOutput {
                id: output

                anchors.fill: parent
                visible: root.controller.failure === ""
            }
            Image {
                anchors.fill: parent
                fillMode: Image.PreserveAspectFit
                visible: !output.visible || (player.position === 0 && !root.controller.isPlaying)
                source: root.controller.poster
            }
            Rectangle {
                anchors.centerIn: parent
                width: Math.min(parent.width - 48, reason.implicitWidth + 40)
                height: reason.implicitHeight + 28
                visible: root.controller.failure !== ""
                radius: Theme.radius
                color: Theme.background
                opacity: 0.9

                Text {
                    id: reason

                    anchors.fill: parent
                    anchors.margins: 14
                    text: root.controller.failure
                    color: Theme.text
                    font.pixelSize: Theme.px(14)
                    wrapMode: Text.Wrap
                    horizontalAlignment: Text.AlignHCenter
                    Accessible.role: Accessible.StaticText
                    Accessible.name: text
                }
            }
            TapHandler {
                onTapped: root.controller.togglePlaying()
            }
        }
        PreviewControls {
            id: controls

            anchors.bottom: parent.bottom
            width: parent.width
            controller: root.controller
            player: player
        }
    }
    SharePanel {
        anchors.fill: parent
        below: bar.height
        visible: root.controller.isSharing
        controller: root.controller
    }

    MediaPlayer {
        id: player

        source: root.controller.movieUrl
        videoOutput: colors
        audioOutput: AudioOutput {}
        onErrorOccurred: (error, text) => root.controller.playbackFailed(text)
        onMediaStatusChanged: {
            if (mediaStatus === MediaPlayer.LoadedMedia && !root.controller.isPlaying)
                pause(); // shows the first picture
            else if (mediaStatus === MediaPlayer.EndOfMedia)
                root.controller.reachedEnd();
        }
    }
    TrueColorSink {
        id: colors

        target: output.videoSink
    }
    Connections {
        target: root.controller

        function onIsPlayingChanged(): void {
            if (root.controller.isPlaying)
                player.play();
            else if (player.mediaStatus !== MediaPlayer.EndOfMedia)
                player.pause();
        }
    }
}
