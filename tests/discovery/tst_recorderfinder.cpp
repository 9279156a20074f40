// SPDX-License-Identifier: GPL-3.0-or-later
#include "answers.h"
#include "fakedevices.h"

#include "discovery/foundrecorders.h"

#include <QApplication>
#include <QDir>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickStyle>
#include <QQuickView>
#include <QSignalSpy>
#include <QTest>

using namespace orrin::test;
using namespace Qt::StringLiterals;

/*! The panel that offers the recorders found, in a window of its own.

    With ORRIN_FINDER_PICTURES naming a folder, the pictures are left there. */
class tst_RecorderFinder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void panel_showsNothingButItsButton_atFirst();
    void click_choosesARecorder();
    void keyboard_choosesARecorder();
    void names_areShownAsText();
    void notice_tellsThatNobodyAnswered();
    void close_leavesTheButton();

private:
    QQuickItem *find(const QByteArray &className) const
    {
        const auto items = m_view->rootObject()->findChildren<QQuickItem *>();
        for (QQuickItem *item : items) {
            if (item->inherits(className.constData()) || QByteArray(item->metaObject()->className()).startsWith(className))
                return item;
        }
        return nullptr;
    }

    QQuickItem *list() const { return find("QQuickListView"); }
    QQuickItem *row(int index) const
    {
        QQuickItem *item = nullptr;
        QMetaObject::invokeMethod(list(), "itemAtIndex", Q_RETURN_ARG(QQuickItem *, item), Q_ARG(int, index));
        return item;
    }
    FoundRecorders *recorders() const { return m_view->rootObject()->property("recorders").value<FoundRecorders *>(); }
    QList<QQuickItem *> textsOf(const QQuickItem *item) const
    {
        QList<QQuickItem *> texts;
        const auto children = item->findChildren<QQuickItem *>();
        for (QQuickItem *child : children) {
            if (child->inherits("QQuickText") && child->isVisible())
                texts.append(child);
        }
        return texts;
    }
    QStringList shownTexts(const QQuickItem *item) const
    {
        QStringList shown;
        for (const QQuickItem *text : textsOf(item))
            shown.append(text->property("text").toString());
        return shown;
    }
    void click(QQuickItem *item)
    {
        const QPointF centre = item->mapToScene({item->width() / 2, item->height() / 2});
        QTest::mouseClick(m_view.get(), Qt::LeftButton, {}, centre.toPoint());
    }
    void search(int duration = 60000)
    {
        recorders()->setDuration(duration);
        click(find("O_Button"));
    }
    void leavePicture(const QString &name)
    {
        const QString folder = qEnvironmentVariable("ORRIN_FINDER_PICTURES");
        if (folder.isEmpty())
            return;
        QTest::qWait(300);
        QVERIFY(m_view->grabWindow().save(QDir(folder).filePath(name + u".png"_s)));
    }

    std::unique_ptr<FakeDevices> m_devices;
    std::unique_ptr<QQuickView> m_view;
    std::unique_ptr<QSignalSpy> m_warnings;
    std::unique_ptr<QSignalSpy> m_chosen;
};

void tst_RecorderFinder::initTestCase()
{
    QQuickStyle::setStyle(u"Material"_s);
}

void tst_RecorderFinder::init()
{
    m_devices = std::make_unique<FakeDevices>([](const QByteArray &id) {
        AnsweringDevice marked;
        marked.uuid = u"uuid:2"_s;
        marked.addresses = u"https://127.0.0.1:8443/"_s;
        marked.scopes = u"onvif://www.onvif.org/name/%3Cb%3EYard%3C/b%3E%3Cimg%20src=x%3E"_s;
        return QList<QByteArray>{answerOf(id, {}), answerOf(id, marked)};
    });
    m_view = std::make_unique<QQuickView>();
    m_view->setColor(QColor(0x1e, 0x23, 0x2b));
    m_warnings = std::make_unique<QSignalSpy>(m_view->engine(), &QQmlEngine::warnings);
    m_view->setResizeMode(QQuickView::SizeViewToRootObject);
    m_view->loadFromModule("OrrinViewer", "RecorderFinder");
    QCOMPARE(m_view->status(), QQuickView::Ready);
    m_view->rootObject()->setWidth(412);
    QVERIFY(recorders());
    for (const char *part : {"O_Button", "QQuickProgressBar", "QQuickListView"})
        QVERIFY2(find(part), part);
    recorders()->setMulticast(false);
    recorders()->setProbeAddresses({m_devices->address()});
    m_chosen = std::make_unique<QSignalSpy>(m_view->rootObject(), SIGNAL(chosen(QString)));
    m_view->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
}

