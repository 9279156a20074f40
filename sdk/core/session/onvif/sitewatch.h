// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/onvif/onviftimings.h"

#include <contract/core/connectionerror.h>

#include <QObject>
#include <QTimer>

namespace orrin {

class DeviceLink;
class SoapAnswer;
struct SiteAnswer;
struct TransportResult;

/*! Watches a standing link: hears of changes where the server has the site extension, and finds out when the
    device is gone. Main thread.

    With the extension it keeps a request for changes open; on a plain device it asks for the time every few
    seconds. A connection that is refused or broken off ends the watch at once, a silence or an answer that
    cannot be read when it comes twice in a row. */
class SiteWatch : public QObject
{
    Q_OBJECT
public:
    SiteWatch(DeviceLink *link, const OnvifTimings &timings, QObject *parent = nullptr);

    void start();

Q_SIGNALS:
    /*! The description is to be read again. */
    void changed();
    void notice(const QString &name);
    /*! The device is gone; the watch is over. */
    void failed(const orrin::ConnectionError &error);

private:
    bool usesExtension() const;
    void ask();
    void askForChanges();
    void askForTime();
    void onChanges(const SiteAnswer &answer);
    void renewSession();
    void onTime(const SoapAnswer &answer);
    void onFailure(const TransportResult &transport);
    void fail(int code, const QString &detail);

    DeviceLink *m_link;
    const OnvifTimings m_timings;
    QTimer m_next;
    qint64 m_revision = 0;
    int m_failures = 0;
    bool m_over = false;
};

} // namespace orrin
