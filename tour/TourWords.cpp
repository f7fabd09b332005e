#include "tour/TourWords.h"

#include <optional>

namespace tour {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLargestScale = 4;
constexpr int kLeastScreen = 600;

bool TakeWalk(const QString& value, TourWords& words) {
    if (value != u"sample"_s && value != u"own"_s) {
        words.error = u"--tour-walk 只能是 sample 或 own，不能是“%1”。"_s.arg(value);
        return false;
    }
    words.walk = value == u"own"_s ? WalkKind::OwnSite : WalkKind::Sample;
    return true;
}

bool TakeScreen(const QString& value, TourWords& words) {
    words.screen = {value.section(u'x', 0, 0).toInt(), value.section(u'x', 1).toInt()};
    if (words.screen.width() < kLeastScreen || words.screen.height() < kLeastScreen) {
        words.error = u"--tour-screen 要写成 1366x768 这样，不能是“%1”。"_s.arg(value);
        return false;
    }
    return true;
}

bool TakeScale(const QString& value, TourWords& words) {
    words.scale = value.toInt();
    if (words.scale < 1 || words.scale > kLargestScale) {
        words.error = u"--tour-scale 只能是 1 到 4 的整数，不能是“%1”。"_s.arg(value);
        return false;
    }
    return true;
}

/// Takes an option of the walk itself. False: `words.error` says why.
bool TakeTourOption(const QString& name, const std::optional<QString>& value, TourWords& words) {
    if (!value || value->isEmpty()) {
        words.error = u"选项 %1 后面缺少内容。"_s.arg(name);
        return false;
    }
    if (name == u"--tour"_s) {
        words.folder = *value;
        return true;
    }
    if (name == u"--tour-walk"_s) {
        return TakeWalk(*value, words);
    }
    return name == u"--tour-screen"_s ? TakeScreen(*value, words) : TakeScale(*value, words);
}

QString FaultOf(const TourWords& words) {
    if (!words.client.error.isEmpty()) {
        return words.client.error;
    }
    if (words.client.road != host::Road::Client) {
        return u"走查不导入照片：import 属于 vesk-client。"_s;
    }
    return words.folder.isEmpty() ? u"没有写存图片的文件夹：--tour 文件夹。"_s : QString();
}

} // namespace

TourWords ReadTourWords(const QStringList& words) {
    static const QStringList tourOptions{u"--tour"_s, u"--tour-walk"_s, u"--tour-screen"_s,
                                         u"--tour-scale"_s};
    TourWords read;
    QStringList rest;
    for (qsizetype at = 0; at < words.size(); ++at) {
        const QString name = words[at].section(u'=', 0, 0);
        if (!tourOptions.contains(name)) {
            rest << words[at];
        } else if (!TakeTourOption(name, host::TakeValue(words, at), read)) {
            return read;
        }
    }
    read.client = host::ParseCommandLine(rest);
    read.wantsHelp = read.client.road == host::Road::Help;
    read.error = read.wantsHelp ? QString() : FaultOf(read);
    return read;
}

QString TourHelpText() {
    return uR"(用法：
  vesk-tour --tour 文件夹 [选项]      无显示器时走一遍客户端，把各窗口的图片存到该文件夹

选项：
  --tour-walk 走法    sample（示例站点，各窗口都走到）或 own（从空白到自己的工程）
  --tour-screen 尺寸  屏幕的大小，例如 1366x768
  --tour-scale 倍数   走查时的屏幕缩放，1 到 4
  --data 文件夹       数据文件夹；不写则用临时文件夹里的小示例
  --user 姓名         以此用户登录，不再询问
  --transfers 方式    演示文件传输：normal（正常）、slow（慢）、fail（中途失败）、hang（停住不动）
  --help              显示本说明
)"_s;
}

} // namespace tour
