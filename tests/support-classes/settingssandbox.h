// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <QVariant>

namespace orrin {

/*! A settings folder of one test, and the root object of the core library with its names; both end with it. */
class SettingsSandbox
{
public:
    SettingsSandbox();
    ~SettingsSandbox();
    SettingsSandbox(const SettingsSandbox &) = delete;
    SettingsSandbox &operator=(const SettingsSandbox &) = delete;

    static QString organisation();
    static QString application();

    /*! The configuration folder. */
    QString path() const { return m_dir.path(); }
    QString fileName() const;

    bool exists() const;
    void remove() const;
    QByteArray bytes() const;
    void write(const QByteArray &bytes) const;
    /*! What the file holds under \a key; read from a copy, so that nothing is shared with the code under test. */
    QVariant stored(const QString &key) const;
    QStringList storedKeys() const;

    /*! Ends the root object, so that settings destroyed afterwards write nothing, as in a crash. */
    static void forgetRootObject();
    static void initRootObject();

private:
    QTemporaryDir m_dir;
};

/*! the 69 keys of a file, in the order of the properties. */
QStringList settingsKeys();

} // namespace orrin
