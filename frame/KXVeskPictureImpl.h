// The module's facade.
#pragma once

#include "base/FacadeAccess.h"
#include "base/IQuestionRefresh.h"
#include "base/SingletonTmpl.h"
#include "frame/UnsetSink.h"
#include "include/IKXVeskPicture.h"
#include "reminder/feed/ReminderFeed.h"

#include <memory>

class CVeskPicProjChangeObs;
class CViewBimPicObs;

/// The one object through which the host opens the console, viewers and editors, hands in reminder
/// messages, and is told of changes. Lives from the first factory call to process exit.
/// Thread: user interface.
class CKXVeskPictureImpl final : public ZelvorNRQ_KXVeskPicture::IKXVeskPicture,
                                 public NRQUtility::SingletonTmpl<CKXVeskPictureImpl>,
                                 public ZelvorNRQ_KXVeskPicture::IQuestionRefresh,
                                 public ZelvorNRQ_KXVeskPicture::IPictureFacade {
public:
    ~CKXVeskPictureImpl() override;

    qint32 ShowPicMng(qint32 kind) override;
    qint32 ShowBimPicMngFor(qint32 unread, const QString& presetText, qint32 presetMarkId,
                            qint32 presetPicId) override;
    qint32 ShowIssueMngFor(qint32 unread, const QString& presetText, qint32 presetMarkId,
                           const QString& presetText2) override;
    qint32 ShowPdfPicMngFor(qint32 unread, qint32 presetMarkId, qint32 presetB) override;
    void AttachObservers(KXFRAME::IKXObserverHub* hub) override;
    void ShowPdfPicView(qint32 ppid, qint32 drawingId, const QString& drawingName,
                        KXWindow parent) override;
    void RefreshPicMarks() override;
    void RefreshIssueMarks() override;
    void OnPicMessage(KXWindow window, const std::string& json) override;
    void ShowPicPopups(KXWindow owner) override;
    void SetPicSink(ZelvorNRQ_KXVeskPicture::IKXVeskPictureSink* sink) override;
    void SetIssueEditSink(ZelvorNRQ_KXVeskPicture::IKXIssueEditSink* sink) override;
    void ViewBimPic(const ZelvorNRQ_KXVeskPicture::ViewPicRequest& request) override;
    bool EditBimPic(qint32 ppid, qint32 picId) override;
    bool EditIssue(const qint32* issueKey, QString questionId) override;
    qint32 SaveBimPicAs(qint32 ppid, qint32 picId, QString target) override;
    bool DeleteBimPic(qint32 picId) override;
    bool DeleteIssue(const QString& questionId) override;
    void OnIssueMessage(KXWindow window, const std::string& json) override;
    void ShowIssuePopups(KXWindow owner) override;
    void LocateIssue(qint32 ppid, const QString& questionId) override;
    void ShowIssueView() override;

    [[nodiscard]] ZelvorNRQ_KXVeskPicture::IKXVeskPictureSink& Sink() override;
    bool OpenBimPicView(qint32 ppid, const QString& floor, const QString& positionKey,
                        qint32 markId) override;
    bool OpenPdfPicView(qint32 ppid, qint32 drawingId, const QString& drawingName,
                        KXWindow parent) override;
    [[nodiscard]] ZelvorNRQ_KXVeskPicture::IKXIssueEditSink& IssueEditSink() override;
    [[nodiscard]] ZelvorNRQ_KXVeskPicture::IQuestionRefresh& IssueRefresh() override {
        return *this;
    }

    /// An issue was changed: hands it on to the host.
    void Refresh() override;

private:
    friend class NRQUtility::SingletonTmpl<CKXVeskPictureImpl>;
    CKXVeskPictureImpl();

    void NotifyConsoleOpened(qint32 kind);
    void ShowPopups(KXWindow owner, qint32 kind);
    static void EndWithApplication();

    std::unique_ptr<CVeskPicProjChangeObs> m_projChangeObs;
    std::unique_ptr<CViewBimPicObs> m_viewBimPicObs;
    ZelvorNRQ_KXVeskPicture::IKXVeskPictureSink* m_sink = nullptr; ///< the host's, may be null
    ZelvorNRQ_KXVeskPicture::IKXIssueEditSink* m_issueEditSink = nullptr; ///< as m_sink
    UnsetSink m_unsetSink;
    reminder::ReminderFeed m_reminders;
};
