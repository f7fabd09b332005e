#include "issues/IssueEdit.h"

namespace issues {

using namespace Qt::StringLiterals;

QString MajorWord(qint32 major) {
    switch (major) {
    case 1:
        return u"土建"_s;
    case 2:
        return u"钢筋"_s;
    case 3:
        return u"安装"_s;
    case 4:
        return u"Revit"_s;
    default:
        return {};
    }
}

KX_DATA::QRCodeQuery QueryOf(const KX_DATA::PickedComponent& component, const QString& major,
                             qint32 ppid) {
    KX_DATA::QRCodeQuery query;
    query.text2 = component.text2;
    query.text3 = component.text3;
    query.componentName = component.componentName;
    query.floor = component.floor;
    query.componentHandle = component.componentHandle;
    query.componentSubName = component.componentSubName;
    query.majorWord = major;
    query.text1 = component.text1;
    query.ppid = ppid;
    return query;
}

KX_DATA::IssueUpdate UpdateOf(const KX_DATA::QuestionDetail& question) {
    KX_DATA::IssueUpdate update;
    update.description = question.description;
    update.questionId = question.questionId;
    update.markId = question.markId;
    update.questionName = question.questionName;
    update.status = question.status;
    update.componentHandle = question.componentHandle;
    update.floor = question.floor;
    update.qrCode = question.qrCode;
    return update;
}

} // namespace issues
