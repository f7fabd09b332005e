// The second page of the issue viewer: the rectification of the issue.
#pragma once

#include "issues/IssuePane.h"
#include "viewers/PickedImages.h"

#include <QPointer>

#include <memory>
#include <vector>

/// State, text and pictures of a rectification. Uploads pictures in the background and deletes
/// them, has the rectification edited. Thread: user interface. A member of the issue viewer's
/// window.
class CTNPicChangeViewDlg final : public issues::IssuePane {
public:
    CTNPicChangeViewDlg();
    ~CTNPicChangeViewDlg() override;

    /// The steps of showing a rectification, in their order.
    void EmptyGallery();
    void LoadRectify();
    void ShowRectifyText();
    void ApplyRights();

    [[nodiscard]] const std::vector<KX_DATA::QuestionPicRecord>& Pics() const override {
        return rectify.pics;
    }
    [[nodiscard]] const KX_DATA::RectifyRecord& Rectify() const { return rectify; }
    [[nodiscard]] QPushButton* UploadButton() const { return m_uploadButton; }
    [[nodiscard]] bool IsUploading() const { return m_running != nullptr; }

protected:
    [[nodiscard]] Voice VoiceOfRecord() const override {
        return {rectify.voiceUuid, rectify.voiceMd5, rectify.voiceState};
    }
    [[nodiscard]] const issues::IssuePaneLayout& LayoutOf(const QSize& page) override;
    void PlaceRest() override;
    void DeletePicture() override;
    void Edit() override;
    void OnCreated() override;
    void OnDestroyed() override;
    void OnTimer(int timerId) override;

private:
    struct Running;

    void PickAndUpload();
    void Upload();
    void OnFile(int number);
    void OnUploaded(const std::vector<KX_DATA::QuestionPicRecord>& stored);
    [[nodiscard]] bool ShowsIssueOf(const Running& running) const;
    [[nodiscard]] bool MayChange() const;
    void OnProgress();
    void OnComplete();
    void OnFailed();
    void EndUpload();
    [[nodiscard]] QString ProgressText() const;
    void RemovePicture(const QString& picId);

    KX_DATA::RectifyRecord rectify;
    std::vector<ZelvorNRQ_KXVeskPicture::PickedFile> pendingFiles; ///< chosen, not yet uploaded
    qint32 uploadCounter = 1;           ///< number of the file that is being uploaded
    std::shared_ptr<Running> m_running; ///< null: no upload runs, and none has just ended
    issues::RectifyPageLayout m_layout;
    QPointer<QPushButton> m_uploadButton;
    QPointer<CStaticFilespec> m_stateText;
    QPointer<CStaticFilespec> m_rectifierText;
    QPointer<CStaticFilespec> m_textCaption;
    QPointer<QPlainTextEdit> m_rectifyBox;
};
