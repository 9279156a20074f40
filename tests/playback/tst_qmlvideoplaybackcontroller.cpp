// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakestreamprovider.h"

#include "video/qmlaudioplaybackcontroller.h"
#include "video/qmlrendering.h"
#include "video/qmlvideoframereceiver.h"
#include "video/qmlvideoplaybackcontroller.h"

#include <contract/codecs/videoframe.h>
#include <contract/core/displayoutput.h>
#include <contract/gui/display.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTimeZone>
#include <QTranslator>

#include <csignal>
#include <cstring>
#include <memory>

#include <sys/resource.h>

using namespace orrin;
using namespace Qt::StringLiterals;

namespace {

constexpr int Width = 640;
constexpr int Height = 96;
const QString pictureName = u"screenshot-03-Mar-2026-11-34-56-790-7-42"_s;
const QString couldNotSave = u"Couldn't save image"_s;

/*! A picture of one colour, a dark blue. */
VideoFrame makeFrame()
{
    const auto owner = std::make_shared<QByteArray>(Width * Height * 3 / 2, '\0');
    auto *bytes = reinterpret_cast<std::uint8_t *>(owner->data());
    const int chroma = Width * Height / 4;
    Image::Planes planes{bytes, bytes + 4 * chroma, bytes + 5 * chroma, Width, Width / 2};
    std::memset(bytes, 60, size_t(4 * chroma));
    std::memset(bytes + 4 * chroma, 200, size_t(chroma));
    std::memset(bytes + 5 * chroma, 100, size_t(chroma));
    Image image = Image::fromPlanes(Width, Height, planes, owner);
    image.setTime(dateTimeToTime300(QDateTime(QDate(2026, 3, 3), QTime(10, 34, 56, 790), QTimeZone::utc())));
    image.setTimeZone(QTimeZone("Europe/Berlin"));
    return VideoFrame(image, 42, 7);
}

class Presenter : public StreamPresenterInterface
{
public:
    QList<std::shared_ptr<DisplayInterface>> displays() const override { return list; }
    QList<std::shared_ptr<DisplayInterface>> list;
};

class OtherOutput : public SPAbstractOutput
{
public:
    void setVideoFrame(const VideoFrame &) override {}
    void setDelay(long long) override {}
    void setError(const PlaybackError &, int) override {}
    void setBusy(bool) override {}
};

class Controller : public QmlVideoPlaybackController
{
public:
    explicit Controller(QmlAbstractStreamProvider *provider) : QmlVideoPlaybackController(provider, nullptr) {}
};

/*! Marks what it translates with its context and its disambiguation. */
class MarkingTranslator : public QTranslator
{
public:
    QString translate(const char *context, const char *text, const char *disambiguation, int) const override
    {
        return u"[%1|%2|%3]"_s.arg(QLatin1StringView(context), QLatin1StringView(text),
                                   QLatin1StringView(disambiguation));
    }
    bool isEmpty() const override { return false; }
};

/*! While it lives no file of this process grows beyond the limit: a write then ends in an error, as on a full disk. */
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes) : m_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        m_set = setrlimit(RLIMIT_FSIZE, &limit) == 0;
    }
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    bool isSet() const { return m_set; }

private:
    Q_DISABLE_COPY_MOVE(FileSizeLimit)

    void (*m_handler)(int);
    rlimit m_before{};
    bool m_set = false;
};

} // namespace

