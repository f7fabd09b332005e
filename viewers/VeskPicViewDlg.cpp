#include "viewers/VeskPicViewDlg.h"

#include "base/PictureLog.h"
#include "services/Factories.h"
#include "services/IKXLocalCacheData.h"
#include "toolkit/Look.h"
#include "viewers/PagePhotoSource.h"

#include <map>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Rows of a page of the console's grid.
constexpr int kGridPage = 30;

gallery::NoteTerms PreviewTerms(const CPicViewDlg& pane) {
    gallery::NoteTerms terms;
    terms.source = [&pane] { return gallery::CurrentNote(pane.State()); };
    terms.change = gallery::NoteChange::StopsIfOther;
    return terms;
}

} // namespace

namespace gallery {

QString PageTitle(const QString& name, qint32 page, int index, int count) {
    const int first = page * kGridPage - (kGridPage - 1);
    return u"%1    %2/(%3-%4)"_s.arg(name, QString::number(first + index), QString::number(first),
                                     QString::number(first + count - 1));
}

} // namespace gallery

CVeskPicViewDlg::CVeskPicViewDlg(IPhotoShown& around)
    : m_around(around), m_note(*this, PreviewTerms(*this)),
      m_block(gallery::ConsoleViewerBlock(), u"    更新人："_s) {}

void CVeskPicViewDlg::SetPage(VeskPicPage page) {
    m_page = std::move(page);
}

void CVeskPicViewDlg::OnCreated() {
    CPicViewDlg::OnCreated();
    ZelvorNRQ_KXVeskPicture::WriteLog(u"-------照片管理-查看照片-------"_s);
    m_block.MakeControls(*Widget(), m_note);
    BuildGallery();
    LayoutPicPane();
}

// Without places yet, so that the downloads begin with the first of the list and not with the one
// that is shown; required as is.
void CVeskPicViewDlg::BuildGallery() {
    gallery::PagePhotoSource source(m_page.items, m_page.kind);
    const auto photos = source.List();
    SetCurrentIndex(m_page.index);
    SetPicItems(source.Files(*photos));
}

void CVeskPicViewDlg::OnCurPicChanged(int index) {
    if (index < 0 || index >= int(m_page.items.size())) {
        return;
    }
    const KX_DATA::PicViewItem& item = m_page.items[size_t(index)];
    const QString title =
        gallery::PageTitle(item.picName, m_page.page, index, int(m_page.items.size()));
    Widget()->setWindowTitle(toolkit::PlainTitle(title));
    ShowPicDetail(index);
    m_around.ShowItem(title, item, m_page.kind);
    m_note.OnPicChanged();
}

void CVeskPicViewDlg::ShowPicDetail(int index) {
    const KX_DATA::PicViewItem& item = m_page.items[size_t(index)];
    std::map<qint32, KX_DATA::MarkRecord> marks;
    GetKXLocalCacheData()->GetMarkTable(marks);
    // One that isn't in the table leaves the mark of the photo before; required as is.
    if (const auto mark = marks.find(item.markId); mark != marks.end()) {
        m_block.ShowMark(mark->second.name, mark->second.color);
    }
    gallery::PhotoBlockTexts texts;
    texts.position = item.positionText;
    texts.uploader = item.uploader;
    texts.uploadTime = item.uploadTime;
    // As they come, also of a photo that was never changed; required as is.
    texts.updater = item.updater;
    texts.updateTime = item.updateTime;
    texts.labels = item.labelText;
    texts.labelTip = item.labelText;
    texts.description = item.description;
    m_block.ShowTexts(texts);
}

void CVeskPicViewDlg::LayoutPicPane() {
    if (!m_block.HasControls()) {
        return;
    }
    const QSize pane = Widget()->size();
    m_block.LayOut(pane, m_note);
    const gallery::ConsoleViewerPlaces places = gallery::PlaceConsoleViewer(pane);
    SetPicRects(places.bigArea, places.stripArea);
    Widget()->update(0, places.bigArea.bottom() + 1, pane.width(), pane.height());
}

void CVeskPicViewDlg::OnClose() {
    m_note.OnClose();
    CPicViewDlg::OnClose();
}

void CVeskPicViewDlg::OnDestroyed() {
    m_note.StopIfPlaying();
    CPicViewDlg::OnDestroyed();
}

void CVeskPicViewDlg::OnTimer(int timerId) {
    if (!m_note.OnTimer(timerId)) {
        CPicViewDlg::OnTimer(timerId);
    }
}
