#include "viewers/BimPicViewDlg.h"

#include "base/ConsoleMode.h"
#include "base/FacadeAccess.h"
#include "base/Guard.h"
#include "base/OpenProject.h"
#include "base/PictureLog.h"
#include "base/StoredFile.h"
#include "services/Factories.h"
#include "services/IKXGlobalData.h"
#include "services/IKXPathMng.h"
#include "services/IProjCacheMng.h"
#include "services/IVeskPicMng.h"
#include "toolkit/GbkText.h"
#include "toolkit/KXTools.h"
#include "toolkit/Look.h"
#include "toolkit/WaitCursor.h"

#include <optional>

using namespace Qt::StringLiterals;

using ZelvorNRQ_KXVeskPicture::e_VeskPicMngStatus;

namespace {

gallery::NoteTerms TermsOf(const CPicViewDlg& pane) {
    gallery::NoteTerms terms;
    terms.source = [&pane] { return gallery::CurrentNote(pane.State()); };
    return terms;
}

QString PicFolder(qint32 ppid) {
    const auto project = ZelvorNRQ_KXVeskPicture::CurrentProject();
    QString folder;
    GetKXPathMng()->GetPicFolder(folder, ppid, project ? project->name : QString());
    return folder;
}

void KeepShownInModel(std::vector<KX_DATA::PicFileEntry>& files, const BimPlace& place) {
    KX_DATA::IProjModelHandle* model = GetProjCacheMng()->GetCurrentModel();
    if (model == nullptr) {
        return;
    }
    const KX_DATA::ShownPicMarks shown = model->GetShownPicMarks();
    gallery::KeepShown(files, shown, toolkit::ToGbk(gallery::FloorGroup(place.floor)),
                       place.markId);
}

/// The photos of a place as the model shows them; nothing if the service can't list them.
std::optional<std::vector<KX_DATA::PicFileEntry>> ShownFiles(const BimPlace& place) {
    const toolkit::WaitCursor wait;
    std::vector<KX_DATA::PicFileEntry> files;
    if (GetVeskPicMng()->GetPicFilesByPosition(place.ppid, place.positionKey, place.markId,
                                               files) != KX_DATA::kServiceOk) {
        return std::nullopt;
    }
    KeepShownInModel(files, place);
    return files;
}

BimViewItem ItemOf(const KX_DATA::PicFileEntry& file, qint32 ppid) {
    BimViewItem item;
    item.picId = file.picId;
    item.ppid = ppid;
    item.kind = file.kind;
    return item;
}

GalleryItem FilesOf(const KX_DATA::PicFileEntry& file, const QString& folder) {
    GalleryItem item;
    item.picUuid = file.picUuid;
    item.picPath = ZelvorNRQ_KXVeskPicture::StoredFilePath(folder, file.picUuid,
                                                           ZelvorNRQ_KXVeskPicture::kPictureEnding);
    item.audioUuid = file.audioUuid;
    item.audioPath = gallery::NotePath(folder, file.audioUuid);
    return item;
}

} // namespace

CBimPicViewDlg::CBimPicViewDlg()
    : m_note(*this, TermsOf(*this)), m_block(gallery::BimViewerBlock(), u"   更新人："_s) {}

bool CBimPicViewDlg::LoadPosition(const BimPlace& place, qint32 wantedPicId) {
    items.clear();
    const auto files = ShownFiles(place);
    if (!files || !HasWindow()) {
        return false;
    }
    const QString folder = PicFolder(place.ppid);
    SetCurrentIndex(gallery::IndexOfPhoto(*files, wantedPicId));
    std::vector<GalleryItem> pictures;
    for (const KX_DATA::PicFileEntry& file : *files) {
        items.push_back(ItemOf(file, place.ppid));
        pictures.push_back(FilesOf(file, folder));
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

bool CBimPicViewDlg::FetchDetail(BimViewItem& item) {
    const toolkit::WaitCursor wait;
    KX_DATA::BimPicDetail detail;
    if (GetVeskPicMng()->GetBimPicDetail(item.ppid, item.picId, detail) != KX_DATA::kServiceOk) {
        return false;
    }
    item.loaded = 1;
    item.name = detail.fileName;
    item.markName = detail.markName;
    item.posText = gallery::PositionOf(detail);
    item.markColor = detail.markColor;
    item.uploader = detail.uploaderName;
    item.uploadTime = KXTools::timeToCString(detail.uploadTime);
    item.updater = detail.updaterName;
    item.updateTime = KXTools::timeToCString(detail.updateTime);
    item.description = detail.description;
    item.labels = detail.labels;
    if (item.updateTime == item.uploadTime) {
        item.updater.clear();
        item.updateTime.clear();
    }
    return true;
}

void CBimPicViewDlg::ShowPicDetail(int index) {
    if (index < 0 || index >= int(items.size())) {
        return;
    }
    BimViewItem item = items[size_t(index)];
    if (item.loaded == 0) {
        const bool fetched = FetchDetail(item);
        // The service may have let the viewer be closed, or another place be opened in it.
        if (!HasWindow() || index >= int(items.size()) ||
            items[size_t(index)].picId != item.picId) {
            return;
        }
        if (!fetched) {
            ShowStatus(Id(), e_VeskPicMngStatus::PicInfoFailed);
            return;
        }
        items[size_t(index)] = item;
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
    Widget()->setWindowTitle(title);
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
