// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/mobilenotchutils.h"

#include <QElapsedTimer>
#include <QJSEngine>
#include <QMetaMethod>
#include <QTest>
#include <QTimer>

#include <memory>

using namespace orrin;
using namespace Qt::StringLiterals;

class tst_MobileNotchUtils : public QObject
{
    Q_OBJECT

private:
    int calls() { return engine->globalObject().property(u"calls"_s).toInt(); }
    QJSValue evaluate(const QString &program) { return engine->evaluate(program); }

    std::unique_ptr<QJSEngine> engine;
    MobileNotchUtils *utils = nullptr;

private Q_SLOTS:
    void init()
    {
        engine = std::make_unique<QJSEngine>();
        utils = new MobileNotchUtils;
        engine->globalObject().setProperty(u"utils"_s, engine->newQObject(utils)); // takes it over
        evaluate(u"var calls = 0, count = -1; function f() { ++calls; count = arguments.length; return 5 }"_s);
    }

    void cleanup() { engine.reset(); }

    void singleShot_callsWithTheNextPass_whenTheIntervalIsZero()
    {
        QVERIFY(!evaluate(u"utils.singleShot(0, f)"_s).isError());
        QCOMPARE(calls(), 0);
        QTRY_COMPARE(calls(), 1);
        QCOMPARE(engine->globalObject().property(u"count"_s).toInt(), 0);
        bool passed = false;
        QTimer::singleShot(50, this, [&passed] { passed = true; });
        QTRY_VERIFY(passed);
        QCOMPARE(calls(), 1);
    }

    void singleShot_waitsTheInterval()
    {
        QElapsedTimer clock;
        clock.start();
        evaluate(u"utils.singleShot(120, f)"_s);
        QTRY_COMPARE(calls(), 1);
        QVERIFY2(clock.elapsed() >= 115, qPrintable(QString::number(clock.elapsed())));
    }

    void singleShot_ignoresWhatCannotBeCalled_data()
    {
        QTest::addColumn<QString>("value");
        for (const char *value : {"5", "undefined", "null", "'f'", "({})"})
            QTest::newRow(value) << QString::fromLatin1(value);
    }

    void singleShot_ignoresWhatCannotBeCalled()
    {
        QFETCH(QString, value);
        QVERIFY(!evaluate(u"utils.singleShot(0, %1); utils.singleShot(0, f)"_s.arg(value)).isError());
        QTRY_COMPARE(calls(), 1);
        QVERIFY(!engine->hasError());
    }

    void singleShot_survivesACallbackThatThrows()
    {
        evaluate(u"utils.singleShot(0, () => { ++calls; throw new Error('no') }); utils.singleShot(0, f)"_s);
        QTRY_COMPARE(calls(), 2);
    }

    void singleShot_neverCalls_whenTheIntervalIsNegative()
    {
        QTest::failOnWarning();
        evaluate(u"utils.singleShot(-1, () => { calls = 100 }); utils.singleShot(20, f)"_s);
        QTRY_COMPARE(calls(), 1);
    }

    void singleShot_neverCalls_whenTheObjectIsGone()
    {
        MobileNotchUtils other;
        evaluate(u"utils.singleShot(10, () => { calls = 100 })"_s);
        delete utils;
        other.singleShot(60, evaluate(u"f"_s));
        QTRY_COMPARE(calls(), 1);
    }

    void insets_areNothing_onTheDesktop()
    {
        QCOMPARE(MobileNotchUtils::safeAreaBottomInset(), 0.0);
        QCOMPARE(MobileNotchUtils::safeAreaTopInset(), 0.0);
        QCOMPARE(MobileNotchUtils::safeAreaRightInset(), 0.0);
        QCOMPARE(MobileNotchUtils::safeAreaLeftInset(), 0.0);
        QCOMPARE(evaluate(u"utils.safeAreaBottomInset() + utils.safeAreaTopInset()"
                          u" + utils.safeAreaRightInset() + utils.safeAreaLeftInset()"_s)
                     .toNumber(),
                 0.0);
    }

    void methods_areInvokableInOrder()
    {
        const QMetaObject &meta = MobileNotchUtils::staticMetaObject;
        QList<QByteArray> names;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
            names.append(meta.method(i).methodSignature());
        QCOMPARE(names, QList<QByteArray>({"singleShot(int,QJSValue)", "safeAreaBottomInset()", "safeAreaTopInset()",
                                           "safeAreaRightInset()", "safeAreaLeftInset()"}));
    }
};

QTEST_GUILESS_MAIN(tst_MobileNotchUtils)
#include "tst_mobilenotchutils.moc"
