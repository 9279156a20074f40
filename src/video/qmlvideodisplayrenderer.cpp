// SPDX-License-Identifier: GPL-3.0-or-later
#include "video/qmlvideodisplayrenderer.h"

#include "video/qmlvideodisplay.h"

#include <contract/util/displaygeometry.h>

#include <QColor>
#include <QDebug>
#include <QFile>
#include <QImage>

#include <rhi/qrhi.h>

namespace orrin {

namespace {

QShader loadShader(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QShader::fromSerialized(file.readAll());
}

std::unique_ptr<QRhiTexture> createPlaneTexture(QRhi *rhi, QSize size)
{
    std::unique_ptr<QRhiTexture> texture(rhi->newTexture(QRhiTexture::R8, size, 1));
    return texture->create() ? std::move(texture) : nullptr;
}

std::unique_ptr<QRhiSampler> createPlaneSampler(QRhi *rhi)
{
    std::unique_ptr<QRhiSampler> sampler(rhi->newSampler(QRhiSampler::Linear, QRhiSampler::Linear,
                                                         QRhiSampler::None, QRhiSampler::ClampToEdge,
                                                         QRhiSampler::ClampToEdge, QRhiSampler::Repeat));
    return sampler->create() ? std::move(sampler) : nullptr;
}

/*! Each line of \a bits is the width rounded up to 4 bytes, which is what an 8-bit image takes; nothing is
 * copied. */
QImage wrapPlane(const std::uint8_t *bits, QSize size)
{
    return QImage(bits, size.width(), size.height(), QImage::Format_Grayscale8);
}

} // namespace

QmlVideoDisplayRenderer::QmlVideoDisplayRenderer() = default;

QmlVideoDisplayRenderer::~QmlVideoDisplayRenderer()
{
    discardUpdateBatch();
}

void QmlVideoDisplayRenderer::initialize(QRhiCommandBuffer *cb)
{
    Q_UNUSED(cb)
    if (m_rhi != rhi()) {
        m_rhi = rhi();
        m_updateBatch = nullptr; // belonged to the one before and went with it
        m_pipeline.reset();
        m_shaderBindings.reset();
        m_textureY.reset();
        m_textureU.reset();
        m_textureV.reset();
        m_samplerY.reset();
        m_samplerU.reset();
        m_samplerV.reset();
        m_vertexBuffer.reset();
        m_planesPending = m_frame != nullptr;
        qDebug() << "VideoDisplayRenderer::initialize - Using implementation:"
                 << QRhi::backendName(m_rhi->backend());
    }
    dropPipelineOfOtherTarget();
    // With a pipeline in place synchronize(), which comes next, prepares whatever has changed.
    if (!m_pipeline)
        prepare();
}

void QmlVideoDisplayRenderer::synchronize(QQuickRhiItem *item)
{
    const auto *display = dynamic_cast<QmlVideoDisplay *>(item);
    if (!display)
        return;

    bool isChanged = false;
    if (m_itemSize != display->size()) {
        m_itemSize = display->size();
        isChanged = true;
    }
    if (m_preserveAspectRatio != display->preserveAspectRatio()) {
        m_preserveAspectRatio = display->preserveAspectRatio();
        isChanged = true;
    }
    if (m_zoomRect != display->zoomRect()) {
        m_zoomRect = display->zoomRect();
        isChanged = true;
    }
    if (m_frame != display->currentFrame()) {
        takeFrame(display->currentFrame());
        isChanged = true;
    }
    if (!isChanged)
        return;

    updateVertices();
    // initialize() ran before this with the frame of last time: prepared here, the new one shows at once.
    prepare();
}

void QmlVideoDisplayRenderer::render(QRhiCommandBuffer *cb)
{
    if (!m_rhi)
        return;
    QRhiRenderTarget *target = renderTarget();
    if (!m_pipeline) {
        // Nothing to draw yet; a target that was never written to may hold anything.
        cb->beginPass(target, Qt::transparent, {1.0f, 0});
        cb->endPass();
        return;
    }

    QRhiResourceUpdateBatch *batch = m_updateBatch;
    m_updateBatch = nullptr;
    m_verticesPending = false;
    m_planesPending = false;

    const QSize size = target->pixelSize();
    const QRhiCommandBuffer::VertexInput input(m_vertexBuffer.get(), 0);
    cb->beginPass(target, QColor::fromRgbF(0.1f, 0.1f, 0.1f, 1.0f), {1.0f, 0}, batch);
    cb->setGraphicsPipeline(m_pipeline.get());
    cb->setViewport({0.0f, 0.0f, float(size.width()), float(size.height()), 0.0f, 1.0f});
    cb->setShaderResources();
    cb->setVertexInput(0, 1, &input);
    cb->draw(quint32(m_vertices.size()), 1, 0, 0);
    cb->endPass();
}

void QmlVideoDisplayRenderer::takeFrame(const std::shared_ptr<VideoFrame> &frame)
{
    // A batch that no pass has taken refers to the planes of the frame that goes.
    discardUpdateBatch();
    m_frame = frame;
    m_frameWidth = frame ? frame->width() : 0;
    m_frameHeight = frame ? frame->height() : 0;
    m_bitsY = frame ? frame->bitsY() : nullptr;
    m_bitsU = frame ? frame->bitsU() : nullptr;
    m_bitsV = frame ? frame->bitsV() : nullptr;
    m_planesPending = frame != nullptr;
}

bool QmlVideoDisplayRenderer::updateVertices()
{
    if (!m_rhi || !m_bitsY || !m_bitsU || !m_bitsV)
        return false;
    const QRectF rect = m_zoomRect.isNull() ? QRectF(0, 0, m_frameWidth, m_frameHeight) : m_zoomRect;
    const NDCRect ndc = zoomRectToNdcRect(rect, m_itemSize);
    const auto x1 = float(ndc.x1);
    const auto x2 = float(ndc.x2);
    // Plane line 0 is the picture's top and goes to y1. Where y runs down in device coordinates the sign
    // turns, so that a panned picture lies at the same place on every backend and no plane has to be mirrored
    // in memory.
    const float up = m_rhi->isYUpInNDC() ? 1.0f : -1.0f;
    const float y1 = up * float(ndc.y1);
    const float y2 = up * float(ndc.y2);
    m_vertices = {{{x1, y2, 0.0f, 1.0f},
                   {x2, y2, 1.0f, 1.0f},
                   {x1, y1, 0.0f, 0.0f},
                   {x1, y1, 0.0f, 0.0f},
                   {x2, y1, 1.0f, 0.0f},
                   {x2, y2, 1.0f, 1.0f},
                   {},
                   {}}};
    m_verticesPending = true;
    return true;
}

void QmlVideoDisplayRenderer::dropPipelineOfOtherTarget()
{
    const QList<quint32> format = renderTarget()->renderPassDescriptor()->serializedFormat();
    const int sampleCount = renderTarget()->sampleCount();
    if (m_targetFormat == format && m_targetSampleCount == sampleCount)
        return;
    m_targetFormat = format;
    m_targetSampleCount = sampleCount;
    m_pipeline.reset();
}

/*! Fills the batch of the next pass with everything that has changed since the last one, and makes what is
 * missing. */
void QmlVideoDisplayRenderer::prepare()
{
    if (!m_vertexBuffer) {
        if (!updateVertices())
            return;
        m_vertexBuffer.reset(
            m_rhi->newBuffer(QRhiBuffer::Immutable, QRhiBuffer::VertexBuffer, quint32(sizeof(Vertices))));
        if (!m_vertexBuffer->create()) {
            m_vertexBuffer.reset();
            return;
        }
    }
    // Batches come from a small pool: one that no pass has taken goes back before the next is asked for.
    discardUpdateBatch();
    m_updateBatch = m_rhi->nextResourceUpdateBatch();
    if (!m_updateBatch)
        return;
    if (m_verticesPending)
        m_updateBatch->uploadStaticBuffer(m_vertexBuffer.get(), 0, quint32(sizeof(Vertices)),
                                          m_vertices.data());
    if (m_planesPending) {
        if (!createTextures())
            return;
        uploadPlanes();
    }
    if (!m_pipeline && !createPipeline())
        m_pipeline.reset();
}

void QmlVideoDisplayRenderer::discardUpdateBatch()
{
    if (m_updateBatch)
        m_updateBatch->release();
    m_updateBatch = nullptr;
}

bool QmlVideoDisplayRenderer::createTextures()
{
    const QSize size(m_frameWidth, m_frameHeight);
    const QSize chromaSize(m_frameWidth / 2, m_frameHeight / 2);
    if (size.isEmpty() || chromaSize.isEmpty())
        return false;
    if (m_textureY && m_textureY->pixelSize() == size)
        return true;

    auto textureY = createPlaneTexture(m_rhi, size);
    auto textureU = createPlaneTexture(m_rhi, chromaSize);
    auto textureV = createPlaneTexture(m_rhi, chromaSize);
    if (!m_samplerY)
        m_samplerY = createPlaneSampler(m_rhi);
    if (!m_samplerU)
        m_samplerU = createPlaneSampler(m_rhi);
    if (!m_samplerV)
        m_samplerV = createPlaneSampler(m_rhi);
    if (!textureY || !textureU || !textureV || !m_samplerY || !m_samplerU || !m_samplerV)
        return false;
    m_textureY = std::move(textureY);
    m_textureU = std::move(textureU);
    m_textureV = std::move(textureV);
    bindTextures();
    return true;
}

void QmlVideoDisplayRenderer::uploadPlanes()
{
    const QSize size(m_frameWidth, m_frameHeight);
    const QSize chromaSize(m_frameWidth / 2, m_frameHeight / 2);
    m_updateBatch->uploadTexture(m_textureY.get(), wrapPlane(m_bitsY, size));
    m_updateBatch->uploadTexture(m_textureU.get(), wrapPlane(m_bitsU, chromaSize));
    m_updateBatch->uploadTexture(m_textureV.get(), wrapPlane(m_bitsV, chromaSize));
}

void QmlVideoDisplayRenderer::bindTextures()
{
    // The layout never changes, so that the pipeline stays good for new textures.
    const bool isNew = !m_shaderBindings;
    if (isNew)
        m_shaderBindings.reset(m_rhi->newShaderResourceBindings());
    constexpr auto stage = QRhiShaderResourceBinding::FragmentStage;
    m_shaderBindings->setBindings({
        QRhiShaderResourceBinding::sampledTexture(1, stage, m_textureY.get(), m_samplerY.get()),
        QRhiShaderResourceBinding::sampledTexture(2, stage, m_textureU.get(), m_samplerU.get()),
        QRhiShaderResourceBinding::sampledTexture(3, stage, m_textureV.get(), m_samplerV.get()),
    });
    if (isNew)
        m_shaderBindings->create();
    else
        m_shaderBindings->updateResources();
}

bool QmlVideoDisplayRenderer::createPipeline()
{
    if (!m_shaderBindings)
        return false;
    const QShader vertexShader = loadShader(QStringLiteral(":/shaders/yuv.vert.qsb"));
    const QShader fragmentShader = loadShader(QStringLiteral(":/shaders/yuv.frag.qsb"));
    if (!vertexShader.isValid() || !fragmentShader.isValid())
        return false;

    QRhiVertexInputLayout layout;
    layout.setBindings({QRhiVertexInputBinding(sizeof(Vertex))});
    layout.setAttributes({
        QRhiVertexInputAttribute(0, 0, QRhiVertexInputAttribute::Float2, offsetof(Vertex, x)),
        QRhiVertexInputAttribute(0, 1, QRhiVertexInputAttribute::Float2, offsetof(Vertex, u)),
    });

    m_pipeline.reset(m_rhi->newGraphicsPipeline());
    m_pipeline->setDepthTest(true);
    m_pipeline->setDepthWrite(true);
    m_pipeline->setSampleCount(m_targetSampleCount);
    m_pipeline->setShaderStages({QRhiShaderStage(QRhiShaderStage::Vertex, vertexShader),
                                 QRhiShaderStage(QRhiShaderStage::Fragment, fragmentShader)});
    m_pipeline->setVertexInputLayout(layout);
    m_pipeline->setShaderResourceBindings(m_shaderBindings.get());
    m_pipeline->setRenderPassDescriptor(renderTarget()->renderPassDescriptor());
    return m_pipeline->create();
}

} // namespace orrin
