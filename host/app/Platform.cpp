#include "host/app/Platform.h"

#include <QGuiApplication>

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

} // namespace

std::optional<QString> PreparePlatform(const CommandLine& line) {
    if (!qEnvironmentVariableIsEmpty(kPlatformVariable)) {
        return std::nullopt;
    }
    if (line.road != Road::Client) {
        qputenv(kPlatformVariable, "offscreen");
    } else if (line.road == Road::Client && !HasDisplay()) {
        return u"这台机器没有显示器，无法打开窗口。\n"
               "可以用 vesk-tour --tour 文件夹 走查客户端，或用 import 导入照片。"_s;
    }
    return std::nullopt;
}

bool IsHeadless() {
    return QGuiApplication::platformName() == u"offscreen"_s ||
           QGuiApplication::platformName() == u"minimal"_s;
}

} // namespace host
