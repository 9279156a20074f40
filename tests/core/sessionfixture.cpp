// SPDX-License-Identifier: GPL-3.0-or-later
#include "sessionfixture.h"

#include "util/log/logmanager_p.h"

#include <contract/core/orrinsdk.h>
#include <contract/util/logmanager.h>

#include <QDirIterator>
#include <QSettings>
#include <QTest>

namespace orrin::test {

SessionFixture::SessionFixture()
{
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder.path());
    OrrinSDK::initInstance(QStringLiteral("orrin-tests"), QStringLiteral("session"), nullptr,
                           QStringLiteral("test.log"));
    olog::LogManager::instance()->setLogLevel(olog::maxLogLevel());
    olog::setFileDevicePath(folder.path());
}

SessionFixture::~SessionFixture()
{
    if (session)
        session->close();
    session.reset();
    olog::setFileDevicePath(QString());
    OrrinSDK::shutdown();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

OnvifTimings SessionFixture::timings()
{
    using std::chrono::milliseconds;
    OnvifTimings times;
    times.handshake = milliseconds(500);
    times.pollInterval = milliseconds(50);
    times.pollTimeout = milliseconds(300);
    times.changesPause = milliseconds(10);
    times.reconnectFirst = milliseconds(30);
    times.reconnectLongest = milliseconds(200);
    return times;
}

void SessionFixture::open(const QString &target, const QString &password)
{
    const auto credentials = SharedCredentials::create(QStringLiteral("admin"), password);
    session = OnvifConnector(times).createSession(CorvaneUrl(target, 8601), credentials, true, 9);
    described = std::make_unique<QSignalSpy>(session.get(), &Session::described);
    opened = std::make_unique<QSignalSpy>(session.get(), &Session::opened);
    failed = std::make_unique<QSignalSpy>(session.get(), &Session::loginFailed);
    lost = std::make_unique<QSignalSpy>(session.get(), &Session::lost);
    restored = std::make_unique<QSignalSpy>(session.get(), &Session::restored);
    session->open();
}

bool SessionFixture::logIn(const FakeOnvifDevice &device)
{
    open(device.target());
    return QTest::qWaitFor([this] { return !opened->isEmpty() || !failed->isEmpty(); }, 12000) &&
           opened->size() == 1 && described->size() == 1;
}

int SessionFixture::failToLogIn(const QString &target, const QString &password)
{
    open(target, password);
    if (!QTest::qWaitFor([this] { return !opened->isEmpty() || !failed->isEmpty(); }, 12000) ||
        failed->isEmpty())
        return 0;
    return loginError().errorId();
}

SiteDescription SessionFixture::site() const
{
    return described->isEmpty() ? SiteDescription() : described->last().first().value<SiteDescription>();
}

LoginError SessionFixture::loginError() const
{
    return failed->isEmpty() ? LoginError() : failed->last().first().value<LoginError>();
}

QByteArray SessionFixture::everythingWritten() const
{
    olog::flushFileDevice();
    QByteArray all;
    QDirIterator files(folder.path(), QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        if (file.open(QIODevice::ReadOnly))
            all += file.readAll();
    }
    return all;
}

} // namespace orrin::test
