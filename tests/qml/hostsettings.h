// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QObject>

/*! Stands in for the host's settings: what the components read, all of it writable by a test. */
class HostSettings : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int controlHeight MEMBER m_controlHeight WRITE setControlHeight NOTIFY changed FINAL)
    Q_PROPERTY(int controlHeightHints MEMBER m_controlHeightHints NOTIFY changed FINAL)
    Q_PROPERTY(int controlMarginsHints MEMBER m_controlMarginsHints NOTIFY changed FINAL)
    Q_PROPERTY(int controlRadiusHints MEMBER m_controlRadiusHints NOTIFY changed FINAL)
    Q_PROPERTY(int borderWidthHints MEMBER m_borderWidthHints NOTIFY changed FINAL)
    Q_PROPERTY(double fontPixelSizeHints MEMBER m_fontPixelSizeHints NOTIFY changed FINAL)
    Q_PROPERTY(double devicePixelRatio MEMBER m_devicePixelRatio NOTIFY changed FINAL)
    Q_PROPERTY(bool mobile MEMBER m_mobile NOTIFY changed FINAL)
    Q_PROPERTY(bool textOverlay MEMBER m_textOverlay NOTIFY changed FINAL)
    Q_PROPERTY(bool pinchPointsVisible MEMBER m_pinchPointsVisible NOTIFY changed FINAL)
    Q_PROPERTY(bool subtitlesTime MEMBER m_subtitlesTime NOTIFY changed FINAL)
    Q_PROPERTY(bool subtitlesServer MEMBER m_subtitlesServer NOTIFY changed FINAL)
    Q_PROPERTY(bool subtitlesCamera MEMBER m_subtitlesCamera NOTIFY changed FINAL)
    Q_PROPERTY(bool subtitlesDebug MEMBER m_subtitlesDebug NOTIFY changed FINAL)
    Q_PROPERTY(bool subtitlesPlayback MEMBER m_subtitlesPlayback NOTIFY changed FINAL)
    Q_PROPERTY(QColor backgroundColor MEMBER m_backgroundColor NOTIFY changed FINAL)
    Q_PROPERTY(QColor highlightColor MEMBER m_highlightColor NOTIFY changed FINAL)
    Q_PROPERTY(QColor activeColor MEMBER m_activeColor NOTIFY changed FINAL)
    Q_PROPERTY(QColor textColor MEMBER m_textColor NOTIFY changed FINAL)
    Q_PROPERTY(QColor textHighlightColor MEMBER m_textHighlightColor NOTIFY changed FINAL)
    Q_PROPERTY(QColor textActiveColor MEMBER m_textActiveColor NOTIFY changed FINAL)
    Q_PROPERTY(QColor iconColor MEMBER m_iconColor NOTIFY changed FINAL)
    Q_PROPERTY(QColor iconHighlightColor MEMBER m_iconHighlightColor NOTIFY changed FINAL)
    Q_PROPERTY(QColor iconActiveColor MEMBER m_iconActiveColor NOTIFY changed FINAL)
    Q_PROPERTY(QColor borderColor MEMBER m_borderColor NOTIFY changed FINAL)

public:
    using QObject::QObject;

    /*! The height of a control at \a percent of that on a 96 dpi screen. */
    void setControlHeight(int percent)
    {
        m_controlHeight = percent;
        m_controlHeightHints = 33 * percent / 100;
        Q_EMIT changed();
    }

Q_SIGNALS:
    void changed();

private:
    int m_controlHeight = 100;
    int m_controlHeightHints = 33;
    int m_controlMarginsHints = 5;
    int m_controlRadiusHints = 5;
    int m_borderWidthHints = 2;
    double m_fontPixelSizeHints = 14.85;
    double m_devicePixelRatio = 1;
    bool m_mobile = false;
    bool m_textOverlay = true;
    bool m_pinchPointsVisible = false;
    bool m_subtitlesTime = false;
    bool m_subtitlesServer = false;
    bool m_subtitlesCamera = false;
    bool m_subtitlesDebug = false;
    bool m_subtitlesPlayback = false;
    // Each colour differs from all others, so that a test tells them apart.
    QColor m_backgroundColor{0x2b, 0x2e, 0x36};
    QColor m_highlightColor{0x4d, 0x52, 0x61};
    QColor m_activeColor{0x06, 0xa5, 0xdf};
    QColor m_textColor{0xe5, 0xe5, 0xe6};
    QColor m_textHighlightColor{0xff, 0xff, 0xfe};
    QColor m_textActiveColor{0x06, 0xa5, 0xde};
    QColor m_iconColor{0xe5, 0xe5, 0xe5};
    QColor m_iconHighlightColor{0xff, 0xff, 0xff};
    QColor m_iconActiveColor{0x06, 0xa5, 0xdd};
    QColor m_borderColor{0x60, 0x64, 0x65};
};
