#include "base/FacadeAccess.h"

#include "base/IQuestionRefresh.h"
#include "tests/support/RecordingSinks.h"

#include <gtest/gtest.h>

namespace {

using ZelvorNRQ_KXVeskPicture::IPictureFacade;
using ZelvorNRQ_KXVeskPicture::IQuestionRefresh;
using ZelvorNRQ_KXVeskPicture::kNoPendingPic;
using ZelvorNRQ_KXVeskPicture::PictureFacade;
using ZelvorNRQ_KXVeskPicture::SetPictureFacade;

class EmptyFacade final : public IPictureFacade, public IQuestionRefresh {
public:
    ZelvorNRQ_KXVeskPicture::IKXVeskPictureSink& Sink() override { return m_sink; }
    qint32 ShowPicMng(qint32 kind) override {
        shownKind = kind;
        return 1;
    }
    bool OpenBimPicView(qint32, const QString&, const QString&, qint32) override { return true; }
    bool OpenPdfPicView(qint32, qint32, const QString&, KXWindow) override { return true; }
    ZelvorNRQ_KXVeskPicture::IKXIssueEditSink& IssueEditSink() override { return m_editSink; }
    IQuestionRefresh& IssueRefresh() override { return *this; }
    void RefreshIssueMarks() override {}
    void LocateIssue(qint32, const QString&) override {}
    void Refresh() override {}

    qint32 shownKind = 0;

private:
    support::Script m_script;
    support::RecordingSink m_sink{m_script};
    support::RecordingIssueEditSink m_editSink{m_script};
};

TEST(FacadeAccess, DialogsReachTheFacadeThatNamedItself) {
    EmptyFacade facade;
    SetPictureFacade(&facade);
    EXPECT_EQ(&PictureFacade(), &facade);
    SetPictureFacade(nullptr);
}

TEST(FacadeAccess, NothingIsPendingAtFirst) {
    const EmptyFacade facade;
    EXPECT_EQ(facade.pendingPicId, -1);
    EXPECT_FALSE(facade.reopenConsole);
    EXPECT_FALSE(facade.backToPdfEdit);
}

TEST(FacadeAccess, TheConsoleComesBackOnlyIfItWasMinimisedForAViewer) {
    EmptyFacade facade;
    facade.BringConsoleBack(1);
    EXPECT_EQ(facade.shownKind, 0);
    facade.reopenConsole = true;
    facade.BringConsoleBack(2);
    EXPECT_EQ(facade.shownKind, 2);
}

TEST(FacadeAccess, TakingThePendingPhotoForgetsIt) {
    EmptyFacade facade;
    facade.pendingPicId = 17;
    EXPECT_EQ(facade.TakePendingPic(), 17);
    EXPECT_EQ(facade.pendingPicId, kNoPendingPic);
    EXPECT_EQ(facade.TakePendingPic(), kNoPendingPic);
}

} // namespace
