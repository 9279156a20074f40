// SPDX-License-Identifier: GPL-3.0-or-later
#include "page.h"

#include <support/qmlsettings.h>
#include <support/qmltimetools.h>

#include <QApplication>
#include <QMetaProperty>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickItem>
#include <QStandardPaths>
#include <QTest>

#include <memory>

using namespace orrin::test;

// Referenced so that the module is linked.
extern void qml_register_types_orrinsdkqml();
static void (*const volatile registrar)() = &qml_register_types_orrinsdkqml;

namespace {

struct Row
{
    QString name;
    QString type;
    QString access;
};

/*! The rows of property tables by the heading above them, of \a level marks. */
QHash<QString, QList<Row>> propertyTables(const QString &page, const QString &level)
{
    QHash<QString, QList<Row>> tables;
    QString heading;
    bool inside = false;
    const QStringList lines = Page(QStringLiteral(ORRIN_SOURCE_DIR "/docs/reference/") + page).lines();
    for (const QString &line : lines) {
        if (line.startsWith(level + u' ')) {
            heading = line.mid(level.size() + 1);
            tables.insert(heading, {});
        }
        if (line.startsWith(QStringLiteral("| Property |")))
            inside = true;
        else if (!line.startsWith(u'|'))
            inside = false;
        if (!inside || !line.startsWith(QStringLiteral("| `")))
            continue;
        const QStringList cells = line.split(QStringLiteral(" | "));
        tables[heading].append({QString(cells.at(0)).remove(QStringLiteral("| ")).remove(u'`'),
                                QString(cells.at(1)).remove(u'`'), cells.at(2)});
    }
    return tables;
}

QString accessOf(const QMetaProperty &property)
{
    return property.isWritable()   ? QStringLiteral("read, write")
           : property.isConstant() ? QStringLiteral("constant")
                                   : QStringLiteral("read");
}

} // namespace

/*! The generated pages say what the objects have: no property too few, none too many, none of another kind.
 */
class tst_Reference : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(registrar);
        QStandardPaths::setTestModeEnabled(true);
    }

    void settings_areThoseOfTheClass()
    {
        const QList<Row> rows = propertyTables(QStringLiteral("settings.md"), QStringLiteral("##"))
                                    .value(QStringLiteral("Keys and facts"));
        const QMetaObject &meta = orrin::QmlSettings::staticMetaObject;
        QCOMPARE(rows.size(), meta.propertyCount() - meta.propertyOffset());
        for (int i = 0; i < rows.size(); ++i) {
            const QMetaProperty property = meta.property(meta.propertyOffset() + i);
            QCOMPARE(rows.at(i).name, QLatin1StringView(property.name()));
            QCOMPARE(rows.at(i).type, QLatin1StringView(property.typeName()));
            QCOMPARE(rows.at(i).access, accessOf(property));
        }
    }

    void elements_haveThePropertiesOfTheirPage()
    {
        const QHash<QString, QList<Row>> tables =
            propertyTables(QStringLiteral("elements.md"), QStringLiteral("##"));
        QVERIFY(tables.size() > 10);
        QQmlEngine engine;
        for (auto table = tables.cbegin(); table != tables.cend(); ++table) {
            QQmlComponent component(&engine);
            component.setData("import orrinsdkqml\n" + table.key().toUtf8() + " {}", QUrl());
            const std::unique_ptr<QObject> object(component.create());
            QVERIFY2(object, qPrintable(component.errorString()));
            QHash<QString, QString> told;
            for (const Row &row : table.value())
                told.insert(row.name, row.access);
            QHash<QString, QString> real;
            for (const QMetaObject *meta = object->metaObject(); meta; meta = meta->superClass()) {
                if (!QByteArrayView(meta->className()).startsWith("orrin::"))
                    continue;
                for (int i = meta->propertyOffset(); i < meta->propertyCount(); ++i)
                    real.insert(QString::fromLatin1(meta->property(i).name()), accessOf(meta->property(i)));
            }
            QVERIFY2(told == real,
                     qPrintable(table.key() + QStringLiteral(": ") + QStringList(told.keys()).join(u' ') +
                                QStringLiteral(" / ") + QStringList(real.keys()).join(u' ')));
        }
    }

    void components_haveThePropertiesOfTheirPage()
    {
        const QHash<QString, QList<Row>> tables =
            propertyTables(QStringLiteral("components.md"), QStringLiteral("###"));
        QVERIFY(tables.size() > 20);
        orrin::QmlSettings settings;
        orrin::QmlTimeTools timeTools;
        QQmlEngine engine;
        // The rest of a host is not there, which components say in warnings.
        engine.setOutputWarningsToStandardError(false);
        engine.rootContext()->setContextProperty(QStringLiteral("settings"), &settings);
        engine.rootContext()->setContextProperty(QStringLiteral("timeTools"), &timeTools);
        int compared = 0;
        for (auto table = tables.cbegin(); table != tables.cend(); ++table) {
            if (table.value().isEmpty() || table.key() == QStringLiteral("Theme"))
                continue;
            QQmlComponent component(
                &engine, QUrl(QStringLiteral("qrc:/qt/qml/orrinsdkqml/%1").arg(fileOf(table.key()))));
            if (!component.isReady())
                continue; // its own test tells
            const std::unique_ptr<QObject> object(component.beginCreate(engine.rootContext()));
            if (!object)
                continue;
            QStringList missing;
            for (const Row &row : table.value()) {
                if (object->metaObject()->indexOfProperty(row.name.toLatin1().constData()) < 0)
                    missing.append(row.name);
            }
            component.completeCreate();
            QVERIFY2(missing.isEmpty(), qPrintable(table.key() + u' ' + missing.join(u' ')));
            ++compared;
        }
        QVERIFY(compared > 20);
    }

private:
    static QString fileOf(const QString &component)
    {
        // Two names differ in case alone, which a name filter would not see.
        const QString root = QStringLiteral(":/qt/qml/orrinsdkqml/");
        QDirIterator files(root, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString path = files.next();
            if (path.endsWith(u'/' + component + QStringLiteral(".qml")))
                return path.mid(root.size());
        }
        return {};
    }
};

QTEST_MAIN(tst_Reference)
#include "tst_reference.moc"
