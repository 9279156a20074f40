// SPDX-License-Identifier: GPL-3.0-or-later
.pragma library

// The row with details that the lists of servers, channels and events declare alike. \a test is the TestCase that asks; its
// property `look` holds the settings.

function strip(row) {
    return row.children[0];
}

function label(row) {
    return strip(row).children[0];
}

function icon(row) {
    return strip(row).children[1];
}

function details(row) {
    return row.children[1];
}

// A click opens the row to \a factor control heights of details, and another one closes it.
function checkOpening(test, view, row, factor) {
    const closed = row.height;
    const open = details(row);
    test.compare(row.width, view.width);
    test.compare(strip(row).height, test.look.controlHeightHints + 2 * test.look.controlMarginsHints);
    test.compare(closed, strip(row).height + test.look.controlMarginsHints);
    test.verify(!open.visible);
    test.compare(open.height, 0);
    test.mouseClick(row, 20, 10);
    test.verify(open.visible);
    test.compare(open.height, factor * test.look.controlHeightHints);
    test.compare(row.height, closed + open.height);
    test.compare(open.y, strip(row).height);
    test.compare(open.x, test.look.controlMarginsHints);
    test.compare(open.width, view.width - 2 * test.look.controlMarginsHints);
    test.compare(open.color, "#11ffffff");
    test.compare(open.border.width, 1);
    test.compare(open.border.color, test.look.textActiveColor);
    test.compare(open.radius, test.look.controlRadiusHints);
    test.compare(open.children[0].color, test.look.textHighlightColor);
    test.compare(open.children[0].font.pixelSize, Math.trunc(0.9 * test.look.fontPixelSizeHints));
    // The text stands inside the frame.
    test.verify(open.children[0].implicitHeight <= open.height, open.children[0].implicitHeight + " of " + open.height);
    test.mouseClick(row, 20, 10);
    test.verify(!open.visible);
    test.compare(row.height, closed);
}

function checkStates(test, row) {
    test.compare([strip(row).state, label(row).state, icon(row).state], ["normal", "normal", "normal"]);
    test.compare(strip(row).activeColor, test.look.highlightColor);
    test.compare(icon(row).source, "details");
    test.compare(icon(row).width, test.look.controlHeightHints);
    test.mouseMove(row, 30, 10);
    test.compare([strip(row).state, label(row).state, icon(row).state], ["highlight", "highlight", "highlight"]);
    test.mousePress(row, 30, 10);
    test.compare([strip(row).state, label(row).state, icon(row).state], ["active", "active", "active"]);
    test.compare(strip(row).color, test.look.highlightColor);
    test.mouseRelease(row, 30, 10);
    test.compare(strip(row).state, "highlight");
}

function checkText(test, row, text) {
    test.verify(label(row).text.includes(text));
    test.compare(label(row).textFormat, 0); // plain
    test.verify(label(row).x + label(row).width <= icon(row).x);
    test.mouseClick(row, 20, 10);
    test.verify(details(row).children[0].text.includes(text));
    test.compare(details(row).children[0].textFormat, 0);
    test.verify(details(row).clip);
    test.mouseClick(row, 20, 10);
}

// Walks through a long list: few delegates, and each shows its own row, closed.
function checkReuse(test, view, count, textOf) {
    test.compare(view.count, count);
    const few = () => view.contentItem.children.length < 3 * view.height / strip(view.itemAtIndex(view.indexAt(10, view.contentY + 5))).height;
    // The current row lives on out of sight, any other comes back closed.
    test.mouseClick(view.itemAtIndex(1), 20, 10);
    test.verify(details(view.itemAtIndex(1)).visible);
    for (const index of [count / 2, count - 1, 17, count - 40, 1]) {
        view.positionViewAtIndex(index, 4 /* ListView.Contain */);
        view.forceLayout();
        const row = view.itemAtIndex(index);
        test.verify(row !== null);
        test.verify(label(row).text.includes(textOf(index)), label(row).text);
        test.verify(!details(row).visible, "row " + index);
        test.verify(few(), view.contentItem.children.length + " delegates");
    }
    // In small steps, as a wheel does it.
    for (let step = 0; step < 50; ++step) {
        view.contentY += 30;
        view.forceLayout();
        const index = view.indexAt(10, view.contentY + 20);
        test.verify(index < 0 || label(view.itemAtIndex(index)).text.includes(textOf(index)));
    }
    test.verify(few());
}
