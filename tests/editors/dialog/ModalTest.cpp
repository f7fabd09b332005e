// The editor as its openers run it: modal, answering by its result alone.
#include "tests/editors/dialog/EditorFixture.h"
#include "tests/support/ModalVisit.h"
#include "tests/support/WaitFor.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using support::ModalVisit;
using testing::ElementsAre;

const QString kEditor = u"BimPicEditDlg"_s;

class ModalTest : public EditorFixture {
protected:
    static void Press(QWidget& window, const char* button) {
        support::Click(window.findChild<QPushButton*>(QString::fromLatin1(button)));
    }
};

TEST_F(ModalTest, OkAnswersOk) {
    CBimPicEditDlg dialog(Photo());
    const ModalVisit visit(kEditor, [](QWidget& window) { Press(window, "okButton"); });
    EXPECT_EQ(dialog.DoModal(mainWindow.Id()), DialogResult::Ok);
    EXPECT_FALSE(dialog.HasWindow());
    EXPECT_EQ(Saves(), 1);
}

TEST_F(ModalTest, EveryOtherEndAnswersCancelled) {
    const std::vector<ModalVisit::Action> ends = {
        [](QWidget& window) { Press(window, "cancelButton"); },
        [](QWidget& window) { window.close(); },
        [](QWidget& window) {
            QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
            ASSERT_TRUE(support::WaitFor([] { return !QApplication::activeModalWidget(); }));
        },
        [](QWidget& window) { delete &window; },
    };
    for (const ModalVisit::Action& end : ends) {
        CBimPicEditDlg dialog(Photo());
        const ModalVisit visit(kEditor, end);
        EXPECT_EQ(dialog.DoModal(mainWindow.Id()), DialogResult::Cancelled);
        EXPECT_FALSE(dialog.HasWindow());
    }
    EXPECT_EQ(Saves(), 0);
}

TEST_F(ModalTest, ItLiesOnItsParentAndBlocksAllOtherWindows) {
    CBimPicEditDlg dialog(Photo());
    const ModalVisit visit(kEditor, [this](QWidget& window) {
        EXPECT_EQ(window.parentWidget(), mainWindow.Widget());
        EXPECT_EQ(window.windowModality(), Qt::ApplicationModal);
        Press(window, "cancelButton");
    });
    dialog.DoModal(mainWindow.Id());
}

TEST_F(ModalTest, ClosedWhileTheServiceSavesItAnswersWhatTheServiceSays) {
    CBimPicEditDlg dialog(Photo());
    host.script.During("UpdateBimPic", [&] { dialog.Destroy(); });
    {
        const ModalVisit visit(kEditor, [](QWidget& window) { Press(window, "okButton"); });
        EXPECT_EQ(dialog.DoModal(mainWindow.Id()), DialogResult::Ok);
    }
    host.script.FailNext("UpdateBimPic");
    const ModalVisit visit(kEditor, [](QWidget& window) { Press(window, "okButton"); });
    EXPECT_EQ(dialog.DoModal(mainWindow.Id()), DialogResult::Cancelled);
}

TEST_F(ModalTest, ClosedWhileItOpensItAnswersCancelled) {
    for (const char* call : {"GetLabels", "HasRight", "GetMarkTable"}) {
        CBimPicEditDlg dialog(Photo());
        host.script.During(call, [&] { dialog.Destroy(); });
        EXPECT_EQ(dialog.DoModal(mainWindow.Id()), DialogResult::Cancelled) << call;
        host.script.During(call, nullptr);
    }
}

TEST_F(ModalTest, ItCanBeOpenedAgainAndShowsWhatWasSentByAFailedSave) {
    CBimPicEditDlg dialog(Photo());
    for (int run = 0; run < 2; ++run) {
        const ModalVisit visit(kEditor, [](QWidget& window) {
            EXPECT_EQ(window.findChild<CColorTxtComboBox*>(u"markCombo"_s)->count(), 3);
            Press(window, "cancelButton");
        });
        dialog.DoModal(mainWindow.Id());
    }
    EXPECT_THAT(dialog.Fields().markIds, ElementsAre(1, 2, 3));
}

} // namespace
