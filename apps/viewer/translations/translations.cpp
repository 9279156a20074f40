// SPDX-License-Identifier: GPL-3.0-or-later
#include "translations/translations.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QTranslator>

using namespace Qt::StringLiterals;

namespace {

constexpr auto Folder = ":/i18n"_L1;
constexpr auto Prefix = "orrin_viewer_"_L1;

} // namespace

Translations::Translations() = default;

Translations::~Translations()
{
    for (const auto &translator : m_translators)
        QCoreApplication::removeTranslator(translator.get());
}

QStringList Translations::languages()
{
    QStringList codes;
    for (const QString &file : QDir(Folder).entryList({Prefix + "*.qm"_L1}, QDir::Files, QDir::Name))
        codes.append(file.sliced(Prefix.size()).chopped(3));
    return codes;
}

std::optional<QLocale> Translations::localeOf(const QString &code)
{
    const QLocale locale(code);
    if (locale.language() == QLocale::C || !languages().contains(QLocale::languageToCode(locale.language())))
        return std::nullopt;
    const bool namesCountry = code.contains(u'_') || code.contains(u'-');
    const QLocale system = QLocale::system();
    return !namesCountry && system.language() == locale.language() ? system : locale;
}

void Translations::install(const QString &code)
{
    QLocale locale = QLocale::system();
    if (const std::optional<QLocale> asked = localeOf(code)) {
        locale = *asked;
        QLocale::setDefault(locale);
    }
    // English is in the sources but for its plural forms, so it lies below every language.
    auto english = std::make_unique<QTranslator>();
    const bool hasEnglish = english->load(Prefix + "en"_L1, Folder);
    add(std::move(english), hasEnglish);

    auto texts = std::make_unique<QTranslator>();
    const bool hasTexts = texts->load(locale, Prefix.chopped(1), u"_"_s, Folder);
    const QString language = texts->language();
    if (!add(std::move(texts), hasTexts))
        return;
    for (const QLatin1StringView catalogue : {"qtbase_"_L1, "qtdeclarative_"_L1}) {
        auto qt = std::make_unique<QTranslator>();
        const bool isThere = qt->load(catalogue + language, QLibraryInfo::path(QLibraryInfo::TranslationsPath));
        add(std::move(qt), isThere);
    }
}

bool Translations::add(std::unique_ptr<QTranslator> translator, bool isLoaded)
{
    if (!isLoaded || !QCoreApplication::installTranslator(translator.get()))
        return false;
    m_translators.push_back(std::move(translator));
    return true;
}
