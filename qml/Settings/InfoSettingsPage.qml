// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Controls

// The host publishes `settings` and `logDir`, which qmllint cannot know.
// qmllint disable unqualified

/*! The settings in force, as text. The orientation mask is no published setting and shows as undefined. */
TextArea {
    id: root

    width: parent?.width ?? 0
    height: parent?.height ?? 0
    font.pixelSize: settings.fontPixelSizeHints
    readOnly: true
    selectByMouse: false
    textFormat: TextEdit.PlainText
    text: {
        const line = name => name + ": " + settings[name] + "\n";
        const groups = [
            ["desktopAvailableHeight", "desktopAvailableWidth", "screenHeight", "screenWidth", "orientation", "orientationUpdateMask", "primaryOrientation", "devicePixelRatio", "pixelDensity", "fullscreen", "screenName"],
            ["backgroundColor", "highlightColor", "activeColor"],
            ["textColor", "textHighlightColor", "textActiveColor", "fontPixelSize", "fontPixelSizeHints", "fontFamily"],
            ["iconColor", "iconHighlightColor", "iconActiveColor"],
            ["borderColor", "borderActiveColor", "borderWidthHints", "borderActiveWidthHints"],
            ["controlHeightHints", "controlMarginsHints", "controlRadiusHints"],
            ["animationDuration"]
        ];
        return "logDir: " + (typeof logDir === "undefined" ? "" : logDir) + "\n\n"
                + groups.map(names => names.map(line).join("")).join("\n") + "\n";
    }
}
