// The record below the pictures, written by two clients on one data folder.
#include "hands/Choices.h"
#include "hands/Hands.h"
#include "host/ui/MainWindow.h"
#include "host/ui/plan/FloorPlanCanvas.h"
#include "site/IBlobs.h"
#include "site/IDrafts.h"
#include "site/IRichTexts.h"
#include "site/OpenSite.h"
#include "site/RectifyStates.h"
#include "tests/roads/PhotoRoad.h"
#include "tests/support/ModalVisit.h"
#include "tests/support/WaitFor.h"
#include "toolkit/richtext/NoteEdit.h"
#include "tour/ConsoleEyes.h"
#include "tour/TourEyes.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPointer>
#include <QTimer>

namespace roads {
namespace {

using namespace Qt::StringLiterals;
using support::WaitFor;

const QString kMine = u"雨后复查，已注浆"_s;
const QString kTheirs = u"李娜写的记录"_s;

class RichRoad : public PhotoRoad {
protected:
    [[nodiscard]] site::RichPlace Place() const {
        return site::AtIntersection(site.firstProject, site.positionKey, 1);
    }
    [[nodiscard]] static QTextEdit* Sheet(const QWidget* window) {
        return window == nullptr ? nullptr : window->findChild<QTextEdit*>(u"noteSheet"_s);
    }
    /// Opens the viewer on the flag and waits until its record is loaded.
    void OpenViewer() {
        ClickFlag(Plan(), site.positionKey, 1);
        ASSERT_TRUE(WaitFor([] { return Viewer() != nullptr; }));
        WaitForRecord();
    }
    static void Write(const QString& text) {
        ASSERT_TRUE(WaitFor([&] { return hands::TypeOver(Sheet(Viewer()), text); }));
        ASSERT_TRUE(WaitFor([&] { return Sheet(Viewer())->toPlainText() == text; }));
    }
    [[nodiscard]] site::RichVersion Newest() {
        const auto newest = session.Site().RichTexts().Newest({site.firstProject}, Place());
        return newest.value_or(site::RichVersion());
    }
    [[nodiscard]] std::vector<site::Draft> Drafts() {
        return session.Site().Drafts().Of(u"张伟"_s);
    }
    /// The plain bytes of a version's page.
    [[nodiscard]] QString PageOf(const site::RichVersion& version) {
        for (const site::RichFile& file : version.files) {
            if (file.name.endsWith(u".html"_s)) {
                const QString path = folder.Path(u"fetched-"_s + file.name);
                EXPECT_TRUE(session.Site().Blobs().Fetch(file.uuid, path, {}).ok);
                return QString::fromUtf8(folder.Read(u"fetched-"_s + file.name));
            }
        }
        return {};
    }
    /// 李娜, in another client, saves a page on what is there now.
    void SaveByTheOther(qint32 state = site::kStateDone) {
        const site::OpenedSite other = site::OpenSite(folder.Path(u"data"_s), {5000, false});
        ASSERT_NE(other.site, nullptr);
        const QString page = folder.Write(u"other.html"_s, u"<p>%1</p>"_s.arg(kTheirs).toUtf8());
        const KX_DATA::UploadResult up = other.site->Blobs().Upload(page, {});
        site::IRichTexts& texts = other.site->RichTexts();
        site::NewRichVersion version;
        const auto newest = texts.Newest({site.firstProject}, Place());
        version.base = newest->text;
        version.docName = u"other-doc"_s;
        version.state = state;
        for (const site::RichFile& file : newest->files) {
            version.removed.push_back(file.uuid);
        }
        version.added = {{up.md5 + u".html"_s, {}, up.uuid, 0, 1}};
        ASSERT_TRUE(texts.Save({site.firstProject}, Place(), version, {u"李娜"_s, 0}));
    }
    [[nodiscard]] QString Status() const {
        return tour::ReadText(client->Window()->findChild<QWidget*>(u"mainStatus"_s));
    }
    /// Does what brings up a question, agrees to it and tells what it was.
    static QString Agree(const std::function<void()>& action) {
        QString text;
        const support::ModalVisit visit(u"messageBox"_s, [&text](QWidget&) {
            text = tour::MessageBoxText();
            EXPECT_TRUE(WaitFor([] { return tour::AnswerMessageBox(u"是"_s); }));
        });
        action();
        return text;
    }
    /// Closes the viewer and presses a button of the question that this brings up.
    static void CloseAnswering(const QString& button) {
        const support::ModalVisit visit(u"HistroyTip"_s,
                                        [&](QWidget& question) { ClickOn(question, button); });
        CloseViewer();
    }
};

TEST_F(RichRoad, WhatIsWrittenIsSavedWhenTheViewerClosesAndIsThereAgain) {
    OpenViewer();
    EXPECT_EQ(Newest().number, 0);
    Write(kMine);
    CloseViewer();
    ASSERT_EQ(Newest().number, 1);
    EXPECT_EQ(Newest().person, u"张伟");
    EXPECT_TRUE(PageOf(Newest()).contains(kMine));
    OpenViewer();
    EXPECT_TRUE(WaitFor([] { return Sheet(Viewer())->toPlainText() == kMine; }));
    CloseViewer();
    EXPECT_EQ(Newest().number, 1) << "nothing has changed";
    EXPECT_TRUE(Drafts().empty());
}

TEST_F(RichRoad, AnotherStateIsInTheConsoleAtOnce) {
    OpenConsole();
    OpenViewer();
    auto* states = Viewer()->findChild<QComboBox*>(u"stateCombo"_s);
    ASSERT_TRUE(WaitFor([&] { return hands::ChooseInCombo(states, u"已整改"_s); }));
    CloseViewer();
    EXPECT_EQ(Newest().state, site::kStateDone);
    EXPECT_TRUE(WaitFor([] {
        return tour::ConsoleText(RowOfPhoto(u"照片2.jpg"_s), u"整改情况"_s) == u"已整改"_s;
    }));
    EXPECT_NE(tour::ConsoleText(RowOfPhoto(u"转角.jpg"_s), u"整改情况"_s), u"已整改"_s)
        << "another place";
}

TEST_F(RichRoad, WhoLooksAtWhatTheOtherWroteAndKeepsItFindsTheOwnTextAmongTheDrafts) {
    OpenViewer();
    Write(kMine);
    SaveByTheOther();
    QString seen;
    QString editor;
    // The look holds the question, which holds the closing.
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&] {
        QWidget* history = tour::FindWindow(u"HistroyEditor"_s);
        if (history == nullptr || !history->isActiveWindow() ||
            Sheet(history)->toPlainText().isEmpty()) {
            return;
        }
        look.stop();
        seen = Sheet(history)->toPlainText();
        EXPECT_TRUE(Sheet(history)->isReadOnly());
        for (const auto* label : history->findChildren<QLabel*>()) {
            editor += label->text();
        }
        hands::CloseWindow(history);
    });
    {
        const support::ModalVisit visit(u"HistroyTip"_s, [&](QWidget& question) {
            look.start(10);
            ClickOn(question, u"historyButton"_s);
            ClickOn(question, u"cancelButton"_s);
        });
        CloseViewer();
    }
    EXPECT_EQ(seen, kTheirs);
    EXPECT_TRUE(editor.contains(u"李娜"_s)) << editor.toStdString();
    EXPECT_TRUE(editor.contains(u"已整改"_s)) << editor.toStdString();
    EXPECT_EQ(Newest().number, 1);
    EXPECT_EQ(Newest().person, u"李娜");
    ASSERT_EQ(Drafts().size(), 1U);
    EXPECT_TRUE(
        folder.Read(u"data/drafts/%1/%2"_s.arg(Drafts()[0].id, Drafts()[0].text.files[0].name))
            .contains(kMine.toUtf8()));
}

