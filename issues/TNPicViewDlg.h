// The first page of the issue viewer: one issue.
#pragma once

#include "base/IQuestionRefresh.h"
#include "issues/IssuePane.h"

#include <QPointer>

/// The pictures of an issue, its mark, texts, people and times. Deletes pictures, has the issue
/// edited. Thread: user interface. A member of the issue viewer's window.
class CTNPicViewDlg final : public issues::IssuePane {
public:
    /// Another issue, or the same one read anew: its note is the one that is played from now on.
    void TakeQuestion(const KX_DATA::QuestionDetail& issue);
    /// The three steps of showing an issue, in their order.
    void LoadPictures();
    void ShowQuestionText();
    void ApplyRights();

    /// Told by the editor after a save; null: nobody is.
    ZelvorNRQ_KXVeskPicture::IQuestionRefresh* refreshSink = nullptr;

    [[nodiscard]] const std::vector<KX_DATA::QuestionPicRecord>& Pics() const override {
        return pics;
    }

protected:
    [[nodiscard]] Voice VoiceOfRecord() const override {
        return {question.voiceUuid, question.voiceMd5, question.voiceState};
    }
    [[nodiscard]] const issues::IssuePaneLayout& LayoutOf(const QSize& page) override;
    void PlaceRest() override;
    void DeletePicture() override;
    void Edit() override;
    void OnCreated() override;

private:
    void ShowMark();
    void TellRefusal();
    void RemovePicture(const QString& picId);

    std::vector<KX_DATA::QuestionPicRecord> pics;
    issues::QuestionPageLayout m_layout;
    QPointer<CColorStatic> m_markText;
    QPointer<CStaticFilespec> m_nameText;
    QPointer<CStaticFilespec> m_componentText;
    QPointer<CStaticFilespec> m_creatorText;
    QPointer<CStaticFilespec> m_updaterText;
    QPointer<CStaticFilespec> m_updateTimeText;
    QPointer<CStaticFilespec> m_descriptionCaption;
    QPointer<QPlainTextEdit> m_descriptionBox;
};
