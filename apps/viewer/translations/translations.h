// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLocale>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

class QTranslator;

/*! The texts of the application in the language of its user. Outlives the engine; belongs to the main thread. */
class Translations
{
public:
    Translations();
    /*! Takes the texts away again; the locale stays. */
    ~Translations();
    Q_DISABLE_COPY_MOVE(Translations)

    /*! The codes of the languages that there are texts in, such as "de", in order. */
    static QStringList languages();

    /*!
        The locale that \a code stands for, such as "de" or "de_AT". Without a country, it is the system's own where that is of the
        language. Nothing for a code that means no language, or one without texts.
    */
    static std::optional<QLocale> localeOf(const QString &code);

    /*!
        Installs the texts in the language that \a code asks for, Qt's own among them, and makes its locale that of dates and numbers.
        An empty code, or one that localeOf() does not know, asks for what the system is set to. What has no text there stays English.
    */
    void install(const QString &code);

private:
    bool add(std::unique_ptr<QTranslator> translator, bool isLoaded);

    std::vector<std::unique_ptr<QTranslator>> m_translators;
};