class tst_QmlVideoPlaybackController : public QObject
{
    Q_OBJECT

private:
    QString picturesFolder() const { return home->path() + u"/Pictures"_s; }
    QString path(const QString &name) const { return folder->filePath(name); }
    /*! What lies in the folder of the test, hidden files too. */
    QStringList contents() const
    {
        return QDir(folder->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }
    static QByteArray read(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
    }

    std::unique_ptr<QTemporaryDir> home;
    std::unique_ptr<QTemporaryDir> folder;
    std::shared_ptr<Presenter> presenter;
    QSharedPointer<QmlRendering> rendering;
    std::unique_ptr<FakeStreamProcessor> processor;
    std::unique_ptr<FakeStreamProvider> provider;
    std::unique_ptr<Controller> controller;
    std::unique_ptr<QSignalSpy> saved;
    std::unique_ptr<QSignalSpy> failed;

private Q_SLOTS:
    void init()
    {
        home = std::make_unique<QTemporaryDir>();
        folder = std::make_unique<QTemporaryDir>();
        QVERIFY(home->isValid() && folder->isValid());
        qputenv("HOME", QFile::encodeName(home->path()));
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(home->path()));
        QCOMPARE(QStandardPaths::writableLocation(QStandardPaths::PicturesLocation), picturesFolder());

        rendering = QSharedPointer<QmlRendering>::create(std::make_unique<QmlVideoFrameReceiver>());
        rendering->setVideoFrame(makeFrame());
        const auto display = std::make_shared<orrin::Display>();
        display->setRenderer(rendering);
        presenter = std::make_shared<Presenter>();
        presenter->list = {display};
        processor = std::make_unique<FakeStreamProcessor>();
        processor->outputList = {QSharedPointer<DisplayOutput>::create(presenter)};
        provider = std::make_unique<FakeStreamProvider>();
        provider->processors.insert({1u, 2u, 3u, quint16(7)}, processor.get());

        controller = std::make_unique<Controller>(provider.get());
        controller->setServerGroupId(1);
        controller->setServerId(2);
        controller->setChannelId(3);
        controller->setStreamId({7});
        saved = std::make_unique<QSignalSpy>(controller.get(), &QmlVideoPlaybackController::snapshotSaved);
        failed = std::make_unique<QSignalSpy>(controller.get(), &QmlVideoPlaybackController::snapshotFailed);
    }

    void cleanup()
    {
        saved.reset();
        failed.reset();
        controller.reset();
        provider.reset();
        processor.reset();
        presenter.reset();
        rendering.reset();
    }

    void properties_haveDefaults_whenNew()
    {
        const QmlVideoPlaybackController video;
        QVERIFY(video.textOverlay());
        QVERIFY(video.highStream());
        QCOMPARE(video.speed(), 1.0);
        QmlAudioPlaybackController audio(this);
        QCOMPARE(audio.parent(), this);
        QCOMPARE(audio.speed(), 1.0);
        audio.setServerGroupId(1);
        audio.setServerId(1);
        audio.setChannelId(1);
        audio.live();
        QCOMPARE(audio.metaObject()->propertyCount(), QmlPlaybackControllerInterface::staticMetaObject.propertyCount());
        QCOMPARE(audio.metaObject()->methodCount(), QmlPlaybackControllerInterface::staticMetaObject.methodCount());
    }

    void setTextOverlay_signalsAChangeOnly()
    {
        QSignalSpy changed(controller.get(), &QmlVideoPlaybackController::textOverlayChanged);
        controller->setTextOverlay(true);
        QCOMPARE(changed.count(), 0);
        controller->setTextOverlay(false);
        QCOMPARE(changed.count(), 1);
        QVERIFY(!controller->textOverlay());
        controller->setTextOverlay(false);
        QCOMPARE(changed.count(), 1);
    }

    void setHighStream_sendsAndSignals_alsoWithoutAChange()
    {
        QSignalSpy changed(controller.get(), &QmlVideoPlaybackController::highStreamChanged);
        controller->setHighStream(true);
        QCOMPARE(processor->control->take(), QStringList{u"setStreamPreference(1)"_s});
        QCOMPARE(changed.count(), 1);
        controller->setHighStream(false);
        QCOMPARE(processor->control->take(), QStringList{u"setStreamPreference(3)"_s});
        QCOMPARE(changed.count(), 2);
        QVERIFY(!controller->highStream());
        controller->setHighStream(false);
        QCOMPARE(processor->control->take(), QStringList{u"setStreamPreference(3)"_s});
        QCOMPARE(changed.count(), 3);
    }

