// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>

#include <QByteArray>
#include <QByteArrayView>
#include <QList>

#include <utility>

namespace orrin::rtsp {

/*! A list of name=value pairs with a separator between, as in challenges, Transport, RTP-Info and fmtp lines. Values may stand in
    double quotes, with the separator and escaped characters inside. */
class ORRINSDK_CORE_EXPORT ParameterList
{
public:
    static constexpr int MaxParameters = 64;

    ParameterList(QByteArrayView text, char separator);

    /*! Names are compared without regard to case; \a name is in lower case. Empty when absent or without a value. */
    QByteArray value(QByteArrayView name) const;
    bool contains(QByteArrayView name) const;

private:
    QList<std::pair<QByteArray, QByteArray>> m_parameters;
};

} // namespace orrin::rtsp
