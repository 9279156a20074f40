// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/*! A modal screen in a host's `Loader`. It replaces itself by another page or goes away. */
Rectangle {
    id: root

    /*! The host's `Loader` that shows this page. */
    property var loader

    color: "#2b2e36"

    /*! Shows the component \a page in place of this page, which is destroyed by that. */
    function openPage(page: var) {
        root.loader.sourceComponent = page;
    }
    function closePage() {
        root.loader.sourceComponent = undefined;
    }

    // Keeps every button, the wheel and the hover from what lies beneath.
    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.AllButtons
        hoverEnabled: true
        onWheel: wheel => wheel.accepted = true
    }
}
