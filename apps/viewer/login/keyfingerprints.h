// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

/*! The keys behind the last login that a changed public key stopped, as people compare them: the SHA-256 of the key's DER form, in
    pairs of hexadecimal digits. Empty before that. GUI thread. */
class KeyFingerprints : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString trusted READ trusted NOTIFY changed FINAL)
    Q_PROPERTY(QString shown READ shown NOTIFY changed FINAL)

public:
    explicit KeyFingerprints(QObject *parent = nullptr);

    /*! Of the key that was trusted so far. */
    QString trusted() const { return m_trusted; }
    /*! Of the key that the server showed. */
    QString shown() const { return m_shown; }

    /*! Four lines of eight pairs; empty for no key. */
    static QString fingerprint(const QByteArray &derKey);

Q_SIGNALS:
    void changed();

private:
    QString m_trusted;
    QString m_shown;
};
