// SPDX-License-Identifier: GPL-3.0-or-later
#include "sortedenabledcameramodel.h"
#include "testsite.h"

#include <QAbstractItemModelTester>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace orrin;

/*! The model that the viewer supplies to the module's list of cameras. */
class tst_SortedEnabledCameraModel : public QObject
{
    Q_OBJECT

private:
    static QStringList names(const QAbstractItemModel &model)
    {
        const int role = model.roleNames().key("name");
        QStringList list;
        for (int row = 0; row < model.rowCount(); ++row)
            list.append(model.index(row, 0).data(role).toString());
        return list;
    }

private Q_SLOTS:
    void model_isEmpty_withoutALogin()
    {
        const TestSite site;
        const SortedEnabledCameraModel model;
        QCOMPARE(model.rowCount(), 0);
        for (const char *role : {"serverGroupId", "serverId", "channelId", "channelUniqueId", "name", "isValid", "isEnabled", "isCamera",
                                 "isAudio", "isTalkback", "isData", "hasPtzf"})
            QVERIFY2(model.roleNames().values().contains(role), role);
    }

    void rows_areCamerasThatMayBeSeen_bySortId()
    {
        TestSite site;
        SortedEnabledCameraModel model;
        const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        SiteDescription description = describeServer(7, 2);
        description.channels = {describeCamera(1, u"last"_s), describeCamera(2, u"hidden"_s), describeCamera(3, u"sound"_s),
                                describeCamera(4, u"first"_s), describeCamera(5, u"off"_s)};
        description.channels[0].sortId = 90;
        description.channels[1].permitted = false;
        description.channels[2].kind = ChannelDescription::Kind::Audio;
        description.channels[3].sortId = 1;
        description.channels[4].enabled = false;
        QVERIFY(site.login(description));
        QTRY_COMPARE(names(model), QStringList({u"first"_s, u"last"_s}));
        description.channels[1].permitted = true;
        description.channels[1].sortId = 50;
        site.describe(description);
        QTRY_COMPARE(names(model), QStringList({u"first"_s, u"hidden"_s, u"last"_s}));
        site.logOut();
        QTRY_COMPARE(model.rowCount(), 0);
    }
};

QTEST_GUILESS_MAIN(tst_SortedEnabledCameraModel)
#include "tst_sortedenabledcameramodel.moc"
