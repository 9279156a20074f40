// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/logclient.h"
#include "module/orrinsdkqmlglobal.h"

#include <QAbstractTableModel>
#include <QtQml/qqmlregistration.h>

#include <memory>

namespace orrin {

class QmlChannelModelPrivate;

/*! Every channel of every server, one a row, sorted by server group id, server id and channel id. Main thread.

    Rebuilt whole, by a model reset, when servers come, go or change; the objects of channels that are still there survive and belong
    to the model. Columns are the properties of QmlChannel with the role's name, but for `isEnabled` and `hasPtzf`, which are
    false too when the user may not see the camera or may not steer cameras. The role of a column is Qt::UserRole plus its
    number. */
class ORRINSDKQML_EXPORT QmlChannelModel : public QAbstractTableModel
{
    Q_OBJECT
    QML_NAMED_ELEMENT(ChannelModel)

    /*! The number of rows. countChanged() is never emitted: follow the model's reset. */
    Q_PROPERTY(int count READ count NOTIFY countChanged FINAL)

public:
    explicit QmlChannelModel(QObject *parent = nullptr);
    ~QmlChannelModel() override;

    int count() const;

    /*! The QmlChannel* of that row, or an invalid value. The model owns it. */
    Q_INVOKABLE QVariant get(int index) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void serverGroupIdChanged();
    void serverIdChanged();
    void countChanged();

private:
    Q_DISABLE_COPY_MOVE(QmlChannelModel)

    QmlChannelModelPrivate *d_func() const { return d_ptr.get(); }
    template <class, class, std::size_t>
    friend class ResourceModelPrivate;

    std::unique_ptr<QmlChannelModelPrivate> d_ptr;
    LogClient m_log;
};

} // namespace orrin
