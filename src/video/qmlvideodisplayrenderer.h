// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/orrinsdkqmlglobal.h"

#include <contract/codecs/videoframe.h>

#include <QList>
#include <QQuickRhiItem>
#include <QRectF>
#include <QSize>
#include <QSizeF>

#include <array>
#include <cstdint>
#include <memory>

class QRhiBuffer;
class QRhiGraphicsPipeline;
class QRhiResourceUpdateBatch;
class QRhiSampler;
class QRhiShaderResourceBindings;
class QRhiTexture;

namespace orrin {

/*! Draws the newest frame of a QmlVideoDisplay: three planes as textures, converted to RGB on the GPU.

    Lives on the render thread; synchronize() runs with the main thread blocked and is the only place that touches the item. The
    planes are borrowed from the frame, which is held until the next one has come and nothing refers to it any more. Textures,
    bindings and pipeline stay while size and target stand. What cannot be made leaves the item as it is, without a message. */
class ORRINSDKQML_EXPORT QmlVideoDisplayRenderer : public QQuickRhiItemRenderer
{
public:
    QmlVideoDisplayRenderer();
    ~QmlVideoDisplayRenderer() override;

protected:
    void initialize(QRhiCommandBuffer *cb) override;
    void synchronize(QQuickRhiItem *item) override;
    void render(QRhiCommandBuffer *cb) override;

    /*! The texture of the luma plane; null before the first frame. Borrowed. */
    const QRhiTexture *lumaTexture() const { return m_textureY.get(); }
    const QRhiGraphicsPipeline *graphicsPipeline() const { return m_pipeline.get(); }

private:
    struct Vertex
    {
        float x = 0.0f;
        float y = 0.0f;
        float u = 0.0f;
        float v = 0.0f;
    };
    using Vertices = std::array<Vertex, 8>;
    static_assert(sizeof(Vertices) == 128);

    void takeFrame(const std::shared_ptr<VideoFrame> &frame);
    bool updateVertices();
    void dropPipelineOfOtherTarget();
    void prepare();
    void discardUpdateBatch();
    bool createTextures();
    void uploadPlanes();
    void bindTextures();
    bool createPipeline();

    QRhi *m_rhi = nullptr;
    const std::uint8_t *m_bitsY = nullptr;
    const std::uint8_t *m_bitsU = nullptr;
    const std::uint8_t *m_bitsV = nullptr;
    QRhiResourceUpdateBatch *m_updateBatch = nullptr; // filled, not yet handed to a pass
    std::unique_ptr<QRhiBuffer> m_vertexBuffer;
    std::unique_ptr<QRhiTexture> m_textureY;
    std::unique_ptr<QRhiSampler> m_samplerY;
    std::unique_ptr<QRhiTexture> m_textureU;
    std::unique_ptr<QRhiSampler> m_samplerU;
    std::unique_ptr<QRhiTexture> m_textureV;
    std::unique_ptr<QRhiSampler> m_samplerV;
    std::unique_ptr<QRhiShaderResourceBindings> m_shaderBindings;
    std::unique_ptr<QRhiGraphicsPipeline> m_pipeline;
    Vertices m_vertices{};
    std::shared_ptr<VideoFrame> m_frame;
    int m_frameWidth = 0;
    int m_frameHeight = 0;
    QSizeF m_itemSize;
    bool m_preserveAspectRatio = true;
    QRectF m_zoomRect;

    QList<quint32> m_targetFormat; // of the pipeline's render pass
    int m_targetSampleCount = 0;
    bool m_verticesPending = false; // to be uploaded with the next pass
    bool m_planesPending = false;
};

} // namespace orrin
