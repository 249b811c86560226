// One of the preferred networks, with its handle.
import QtQuick
import Kvq.Settings.Controls

Item {
    id: row

    required property int index
    required property string networkId
    required property string name
    /** The PreferredList that the row stands in. */
    property var owner: null
    readonly property alias handle: grip

    objectName: "network:" + networkId
    width: owner ? owner.width : 0
    height: content.height
    z: drag.active ? 1 : 0

    Rectangle {
        id: ground

        width: parent.width
        height: parent.height
        y: drag.active ? drag.activeTranslation.y : row.owner ? row.owner.shift(row.index) : 0
        radius: Theme.radius
        color: drag.active ? Theme.pressed : "transparent"

        Behavior on y {
            enabled: row.owner !== null && row.owner.dragged >= 0 && !drag.active

            NumberAnimation { duration: Theme.movement; easing.type: Easing.OutCubic }
        }

        SettingRow {
            id: content

            label: row.name !== "" ? row.name : row.networkId
            description: row.name !== "" ? row.networkId : ""
            lined: row.index > 0 && row.owner !== null && row.owner.dragged < 0

            IconButton {
                symbol: "remove"
                ink: Theme.quiet
                text: qsTr("Remove %1").arg(content.label)
                onClicked: row.owner.removed(row.index)
            }

            IconButton {
                id: grip

                symbol: "grip"
                ink: Theme.quiet
                text: qsTr("Move %1").arg(content.label)
                Accessible.description: qsTr("Place %1. Control and an arrow key move it.").arg(row.index + 1)

                Keys.onPressed: event => {
                    const by = event.key === Qt.Key_Up ? -1 : event.key === Qt.Key_Down ? 1 : 0;
                    if (by === 0 || !(event.modifiers & (Qt.ControlModifier | Qt.AltModifier)))
                        return;
                    event.accepted = true;
                    row.owner.step(row.index, by);
                }

                DragHandler {
                    id: drag

                    target: null
                    xAxis.enabled: false
                    dragThreshold: 4
                    grabPermissions: PointerHandler.CanTakeOverFromAnything

                    onActiveChanged: {
                        if (active) {
                            row.owner.dragged = row.index;
                            row.owner.target = row.index;
                        } else {
                            const from = row.owner.dragged;
                            const to = row.owner.target;
                            row.owner.dragged = -1;
                            if (from >= 0 && from !== to)
                                row.owner.moved(from, to);
                        }
                    }
                    onActiveTranslationChanged: {
                        if (active)
                            row.owner.target = row.owner.find(row.index, activeTranslation.y);
                    }
                }
            }
        }
    }
}
