// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as Templates
import orrinsdkqml

/*! A combo box of servers that tells the picked server's uid. The list is empty until the host gives it a model of a group. */
Item {
    id: root

    /*! Written by the user's choice alone; writing it selects nothing. */
    property string serverUidString
    property bool editable: false
    property alias model: combo.model

    implicitWidth: combo.implicitWidth
    implicitHeight: combo.implicitHeight

    O_ComboBox {
        id: combo

        anchors.fill: parent
        editable: root.editable
        textRole: "display"
        valueRole: "uid"
        model: ServerListModel {}
        onActivated: index => root.serverUidString = uids.textAt(index)
    }
    // Takes the uids as texts: a script's number has not the digits for 64 bits.
    Templates.ComboBox {
        id: uids

        visible: false
        model: combo.model
        textRole: combo.valueRole
        // Without one the box reads no rows.
        delegate: Item {}
    }
}
