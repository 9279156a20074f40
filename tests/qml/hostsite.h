// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "rolemodel.h"
#include "testsite.h"

#include <QObject>
#include <QStringList>
#include <QVariantList>
#include <QVariantMap>

#include <memory>

/*! The servers, events and files behind the components, as a test in QML sets them up. */
class HostSite : public QObject
{
    Q_OBJECT

public:
    explicit HostSite(QObject *parent = nullptr) : QObject(parent) {}

    /*! Logs in to a recorder of \a group with that many cameras, ids from 1, every tenth with PTZ. */
    Q_INVOKABLE bool login(int uid, int serverId, const QString &group, int cameras);
    /*! The recorder's cameras are called so from now on; a name that begins with "audio:" makes a channel of sound. */
    Q_INVOKABLE void nameCameras(int uid, const QStringList &names);
    Q_INVOKABLE void lose(int uid) { m_site.lose(static_cast<quint64>(uid)); }
    Q_INVOKABLE void restore(int uid) { m_site.restore(static_cast<quint64>(uid)); }
    Q_INVOKABLE void logOut();
    Q_INVOKABLE int serverGroupId(int uid) const;

    /*! A `ServerListModel` of the group of that server, and an `EventCauseModel` of the server. The caller's engine owns them. */
    Q_INVOKABLE QObject *serverList(int uid) const;
    Q_INVOKABLE QObject *causes(int uid) const;
    /*! Reports \a count events as one batch, the first of them with the fields of \a fields. */
    Q_INVOKABLE void report(int uid, int count, const QVariantMap &fields);
    /*! The rows that the list of events keeps. */
    Q_INVOKABLE void maximumEvents(int rows) const;

    /*! A model with the roles that the module's models begin with, whose rows the test gives. The caller's engine owns it. */
    Q_INVOKABLE QObject *table(const QStringList &roles, const QVariantList &rows) const;
    /*! One server whose uid takes all 64 bits. */
    Q_INVOKABLE QObject *largestUid() const;
    Q_INVOKABLE void resetTable(QObject *table, const QStringList &roles, const QVariantList &rows) const;

    /*! A time zone as the module's elements give it. */
    Q_INVOKABLE QVariant timeZone(const QString &id) const;
    /*! What the user's settings file holds under \a key at this moment. */
    Q_INVOKABLE QVariant stored(const QString &key) const;
    Q_INVOKABLE QString home() const;
    Q_INVOKABLE bool writeFile(const QString &path, const QString &text) const;
    Q_INVOKABLE QString readFile(const QString &path) const;
    /*! How many times the application was asked to quit. */
    Q_INVOKABLE int quits() const { return m_quits; }
    void countQuit() { ++m_quits; }

private:
    orrin::TestSite m_site;
    QHash<int, orrin::SiteDescription> m_servers;
    int m_quits = 0;
};
