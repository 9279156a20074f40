// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/orrinsdkqmlglobal.h"

#include <QJSValue>
#include <QObject>

namespace orrin {

/*! What QML needs on a phone: the insets of the display's cut-outs, and a timer that fires once. Main thread.

    A host publishes one as a context property. */
class ORRINSDKQML_EXPORT MobileNotchUtils : public QObject
{
    Q_OBJECT
public:
    explicit MobileNotchUtils(QObject *parent = nullptr);
    ~MobileNotchUtils() override;

    /*! Calls \a callback once after \a msec milliseconds, never inside this call; not at all when this object ends before or
        \a msec is negative. What can't be called is ignored, and so is the result. */
    Q_INVOKABLE void singleShot(int msec, const QJSValue &callback);

    /*! The width in item pixels that the display's cut-outs take at each edge: 0 on the desktop. */
    Q_INVOKABLE static double safeAreaBottomInset();
    Q_INVOKABLE static double safeAreaTopInset();
    Q_INVOKABLE static double safeAreaRightInset();
    Q_INVOKABLE static double safeAreaLeftInset();
};

} // namespace orrin