TEST_F(RichRoad, WhoOverwritesSavesOnWhatTheOtherWroteWhichStaysAVersion) {
    OpenViewer();
    Write(kMine);
    SaveByTheOther();
    CloseAnswering(u"okButton"_s);
    ASSERT_EQ(Newest().number, 2);
    EXPECT_EQ(Newest().person, u"张伟");
    EXPECT_TRUE(PageOf(Newest()).contains(kMine));
    EXPECT_FALSE(PageOf(Newest()).contains(kTheirs));
    const auto first = session.Site().RichTexts().Version({site.firstProject}, Place(), 1);
    ASSERT_TRUE(first);
    EXPECT_TRUE(PageOf(*first).contains(kTheirs));
    EXPECT_TRUE(Drafts().empty());
}

TEST_F(RichRoad, ADraftComesBackFromTheMenuAsTheNewestVersion) {
    OpenViewer();
    Write(kMine);
    SaveByTheOther();
    CloseAnswering(u"cancelButton"_s);
    ASSERT_EQ(Drafts().size(), 1U);
    ASSERT_TRUE(WaitFor([this] {
        return hands::PressKey(client->Window(), Qt::Key_D,
                               Qt::ControlModifier | Qt::ShiftModifier);
    }));
    ASSERT_TRUE(WaitFor([] { return tour::FindWindow(u"draftWindow"_s) != nullptr; }));
    const QPointer<QWidget> window = tour::FindWindow(u"draftWindow"_s);
    ASSERT_TRUE(WaitFor([&] {
        auto* preview = window->findChild<QTextEdit*>(u"draftPreview"_s);
        return preview != nullptr && preview->toPlainText() == kMine;
    }));
    const QString asked = Agree([&] { ClickOn(*window, u"draftBringBack"_s); });
    EXPECT_TRUE(asked.contains(u"此后已有人保存过新版本"_s)) << asked.toStdString();
    EXPECT_TRUE(WaitFor([this] { return Newest().number == 2; }));
    EXPECT_TRUE(PageOf(Newest()).contains(kMine));
    EXPECT_EQ(Newest().person, u"张伟");
    EXPECT_TRUE(WaitFor([this] { return Drafts().empty(); }));
    EXPECT_TRUE(WaitFor([this] { return Status().startsWith(u"草稿已恢复为最新版本"_s); }))
        << Status().toStdString();
    OpenViewer();
    EXPECT_TRUE(WaitFor([] { return Sheet(Viewer())->toPlainText() == kMine; }));
}

