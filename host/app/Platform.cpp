#include "host/app/Platform.h"

#include <QGuiApplication>
#include <QTemporaryFile>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr auto kPlatformVariable = "QT_QPA_PLATFORM";

bool HasDisplay() {
#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
    return !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
#else
    return true;
#endif
}

/// The offscreen platform's own screen is 800 by 800 pixels, less than the console wants.
QByteArray ScreenConfig(int scale) {
    return R"({"windowFrameMargins": false, "screens": [{"name": "tour", "x": 0, "y": 0,
 "width": 1920, "height": 1080, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": )" +
           QByteArray::number(scale) + "}]}\n";
}

void SetTourScreen(int scale) {
    static QTemporaryFile file; // read when the application object is made
    if (file.open() && file.write(ScreenConfig(scale)) > 0 && file.flush()) {
        qputenv(kPlatformVariable, "offscreen:configfile=" + file.fileName().toUtf8());
    } else {
        qputenv(kPlatformVariable, "offscreen");
    }
}

} // namespace

std::optional<QString> PreparePlatform(const CommandLine& line) {
    const QByteArray named = qgetenv(kPlatformVariable);
    const bool namesDisplay = !named.isEmpty() && !named.startsWith("offscreen");
    if (line.road == Road::Tour && !namesDisplay) {
        SetTourScreen(line.tourScale);
    } else if (line.road == Road::Import && named.isEmpty()) {
        qputenv(kPlatformVariable, "offscreen");
    } else if (line.road == Road::Client && named.isEmpty() && !HasDisplay()) {
        return u"这台机器没有显示器，无法打开窗口。\n"
               "可以用 --tour 文件夹 走查客户端，或用 import 导入照片。"_s;
    }
    return std::nullopt;
}

bool IsHeadless() {
    return QGuiApplication::platformName() == u"offscreen"_s ||
           QGuiApplication::platformName() == u"minimal"_s;
}

} // namespace host
