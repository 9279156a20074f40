// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>

#include <QByteArray>
#include <QString>

namespace orrin {

/*! The trusted public keys of servers, one a target, kept per user beside the settings. Main thread. */
class ORRINSDK_CORE_EXPORT PublicKeyChecker
{
public:
    /*! Records \a derKey as the trusted one for \a targetAndPort, in place of any other, and saves it. */
    static void setDerKey(const QString &targetAndPort, const QByteArray &derKey);
    /*! The trusted key, or an empty array when the target is not known. */
    static QByteArray derKey(const QString &targetAndPort);
    /*! Forgets the target. */
    static void removeDerKey(const QString &targetAndPort);
};

} // namespace orrin
