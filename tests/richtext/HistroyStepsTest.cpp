// The question of a conflict and the other person's version: texts, steps, what is fetched.
#include "richtext/HistroyTip.h"
#include "tests/richtext/RichFixture.h"
#include "tests/support/Hands.h"
#include "tests/support/ModalVisit.h"
#include "tests/support/WaitFor.h"
#include "toolkit/KXTools.h"
#include "toolkit/controls/RichLinkButton.h"
#include "toolkit/richtext/NoteEdit.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

#include <gmock/gmock.h>

#include <algorithm>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

class HistroyStepsTest : public RichFixture {
protected:
    /// Presses the link; what comes up is looked at and closed.
    static void LookAtHistory(QWidget& question, const support::ModalVisit::Action& look) {
        bool isSeen = false;
        QTimer looking;
        looking.callOnTimeout([&] {
            QWidget* other = QApplication::activeModalWidget();
            if (other != nullptr && other->objectName() == u"HistroyEditor"_s) {
                looking.stop();
                isSeen = true;
                support::RunPendingEvents();
                look(*other);
                other->close();
            }
        });
        looking.start(1);
        support::Click(question.findChild<QPushButton*>(u"historyButton"_s));
        EXPECT_TRUE(isSeen);
    }
    static toolkit::NoteEdit& SheetOf(QWidget& window) {
        return *window.findChild<toolkit::NoteEdit*>();
    }
    /// Texts of the row above the document, from the left.
    static QStringList RowOf(QWidget& window) {
        QList<QLabel*> labels =
            window.findChild<QWidget*>(u"historyRow"_s)->findChildren<QLabel*>();
        std::ranges::sort(labels, {}, [](const QLabel* label) { return label->x(); });
        QStringList texts;
        for (const QLabel* label : labels) {
            texts << label->text();
        }
        return texts;
    }
};

} // namespace

TEST_F(HistroyStepsTest, TheQuestionHasItsTextItsTwoButtonsAndTheLink) {
    CHistroyTip question(OnServer());
    const support::ModalVisit visit(u"HistroyTip"_s, [](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), u"Zelvor KX");
        const auto labels = window.findChildren<QLabel*>();
        ASSERT_EQ(labels.size(), 1);
        EXPECT_EQ(labels[0]->text(), u"在编辑期间有其他人对当前进行了修改,是否覆盖?");
        EXPECT_EQ(window.findChild<QPushButton*>(u"okButton"_s)->text(), u"确定");
        EXPECT_EQ(window.findChild<QPushButton*>(u"cancelButton"_s)->text(), u"取消");
        EXPECT_EQ(window.findChildren<QPushButton*>().size(), 3);
        auto* link = window.findChild<CRichLinkButton*>(u"historyButton"_s);
        ASSERT_NE(link, nullptr);
        EXPECT_EQ(link->text(), u"查看历史");
        EXPECT_TRUE(link->isFlat());
        EXPECT_EQ(link->cursor().shape(), Qt::PointingHandCursor);
        support::Click(window.findChild<QPushButton*>(u"cancelButton"_s));
    });
    EXPECT_EQ(question.DoModal(mainWindow.Id()), DialogResult::Cancelled);
}

TEST_F(HistroyStepsTest, TheHistoryBelongsToTheMainWindowAndTheQuestionWaitsForIt) {
    CHistroyTip question(OnServer());
    const support::ModalVisit visit(u"HistroyTip"_s, [this](QWidget& window) {
        for (int times = 0; times < 2; ++times) {
            LookAtHistory(window, [&](QWidget& history) {
                EXPECT_EQ(history.parentWidget(), mainWindow.Widget());
                EXPECT_TRUE(window.isVisible());
            });
            EXPECT_TRUE(window.isVisible()) << "it is still open";
        }
        window.close();
    });
    EXPECT_EQ(question.DoModal(mainWindow.Id()), DialogResult::Cancelled);
}

