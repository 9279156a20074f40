// SPDX-License-Identifier: GPL-3.0-or-later
#include "startoptions.h"
#include "timeline/timelinescale.h"
#include "translations/translations.h"

#include <contract/core/loginerror.h>

#include <QDir>
#include <QFile>
#include <QLocale>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QTimeZone>
#include <QXmlStreamReader>

using namespace Qt::StringLiterals;

namespace {

struct Message
{
    QString context;
    QString source;
    QString comment;
    QString state; // "unfinished", "vanished" or "obsolete"; empty for a finished one
    QStringList translations;

    QString key() const { return context + u'|' + source + u'|' + comment; }
};

Message readMessage(QXmlStreamReader &xml, const QString &context)
{
    Message message;
    message.context = context;
    while (xml.readNextStartElement()) {
        if (xml.name() == "source"_L1) {
            message.source = xml.readElementText();
        } else if (xml.name() == "comment"_L1) {
            message.comment = xml.readElementText();
        } else if (xml.name() == "translation"_L1) {
            message.state = xml.attributes().value("type"_L1).toString();
            QString text;
            for (xml.readNext(); !xml.isEndElement() && !xml.atEnd(); xml.readNext()) {
                if (xml.isStartElement())
                    message.translations.append(xml.readElementText());
                else if (xml.isCharacters())
                    text += xml.text();
            }
            if (message.translations.isEmpty())
                message.translations.append(text);
        } else {
            xml.skipCurrentElement();
        }
    }
    return message;
}

/*! All messages of a file; nothing when it cannot be read to its end. */
QList<Message> readFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QXmlStreamReader xml(&file);
    QList<Message> messages;
    QString context;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == "name"_L1)
            context = xml.readElementText();
        else if (xml.name() == "message"_L1)
            messages.append(readMessage(xml, context));
    }
    return xml.hasError() ? QList<Message>() : messages;
}

QString fileOf(const QString &language, const QString &folder = QStringLiteral(ORRIN_TRANSLATIONS))
{
    return folder + u"/orrin_viewer_%1.ts"_s.arg(language);
}

/*! What has to stay in a translation: places for values, and markup. In the order of the alphabet: words change places. */
QStringList fixedParts(const QString &text)
{
    static const QRegularExpression part(u"%(?:L?\\d+|n)|</?[a-zA-Z][^>]*>|\\n"_s);
    QStringList parts;
    for (const QRegularExpressionMatch &match : part.globalMatch(text))
        parts.append(match.captured());
    parts.sort();
    return parts;
}

/*! What a text begins and ends with where it is joined to another: blanks, and the colon before a value. */
QString edges(const QString &text)
{
    static const QRegularExpression edge(u"^(\\s*).*?([:\\s]*)$"_s, QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch match = edge.match(text);
    return match.captured(1) + u'|' + match.captured(2);
}

QString count(const char *context, const char *text, int n)
{
    return QCoreApplication::translate(context, text, nullptr, n);
}

} // namespace

