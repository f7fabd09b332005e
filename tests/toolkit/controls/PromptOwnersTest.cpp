// The prompts that a person gets: their answers, and the end of the window that they lie on.
#include "tests/support/ModalVisit.h"
#include "tests/support/TempFolder.h"
#include "toolkit/windows/Prompts.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QWidget>

#include <gmock/gmock.h>

#include <utility>

using namespace Qt::StringLiterals;

using ::testing::ElementsAre;

namespace {

const QString kBox = u"messageBox"_s;
const QString kFiles = u"fileDialog"_s;

class PromptOwners : public testing::Test {
protected:
    PromptOwners()
        : m_window(new QWidget),
          id(toolkit::RegisterWindow(m_window,
                                     [](const toolkit::WindowEvent&) { return qintptr(0); })) {
        m_window->show();
    }
    ~PromptOwners() override { delete m_window; }

    void KillWindow() { delete std::exchange(m_window, nullptr); }
    [[nodiscard]] auto Killing() {
        return [this](QWidget& prompt) {
            EXPECT_EQ(prompt.parentWidget(), m_window);
            KillWindow();
        };
    }
    static void Press(QWidget& box, QMessageBox::StandardButton which) {
        static_cast<QMessageBox&>(box).button(which)->click();
    }
    [[nodiscard]] QString AnExistingFile() const { return m_folder.Write(u"photo.jpg"_s, "photo"); }

private:
    QWidget* m_window;
    support::TempFolder m_folder;

protected:
    toolkit::IPrompts& prompts = toolkit::Prompts();
    toolkit::WindowId id;
};

TEST_F(PromptOwners, AMessageEndsWithItsWindow) {
    const support::ModalVisit visit(kBox, Killing());
    prompts.ShowMessage(id, u"文字"_s);
    EXPECT_TRUE(visit.HasCome());
}

TEST_F(PromptOwners, AQuestionWithCancelIsCancelledByItsWindowsEnd) {
    const support::ModalVisit visit(kBox, Killing());
    EXPECT_FALSE(prompts.AskOkCancel(id, u"文字"_s));
}

TEST_F(PromptOwners, AQuestionIsAnsweredWithNoByItsWindowsEnd) {
    const support::ModalVisit visit(kBox, Killing());
    EXPECT_FALSE(prompts.AskYesNo(id, u"文字"_s));
}

TEST_F(PromptOwners, TheChoiceOfAFolderIsCancelledByItsWindowsEnd) {
    const support::ModalVisit visit(kFiles, Killing());
    EXPECT_EQ(prompts.AskFolder(id, u"标题"_s), QString());
}

TEST_F(PromptOwners, TheNameOfAFileIsCancelledByItsWindowsEnd) {
    const support::ModalVisit visit(kFiles, Killing());
    EXPECT_EQ(prompts.AskSaveFile({id, u"a.jpg"_s, u"jpg"_s, u"*.jpg"_s}), QString());
}

TEST_F(PromptOwners, TheChoiceOfFilesIsCancelledByItsWindowsEnd) {
    const support::ModalVisit visit(kFiles, Killing());
    EXPECT_EQ(prompts.AskOpenFiles({id, u"*.jpg"_s}), QStringList());
}

TEST_F(PromptOwners, NoNameIsAskedAgainWhenTheWindowDiesBehindTheQuestionToReplace) {
    const QString existing = AnExistingFile();
    const support::ModalVisit replace(kBox, Killing());
    const support::ModalVisit name(kFiles,
                                   [](QWidget& dialog) { static_cast<QDialog&>(dialog).accept(); });
    EXPECT_EQ(prompts.AskSaveFile({id, existing, u"jpg"_s, u"*.jpg"_s}), QString());
}

TEST_F(PromptOwners, AQuestionIsYesOnlyByItsYesButton) {
    for (const bool yes : {false, true}) {
        const support::ModalVisit visit(
            kBox, [yes](QWidget& box) { Press(box, yes ? QMessageBox::Yes : QMessageBox::No); });
        EXPECT_EQ(prompts.AskYesNo(id, u"文字"_s), yes);
    }
    for (const bool ok : {false, true}) {
        const support::ModalVisit visit(
            kBox, [ok](QWidget& box) { Press(box, ok ? QMessageBox::Ok : QMessageBox::Cancel); });
        EXPECT_EQ(prompts.AskOkCancel(id, u"文字"_s), ok);
    }
}

TEST_F(PromptOwners, TextsArePlainAndOnlyTheQuestionWithCancelStaysOnTop) {
    for (const bool cancel : {false, true}) {
        const support::ModalVisit visit(kBox, [cancel](QWidget& widget) {
            auto& box = static_cast<QMessageBox&>(widget);
            EXPECT_EQ(box.text(), u"<b>文字</b>"_s);
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            EXPECT_TRUE(box.textInteractionFlags().testFlag(Qt::TextSelectableByMouse));
            EXPECT_EQ(box.windowFlags().testFlag(Qt::WindowStaysOnTopHint), cancel);
            static_cast<QDialog&>(box).reject();
        });
        if (cancel) {
            EXPECT_FALSE(prompts.AskOkCancel(id, u"<b>文字</b>"_s));
        } else {
            EXPECT_FALSE(prompts.AskYesNo(id, u"<b>文字</b>"_s));
        }
    }
}

TEST_F(PromptOwners, AnExistingFileIsReplacedOnlyWhereThePersonSaysSo) {
    const QString existing = AnExistingFile();
    const support::ModalVisit name(kFiles, [&existing](QWidget& widget) {
        auto& dialog = static_cast<QFileDialog&>(widget);
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
        EXPECT_THAT(dialog.selectedFiles(), ElementsAre(existing));
        static_cast<QDialog&>(dialog).accept();
    });
    const support::ModalVisit replace(kBox, [](QWidget& box) { Press(box, QMessageBox::Yes); });
    EXPECT_EQ(prompts.AskSaveFile({id, existing, u"jpg"_s, u"*.jpg"_s}), existing);
}

TEST_F(PromptOwners, AFolderIsChosenAmongFoldersAndFilesAmongThoseThatExist) {
    const support::ModalVisit folder(kFiles, [](QWidget& widget) {
        auto& dialog = static_cast<QFileDialog&>(widget);
        EXPECT_EQ(dialog.windowTitle(), u"标题"_s);
        EXPECT_EQ(dialog.fileMode(), QFileDialog::Directory);
        EXPECT_TRUE(dialog.testOption(QFileDialog::ShowDirsOnly));
        static_cast<QDialog&>(dialog).reject();
    });
    EXPECT_EQ(prompts.AskFolder(id, u"标题"_s), QString());
    const QString existing = AnExistingFile();
    const support::ModalVisit files(kFiles, [&existing](QWidget& widget) {
        auto& dialog = static_cast<QFileDialog&>(widget);
        EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFiles);
        dialog.findChild<QLineEdit*>(u"fileNameEdit"_s)->setText(existing);
        static_cast<QDialog&>(dialog).accept();
    });
    EXPECT_THAT(prompts.AskOpenFiles({id, u"*.jpg"_s}), ElementsAre(existing));
}

} // namespace
