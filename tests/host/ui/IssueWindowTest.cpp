// The window of an issue with its history and its QR code.
#include "host/ui/issues/IssueWindow.h"

#include "hands/Hands.h"
#include "host/app/IssueReader.h"
#include "host/qr/QrImage.h"
#include "host/qr/QrRead.h"
#include "host/session/HostSession.h"
#include "site/IssueCode.h"
#include "site/sqlite/SiteWriter.h"
#include "tests/support/AnsweredPrompts.h"
#include "tests/support/EngineFolder.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/TempFolder.h"
#include "tests/support/WaitFor.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QTableView>
#include <QtTest/QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;

class WindowOfAnIssue : public testing::Test {
protected:
    WindowOfAnIssue() {
        window->ShowFacts(Facts());
        window->show();
    }
    ~WindowOfAnIssue() override { delete window; }

    [[nodiscard]] static IssueFacts Facts() {
        return {u"梁底/露筋"_s,
                {{u"状态"_s, u"整改中"_s}, {u"构件"_s, u"3层 框架梁 KL-5"_s}},
                {{u"2026-01-02 08:00"_s, u"李娜"_s, u"描述：（空） → “宽 0.3 mm”"_s},
                 {u"2026-01-01 08:00"_s, u"张伟"_s, u"提出问题"_s}},
                u"kxissue:1:7:abc"_s,
                {}};
    }
    template <class Control> [[nodiscard]] Control& Find(const QString& name) const {
        return *window->findChild<Control*>(name);
    }
    void Click(const QString& name) const { Find<QPushButton>(name).click(); }
    [[nodiscard]] QString Notice() const {
        const auto& label = Find<QLabel>(u"issueNotice"_s);
        return label.isVisible() ? label.text() : QString();
    }
    [[nodiscard]] QString Cell(int row, int column) const {
        const QAbstractItemModel& model = *Find<QTableView>(u"issueHistory"_s).model();
        return model.index(row, column).data().toString();
    }

    support::TempFolder folder;
    QPointer<IssueWindow> window = new IssueWindow(nullptr, &QrImageOf);
};

TEST_F(WindowOfAnIssue, ItsQuestionsLieOnItAndNotOnTheMainWindow) {
    QWidget main;
    toolkit::RegisterWindow(&main, [](const toolkit::WindowEvent&) { return 0; });
    delete window;
    window = new IssueWindow(&main, &QrImageOf);
    window->ShowFacts(Facts());
    window->show();
    support::AnsweredPrompts prompts;
    prompts.ExpectSaveFile(u"梁底_露筋.png"_s, {});
    Click(u"issueSaveCode"_s);
    ASSERT_EQ(prompts.Parents().size(), 1U);
    EXPECT_EQ(toolkit::WidgetOf(prompts.Parents()[0]), window);
    delete window;
}

TEST_F(WindowOfAnIssue, EnterPressesTheButtonThatHasTheFocus) {
    support::AnsweredPrompts prompts;
    prompts.ExpectSaveFile(u"梁底_露筋.png"_s, {});
    window->activateWindow();
    Find<QPushButton>(u"issueSaveCode"_s).setFocus();
    QTest::keyClick(&Find<QPushButton>(u"issueSaveCode"_s), Qt::Key_Return);
    EXPECT_TRUE(prompts.AllAnswered());
    Find<QTableView>(u"issueHistory"_s).setFocus();
    QTest::keyClick(&Find<QTableView>(u"issueHistory"_s), Qt::Key_Return);
    EXPECT_TRUE(window->isVisible());
}

TEST_F(WindowOfAnIssue, ShowsSubjectTextsAndHistoryWithTheLatestFirst) {
    EXPECT_EQ(window->windowTitle(), u"问题信息 - 梁底/露筋"_s);
    EXPECT_EQ(Find<QLabel>(u"issueSubject"_s).text(), u"梁底/露筋"_s);
    QStringList texts;
    for (const QLabel* label : window->findChildren<QLabel*>()) {
        texts << label->text();
    }
    EXPECT_TRUE(texts.contains(u"状态："_s));
    EXPECT_TRUE(texts.contains(u"整改中"_s));
    EXPECT_TRUE(texts.contains(u"3层 框架梁 KL-5"_s));
    EXPECT_EQ(Cell(0, 1), u"李娜"_s);
    EXPECT_EQ(Cell(0, 2), u"描述：（空） → “宽 0.3 mm”"_s);
    EXPECT_EQ(Cell(1, 2), u"提出问题"_s);
    EXPECT_TRUE(Notice().isEmpty());
}

