// The module's facade as a host's flow sees it, for tests: marks are drawn by the real one, the
// rest is written down.
#pragma once

#include "include/IKXVeskPicture.h"

#include <QStringList>

namespace roads {

class RecordingPictures final : public ZelvorNRQ_KXVeskPicture::IKXVeskPicture {
public:
    /// The real one must outlive this.
    explicit RecordingPictures(ZelvorNRQ_KXVeskPicture::IKXVeskPicture& realPictures)
        : m_real(realPictures) {}

    qint32 ShowPicMng(qint32 kind) override { return Note(QStringLiteral("ShowPicMng"), kind); }
    qint32 ShowBimPicMngFor(qint32, const QString& text, qint32 markId, qint32 picId) override {
        calls << QStringLiteral("ShowBimPicMngFor %1 %2 %3").arg(text).arg(markId).arg(picId);
        return 1;
    }
    qint32 ShowIssueMngFor(qint32, const QString&, qint32 markId, const QString&) override {
        return Note(QStringLiteral("ShowIssueMngFor"), markId);
    }
    qint32 ShowPdfPicMngFor(qint32, qint32 markId, qint32) override {
        return Note(QStringLiteral("ShowPdfPicMngFor"), markId);
    }
    void AttachObservers(KXFRAME::IKXObserverHub*) override {}
    void ShowPdfPicView(qint32, qint32, const QString&, KXWindow) override {}
    void RefreshPicMarks() override { m_real.RefreshPicMarks(); }
    void RefreshIssueMarks() override { m_real.RefreshIssueMarks(); }
    void OnPicMessage(KXWindow, const std::string&) override {}
    void ShowPicPopups(KXWindow) override {}
    void SetPicSink(ZelvorNRQ_KXVeskPicture::IKXVeskPictureSink*) override {}
    void SetIssueEditSink(ZelvorNRQ_KXVeskPicture::IKXIssueEditSink*) override {}
    void ViewBimPic(const ZelvorNRQ_KXVeskPicture::ViewPicRequest& request) override {
        calls << QStringLiteral("ViewBimPic %1 %2 %3 %4 %5")
                     .arg(request.ppid)
                     .arg(request.floor, request.positionKey)
                     .arg(request.markId)
                     .arg(request.picId);
    }
    bool EditBimPic(qint32 ppid, qint32 picId) override {
        calls << QStringLiteral("EditBimPic %1 %2").arg(ppid).arg(picId);
        return true;
    }
    bool EditIssue(const qint32*, QString) override { return false; }
    qint32 SaveBimPicAs(qint32, qint32, QString) override { return 0; }
    bool DeleteBimPic(qint32) override { return false; }
    bool DeleteIssue(const QString&) override { return false; }
    void OnIssueMessage(KXWindow, const std::string&) override {}
    void ShowIssuePopups(KXWindow) override {}
    void LocateIssue(qint32, const QString&) override {}
    void ShowIssueView() override {}

    QStringList calls;

private:
    qint32 Note(const QString& call, qint32 number) {
        calls << call + QLatin1Char(' ') + QString::number(number);
        return 1;
    }

    ZelvorNRQ_KXVeskPicture::IKXVeskPicture& m_real;
};

/// The module's viewer, written down.
class RecordingViewer final : public KXFRAME::IBaseObs, public KXFRAME::IViewBimPicObs {
public:
    [[nodiscard]] QString GetObsName() const override { return QStringLiteral("ViewBimPic"); }
    [[nodiscard]] QString GetObsClassName() const override {
        return QStringLiteral("RecordingViewer");
    }
    void ViewBimPic(const qint32* ppid, const QString& floor, const QString& positionKey,
                    qint32 markId) override {
        calls << QStringLiteral("ViewBimPic %1 %2 %3 %4")
                     .arg(*ppid)
                     .arg(floor, positionKey)
                     .arg(markId);
    }
    void OpenIssueEdit(qint32) override {}
    void LocateIssue(qint32 ppid, const QString& questionId) override {
        calls << QStringLiteral("LocateIssue %1 %2").arg(ppid).arg(questionId);
    }

    QStringList calls;
};

} // namespace roads
