#include "viewers/BimPicViewWrap.h"

#include "base/ConsoleMode.h"
#include "base/FacadeAccess.h"
#include "base/MissingDialogs.h"

using namespace Qt::StringLiterals;

bool CBimPicViewWrap::OpenView(const BimPlace& place, qint32 wantedPicId) {
    m_place = place;
    return picView.LoadPosition(place, wantedPicId);
}

void CBimPicViewWrap::OnCreated() {
    CPicViewWrap::OnCreated();
    Widget()->setObjectName(u"BimPicViewWrap"_s);
    Widget()->setWindowTitle(u"vesk照片查看"_s);
    picView.titleNotify = this;
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
    picView.Note().StopIfPlaying();
    ZelvorNRQ_KXVeskPicture::PictureFacade().BringConsoleBack(kModeBim);
    DestroyViews();
}

void CBimPicViewWrap::DestroyViews() {
    picView.Destroy();
    Destroy();
}

void CBimPicViewWrap::OnDestroyed() {
    m_report.End();
}
