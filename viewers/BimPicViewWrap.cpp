#include "viewers/BimPicViewWrap.h"

#include "base/ConsoleMode.h"
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
