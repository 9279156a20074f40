// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/mobilenotchutils.h"

#include <QTimer>

#include <chrono>

namespace orrin {

MobileNotchUtils::MobileNotchUtils(QObject *parent)
    : QObject(parent)
{
}

MobileNotchUtils::~MobileNotchUtils() = default;

void MobileNotchUtils::singleShot(int msec, const QJSValue &callback)
{
    // Timers refuse a negative interval and never fire.
    if (msec < 0)
        return;
    // This overload picks the type of timer by the interval.
    QTimer::singleShot(std::chrono::milliseconds(msec), this, [callback] {
        if (callback.isCallable())
            callback.call();
    });
}

double MobileNotchUtils::safeAreaBottomInset()
{
    return 0.0;
}

double MobileNotchUtils::safeAreaTopInset()
{
    return 0.0;
}

double MobileNotchUtils::safeAreaRightInset()
{
    return 0.0;
}

double MobileNotchUtils::safeAreaLeftInset()
{
    return 0.0;
}

} // namespace orrin
