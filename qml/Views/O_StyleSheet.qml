// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/*! Scale table of a login screen, for devices of differing size. */
QtObject {
    id: root

    property string deviceModel: ""
    property int deviceWidth: 0
    property int deviceHeight: 0
    property real factor: 1

    property int loginTextInputWidth: Math.trunc(290 * root.factor)
    property int inputFontPixelSize: Math.trunc(16 * root.factor)
    property int dropDownButtonWidth: Math.trunc(13 * root.factor)
    property int dropDownButtonHeight: Math.trunc(20 * root.factor)
    property int dropDownButtonRightMargin: Math.trunc(2 * root.factor)
    property int comboHeight: Math.trunc(48 * root.factor)
    property int comboBorder: Math.trunc(2 * root.factor)
    property int deleteBtnWidth: Math.trunc(9 * root.factor)
    property int deleteBtnHeight: Math.trunc(9 * root.factor)
    property int loginLayoutLRMargin: Math.trunc(80 * root.factor)

    /*! Scales for a device of \a w by \a h pixels; the model "Desktop" stands for 640 by 960. */
    function initWithDeviceModel(model: string, w: real, h: real) {
        root.deviceModel = model;
        if (model === "Desktop") {
            root.deviceWidth = 640;
            root.deviceHeight = 960;
            root.factor = 2;
        } else {
            root.deviceWidth = w;
            root.deviceHeight = h;
            root.factor = Math.min(w, h) / 320;
        }
    }
}
