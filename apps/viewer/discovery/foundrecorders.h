// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/devicefinder.h>

#include <QAbstractListModel>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

/*! The recorders that answer on the local network, in the order in which they answered. GUI thread.

    Names and models are what the devices claim: views show them as plain text, beside the address. */
class FoundRecorders : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT

    /*! A search runs. */
    Q_PROPERTY(bool searching READ isSearching NOTIFY searchingChanged FINAL)
    Q_PROPERTY(int count READ count NOTIFY countChanged FINAL)
    /*! The last search found no network to ask in. */
    Q_PROPERTY(bool networkMissing READ isNetworkMissing NOTIFY searchingChanged FINAL)
    /*! How long a search takes, in milliseconds, 100 to 60000. */
    Q_PROPERTY(int duration READ duration WRITE setDuration NOTIFY durationChanged FINAL)
    /*! IPv4 addresses to ask directly, "address" or "address:port", for recorders in other networks. */
    Q_PROPERTY(QStringList probeAddresses READ probeAddresses WRITE setProbeAddresses NOTIFY probeAddressesChanged FINAL)
    /*! Whether everybody in the local networks is asked; so unless told otherwise. */
    Q_PROPERTY(bool multicast READ isMulticast WRITE setMulticast NOTIFY multicastChanged FINAL)

public:
    enum Role : int {
        NameRole = Qt::UserRole, //!< `name`: the address where the recorder tells no name
        AddressRole,             //!< `address`: host:port
        HardwareRole,            //!< `hardware`: the model; empty where the recorder tells none
    };
    Q_ENUM(Role)

    explicit FoundRecorders(QObject *parent = nullptr);

    bool isSearching() const { return m_finder.isSearching(); }
    int count() const { return int(m_recorders.size()); }
    bool isNetworkMissing() const { return m_finder.error() == orrin::DeviceFinder::Error::NoNetwork; }
    int duration() const { return m_duration; }
    void setDuration(int milliseconds);
    QStringList probeAddresses() const { return m_finder.probeAddresses(); }
    void setProbeAddresses(const QStringList &addresses);
    bool isMulticast() const { return m_finder.isMulticastEnabled(); }
    void setMulticast(bool multicast);

    /*! Forgets what was found and searches anew. */
    Q_INVOKABLE void search();
    /*! Ends the search; what was found stays. */
    Q_INVOKABLE void stop();
    /*! Ends the search and forgets what was found. */
    Q_INVOKABLE void clear();
    /*! The address in \a row, empty when there is no such row. */
    Q_INVOKABLE QString address(int row) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void searchingChanged();
    void countChanged();
    void durationChanged();
    void probeAddressesChanged();
    void multicastChanged();

private:
    void forget();
    void add(const orrin::FoundDevice &recorder);

    orrin::DeviceFinder m_finder;
    QList<orrin::FoundDevice> m_recorders;
    int m_duration = 4000;
};
