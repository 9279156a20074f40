// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "video/qmlabstractframereceiver.h"

#include <QList>
#include <QString>

#include <memory>

namespace orrin {

class QmlRenderingPrivate
{
public:
    std::unique_ptr<QmlAbstractFrameReceiver> receiver;
    QList<QString> errors;
    bool busyWheelActive = false;
};

} // namespace orrin
