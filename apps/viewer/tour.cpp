// SPDX-License-Identifier: GPL-3.0-or-later
#include "tour.h"

#include <QCoreApplication>
#include <QDir>
#include <QImage>
#include <QMetaObject>
#include <QSaveFile>
#include <QSet>
#include <QVariant>

#include <chrono>
#include <cstdio>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto StationTimeout = 45s;
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
    : QObject(parent), m_window(window), m_script(window->findChild<QObject *>(u"tour"_s)), m_folder(folder)
{
    if (m_script)
        m_script->setProperty("folder", folder);
    connect(&m_poll, &QTimer::timeout, this, &Tour::look);
    m_poll.start(100ms);
    m_waiting.start();
}

bool Tour::call(const char *function) const
{
    bool answer = false;
    return QMetaObject::invokeMethod(m_script, function, qReturnArg(answer)) && answer;
}

void Tour::look()
{
    if (!m_script) {
        finish(1, u"the window has no tour"_s);
        return;
    }
    const QString name = m_script->property("name").toString();
    if (call("isReady")) {
        ++m_number;
        if (!save(u"%1-%2"_s.arg(m_number, 2, 10, QLatin1Char('0')).arg(name)))
            return;
        // The two that everybody looks for have names that stay when stations come in between.
        if ((name == "login"_L1 || name == "live"_L1) && !save(name))
            return;
        m_summary.append(u"%1 %2 ms"_s.arg(name, -14).arg(m_waiting.elapsed()));
        m_waiting.restart();
        if (!call("next"))
            end();
        return;
    }
    if (m_waiting.durationElapsed() > StationTimeout) {
        QString status;
        QMetaObject::invokeMethod(m_script, "status", qReturnArg(status));
        save(name + u"-unfinished"_s);
        finish(1, u"\"%1\" did not become ready: %2"_s.arg(name, status));
    }
}

bool Tour::save(const QString &name)
{
    const QImage image = m_window->grabWindow();
    const QString file = QDir(m_folder).filePath(name + u".png"_s);
    if (!QDir().mkpath(m_folder) || !image.save(file)) {
        finish(1, u"cannot write %1"_s.arg(file));
        return false;
    }
    if (distinctColours(image) < FewestColours) {
        finish(1, u"the page \"%1\" is empty"_s.arg(name));
        return false;
    }
    return true;
}

void Tour::end()
{
    for (const QString &warning : std::as_const(m_warnings))
        m_summary.append(u"warning: "_s + warning);
    QSaveFile file(QDir(m_folder).filePath(u"summary.txt"_s));
    if (!file.open(QIODevice::WriteOnly) || file.write(m_summary.join(u'\n').toUtf8() + '\n') < 0 || !file.commit()) {
        finish(1, u"cannot write the summary"_s);
        return;
    }
    finish(m_warnings.isEmpty() ? 0 : 1,
           m_warnings.isEmpty() ? QString() : u"%1 QML warnings, see summary.txt"_s.arg(m_warnings.size()));
}

void Tour::finish(int status, const QString &message)
{
    m_poll.stop();
    if (!message.isEmpty())
        std::fprintf(stderr, "orrin-viewer: %s\n", qPrintable(message));
    QCoreApplication::exit(status);
}
