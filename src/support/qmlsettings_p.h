// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/logclient.h"
#include "support/qmlsettings.h"
#include "support/settingsfile.h"

#include <QColor>
#include <QPointer>
#include <QString>
#include <QStringList>

#include <optional>

namespace orrin {

/*! The stored options with their defaults; the property system reads and writes them by name. */
class QmlSettingsPrivate
{
public:
    explicit QmlSettingsPrivate(QmlSettings *q) : q_ptr(q) {}

    /*! The file of the core library's names; nothing before the root object exists. */
    static std::optional<SettingsFile> file();

    QPointer<QmlSettings> q_ptr;

    /*! Base of all hints, in pixels. */
    int scaleUnit = 10;
    int layoutRows = 1;
    int layoutColumns = 1;
    QColor backgroundColor{0x2b, 0x2e, 0x36};
    QColor highlightColor{0x4d, 0x52, 0x61};
    QColor activeColor{0x06, 0xa5, 0xdf};
    QColor textColor{0xe5, 0xe5, 0xe5};
    QColor textHighlightColor{0xff, 0xff, 0xff};
    QColor textActiveColor{0x06, 0xa5, 0xdf};
    QColor textDisabledColor{0x88, 0x88, 0x88};
    double fontPixelSize = 100.0;
    QString fontFamily;
    QColor iconColor{0xe5, 0xe5, 0xe5};
    QColor iconHighlightColor{0xff, 0xff, 0xff};
    QColor iconActiveColor{0x06, 0xa5, 0xdf};
    QColor borderColor{0x60, 0x64, 0x65};
    QColor borderActiveColor{0x06, 0xa5, 0xdf};
    int borderWidth = 100;
    int borderActiveWidth = 100;
    int controlHeight = 100;
    int controlMargins = 100;
    int controlRadius = 100;
    int animationDuration = 500;
    int layoutDimLowStream = 2;
    QString hosts;
    QString users;
    QStringList lastConnectedServer;
    bool connectServerGroup = false;
    bool subtitlesVisible = true;
    bool showMainToolbar = true;
    bool showPlaybackToolbar = false;
    bool showPtzfToolbar = false;
    bool channelButtonsVisible = false;
    bool effectsVisible = false;
    bool effectButtonsVisible = false;
    bool zoomSliderVisible = false;
    bool pinchPointsVisible = false;
    bool subtitlesCamera = true;
    bool subtitlesServer = true;
    bool subtitlesTime = true;
    bool subtitlesPlayback = true;
    bool subtitlesDebug = false;
    bool logError = false;
    bool logWarning = false;
    bool logStartup = false;
    bool logInfo = false;
    bool logDebug = false;
    bool logTrace = false;
    bool logTiming = false;
    bool logGraphics = false;
    bool textOverlay = true;
    LogClient log{"QmlSettings"};

    /*! Counts calls of save(), so that load() knows whether its writes reached the file in part. */
    mutable unsigned saves = 0;
};

} // namespace orrin
