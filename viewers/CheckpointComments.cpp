#include "viewers/CheckpointComments.h"

#include "base/Guard.h"
#include "services/Factories.h"
#include "services/IKXAuthMng.h"
#include "services/IPDFDrawingMng.h"
#include "services/IVeskPicMng.h"
#include "toolkit/GbkText.h"
#include "toolkit/KXTools.h"
#include "toolkit/controls/TextLimit.h"
#include "toolkit/windows/Prompts.h"
#include "toolkit/windows/StillThere.h"
#include "toolkit/windows/WaitCursor.h"

#include <utility>

using namespace Qt::StringLiterals;

using KX_DATA::CheckpointComment;
using ZelvorNRQ_KXVeskPicture::e_VeskPicMngStatus;
using ZelvorNRQ_KXVeskPicture::GetStatusMessage;
using ZelvorNRQ_KXVeskPicture::ShowStatus;

namespace gallery {

namespace {

QString LoginName() {
    std::string name;
    GetKXAuthMng()->GetUserName(name);
    return toolkit::FromGbk(name);
}

} // namespace

void CheckpointComments::MakeControls(QWidget& pane) {
    m_list = new DiscussListCtrl(&pane, kListId);
    m_list->setObjectName(u"commentList"_s);
    m_list->setAccessibleName(u"评论"_s);
    m_list->SetEmptyText(u"暂无评论"_s);
    m_list->show();
    m_box = new QPlainTextEdit(&pane);
    m_box->setObjectName(u"commentEdit"_s);
    m_box->setAccessibleName(u"评论内容"_s);
    m_box->setPlaceholderText(u"在此输入评论，最多%1字"_s.arg(kMostCharacters));
    m_box->setTabChangesFocus(true);
    toolkit::LimitText(*m_box, kMostCharacters);
    m_box->show();
    m_send = new QPushButton(u"发表"_s, &pane);
    m_send->setObjectName(u"sendButton"_s);
    m_send->setToolTip(u"发表评论"_s);
    m_send->setAutoDefault(false);
    m_send->show();
    QObject::connect(m_send, &QPushButton::clicked, m_send, [this] { Post(); });
}

void CheckpointComments::LayOut(const PdfPaneLayout& layout) {
    m_list->setGeometry(layout.comments);
    m_box->setGeometry(layout.commentBox);
    m_send->setGeometry(layout.send);
}

void CheckpointComments::Disable() {
    m_list->setEnabled(false);
    m_box->setEnabled(false);
    m_box->setPlaceholderText({});
    m_send->setEnabled(false);
}

void CheckpointComments::Load(qint32 drawingId) {
    m_drawingId = drawingId;
    const toolkit::StillThere still(m_window.Id());
    const auto comments = Fetch();
    if (!still || m_drawingId != drawingId) {
        return;
    }
    if (!comments) {
        // The list keeps what it had, those of another checkpoint too; required as is.
        ShowStatus(m_window.Id(), e_VeskPicMngStatus::CommentsFailed);
        return;
    }
    std::vector<toolkit::DiscussRow> rows;
    rows.reserve(comments->size());
    for (const CheckpointComment& comment : *comments) {
        rows.push_back({comment.text, KXTools::timeToCString(comment.time), comment.commentId});
    }
    m_list->RemoveAll();
    m_list->InsertRows(std::move(rows));
}

/// Page by page, as many as there are; gives up when the window or its checkpoint is another.
std::optional<std::vector<CheckpointComment>> CheckpointComments::Fetch() {
    const toolkit::WaitCursor wait;
    const toolkit::StillThere still(m_window.Id());
    const qint32 asked = m_drawingId;
    std::vector<CheckpointComment> comments;
    for (qint32 page = 0;; ++page) {
        std::vector<CheckpointComment> some;
        if (GetPDFDrawingMng()->GetComments(asked, page, KX_DATA::kCommentPageSize, some) !=
                KX_DATA::kServiceOk ||
            !still || m_drawingId != asked) {
            return std::nullopt;
        }
        comments.insert(comments.end(), some.begin(), some.end());
        if (some.size() < size_t(KX_DATA::kCommentPageSize)) {
            return comments;
        }
    }
}

void CheckpointComments::Post() {
    if (m_isPosting) {
        return;
    }
    const QString written = m_box->toPlainText();
    if (written.trimmed().isEmpty()) {
        m_window.PopTip(m_box, GetStatusMessage(e_VeskPicMngStatus::CommentEmpty), true);
        return;
    }
    const QString text = LoginName() + u"："_s + written.trimmed();
    const toolkit::StillThere still(m_window.Id());
    const qint32 asked = m_drawingId;
    CheckpointComment comment;
    m_isPosting = true;
    qint32 result = 0;
    {
        const toolkit::WaitCursor wait;
        result = GetPDFDrawingMng()->AddComment(asked, text, comment);
    }
    m_isPosting = false;
    if (!still) {
        return;
    }
    if (result != KX_DATA::kServiceOk || comment.exists == 0) {
        m_window.PopTip(m_send, GetStatusMessage(e_VeskPicMngStatus::CommentFailed));
        return;
    }
    // The text may belong to a checkpoint that isn't shown any more.
    if (m_drawingId == asked) {
        m_list->InsertRow(text, KXTools::timeToCString(comment.time), comment.commentId);
    }
    if (m_box->toPlainText() == written) {
        m_box->clear();
    }
}

void CheckpointComments::Delete() {
    const toolkit::StillThere still(m_window.Id());
    // The question comes before the look at the selection; required as is.
    if (!toolkit::Prompts().AskOkCancel(m_window.Id(), u"确定删除该帖？"_s) || !still) {
        return;
    }
    const int row = m_list->GetCurSel();
    if (row < 0) {
        return;
    }
    const qint64 comment = m_list->GetRowData(row);
    bool isDeleted = false;
    {
        const toolkit::WaitCursor wait;
        isDeleted = GetPDFDrawingMng()->DeleteComment(m_drawingId, comment);
    }
    if (!still) {
        return;
    }
    if (!isDeleted) {
        ShowStatus(m_window.Id(), e_VeskPicMngStatus::DeleteCommentFailed);
        return;
    }
    // Other rows may have come meanwhile.
    m_list->RemoveRow(m_list->FindRow(comment));
}

} // namespace gallery
