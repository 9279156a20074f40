// SPDX-License-Identifier: GPL-3.0-or-later
#include <module/orrinsdkqml.h>
#include <support/qmlsettings.h>
#include <QApplication>
#include <QQmlApplicationEngine>
#include <QQmlContext>

int main(int argc, char *argv[]) // tile HOST:PORT USER; the password is in TILE_PASSWORD
{
    QApplication application(argc, argv);
    orrin::QmlSettings settings;
    QQmlApplicationEngine engine;
    orrin::initQmlContext(engine.rootContext());
    engine.rootContext()->setContextProperty("settings", &settings);
    engine.setInitialProperties({{"server", application.arguments().value(1)}, {"user", application.arguments().value(2)},
                                 {"password", qEnvironmentVariable("TILE_PASSWORD")}});
    engine.load(QUrl("qrc:/Tile.qml"));
    return QApplication::exec();
}
