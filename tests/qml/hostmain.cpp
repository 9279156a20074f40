// SPDX-License-Identifier: GPL-3.0-or-later
#include "hostsite.h"

#include <hosttypes.h>

#include <module/orrinsdkqml.h>
#include <support/qmlsettings.h>
#include <support/qmltimetools.h>

#include <QApplication>
#include <QFile>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickStyle>
#include <QTemporaryDir>
#include <QtQuickTest>

#include <memory>

using namespace Qt::StringLiterals;

#ifdef ORRIN_TEST_VIEWER
// Named here, so that the linker keeps the library of the viewer's pages.
void qml_register_types_OrrinViewer();
static void (*const volatile viewerTypes)() = &qml_register_types_OrrinViewer;
#endif

/*! A host that does all of its part: the types and context objects that components take from it, with real models behind. */
class WholeHost : public QObject
{
    Q_OBJECT

public:
    explicit WholeHost(bool isDeveloper) : m_isDeveloper(isDeveloper)
    {
#ifdef ORRIN_TEST_VIEWER
        Q_ASSERT(viewerTypes);
#endif
        registerHostTypes();
        m_settings = std::make_unique<orrin::QmlSettings>();
    }

public Q_SLOTS:
    void qmlEngineAvailable(QQmlEngine *engine)
    {
        QQmlContext *context = engine->rootContext();
        orrin::initQmlContext(context);
        context->setContextProperty(u"settings"_s, m_settings.get());
        context->setContextProperty(u"timeTools"_s, &m_timeTools);
        context->setContextProperty(u"site"_s, &m_site);
        context->setContextProperty(u"devMode"_s, m_isDeveloper);
        context->setContextProperty(u"logDir"_s, u"/var/log/somewhere"_s);
        // Tells a test that the application was to quit, and goes on.
        disconnect(engine, &QQmlEngine::quit, nullptr, nullptr);
        connect(engine, &QQmlEngine::quit, &m_site, &HostSite::countQuit);
    }

private:
    const bool m_isDeveloper;
    HostSite m_site; // the root object, ahead of the settings that belong to it
    orrin::QmlTimeTools m_timeTools;
    std::unique_ptr<orrin::QmlSettings> m_settings;
};

int main(int argc, char *argv[])
{
    QTemporaryDir home;
    for (const char *name : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
        qputenv(name, QFile::encodeName(home.path()));
    // The charts of the module need QApplication.
    QApplication application(argc, argv);
    QApplication::setOrganizationName(u"Orrinworks"_s);
    QApplication::setApplicationName(u"orrin-quick-host-tests"_s);
    QQuickStyle::setStyle(u"Material"_s);

    WholeHost host(qEnvironmentVariableIntValue("ORRIN_TEST_DEVELOPER") == 1);
    return quick_test_main_with_setup(argc, argv, "qml", nullptr, &host);
}

#include "hostmain.moc"
