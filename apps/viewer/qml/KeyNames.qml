// SPDX-License-Identifier: GPL-3.0-or-later
pragma Singleton

import QtQuick

// What is written on the keys of the user's keyboard.
QtObject {
    id: root

    readonly property var names: ({
        "Alt": qsTr("Alt"),
        "Ctrl": qsTr("Ctrl"),
        "Shift": qsTr("Shift"),
        "Enter": qsTr("Enter"),
        "Space": qsTr("Space"),
        "Home": qsTr("Home"),
        "End": qsTr("End"),
        "Page up": qsTr("Page up"),
        "page down": qsTr("page down"),
        "arrows": qsTr("arrows")
    })

    // "Ctrl+T" in the user's words.
    function text(keys: string): string {
        return keys.replace(/Page up|page down|[A-Za-z][a-z]+/g, word => root.names[word] ?? word);
    }
}
