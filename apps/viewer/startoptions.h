// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QSize>
#include <QString>
#include <QtQml/qqmlregistration.h>

/*! What the viewer was asked for at its start: the command line, and the password from the environment. */
class StartOptions : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the application")
    Q_PROPERTY(QString server READ server CONSTANT FINAL)
    Q_PROPERTY(QString user READ user CONSTANT FINAL)
    /*! The name of the saved layout to begin with. */
    Q_PROPERTY(QString layout READ layout CONSTANT FINAL)
    /*! Of the window; empty where nothing was asked for. */
    Q_PROPERTY(QSize size READ size CONSTANT FINAL)
    Q_PROPERTY(bool fullscreen READ isFullscreen CONSTANT FINAL)
    Q_PROPERTY(bool headless READ isHeadless CONSTANT FINAL)
    Q_PROPERTY(bool developer READ isDeveloper CONSTANT FINAL)

public:
    explicit StartOptions(QObject *parent = nullptr);

    /*! The language that \a arguments ask for, empty without one. It has to be known before the first text is. */
    static QString language(const QStringList &arguments);

    /*! Reads the arguments of the application. Ends the process after --help, --version and wrong arguments. */
    void parse();

    QString server() const { return m_server; }
    QString user() const { return m_user; }
    QString layout() const { return m_layout; }
    QSize size() const { return m_size; }
    bool isFullscreen() const { return m_fullscreen; }
    bool isHeadless() const { return !m_screenshots.isEmpty(); }
    bool isDeveloper() const { return m_developer; }
    QString screenshots() const { return m_screenshots; }

    /*! The password from the variable ORRIN_PASSWORD, once: the second call gives an empty text. */
    Q_INVOKABLE QString takePassword();

private:
    QString m_server;
    QString m_user;
    QString m_password;
    QString m_screenshots;
    QString m_layout;
    QSize m_size;
    bool m_fullscreen = false;
    bool m_developer = false;
};
