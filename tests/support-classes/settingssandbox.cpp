// SPDX-License-Identifier: GPL-3.0-or-later
#include "settingssandbox.h"

#include <contract/core/orrinsdk.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>

#include <memory>

namespace orrin {

namespace {

std::unique_ptr<QSettings> copyOf(const QString &fileName, const QTemporaryDir &dir)
{
    const QString copy = dir.filePath(QStringLiteral("copy.ini"));
    QFile::copy(fileName, copy);
    return std::make_unique<QSettings>(copy, QSettings::IniFormat);
}

} // namespace

SettingsSandbox::SettingsSandbox()
{
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_dir.path());
    initRootObject();
}

SettingsSandbox::~SettingsSandbox()
{
    forgetRootObject();
}

QString SettingsSandbox::organisation()
{
    return QStringLiteral("Orrin Tests");
}

QString SettingsSandbox::application()
{
    return QStringLiteral("settingstest");
}

QString SettingsSandbox::fileName() const
{
    return m_dir.filePath(organisation() + u'/' + application() + QStringLiteral(".ini"));
}

bool SettingsSandbox::exists() const
{
    return QFileInfo::exists(fileName());
}

void SettingsSandbox::remove() const
{
    QFile::remove(fileName());
}

QByteArray SettingsSandbox::bytes() const
{
    QFile file(fileName());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void SettingsSandbox::write(const QByteArray &bytes) const
{
    QDir().mkpath(QFileInfo(fileName()).path());
    QFile file(fileName());
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("The test cannot write its settings file");
}

QVariant SettingsSandbox::stored(const QString &key) const
{
    const QTemporaryDir dir;
    return copyOf(fileName(), dir)->value(key);
}

QStringList SettingsSandbox::storedKeys() const
{
    const QTemporaryDir dir;
    return copyOf(fileName(), dir)->allKeys();
}

void SettingsSandbox::forgetRootObject()
{
    OrrinSDK::shutdown();
}

void SettingsSandbox::initRootObject()
{
    OrrinSDK::initInstance(organisation(), application(), nullptr, QStringLiteral("settingstest.log"));
}

QStringList settingsKeys()
{
    return QStringLiteral("objectName layoutRows layoutColumns backgroundColor highlightColor activeColor textColor "
                          "textHighlightColor textActiveColor textDisabledColor fontPixelSize fontFamily iconColor "
                          "iconHighlightColor iconActiveColor borderColor borderActiveColor borderWidth borderActiveWidth "
                          "controlHeight controlMargins controlRadius animationDuration hosts users lastConnectedServer "
                          "connectServerGroup publicKeyCheck subtitlesVisible channelButtonsVisible showMainToolbar "
                          "showPlaybackToolbar showPtzfToolbar effectsVisible effectButtonsVisible zoomSliderVisible "
                          "pinchPointsVisible subtitlesCamera subtitlesServer subtitlesTime subtitlesDebug "
                          "subtitlesPlayback logError logWarning logStartup logInfo logDebug logTrace logTiming "
                          "logGraphics textOverlay layoutDimLowStream fontPixelSizeHints borderWidthHints "
                          "borderActiveWidthHints controlHeightHints controlMarginsHints controlRadiusHints "
                          "desktopAvailableHeight desktopAvailableWidth screenHeight screenWidth orientation "
                          "primaryOrientation devicePixelRatio pixelDensity fullscreen screenName mobile")
        .split(u' ');
}

} // namespace orrin
