import QtQuick 2.12
import QtQuick.Templates 2.5 as T
import "blocks"

// The spinner of the start-up mask: eight dots on a circle, one turn in six seconds.
T.BusyIndicator {
    id: control

    implicitWidth: contentItem.implicitWidth
    implicitHeight: contentItem.implicitHeight

    contentItem: Item {
        implicitWidth: 64
        implicitHeight: 64

        Item {
            id: item
            x: parent.width / 2 - 32
            y: parent.height / 2 - 32
            width: 64
            height: 64
            opacity: control.running ? 1 : 0

            Behavior on opacity {
                // An animator that starts on a hidden item gets no frames, so it never ends and turns the event
                // loop 60 times a second for ever.
                enabled: control.visible
                OpacityAnimator { duration: 250 }
            }

            RotationAnimator {
                target: item
                // An animator in an invisible item would keep the render loop awake.
                running: control.visible && control.running
                from: 0
                to: 360
                loops: Animation.Infinite
                duration: 6000
            }

            Repeater {
                id: repeater
                model: 8

                Rectangle {
                    x: item.width / 2 - width / 2
                    y: item.height / 2 - height / 2
                    implicitWidth: 10
                    implicitHeight: 10
                    radius: 5
                    color: Look.level
                    transform: [
                        Translate { y: -Math.min(item.width, item.height) * 0.5 + 5 },
                        Rotation {
                            angle: index / repeater.count * 360
                            origin.x: 5
                            origin.y: 5
                        }
                    ]
                }
            }
        }
    }
}
