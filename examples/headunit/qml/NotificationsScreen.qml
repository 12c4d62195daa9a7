import QtQuick 2.15
import QtQuick.Controls 2.15
import hmi.shared 1.0
import "controls"

/*! What the notification service holds at present. */
Screen {
    id: screen

    function show(notificationId) {
        for (let row = 0; row < notifications.count; ++row) {
            if (notifications.get(row).notificationId === notificationId)
                view.currentIndex = row
        }
    }

    objectName: "notificationsScreen"
    title: qsTr("Notifications")

    NotificationListModel {
        id: notifications

        onShowRequested: notificationId => screen.show(notificationId)
    }

    Paragraph {
        objectName: "notificationsHint"
        anchors.centerIn: parent
        text: notifications.serviceAvailable ? qsTr("There are no notifications")
                                             : qsTr("The notification service is away")
        color: notifications.serviceAvailable ? Look.faintText : Look.warning
        visible: notifications.count === 0
    }

    ListView {
        id: view

        objectName: "notifications"
        anchors.fill: parent
        spacing: Look.spacing / 2
        clip: true
        currentIndex: -1
        boundsBehavior: Flickable.StopAtBounds
        ScrollBar.vertical: ScrollBar {}
        model: notifications
        delegate: NotificationRow {
            width: ListView.view.width
            isShown: ListView.isCurrentItem
            onDismissed: notifications.dismiss(model.notificationId)
        }

        Accessible.role: Accessible.List
        Accessible.name: screen.title
    }
}
