// SPDX-License-Identifier: GPL-3.0-or-later
#include "resources/qmlreceivers_p.h"

#include <QMetaMethod>
#include <QObject>

#include <private/qmetaobject_p.h>
#include <private/qqmldata_p.h>
#include <private/qqmlnotifier_p.h>

namespace orrin {

void dropReceivers(QObject *object, const QMetaMethod &signal)
{
    QObject::disconnect(object, signal, nullptr, QMetaMethod());
    const QQmlData *data = QQmlData::get(object);
    if (!data)
        return;
    // QML numbers the signals of a class without its other methods.
    const int index = QMetaObjectPrivate::signalIndex(signal);
    while (QQmlNotifierEndpoint *receiver = data->notify(index))
        receiver->disconnect();
}

} // namespace orrin