class tst_Translations : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_before = QLocale(); }
    void cleanup() { QLocale::setDefault(m_before); }

    void files_areComplete_data()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<qsizetype>("fewest");
        QTest::newRow("German") << u"de"_s << qsizetype(400);
        QTest::newRow("English plural forms") << u"en"_s << qsizetype(2);
    }
    void files_areComplete()
    {
        QFETCH(const QString, language);
        QFETCH(const qsizetype, fewest);
        const QList<Message> messages = readFile(fileOf(language));
        QCOMPARE_GE(messages.size(), fewest);
        for (const Message &message : messages) {
            QVERIFY2(message.state.isEmpty(), qPrintable(message.state + u": "_s + message.key()));
            for (const QString &translation : message.translations)
                QVERIFY2(!translation.trimmed().isEmpty(), qPrintable(message.key()));
            const bool isCounted = message.source.contains("%n"_L1);
            QVERIFY2(message.translations.size() == (isCounted ? 2 : 1), qPrintable(message.key()));
            QVERIFY2(isCounted || language != "en"_L1, qPrintable(message.key()));
        }
    }

    void translations_keepPlaceholdersAndMarkup_data() { files_areComplete_data(); }
    void translations_keepPlaceholdersAndMarkup()
    {
        QFETCH(const QString, language);
        for (const Message &message : readFile(fileOf(language))) {
            for (const QString &translation : message.translations) {
                QVERIFY2(fixedParts(translation) == fixedParts(message.source), qPrintable(message.key() + u": "_s + translation));
                QVERIFY2(edges(translation) == edges(message.source), qPrintable(message.key() + u": "_s + translation));
            }
        }
    }

    void files_holdEveryTextOfTheSources_whenTheSourcesAreReadAnew()
    {
        const QTemporaryDir folder;
        QVERIFY(folder.isValid());
        const QStringList languages = {u"de"_s, u"en"_s};
        for (const QString &language : languages)
            QVERIFY(QFile::copy(fileOf(language), fileOf(language, folder.path())));
        QProcess script;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"LUPDATE"_s, QStringLiteral(ORRIN_LUPDATE));
        script.setProcessEnvironment(environment);
        script.start(QStringLiteral(ORRIN_TRANSLATE), {folder.path()});
        QVERIFY2(script.waitForFinished(60000), qPrintable(script.errorString()));
        QVERIFY2(script.exitStatus() == QProcess::NormalExit && script.exitCode() == 0, script.readAllStandardError().constData());

        for (const QString &language : languages) {
            QStringList held;
            for (const Message &message : readFile(fileOf(language)))
                held.append(message.key());
            QStringList wanted;
            QStringList lacking;
            for (const Message &message : readFile(fileOf(language, folder.path()))) {
                wanted.append(message.key());
                if (!message.state.isEmpty())
                    lacking.append(message.key());
            }
            QVERIFY2(lacking.isEmpty(), qPrintable(u"scripts/translate finds texts without translation: "_s + lacking.join(u"; "_s)));
            held.sort();
            wanted.sort();
            QCOMPARE(held, wanted);
        }
    }

    void texts_areGerman_whenGermanIsAskedFor()
    {
        Translations translations;
        translations.install(u"de"_s);
        QCOMPARE(QLocale().language(), QLocale::German);
        QCOMPARE(QCoreApplication::translate("LoginPage", "Log in"), u"Anmelden"_s);
        QCOMPARE(QCoreApplication::translate("TransportBar", "Snapshot"), u"Schnappschuss"_s);
        QCOMPARE(QCoreApplication::translate("Shell", "Zones"), u"Zonen"_s);
        QCOMPARE(QCoreApplication::translate("orrin::QmlServerModel", "Buid version"), u"Build-Version"_s);
        QCOMPARE(QCoreApplication::translate("orrin::EventTopic", "Motion ended"), u"Bewegung beendet"_s);
        orrin::LoginError error;
        error.error = orrin::LoginError::BadLogin;
        error.server = u"gate"_s;
        error.port = 8601;
        QCOMPARE(error.toString(), u"Benutzername oder Passwort ungültig. Server: gate, Port: 8601"_s);
        // Qt's own dialogs and buttons.
        QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Cancel"), u"Abbrechen"_s);
    }

    void moments_areGerman_whenGermanIsAskedFor()
    {
        Translations translations;
        translations.install(u"de_DE"_s);
        TimelineScale scale;
        scale.setZone(QTimeZone(QTimeZone::UTC));
        const QDateTime moment(QDate(2026, 3, 6), QTime(14, 5, 9), QTimeZone::UTC);
        QCOMPARE(scale.text(moment.toMSecsSinceEpoch()), u"Fr., 6. März 2026  14:05:09"_s);
    }

    void plurals_fitTheNumber_data()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<int>("number");
        QTest::addColumn<QString>("cameras");
        QTest::addColumn<QString>("events");
        QTest::newRow("German 0") << u"de"_s << 0 << u"0 Kameras"_s << u"0 Ereignisse"_s;
        QTest::newRow("German 1") << u"de"_s << 1 << u"1 Kamera"_s << u"1 Ereignis"_s;
        QTest::newRow("German 2") << u"de"_s << 2 << u"2 Kameras"_s << u"2 Ereignisse"_s;
        QTest::newRow("English 0") << u"en"_s << 0 << u"0 cameras"_s << u"0 events"_s;
        QTest::newRow("English 1") << u"en"_s << 1 << u"1 camera"_s << u"1 event"_s;
        QTest::newRow("English 2") << u"en"_s << 2 << u"2 cameras"_s << u"2 events"_s;
        QTest::newRow("nothing asked for 1") << u""_s << 1 << u"1 camera"_s << u"1 event"_s;
        QTest::newRow("unknown 1") << u"fr"_s << 1 << u"1 camera"_s << u"1 event"_s;
    }
    void plurals_fitTheNumber()
    {
        QFETCH(const QString, language);
        QFETCH(const int, number);
        Translations translations;
        translations.install(language);
        QTEST(count("LivePage", "%n cameras", number), "cameras");
        QTEST(count("EventsPage", "%n events", number), "events");
    }

    void texts_areEnglishAgain_whenTheTranslationsEnd()
    {
        {
            Translations translations;
            translations.install(u"de"_s);
            QCOMPARE(QCoreApplication::translate("LoginPage", "Log in"), u"Anmelden"_s);
        }
        QCOMPARE(QCoreApplication::translate("LoginPage", "Log in"), u"Log in"_s);
    }

    void localeOf_takesLanguagesWithTexts_only()
    {
        QCOMPARE(Translations::languages(), (QStringList{u"de"_s, u"en"_s}));
        QCOMPARE(Translations::localeOf(u"de"_s)->language(), QLocale::German);
        QCOMPARE(Translations::localeOf(u"de_AT"_s)->territory(), QLocale::Austria);
        QCOMPARE(Translations::localeOf(u"de-CH"_s)->territory(), QLocale::Switzerland);
        QCOMPARE(Translations::localeOf(u"en"_s)->language(), QLocale::English);
        for (const QString &code : {u""_s, u"fr"_s, u"xx"_s, u"C"_s, u"../de"_s, u"Deutsch"_s, QString(100000, u'd')})
            QVERIFY2(!Translations::localeOf(code), qPrintable(code.left(20)));
    }

    void language_isReadBesideOtherArguments()
    {
        QCOMPARE(StartOptions::language({u"viewer"_s}), QString());
        QCOMPARE(StartOptions::language({u"viewer"_s, u"--server"_s, u"host"_s, u"--language"_s, u"de"_s, u"--fullscreen"_s}), u"de"_s);
        QCOMPARE(StartOptions::language({u"viewer"_s, u"--language=de_AT"_s}), u"de_AT"_s);
    }

private:
    QLocale m_before;
};

QTEST_GUILESS_MAIN(tst_Translations)
#include "tst_translations.moc"
