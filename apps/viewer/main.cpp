// SPDX-License-Identifier: GPL-3.0-or-later
#include "startoptions.h"
#include "tour.h"

#include <module/orrinsdkqml.h>
#include <support/qmlsettings.h>

#include <contract/core/orrinsdk.h>

#include <QApplication>
#include <QQmlApplicationEngine>
#include <QQmlContext>
#include <QQuickStyle>
#include <QQuickWindow>

#include <cstdio>
#include <memory>

using namespace Qt::StringLiterals;

int main(int argc, char *argv[])
{
    // The charts of the module need QApplication.
    QApplication application(argc, argv);
    QApplication::setOrganizationName(u"Orrinworks"_s);
    QApplication::setApplicationName(u"orrin-viewer"_s);
    QApplication::setApplicationDisplayName(u"Orrin Viewer"_s);
    QApplication::setApplicationVersion(QStringLiteral(ORRIN_VIEWER_VERSION));
    QQuickStyle::setStyle(u"Material"_s);

    StartOptions options;
    options.parse();

    orrin::OrrinSDK::initInstance(QApplication::organizationName(), QApplication::applicationName(), nullptr,
                                  u"orrin-viewer.log"_s);
    int status = 1;
    {
        orrin::QmlSettings settings;
        QQmlApplicationEngine engine;
        orrin::initQmlContext(engine.rootContext());
        engine.rootContext()->setContextProperty(u"settings"_s, &settings);

        std::unique_ptr<Tour> tour;
        int warnings = 0;
        QObject::connect(&engine, &QQmlEngine::warnings, &application, [&tour, &warnings](const QList<QQmlError> &errors) {
            warnings += static_cast<int>(errors.size());
            for (qsizetype i = 0; tour && i < errors.size(); ++i)
                tour->countWarning();
        });
        engine.setInitialProperties({{u"options"_s, QVariant::fromValue(&options)}});
        engine.loadFromModule("OrrinViewer", "Main");
        auto *window = engine.rootObjects().isEmpty() ? nullptr : qobject_cast<QQuickWindow *>(engine.rootObjects().constFirst());
        if (!window)
            return 1;
        if (options.isHeadless()) {
            tour = std::make_unique<Tour>(window, options.screenshots());
            while (warnings-- > 0)
                tour->countWarning();
        }
        status = QApplication::exec();
    }
    orrin::OrrinSDK::shutdown();
    return status;
}
