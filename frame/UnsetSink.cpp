#include "frame/UnsetSink.h"

#include "base/PictureLog.h"

using namespace Qt::StringLiterals;

namespace {

void LogSkipped(const QString& operation) {
    ZelvorNRQ_KXVeskPicture::WriteLog(u"未设置通知接口，跳过："_s + operation);
}

} // namespace

void UnsetSink::RefreshBimMarks() {
    LogSkipped(u"RefreshBimMarks"_s);
}

void UnsetSink::RefreshTNMarks() {
    LogSkipped(u"RefreshTNMarks"_s);
}

void UnsetSink::RefreshPdfMarks() {
    LogSkipped(u"RefreshPdfMarks"_s);
}

void UnsetSink::SelectCheckpoint(qint32 drawingId) {
    LogSkipped(u"SelectCheckpoint %1"_s.arg(drawingId));
}

void UnsetSink::SelectPictureMark(const QString& floor, qint32 markId, qint32 picId) {
    LogSkipped(u"SelectPictureMark %1 %2 %3"_s.arg(floor, QString::number(markId),
                                                   QString::number(picId)));
}

void UnsetSink::OnIssueEditVisible(qint32 visible) {
    LogSkipped(u"OnIssueEditVisible %1"_s.arg(visible));
}
