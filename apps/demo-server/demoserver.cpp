// SPDX-License-Identifier: GPL-3.0-or-later
#include "demoserver.h"

#include "site/scopes.h"

#include <QJsonArray>
#include <QUuid>

namespace orrin::demo {

using namespace Qt::StringLiterals;

DemoServer::DemoServer(const Options &options)
    : m_options(options)
    , m_site(options.site())
    , m_accounts(std::make_shared<Accounts>(m_site.users, options.lockAfter, options.lockTime))
{
    const auto portOf = [this](int id) -> quint16 {
        const Recorder *peer = recorder(QString::number(id));
        return peer ? peer->httpPort() : 0;
    };
    for (qsizetype index = 0; index < m_site.recorders.size(); ++index)
        m_recorders.push_back(
            std::make_unique<Recorder>(m_site, index, options, m_accounts, m_thread, portOf));
}

DemoServer::~DemoServer() = default;

bool DemoServer::start(QString *error)
{
    for (const auto &recorder : m_recorders) {
        if (!recorder->start(error))
            return false;
    }
    if (m_options.discoveryPort)
        startDiscovery();
    return true;
}

void DemoServer::startDiscovery()
{
    auto service = std::make_unique<DiscoveryService>(
        DiscoverySettings{QHostAddress(m_options.address), *m_options.discoveryPort}, [this] {
            QList<DiscoverableDevice> devices;
            for (const auto &recorder : m_recorders)
                devices.append(discoverable(*recorder));
            return devices;
        });
    QString error;
    if (!service->start(&error)) {
        qWarning("The recorders cannot be found by clients: %s", qUtf8Printable(error));
        return;
    }
    m_discovery = std::move(service);
    for (const auto &recorder : m_recorders) {
        connect(recorder.get(), &Recorder::opened, this,
                [this, each = recorder.get()] { m_discovery->sendHello(discoverable(*each)); });
        connect(recorder.get(), &Recorder::closing, this,
                [this, each = recorder.get()] { m_discovery->sendBye(discoverable(*each)); });
    }
}

DiscoverableDevice DemoServer::discoverable(Recorder &recorder)
{
    // Servers that run beside each other on one machine are different devices.
    const QByteArray identity = QByteArray::number(recorder.info().uid) + ':' + QByteArray::number(recorder.httpPort());
    return {QUuid::createUuidV5(QUuid(), identity).toString(QUuid::WithoutBraces), scopesOf(recorder.info()),
            recorder.httpPort()};
}

Recorder *DemoServer::recorder(const QString &idOrName)
{
    for (const auto &recorder : m_recorders) {
        if (QString::number(recorder->info().id) == idOrName ||
            recorder->info().name.compare(idOrName, Qt::CaseInsensitive) == 0)
            return recorder.get();
    }
    return nullptr;
}

QJsonObject DemoServer::readyMessage() const
{
    QJsonArray array;
    for (const auto &recorder : m_recorders) {
        array.append(
            QJsonObject{{u"id"_s, recorder->info().id},
                        {u"name"_s, recorder->info().name},
                        {u"port"_s, recorder->httpPort()},
                        {u"rtspPort"_s, recorder->rtsp().port()},
                        {u"publicKeySha256"_s, QString::fromLatin1(recorder->publicKeySha256().toHex())}});
    }
    return {{u"ready"_s, true}, {u"recorders"_s, array}, {u"discoveryPort"_s, discoveryPort()}};
}

} // namespace orrin::demo
