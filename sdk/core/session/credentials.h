// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSharedPointer>
#include <QString>

namespace orrin {

/*! A user name and a password, held in memory for the life of a session and never written anywhere. */
struct Credentials
{
    QString user;
    QString password;
};

using SharedCredentials = QSharedPointer<const Credentials>;

} // namespace orrin
