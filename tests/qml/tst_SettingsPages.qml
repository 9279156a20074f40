// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Controls
import QtTest
import orrinsdkqml
import "find.js" as Find

Item {
    id: root

    width: 800
    height: 600

    TestCase {
        name: "SettingsPages"
        when: windowShown

        property var page

        function init() {
            failOnWarning(/.?/);
        }
        function open(name: string) {
            const component = Qt.createComponent("orrinsdkqml", name);
            compare(component.status, Component.Ready, component.errorString());
            page = createTemporaryObject(component, root);
            waitForRendering(root);
        }
        function grid(): var {
            return Find.first(page, "QQuickGrid");
        }
        // The control that stands before a text.
        function before(text: string): var {
            const items = Array.from(grid().children);
            return items[items.findIndex(each => each.text === text && each.textFormat !== undefined) - 1];
        }
        function labels(): var {
            return Array.from(grid().children).filter(each => each.textFormat !== undefined);
        }
        function texts(): var {
            return labels().map(each => each.text);
        }
        function test_checkBox_startsFromTheSetting_andWritesToTheFile_data() {
            const rows = [
                ["GeneralSettingsPage", "textOverlay", "Overlay info on snapshot"],
                ["GeneralSettingsPage", "pinchPointsVisible", "Display square on pinch points"],
                ["SubtitlesSettingsPage", "subtitlesServer", "Server name"],
                ["SubtitlesSettingsPage", "subtitlesCamera", "Camera name"],
                ["SubtitlesSettingsPage", "subtitlesTime", "Time"],
                ["SubtitlesSettingsPage", "subtitlesPlayback", "Playback"],
                ["SubtitlesSettingsPage", "subtitlesDebug", "Details"],
                ["LogSettingsPage", "logError", "Error"],
                ["LogSettingsPage", "logWarning", "Warning"],
                ["LogSettingsPage", "logStartup", "Startup"],
                ["LogSettingsPage", "logInfo", "Info"],
                ["LogSettingsPage", "logDebug", "Debug"],
                ["LogSettingsPage", "logTrace", "Trace"],
                ["LogSettingsPage", "logTiming", "Timing"],
                ["LogSettingsPage", "logGraphics", "Graphics"],
                ["SecuritySettingsPage", "publicKeyCheck", "Check server's public key on login"]
            ];
            return rows.map(([page, key, text]) => ({ tag: key, page, key, text }));
        }
        function test_checkBox_startsFromTheSetting_andWritesToTheFile(data: var) {
            const start = settings[data.key];
            for (const value of [!start, start]) {
                open(data.page);
                const box = before(data.text);
                compare(box.checked, settings[data.key]);
                compare(box.width, settings.controlHeightHints);
                mouseClick(box);
                compare(settings[data.key], value);
                compare(String(site.stored(data.key)), String(value));
            }
        }
        function test_spinBox_startsFromTheSetting_andWritesToTheFile_data() {
            return [
                { tag: "fontPixelSize", page: "GeneralSettingsPage", text: "Font size (%)", from: 25, to: 300, step: 5, stored: true },
                { tag: "controlHeight", page: "GeneralSettingsPage", text: "Control height (%)", from: 25, to: 300, step: 5, stored: true },
                { tag: "layoutDimLowStream", page: "LayoutSettingsPage", text: "Low resolution if grid's dimension is greater than this.",
                  from: 1, to: 4, step: 1, stored: false }
            ];
        }
        function test_spinBox_startsFromTheSetting_andWritesToTheFile(data: var) {
            const start = settings[data.tag];
            open(data.page);
            const box = before(data.text);
            compare([box.from, box.to, box.stepSize, box.value], [data.from, data.to, data.step, start]);
            mouseClick(box.up.indicator);
            compare(settings[data.tag], start + data.step);
            box.forceActiveFocus();
            keyClick(Qt.Key_Up);
            compare(settings[data.tag], start + 2 * data.step);
            // That one waits for the next write of the whole file.
            if (!data.stored)
                settings.save();
            compare(Number(site.stored(data.tag)), start + 2 * data.step);
            keyClick(Qt.Key_Down);
            keyClick(Qt.Key_Down);
            compare(settings[data.tag], start);
        }
        function test_fontSize_withAFraction_isLeftAlone() {
            settings.fontPixelSize = 112.5;
            open("GeneralSettingsPage");
            compare(before("Font size (%)").value, 112);
            compare(settings.fontPixelSize, 112.5);
            settings.fontPixelSize = 100;
        }
        function test_general_hasOneColumn_whereItIsNarrow() {
            open("GeneralSettingsPage");
            const last = texts().pop();
            compare(last, "Display square on pinch points");
            const label = labels().pop();
            compare(grid().minimalWidth, Math.trunc(label.width + before("Font size (%)").width + 40 + 10));
            compare(grid().columns, 2);
            root.width = grid().minimalWidth - 1;
            compare(grid().columns, 1);
            root.width = grid().minimalWidth;
            compare(grid().columns, 2);
            root.width = 800;
            compare(page.boundsBehavior, Flickable.StopAtBounds);
            compare(page.contentHeight, grid().height);
            verify(page.clip);
        }
        function test_general_scrolls_whereItIsLow() {
            open("GeneralSettingsPage");
            root.height = 60;
            verify(page.contentHeight > page.height);
            page.contentY = page.contentHeight - page.height;
            page.returnToBounds();
            compare(page.contentY, page.contentHeight - page.height);
            root.height = 600;
        }
        function test_fontSizeLabel_asksForAFile_andAnyAnswerQuits() {
            open("GeneralSettingsPage");
            const label = labels()[0];
            compare(label.text, "Font size (%)");
            const dialog = Array.from(label.data).find(each => each.currentFolder !== undefined);
            compare(dialog.title, "Please choose a file");
            compare(dialog.currentFolder, "file://" + site.home());
            verify(!dialog.visible);
            const quits = site.quits();
            mouseClick(label);
            verify(dialog.visible);
            dialog.reject();
            compare(site.quits(), quits + 1);
            dialog.accepted();
            compare(site.quits(), quits + 2);
        }
        function test_layout_isReset_byThePress() {
            settings.layoutRows = 3;
            settings.layoutColumns = 4;
            open("LayoutSettingsPage");
            const button = before("Restore the grid dimensions to 1x1.");
            compare(button.text, "Reset Layout");
            mousePress(button);
            compare([settings.layoutRows, settings.layoutColumns], [1, 1]);
            compare(Number(site.stored("layoutRows")), 1);
            mouseRelease(button);
        }
        function test_grids_standAsTold_data() {
            return [
                { tag: "LayoutSettingsPage", columns: 2, rowSpacing: 30, columnSpacing: 20, x: 20 },
                { tag: "LogSettingsPage", columns: 4, rowSpacing: 30, columnSpacing: 20, x: 20 },
                { tag: "SecuritySettingsPage", columns: 2, rowSpacing: 30, columnSpacing: 20, x: 20 },
                { tag: "SubtitlesSettingsPage", columns: 2, rowSpacing: 2 * settings.controlMarginsHints,
                  columnSpacing: settings.controlMarginsHints, x: 0 },
                { tag: "GeneralSettingsPage", columns: 2, rowSpacing: 10, columnSpacing: 10, x: 0 }
            ];
        }
        function test_grids_standAsTold(data: var) {
            open(data.tag);
            compare([grid().columns, grid().rowSpacing, grid().columnSpacing, grid().x],
                    [data.columns, data.rowSpacing, data.columnSpacing, data.x]);
            compare([page.width, page.height], [800, 600]);
            for (const text of Array.from(grid().children).filter(each => each.textFormat !== undefined)) {
                compare(text.color, settings.textColor);
                compare(text.font.pixelSize, Math.round(settings.fontPixelSizeHints));
            }
        }
        function test_texts_stayOnANarrowPage_data() {
            return [ { tag: "LayoutSettingsPage" }, { tag: "SecuritySettingsPage" }, { tag: "SubtitlesSettingsPage" }, { tag: "LogSettingsPage" } ];
        }
        function test_texts_stayOnANarrowPage(data: var) {
            root.width = 390;
            open(data.tag);
            for (const child of grid().children) {
                if (child.width > 0)
                    verify(child.mapToItem(root, child.width, 0).x <= 390, child.text + " ends at " + child.mapToItem(root, child.width, 0).x);
            }
            root.width = 800;
        }
        function test_info_listsTheSettings_inGroups() {
            open("InfoSettingsPage");
            verify(page.readOnly);
            verify(!page.selectByMouse);
            compare(page.font.pixelSize, Math.round(settings.fontPixelSizeHints));
            const groups = page.text.split("\n\n").map(group => group.split("\n").filter(line => line !== ""));
            compare(groups.filter(group => group.length > 0).map(group => group.length), [1, 11, 3, 6, 3, 4, 3, 1]);
            compare(groups[0], ["logDir: /var/log/somewhere"]);
            compare(groups[1][5], "orientationUpdateMask: undefined");
            compare(groups[1][10], "screenName: " + settings.screenName);
            compare(groups[2][0], "backgroundColor: " + settings.backgroundColor);
            compare(groups[3][3], "fontPixelSize: 100");
            compare(groups[7], ["animationDuration: 500"]);
            const all = groups.reduce((sum, group) => sum.concat(group), []);
            compare(all.filter(line => line.endsWith(": undefined")).length, 1);
        }
    }
}
