// SPDX-License-Identifier: GPL-3.0-or-later
// The frame path without a decoder: 1920x1080 frames from Display::setVideoFrame to the recorded draw of a VideoDisplay, and the same
// frames through QVideoSink to the VideoOutput of Qt Multimedia, in one run.
//
// CPU is that of the GUI thread and of the render thread, from the hand-over of a frame to the end of recording; what the
// software GL does on its own threads is left out. Needs a display: xvfb-run -a bench_framepath
#include "copycounter.h"

#include <contract/codecs/videoframe.h>
#include <contract/gui/display.h>
#include <video/qmlrendering.h>
#include <video/qmlvideodisplay.h>
#include <video/qmlvideoframereceiver.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QVideoFrame>
#include <QVideoSink>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int Width = 1920;
constexpr int Height = 1080;
constexpr std::size_t FrameBytes = std::size_t(Width) * Height * 3 / 2;
constexpr int WarmUp = 30;
constexpr int Rounds = 300;

double threadCpuUs()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) * 1e6 + double(now.tv_nsec) / 1e3;
}

struct Result
{
    double guiUs = 0;
    double renderUs = 0;
    double copiesPerFrame = 0;
    int frames = 0;
};

// One window with one item; push() hands over a frame on the GUI thread.
Result measure(QQuickItem *item, const std::function<void(int)> &push)
{
    QQuickWindow window;
    window.resize(Width / 2, Height / 2);
    item->setParentItem(window.contentItem());
    item->setSize(window.size());

    double renderBegin = 0;
    std::atomic<double> renderUs{0};
    std::atomic<int> recorded{0};
    QObject::connect(&window, &QQuickWindow::beforeSynchronizing, &window, [&] { renderBegin = threadCpuUs(); }, Qt::DirectConnection);
    QObject::connect(&window, &QQuickWindow::afterRenderPassRecording, &window, [&] {
        renderUs = renderUs + threadCpuUs() - renderBegin;
        ++recorded;
        QMetaObject::invokeMethod(&window, [] {}, Qt::QueuedConnection); // wakes the loop that waits for this
    }, Qt::DirectConnection);
    window.show();
    QElapsedTimer clock;
    clock.start();
    while (!window.isExposed() && clock.elapsed() < 10000)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);

    Result result;
    double guiUs = 0;
    for (int i = 0; i < WarmUp + Rounds; ++i) {
        if (i == WarmUp) {
            guiUs = 0;
            renderUs = 0;
            copycounter::reset();
        }
        const int before = recorded;
        const double begin = threadCpuUs();
        push(i);
        clock.restart();
        while (recorded == before && clock.elapsed() < 5000)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        guiUs += threadCpuUs() - begin;
        if (recorded == before) {
            std::fprintf(stderr, "a frame was not drawn within 5 s\n");
            std::exit(1);
        }
    }
    result.guiUs = guiUs / Rounds;
    result.renderUs = renderUs / Rounds;
    result.copiesPerFrame = double(copycounter::bytes()) / double(FrameBytes) / Rounds;
    result.frames = Rounds;
    item->setParentItem(nullptr);
    return result;
}

void print(const char *name, const Result &result, const Result &reference)
{
    std::printf("%-34s %9.0f %9.0f %9.0f %8.2f %8.2f\n", name, result.guiUs, result.renderUs, result.guiUs + result.renderUs,
                (result.guiUs + result.renderUs) / (reference.guiUs + reference.renderUs), result.copiesPerFrame);
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    // Frames in turn, so that nothing can be skipped as unchanged.
    constexpr int Buffers = 4;
    auto pixels = std::make_shared<std::vector<std::uint8_t>>(FrameBytes * Buffers);
    for (std::size_t i = 0; i < pixels->size(); ++i)
        (*pixels)[i] = std::uint8_t(i * 7 + i / 1920);
    copycounter::watch(pixels->data(), pixels->size());

    orrin::QmlVideoDisplay display;
    auto rendering = std::make_unique<orrin::QmlRendering>(std::make_unique<orrin::QmlVideoFrameReceiver>());
    orrin::QmlRendering *bridge = rendering.get();
    orrin::Display mailbox;
    mailbox.setRenderer(QSharedPointer<orrin::ImageRenderingInterface>(rendering.release()));
    QObject::connect(bridge, &orrin::QmlRendering::currentFrameChanged, &display, [&] { display.setVideoFrame(bridge->currentFrame()); });
    const Result ours = measure(&display, [&](int i) {
        const std::uint8_t *base = pixels->data() + FrameBytes * std::size_t(i % Buffers);
        const orrin::Image::Planes planes{base, base + Width * Height, base + Width * Height * 5 / 4, Width, Width / 2};
        mailbox.setVideoFrame(orrin::VideoFrame(orrin::Image::fromPlanes(Width, Height, planes, pixels), std::uint64_t(i) + 1, 1));
    });

    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData("import QtMultimedia\nVideoOutput {}", QUrl());
    std::unique_ptr<QObject> object(component.create());
    auto *output = qobject_cast<QQuickItem *>(object.get());
    if (!output) {
        std::fprintf(stderr, "%s\n", qPrintable(component.errorString()));
        return 1;
    }
    auto *sink = qvariant_cast<QVideoSink *>(output->property("videoSink"));
    const QVideoFrameFormat format(QSize(Width, Height), QVideoFrameFormat::Format_YUV420P);
    // QVideoFrame owns its memory: a source that decodes elsewhere has to copy each plane into it.
    const Result theirs = measure(output, [&](int i) {
        const std::uint8_t *base = pixels->data() + FrameBytes * std::size_t(i % Buffers);
        QVideoFrame frame(format);
        if (!frame.map(QVideoFrame::WriteOnly))
            return;
        std::size_t offset = 0;
        for (int plane = 0; plane < frame.planeCount(); ++plane) {
            const int lines = plane == 0 ? Height : Height / 2;
            const volatile int bytes = plane == 0 ? Width : Width / 2; // volatile: a call to memcpy, which is counted
            for (int line = 0; line < lines; ++line)
                memcpy(frame.bits(plane) + std::ptrdiff_t(line) * frame.bytesPerLine(plane), base + offset + std::size_t(line) * std::size_t(bytes),
                       std::size_t(bytes));
            offset += std::size_t(lines) * std::size_t(bytes);
        }
        frame.unmap();
        sink->setVideoFrame(frame);
    });

    std::printf("Frame path, %dx%d, %d frames, CPU in us per frame\n", Width, Height, Rounds);
    std::printf("%-34s %9s %9s %9s %8s %8s\n", "", "GUI", "render", "sum", "ratio", "copies");
    print("VideoDisplay", ours, theirs);
    print("Qt Multimedia VideoOutput", theirs, theirs);
    std::printf("copies: bytes that memcpy read from the given pixels, over the size of a frame. VideoDisplay: the upload of its textures.\n"
                "        VideoOutput: the copy into QVideoFrame; its upload then reads from there and comes on top.\n");
    return 0;
}