TEST_F(RichRoad, ADraftThatComesBackIsInTheConsoleAtOnce) {
    OpenViewer();
    const QString before = Viewer()->findChild<QComboBox*>(u"stateCombo"_s)->currentText();
    Write(kMine);
    SaveByTheOther();
    CloseAnswering(u"cancelButton"_s);
    OpenConsole();
    const auto state = [] { return tour::ConsoleText(RowOfPhoto(u"照片2.jpg"_s), u"整改情况"_s); };
    ASSERT_TRUE(WaitFor([&] { return state() == u"已整改"_s; })) << state().toStdString();
    ASSERT_TRUE(WaitFor([this] {
        return hands::PressKey(client->Window(), Qt::Key_D,
                               Qt::ControlModifier | Qt::ShiftModifier);
    }));
    ASSERT_TRUE(WaitFor([] { return tour::FindWindow(u"draftWindow"_s) != nullptr; }));
    const QPointer<QWidget> window = tour::FindWindow(u"draftWindow"_s);
    static_cast<void>(Agree([&] { ClickOn(*window, u"draftBringBack"_s); }));
    EXPECT_TRUE(WaitFor([&] { return state() == before; })) << state().toStdString();
}

TEST_F(RichRoad, AnEarlierVersionIsComparedAndComesBackFromTheMenu) {
    SaveByTheOther();
    OpenViewer();
    ASSERT_TRUE(WaitFor([] { return Sheet(Viewer())->toPlainText() == kTheirs; }));
    Write(kMine);
    CloseViewer();
    ASSERT_EQ(Newest().number, 2);
    ASSERT_TRUE(Press(Qt::Key_H));
    ASSERT_TRUE(WaitFor([] { return tour::FindWindow(u"versionWindow"_s) != nullptr; }));
    const QPointer<QWidget> window = tour::FindWindow(u"versionWindow"_s);
    const auto compared = [&] {
        auto* sheet = window->findChild<QTextEdit*>(u"compareSheet"_s);
        return sheet == nullptr ? QString() : sheet->toPlainText();
    };
    EXPECT_TRUE(WaitFor([&] { return compared().contains(kMine) && compared().contains(kTheirs); }))
        << compared().toStdString();
    auto* versions = window->findChild<QAbstractItemView*>(u"versionTable"_s);
    ASSERT_NE(versions, nullptr);
    ASSERT_TRUE(WaitFor([&] { return hands::ClickCell(versions, 1, 0); }));
    static_cast<void>(Agree([&] { ClickOn(*window, u"versionRestore"_s); }));
    EXPECT_TRUE(WaitFor([this] { return Newest().number == 3; }));
    EXPECT_TRUE(PageOf(Newest()).contains(kTheirs));
    EXPECT_TRUE(WaitFor([this] { return Status().startsWith(u"已恢复为最新版本"_s); }))
        << Status().toStdString();
}