TEST_F(WindowOfAnIssue, TheCodeOnTheScreenIsThatOfTheIssue) {
    EXPECT_EQ(ReadQr(Find<QLabel>(u"issueCode"_s).pixmap().toImage()), u"kxissue:1:7:abc"_s);
    EXPECT_EQ(ReadQr(window->grab().toImage()), u"kxissue:1:7:abc"_s);
}

TEST_F(WindowOfAnIssue, TheCodeIsCopiedAsPictureAndText) {
    Click(u"issueCopyCode"_s);
    EXPECT_EQ(ReadQr(QApplication::clipboard()->image()), u"kxissue:1:7:abc"_s);
    EXPECT_EQ(QApplication::clipboard()->text(), u"kxissue:1:7:abc"_s);
    EXPECT_EQ(Notice(), u"二维码已复制到剪贴板"_s);
}

TEST_F(WindowOfAnIssue, TheCodeIsSavedAsAPictureUnderANameThatFilesCanHave) {
    support::AnsweredPrompts prompts;
    const QString path = folder.Path(u"code.png"_s);
    prompts.ExpectSaveFile(u"梁底_露筋.png"_s, path);
    Click(u"issueSaveCode"_s);
    EXPECT_EQ(ReadQrFile(path).text, u"kxissue:1:7:abc"_s);
    EXPECT_EQ(Notice(), u"二维码已保存：%1"_s.arg(path));
}

TEST_F(WindowOfAnIssue, ACancelledSaveWritesNothingAndSaysNothing) {
    support::AnsweredPrompts prompts;
    prompts.ExpectSaveFile(u"梁底_露筋.png"_s, {});
    Click(u"issueSaveCode"_s);
    EXPECT_TRUE(Notice().isEmpty());
}

