// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/orrinsdkqmlglobal.h"

#include <QColor>
#include <QObject>
#include <QString>
#include <QStringList>

#include <memory>

namespace orrin {

class QmlSettingsPrivate;

/*! The options of one user, and what the primary screen looks like.

    No QML element: the host creates one object after its application object and the root object of the core library, and
    publishes it as the context property `settings`. Main thread.

    Options are kept in the user's INI file of the core library's organisation and application names, under the names of the
    properties. They are read at construction and written by save(), by the destructor, and at each change of an option that
    saves at once: layout, sizes of font and controls, hosts, users, trust, visibility, subtitles, log levels, text overlay. A
    change of another option waits for the next write of the whole file. A file that cannot be read leaves the defaults, one
    that cannot be written stays as it was; neither is told.

    Options without a setter here are written through the property system. */
class ORRINSDKQML_EXPORT QmlSettings : public QObject
{
    Q_OBJECT

    // The order is that of reading and writing the file.
    /*! Rows and columns of the video grid. */
    Q_PRIVATE_PROPERTY(d_func(), int layoutRows MEMBER layoutRows NOTIFY layoutRowsChanged FINAL)
    Q_PRIVATE_PROPERTY(d_func(), int layoutColumns MEMBER layoutColumns NOTIFY layoutColumnsChanged FINAL)
    /*! Colours of surfaces and texts. */
    Q_PRIVATE_PROPERTY(d_func(), QColor backgroundColor MEMBER backgroundColor NOTIFY backgroundColorChanged FINAL)
    Q_PRIVATE_PROPERTY(d_func(), QColor highlightColor MEMBER highlightColor NOTIFY highlightColorChanged FINAL)
    Q_PRIVATE_PROPERTY(d_func(), QColor activeColor MEMBER activeColor NOTIFY activeColorChanged FINAL)
    Q_PRIVATE_PROPERTY(d_func(), QColor textColor MEMBER textColor NOTIFY textColorChanged FINAL)
    Q_PRIVATE_PROPERTY(d_func(), QColor textHighlightColor MEMBER textHighlightColor NOTIFY textHighlightColorChanged FINAL)
    Q_PRIVATE_PROPERTY(d_func(), QColor textActiveColor MEMBER textActiveColor NOTIFY textActiveColorChanged FINAL)
    Q_PRIVATE_PROPERTY(d_func(), QColor textDisabledColor MEMBER textDisabledColor NOTIFY textDisabledColorChanged FINAL)
    /*! Font size in percent. */
    Q_PRIVATE_PROPERTY(d_func(), double fontPixelSize MEMBER fontPixelSize NOTIFY fontPixelSizeChanged FINAL)
    /*! Empty for the family of the system. */
    Q_PRIVATE_PROPERTY(d_func(), QString fontFamily MEMBER fontFamily NOTIFY fontFamilyChanged FINAL)
    /*! Colours of icons and borders. */
    Q_PRIVATE_PROPERTY(d_func(), QColor iconColor MEMBER iconColor NOTIFY iconColorChanged FINAL)
    Q_PRIVATE_PROPERTY(d_func(), QColor iconHighlightColor MEMBER iconHighlightColor NOTIFY iconHighlightColorChanged FINAL)
    Q_PRIVATE_PROPERTY(d_func(), QColor iconActiveColor MEMBER iconActiveColor NOTIFY iconActiveColorChanged FINAL)
    Q_PRIVATE_PROPERTY(d_func(), QColor borderColor MEMBER borderColor NOTIFY borderColorChanged FINAL)
    Q_PRIVATE_PROPERTY(d_func(), QColor borderActiveColor MEMBER borderActiveColor NOTIFY borderActiveColorChanged FINAL)
    /*! Sizes in percent; the pixels are in the hints below. */
    Q_PRIVATE_PROPERTY(d_func(), int borderWidth MEMBER borderWidth NOTIFY borderWidthChanged FINAL)
    Q_PRIVATE_PROPERTY(d_func(), int borderActiveWidth MEMBER borderActiveWidth NOTIFY borderActiveWidthChanged FINAL)
    Q_PRIVATE_PROPERTY(d_func(), int controlHeight MEMBER controlHeight NOTIFY controlHeightChanged FINAL)
    Q_PRIVATE_PROPERTY(d_func(), int controlMargins MEMBER controlMargins NOTIFY controlMarginsChanged FINAL)
    Q_PRIVATE_PROPERTY(d_func(), int controlRadius MEMBER controlRadius NOTIFY controlRadiusChanged FINAL)
    /*! Length of animations in milliseconds. */
    Q_PRIVATE_PROPERTY(d_func(), int animationDuration MEMBER animationDuration NOTIFY animationDurationChanged FINAL)
    /*! Hosts and users of earlier logins, joined by commas, newest first. */
    Q_PRIVATE_PROPERTY(d_func(), QString hosts MEMBER hosts NOTIFY hostsChanged FINAL)
    Q_PRIVATE_PROPERTY(d_func(), QString users MEMBER users NOTIFY usersChanged FINAL)
    /*! Host and user name of the last login, in this order. */
    Q_PRIVATE_PROPERTY(d_func(), QStringList lastConnectedServer MEMBER lastConnectedServer
                           NOTIFY lastConnectedServerChanged FINAL)
    /*! Whether a login asks for the whole server group. */
    Q_PRIVATE_PROPERTY(d_func(), bool connectServerGroup MEMBER connectServerGroup NOTIFY connectServerGroupChanged FINAL)
    /*! Whether a server's public key is checked at login. Kept by the core library's preferences; true when those have
        no such option. */
    Q_PROPERTY(bool publicKeyCheck READ publicKeyCheck WRITE setPublicKeyCheck NOTIFY publicKeyCheckChanged FINAL)
    /*! What the tiles and the toolbars show. */
    Q_PRIVATE_PROPERTY(d_func(), bool subtitlesVisible MEMBER subtitlesVisible NOTIFY subtitlesVisibleChanged FINAL)
    Q_PRIVATE_PROPERTY(d_func(), bool channelButtonsVisible MEMBER channelButtonsVisible
                           NOTIFY channelButtonsVisibleChanged FINAL)
    Q_PRIVATE_PROPERTY(d_func(), bool showMainToolbar MEMBER showMainToolbar NOTIFY showMainToolbarChanged FINAL)
    Q_PRIVATE_PROPERTY(d_func(), bool showPlaybackToolbar MEMBER showPlaybackToolbar
                           NOTIFY showPlaybackToolbarChanged FINAL)
    Q_PRIVATE_PROPERTY(d_func(), bool showPtzfToolbar MEMBER showPtzfToolbar NOTIFY showPtzfToolbarChanged FINAL)
    Q_PRIVATE_PROPERTY(d_func(), bool effectsVisible MEMBER effectsVisible NOTIFY effectsVisibleChanged FINAL)
    Q_PRIVATE_PROPERTY(d_func(), bool effectButtonsVisible MEMBER effectButtonsVisible
                           NOTIFY effectButtonsVisibleChanged FINAL)
    Q_PRIVATE_PROPERTY(d_func(), bool zoomSliderVisible MEMBER zoomSliderVisible NOTIFY zoomSliderVisibleChanged FINAL)
    /*! Debugging aid: stored, but false again at each start. */
    Q_PRIVATE_PROPERTY(d_func(), bool pinchPointsVisible MEMBER pinchPointsVisible NOTIFY pinchPointsVisibleChanged FINAL)
    /*! What the subtitle of a tile shows. */
    Q_PRIVATE_PROPERTY(d_func(), bool subtitlesCamera MEMBER subtitlesCamera NOTIFY subtitlesCameraChanged FINAL)
    Q_PRIVATE_PROPERTY(d_func(), bool subtitlesServer MEMBER subtitlesServer NOTIFY subtitlesServerChanged FINAL)
    Q_PRIVATE_PROPERTY(d_func(), bool subtitlesTime MEMBER subtitlesTime NOTIFY subtitlesTimeChanged FINAL)
    /*! Debugging aid: stored, but false again at each start. */
    Q_PRIVATE_PROPERTY(d_func(), bool subtitlesDebug MEMBER subtitlesDebug NOTIFY subtitlesDebugChanged FINAL)
    /*! Whether the subtitle shows the playback state. */
    Q_PRIVATE_PROPERTY(d_func(), bool subtitlesPlayback MEMBER subtitlesPlayback NOTIFY subtitlesPlaybackChanged FINAL)
    /*! Which levels are logged. */
    Q_PRIVATE_PROPERTY(d_func(), bool logError MEMBER logError NOTIFY logErrorChanged FINAL)
    Q_PRIVATE_PROPERTY(d_func(), bool logWarning MEMBER logWarning NOTIFY logWarningChanged FINAL)
    Q_PRIVATE_PROPERTY(d_func(), bool logStartup MEMBER logStartup NOTIFY logStartupChanged FINAL)
    Q_PRIVATE_PROPERTY(d_func(), bool logInfo MEMBER logInfo NOTIFY logInfoChanged FINAL)
    Q_PRIVATE_PROPERTY(d_func(), bool logDebug MEMBER logDebug NOTIFY logDebugChanged FINAL)
    Q_PRIVATE_PROPERTY(d_func(), bool logTrace MEMBER logTrace NOTIFY logTraceChanged FINAL)
    Q_PRIVATE_PROPERTY(d_func(), bool logTiming MEMBER logTiming NOTIFY logTimingChanged FINAL)
    Q_PRIVATE_PROPERTY(d_func(), bool logGraphics MEMBER logGraphics NOTIFY logGraphicsChanged FINAL)
    /*! Whether texts of the stream are drawn over the picture. */
    Q_PRIVATE_PROPERTY(d_func(), bool textOverlay MEMBER textOverlay NOTIFY textOverlayChanged FINAL)
    /*! Dimension of the grid above which tiles want the low-resolution stream. */
    Q_PRIVATE_PROPERTY(d_func(), int layoutDimLowStream MEMBER layoutDimLowStream NOTIFY layoutDimLowStreamChanged FINAL)
    /*! Pixels for the percentages above on the primary screen. They change with the screen only: a changed percentage
        reaches bindings on its hint at the next change of the screen. */
    Q_PROPERTY(double fontPixelSizeHints READ fontPixelSizeHints NOTIFY fontPixelSizeHintsChanged FINAL)
    Q_PROPERTY(int borderWidthHints READ borderWidthHints NOTIFY borderWidthHintsChanged FINAL)
    Q_PROPERTY(int borderActiveWidthHints READ borderActiveWidthHints NOTIFY borderActiveWidthHintsChanged FINAL)
    Q_PROPERTY(int controlHeightHints READ controlHeightHints NOTIFY controlHeightHintsChanged FINAL)
    Q_PROPERTY(int controlMarginsHints READ controlMarginsHints NOTIFY controlMarginsHintsChanged FINAL)
    Q_PROPERTY(int controlRadiusHints READ controlRadiusHints NOTIFY controlRadiusHintsChanged FINAL)
    /*! The primary screen, in device independent pixels. */
    Q_PROPERTY(int desktopAvailableHeight READ desktopAvailableHeight NOTIFY desktopAvailableHeightChanged FINAL)
    Q_PROPERTY(int desktopAvailableWidth READ desktopAvailableWidth NOTIFY desktopAvailableWidthChanged FINAL)
    Q_PROPERTY(int screenHeight READ screenHeight NOTIFY screenHeightChanged FINAL)
    Q_PROPERTY(int screenWidth READ screenWidth NOTIFY screenWidthChanged FINAL)
    /*! Values of Qt::ScreenOrientation. */
    Q_PROPERTY(int orientation READ orientation NOTIFY orientationChanged FINAL)
    Q_PROPERTY(int primaryOrientation READ primaryOrientation NOTIFY primaryOrientationChanged FINAL)
    /*! Device pixels per device independent pixel. */
    Q_PROPERTY(double devicePixelRatio READ devicePixelRatio NOTIFY devicePixelRatioChanged FINAL)
    /*! Dots per inch of glass. */
    Q_PROPERTY(double pixelDensity READ pixelDensity NOTIFY pixelDensityChanged FINAL)
    /*! Whether no task bar or the like takes a part of the primary screen. */
    Q_PROPERTY(bool fullscreen READ fullscreen NOTIFY fullscreenChanged FINAL)
    /*! Name of the primary screen. */
    Q_PROPERTY(QString screenName READ screenName NOTIFY screenNameChanged FINAL)
    /*! Always false. */
    Q_PROPERTY(bool mobile READ mobile CONSTANT FINAL)

public:
    explicit QmlSettings(QObject *parent = nullptr);
    /*! Writes the file. */
    ~QmlSettings() override;

