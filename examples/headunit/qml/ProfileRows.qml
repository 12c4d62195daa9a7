import QtQuick 2.15
import hmi.shared 1.0
import "controls"

/*! The user's profile: choose one, add one, reset the one in use. Only where the data manager is enabled. */
Column {
    id: profiles

    /*! The profiles that can be chosen: without the built-in one, which new profiles start from. */
    property var names: []
    readonly property string suggestion: qsTr("Driver %1").arg(names.length + 1)

    function refresh() { names = DataManager.getUserProfilesList().value.slice(1) }

    function add(name) {
        if (DataManager.addNewUserProfile(name).error !== DataManagerReturnTypeQml.DM_OK) {
            Notice.show(qsTr("“%1” cannot be added; is there a profile of this name?").arg(name))
            return
        }
        refresh()
        DataManager.activeUserProfile = name
        entry.clear()
    }

    function reset() {
        Notice.show(SettingsManager.restoreSettingsDefaults() ? qsTr("The settings are as they were delivered")
                                                              : qsTr("Not every setting could be reset"))
    }

    Component.onCompleted: refresh()

    Connections {
        target: DataManager
        function onReadyChanged() { profiles.refresh() }
        function onActiveUserProfileChanged() { profiles.refresh() }
    }
    Connections {
        target: ActionManager
        function onActionTriggered(name, actionArguments) {
            if (name === "addProfile")
                profiles.add(actionArguments.name)
            else if (name === "resetProfile")
                profiles.reset()
        }
    }

    TextRow {
        width: parent.width
        caption: qsTr("Profile")

        Choice {
            objectName: "profile"
            name: qsTr("Profile")
            model: profiles.names.map(name => ({ text: name, value: name }))
            value: DataManager.activeUserProfile
            onChosen: DataManager.activeUserProfile = value
        }
    }
    TextRow {
        width: parent.width
        caption: qsTr("New profile")

        Entry {
            id: entry

            objectName: "newProfile"
            width: 200
            maximumLength: 24
            placeholderText: profiles.suggestion
            Accessible.name: qsTr("Name of the new profile")
            onAccepted: addButton.clicked()
        }
        PushButton {
            id: addButton

            objectName: "addProfile"
            text: qsTr("Add")
            restricted: true
            onClicked: ActionManager.invoke("addProfile", { name: entry.text.trim() || profiles.suggestion }, this)
        }
    }
    TextRow {
        width: parent.width
        caption: qsTr("All settings of this profile")

        PushButton {
            objectName: "resetProfile"
            text: qsTr("Reset")
            onClicked: ActionManager.invoke("resetProfile", {}, this)
        }
    }
}
