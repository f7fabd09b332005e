#include "issues/IssuePane.h"

#include "base/StoredFile.h"
#include "issues/IssueTexts.h"
#include "services/Factories.h"
#include "services/IKXPathMng.h"
#include "toolkit/Look.h"
#include "toolkit/windows/StillThere.h"
#include "viewers/PaneTexts.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace issues {

namespace {

CTitledGroup* MakeGroup(QWidget& page, const QString& name, const QString& title) {
    auto* group = gallery::MakeControl<CTitledGroup>(page, name);
    group->setTitle(title);
    return group;
}

QPushButton* MakeButton(QWidget& page, const QString& name, const QString& text) {
    auto* button = gallery::MakeControl<QPushButton>(page, name);
    button->setText(text);
    button->setAutoDefault(false);
    return button;
}

} // namespace

IssuePane::IssuePane() : m_player(*this, m_note.Terms()) {}

void IssuePane::SetQuestion(const KX_DATA::QuestionDetail& issue) {
    question = issue;
}

void IssuePane::TakeVoice() {
    const Voice voice = VoiceOfRecord();
    m_note.SetRecord(voice.uuid, voice.md5, voice.state, m_folder, ServerText());
}

void IssuePane::ShowVoice() {
    m_player.ShowNote();
}

void IssuePane::StopVoice() {
    m_player.OnClose();
}

void IssuePane::ReadFolder(qint32 ppid, const QString& projectName) {
    m_folder.clear();
    GetKXPathMng()->GetAttachFolder(m_folder, ppid, projectName);
}

void IssuePane::BuildGallery(int index) {
    std::vector<GalleryItem> items;
    for (const KX_DATA::QuestionPicRecord& pic : Pics()) {
        GalleryItem item;
        item.picUuid = pic.fileUuid;
        item.picPath = ZelvorNRQ_KXVeskPicture::StoredFilePath(
            m_folder, pic.fileUuid, ZelvorNRQ_KXVeskPicture::kPictureEnding);
        items.push_back(item);
    }
    SetCurrentIndex(index);
    SetPicItems(items);
    ShowPhotoTexts(index);
}

void IssuePane::RebuildGallery(int index) {
    ResetGallery();
    LayoutPane();
    if (!Pics().empty()) {
        BuildGallery(index);
    } else if (HasWindow()) {
        Widget()->update();
    }
}

void IssuePane::ShowPhotoTexts(int index) {
    if (!m_uploaderText) {
        return;
    }
    const auto& pics = Pics();
    // An index beyond the end of a list that has pictures leaves the lines as they are.
    if (!pics.empty() && (index < 0 || index >= int(pics.size()))) {
        return;
    }
    const PhotoLines lines = LinesOf(pics.empty() ? nullptr : &pics[size_t(index)]);
    gallery::Say(*m_uploaderText, lines.uploader, {}, {});
    gallery::Say(*m_uploadTimeText, lines.uploadTime, {}, {});
}

const KX_DATA::QuestionPicRecord* IssuePane::CurrentPic() const {
    const int index = State().currentIndex;
    return index >= 0 && index < int(Pics().size()) ? &Pics()[size_t(index)] : nullptr;
}

std::function<bool()> IssuePane::SameRecord() const {
    return [this, still = toolkit::StillThere(Id()), record = m_record] {
        return still && m_record == record;
    };
}

void IssuePane::Enable(QWidget* control, bool enabled) const {
    if (control != nullptr) {
        control->setEnabled(enabled);
    }
}

void IssuePane::OnCreated() {
    CPicViewDlg::OnCreated();
    QWidget& page = *Widget();
    // Made before what stands in them, which therefore lies above them.
    m_photoGroup = MakeGroup(page, u"photoGroup"_s, u"照片信息"_s);
    m_noteGroup = MakeGroup(page, u"noteGroup"_s, u"语音"_s);
    m_infoGroup = MakeGroup(page, u"infoGroup"_s, u"问题信息"_s);
    m_uploaderText = MakeLine(page, u"uploaderText"_s);
    m_uploadTimeText = MakeLine(page, u"uploadTimeText"_s);
    deleteButton = MakeButton(page, u"deleteButton"_s, u"删除照片"_s);
    deleteButton->setToolTip(u"删除当前照片"_s);
    m_player.MakeControls(&page);
    m_player.Button()->show();
    m_player.Status()->show();
    m_player.Progress()->show();
    editButton = MakeButton(page, u"editButton"_s, u"编辑"_s);
    QObject::connect(deleteButton, &QAbstractButton::clicked, &page, [this] { DeletePicture(); });
    QObject::connect(editButton, &QAbstractButton::clicked, &page, [this] { Edit(); });
}

void IssuePane::OnDestroyed() {
    m_player.StopIfPlaying();
    CPicViewDlg::OnDestroyed();
}

void IssuePane::LayoutPane() {
    if (!HasWindow() || !editButton) {
        return;
    }
    const IssuePaneLayout& at = LayoutOf(Widget()->size());
    m_photoGroup->setGeometry(at.photoGroup);
    m_noteGroup->setGeometry(at.noteGroup);
    m_infoGroup->setGeometry(at.infoGroup);
    toolkit::PlaceLine(*m_uploaderText, at.uploader);
    toolkit::PlaceLine(*m_uploadTimeText, at.uploadTime);
    deleteButton->setGeometry(at.deleteButton);
    m_player.Button()->move(at.noteButton);
    toolkit::PlaceLine(*m_player.Status(), at.noteStatus);
    m_player.Progress()->setGeometry(at.noteProgress);
    editButton->setGeometry(at.editButton);
    PlaceRest();
    SetPicRects(at.bigArea, at.stripArea);
}

void IssuePane::OnTimer(int timerId) {
    if (!m_player.OnTimer(timerId)) {
        CPicViewDlg::OnTimer(timerId);
    }
}

void RemovePic(std::vector<KX_DATA::QuestionPicRecord>& pics, const QString& picId, int index) {
    const auto isIt = [&](const auto& pic) { return pic.picId == picId; };
    const bool isThere = index >= 0 && index < int(pics.size()) && isIt(pics[size_t(index)]);
    const auto found = isThere ? pics.begin() + index : std::ranges::find_if(pics, isIt);
    if (found != pics.end()) {
        pics.erase(found);
    }
}

CStaticFilespec* MakeLine(QWidget& page, const QString& name) {
    auto* line = gallery::MakeControl<CStaticFilespec>(page, name);
    line->SetPathShortening(false);
    return line;
}

QPlainTextEdit* MakeReadOnlyBox(QWidget& page, const QString& name) {
    auto* box = gallery::MakeControl<QPlainTextEdit>(page, name);
    box->setReadOnly(true);
    box->setEnabled(false);
    box->setTabChangesFocus(true);
    // Disabled, since nobody writes here; to be read like any other text all the same.
    QPalette readable = box->palette();
    readable.setColor(QPalette::Disabled, QPalette::Text,
                      readable.color(QPalette::Active, QPalette::Text));
    box->setPalette(readable);
    return box;
}

void ShowInBox(QPlainTextEdit& box, const QString& text) {
    box.setPlainText(text);
    // A disabled box doesn't scroll.
    box.setToolTip(text.isEmpty() ? QString() : toolkit::PlainTip(text));
}

} // namespace issues
