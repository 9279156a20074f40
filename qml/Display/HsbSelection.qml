// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls

/*! A column of sliders that adjust a picture: zoom, 1.0 for none, and four effects from -1 to 1. */
Grid {
    id: root

    signal zoomChanged(real zoom)
    signal hueChanged(real hue)
    signal saturationChanged(real saturation)
    signal contrastChanged(real contrast)
    signal brightnessChanged(real brightness)

    columns: 2
    rows: 5

    // The host publishes `settings`, which qmllint cannot know.
    // qmllint disable unqualified
    component Caption: Text {
        width: root.width / 5
        height: settings.controlHeightHints
        font.pixelSize: settings.fontPixelSizeHints
        color: settings.textColor
    }
    component Adjustment: Slider {
        width: root.width * 4 / 5
        height: settings.controlHeightHints
        from: -1.0
        to: 1.0
    }
    // qmllint enable unqualified

    Caption { text: "Zoom" }
    Adjustment {
        from: 10
        to: 300
        value: 100
        onValueChanged: root.zoomChanged(0.01 * value)
    }
    Caption { text: "Hue" }
    Adjustment { onValueChanged: root.hueChanged(value) }
    Caption { text: "Saturation" }
    Adjustment { onValueChanged: root.saturationChanged(value) }
    Caption { text: "Contrast" }
    Adjustment { onValueChanged: root.contrastChanged(value) }
    Caption { text: "Brightness" }
    Adjustment { onValueChanged: root.brightnessChanged(value) }
}
