#include "viewers/BimPicViewWrap.h"

#include "base/ConsoleMode.h"
#include "base/FacadeAccess.h"
#include "base/MissingDialogs.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kReportTimer = 1;
constexpr int kReportLookMs = 1000;

} // namespace

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
    m_block.Begin();
    ZelvorNRQ_KXVeskPicture::AnswerAsCancelled(ZelvorNRQ_KXVeskPicture::MissingDialog::Report);
    SetTimer(kReportTimer, kReportLookMs);
}

void CBimPicViewWrap::OnTimer(int timerId) {
    if (timerId != kReportTimer || gallery::ClientBlock::IsReportOpen()) {
        return;
    }
    KillTimer(kReportTimer);
    m_block.End();
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
    // Nobody else would end it: the timer goes with the window.
    m_block.End();
}
