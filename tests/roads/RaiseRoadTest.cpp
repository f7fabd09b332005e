// A new issue from the desk, seen by this client and by another one.
#include "tests/roads/PickRoad.h"

#include "hands/Choices.h"
#include "hands/Hands.h"
#include "host/ui/MainWindow.h"
#include "host/ui/issues/RaiseIssueDialog.h"
#include "host/ui/pick/PickCanvas.h"
#include "site/ICatalogue.h"
#include "site/IFilings.h"
#include "site/IIssues.h"
#include "site/sqlite/SiteWriter.h"
#include "tests/roads/RoadHands.h"
#include "tests/support/AnsweredPrompts.h"
#include "tests/support/EngineFolder.h"
#include "tests/support/WaitFor.h"
#include "tour/TourEyes.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>

namespace roads {
namespace {

using namespace Qt::StringLiterals;
using support::WaitFor;

class RaiseRoad : public PickRoad {
protected:
    [[nodiscard]] static QWidget* Dialog() { return tour::FindWindow(u"raiseIssueDialog"_s); }
    void Open() const {
        EXPECT_TRUE(WaitFor([this] {
            return hands::PressKey(client->Window(), Qt::Key_N,
                                   Qt::ControlModifier | Qt::ShiftModifier);
        }));
        ASSERT_TRUE(WaitFor([] { return Dialog() != nullptr; }));
    }
    void Pick(const QString& handle) const {
        ClickOn(*Dialog(), u"pickButton"_s);
        ASSERT_TRUE(IsPicking());
        EXPECT_EQ(Dialog(), nullptr);
        ClickComponent(handle);
        PressOnPicks(Qt::Key_Return);
        ASSERT_TRUE(WaitFor([] { return Dialog() != nullptr; }));
    }
    [[nodiscard]] static QString Text(const QString& name) {
        return tour::ReadText(tour::FindIn(Dialog(), name));
    }
    [[nodiscard]] static QString Fault() { return Text(u"faultLabel"_s); }
    [[nodiscard]] QString PictureFile(const QString& name) const {
        QFile file(folder.Path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(JpegBytes(qRgb(200, 10, 10)));
        return folder.Path(name);
    }
    /// The latest one that was raised.
    [[nodiscard]] site::Filing Latest() const {
        site::IFilings& filings = session.Site().Filings();
        const qint64 newest = filings.Newest();
        const site::Filings found = filings.Latest({site.firstProject}, {newest, newest}, 1);
        return found.empty() ? site::Filing() : found.front();
    }
    [[nodiscard]] KX_DATA::QuestionDetail Detail(const QString& questionId) const {
        KX_DATA::QuestionDetail detail;
        EXPECT_TRUE(session.Site().Issues().Detail(site.firstProject, questionId, detail));
        return detail;
    }
    [[nodiscard]] QAction* Entry() const {
        for (QAction* action : client->Window()->findChildren<QAction*>()) {
            if (action->text() == u"登记问题..."_s) {
                return action;
            }
        }
        return nullptr;
    }
};

TEST_F(RaiseRoad, AnIssueWithAPickedComponentAndPicturesIsFiledAsAPhoneWould) {
    Open();
    Type(*Dialog(), u"subjectEdit"_s, u"柱脚裂缝"_s);
    Type(*Dialog(), u"descriptionEdit"_s, u"宽 0.3 mm"_s);
    Pick(u"c3"_s);
    EXPECT_EQ(Text(u"componentText"_s), u"1层 框架柱 KZ-3"_s);
    const QStringList files{PictureFile(u"近景.jpg"_s), PictureFile(u"远景.jpg"_s)};
    EXPECT_TRUE(WaitFor([&] { return hands::DropPaths(Dialog(), files); }));
    ClickOn(*Dialog(), u"fileIssue"_s);
    EXPECT_EQ(Dialog(), nullptr);
    EXPECT_EQ(Status(), u"已登记问题“柱脚裂缝”"_s);

    const site::Filing filing = Latest();
    EXPECT_EQ(filing.name, u"柱脚裂缝"_s);
    EXPECT_EQ(filing.person, u"张伟"_s);
    EXPECT_EQ(filing.floor, u"1"_s);
    EXPECT_EQ(filing.posText, u"2-B轴"_s);
    EXPECT_EQ(filing.handle, u"c3"_s);
    EXPECT_EQ(filing.markId, 1);
    EXPECT_FALSE(filing.uuid.isEmpty());
    const KX_DATA::QuestionDetail detail = Detail(filing.questionId);
    EXPECT_EQ(detail.description, u"宽 0.3 mm"_s);
    EXPECT_EQ(detail.componentName, u"KZ-3"_s);
    EXPECT_EQ(detail.componentSubName, u"框架柱"_s);
    std::vector<KX_DATA::QuestionPicRecord> pics;
    ASSERT_TRUE(session.Site().Issues().Pics(site.firstProject, filing.questionId, pics));
    ASSERT_EQ(pics.size(), 2U);
    EXPECT_EQ(pics[0].fileName, u"近景.jpg"_s);
    EXPECT_EQ(pics[0].uploaderName, u"张伟"_s);
    EXPECT_NE(pics[0].thumbUuid, pics[0].fileUuid);
}

TEST_F(RaiseRoad, AnotherClientIsTold) {
    host::HostSession other;
    ASSERT_FALSE(other.Open(folder.Path(u"data"_s)));
    std::vector<site::Change> told;
    const auto watching = other.Site().Changes().Subscribe([&](const site::Changes& changes) {
        told.insert(told.end(), changes.begin(), changes.end());
    });
    const qint64 before = other.Site().Filings().Newest();
    Open();
    Type(*Dialog(), u"subjectEdit"_s, u"柱脚裂缝"_s);
    Pick(u"c1"_s);
    ClickOn(*Dialog(), u"fileIssue"_s);
    EXPECT_TRUE(WaitFor([&] {
        other.Site().Changes().Look();
        return !told.empty();
    }));
    EXPECT_EQ(told.front().kind, site::ChangeKind::Issue);
    const site::IFilings::Next next = other.Site().Filings().After(before, 10);
    ASSERT_EQ(next.filings.size(), 1U);
    EXPECT_EQ(next.filings[0].name, u"柱脚裂缝"_s);
    EXPECT_FALSE(next.filings[0].byThisSite);
}

TEST_F(RaiseRoad, ACancelledPickBringsTheDialogBackWithWhatWasTyped) {
    Open();
    Type(*Dialog(), u"subjectEdit"_s, u"柱脚裂缝"_s);
    Pick(u"c1"_s);
    ClickOn(*Dialog(), u"pickButton"_s);
    ASSERT_TRUE(IsPicking());
    ClickComponent(u"c3"_s);
    PressOnPicks(Qt::Key_Escape);
    ASSERT_TRUE(WaitFor([] { return Dialog() != nullptr; }));
    EXPECT_EQ(Text(u"subjectEdit"_s), u"柱脚裂缝"_s);
    EXPECT_EQ(Text(u"componentText"_s), u"1层 框架柱 KZ-1"_s);
    client->Stop();
}

TEST_F(RaiseRoad, TwoComponentsAreTooManyAndNoneTooFew) {
    Open();
    ClickOn(*Dialog(), u"pickButton"_s);
    ASSERT_TRUE(IsPicking());
    ClickComponent(u"c1"_s);
    ClickComponent(u"c2"_s, Qt::ControlModifier);
    ClickOn(*client->Window(), u"pickDone"_s);
    EXPECT_EQ(Fault(), u"只能选择一个构件！"_s);
    ClickOn(*Dialog(), u"pickButton"_s);
    ASSERT_TRUE(IsPicking());
    ClickOn(*client->Window(), u"pickDone"_s);
    EXPECT_EQ(Fault(), u"请选择一个构件！"_s);
    EXPECT_EQ(Text(u"componentText"_s), u"未选构件"_s);
    client->Stop();
}

TEST_F(RaiseRoad, ThePickOfTheModuleTakesTheDialogsPlaceAndTheDialogComesBack) {
    Open();
    Type(*Dialog(), u"subjectEdit"_s, u"柱脚裂缝"_s);
    ClickOn(*Dialog(), u"pickButton"_s);
    ASSERT_TRUE(IsPicking());
    ClickComponent(u"c1"_s);
    View().BeginComponentPick();
    EXPECT_NE(Dialog(), nullptr);
    EXPECT_EQ(Text(u"componentText"_s), u"未选构件"_s);
    EXPECT_TRUE(Picks().isVisible());
    EXPECT_TRUE(PickedHandles().isEmpty());
    View().ShowComponentProperties(site.firstProject, {}, {});
    client->Stop();
}

TEST_F(RaiseRoad, APickOfTheModuleIsFinishedBeforeTheDialogsOwnBegins) {
    View().BeginComponentPick();
    ASSERT_TRUE(IsPicking());
    Open();
    Type(*Dialog(), u"subjectEdit"_s, u"柱脚裂缝"_s);
    ClickOn(*Dialog(), u"pickButton"_s);
    ASSERT_NE(Dialog(), nullptr);
    EXPECT_EQ(Fault(), u"正在为另一个问题选择构件，请先在平面图上完成或取消选择。"_s);
    EXPECT_TRUE(IsPicking());
    PressOnPicks(Qt::Key_Escape);
    Pick(u"c3"_s);
    EXPECT_EQ(Text(u"componentText"_s), u"1层 框架柱 KZ-3"_s);
    EXPECT_EQ(Text(u"subjectEdit"_s), u"柱脚裂缝"_s);
    {
        support::AnsweredPrompts prompts;
        prompts.ExpectYesNo(u"问题还没有登记，关闭后已填写的内容会丢失。要关闭吗？"_s, true);
        Dialog()->close();
    }
}

TEST_F(RaiseRoad, AnotherProjectDuringThePickKeepsTheTextsAndAsksForAnotherComponent) {
    Open();
    Type(*Dialog(), u"subjectEdit"_s, u"柱脚裂缝"_s);
    Pick(u"c1"_s);
    ClickOn(*Dialog(), u"pickButton"_s);
    ASSERT_TRUE(IsPicking());
    ASSERT_TRUE(ChooseProject(u"二期工程"_s));
    ASSERT_NE(Dialog(), nullptr);
    EXPECT_EQ(Text(u"subjectEdit"_s), u"柱脚裂缝"_s);
    EXPECT_EQ(Text(u"componentText"_s), u"未选构件"_s);
    EXPECT_EQ(Fault(), u"工程已更换，请重新选择构件。"_s);
    client->Stop();
}

TEST_F(RaiseRoad, APictureThatVanishedMeanwhileStopsTheFilingAndNothingIsLost) {
    Open();
    Type(*Dialog(), u"subjectEdit"_s, u"柱脚裂缝"_s);
    Pick(u"c1"_s);
    const QString path = PictureFile(u"近景.jpg"_s);
    EXPECT_TRUE(WaitFor([&] { return hands::DropPaths(Dialog(), {path}); }));
    ASSERT_TRUE(QFile::remove(path));
    const qint64 before = session.Site().Filings().Newest();
    ClickOn(*Dialog(), u"fileIssue"_s);
    ASSERT_NE(Dialog(), nullptr);
    EXPECT_EQ(Fault(), u"图片“近景.jpg”已不存在，请移除它或换一张后再登记。"_s);
    EXPECT_EQ(session.Site().Filings().Newest(), before);
    EXPECT_EQ(Text(u"subjectEdit"_s), u"柱脚裂缝"_s);
    EXPECT_EQ(PictureFile(u"近景.jpg"_s), path);
    ClickOn(*Dialog(), u"fileIssue"_s);
    EXPECT_EQ(Dialog(), nullptr);
    EXPECT_GT(session.Site().Filings().Newest(), before);
}

TEST_F(RaiseRoad, ASecondCommandBringsTheOpenDialogUp) {
    Open();
    Type(*Dialog(), u"subjectEdit"_s, u"柱脚裂缝"_s);
    const QWidget* first = Dialog();
    ClickOn(*Dialog(), u"pickButton"_s);
    ASSERT_TRUE(IsPicking());
    Open();
    EXPECT_EQ(Dialog(), first);
    EXPECT_FALSE(Picks().isVisible());
    EXPECT_EQ(Text(u"subjectEdit"_s), u"柱脚裂缝"_s);
    client->Stop();
}

TEST_F(RaiseRoad, ClosingTheClientDuringThePickAsksFirst) {
    Open();
    Type(*Dialog(), u"subjectEdit"_s, u"柱脚裂缝"_s);
    ClickOn(*Dialog(), u"pickButton"_s);
    ASSERT_TRUE(IsPicking());
    support::AnsweredPrompts prompts;
    prompts.ExpectYesNo(u"问题还没有登记，关闭后已填写的内容会丢失。要关闭吗？"_s, false);
    client->Window()->close();
    EXPECT_TRUE(client->Window()->isVisible());
    ASSERT_NE(Dialog(), nullptr);
    EXPECT_EQ(Text(u"subjectEdit"_s), u"柱脚裂缝"_s);
    prompts.ExpectYesNo(u"问题还没有登记，关闭后已填写的内容会丢失。要关闭吗？"_s, true);
    client->Window()->close();
    EXPECT_FALSE(client->Window()->isVisible());
}

TEST_F(RaiseRoad, InAWorksetTheEntryIsOffAndSaysWhy) {
    ASSERT_NE(Entry(), nullptr);
    EXPECT_TRUE(Entry()->isEnabled());
    ASSERT_TRUE(ChooseProject(u"工作集：总包"_s));
    EXPECT_FALSE(Entry()->isEnabled());
    EXPECT_TRUE(Entry()->toolTip().endsWith(u"打开工作集时不能登记问题，请先打开单个工程"_s));
}

class RaiseWithoutRights : public RaiseRoad {
protected:
    void Furnish() override { ASSERT_TRUE(session.SignIn(u"李娜"_s)); }
};

TEST_F(RaiseWithoutRights, TheEntryIsOffAndSaysWhy) {
    ASSERT_NE(Entry(), nullptr);
    EXPECT_FALSE(Entry()->isEnabled());
    EXPECT_TRUE(Entry()->toolTip().endsWith(u"您没有编辑的权限"_s));
}

} // namespace
} // namespace roads
