// Video calls: how they begin, and what the other side sees.
import QtQuick
import Kvq.CallSetup
import Kvq.Settings
import Kvq.Settings.Controls

PhonePage {
    id: page

    readonly property bool standard: video.cameraOffImage.value !== ""
        && video.cameraOffImage.value === video.defaultImage.value
    readonly property string pictureName: {
        if (video.cameraOffImage.value === "")
            return qsTr("No picture");
        return standard ? qsTr("The phone’s picture") : video.cameraOffImage.value.split("/").pop();
    }

    VideoCallSettings {
        id: video
    }

    Section {
        heading: qsTr("Starting a video call")

        SettingSwitch {
            setting: video.cameraMuted
            label: qsTr("Start with the camera off")
        }

        SettingSwitch {
            setting: video.fallBackToVoice
            label: qsTr("Fall back to a voice call")
            description: qsTr("When the video call cannot be made")
        }

        SettingSwitch {
            setting: video.capabilityAlert
            label: qsTr("Tell when video is possible")
            description: qsTr("During a voice call")
        }
    }

    Section {
        heading: qsTr("In place of the camera")
        note: qsTr("What the other side sees while your camera is off.")

        ChoiceRow {
            label: qsTr("Picture")
            known: video.cameraOffImage.known
            stale: video.cameraOffImage.stale
            busy: video.cameraOffImage.busy
            failure: Words.of(video.cameraOffImage)
            value: page.pictureName
            current: video.cameraOffImage.value === "" ? "none" : page.standard ? "standard" : "own"
            choices: [
                { value: "standard", text: qsTr("The phone’s picture") },
                { value: "none", text: qsTr("No picture") },
                { value: "own", text: qsTr("Another file …") }
            ]
            onPicked: value => {
                if (value === "own")
                    sheet.start();
                else if (value === "none")
                    video.useNoImage();
                else
                    video.useDefaultImage();
            }
            onRetry: video.cameraOffImage.retry()
        }
    }

    Sheet {
        id: sheet

        function start(): void {
            path.text = video.cameraOffImage.value;
            ask();
            path.input.forceActiveFocus();
        }

        title: qsTr("Picture file")
        action: qsTr("Save")
        ready: path.text !== ""
        onAccepted: {
            video.cameraOffImage.value = path.text;
            close();
        }

        Field {
            id: path

            label: qsTr("Path of the picture")
            onAccepted: sheet.accept()
        }
    }
}
