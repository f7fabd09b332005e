#include "viewers/BimPicViewDlg.h"

#include "base/ConsoleMode.h"
#include "base/FacadeAccess.h"
#include "base/Guard.h"
#include "base/PictureLog.h"
#include "services/Factories.h"
#include "services/IKXGlobalData.h"
#include "toolkit/Look.h"
#include "toolkit/windows/StillThere.h"

#include <utility>

using namespace Qt::StringLiterals;

using ZelvorNRQ_KXVeskPicture::e_VeskPicMngStatus;

namespace {

gallery::NoteTerms TermsOf(const CPicViewDlg& pane) {
    gallery::NoteTerms terms;
    terms.source = [&pane] { return gallery::CurrentNote(pane.State()); };
    return terms;
}

gallery::PhotoEntry EntryOf(const BimViewItem& item, const GalleryItem& files) {
    return {item.picId, item.kind, files.picUuid, files.audioUuid};
}

} // namespace

CBimPicViewDlg::CBimPicViewDlg()
    : m_note(*this, TermsOf(*this)), m_block(gallery::BimViewerBlock(), u"   更新人："_s) {}

bool CBimPicViewDlg::LoadPosition(const BimPlace& place, qint32 wantedPicId) {
    return LoadPhotos(std::make_shared<gallery::BimPhotoSource>(place), place.ppid, wantedPicId);
}

bool CBimPicViewDlg::LoadPhotos(const std::shared_ptr<gallery::IPhotoSource>& source, qint32 ppid,
                                qint32 wantedPicId) {
    items.clear();
    const toolkit::StillThere still(Id());
    const auto photos = source->List();
    if (!photos || !still) {
        return false;
    }
    m_source = source;
    const std::vector<GalleryItem> pictures = source->Files(*photos);
    SetCurrentIndex(gallery::IndexOfPhoto(*photos, wantedPicId));
    for (const gallery::PhotoEntry& photo : *photos) {
        BimViewItem& item = items.emplace_back();
        item.picId = photo.picId;
        item.ppid = ppid;
        item.kind = photo.kind;
    }
    // A place without photos changes nothing but the picture: texts and note of the last photo
    // stay.
    SetPicItems(pictures);
    return true;
}

void CBimPicViewDlg::OnCurPicChanged(int index) {
    m_note.OnPicChanged();
    ShowPicDetail(index);
}

void CBimPicViewDlg::ShowPicDetail(int index) {
    if (index < 0 || index >= int(items.size())) {
        return;
    }
    const BimViewItem item = items[size_t(index)];
    if (item.loaded == 0) {
        // Kept while it is asked: another place may be opened meanwhile.
        const std::shared_ptr<gallery::IPhotoSource> source = m_source;
        const toolkit::StillThere still(Id());
        const auto detail = source->Detail(EntryOf(item, State().items[size_t(index)]));
        // The service may have let the viewer be closed, or another place be opened in it.
        if (!still || index >= int(items.size()) || items[size_t(index)].picId != item.picId) {
            return;
        }
        if (!detail) {
            ShowStatus(Id(), e_VeskPicMngStatus::PicInfoFailed);
            return;
        }
        static_cast<gallery::PhotoDetail&>(items[size_t(index)]) = *detail;
        items[size_t(index)].loaded = 1;
    }
    ShowItem(index);
}

void CBimPicViewDlg::ShowItem(int index) {
    const BimViewItem& item = items[size_t(index)];
    gallery::PhotoBlockTexts texts;
    texts.position = item.posText;
    texts.uploader = item.uploader;
    texts.uploadTime = item.uploadTime;
    texts.updater = item.updater;
    texts.updateTime = item.updateTime;
    texts.description = item.description;
    texts.labels = gallery::JoinLabels(item.labels, u' ');
    texts.labelTip = gallery::JoinLabels(item.labels, u'\n');
    m_block.ShowMark(item.markName, item.markColor);
    m_block.ShowTexts(texts);
    m_note.ShowNote();
    const QString title = gallery::BimViewTitle(item.name, index, int(items.size()));
    Widget()->setWindowTitle(toolkit::PlainTitle(title));
    if (titleNotify != nullptr) {
        titleNotify->OnTitleChanged(title);
    }
}

void CBimPicViewDlg::MakeReportButton() {
    m_report = new QPushButton(u"输出报告"_s, Widget());
    m_report->setObjectName(u"reportButton"_s);
    m_report->setToolTip(u"把此位置的照片输出为报告"_s);
    m_report->setAutoDefault(false);
    m_report->setEnabled(!GetKXGlobalData()->IsWorksetMode());
    QObject::connect(m_report, &QPushButton::clicked, Widget(), [this] {
        if (titleNotify != nullptr) {
            titleNotify->OnOutputReport();
        }
    });
}

void CBimPicViewDlg::OnCreated() {
    CPicViewDlg::OnCreated();
    ZelvorNRQ_KXVeskPicture::WriteLog(u"-------BIM模型照片查看-------"_s);
    m_block.MakeControls(*Widget(), m_note);
    MakeReportButton();
    LayoutPicPane();
}

void CBimPicViewDlg::OnDestroyed() {
    m_note.StopIfPlaying();
    CPicViewDlg::OnDestroyed();
}

void CBimPicViewDlg::LayoutPicPane() {
    if (!m_block.HasControls()) {
        return;
    }
    const QSize pane = Widget()->size();
    m_block.LayOut(pane, m_note);
    const gallery::BimViewerPlaces places = gallery::PlaceBimViewer(pane);
    m_report->setGeometry(places.report);
    m_report->show();
    SetPicRects(places.bigArea, places.stripArea);
    Widget()->update(0, places.bigArea.bottom() + 1, pane.width(), pane.height());
}

void CBimPicViewDlg::OnClose() {
    m_note.OnClose();
    ZelvorNRQ_KXVeskPicture::PictureFacade().BringConsoleBack(kModeBim);
    Destroy();
}

void CBimPicViewDlg::OnTimer(int timerId) {
    if (!m_note.OnTimer(timerId)) {
        CPicViewDlg::OnTimer(timerId);
    }
}
