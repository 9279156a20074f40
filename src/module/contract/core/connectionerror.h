// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/errorinterface.h>

#include <QCoreApplication>
#include <QMetaType>

namespace orrin {

/*! Why a connection that stood was lost. A value. */
class Q_DECL_EXPORT ConnectionError : public ErrorInterface
{
public:
    enum Code : int { NoError = 0, ConnectionLost = 1, TimedOut = 2, ProtocolError = 3, KeyChanged = 4, NotAuthorised = 5 };

    ConnectionError() = default;
    explicit ConnectionError(int code, const QString &detail = {}) : m_code(code), m_detail(detail) {}

    QString toString() const override
    {
        const char *text = QT_TRANSLATE_NOOP("orrin::ConnectionError", "No error");
        switch (m_code) {
        case NoError: break;
        case ConnectionLost: text = QT_TRANSLATE_NOOP("orrin::ConnectionError", "Connection lost"); break;
        case TimedOut: text = QT_TRANSLATE_NOOP("orrin::ConnectionError", "The server does not answer"); break;
        case ProtocolError: text = QT_TRANSLATE_NOOP("orrin::ConnectionError", "The server's answer could not be read"); break;
        case KeyChanged: text = QT_TRANSLATE_NOOP("orrin::ConnectionError", "Server's public key has changed"); break;
        case NotAuthorised: text = QT_TRANSLATE_NOOP("orrin::ConnectionError", "The server refused the user"); break;
        default: text = QT_TRANSLATE_NOOP("orrin::ConnectionError", "Unknown error"); break;
        }
        const QString translated = QCoreApplication::translate("orrin::ConnectionError", text);
        return m_detail.isEmpty() ? translated : translated + QLatin1String(": ") + m_detail;
    }
    int errorId() const override { return m_code; }
    void reset() override
    {
        m_code = NoError;
        m_detail.clear();
    }
    bool hasError() const override { return m_code != NoError; }

private:
    int m_code = NoError;
    QString m_detail;
};

} // namespace orrin

Q_DECLARE_METATYPE(orrin::ConnectionError)
