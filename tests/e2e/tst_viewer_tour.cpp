// SPDX-License-Identifier: GPL-3.0-or-later
#include "demoserverprocess.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace orrin::test;
using namespace Qt::StringLiterals;

/*! The application as it is started, on its way through all pages. */
class tst_viewer_tour : public QObject
{
    Q_OBJECT

private:
    /*! The exit status, -1 when it did not end. */
    int run(const QStringList &arguments, const QString &password)
    {
        QProcess viewer;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"ORRIN_PASSWORD"_s, password);
        for (const QString &name : {u"HOME"_s, u"XDG_CONFIG_HOME"_s, u"XDG_DATA_HOME"_s, u"XDG_CACHE_HOME"_s})
            environment.insert(name, m_home.path());
        viewer.setProcessEnvironment(environment);
        viewer.setProcessChannelMode(QProcess::MergedChannels);
        viewer.start(QStringLiteral(ORRIN_VIEWER), arguments);
        const bool ended = viewer.waitForFinished(240000);
        m_output = QString::fromUtf8(viewer.readAll());
        return ended && viewer.exitStatus() == QProcess::NormalExit ? viewer.exitCode() : -1;
    }

    DemoServerProcess m_server;
    QTemporaryDir m_home;
    QString m_output;

private Q_SLOTS:
    void initTestCase() { QVERIFY2(m_server.start(), qPrintable(m_server.errorText())); }

    void tour_leavesAPictureOfEachPage_withoutAWarning()
    {
        QTemporaryDir folder;
        const int status = run({u"--server"_s, u"127.0.0.1:%1"_s.arg(m_server.port()), u"--user"_s, u"admin"_s, u"--headless"_s,
                                folder.path()},
                               u"orrin-admin"_s);
        QVERIFY2(status == 0, qPrintable(m_output));
        const QStringList pages = QDir(folder.path()).entryList({u"[0-9][0-9]-*.png"_s}, QDir::Files, QDir::Name);
        QStringList names;
        for (const QString &page : pages)
            names.append(page.mid(3).chopped(4));
        QCOMPARE(names, (QStringList{u"login"_s, u"live"_s, u"single"_s, u"digital-zoom"_s, u"ptz"_s, u"playback"_s, u"scrub"_s,
                                     u"time-jump"_s, u"events"_s, u"statistics"_s, u"settings"_s, u"keys"_s, u"snapshot"_s}));
        // One is the picture of the snapshot itself.
        QCOMPARE(QDir(folder.path()).entryList({u"screenshot-*.jpeg"_s}, QDir::Files).size(), 1);
        QFile summary(folder.filePath(u"summary.txt"_s));
        QVERIFY(summary.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(summary.readAll());
        QVERIFY2(!text.contains(u"warning"_s), qPrintable(text));
        const QImage single(folder.filePath(u"03-single.png"_s));
        QCOMPARE(single.size(), QSize(1280, 800));
    }

    void version_isPrinted()
    {
        QCOMPARE(run({u"--version"_s}, {}), 0);
        QVERIFY2(m_output.contains(u"Orrin Viewer"_s) || m_output.contains(u"orrin-viewer"_s), qPrintable(m_output));
    }

    void wrongArgument_endsWithStatus()
    {
        QVERIFY(run({u"--no-such-option"_s}, {}) > 0);
        QVERIFY(m_output.contains(u"no-such-option"_s));
    }
};

QTEST_GUILESS_MAIN(tst_viewer_tour)
#include "tst_viewer_tour.moc"
