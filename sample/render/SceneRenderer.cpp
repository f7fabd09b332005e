#include "sample/render/SceneRenderer.h"

#include "sample/render/RunShader.h"

namespace sample {

namespace {
constexpr float kFarthest = 400; // metres
}

QImage SceneRenderer::Render(const Scene& scene, QSize size) {
    const ViewFrame view = MakeViewFrame(scene.camera, size);
    m_depth.Reset(size.width(), size.height(), 1 / kFarthest);
    ProjectScene(scene, view, m_depth);
    m_shadow.Prepare(scene, view);
    m_occlusion.Find(scene, view, m_depth);
    QImage image(size, QImage::Format_RGB32);
    const RunShader shader({scene, view, m_depth, m_occlusion, m_shadow});
    for (int y = 0; y < size.height(); ++y) {
        shader.ShadeRow(y, reinterpret_cast<quint32*>(image.scanLine(y)));
    }
    return image;
}

} // namespace sample
