#include "issues/IssueTexts.h"

#include "base/ComponentText.h"
#include "toolkit/GbkText.h"

#include <QDateTime>

#include <string>

namespace issues {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidthOfLine = 28;
constexpr unsigned char kFirstLeadByte = 0x80;

} // namespace

QString LongTime(qint64 seconds) {
    return QDateTime::fromSecsSinceEpoch(seconds).toString(u"yyyy年MM月dd日 HH:mm:ss");
}

QString ComponentText(const KX_DATA::QuestionDetail& question) {
    return ZelvorNRQ_KXVeskPicture::ComponentText(question.floor, question.componentSubName,
                                                  question.componentName);
}

int DisplayWidth(const QString& text) {
    const std::string bytes = toolkit::ToGbk(text);
    int width = 0;
    for (size_t at = 0; at < bytes.size(); ++at) {
        const bool isPair = static_cast<unsigned char>(bytes[at]) >= kFirstLeadByte;
        width += isPair ? 2 : 1;
        at += isPair ? 1 : 0;
    }
    return width;
}

bool IsWide(const QString& value) {
    return DisplayWidth(value) > kWidthOfLine;
}

IssueLines LinesOf(const KX_DATA::QuestionDetail& question) {
    const QString component = ComponentText(question);
    // One that was never changed has no updater, whatever the record says.
    const bool isChanged = question.updateTime != question.createTime;
    IssueLines lines;
    lines.name = u"问题名称："_s + question.questionName;
    lines.component = u"问题构件："_s + component;
    lines.creator = u"    创建人："_s + question.creatorName;
    lines.updater = u"    更新人："_s + (isChanged ? question.updaterName : QString());
    lines.updateTime = u"更新时间："_s + (isChanged ? LongTime(question.updateTime) : QString());
    lines.nameTip = IsWide(question.questionName) ? lines.name : QString();
    lines.componentTip = IsWide(component) ? lines.component : QString();
    return lines;
}

PhotoLines LinesOf(const KX_DATA::QuestionPicRecord* pic) {
    PhotoLines lines{u"    上传人："_s, u"上传时间："_s};
    if (pic != nullptr) {
        lines.uploader += pic->uploaderName;
        lines.uploadTime += LongTime(pic->uploadTime);
    }
    return lines;
}

} // namespace issues