TEST_F(WindowOfAnIssue, AFolderThatIsNotThereIsTold) {
    support::AnsweredPrompts prompts;
    const QString path = folder.Path(u"nowhere/code.png"_s);
    prompts.ExpectSaveFile(u"梁底_露筋.png"_s, path);
    Click(u"issueSaveCode"_s);
    EXPECT_EQ(Notice(), u"无法保存二维码：%1。请换一个文件夹，或检查磁盘空间。"_s.arg(path));
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(WindowOfAnIssue, OfATextWithoutEndTheBeginningIsShown) {
    IssueFacts facts = Facts();
    facts.subject = facts.rows[0].second = QString(1'000'000, u'宽');
    window->ShowFacts(facts);
    int cut = 0;
    for (const QLabel* label : window->findChildren<QLabel*>()) {
        EXPECT_LT(label->text().size(), 700);
        cut += label->text().endsWith(u"宽……（共 1000000 字）"_s) ? 1 : 0;
    }
    EXPECT_EQ(cut, 2);
    EXPECT_LT(window->windowTitle().size(), 700);
}

TEST_F(WindowOfAnIssue, ADescriptionOfVeryManyLinesLeavesTheWindowOnTheScreen) {
    IssueFacts facts = Facts();
    facts.rows.emplace_back(u"描述"_s, u"\n"_s.repeated(254) + u"尾"_s);
    window->ShowFacts(facts);
    support::RunPendingEvents();
    EXPECT_LE(window->height(), window->screen()->availableGeometry().height());
}

TEST_F(WindowOfAnIssue, AFullDiskIsToldAndWhatStoodThereStays) {
    support::AnsweredPrompts prompts;
    const QString path = folder.Write(u"code.png"_s, "an older one");
    prompts.ExpectSaveFile(u"梁底_露筋.png"_s, path);
    {
        const support::FileSizeLimit full(64);
        Click(u"issueSaveCode"_s);
    }
    EXPECT_EQ(Notice(), u"无法保存二维码：%1。请换一个文件夹，或检查磁盘空间。"_s.arg(path));
    EXPECT_EQ(folder.Read(u"code.png"_s), "an older one");
}

TEST_F(WindowOfAnIssue, ClosedDuringTheSaveDialogItWritesNothing) {
    support::AnsweredPrompts prompts;
    const QString path = folder.Path(u"code.png"_s);
    prompts.ExpectSaveFile(u"梁底_露筋.png"_s, path);
    prompts.Meanwhile([this] { delete window; });
    auto& save = Find<QPushButton>(u"issueSaveCode"_s);
    QMetaObject::invokeMethod(&save, "click", Qt::QueuedConnection);
    EXPECT_TRUE(support::WaitFor([&] { return prompts.AllAnswered(); }));
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(WindowOfAnIssue, AnIssueThatIsGoneKeepsItsTextsAndGivesNoCodeAway) {
    window->ShowGone();
    EXPECT_EQ(Notice(), u"该问题已被删除，以上是删除前的内容。30 天内可在回收站中恢复。"_s);
    EXPECT_EQ(Find<QLabel>(u"issueSubject"_s).text(), u"梁底/露筋"_s);
    for (const QString& name : {u"issueCopyCode"_s, u"issueSaveCode"_s, u"issueView"_s}) {
        EXPECT_FALSE(Find<QPushButton>(name).isEnabled()) << name.toStdString();
    }
    window->ShowFacts(Facts());
    EXPECT_TRUE(Notice().isEmpty());
    EXPECT_TRUE(Find<QPushButton>(u"issueSaveCode"_s).isEnabled());
}

TEST_F(WindowOfAnIssue, ATextThatIsTooLongForACodeIsTold) {
    IssueFacts facts = Facts();
    facts.code = QString(3000, u'x');
    window->ShowFacts(facts);
    EXPECT_EQ(Find<QLabel>(u"issueCode"_s).text(), u"内容过长，无法生成二维码"_s);
    EXPECT_FALSE(Find<QPushButton>(u"issueCopyCode"_s).isEnabled());
    EXPECT_FALSE(Find<QPushButton>(u"issueSaveCode"_s).isEnabled());
}

TEST_F(WindowOfAnIssue, ReadAnewTheChosenLineStaysChosenAndCanBeCopied) {
    auto& table = Find<QTableView>(u"issueHistory"_s);
    table.selectRow(1);
    IssueFacts facts = Facts();
    facts.history.insert(facts.history.begin(), {u"2026-01-03 08:00"_s, u"李娜"_s, u"新"_s});
    window->ShowFacts(facts);
    EXPECT_EQ(table.currentIndex().row(), 2);
    table.setFocus();
    EXPECT_TRUE(
        support::WaitFor([&] { return hands::PressKey(&table, Qt::Key_C, Qt::ControlModifier); }));
    EXPECT_EQ(QApplication::clipboard()->text(), u"2026-01-01 08:00\t张伟\t提出问题"_s);
}

TEST_F(WindowOfAnIssue, ALongSubjectIsNeverTakenForAPlaceholder) {
    IssueFacts facts = Facts();
    facts.subject = u"%2"_s + QString(698, u'宽');
    window->ShowFacts(facts);
    EXPECT_TRUE(window->windowTitle().startsWith(u"问题信息 - %2宽"_s))
        << window->windowTitle().toStdString();
    EXPECT_TRUE(window->windowTitle().endsWith(u"宽……（共 700 字）"_s));
}

TEST(CodeFileName, HasNothingThatNoFileSystemTakes) {
    EXPECT_EQ(CodeFileName(u"a:b/c\\d*e?f\"g<h>i|j\nk"_s), u"a_b_c_d_e_f_g_h_i_j_k.png"_s);
    EXPECT_EQ(CodeFileName(u" .. "_s), u"问题.png"_s);
    EXPECT_EQ(CodeFileName({}), u"问题.png"_s);
    EXPECT_LE(CodeFileName(QString(300, u'裂')).toUtf8().size(), 255);
}

TEST(DeedText, SaysWhatWasDone) {
    using site::IssueDeed;
    const auto text = [](IssueDeed deed, const QString& before, const QString& after,
                         int count = 0) {
        return DeedText({0, {}, deed, before, after, count});
    };
    EXPECT_EQ(text(IssueDeed::Raised, {}, {}), u"提出问题"_s);
    EXPECT_EQ(text(IssueDeed::Subject, u"甲"_s, u"乙"_s), u"名称：“甲” → “乙”"_s);
    EXPECT_EQ(text(IssueDeed::Component, {}, u"KZ-1"_s), u"构件：（空） → “KZ-1”"_s);
    EXPECT_EQ(text(IssueDeed::Status, u"显示"_s, u"隐藏"_s), u"显示：“显示” → “隐藏”"_s);
    EXPECT_EQ(text(IssueDeed::QrCode, {}, u"x"_s), u"生成二维码"_s);
    EXPECT_EQ(text(IssueDeed::QrCode, u"w"_s, u"x"_s), u"更换二维码"_s);
    EXPECT_EQ(text(IssueDeed::PicsRemoved, u"a.jpg"_s, {}, 1), u"删除问题图片 1 张：a.jpg"_s);
    EXPECT_EQ(text(IssueDeed::RectifyPicsAdded, {}, u"a.jpg、b.jpg"_s, 2),
              u"添加整改图片 2 张：a.jpg、b.jpg"_s);
    EXPECT_EQ(text(IssueDeed::RectifyState, u"未整改"_s, u"已整改"_s),
              u"整改状态：“未整改” → “已整改”"_s);
    EXPECT_EQ(text(IssueDeed(99), {}, {}), u"其他更改（由新版本的客户端记录）"_s);
}

/// Two projects, the first open, with an issue in each.
class IssueOfAFolder : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_FALSE(session.Open(folder.Path(u"data"_s)));
        site::SiteWriter writer(support::FolderOf(session));
        first = writer.AddProject(u"一期工程"_s);
        second = writer.AddProject(u"二期工程"_s);
        writer.AddUser(u"张伟"_s, {});
        writer.AddMark(1, u"质量"_s, 0x0000FF);
        issue = Raise(writer, first);
        elsewhere = Raise(writer, second);
        ASSERT_TRUE(session.SignIn(u"张伟"_s));
        ASSERT_TRUE(session.OpenProject(first));
    }
    [[nodiscard]] static QString Raise(site::SiteWriter& writer, qint32 ppid) {
        site::NewIssue raised;
        raised.ppid = ppid;
        raised.theme = u"梁底露筋"_s;
        raised.floor = u"3"_s;
        raised.markId = 1;
        raised.creator = u"张伟"_s;
        raised.createTime = 1'700'000'000;
        return writer.FileIssue(raised);
    }
    [[nodiscard]] IssueFacts Read() const {
        const auto facts = ReadIssueFacts(session, {first, issue});
        EXPECT_TRUE(facts);
        return facts.value_or(IssueFacts());
    }

    support::TempFolder folder;
    HostSession session;
    qint32 first = 0;
    qint32 second = 0;
    QString issue;
    QString elsewhere;
};

