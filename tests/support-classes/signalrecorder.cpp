// SPDX-License-Identifier: GPL-3.0-or-later
#include "signalrecorder.h"

#include <QMetaMethod>

namespace orrin {

SignalRecorder::SignalRecorder(QObject *sender)
{
    const QMetaMethod slot = metaObject()->method(metaObject()->indexOfSlot("record()"));
    const QMetaObject *meta = sender->metaObject();
    for (int index = meta->methodOffset(); index < meta->methodCount(); ++index) {
        if (meta->method(index).methodType() == QMetaMethod::Signal)
            connect(sender, meta->method(index), this, slot);
    }
}

void SignalRecorder::record()
{
    m_names.append(QString::fromLatin1(sender()->metaObject()->method(senderSignalIndex()).name()));
}

} // namespace orrin
