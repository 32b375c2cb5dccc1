import QtQuick
import Corvane

// A needle on a bar that spans some cents either side of its centre.
Column {
    id: root

    required property TunerModel tuner
    required property string title
    required property real span // cents
    required property real bar // thickness
    property string words // what it shows, for assistive technology

    spacing: 4

    Item {
        width: root.width
        height: Math.max(title.height, scaleLabel.height)

        Label {
            id: title

            anchors.verticalCenter: parent.verticalCenter
            text: root.title
            color: TunerTheme.muted
            font.pixelSize: TypeScale.caption
            font.weight: Font.DemiBold
        }

        Label {
            id: scaleLabel

            anchors.right: parent.right
            anchors.baseline: title.baseline
            text: root.tuner.scaleText(root.span)
            color: TunerTheme.muted
            font.pixelSize: TypeScale.caption2

            Accessible.ignored: true
        }
    }

    Item {
        id: track

        width: root.width
        height: root.bar

        Accessible.role: Accessible.ProgressBar
        Accessible.name: root.title
        Accessible.description: root.words

        Capsule {
            anchors.fill: parent
            color: Shades.track
        }

        Capsule {
            x: (track.width - width) / 2
            width: Math.min(track.width * 5 / root.span, track.width)
            height: parent.height
            color: Qt.alpha(TunerTheme.green, 0.35)
        }

        Capsule {
            id: needle

            readonly property real place: root.tuner.heard ? Math.max(-root.span, Math.min(root.tuner.cents, root.span)) : 0
            property real goal: 0
            property real value: 0
            property bool made: false

            function distance(): real {
                return Math.abs(root.tuner.needleCentre(track.width, track.height, root.span, goal) - x - width / 2);
            }

            x: root.tuner.needleCentre(track.width, track.height, root.span, value) - width / 2
            width: root.bar
            height: root.bar
            color: root.tuner.needleColor

            // For a move that nobody sees, the screen would be drawn three times.
            onPlaceChanged: {
                if (root.tuner.needleMoves(track.width, track.height, root.span, goal, place)) {
                    goal = place;
                    if (made)
                        move.begin(distance() > 4);
                    else
                        value = goal;
                }
            }
            Component.onCompleted: made = true

            // Eases out in 80 ms. The first step is in the frame that shows the color and the texts of the
            // reading; what is left of a parabola is one too.
            NumberAnimation {
                id: move

                function begin(far: bool): void {
                    const left = far ? 4 / 5 : 2 / 3;
                    if (far)
                        FramePace.quicken(needle);
                    needle.value += (needle.goal - needle.value) * (1 - left * left);
                    duration = 80 * left;
                    restart();
                }

                target: needle
                property: "value"
                to: needle.goal
                easing.type: Easing.OutQuad
            }
        }
    }
}
