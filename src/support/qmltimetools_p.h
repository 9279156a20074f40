// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>

namespace orrin {

class QmlTimeTools;

class QmlTimeToolsPrivate
{
public:
    QPointer<QmlTimeTools> q;
};

} // namespace orrin