TEST_F(HistroyStepsTest, WhatTheOtherPersonSavedIsShownNotTheOwn) {
    Open();
    Write(u"，我的"_s);
    OnServer().versionText = u"v2"_s;
    OnServer().editorName = u"王五"_s;
    OnServer().stateText = u"已整改"_s;
    OnServer().updateTime = 1772600000;
    OnServer().attachments = {Stored("<p>别人的</p>", u".html"_s)};
    const support::ModalVisit visit(u"HistroyTip"_s, [](QWidget& window) {
        LookAtHistory(window, [](QWidget& history) {
            EXPECT_EQ(SheetOf(history).toPlainText(), u"别人的");
            EXPECT_EQ(RowOf(history), QStringList({u"编辑人："_s, u"王五"_s, u"更新时间："_s,
                                                   KXTools::timeToCString(1772600000),
                                                   u"整改情况："_s, u"已整改"_s}));
        });
        support::Click(window.findChild<QPushButton*>(u"okButton"_s));
    });
    EXPECT_TRUE(pane.SaveRichText());
    EXPECT_EQ(host.richTexts.lastSaved.editorName, u"王五");
    EXPECT_EQ(Text(), u"雨后渗水，我的");
}

TEST_F(HistroyStepsTest, TheRowIsFilledWhenTheEditorIsReadyAndNotBefore) {
    CHistroyEditor history(OnServer());
    history.Create(mainWindow.Id());
    EXPECT_EQ(RowOf(*history.Widget()).filter(u"李四"_s).size(), 0);
    EXPECT_EQ(Log().CountOf("DownloadFile"), 0);
    toolkit::SendWindowEvent(history.Id(), 8005);
    EXPECT_EQ(RowOf(*history.Widget()).filter(u"李四"_s).size(), 1);
    EXPECT_EQ(SheetOf(*history.Widget()).toPlainText(), u"雨后渗水");
    history.Destroy();
}

TEST_F(HistroyStepsTest, TheEditorFillsAllButTheTop28WhateverTheSize) {
    CHistroyEditor history(OnServer());
    history.Create(mainWindow.Id());
    history.Widget()->show();
    for (const QSize& size : {QSize(900, 700), QSize(640, 300)}) {
        history.Widget()->resize(size);
        support::RunPendingEvents();
        ASSERT_EQ(history.Widget()->size(), size) << "it can be resized";
        EXPECT_EQ(history.Widget()->findChild<QWidget*>(u"zelvorEditor"_s)->geometry(),
                  QRect(0, 28, size.width(), size.height() - 28));
    }
    history.Destroy();
}

TEST_F(HistroyStepsTest, PagesAndEmbeddedFilesAreFetchedInTheirOrderAndAttachmentsNever) {
    const KX_DATA::RichAttachment embedded = Stored("picture", u".png"_s, 3);
    OnServer().attachments.insert(OnServer().attachments.begin(), embedded);
    CHistroyEditor history(OnServer());
    history.Create(mainWindow.Id());
    support::RunPendingEvents();
    const std::string rest = ",kind=5,flag=false,value=0)";
    EXPECT_THAT(
        Log().LinesOf({"DownloadFile"}),
        ElementsAre("DownloadFile(uuid=" + embedded.uuid.toStdString() + rest,
                    "DownloadFile(uuid=" + OnServer().attachments[1].uuid.toStdString() + rest));
    history.Destroy();
    history.Create(mainWindow.Id());
    support::RunPendingEvents();
    EXPECT_EQ(Log().CountOf("DownloadFile"), 2) << "they are there";
    EXPECT_EQ(SheetOf(*history.Widget()).toPlainText(), u"雨后渗水");
    history.Destroy();
}

TEST_F(HistroyStepsTest, TheFirstFileThatFailsEndsItUnderARowThatIsFilled) {
    OnServer().attachments = {Stored("one", u".png"_s, 3), Stored("<p>二</p>", u".html"_s)};
    host.script.FailNext("DownloadFile");
    CHistroyEditor history(OnServer());
    history.Create(mainWindow.Id());
    QStringList row;
    prompts.ExpectMessage(u"scripted failure"_s);
    prompts.Meanwhile([&] { row = RowOf(*history.Widget()); });
    support::RunPendingEvents();
    EXPECT_TRUE(row.contains(u"李四"_s));
    EXPECT_TRUE(row.contains(u"整改中"_s));
    EXPECT_EQ(Log().CountOf("DownloadFile"), 1);
    EXPECT_EQ(SheetOf(*history.Widget()).toPlainText(), QString());
    history.Destroy();
}
