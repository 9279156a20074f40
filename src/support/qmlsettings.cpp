// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/qmlsettings.h"

#include "support/qmlsettings_p.h"
#include "support/screenfacts.h"
#include "support/settingshints.h"

#include <contract/core/orrinsdk.h>
#include <contract/core/preferencegroupinterface.h>
#include <contract/core/preferenceitem.h>
#include <contract/core/preferences.h>
#include <contract/core/securitypreferences.h>
#include <contract/util/logmanager.h>

#include <QGuiApplication>
#include <QMetaProperty>
#include <QScreen>

namespace orrin {

namespace {

/*! The preference behind publicKeyCheck; both null when either is missing. */
struct TrustOption
{
    QSharedPointer<PreferenceGroupInterface> group;
    QSharedPointer<PreferenceItem> item;
};

TrustOption trustOption()
{
    const QPointer<OrrinSDK> sdk = OrrinSDK::instance();
    if (!sdk)
        return {};
    const QSharedPointer<PreferenceGroupInterface> group = sdk->preferences()->preferenceGroup(SecurityPreferences::NAME);
    if (!group)
        return {};
    const QSharedPointer<PreferenceItem> item = group->item(SecurityPreferences::PUBLIC_KEY_CHECK, QString());
    if (!item)
        return {};
    return {group, item};
}

/*! The comma-joined \a list with \a entry at its head and not a second time. */
QString withHead(const QString &list, const QString &entry)
{
    QStringList entries = list.split(u',');
    entries.prepend(entry);
    entries.removeDuplicates();
    entries.removeOne(QString());
    return entries.join(u',');
}

} // namespace

std::optional<SettingsFile> QmlSettingsPrivate::file()
{
    const QPointer<OrrinSDK> sdk = OrrinSDK::instance();
    if (!sdk)
        return std::nullopt;
    return SettingsFile(sdk->localConfigOrganisationName(), sdk->localConfigApplicationName());
}

QmlSettings::QmlSettings(QObject *parent)
    : QObject(parent)
    , d_ptr(std::make_unique<QmlSettingsPrivate>(this))
{
    // Nothing saves and the log level is set once, for the connections are made after reading.
    load();
    updateLogLevel();
    updateProperties();

    if (const QScreen *screen = QGuiApplication::primaryScreen()) {
        connect(screen, &QScreen::availableGeometryChanged, this, &QmlSettings::updateProperties);
        connect(screen, &QScreen::geometryChanged, this, &QmlSettings::updateProperties);
        connect(screen, &QScreen::orientationChanged, this, &QmlSettings::updateProperties);
        connect(screen, &QScreen::physicalSizeChanged, this, &QmlSettings::updateProperties);
        connect(screen, &QScreen::virtualGeometryChanged, this, &QmlSettings::updateProperties);
    }
    connect(this, &QmlSettings::logErrorChanged, this, &QmlSettings::updateLogLevel);
    connect(this, &QmlSettings::logWarningChanged, this, &QmlSettings::updateLogLevel);
    connect(this, &QmlSettings::logStartupChanged, this, &QmlSettings::updateLogLevel);
    connect(this, &QmlSettings::logInfoChanged, this, &QmlSettings::updateLogLevel);
    connect(this, &QmlSettings::logDebugChanged, this, &QmlSettings::updateLogLevel);
    connect(this, &QmlSettings::logTraceChanged, this, &QmlSettings::updateLogLevel);
    connect(this, &QmlSettings::logTimingChanged, this, &QmlSettings::updateLogLevel);
    connect(this, &QmlSettings::logGraphicsChanged, this, &QmlSettings::updateLogLevel);
    saveOnChanges();
}

QmlSettings::~QmlSettings()
{
    save();
}

bool QmlSettings::publicKeyCheck()
{
    const TrustOption option = trustOption();
    return option.item ? option.item->value().toBool() : true;
}

double QmlSettings::fontPixelSizeHints() const
{
    return settingshints::fontPixelSize(d_func()->fontPixelSize, d_func()->scaleUnit);
}

int QmlSettings::borderWidthHints() const
{
    return settingshints::borderWidth(d_func()->borderWidth, d_func()->scaleUnit);
}

int QmlSettings::borderActiveWidthHints() const
{
    return settingshints::borderActiveWidth(d_func()->borderActiveWidth, d_func()->scaleUnit);
}

int QmlSettings::controlHeightHints() const
{
    return settingshints::controlHeight(d_func()->controlHeight, d_func()->scaleUnit);
}

int QmlSettings::controlMarginsHints() const
{
    return settingshints::controlMargins(d_func()->controlMargins, d_func()->scaleUnit);
}

int QmlSettings::controlRadiusHints() const
{
    return settingshints::controlRadius(d_func()->controlRadius, d_func()->scaleUnit);
}

int QmlSettings::desktopAvailableHeight()
{
    return screenfacts::availableSize().height();
}

int QmlSettings::desktopAvailableWidth()
{
    return screenfacts::availableSize().width();
}

int QmlSettings::screenHeight()
{
    return screenfacts::size().height();
}

int QmlSettings::screenWidth()
{
    return screenfacts::size().width();
}

int QmlSettings::orientation()
{
    return screenfacts::orientation();
}

int QmlSettings::primaryOrientation()
{
    return screenfacts::primaryOrientation();
}

double QmlSettings::devicePixelRatio()
{
    return screenfacts::devicePixelRatio();
}

double QmlSettings::pixelDensity()
{
    return screenfacts::dotsPerInch();
}

bool QmlSettings::fullscreen()
{
    return screenfacts::isFullyAvailable();
}

QString QmlSettings::screenName()
{
    return screenfacts::name();
}

bool QmlSettings::mobile()
{
    return false;
}

void QmlSettings::load()
{
    const std::optional<SettingsFile> file = QmlSettingsPrivate::file();
    if (!file)
        return;

    const QMetaObject *meta = metaObject();
    QStringList names;
    for (int index = 0; index < meta->propertyCount(); ++index)
        names.append(QString::fromLatin1(meta->property(index).name()));

    // All is read before anything is written: a change may save at once, over what is stored for the properties after it.
    const QHash<QString, QVariant> stored = file->read(names);
    const unsigned savesBefore = d_func()->saves;
    for (int index = 0; index < meta->propertyCount(); ++index) {
        const QVariant value = stored.value(names.at(index));
        if (!value.isValid() || isDebugProperty(names.at(index)))
            continue;
        meta->property(index).write(this, value);
    }
    // Such a save wrote the properties after it with their old values; the file gets back what it held.
    if (d_func()->saves != savesBefore)
        save();
}

void QmlSettings::save() const
{
    ++d_func()->saves;
    const std::optional<SettingsFile> file = QmlSettingsPrivate::file();
    if (!file)
        return;

    const QMetaObject *meta = metaObject();
    QList<std::pair<QString, QVariant>> values;
    values.reserve(meta->propertyCount());
    for (int index = 0; index < meta->propertyCount(); ++index) {
        const QMetaProperty property = meta->property(index);
        values.append({QString::fromLatin1(property.name()), property.read(this)});
    }
    file->write(values);
}

void QmlSettings::setPublicKeyCheck(bool value)
{
    const TrustOption option = trustOption();
    if (!option.item)
        return;
    option.item->setValue(value);
    option.group->save();
    Q_EMIT publicKeyCheckChanged();
}

void QmlSettings::setLastConnectedServer(const QString &host, const QString &username)
{
    d_func()->lastConnectedServer = {host, username};
    Q_EMIT lastConnectedServerChanged();
}

void QmlSettings::addHost(const QString &host)
{
    const QString defaultPort = QStringLiteral(":8601");
    QString entry = host;
    if (entry.endsWith(defaultPort))
        entry.remove(defaultPort); // wherever it stands
    d_func()->hosts = withHead(d_func()->hosts, entry);
    Q_EMIT hostsChanged();
}

void QmlSettings::addUser(const QString &user)
{
    d_func()->users = withHead(d_func()->users, user);
    Q_EMIT usersChanged();
}

void QmlSettings::resetLayout()
{
    d_func()->layoutRows = 1;
    d_func()->layoutColumns = 1;
    Q_EMIT layoutRowsChanged();
    Q_EMIT layoutColumnsChanged();
    Q_EMIT layoutReset();
}

void QmlSettings::updateProperties()
{
    d_func()->scaleUnit = settingshints::scaleUnit(screenfacts::dotsPerInch());

    Q_EMIT fontPixelSizeChanged();
    Q_EMIT fontPixelSizeHintsChanged();
    Q_EMIT controlHeightChanged();
    Q_EMIT controlHeightHintsChanged();
    Q_EMIT controlMarginsChanged();
    Q_EMIT controlMarginsHintsChanged();
    Q_EMIT controlRadiusChanged();
    Q_EMIT controlRadiusHintsChanged();
    Q_EMIT borderWidthChanged();
    Q_EMIT borderWidthHintsChanged();
    Q_EMIT borderActiveWidthChanged();
    Q_EMIT borderActiveWidthHintsChanged();
    Q_EMIT desktopAvailableHeightChanged();
    Q_EMIT desktopAvailableWidthChanged();
    Q_EMIT screenHeightChanged();
    Q_EMIT screenWidthChanged();
    Q_EMIT orientationChanged();
    Q_EMIT orientationUpdateMaskChanged();
    Q_EMIT primaryOrientationChanged();
    Q_EMIT devicePixelRatioChanged();
    Q_EMIT pixelDensityChanged();
    Q_EMIT fullscreenChanged();
    Q_EMIT screenNameChanged();
}

void QmlSettings::updateLogLevel() const
{
    const QmlSettingsPrivate &d = *d_func();
    unsigned mask = 0;
    if (d.logTrace)
        mask |= olog::LL_Trace;
    if (d.logDebug)
        mask |= olog::LL_Debug;
    if (d.logInfo)
        mask |= olog::LL_Info;
    if (d.logWarning)
        mask |= olog::LL_Warning;
    if (d.logError)
        mask |= olog::LL_Error;
    if (d.logTiming)
        mask |= olog::LL_Timing;
    if (d.logStartup)
        mask |= olog::LL_Startup;
    if (d.logGraphics)
        mask |= olog::LL_Graphics;
    olog::LogManager::instance()->setLogLevel(mask);
}

void QmlSettings::saveOnChanges()
{
    // Colours, font family, widths, margins, radius, animation, group login and low-stream dimension are left out on purpose:
    // the next write of the whole file stores them.
    using Signal = void (QmlSettings::*)();
    static constexpr Signal saving[] = {
        &QmlSettings::layoutRowsChanged,
        &QmlSettings::layoutColumnsChanged,
        &QmlSettings::fontPixelSizeChanged,
        &QmlSettings::controlHeightChanged,
        &QmlSettings::hostsChanged,
        &QmlSettings::usersChanged,
        &QmlSettings::lastConnectedServerChanged,
        &QmlSettings::publicKeyCheckChanged,
        &QmlSettings::subtitlesVisibleChanged,
        &QmlSettings::showMainToolbarChanged,
        &QmlSettings::showPlaybackToolbarChanged,
        &QmlSettings::showPtzfToolbarChanged,
        &QmlSettings::channelButtonsVisibleChanged,
        &QmlSettings::effectsVisibleChanged,
        &QmlSettings::effectButtonsVisibleChanged,
        &QmlSettings::zoomSliderVisibleChanged,
        &QmlSettings::pinchPointsVisibleChanged,
        &QmlSettings::subtitlesCameraChanged,
        &QmlSettings::subtitlesServerChanged,
        &QmlSettings::subtitlesTimeChanged,
        &QmlSettings::subtitlesDebugChanged,
        &QmlSettings::subtitlesPlaybackChanged,
        &QmlSettings::logErrorChanged,
        &QmlSettings::logWarningChanged,
        &QmlSettings::logStartupChanged,
        &QmlSettings::logInfoChanged,
        &QmlSettings::logDebugChanged,
        &QmlSettings::logTraceChanged,
        &QmlSettings::logTimingChanged,
        &QmlSettings::logGraphicsChanged,
        &QmlSettings::textOverlayChanged,
    };
    for (const Signal signal : saving)
        connect(this, signal, this, &QmlSettings::save);
}

bool QmlSettings::isDebugProperty(const QString &name)
{
    return name == QStringLiteral("pinchPointsVisible") || name == QStringLiteral("subtitlesDebug");
}

} // namespace orrin

#include "moc_qmlsettings.cpp"
