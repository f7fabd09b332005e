#include "tour/TourScreen.h"

#include <QByteArray>
#include <QTemporaryFile>

namespace tour {

namespace {

constexpr auto kPlatformVariable = "QT_QPA_PLATFORM";

/// The offscreen platform's own screen is 800 by 800 pixels, less than the console wants.
QByteArray ScreenConfig(int scale) {
    return R"({"windowFrameMargins": false, "screens": [{"name": "tour", "x": 0, "y": 0,
 "width": 1920, "height": 1080, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": )" +
           QByteArray::number(scale) + "}]}\n";
}

} // namespace

void PrepareScreen(int scale) {
    const QByteArray named = qgetenv(kPlatformVariable);
    if (!named.isEmpty() && !named.startsWith("offscreen")) {
        return;
    }
    static QTemporaryFile file; // read when the application object is made
    if (file.open() && file.write(ScreenConfig(scale)) > 0 && file.flush()) {
        qputenv(kPlatformVariable, "offscreen:configfile=" + file.fileName().toUtf8());
    } else {
        qputenv(kPlatformVariable, "offscreen");
    }
}

} // namespace tour
