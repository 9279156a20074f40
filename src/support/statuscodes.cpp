// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/statuscodes.h"

namespace orrin::statuscodes {

double systemPlace(int code)
{
    switch (code) {
    case 1:
        return 1.5;
    case 2:
        return 2.5;
    case 3:
        return 3.5;
    case 6:
        return 4.5;
    case 7:
        return 5.5;
    case 8:
        return 6.5;
    case 9:
        return 7.5;
    default:
        return 8.5;
    }
}

double diskPlace(QChar letter)
{
    switch (letter.unicode()) {
    case u'G':
        return 0.5;
    case u'L':
        return 1.5;
    case u'R':
        return 2.5;
    case u'M':
        return 3.5;
    case u'X':
        return 5.5;
    case u'E':
        return 6.5;
    case u'D':
        return 7.5;
    case u'F':
        return 8.5;
    case u'N':
        return 9.5;
    default:
        return 10.5;
    }
}

double cameraPlace(int code)
{
    switch (code) {
    case 0:
        return 0.5;
    case 1:
        return 1.5;
    case 4:
        return 2.5;
    case 20:
        return 3.5;
    case 22:
        return 5.5;
    default:
        // From here on codes and places run side by side.
        return code >= 27 && code <= 37 ? code - 27 + 6.5 : 17.5;
    }
}

} // namespace orrin::statuscodes
