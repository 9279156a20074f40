// SPDX-License-Identifier: GPL-3.0-or-later
#include "hosttypes.h"
#include "startoptions.h"
#include "tour.h"
#include "translations/translations.h"

#include <module/orrinsdkqml.h>
#include <support/qmlsettings.h>
#include <support/qmltimetools.h>

#include <contract/core/orrinsdk.h>
#include <contract/util/logdir.h>
#include <contract/util/logmanager.h>
#include <contract/util/messagelog.h>
#include <contract/util/olog.h>

#include <QApplication>
#include <QFont>
#include <QQmlApplicationEngine>
#include <QQmlContext>
#include <QQuickStyle>
#include <QQuickWindow>

#include <cstdio>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

/*! The last 500 lines stay in memory; all go to a file of bounded size in the user's folder for logs. */
void openLog()
{
    using namespace orrin;
    const auto messages = QSharedPointer<olog::MessageLog>::create();
    messages->setSize(500);
    olog::LogManager::instance()->addLogDevice(messages);
    olog::setMaxFileSize(31'457'280);
    olog::setFileDevicePath(logDir());
}

} // namespace

int main(int argc, char *argv[])
{
    // The charts of the module need QApplication.
    QApplication application(argc, argv);
    QApplication::setOrganizationName(u"Orrinworks"_s);
    QApplication::setApplicationName(u"orrin-viewer"_s);
    QApplication::setApplicationDisplayName(u"Orrin Viewer"_s);
    QApplication::setApplicationVersion(QStringLiteral(ORRIN_VIEWER_VERSION));
    QApplication::setDesktopFileName(u"org.orrinworks.Viewer"_s);
    QQuickStyle::setStyle(u"Material"_s);
    // Legible from where operators sit.
    QFont font = QApplication::font();
    font.setPixelSize(15);
    QApplication::setFont(font);

    Translations translations;
    translations.install(StartOptions::language(QApplication::arguments()));
    StartOptions options;
    options.parse();

    orrin::OrrinSDK::initInstance(QApplication::organizationName(), QApplication::applicationName(), nullptr,
                                  u"orrin-viewer.log"_s);
    openLog();
    int status = 1;
    {
        registerHostTypes();
        orrin::QmlSettings settings;
        orrin::QmlTimeTools timeTools;
        QQmlApplicationEngine engine;
        orrin::initQmlContext(engine.rootContext());
        engine.rootContext()->setContextProperty(u"settings"_s, &settings);
        engine.rootContext()->setContextProperty(u"timeTools"_s, &timeTools);
        engine.rootContext()->setContextProperty(u"devMode"_s, options.isDeveloper());
        engine.rootContext()->setContextProperty(u"logDir"_s, orrin::logDir());

        std::unique_ptr<Tour> tour;
        QStringList warnings;
        QObject::connect(&engine, &QQmlEngine::warnings, &application, [&tour, &warnings](const QList<QQmlError> &errors) {
            for (const QQmlError &error : errors) {
                if (tour)
                    tour->addWarning(error.toString());
                else
                    warnings.append(error.toString());
            }
        });
        engine.setInitialProperties({{u"options"_s, QVariant::fromValue(&options)}});
        engine.loadFromModule("OrrinViewer", "Main");
        auto *window = engine.rootObjects().isEmpty() ? nullptr : qobject_cast<QQuickWindow *>(engine.rootObjects().constFirst());
        if (!window)
            return 1;
        if (options.isHeadless()) {
            tour = std::make_unique<Tour>(window, options.screenshots());
            for (const QString &warning : std::as_const(warnings))
                tour->addWarning(warning);
        }
        status = QApplication::exec();
    }
    orrin::OrrinSDK::shutdown();
    return status;
}
