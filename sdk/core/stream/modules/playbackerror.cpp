// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/playbackerror.h>

#include <QCoreApplication>

namespace orrin {

namespace {

const char *textOf(int code)
{
    switch (code) {
    case PlaybackError::NoError:
        return "";
    case PlaybackError::PrivateKeyRequired:
        return QT_TRANSLATE_NOOP("orrin::PlaybackError", "A private key is needed to play this stream.");
    case PlaybackError::PrivateKeyWrong:
        return QT_TRANSLATE_NOOP("orrin::PlaybackError", "The private key does not fit this stream.");
    case PlaybackError::PrivateKeyPasswordRequired:
        return QT_TRANSLATE_NOOP("orrin::PlaybackError", "The private key needs its password.");
    case PlaybackError::PrivateKeyPasswordWrong:
        return QT_TRANSLATE_NOOP("orrin::PlaybackError", "The password of the private key is wrong.");
    case PlaybackError::StreamLost:
        return QT_TRANSLATE_NOOP("orrin::PlaybackError", "The stream was lost. Trying again.");
    case PlaybackError::PrivateKeyExpired:
        return QT_TRANSLATE_NOOP("orrin::PlaybackError", "The private key has expired.");
    case PlaybackError::NotPermitted:
        return QT_TRANSLATE_NOOP("orrin::PlaybackError", "The server does not permit this stream.");
    case PlaybackError::BeyondEnd:
        return QT_TRANSLATE_NOOP("orrin::PlaybackError", "Beyond the end of the recording.");
    case PlaybackError::NotFound:
        return QT_TRANSLATE_NOOP("orrin::PlaybackError", "The server has no such stream.");
    case PlaybackError::Unsupported:
        return QT_TRANSLATE_NOOP("orrin::PlaybackError", "This kind of stream cannot be played.");
    case PlaybackError::Corrupt:
        return QT_TRANSLATE_NOOP("orrin::PlaybackError", "The stream cannot be decoded.");
    case PlaybackError::UntrustedKey:
        return QT_TRANSLATE_NOOP("orrin::PlaybackError", "The server shows another key than the one that is trusted.");
    default:
        return QT_TRANSLATE_NOOP("orrin::PlaybackError", "The stream failed.");
    }
}

} // namespace

QString PlaybackError::formattedHTMLString() const
{
    const char *source = textOf(errorCode());
    const QString text = *source ? QCoreApplication::translate("orrin::PlaybackError", source) : QString();
    if (m_detail.isEmpty())
        return text.toHtmlEscaped();
    if (text.isEmpty())
        return m_detail.toHtmlEscaped();
    return text.toHtmlEscaped() + QStringLiteral("<br/>") + m_detail.toHtmlEscaped();
}

} // namespace orrin
