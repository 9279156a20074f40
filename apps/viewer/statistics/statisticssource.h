// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/statsmodel.h>

#include <QAbstractItemModel>
#include <QDateTime>
#include <QImage>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <QVariant>
#include <QtQml/qqmlregistration.h>

/*! The statistics page's way to the samples of one server: what the charts show, what stands under the pointer, and files of both. Main thread. */
class StatisticsSource : public QObject
{
    Q_OBJECT
    QML_ELEMENT

    /*! The table of samples and the list of headings, for the charts. */
    Q_PROPERTY(QObject *samples READ samples CONSTANT FINAL)
    Q_PROPERTY(QObject *headings READ headings CONSTANT FINAL)
    Q_PROPERTY(QDateTime from READ from NOTIFY spanChanged FINAL)
    Q_PROPERTY(QDateTime to READ to NOTIFY spanChanged FINAL)
    /*! The span ends now and moves on. */
    Q_PROPERTY(bool running READ isRunning NOTIFY runningChanged FINAL)
    /*! There are samples to show. */
    Q_PROPERTY(bool ready READ isReady NOTIFY statusChanged FINAL)
    Q_PROPERTY(QString statusText READ statusText NOTIFY statusChanged FINAL)

public:
    explicit StatisticsSource(QObject *parent = nullptr);
    ~StatisticsSource() override;

    QAbstractItemModel *samples();
    QAbstractItemModel *headings() const;
    QDateTime from() const;
    QDateTime to() const;
    bool isRunning() const;
    bool isReady() const;
    QString statusText() const;

    Q_INVOKABLE void setServer(int serverGroupId, int serverId);
    /*! A fixed span; false when it is none. */
    Q_INVOKABLE bool setSpan(const QDateTime &from, const QDateTime &to);
    Q_INVOKABLE void setRunningSpan(qlonglong milliseconds);

    /*! The sample of \a heading nearest to a moment: "time" in milliseconds and "text"; empty without one. */
    Q_INVOKABLE QVariantMap nearest(const QString &heading, double timeMs);

    /*! Writes the samples of \a headings as CSV, or a picture as PNG, whole or not at all. An empty text, or what went wrong. */
    Q_INVOKABLE QString saveTable(const QUrl &file, const QStringList &headings);
    Q_INVOKABLE QString savePicture(const QUrl &file, const QVariant &picture);

Q_SIGNALS:
    void spanChanged();
    void runningChanged();
    void statusChanged();

private:
    orrin::StatsModel m_model;
};
