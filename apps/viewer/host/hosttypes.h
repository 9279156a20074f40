// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/*! Adds the types to the module `orrinsdkqml` that its components take from the host: `SortedEnabledCameraModel` for ChannelView
    and `OGridLayout` for LayoutArea. Before the first import of the module, which takes no more types after it. */
void registerHostTypes();