TEST_F(RichRoad, WhatAnotherClientSavesIsListedWithoutAsking) {
    SaveByTheOther();
    ASSERT_TRUE(Press(Qt::Key_H));
    ASSERT_TRUE(WaitFor([] { return tour::FindWindow(u"versionWindow"_s) != nullptr; }));
    const QPointer<QWidget> window = tour::FindWindow(u"versionWindow"_s);
    const auto* versions = window->findChild<QAbstractItemView*>(u"versionTable"_s);
    ASSERT_NE(versions, nullptr);
    ASSERT_TRUE(WaitFor([&] { return versions->model()->rowCount() == 1; }));
    SaveByTheOther(site::kStateOpen);
    EXPECT_TRUE(WaitFor([&] { return versions->model()->rowCount() == 2; }));
}

TEST_F(RichRoad, InAWorksetNothingIsWrittenAndNoVersionComesBack) {
    SaveByTheOther();
    SaveByTheOther(site::kStateOpen);
    ASSERT_TRUE(ChooseProject(u"工作集：总包"_s));
    ASSERT_TRUE(Press(Qt::Key_H));
    ASSERT_TRUE(WaitFor([] { return tour::FindWindow(u"versionWindow"_s) != nullptr; }));
    const QPointer<QWidget> window = tour::FindWindow(u"versionWindow"_s);
    auto* versions = window->findChild<QAbstractItemView*>(u"versionTable"_s);
    ASSERT_NE(versions, nullptr);
    ASSERT_TRUE(WaitFor([&] { return hands::ClickCell(versions, 1, 0); }));
    static_cast<void>(Agree([&] { ClickOn(*window, u"versionRestore"_s); }));
    const auto* notice = window->findChild<QLabel*>(u"versionNotice"_s);
    EXPECT_EQ(notice->text(),
              u"该版本未恢复，没有任何改动：工作集中不能修改记录，请先打开单个工程。");
    const auto* records = window->findChild<QAbstractItemView*>(u"recordTable"_s);
    EXPECT_TRUE(records->model()->index(0, 0).data().toString().startsWith(u"一期工程 / "_s));
    EXPECT_EQ(Newest().number, 2);
}

