#include "viewers/BimPicViewWrap.h"

#include "base/ConsoleMode.h"

using namespace Qt::StringLiterals;

CBimPicViewWrap::CBimPicViewWrap()
    : CReportViewWrap(std::make_unique<CBimPicViewDlg>(),
                      {u"BimPicViewWrap"_s, u"vesk照片查看"_s, kModeBim}) {}

bool CBimPicViewWrap::OpenView(const BimPlace& place, qint32 wantedPicId) {
    m_place = place;
    return Pane().LoadPosition(place, wantedPicId);
}

void CBimPicViewWrap::OnCreated() {
    CReportViewWrap::OnCreated();
    Pane().titleNotify = this;
}
