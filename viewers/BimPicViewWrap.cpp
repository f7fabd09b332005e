#include "viewers/BimPicViewWrap.h"

#include "base/ConsoleMode.h"
#include "base/FacadeAccess.h"
#include "base/MissingDialogs.h"

using namespace Qt::StringLiterals;

CBimPicViewWrap::CBimPicViewWrap() : CPicViewWrap(std::make_unique<CBimPicViewDlg>()) {}

bool CBimPicViewWrap::OpenView(const BimPlace& place, qint32 wantedPicId) {
    m_place = place;
    return Pane().LoadPosition(place, wantedPicId);
}

void CBimPicViewWrap::OnCreated() {
    CPicViewWrap::OnCreated();
    Widget()->setObjectName(u"BimPicViewWrap"_s);
    Widget()->setWindowTitle(u"vesk照片查看"_s);
    Pane().titleNotify = this;
}

void CBimPicViewWrap::OnTitleChanged(const QString& title) {
    if (!HasWindow()) {
        return;
    }
    Widget()->setWindowTitle(title);
    LayoutWrap();
}

void CBimPicViewWrap::OnOutputReport() {
    m_report.Run([] {
        ZelvorNRQ_KXVeskPicture::AnswerAsCancelled(ZelvorNRQ_KXVeskPicture::MissingDialog::Report);
    });
}

void CBimPicViewWrap::OnTimer(int timerId) {
    m_report.OnTimer(timerId);
}

void CBimPicViewWrap::OnClose() {
    Pane().Note().StopIfPlaying();
    ZelvorNRQ_KXVeskPicture::PictureFacade().BringConsoleBack(kModeBim);
    DestroyViews();
}

void CBimPicViewWrap::OnDestroyed() {
    m_report.End();
}
