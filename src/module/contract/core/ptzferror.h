// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/errorinterface.h>

#include <QCoreApplication>
#include <QMetaType>

namespace orrin {

/*! Why a camera did not do what it was told. A value. */
class Q_DECL_EXPORT PtzfError : public ErrorInterface
{
public:
    enum Code : int {
        NoError = 0,
        NotConnected = 1, //!< there is no connection to the server
        NotPermitted = 2, //!< the server refuses this user
        NotSupported = 3, //!< the camera can't do it
        NoSuchPreset = 4,
        NoSuchTour = 5,
        NoAnswer = 6, //!< the camera does not answer
        Refused = 7,  //!< the camera gave another reason, see the detail
        Busy = 8,     //!< too much was asked that is not done yet
    };

    PtzfError() = default;
    /*! \a detail is what the device said; it is shown behind the code's text, as plain text. */
    explicit PtzfError(int code, const QString &detail = {}) : m_code(code), m_detail(detail) {}

    QString toString() const override
    {
        const char *text = QT_TRANSLATE_NOOP("orrin::PtzfError", "Unknown error");
        switch (m_code) {
        case NoError: text = QT_TRANSLATE_NOOP("orrin::PtzfError", "No error"); break;
        case NotConnected: text = QT_TRANSLATE_NOOP("orrin::PtzfError", "The camera can't be reached"); break;
        case NotPermitted: text = QT_TRANSLATE_NOOP("orrin::PtzfError", "You are not permitted to move this camera"); break;
        case NotSupported: text = QT_TRANSLATE_NOOP("orrin::PtzfError", "The camera doesn't support this"); break;
        case NoSuchPreset: text = QT_TRANSLATE_NOOP("orrin::PtzfError", "The camera has no such preset"); break;
        case NoSuchTour: text = QT_TRANSLATE_NOOP("orrin::PtzfError", "The camera has no such tour"); break;
        case NoAnswer: text = QT_TRANSLATE_NOOP("orrin::PtzfError", "The camera does not answer"); break;
        case Refused: text = QT_TRANSLATE_NOOP("orrin::PtzfError", "The camera refused the command"); break;
        case Busy: text = QT_TRANSLATE_NOOP("orrin::PtzfError", "The camera is busy"); break;
        }
        const QString translated = QCoreApplication::translate("orrin::PtzfError", text);
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

Q_DECLARE_METATYPE(orrin::PtzfError)