    void refreshHighStream_sendsWithoutASignal()
    {
        QSignalSpy changed(controller.get(), &QmlVideoPlaybackController::highStreamChanged);
        controller->refreshHighStream();
        QCOMPARE(processor->control->take(), QStringList{u"setStreamPreference(1)"_s});
        controller->setHighStream(false);
        processor->control->take();
        controller->refreshHighStream();
        QCOMPARE(processor->control->take(), QStringList{u"setStreamPreference(3)"_s});
        QCOMPARE(changed.count(), 1);
    }

    void setHighStream_doesNothing_whenThereIsNoStream()
    {
        provider->processors.clear();
        QSignalSpy changed(controller.get(), &QmlVideoPlaybackController::highStreamChanged);
        controller->setHighStream(false);
        QVERIFY(controller->highStream());
        QCOMPARE(changed.count(), 0);
        controller->refreshHighStream();
        QCOMPARE(processor->control->take(), QStringList());
    }

    // Snapshots

    void snapshot_goesToThePicturesFolder_whenNoPathIsGiven()
    {
        QVERIFY(!QFileInfo::exists(picturesFolder()));
        QVERIFY(controller->snapshot());
        const QString file = picturesFolder() + u'/' + pictureName + u".jpeg"_s;
        QCOMPARE(QImage(file).size(), QSize(Width, Height));
        QVERIFY(read(file).startsWith("\xff\xd8\xff"));
        QCOMPARE(saved->count(), 1);
        QCOMPARE(saved->takeFirst().first().toString(), pictureName);
        QCOMPARE(failed->count(), 0);
        QVERIFY(QFile::remove(file));
        QVERIFY(controller->snapshot(QString()));
        QVERIFY(QFileInfo::exists(file));
    }

    void snapshot_getsTheGeneratedName_whenThePathIsAFolder()
    {
        QVERIFY(controller->snapshot(folder->path()));
        QCOMPARE(contents(), QStringList{pictureName + u".jpeg"_s});
        QCOMPARE(saved->takeFirst().first().toString(), pictureName);
        QVERIFY(!QFileInfo::exists(picturesFolder()));
    }