    static bool publicKeyCheck();

    double fontPixelSizeHints() const;
    int borderWidthHints() const;
    int borderActiveWidthHints() const;
    int controlHeightHints() const;
    int controlMarginsHints() const;
    int controlRadiusHints() const;
    static int desktopAvailableHeight();
    static int desktopAvailableWidth();
    static int screenHeight();
    static int screenWidth();
    static int orientation();
    static int primaryOrientation();
    static double devicePixelRatio();
    static double pixelDensity();
    static bool fullscreen();
    static QString screenName();
    static bool mobile();

    /*! Reads the file. What it lacks, and what does not fit its property, stays as it is. Once the object is constructed, each
        change that this makes writes the file again. */
    Q_INVOKABLE void load();
    /*! Writes all properties, those without write access too. */
    Q_INVOKABLE void save() const;
    /*! Stores the option in the core library's preferences; without those nothing happens, no signal either. */
    Q_INVOKABLE void setPublicKeyCheck(bool value);
    /*! Keeps both as they are given, and always emits. */
    Q_INVOKABLE void setLastConnectedServer(const QString &host, const QString &username);
    /*! Puts \a host at the head of hosts, without the default port 8601, and always emits. */
    Q_INVOKABLE void addHost(const QString &host);
    /*! Puts \a user at the head of users, and always emits. */
    Q_INVOKABLE void addUser(const QString &user);
    /*! One row and one column; always emits, layoutReset() last. */
    Q_INVOKABLE void resetLayout();

Q_SIGNALS:
    void layoutRowsChanged();
    void layoutColumnsChanged();
    /*! resetLayout() was called. */
    void layoutReset();
    void backgroundColorChanged();
    void highlightColorChanged();
    void activeColorChanged();
    void textColorChanged();
    void textHighlightColorChanged();
    void textActiveColorChanged();
    void textDisabledColorChanged();
    void fontPixelSizeChanged();
    void fontFamilyChanged();
    void iconColorChanged();
    void iconHighlightColorChanged();
    void iconActiveColorChanged();
    void borderColorChanged();
    void borderActiveColorChanged();
    void borderWidthChanged();
    void borderActiveWidthChanged();
    void controlHeightChanged();
    void controlMarginsChanged();
    void controlRadiusChanged();
    void animationDurationChanged();
    void hostsChanged();
    void usersChanged();
    void lastConnectedServerChanged();
    void connectServerGroupChanged();
    void publicKeyCheckChanged();
    void subtitlesVisibleChanged();
    void channelButtonsVisibleChanged();
    void showMainToolbarChanged();
    void showPlaybackToolbarChanged();
    void showPtzfToolbarChanged();
    void effectsVisibleChanged();
    void effectButtonsVisibleChanged();
    void zoomSliderVisibleChanged();
    void pinchPointsVisibleChanged();
    void subtitlesCameraChanged();
    void subtitlesServerChanged();
    void subtitlesTimeChanged();
    void subtitlesDebugChanged();
    void subtitlesPlaybackChanged();
    void logErrorChanged();
    void logWarningChanged();
    void logStartupChanged();
    void logInfoChanged();
    void logDebugChanged();
    void logTraceChanged();
    void logTimingChanged();
    void logGraphicsChanged();
    void textOverlayChanged();
    void layoutDimLowStreamChanged();
    void fontPixelSizeHintsChanged();
    void borderWidthHintsChanged();
    void borderActiveWidthHintsChanged();
    void controlHeightHintsChanged();
    void controlMarginsHintsChanged();
    void controlRadiusHintsChanged();
    void desktopAvailableHeightChanged();
    void desktopAvailableWidthChanged();
    void screenHeightChanged();
    void screenWidthChanged();
    void orientationChanged();
    /*! Belongs to no property. */
    void orientationUpdateMaskChanged();
    void primaryOrientationChanged();
    void devicePixelRatioChanged();
    void pixelDensityChanged();
    void fullscreenChanged();
    void screenNameChanged();

private Q_SLOTS:
    void updateProperties();
    void updateLogLevel() const;

private:
    Q_DISABLE_COPY_MOVE(QmlSettings)

    void saveOnChanges();
    static bool isDebugProperty(const QString &name);

    QmlSettingsPrivate *d_func() const { return d_ptr.get(); }

    std::unique_ptr<QmlSettingsPrivate> d_ptr;
};

} // namespace orrin
