// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QChar>

namespace orrin::statuscodes {

/*! The place of a state on the axis of its chart, in the middle of the state's band; that above all others for a code or letter that is not known. */
double systemPlace(int code);
double diskPlace(QChar letter);
double cameraPlace(int code);

} // namespace orrin::statuscodes
