#include "tour/TourScreen.h"

#include <QByteArray>
#include <QSize>
#include <QTemporaryFile>

namespace tour {

namespace {

constexpr auto kPlatformVariable = "QT_QPA_PLATFORM";

/// The offscreen platform's own screen is 800 by 800 pixels, less than the console wants.
QByteArray ScreenConfig(const QSize& size, int scale) {
    return R"({"windowFrameMargins": false, "screens": [{"name": "tour", "x": 0, "y": 0,
 "logicalDpi": 96, "logicalBaseDpi": 96, "width": )" +
           QByteArray::number(size.width()) + R"(, "height": )" +
           QByteArray::number(size.height()) + R"(, "dpr": )" + QByteArray::number(scale) + "}]}\n";
}

} // namespace

void PrepareScreen(const QSize& size, int scale) {
    const QByteArray named = qgetenv(kPlatformVariable);
    if (!named.isEmpty() && !named.startsWith("offscreen")) {
        return;
    }
    static QTemporaryFile file; // read when the application object is made
    if (file.open() && file.write(ScreenConfig(size, scale)) > 0 && file.flush()) {
        qputenv(kPlatformVariable, "offscreen:configfile=" + file.fileName().toUtf8());
    } else {
        qputenv(kPlatformVariable, "offscreen");
    }
}

} // namespace tour
