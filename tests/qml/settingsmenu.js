// SPDX-License-Identifier: GPL-3.0-or-later
.pragma library
.import "find.js" as Find

// The parts of a SettingsPage.
function stack(page) {
    return Find.first(page, "StackView");
}

function menu(page) {
    return stack(page).get(0);
}

function row(page, index) {
    menu(page).forceLayout();
    return menu(page).itemAtIndex(index);
}

function label(row) {
    return Find.first(row, "ActiveLabel_");
}

function rows(page) {
    return Array.from({ length: menu(page).count }, (_, i) => label(row(page, i)).text);
}

// The title stands in the first bar.
function title(page) {
    return Find.first(page.children.find(each => each.y === 0 && each.width === page.width && each.height < page.height), "QQuickText").text;
}

function button(page, source) {
    return Find.all(page, "ToolBarButton_").find(each => each.iconSource === source);
}
