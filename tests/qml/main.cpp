// SPDX-License-Identifier: GPL-3.0-or-later
#include "hostsettings.h"

#include <contract/core/orrinsdk.h>
#include <support/qmlsettings.h>

#include <QApplication>
#include <QFile>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickStyle>
#include <QTemporaryDir>
#include <QtQuickTest>

#include <memory>

using namespace Qt::StringLiterals;

// Named here, so that the linker keeps the library of the module.
void qml_register_types_orrinsdkqml();

/*! A host that publishes the stand-in for its settings, or what the test asks for: the module's own, or null. */
class Host : public QObject
{
    Q_OBJECT

public:
    explicit Host(const QString &kind)
    {
        if (kind == "own"_L1)
            m_settings = std::make_unique<orrin::QmlSettings>();
        else if (kind != "null"_L1)
            m_settings = std::make_unique<HostSettings>();
    }

public Q_SLOTS:
    void qmlEngineAvailable(QQmlEngine *engine)
    {
        engine->rootContext()->setContextProperty(u"settings"_s, m_settings.get());
    }

private:
    std::unique_ptr<QObject> m_settings;
};

int main(int argc, char *argv[])
{
    // The charts of the module need QApplication.
    QApplication application(argc, argv);
    QQuickStyle::setStyle(u"Material"_s);
    [[maybe_unused]] volatile auto keep = &qml_register_types_orrinsdkqml;

    QTemporaryDir home;
    for (const char *name : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
        qputenv(name, QFile::encodeName(home.path()));
    orrin::OrrinSDK::initInstance(u"Orrinworks"_s, u"orrin-quick-tests"_s, nullptr, u"orrin-quick-tests.log"_s);
    int status = 1;
    {
        Host host(qEnvironmentVariable("ORRIN_TEST_SETTINGS"));
        status = quick_test_main_with_setup(argc, argv, "qml", nullptr, &host);
    }
    orrin::OrrinSDK::shutdown();
    return status;
}

#include "main.moc"
