// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtTest
import orrinsdkqml
import "find.js" as Find

Item {
    id: root

    width: 400
    height: 300

    Component {
        id: plain

        TimePicker {
            width: 5 * settings.controlHeightHints
        }
    }
    SignalSpy {
        id: overflow

        signalName: "hourOverflow"
    }
    SignalSpy {
        id: underflow

        signalName: "hourUnderflow"
    }
    TestCase {
        name: "TimePicker"
        when: windowShown

        property var item
        // The boxes of the hours, minutes and seconds.
        property var boxes

        function init() {
            failOnWarning(/.?/);
            make("");
        }
        function make(time: string) {
            item = createTemporaryObject(plain, root);
            boxes = Find.all(item, "SpinBox");
            compare(boxes.length, 3);
            if (time !== "")
                set(time);
            overflow.target = item;
            underflow.target = item;
            overflow.clear();
            underflow.clear();
        }
        function set(time: string) {
            [item.hour, item.minute, item.second] = time.split(":").map(Number);
        }
        function shown(): string {
            return boxes.map(box => Find.first(box, "QQuickTextInput").text).join(":");
        }
        function plus(box: var) {
            mouseClick(box, box.width - 5, box.height / 2);
        }
        function minus(box: var) {
            mouseClick(box, 5, box.height / 2);
        }
        function test_start_isTheTimeOfDay_withoutSeconds() {
            const before = timeTools.timeNow();
            make("");
            const after = timeTools.timeNow();
            const made = item.hour * 60 + item.minute;
            const minutes = time => Number(Qt.formatTime(time, "h")) * 60 + Number(Qt.formatTime(time, "m"));
            verify(made === minutes(before) || made === minutes(after));
            compare(item.second, 0);
        }
        function test_look() {
            compare(item.color, settings.backgroundColor);
            compare(item.height, 3 * settings.controlHeightHints + 2 * settings.controlMarginsHints);
            const labels = Find.all(item, "").filter(each => ["Hour", "Minute", "Second"].includes(each.text));
            compare(labels.map(each => each.text), ["Hour", "Minute", "Second"]);
            for (let row = 0; row < 3; ++row) {
                const top = row * (settings.controlHeightHints + settings.controlMarginsHints);
                compare(labels[row].x, 0);
                compare(labels[row].y, top);
                compare(labels[row].height, settings.controlHeightHints);
                compare(labels[row].color, "#ffffff");
                compare(boxes[row].x + boxes[row].width, item.width);
                compare(boxes[row].y, top);
                compare(boxes[row].height, settings.controlHeightHints);
                verify(labels[row].width <= boxes[row].x, labels[row].text);
                compare(boxes[row].minimumValue, 0);
                compare(boxes[row].maximumValue, row === 0 ? 23 : 59);
                verify(boxes[row].circular);
            }
        }
        function test_valuesBelowTen_areShownWithAZero_andStayNumbers() {
            set("7:0:9");
            compare(shown(), "07:00:09");
            compare(item.hour, 7);
            compare(typeof item.second, "number");
            set("10:59:12");
            compare(shown(), "10:59:12");
            compare(boxes[0].prefix, "");
        }
        function test_step_byMouse_data() {
            return [
                { tag: "second", from: "5:10:20", box: 2, up: true, to: "05:10:21", over: 0, under: 0 },
                { tag: "second carries", from: "5:10:59", box: 2, up: true, to: "05:11:00", over: 0, under: 0 },
                { tag: "minute carries", from: "5:59:7", box: 1, up: true, to: "06:00:07", over: 0, under: 0 },
                { tag: "hour leaves the day", from: "23:10:7", box: 0, up: true, to: "00:10:07", over: 1, under: 0 },
                { tag: "all carry", from: "23:59:59", box: 2, up: true, to: "00:00:00", over: 1, under: 0 },
                { tag: "second back", from: "5:10:0", box: 2, up: false, to: "05:09:59", over: 0, under: 0 },
                { tag: "minute back", from: "5:0:0", box: 1, up: false, to: "04:59:00", over: 0, under: 0 },
                { tag: "hour enters the day before", from: "0:0:0", box: 0, up: false, to: "23:00:00", over: 0, under: 1 },
                { tag: "all carry back", from: "0:0:0", box: 2, up: false, to: "23:59:59", over: 0, under: 1 }
            ];
        }
        function test_step_byMouse(data: var) {
            set(data.from);
            (data.up ? plus : minus)(boxes[data.box]);
            compare(shown(), data.to);
            compare(overflow.count, data.over);
            compare(underflow.count, data.under);
        }
        function test_step_byKeyboard() {
            set("23:59:58");
            mouseClick(boxes[2]);
            verify(boxes[2].activeFocus);
            keyClick(Qt.Key_Up);
            compare(shown(), "23:59:59");
            keyClick(Qt.Key_Up);
            compare(shown(), "00:00:00");
            compare(overflow.count, 1);
            keyClick(Qt.Key_Down);
            compare(shown(), "23:59:59");
            compare(underflow.count, 1);
            keyClick(Qt.Key_Backtab);
            verify(boxes[1].activeFocus);
            keyClick(Qt.Key_Down);
            compare(shown(), "23:58:59");
        }
        function test_step_byWheel() {
            set("0:0:0");
            mouseWheel(boxes[1], 20, 10, 0, 120);
            compare(shown(), "00:01:00");
            mouseWheel(boxes[1], 20, 10, 0, -240);
            compare(shown(), "23:59:00");
            compare(underflow.count, 1);
            // Half a notch and the other half are one step.
            mouseWheel(boxes[2], 20, 10, 0, 60);
            compare(item.second, 0);
            mouseWheel(boxes[2], 20, 10, 0, 60);
            compare(item.second, 1);
        }
        function test_hold_stepsOn_untilTheRelease() {
            set("0:0:10");
            mousePress(boxes[2], boxes[2].width - 5, 10);
            compare(item.second, 11);
            tryVerify(() => item.second >= 14, 3000);
            mouseRelease(boxes[2], boxes[2].width - 5, 10);
            const stopped = item.second;
            wait(300);
            compare(item.second, stopped);
        }
        function test_typing_setsTheValue_withoutCarry() {
            set("1:2:3");
            mouseClick(boxes[1]);
            keyClick("4");
            keyClick("5");
            keyClick(Qt.Key_Return);
            compare(shown(), "01:45:03");
            keyClick(Qt.Key_Up);
            compare(shown(), "01:46:03");
        }
        function test_typing_takesNothingElse() {
            set("1:2:3");
            mouseClick(boxes[0]);
            for (const key of ["x", "-", "9", "9"])
                keyClick(key);
            keyClick(Qt.Key_Return);
            compare(shown(), "01:02:03");
            keyClick(Qt.Key_Delete);
            keyClick(Qt.Key_Tab);
            compare(shown(), "01:02:03");
        }
        function test_writtenValue_carries_whenItIsTheNext() {
            set("23:59:59");
            item.second = 60;
            compare(shown(), "00:00:00");
            compare(overflow.count, 1);
            item.minute = -1;
            compare(shown(), "23:59:00");
            compare(underflow.count, 1);
        }
        function test_writtenValue_stopsAtTheEnd_whenItIsFurtherOut() {
            set("1:2:3");
            item.hour = 2147483647;
            item.minute = -2147483648;
            item.second = 600;
            compare(shown(), "23:00:59");
            compare(overflow.count, 0);
            compare(underflow.count, 0);
        }
    }
}
