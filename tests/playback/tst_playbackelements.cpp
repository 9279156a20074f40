// SPDX-License-Identifier: GPL-3.0-or-later
#include "video/qmlaudioplaybackcontroller.h"
#include "video/qmlvideoplaybackcontroller.h"

#include <contract/util/requestid.h>

#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QSignalSpy>
#include <QTest>
#include <QTimeZone>

#include <memory>

using namespace orrin;
using namespace Qt::StringLiterals;

/*! Has a stream id as the video item has. */
class StreamHolder : public QObject
{
    Q_OBJECT
    Q_PROPERTY(orrin::RequestId streamId MEMBER streamId NOTIFY streamIdChanged)
    Q_PROPERTY(QTimeZone zone MEMBER zone CONSTANT)
public:
    RequestId streamId;
    QTimeZone zone = QTimeZone::utc();
Q_SIGNALS:
    void streamIdChanged();
};

class tst_PlaybackElements : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<QObject> create(QQmlEngine &engine, const QByteArray &body)
    {
        QQmlComponent component(&engine);
        component.setData("import QtQml\nimport orrinsdkqml\n" + body, QUrl());
        std::unique_ptr<QObject> object(component.create());
        if (!object)
            qWarning("%s", qPrintable(component.errorString()));
        return object;
    }

private Q_SLOTS:
    void elements_areTheControllers()
    {
        QQmlEngine engine;
        const auto video = create(engine, "PlaybackController {}");
        QVERIFY(qobject_cast<QmlVideoPlaybackController *>(video.get()));
        const auto audio = create(engine, "AudioPlaybackController {}");
        QVERIFY(qobject_cast<QmlAudioPlaybackController *>(audio.get()));
    }

    void states_areEnumsOfTheElements()
    {
        QQmlEngine engine;
        const auto object = create(engine, R"(QtObject {
            property var values: [PlaybackController.Rewind, PlaybackController.Pause, PlaybackController.Play,
                                  PlaybackController.Forward, AudioPlaybackController.Forward]
            property PlaybackController controller: PlaybackController { speed: 0 }
            property bool paused: controller.state === PlaybackController.Pause && controller.stateString() === "Pause"
        })");
        QVERIFY(object);
        QCOMPARE(object->property("values").toList(), QVariantList({0, 1, 2, 3, 3}));
        QVERIFY(object->property("paused").toBool());
    }

    void streamId_followsABinding()
    {
        QQmlEngine engine;
        StreamHolder holder;
        holder.streamId = {5};
        engine.rootContext()->setContextProperty(u"holder"_s, &holder);
        const auto object = create(engine, "PlaybackController { streamId: holder.streamId }");
        auto *controller = qobject_cast<QmlVideoPlaybackController *>(object.get());
        QVERIFY(controller);
        QCOMPARE(controller->streamId(), RequestId{5});
        QSignalSpy changed(controller, &QmlVideoPlaybackController::streamIdChanged);
        holder.streamId = {6};
        Q_EMIT holder.streamIdChanged();
        QCOMPARE(controller->streamId(), RequestId{6});
        QCOMPARE(changed.count(), 1);
    }

    void methods_canBeCalled()
    {
        QQmlEngine engine;
        StreamHolder holder;
        engine.rootContext()->setContextProperty(u"holder"_s, &holder);
        const auto object = create(engine, R"(PlaybackController {
            property bool saved: true
            property string failure
            onSnapshotFailed: (error) => failure = error
            Component.onCompleted: {
                textOverlay = false
                highStream = false
                rewind(); fastRewind(); live(); play(); playWithSpeed(0.5); forward(); fastForward()
                jumpToDateTime(new Date()); jump(new Date(), 1, 2, 3, holder.zone); scrubJump(1785000000010, holder.zone)
                scrubJump(1785000000010, "nowhere"); scrubJump(1785000000010, undefined); scrubJump(0, {})
                frameStepBack(); frameStepForward(); rewindSpeed(2); fastForwardSpeed(2); jumpToStart(); jumpToEnd()
                setTrackId(2); stop(); refreshHighStream()
                saved = snapshot() || snapshot("/nowhere/a.png")
            }
        })");
        QVERIFY(object);
        QCOMPARE(object->property("saved").toBool(), false);
        QCOMPARE(object->property("failure").toString(), u"Couldn't save image"_s);
        QCOMPARE(object->property("speed").toDouble(), 0.0);
        QCOMPARE(object->property("highStream").toBool(), true);
        QCOMPARE(object->property("playbackPermitted").toBool(), false);
    }
};

QTEST_GUILESS_MAIN(tst_PlaybackElements)
#include "tst_playbackelements.moc"
