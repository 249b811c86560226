// The panel for the desk: what happens to the simulated phone, how it is, and what it is asked.
import QtQuick
import Kvq.Desk

Window {
    id: window

    readonly property bool wide: width >= 800
    readonly property real half: (width - 5 * Paper.unit) / 2

    /** The product lacks something, or has it again. */
    signal productChanged()

    width: 440
    height: 800
    minimumWidth: 360
    minimumHeight: 480
    visible: true
    color: Paper.ground
    title: qsTr("Desk: the simulated phone")

    Binding {
        target: Desk
        property: "watching"
        value: window.visible
    }

    Image {
        anchors.fill: parent
        fillMode: Image.Tile
        source: "grid.svg"
        horizontalAlignment: Image.AlignLeft
        verticalAlignment: Image.AlignTop
    }

    Flickable {
        anchors.fill: parent
        contentHeight: header.height + groups.height + 4 * Paper.unit
        boundsBehavior: Flickable.StopAtBounds

        Item {
            id: header

            width: parent.width
            height: 72

            DeskText {
                id: name

                x: 2 * Paper.unit
                y: 10
                words: qsTr("DESK")
                font.pixelSize: Paper.title
                font.bold: true
                font.letterSpacing: 4
                color: Paper.mark
                Accessible.role: Accessible.Heading
            }

            DeskText {
                anchors.top: name.bottom
                anchors.topMargin: 2
                x: 2 * Paper.unit
                width: parent.width - fresh.width - 5 * Paper.unit
                words: qsTr("Around the phone, not a part of it.")
                color: Paper.quiet
            }

            DeskButton {
                id: fresh

                anchors.right: parent.right
                anchors.rightMargin: 2 * Paper.unit
                y: 12
                text: qsTr("New phone")
                onClicked: {
                    Desk.reset();
                    failures.forget();
                    window.productChanged();
                }
            }
        }

        Grid {
            id: groups

            x: 2 * Paper.unit
            y: header.height + Paper.unit
            columns: window.wide ? 2 : 1
            spacing: Paper.unit
            readonly property real cell: window.wide ? window.half : window.width - 4 * Paper.unit

            Column {
                width: groups.cell
                spacing: Paper.unit

                DeskGroup {
                    width: parent.width
                    heading: qsTr("Calls")

                    Row {
                        width: parent.width
                        spacing: Paper.unit

                        DeskField {
                            id: caller

                            width: parent.width - ring.width - parent.spacing
                            text: "+491715550100"
                            Accessible.name: qsTr("Number that calls")
                            onAccepted: Desk.ring(text)
                        }

                        DeskButton {
                            id: ring

                            text: qsTr("Ring")
                            onClicked: Desk.ring(caller.text)
                        }
                    }

                    Row {
                        id: others

                        width: parent.width
                        spacing: Paper.unit

                        DeskButton {
                            width: (others.width - Paper.unit) / 2
                            text: qsTr("Other side answers")
                            onClicked: Desk.otherSideAnswers()
                        }

                        DeskButton {
                            width: (others.width - Paper.unit) / 2
                            text: qsTr("Other side hangs up")
                            onClicked: Desk.otherSideHangsUp()
                        }
                    }
                }

                DeskGroup {
                    width: parent.width
                    heading: qsTr("Every answer comes")

                    DeskChoice {
                        choices: [
                            { value: 0, text: qsTr("at once") },
                            { value: 500, text: qsTr("0.5 s") },
                            { value: 2000, text: qsTr("2 s") },
                            { value: 10000, text: qsTr("10 s") }
                        ]
                        current: Desk.delay
                        onPicked: value => Desk.delay = value
                    }
                }

                DeskGroup {
                    id: failures

                    property var arranged: ({})

                    function forget(): void {
                        arranged = {};
                    }

                    width: parent.width
                    heading: qsTr("Requests end with")

                    Repeater {
                        model: [
                            { functions: "TAPI_CS_*", text: qsTr("Call services") },
                            { functions: "TAPI_VOICE_*", text: qsTr("Calls") },
                            { functions: "TAPI_SECURITY_*", text: qsTr("SIM") },
                            { functions: "TAPI_NETWORK_*", text: qsTr("Networks") }
                        ]

                        DeskChoice {
                            required property var modelData

                            label: modelData.text + " (" + modelData.functions + ")"
                            choices: [
                                { value: 0, text: qsTr("their own") },
                                { value: 0x8000, text: qsTr("refused") },
                                { value: 0x9001, text: qsTr("timeout") },
                                { value: 0x9000, text: qsTr("lacking") }
                            ]
                            current: failures.arranged[modelData.functions] ?? 0
                            onPicked: value => {
                                Desk.fail(modelData.functions, value);
                                const arranged = Object.assign({}, failures.arranged);
                                arranged[modelData.functions] = value;
                                failures.arranged = arranged;
                            }
                        }
                    }
                }

                DeskGroup {
                    width: parent.width
                    heading: qsTr("Disk and SIM")

                    DeskSwitch {
                        text: qsTr("The disk is full")
                        on: Desk.diskFull
                        onToggled: on => Desk.diskFull = on
                    }

                    DeskSwitch {
                        text: qsTr("The SIM may not be asked")
                        on: !Desk.simReady
                        onToggled: on => Desk.simReady = !on
                    }
                }

                DeskGroup {
                    width: parent.width
                    heading: qsTr("The product lacks")

                    Repeater {
                        model: [
                            { lacks: "forwarding", text: qsTr("call forwarding") },
                            { lacks: "caller-id", text: qsTr("caller ID") },
                            { lacks: "waiting", text: qsTr("call waiting") },
                            { lacks: "costs", text: qsTr("call costs") },
                            { lacks: "lines", text: qsTr("two lines") },
                            { lacks: "networks", text: qsTr("network selection") },
                            { lacks: "preferred", text: qsTr("preferred networks") },
                            { lacks: "hyphenation", text: qsTr("hyphenation") }
                        ]

                        DeskSwitch {
                            required property var modelData

                            text: modelData.text
                            on: Desk.missing.includes(modelData.lacks)
                            onToggled: on => {
                                Desk.setMissing(modelData.lacks, on);
                                window.productChanged();
                            }
                        }
                    }
                }
            }

            Column {
                width: groups.cell
                spacing: Paper.unit

                DeskGroup {
                    width: parent.width
                    heading: qsTr("The phone is")

                    Repeater {
                        model: Desk.facts

                        Row {
                            id: fact

                            required property var modelData

                            width: parent.width
                            spacing: Paper.unit

                            DeskText {
                                id: subject

                                width: Math.max(120, parent.width / 3)
                                words: fact.modelData.subject
                                color: Paper.quiet
                            }

                            DeskText {
                                width: parent.width - subject.width - Paper.unit
                                words: fact.modelData.text
                            }
                        }
                    }
                }

                DeskGroup {
                    width: parent.width
                    heading: qsTr("The platform was asked")

                    ListView {
                        width: parent.width
                        height: 360
                        clip: true
                        spacing: 4
                        model: Desk.journal
                        activeFocusOnTab: true
                        Accessible.role: Accessible.List
                        Accessible.name: qsTr("The platform was asked")

                        delegate: Column {
                            id: entry

                            required property string call
                            required property string answer

                            width: ListView.view.width

                            DeskText {
                                width: parent.width
                                words: entry.call
                                wrapMode: Text.WrapAnywhere
                            }

                            DeskText {
                                width: parent.width
                                visible: text !== ""
                                words: "→ " + entry.answer
                                color: Paper.quiet
                                wrapMode: Text.WrapAnywhere
                            }
                        }
                    }
                }
            }
        }
    }
}
