// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/rtsp/message.h"

namespace orrin::rtsp {

QByteArray Message::header(QByteArrayView name) const
{
    for (const Header &header : headers) {
        if (header.first == name)
            return header.second;
    }
    return {};
}

QList<QByteArray> Message::headersNamed(QByteArrayView name) const
{
    QList<QByteArray> values;
    for (const Header &header : headers) {
        if (header.first == name)
            values.append(header.second);
    }
    return values;
}

int Message::cseq() const
{
    bool ok = false;
    const int value = header("cseq").toInt(&ok);
    return ok ? value : -1;
}

} // namespace orrin::rtsp
