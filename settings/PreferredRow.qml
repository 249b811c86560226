// One of the preferred networks, with its handle.
import QtQuick
import Kvq.Settings.Controls

Item {
    id: row

    required property int index
    required property string networkId
    required property string name
    /** As the SIM has it, else as it was found; empty when nobody knows it. */
    readonly property string shownName: name !== "" || owner === null ? name : owner.nameOf(networkId)
    /** The PreferredList that the row stands in. */
    property var owner: null
    readonly property alias handle: grip
    readonly property bool dragged: owner !== null && owner.dragged === index

    objectName: "network:" + networkId
    width: owner ? owner.width : 0
    height: content.height
    z: dragged ? 1 : 0

    Rectangle {
        id: ground

        width: parent.width
        height: parent.height
        y: row.dragged ? row.owner.travel : row.owner ? row.owner.shift(row.index) : 0
        radius: Theme.radius
        color: row.dragged ? Theme.pressed : "transparent"

        Behavior on y {
            enabled: row.owner !== null && row.owner.dragged >= 0 && !row.dragged

            NumberAnimation { duration: Theme.movement; easing.type: Easing.OutCubic }
        }

        SettingRow {
            id: content

            label: row.shownName !== "" ? row.shownName : row.networkId
            description: row.shownName !== "" ? row.networkId : ""
            ink: row.owner !== null && row.owner.networks.stale ? Theme.quiet : Theme.text
            lined: row.index > 0 && row.owner !== null && row.owner.dragged < 0

            IconButton {
                objectName: "remove:" + row.networkId
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
                Accessible.description: Plain.shown(qsTr("Place %1. Control and an arrow key move it.").arg(row.index + 1))

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
                        if (active)
                            row.owner.take(row.index);
                        else
                            row.owner.drop();
                    }
                    onActiveTranslationChanged: {
                        if (active)
                            row.owner.drag(activeTranslation.y, centroid.scenePosition);
                    }
                }
            }
        }
    }
}
