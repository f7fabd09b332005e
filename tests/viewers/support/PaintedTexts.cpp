#include "tests/viewers/support/PaintedTexts.h"

#include <QPaintDevice>
#include <QPaintEngine>

namespace support {

namespace {

constexpr int kDpi = 96;

class TextEngine final : public QPaintEngine {
public:
    TextEngine() : QPaintEngine(QPaintEngine::AllFeatures) {}

    std::vector<PaintedText> texts;

    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState&) override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    void drawImage(const QRectF&, const QImage&, const QRectF&, Qt::ImageConversionFlags) override {
    }
    void drawRects(const QRectF*, int) override {}
    void drawPath(const QPainterPath&) override {}
    void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
    void drawTextItem(const QPointF& place, const QTextItem& item) override {
        texts.push_back({item.text(), painter()->pen().color(), item.font(), place});
    }
    [[nodiscard]] Type type() const override { return User; }
};

class TextPaper final : public QPaintDevice {
public:
    [[nodiscard]] QPaintEngine* paintEngine() const override { return &engine; }

    mutable TextEngine engine;

protected:
    [[nodiscard]] int metric(PaintDeviceMetric metric) const override {
        switch (metric) {
        case PdmWidth:
        case PdmHeight:
            return 1000;
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY:
            return kDpi;
        case PdmDepth:
            return 32;
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return int(devicePixelRatioFScale());
        default:
            return 0;
        }
    }
};

} // namespace

std::vector<PaintedText> TextsOf(const std::function<void(QPainter&)>& paint) {
    TextPaper paper;
    QPainter painter(&paper);
    paint(painter);
    painter.end();
    return paper.engine.texts;
}

} // namespace support
