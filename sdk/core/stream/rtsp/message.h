// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>

#include <QByteArray>
#include <QByteArrayView>
#include <QList>

#include <utility>

namespace orrin::rtsp {

/*! An RTSP request or response. A value. */
struct ORRINSDK_CORE_EXPORT Message
{
    /*! Names in lower case. */
    using Header = std::pair<QByteArray, QByteArray>;

    int status = 0; //!< of a response; 0 for a request
    QByteArray method; //!< of a request
    QByteArray uri;    //!< of a request
    QList<Header> headers;
    QByteArray body;

    bool isRequest() const { return status == 0; }
    /*! The first header of that name, given in lower case; empty without one. */
    QByteArray header(QByteArrayView name) const;
    QList<QByteArray> headersNamed(QByteArrayView name) const;
    /*! -1 without a readable one. */
    int cseq() const;
};

} // namespace orrin::rtsp
