#include "bench/LargeSheet.h"

#include "bench/PeakMemory.h"
#include "bench/Stopwatch.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QPainter>
#include <QPdfDocument>
#include <QPdfWriter>
#include <QPolygonF>
#include <QProcess>
#include <QTextStream>

#include <numbers>
#include <random>

namespace bench {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPolylines = 2000;
constexpr int kSegments = 100;
constexpr double kPointsOfSegment = 12; ///< 4 mm
constexpr double kThinnest = 0.35;      ///< of a pen, points

/// 0 to 1, the same on every machine.
class Chance final {
public:
    double Next() { return double(m_engine()) / double(std::mt19937::max()); }

private:
    std::mt19937 m_engine{12};
};

/// Wanders about, as the lines of a site plan do.
QPolygonF Polyline(Chance& chance, const QRectF& sheet) {
    QPointF at(sheet.width() * chance.Next(), sheet.height() * chance.Next());
    double direction = 2 * std::numbers::pi * chance.Next();
    QPolygonF line{at};
    for (int i = 0; i < kSegments; ++i) {
        direction += chance.Next() - 0.5;
        at += kPointsOfSegment * QPointF(std::cos(direction), std::sin(direction));
        at = {std::clamp(at.x(), sheet.left(), sheet.right()),
              std::clamp(at.y(), sheet.top(), sheet.bottom())};
        line.append(at);
    }
    return line;
}

} // namespace

bool WriteLargeSheet(const QString& path) {
    QPdfWriter writer(path);
    writer.setPageSize(QPageSize(QPageSize::A0));
    writer.setPageOrientation(QPageLayout::Landscape);
    writer.setPageMargins({});
    writer.setResolution(72);
    QPainter painter;
    if (!painter.begin(&writer)) {
        return false;
    }
    Chance chance;
    const QRectF sheet(QPointF(), writer.pageLayout().fullRectPoints().size());
    for (int i = 0; i < kPolylines; ++i) {
        painter.setPen(QPen(QColor::fromHsv(i % 360, 200, 120), kThinnest * (1 + i % 4)));
        painter.drawPolyline(Polyline(chance, sheet));
    }
    return painter.end();
}

BareSheetCost RenderBareSheet(const QString& path, const QSize& pixels) {
    QProcess process;
    const Stopwatch timer;
    process.start(QCoreApplication::applicationFilePath(),
                  {u"--bare-sheet"_s, path, u"--width"_s, QString::number(pixels.width()),
                   u"--height"_s, QString::number(pixels.height())});
    process.waitForFinished(-1);
    const double passed = timer.Milliseconds();
    const QStringList words =
        QString::fromUtf8(process.readAllStandardOutput()).trimmed().split(u' ');
    if (process.exitCode() != 0 || words.size() != 3) {
        return {};
    }
    return {passed, words[0].toDouble(), words[1].toDouble(), words[2].toDouble()};
}

void AddBareSheetOptions(QCommandLineParser& options) {
    options.addOption({u"bare-sheet"_s, u"Only render the first page of a file."_s, u"file"_s});
    options.addOption({u"width"_s, u"Of that, pixels."_s, u"n"_s, u"1900"_s});
    options.addOption({u"height"_s, u"Of that, pixels."_s, u"n"_s, u"1000"_s});
}

int RunBareSheet(const QCommandLineParser& options) {
    const Stopwatch loading;
    QPdfDocument document;
    if (document.load(options.value(u"bare-sheet"_s)) != QPdfDocument::Error::None) {
        return 1;
    }
    const double loaded = loading.Milliseconds();
    const Stopwatch rendering;
    const QImage page =
        document.render(0, {options.value(u"width"_s).toInt(), options.value(u"height"_s).toInt()});
    QTextStream(stdout) << loaded << u' ' << rendering.Milliseconds() << u' ' << PeakMegabytes()
                        << Qt::endl;
    return page.isNull() ? 1 : 0;
}

} // namespace bench
