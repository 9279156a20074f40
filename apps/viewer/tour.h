// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QQuickWindow>
#include <QString>
#include <QTimer>

/*! Walks through the viewer without a person: waits for each page to be ready, leaves a screenshot of it, and ends the
    application with status 0, or with 1 and a line on standard error when a page does not become ready in time.

    A page is ready when the window's property `tourPage` has its name and `tourReady` is true. */
class Tour : public QObject
{
    Q_OBJECT
public:
    Tour(QQuickWindow *window, const QString &folder, QObject *parent = nullptr);

    /*! A QML warning fails the tour at its end. */
    void countWarning() { ++m_warnings; }

private:
    void look();
    bool save(const QString &page);
    void finish(int status, const QString &message);

    QQuickWindow *m_window;
    QString m_folder;
    QStringList m_pages;
    QTimer m_poll;
    QElapsedTimer m_waiting;
    int m_warnings = 0;
};