TEST_F(RichRoad, ADraftOfAnotherProjectSaysWhereItIsFromAndWhyItDoesNotComeBack) {
    OpenViewer();
    Write(kMine);
    ASSERT_TRUE(ChooseProject(u"二期工程"_s));
    ASSERT_TRUE(WaitFor([this] { return Drafts().size() == 1; }));
    ASSERT_TRUE(WaitFor([this] {
        return hands::PressKey(client->Window(), Qt::Key_D,
                               Qt::ControlModifier | Qt::ShiftModifier);
    }));
    ASSERT_TRUE(WaitFor([] { return tour::FindWindow(u"draftWindow"_s) != nullptr; }));
    const QPointer<QWidget> window = tour::FindWindow(u"draftWindow"_s);
    const auto* table = window->findChild<QAbstractItemView*>(u"draftTable"_s);
    ASSERT_TRUE(WaitFor([&] { return table->model()->rowCount() == 1; }));
    const QString place = table->model()->index(0, 0).data().toString();
    EXPECT_TRUE(place.startsWith(u"一期工程 / "_s)) << place.toStdString();
    EXPECT_TRUE(place.endsWith(u"（工程未打开）"_s)) << place.toStdString();
    static_cast<void>(Agree([&] { ClickOn(*window, u"draftBringBack"_s); }));
    const auto* notice = window->findChild<QLabel*>(u"draftNotice"_s);
    EXPECT_TRUE(WaitFor([&] { return notice->text().contains(u"请先打开它所属的工程"_s); }))
        << notice->text().toStdString();
    EXPECT_EQ(Drafts().size(), 1U);
}

TEST_F(RichRoad, ADraftOfNoKindOfPlaceHidesNoOther) {
    OpenViewer();
    Write(kMine);
    SaveByTheOther();
    CloseAnswering(u"cancelButton"_s);
    ASSERT_EQ(Drafts().size(), 1U);
    const QByteArray told = folder.Read(u"data/drafts/%1/draft.json"_s.arg(Drafts()[0].id));
    const QString odd = u"data/drafts/00000000-0000-4000-8000-000000000001/"_s;
    folder.Write(odd + u"draft.json"_s,
                 QByteArray(told).replace("\"objectType\":1", "\"objectType\":7"));
    folder.Write(odd + Drafts()[0].text.files[0].name, "<p>x</p>");
    ASSERT_EQ(Drafts().size(), 2U);
    ASSERT_TRUE(WaitFor([this] {
        return hands::PressKey(client->Window(), Qt::Key_D,
                               Qt::ControlModifier | Qt::ShiftModifier);
    }));
    ASSERT_TRUE(WaitFor([] { return tour::FindWindow(u"draftWindow"_s) != nullptr; }));
    const auto* table =
        tour::FindWindow(u"draftWindow"_s)->findChild<QAbstractItemView*>(u"draftTable"_s);
    EXPECT_TRUE(WaitFor([&] { return table->model()->rowCount() == 2; }));
}

TEST_F(RichRoad, TheWordsToFindAreTypedIntoTheFinder) {
    OpenViewer();
    Write(kMine);
    ASSERT_TRUE(
        WaitFor([] { return hands::PressKey(Sheet(Viewer()), Qt::Key_F, Qt::ControlModifier); }));
    const auto* wanted = tour::FindIn(Viewer(), u"wantedEdit"_s);
    ASSERT_NE(wanted, nullptr);
    EXPECT_TRUE(WaitFor([&] { return wanted->hasFocus(); }))
        << QApplication::focusWidget()->objectName().toStdString();
}

