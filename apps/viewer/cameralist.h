// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

/*! The cameras that the user may see, of all servers, in the order of servers and sort ids. Main thread.

    Rebuilt by reset whenever a server connects, goes, or changes its facilities. */
class CameraList : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(int count READ count NOTIFY countChanged FINAL)

public:
    enum Role : int { ServerGroupIdRole = Qt::UserRole, ServerIdRole, ChannelIdRole, NameRole, ServerNameRole, SortIdRole };
    Q_ENUM(Role)

    explicit CameraList(QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;
    int count() const { return static_cast<int>(m_rows.size()); }

Q_SIGNALS:
    void countChanged();

private:
    struct Row
    {
        int serverGroupId;
        int serverId;
        int channelId;
        int sortId;
        QString name;
        QString serverName;
        friend bool operator==(const Row &, const Row &) = default;
    };

    void refresh();
    QList<Row> currentRows();

    QList<Row> m_rows;
};
