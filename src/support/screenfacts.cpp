// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/screenfacts.h"

#include <QGuiApplication>
#include <QScreen>

namespace orrin::screenfacts {

namespace {

/*! \a fact of the primary screen, or \a otherwise when there is none. */
template <typename Result>
Result ask(Result (QScreen::*fact)() const, Result otherwise)
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen ? (screen->*fact)() : otherwise;
}

} // namespace

QSize availableSize()
{
    return ask(&QScreen::availableSize, QSize(0, 0));
}

QSize size()
{
    return ask(&QScreen::size, QSize(0, 0));
}

int orientation()
{
    return ask(&QScreen::orientation, Qt::PrimaryOrientation);
}

int primaryOrientation()
{
    return ask(&QScreen::primaryOrientation, Qt::PrimaryOrientation);
}

double devicePixelRatio()
{
    return ask(&QScreen::devicePixelRatio, 1.0);
}

double dotsPerInch()
{
    return ask(&QScreen::physicalDotsPerInch, 0.0);
}

bool isFullyAvailable()
{
    return QGuiApplication::primaryScreen() && availableSize() == size();
}

QString name()
{
    return ask(&QScreen::name, QString());
}

} // namespace orrin::screenfacts