TEST_F(RichRoad, WhatIsBeingWrittenWhenTheProcessIsKilledIsADraftOfTheNextStart) {
    OpenViewer();
    Write(kMine);
    const QDir drafts(folder.Path(u"data/drafts"_s));
    const auto open = [&] { return drafts.entryList(QDir::Dirs | QDir::NoDotAndDotDot); };
    ASSERT_TRUE(WaitFor([&] { return open().size() == 1; }));
    EXPECT_TRUE(Drafts().empty()) << "it is on the screen";
    // Without the sign of a client that runs nobody writes it any more.
    const QStringList signs = drafts.entryList({u".client-*"_s}, QDir::Files | QDir::Hidden);
    ASSERT_EQ(signs.size(), 1);
    ASSERT_TRUE(QFile::remove(drafts.filePath(signs[0])));
    const site::OpenedSite next = site::OpenSite(folder.Path(u"data"_s), {5000, false});
    ASSERT_NE(next.site, nullptr);
    EXPECT_EQ(next.site->Drafts().AdoptOpen(u"张伟"_s), 1);
    ASSERT_EQ(next.site->Drafts().Of(u"张伟"_s).size(), 1U);
    const site::Draft draft = next.site->Drafts().Of(u"张伟"_s)[0];
    EXPECT_TRUE(folder.Read(u"data/drafts/%1/%2"_s.arg(draft.id, draft.text.files[0].name))
                    .contains(kMine.toUtf8()));
}

TEST_F(RichRoad, AClientTellsOfTextsThatOneBeforeItLeftOpenUntilSomebodyLooks) {
    End();
    {
        const site::OpenedSite before = site::OpenSite(folder.Path(u"data"_s), {5000, false});
        ASSERT_NE(before.site, nullptr);
        KX_DATA::RichTextDraft text;
        text.key = {site.positionKey, 1, 0, site.firstProject, 1};
        text.docName = u"doc"_s;
        text.page = "<p>half</p>";
        before.site->Drafts().KeepOpen(text, u"张伟"_s);
    }
    ASSERT_FALSE(session.Open(folder.Path(u"data"_s)));
    ASSERT_TRUE(session.SignIn(u"张伟"_s));
    Start();
    const auto told = [this] { return Messages().filter(u"上次未正常退出"_s); };
    EXPECT_TRUE(WaitFor([&] { return told().size() == 1; }));
    ASSERT_TRUE(WaitFor([this] {
        return hands::PressKey(client->Window(), Qt::Key_D,
                               Qt::ControlModifier | Qt::ShiftModifier);
    }));
    EXPECT_TRUE(WaitFor([&] { return told().isEmpty(); }));
    EXPECT_EQ(Drafts().size(), 1U);
}

TEST_F(RichRoad, AnotherProjectSavesNothingAndLosesNothing) {
    OpenViewer();
    Write(kMine);
    ASSERT_TRUE(ChooseProject(u"二期工程"_s));
    EXPECT_TRUE(WaitFor([] { return Viewer() == nullptr; }));
    EXPECT_EQ(Drafts().size(), 1U);
    ASSERT_TRUE(ChooseProject(u"一期工程"_s));
    EXPECT_EQ(Newest().number, 0);
}

TEST_F(RichRoad, QuittingWithTheViewerOpenSaves) {
    OpenViewer();
    Write(kMine);
    End();
    const site::OpenedSite other = site::OpenSite(folder.Path(u"data"_s), {5000, false});
    ASSERT_NE(other.site, nullptr);
    const auto newest = other.site->RichTexts().Newest({site.firstProject}, Place());
    ASSERT_TRUE(newest);
    EXPECT_EQ(newest->number, 1);
}

TEST_F(RichRoad, AClientThatIsToldToEndSavesAndEndsThoughAViewerIsOpen) {
    OpenViewer();
    Write(kMine);
    QTimer::singleShot(0, client.get(), [this] { client->AskToEnd(); });
    constexpr int kStillThere = 7;
    QTimer::singleShot(10'000, client.get(), [] { QCoreApplication::exit(kStillThere); });
    EXPECT_EQ(QApplication::exec(), 0);
    // One that is still to come would end every loop of the tests behind this one.
    QCoreApplication::removePostedEvents(QCoreApplication::instance(), QEvent::Quit);
    EXPECT_EQ(Viewer(), nullptr);
    EXPECT_EQ(Newest().number, 1);
}

} // namespace
} // namespace roads
