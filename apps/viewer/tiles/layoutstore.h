// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QSettings>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

/*! The user's saved layouts, each a name with the cameras of its tiles, the layout that was shown last, and the pace of the cycle. GUI
    thread.

    Kept in a file beside the application's settings, written at each change. What is wrong in the file is left out. */
class LayoutStore : public QObject
{
    Q_OBJECT
    QML_ELEMENT

    /*! The names in the order in which they were saved first, which is the order of the cycle. */
    Q_PROPERTY(QStringList names READ names NOTIFY namesChanged FINAL)
    /*! Seconds that each layout stands; brought into the range from ShortestCycle to LongestCycle. */
    Q_PROPERTY(int cycleSeconds READ cycleSeconds WRITE setCycleSeconds NOTIFY cycleSecondsChanged FINAL)
    /*! Whether the layouts take turns. */
    Q_PROPERTY(bool cycling READ cycling WRITE setCycling NOTIFY cyclingChanged FINAL)
    /*! The cameras of the grid that was shown last, empty at the first start. */
    Q_PROPERTY(QStringList lastCameras READ lastCameras WRITE setLastCameras NOTIFY lastCamerasChanged FINAL)

public:
    static constexpr int MaxLayouts = 100;
    static constexpr int MaxNameLength = 64;
    static constexpr int MaxCameras = 64;
    static constexpr int ShortestCycle = 3;
    static constexpr int LongestCycle = 3600;

    explicit LayoutStore(QObject *parent = nullptr);
    LayoutStore(const QString &file, QObject *parent);

    QStringList names() const { return m_names; }
    int cycleSeconds() const { return m_cycleSeconds; }
    void setCycleSeconds(int seconds);
    bool cycling() const { return m_cycling; }
    void setCycling(bool cycling);
    QStringList lastCameras() const { return m_lastCameras; }
    void setLastCameras(const QStringList &cameras);

    /*! Saves the layout under \a name, over one of that name. False when the name is empty, there are no or too many cameras, or
        there are too many layouts. Blanks around the name do not count, and it is cut to MaxNameLength. */
    Q_INVOKABLE bool save(const QString &name, const QStringList &cameras);
    Q_INVOKABLE void remove(const QString &name);
    /*! False when there is no \a name or there is one of the new name. */
    Q_INVOKABLE bool rename(const QString &name, const QString &newName);
    /*! Empty when there is no such layout. */
    Q_INVOKABLE QStringList cameras(const QString &name) const;
    /*! The name behind \a name, the first one behind the last or an unknown one, empty without layouts. */
    Q_INVOKABLE QString next(const QString &name) const;

Q_SIGNALS:
    void namesChanged();
    void cycleSecondsChanged();
    void cyclingChanged();
    void lastCamerasChanged();

private:
    void read();
    void write();

    QSettings m_file;
    QStringList m_names;
    QHash<QString, QStringList> m_cameras;
    QStringList m_lastCameras;
    int m_cycleSeconds = 15;
    bool m_cycling = false;
};
