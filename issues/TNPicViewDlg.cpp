#include "issues/TNPicViewDlg.h"

#include "issues/IssueTexts.h"
#include "issues/TNPicEditDlg.h"
#include "services/CSoapError.h"
#include "services/Factories.h"
#include "services/IKXGlobalData.h"
#include "services/IKXLocalCacheData.h"
#include "services/ITNQuestionMng.h"
#include "toolkit/KXTools.h"
#include "toolkit/Look.h"
#include "toolkit/windows/Prompts.h"
#include "toolkit/windows/WaitCursor.h"
#include "viewers/PaneTexts.h"

#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;

namespace {

constexpr qint32 kIssuePics = 0;
constexpr qint32 kDeleteKind = 1;

} // namespace

void CTNPicViewDlg::OnCreated() {
    IssuePane::OnCreated();
    QWidget& page = *Widget();
    page.setObjectName(u"questionPage"_s);
    EditButton()->setToolTip(u"编辑此问题"_s);
    m_markText = gallery::MakeMarkText(page);
    m_nameText = issues::MakeLine(page, u"nameText"_s);
    m_componentText = issues::MakeLine(page, u"componentText"_s);
    m_creatorText = issues::MakeLine(page, u"creatorText"_s);
    m_updaterText = issues::MakeLine(page, u"updaterText"_s);
    m_updateTimeText = issues::MakeLine(page, u"updateTimeText"_s);
    m_descriptionCaption = issues::MakeLine(page, u"descriptionCaption"_s);
    m_descriptionCaption->setText(u"问题描述："_s);
    m_descriptionBox = issues::MakeReadOnlyBox(page, u"descriptionBox"_s);
    m_descriptionBox->setAccessibleName(u"问题描述"_s);
    LayoutPane();
}

const issues::IssuePaneLayout& CTNPicViewDlg::LayoutOf(const QSize& page) {
    m_layout = issues::LayoutQuestionPage(page);
    return m_layout;
}

void CTNPicViewDlg::PlaceRest() {
    if (!m_descriptionBox) {
        return;
    }
    m_markText->setGeometry(m_layout.mark);
    toolkit::PlaceLine(*m_nameText, m_layout.name);
    toolkit::PlaceLine(*m_componentText, m_layout.component);
    toolkit::PlaceLine(*m_creatorText, m_layout.creator);
    toolkit::PlaceLine(*m_updaterText, m_layout.updater);
    toolkit::PlaceLine(*m_updateTimeText, m_layout.updateTime);
    toolkit::PlaceLine(*m_descriptionCaption, m_layout.descriptionCaption);
    m_descriptionBox->setGeometry(m_layout.description);
}

void CTNPicViewDlg::TakeQuestion(const KX_DATA::QuestionDetail& issue) {
    SetQuestion(issue);
    TakeVoice();
}

void CTNPicViewDlg::LoadPictures() {
    CountRecord();
    const auto isSame = SameRecord();
    TakeVoice();
    ShowVoice();
    pics.clear();
    std::vector<KX_DATA::QuestionPicRecord> fetched;
    bool isRead = false;
    {
        const toolkit::WaitCursor wait;
        isRead = GetTNQuestionMng()->GetIssuePics(question.ppid, question.questionId, kIssuePics,
                                                  fetched) != 0;
    }
    if (!isSame()) {
        return;
    }
    // The note has its file in the same folder, whether or not there are pictures.
    QString project;
    GetKXGlobalData()->GetProjectName(project, question.ppid);
    ReadFolder(question.ppid, project);
    TakeVoice();
    if (isRead) {
        pics = std::move(fetched);
    }
    BuildGallery(0);
}

void CTNPicViewDlg::ShowQuestionText() {
    if (!m_descriptionBox) {
        return;
    }
    const issues::IssueLines lines = issues::LinesOf(question);
    gallery::Say(*m_nameText, lines.name, {}, lines.nameTip);
    gallery::Say(*m_componentText, lines.component, {}, lines.componentTip);
    gallery::Say(*m_creatorText, lines.creator, {}, {});
    gallery::Say(*m_updaterText, lines.updater, {}, {});
    gallery::Say(*m_updateTimeText, lines.updateTime, {}, {});
    issues::ShowInBox(*m_descriptionBox, question.description);
    ShowMark();
}

void CTNPicViewDlg::ShowMark() {
    const auto isSame = SameRecord();
    std::map<qint32, KX_DATA::MarkRecord> table;
    const bool isRead = GetKXLocalCacheData()->GetMarkTable(table);
    const auto found = table.find(question.markId);
    // A mark that isn't known leaves the last one standing; required as is.
    if (isSame() && isRead && found != table.end()) {
        gallery::ShowMark(*m_markText, found->second.name, found->second.color);
    }
}

/// The description is never editable: it is written in the editor alone.
void CTNPicViewDlg::ApplyRights() {
    if (GetKXGlobalData()->IsWorksetMode()) {
        Enable(DeleteButton(), false);
        Enable(EditButton(), false);
        return;
    }
    if (viewInner != nullptr) {
        const bool mayChange = viewInner->IsReadOnly() == 0;
        Enable(DeleteButton(), mayChange);
        Enable(EditButton(), mayChange);
        if (!pics.empty()) {
            Enable(m_descriptionBox, false);
            return;
        }
    }
    Enable(DeleteButton(), false);
    Enable(m_descriptionBox, false);
}

void CTNPicViewDlg::DeletePicture() {
    const auto isSame = SameRecord();
    const auto* current = CurrentPic();
    if (current == nullptr) {
        return;
    }
    // The other page's question differs in one word, on purpose.
    if (!toolkit::Prompts().AskOkCancel(Id(), u"确定删除当前图片!"_s) || !isSame()) {
        return;
    }
    current = CurrentPic();
    if (current == nullptr) {
        return;
    }
    const QString picId = current->picId;
    bool isDeleted = false;
    {
        const toolkit::WaitCursor wait;
        isDeleted = GetTNQuestionMng()->DeletePics(kDeleteKind, {picId});
    }
    if (!isSame()) {
        return;
    }
    if (isDeleted) {
        RemovePicture(picId);
    } else {
        TellRefusal();
    }
}

/// What the service says of a picture that is gone is said as it stands, anything else is not.
void CTNPicViewDlg::TellRefusal() {
    QString text;
    GetSoapError()->GetLastError(text);
    KXTools::ShowMsgBox(Id(), text.contains(u"删除的图片"_s) ? text : u"删除图片服务调用失败!"_s);
}

void CTNPicViewDlg::RemovePicture(const QString& picId) {
    const int index = State().currentIndex;
    issues::RemovePic(pics, picId, index);
    ApplyRights();
    RebuildGallery(std::max(index - 1, 0));
}

void CTNPicViewDlg::Edit() {
    CTNPicEditDlg& editor = CTNPicEditDlg::Instance();
    editor.CloseEditor();
    editor.refreshTarget = [sink = refreshSink] {
        if (sink != nullptr) {
            sink->Refresh();
        }
    };
    editor.ownerView = Widget();
    editor.OpenQuestion(question.ppid, question.questionId, Id());
}