    void snapshot_takesTheFormatOfTheSuffix_data()
    {
        QTest::addColumn<QString>("name");
        for (const char *name : {"a.jpeg", "a.JPG", "a.png", "a.bmp", "a.b.png", "a.ppm", "a.txt", "a.gif", "a", "a.",
                                 "png", ".png"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    // Exactly what saving the image under that name does: the same files with the same bytes, or none.
    void snapshot_takesTheFormatOfTheSuffix()
    {
        QFETCH(QString, name);
        controller->setTextOverlay(false);
        const QTemporaryDir other;
        const QString reference = other.filePath(name);
        const bool possible = rendering->generateSnapshot().image.save(reference);

        QCOMPARE(controller->snapshot(path(name)), possible);
        QCOMPARE(saved->count(), possible ? 1 : 0);
        QCOMPARE(failed->count(), possible ? 0 : 1);
        QCOMPARE(contents(), possible ? QStringList{name} : QStringList());
        if (possible) {
            QCOMPARE(saved->takeFirst().first().toString(), pictureName);
            QCOMPARE(read(path(name)), read(reference));
        }
    }

    void snapshot_replacesAFile()
    {
        QFile file(path(u"a.png"_s));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("old") == 3);
        file.close();
        QVERIFY(controller->snapshot(file.fileName()));
        QCOMPARE(QImage(file.fileName()).size(), QSize(Width, Height));
        QCOMPARE(contents(), QStringList{u"a.png"_s});
    }

    void snapshot_carriesItsName_whenTextOverlayIsOn()
    {
        QVERIFY(controller->snapshot(path(u"a.png"_s)));
        const QImage image(path(u"a.png"_s));
        const QColor ground = rendering->generateSnapshot().image.pixelColor(0, 0);
        // #552b2e36 over it.
        const auto blended = [](int above, int below) { return (above * 0x55 + below * (255 - 0x55)) / 255; };
        const QColor bar(blended(0x2b, ground.red()), blended(0x2e, ground.green()), blended(0x36, ground.blue()));
        const auto near = [](QColor a, QColor b) {
            return qAbs(a.red() - b.red()) <= 2 && qAbs(a.green() - b.green()) <= 2 && qAbs(a.blue() - b.blue()) <= 2;
        };
        for (const QPoint point : {QPoint(0, 0), QPoint(2, 13), QPoint(Width - 1, 0), QPoint(Width - 1, 25), QPoint(0, 25)})
            QVERIFY2(near(image.pixelColor(point), bar), qPrintable(image.pixelColor(point).name()));
        for (const QPoint point : {QPoint(0, 26), QPoint(Width - 1, 26), QPoint(300, 60)})
            QVERIFY2(near(image.pixelColor(point), ground), qPrintable(image.pixelColor(point).name()));
        QRect text;
        for (int y = 0; y < 26; ++y) {
            for (int x = 0; x < Width; ++x) {
                if (image.pixelColor(x, y).red() > 200)
                    text |= QRect(x, y, 1, 1);
            }
        }
        // From the pen's point, on the line at 20, as wide as the name.
        QVERIFY2(text.left() >= 10 && text.left() < 16, qPrintable(QString::number(text.left())));
        QVERIFY2(text.top() >= 4 && text.top() < 12, qPrintable(QString::number(text.top())));
        QVERIFY2(text.bottom() >= 18 && text.bottom() < 26, qPrintable(QString::number(text.bottom())));
        QVERIFY2(text.width() > 200, qPrintable(QString::number(text.width())));
    }

    void snapshot_isThePictureAlone_whenTextOverlayIsOff()
    {
        controller->setTextOverlay(false);
        QVERIFY(controller->snapshot(path(u"a.png"_s)));
        QCOMPARE(QImage(path(u"a.png"_s)), rendering->generateSnapshot().image.convertToFormat(QImage::Format_RGB32));
    }

    void snapshot_looksTheStreamUpEachTime()
    {
        QVERIFY(controller->snapshot(path(u"a.png"_s)));
        QVERIFY(controller->snapshot(path(u"b.png"_s)));
        const FakeStreamProvider::Keys keys{1u, 2u, 3u, quint16(7)};
        QCOMPARE(provider->asked, QList<FakeStreamProvider::Keys>({keys, keys}));
        provider->processors.clear();
        QVERIFY(!controller->snapshot(path(u"c.png"_s)));
    }

    void snapshot_fails_whenThereIsNothingToShow_data()
    {
        QTest::addColumn<QByteArray>("lack");
        for (const char *lack : {"stream", "output", "display output", "presenter", "display", "null display", "renderer",
                                 "picture", "keys"})
            QTest::newRow(lack) << QByteArray(lack);
    }

    void snapshot_fails_whenThereIsNothingToShow()
    {
        QFETCH(QByteArray, lack);
        if (lack == "stream")
            provider->processors.clear();
        else if (lack == "output")
            processor->outputList.clear();
        else if (lack == "display output")
            processor->outputList.prepend(QSharedPointer<OtherOutput>::create());
        else if (lack == "presenter")
            processor->outputList = {QSharedPointer<DisplayOutput>::create(nullptr)};
        else if (lack == "display")
            presenter->list.clear();
        else if (lack == "null display")
            presenter->list = {nullptr};
        else if (lack == "renderer")
            presenter->list = {std::make_shared<orrin::Display>()};
        else if (lack == "picture")
            std::dynamic_pointer_cast<orrin::Display>(presenter->list.first())
                ->setRenderer(QSharedPointer<QmlRendering>::create(std::make_unique<QmlVideoFrameReceiver>()));
        else
            controller->setChannelId(-1);

        QVERIFY(!controller->snapshot(path(u"a.png"_s)));
        QCOMPARE(failed->count(), 1);
        QCOMPARE(failed->takeFirst().first().toString(), couldNotSave);
        QVERIFY(!controller->snapshot());
        QCOMPARE(failed->count(), 1);
        QCOMPARE(saved->count(), 0);
        QCOMPARE(contents(), QStringList());
        QVERIFY(!QFileInfo::exists(picturesFolder()));
    }

    void snapshot_fails_whenThePicturesFolderCannotBeMade()
    {
        QFile inTheWay(picturesFolder());
        QVERIFY(inTheWay.open(QIODevice::WriteOnly));
        inTheWay.close();
        QVERIFY(!controller->snapshot());
        QCOMPARE(failed->count(), 1);
        QCOMPARE(failed->takeFirst().first().toString(), couldNotSave);
        QCOMPARE(inTheWay.size(), 0);
    }

    void snapshot_namesThePicturesFolder_whenTheFileCannotBeWritten_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("odd suffix") << u"a.txt"_s;
        QTest::newRow("no suffix") << u"a"_s;
        QTest::newRow("no such folder") << u"none/a.png"_s;
        QTest::newRow("below a file") << u"file/a.png"_s;
    }

    void snapshot_namesThePicturesFolder_whenTheFileCannotBeWritten()
    {
        QFETCH(QString, name);
        QFile file(path(u"file"_s));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("kept") == 4);
        file.close();
        QVERIFY(!controller->snapshot(path(name)));
        QCOMPARE(failed->count(), 1);
        QCOMPARE(failed->takeFirst().first().toString(), u"Couldn't write file to "_s + picturesFolder());
        QCOMPARE(saved->count(), 0);
        QCOMPARE(contents(), QStringList{u"file"_s});
        QCOMPARE(read(file.fileName()), QByteArray("kept"));
        QVERIFY(!QFileInfo::exists(picturesFolder()));
    }

