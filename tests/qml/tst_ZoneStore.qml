// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtTest
import OrrinViewer.Host

Item {
    id: root

    Component {
        id: plain

        ZoneStore {}
    }
    SignalSpy {
        id: changed

        signalName: "zonesChanged"
    }
    TestCase {
        name: "ZoneStore"

        readonly property var gate: ({ name: "Gate", points: [[0.1, 0.1], [0.9, 0.1], [0.5, 0.8]] })
        property int number: 0
        property string file

        function init() {
            failOnWarning(/.?/);
            file = site.home() + "/zones" + (number++) + ".json";
        }
        function make(): var {
            const store = createTemporaryObject(plain, root, { file });
            changed.target = store;
            changed.clear();
            return store;
        }
        function test_zones_areThereAgain_inTheNextSession() {
            const store = make();
            compare(store.zones("a"), []);
            verify(store.setZones("a", [gate]));
            compare(changed.count, 1);
            compare(changed.signalArguments[0][0], "a");
            compare(store.errorText, "");
            const next = make();
            compare(next.zones("a").length, 1);
            compare(next.zones("a")[0].name, "Gate");
            compare(next.zones("a")[0].points, gate.points);
            compare(next.zones("b"), []);
        }
        function test_sameZones_areNotTold() {
            const store = make();
            store.setZones("a", [gate]);
            changed.clear();
            verify(store.setZones("a", [gate]));
            compare(changed.count, 0);
        }
        function test_noZones_forgetTheCamera() {
            const store = make();
            store.setZones("a", [gate]);
            store.setZones("b", [gate]);
            verify(store.setZones("a", []));
            verify(!site.readFile(file).includes('"a"'));
            verify(site.readFile(file).includes('"b"'));
        }
        function test_malformedZones_areLeftOut_data() {
            return [
                { tag: "two points", zones: [{ name: "x", points: [[0, 0], [1, 1]] }] },
                { tag: "no points", zones: [{ name: "x" }] },
                { tag: "texts for numbers", zones: [{ points: [["a", "b"], ["c", "d"], ["e", "f"]] }] },
                { tag: "triples", zones: [{ points: [[0, 0, 0], [1, 1, 1], [0, 1, 0]] }] },
                { tag: "no objects", zones: [1, "x", null, []] }
            ];
        }
        function test_malformedZones_areLeftOut(data: var) {
            const store = make();
            verify(store.setZones("a", data.zones));
            compare(store.zones("a"), []);
        }
        function test_points_areKeptInsideThePicture() {
            const store = make();
            store.setZones("a", [{ name: "n".repeat(1000), points: [[-1, 0.5], [2, 0.5], [0.5, 9]] }]);
            compare(store.zones("a")[0].points, [[0, 0.5], [1, 0.5], [0.5, 1]]);
            compare(store.zones("a")[0].name.length, 200);
        }
        function test_tooMuch_isCutOff() {
            const store = make();
            const points = Array.from({ length: 5000 }, (_, i) => [i / 5000, 0.5]);
            store.setZones("a", Array.from({ length: 100 }, () => ({ name: "", points })));
            compare(store.zones("a").length, 32);
            compare(store.zones("a")[0].points.length, 1000);
        }
        function test_damagedFile_countsAsEmpty_andIsTold_data() {
            return [ { tag: "text", text: "no json" }, { tag: "array", text: "[1,2]" }, { tag: "other version", text: '{"version":9}' },
                     { tag: "cut off", text: '{"version":1,"cameras":{"a":[' } ];
        }
        function test_damagedFile_countsAsEmpty_andIsTold(data: var) {
            verify(site.writeFile(file, data.text));
            const store = make();
            compare(store.zones("a"), []);
            verify(store.errorText.includes(file), store.errorText);
            verify(store.setZones("a", [gate]));
            compare(store.errorText, "");
        }
        function test_damagedEntries_areLeftOut() {
            verify(site.writeFile(file, '{"version":1,"cameras":{"a":5,"b":[{"points":[[0,0],[1,0],["x",1],[0,1]]},7],"":[]}}'));
            const store = make();
            compare(store.zones("a"), []);
            compare(store.zones("b").length, 1);
            compare(store.zones("b")[0].points.length, 3);
            compare(store.errorText, "");
        }
        function test_unwritableFile_keepsWhatWasThere() {
            file = "/proc/nowhere/zones.json";
            const store = make();
            verify(!store.setZones("a", [gate]));
            verify(store.errorText !== "");
            compare(store.zones("a"), []);
            compare(changed.count, 0);
        }
        function test_camera_needsAName() {
            verify(!make().setZones("", [gate]));
        }
    }
}
