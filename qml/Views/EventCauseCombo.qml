// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import orrinsdkqml

/*! A combo box of the causes of events. The list is empty until the host gives it a model of a server. */
Item {
    id: root

    property bool editable: false
    /*! The picked cause; a text that the list does not hold selects nothing. */
    property string eventCause
    property alias model: combo.model

    implicitWidth: combo.implicitWidth
    implicitHeight: combo.implicitHeight

    onEventCauseChanged: root.selectCurrentCause()

    /*! Selects the row of eventCause, once the component is complete. */
    function selectCurrentCause() {
        if (combo.loadComplete)
            combo.currentIndex = combo.find(root.eventCause);
    }

    O_ComboBox {
        id: combo

        property bool loadComplete: false

        anchors.fill: parent
        editable: root.editable
        textRole: "display"
        model: EventCauseModel {}
        onModelChanged: root.selectCurrentCause()
        // Causes arrive one by one; the wanted one may be among the later ones.
        onCountChanged: {
            if (root.eventCause !== "")
                root.selectCurrentCause();
        }
        onActivated: root.eventCause = combo.currentText
        Component.onCompleted: combo.loadComplete = true
    }
}
