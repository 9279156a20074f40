// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
#include <QObject>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

/*! The zones that a user drew over the pictures of cameras, in a small JSON file. Main thread.

    A zone is an object with a `name` and `points`, its corners as [x, y] in fractions of the picture. A camera goes by a text that
    stays the same over sessions. What a file holds beyond the limits, or in another form, is left out; a file that cannot be
    read counts as empty, one that cannot be written keeps its former content, and errorText tells why. */
class ZoneStore : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    /*! The path of the file; setting it reads the file. At first `zones.json` in the user's folder for the application's data. */
    Q_PROPERTY(QString file READ file WRITE setFile NOTIFY fileChanged FINAL)
    /*! Empty while all went well. */
    Q_PROPERTY(QString errorText READ errorText NOTIFY errorTextChanged FINAL)

public:
    static constexpr qsizetype MaximumCameras = 4096;
    static constexpr qsizetype MaximumZones = 32;
    static constexpr qsizetype MaximumPoints = 1000;
    static constexpr qint64 MaximumBytes = 16 << 20;

    explicit ZoneStore(QObject *parent = nullptr);

    QString file() const { return m_file; }
    void setFile(const QString &file);
    QString errorText() const { return m_errorText; }

    /*! The text by which a camera that is logged in to goes: its uid. Empty while there is no such camera. */
    Q_INVOKABLE QString cameraOf(int serverGroupId, int serverId, int channelId) const;
    Q_INVOKABLE QVariantList zones(const QString &camera) const;
    /*! Keeps \a zones for \a camera and writes the file; an empty list forgets the camera. False when that failed. */
    Q_INVOKABLE bool setZones(const QString &camera, const QVariantList &zones);

Q_SIGNALS:
    void fileChanged();
    void errorTextChanged();
    void zonesChanged(const QString &camera);

private:
    void read();
    bool write();
    void setErrorText(const QString &text);

    QString m_file;
    QString m_errorText;
    QHash<QString, QJsonArray> m_cameras;
};
