// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>
#include <contract/core/spinputcontrolinterface.h>

#include <QObject>

namespace orrin {

/*! The input control of a stream processor. */
class ORRINSDK_CORE_EXPORT SPAbstractInputControl : public QObject, public SPInputControlInterface
{
    Q_OBJECT
public:
    explicit SPAbstractInputControl(QObject *parent = nullptr);
    ~SPAbstractInputControl() override;
};

} // namespace orrin