    void snapshot_leavesADeviceAlone_whenThePathLeadsToOne()
    {
        QVERIFY(QFile::link(u"/dev/full"_s, path(u"a.png"_s)));
        QVERIFY(!controller->snapshot(path(u"a.png"_s)));
        QCOMPARE(failed->count(), 1);
        QVERIFY(QFileInfo::exists(u"/dev/full"_s));
        QVERIFY(!QFileInfo(u"/dev/full"_s).isFile());
        QCOMPARE(contents(), QStringList{u"a.png"_s});
    }

    void snapshot_leavesNoHalfFile_whenTheDiskIsFull_data()
    {
        QTest::addColumn<rlim_t>("room");
        QTest::newRow("no room") << rlim_t(0);
        QTest::newRow("some room") << rlim_t(500);
    }

    void snapshot_leavesNoHalfFile_whenTheDiskIsFull()
    {
        QFETCH(rlim_t, room);
        QFile old(path(u"old.png"_s));
        QVERIFY(old.open(QIODevice::WriteOnly) && old.write("old") == 3);
        old.close();
        bool set = false;
        QList<bool> results;
        {
            const FileSizeLimit limit(room);
            set = limit.isSet();
            for (const char *name : {"a.jpeg", "a.png", "old.png"})
                results.append(controller->snapshot(path(QString::fromLatin1(name))));
        }
        QVERIFY(set);
        QCOMPARE(results, QList<bool>({false, false, false}));
        QCOMPARE(failed->count(), 3);
        QCOMPARE(saved->count(), 0);
        QCOMPARE(contents(), QStringList{u"old.png"_s});
        QCOMPARE(read(old.fileName()), QByteArray("old"));
    }

    void snapshot_speaksTheUsersLanguage()
    {
        MarkingTranslator translator;
        QVERIFY(QCoreApplication::installTranslator(&translator));
        QVERIFY(!controller->snapshot(path(u"a.txt"_s)));
        provider->processors.clear();
        QVERIFY(!controller->snapshot(path(u"a.txt"_s)));
        QCoreApplication::removeTranslator(&translator);
        QCOMPARE(failed->takeFirst().first().toString(),
                 u"[orrin::QmlVideoPlaybackController|Couldn't write file to "
                 u"|Example: Couldn't write file to c:\\images\\]"_s
                     + picturesFolder());
        QCOMPARE(failed->takeFirst().first().toString(),
                 u"[orrin::QmlVideoPlaybackController|Couldn't save image|]"_s);
    }
};

QTEST_MAIN(tst_QmlVideoPlaybackController)
#include "tst_qmlvideoplaybackcontroller.moc"
