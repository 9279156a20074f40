// SPDX-License-Identifier: GPL-3.0-or-later
.pragma library

// All objects below \a item whose type name begins with \a type, in stacking order.
function all(item, type) {
    let found = [];
    for (const list of [item.resources, item.children]) {
        for (let i = 0; list && i < list.length; ++i) {
            if (String(list[i]).startsWith(type))
                found.push(list[i]);
            found = found.concat(all(list[i], type));
        }
    }
    return found;
}

function first(item, type) {
    return all(item, type)[0];
}
