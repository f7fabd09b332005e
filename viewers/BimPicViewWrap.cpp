#include "viewers/BimPicViewWrap.h"

#include "base/ConsoleMode.h"
#include "services/Factories.h"
#include "services/IPicReportCtrl.h"
#include "toolkit/windows/StillThere.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kRecordHeight = 300;
constexpr qint32 kRecordOfPosition = 1;

} // namespace

CBimPicViewWrap::CBimPicViewWrap()
    : CReportViewWrap(std::make_unique<CBimPicViewDlg>(),
                      {u"BimPicViewWrap"_s, u"vesk照片查看"_s, kModeBim, kRecordHeight}) {}

bool CBimPicViewWrap::OpenView(const BimPlace& place, qint32 wantedPicId) {
    const toolkit::StillThere still(Id());
    m_place = place;
    RichContext record;
    record.objectId = place.positionKey;
    record.subId = place.markId;
    record.ownerId = place.ppid;
    record.objectType = kRecordOfPosition;
    record.projectId = place.ppid;
    ShowRecord(record);
    return still && Pane().LoadPosition(place, wantedPicId);
}

void CBimPicViewWrap::OnCreated() {
    CReportViewWrap::OnCreated();
    Pane().titleNotify = this;
}

// Of the place with all its photos, whichever is on show.
void CBimPicViewWrap::AskForReport(const ReportTexts& texts) {
    PIC_REPORT::BimReportRequest request;
    request.htmlText = texts.html;
    request.richTextEnabled = texts.isEnabled;
    request.floor = m_place.floor;
    request.positionKey = m_place.positionKey;
    request.markId = m_place.markId;
    request.versionText = texts.state;
    request.recordText = texts.editorName;
    GetPicReportCtrl()->OutputBimReport(&request);
}