TEST_F(IssueOfAFolder, WithoutACodeItHasOneOfItsOwnIdThatLeadsBackToIt) {
    const IssueFacts facts = Read();
    EXPECT_EQ(facts.code, site::IssueCode(first, issue));
    EXPECT_FALSE(facts.codeNote.isEmpty());
    const CodeLookup found = LookUpCode(session, facts.code);
    ASSERT_TRUE(found.issue);
    EXPECT_EQ(found.issue->questionId, issue);
    EXPECT_EQ(found.issue->ppid, first);
}

TEST_F(IssueOfAFolder, ItsTextsAndItsHistoryAreThoseOfTheSite) {
    KX_DATA::IssueUpdate update;
    update.questionId = issue;
    update.questionName = u"梁底露筋"_s;
    update.description = u"宽 0.3 mm"_s;
    update.markId = 1;
    update.status = 1;
    update.qrCode = u"kxissue:1:1:code"_s;
    ASSERT_EQ(session.Site().Issues().Update(first, update, {u"李娜"_s, 1'700'000'100}),
              site::Saved::Yes);
    const IssueFacts facts = Read();
    using testing::Contains;
    EXPECT_THAT(facts.rows, Contains(std::pair(u"工程"_s, u"一期工程"_s)));
    EXPECT_THAT(facts.rows, Contains(std::pair(u"状态"_s, u"未整改（隐藏）"_s)));
    EXPECT_THAT(facts.rows, Contains(std::pair(u"标识"_s, u"质量"_s)));
    EXPECT_THAT(facts.rows, Contains(std::pair(u"描述"_s, u"宽 0.3 mm"_s)));
    EXPECT_EQ(facts.code, u"kxissue:1:1:code"_s);
    EXPECT_TRUE(facts.codeNote.isEmpty());
    ASSERT_EQ(facts.history.size(), 4U);
    EXPECT_EQ(facts.history.front().who, u"李娜"_s);
    EXPECT_EQ(facts.history.back().who, u"张伟"_s);
    EXPECT_EQ(facts.history.back().what, u"提出问题"_s);
}

TEST_F(IssueOfAFolder, CodesThatLeadToNoOpenIssueSayWhy) {
    EXPECT_EQ(LookUpCode(session, site::IssueCode(second, elsewhere)).lack,
              u"该问题属于工程“二期工程”，请先打开这个工程再试。"_s);
    EXPECT_EQ(LookUpCode(session, site::IssueCode(first, u"nobody"_s)).lack,
              u"没有找到这个二维码的问题，它可能已被删除，或二维码已更换。"_s);
    EXPECT_EQ(LookUpCode(session, u"https://example.org/\nx"_s).lack,
              u"这不是问题的二维码，内容是：https://example.org/ x"_s);
}

TEST_F(IssueOfAFolder, AnIssueOfAnotherProjectOrNoneIsNotThere) {
    EXPECT_FALSE(ReadIssueFacts(session, {second, issue}));
    EXPECT_FALSE(ReadIssueFacts(session, {first, u"nobody"_s}));
}

} // namespace
} // namespace host