void tst_RecorderFinder::cleanup()
{
    if (m_warnings) {
        for (const QList<QVariant> &warning : *m_warnings)
            QFAIL(qPrintable(warning.constFirst().value<QList<QQmlError>>().value(0).toString()));
    }
    m_chosen.reset();
    m_warnings.reset();
    m_view.reset();
    m_devices.reset();
}

void tst_RecorderFinder::panel_showsNothingButItsButton_atFirst()
{
    QVERIFY(find("O_Button")->isVisible());
    QVERIFY(!list()->isVisible());
    QVERIFY(!find("QQuickProgressBar")->isVisible());
    QCOMPARE(m_devices->questions(), 0);
}

void tst_RecorderFinder::click_choosesARecorder()
{
    search();
    QVERIFY(recorders()->isSearching());
    QVERIFY(find("QQuickProgressBar")->isVisible());
    QTRY_COMPARE(recorders()->count(), 2);
    QTRY_VERIFY(row(1));
    QTRY_VERIFY(list()->height() >= 2 * row(0)->height());
    leavePicture(u"searching"_s);
    click(row(1));
    QCOMPARE(m_chosen->size(), 1);
    QCOMPARE(m_chosen->constFirst().constFirst().toString(), u"127.0.0.1:8443"_s);

    // The same button ends the search; what was found stays.
    click(find("O_Button"));
    QVERIFY(!recorders()->isSearching());
    QTRY_VERIFY(!find("QQuickProgressBar")->isVisible());
    QCOMPARE(recorders()->count(), 2);
    leavePicture(u"found"_s);
}

void tst_RecorderFinder::keyboard_choosesARecorder()
{
    m_view->requestActivate();
    QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
    QTest::keyClick(m_view.get(), Qt::Key_Tab);
    QTest::keyClick(m_view.get(), Qt::Key_Space);
    QTRY_COMPARE(recorders()->count(), 2);
    QTRY_VERIFY(row(1));
    QTest::keyClick(m_view.get(), Qt::Key_Tab);
    QTRY_VERIFY(list()->hasActiveFocus());
    QTest::keyClick(m_view.get(), Qt::Key_Return);
    QTest::keyClick(m_view.get(), Qt::Key_Down);
    leavePicture(u"keyboard"_s);
    QTest::keyClick(m_view.get(), Qt::Key_Space);
    QCOMPARE(m_chosen->size(), 2);
    QCOMPARE(m_chosen->at(0).constFirst().toString(), u"127.0.0.1:8080"_s);
    QCOMPARE(m_chosen->at(1).constFirst().toString(), u"127.0.0.1:8443"_s);
}

void tst_RecorderFinder::names_areShownAsText()
{
    search();
    QTRY_COMPARE(recorders()->count(), 2);
    QTRY_VERIFY(row(1));
    QCOMPARE(shownTexts(row(0)), (QStringList{u"Gate"_s, u"127.0.0.1:8080, C-1"_s}));
    QCOMPARE(shownTexts(row(1)), (QStringList{u"<b>Yard</b><img src=x>"_s, u"127.0.0.1:8443"_s}));
    for (const QQuickItem *text : textsOf(row(1)))
        QCOMPARE(text->property("textFormat").toInt(), int(Qt::PlainText));
}

void tst_RecorderFinder::notice_tellsThatNobodyAnswered()
{
    FakeDevices silent([](const QByteArray &) { return QList<QByteArray>(); });
    recorders()->setProbeAddresses({silent.address()});
    search(200);
    QCOMPARE(m_view->rootObject()->property("notice").toString(), u"Looking for recorders …"_s);
    QTRY_VERIFY(!recorders()->isSearching());
    QTRY_VERIFY(m_view->rootObject()->property("notice").toString().startsWith(u"No recorder answered."_s));
    leavePicture(u"nobody"_s);

    recorders()->setProbeAddresses({});
    search(200);
    QTRY_VERIFY(!recorders()->isSearching());
    QCOMPARE(m_view->rootObject()->property("notice").toString(), u"There is no network to look in."_s);
}

void tst_RecorderFinder::close_leavesTheButton()
{
    search();
    QTRY_COMPARE(recorders()->count(), 2);
    QVERIFY(QMetaObject::invokeMethod(m_view->rootObject(), "close"));
    QVERIFY(!recorders()->isSearching());
    QTRY_VERIFY(!list()->isVisible());
    QCOMPARE(m_view->rootObject()->property("notice").toString(), QString());

    // A panel that is hidden does not go on searching.
    search();
    QVERIFY(recorders()->isSearching());
    m_view->rootObject()->setVisible(false);
    QVERIFY(!recorders()->isSearching());
}

QTEST_MAIN(tst_RecorderFinder)
#include "tst_recorderfinder.moc"
