// SPDX-License-Identifier: GPL-3.0-or-later
#include "tour.h"

#include <QCoreApplication>
#include <QDir>
#include <QImage>
#include <QMetaObject>
#include <QSet>
#include <QVariant>

#include <chrono>
#include <cstdio>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto PageTimeout = 45s;
// A page of text on one background has a handful of colours beside the shades of its letters.
constexpr qsizetype FewestColours = 16;

qsizetype distinctColours(const QImage &image)
{
    QSet<QRgb> colours;
    for (int y = 0; y < image.height(); y += 4) {
        for (int x = 0; x < image.width(); x += 4)
            colours.insert(image.pixel(x, y));
    }
    return colours.size();
}

} // namespace

Tour::Tour(QQuickWindow *window, const QString &folder, QObject *parent)
    : QObject(parent), m_window(window), m_folder(folder), m_pages{u"login"_s, u"live"_s}
{
    connect(&m_poll, &QTimer::timeout, this, &Tour::look);
    m_poll.start(100ms);
    m_waiting.start();
}

void Tour::look()
{
    const QString page = m_pages.constFirst();
    if (m_window->property("tourPage").toString() == page && m_window->property("tourReady").toBool()) {
        if (!save(page))
            return;
        m_pages.removeFirst();
        m_waiting.restart();
        if (m_pages.isEmpty()) {
            finish(m_warnings == 0 ? 0 : 1, m_warnings == 0 ? QString() : u"%1 QML warnings"_s.arg(m_warnings));
            return;
        }
        QMetaObject::invokeMethod(m_window, "tourNext");
        return;
    }
    if (m_waiting.durationElapsed() > PageTimeout) {
        save(page + u"-unfinished"_s);
        finish(1, u"the page \"%1\" did not become ready: %2"_s.arg(page, m_window->property("tourStatus").toString()));
    }
}

bool Tour::save(const QString &page)
{
    const QImage image = m_window->grabWindow();
    const QString file = QDir(m_folder).filePath(page + u".png"_s);
    if (!QDir().mkpath(m_folder) || !image.save(file)) {
        finish(1, u"cannot write %1"_s.arg(file));
        return false;
    }
    if (distinctColours(image) < FewestColours) {
        finish(1, u"the page \"%1\" is empty"_s.arg(page));
        return false;
    }
    return true;
}

void Tour::finish(int status, const QString &message)
{
    m_poll.stop();
    if (!message.isEmpty())
        std::fprintf(stderr, "orrin-viewer: %s\n", qPrintable(message));
    QCoreApplication::exit(status);
}
