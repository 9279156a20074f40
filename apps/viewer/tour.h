// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QQuickWindow>
#include <QString>
#include <QStringList>
#include <QTimer>

/*! Walks through the viewer without a person: waits for each station of the window's tour script to be ready, leaves a numbered
    screenshot of it and a line in a summary, and ends the application with status 0; with 1 and the reason on standard error when a
    station does not become ready in time, a picture is empty, or QML printed a warning.

    The script is the window's child object "tour": properties count, index and name, functions isReady(), status() and next(). */
class Tour : public QObject
{
    Q_OBJECT
public:
    Tour(QQuickWindow *window, const QString &folder, QObject *parent = nullptr);

    /*! Fails the tour at its end. */
    void addWarning(const QString &warning) { m_warnings.append(warning); }

private:
    void look();
    bool save(const QString &name);
    bool call(const char *function) const;
    void end();
    void finish(int status, const QString &message);

    QQuickWindow *m_window;
    QPointer<QObject> m_script;
    QString m_folder;
    QTimer m_poll;
    QElapsedTimer m_waiting;
    int m_number = 0;
    QStringList m_summary;
    QStringList m_warnings;
};
