// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick.Controls

/*! A bare check box, a square of the control height. */
CheckBox {
    antialiasing: false
    scale: 1
    // The host publishes `settings`, which qmllint cannot know.
    width: settings.controlHeightHints // qmllint disable unqualified
    height: settings.controlHeightHints // qmllint disable unqualified
}
