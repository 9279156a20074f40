// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

/*! Runs one measurement and prints its numbers on one line: KIND TILES SECONDS PORT CAMERAS. Status 1 when it could not. */
int measureTiles(const QStringList &arguments);

/*! Logs in to the demo server, as the main program does to list its cameras. */
bool logIn(quint16 port);
