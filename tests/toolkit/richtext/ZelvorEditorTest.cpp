// The editor as its owners know it, and as a person uses it.
#include "tests/support/Hands.h"
#include "tests/support/WaitFor.h"
#include "tests/toolkit/richtext/EditorFixture.h"
#include "tests/viewers/support/SamplePictures.h"
#include "toolkit/Look.h"
#include "toolkit/richtext/NoteCommands.h"
#include "toolkit/richtext/NoteEdit.h"
#include "toolkit/richtext/NoteStore.h"

#include <QAction>
#include <QComboBox>
#include <QDirIterator>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QTextImageFormat>
#include <QTextTable>
#include <QUrl>
#include <QtTest/QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using support::EditorFixture;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

const QString kUnreadable =
    u"文档过大或已损坏，无法显示。请联系最后编辑的人重新保存，或联系管理员。"_s;

class ZelvorEditorTest : public EditorFixture {};

} // namespace

TEST_F(ZelvorEditorTest, TellsItsParentOnceForEachWindowThatItIsReady) {
    EXPECT_EQ(ready, 1);
    editor.Destroy();
    editor.Create(ownerId);
    EXPECT_EQ(ready, 1) << "posted, not sent";
    support::RunPendingEvents();
    EXPECT_EQ(ready, 2);
}

TEST_F(ZelvorEditorTest, ANewDocumentHasANameOfItsOwnAndNoText) {
    const QString one = New();
    QTest::keyClicks(&Sheet(), u"abc"_s);
    const QString two = New();
    EXPECT_FALSE(one.isEmpty());
    EXPECT_NE(one, two);
    EXPECT_EQ(Sheet().toPlainText(), QString());
}

TEST_F(ZelvorEditorTest, AnUnchangedDocumentReportsNoFiles) {
    New();
    editor.SaveEditor();
    Load(u"<p>一</p>"_s);
    editor.SaveEditor();
    EXPECT_EQ(notes.told, 0);
}

TEST_F(ZelvorEditorTest, AChangedDocumentReportsItsPageAndItsFilesByTheirContent) {
    const QString name = New();
    Sheet().InsertFiles({PictureFile(u"梁.JPG"_s), folder.Write(u"报告 1.pdf"_s, "pdf")});
    editor.SaveEditor();
    ASSERT_EQ(notes.told, 1);
    EXPECT_EQ(notes.document, name);
    ASSERT_THAT(notes.files, SizeIs(3));
    const NoteFile& page = notes.files[0];
    EXPECT_TRUE(page.storeName.endsWith(u".html"_s));
    EXPECT_EQ(page.localPath, pages + page.storeName);
    EXPECT_EQ(page.isAttachment, 0);
    EXPECT_TRUE(notes.files[1].storeName.endsWith(u".jpg"_s));
    EXPECT_EQ(notes.files[1].isAttachment, 0);
    EXPECT_EQ(notes.files[2].isAttachment, 1);
    EXPECT_EQ(notes.files[2].localPath.section(u'/', -1), u"报告 1.pdf");
    for (const NoteFile& file : notes.files) {
        QFile stored(file.localPath);
        ASSERT_TRUE(stored.open(QIODevice::ReadOnly)) << file.localPath.toStdString();
        EXPECT_EQ(toolkit::StoreBytes(stored.readAll(), folder.Path(u"again/"_s), {})->left(32),
                  file.storeName.left(32));
    }
}

TEST_F(ZelvorEditorTest, WhatWasSavedIsLoadedAgain) {
    New();
    QTest::keyClicks(&Sheet(), u"beam 5"_s);
    Sheet().InsertFiles({PictureFile(u"a.jpg"_s)});
    editor.SaveEditor();
    const QString page = notes.files[0].storeName;
    QString html;
    editor.GetLastHtml(html);
    New();
    editor.LoadEditor(u"doc"_s, {notes.files[1].storeName, page}, {}, 0);
    EXPECT_TRUE(Sheet().toPlainText().startsWith(u"beam 5"_s));
    QString again;
    editor.GetLastHtml(again);
    EXPECT_EQ(again.toStdString(), html.toStdString());
    editor.SaveEditor();
    EXPECT_EQ(notes.told, 1) << "nothing has changed since";
}

TEST_F(ZelvorEditorTest, ASaveThatComesToNothingIsReportedAgainAtTheNext) {
    New();
    QTest::keyClicks(&Sheet(), u"a"_s);
    editor.SaveEditor();
    editor.SaveEditor();
    EXPECT_EQ(notes.told, 2) << "only a load makes it unchanged";
}

TEST_F(ZelvorEditorTest, AChangeThatWasToldAndIsUndoneIsToldToo) {
    Load(u"<p>一</p>"_s);
    QTest::keyClicks(&Sheet(), u"a"_s);
    editor.SaveEditor();
    Sheet().undo();
    ASSERT_FALSE(Sheet().document()->isModified());
    editor.SaveEditor();
    EXPECT_EQ(notes.told, 2);
    EXPECT_EQ(notes.plain, u"一");
    Load(u"<p>一</p>"_s);
    editor.SaveEditor();
    EXPECT_EQ(notes.told, 2);
}

TEST_F(ZelvorEditorTest, TheLastHtmlIsThatOfTheLoadWhateverWasWrittenSince) {
    Load(u"<p>一<script>x()</script></p>"_s);
    const QString loaded = Sheet().Note()->Html();
    QTest::keyClicks(&Sheet(), u"a"_s);
    QString last;
    editor.GetLastHtml(last);
    EXPECT_EQ(last.toStdString(), loaded.toStdString());
    editor.SaveEditor();
    editor.GetLastHtml(last);
    EXPECT_EQ(last.toStdString(), Sheet().Note()->Html().toStdString());
    editor.Destroy();
    editor.GetLastHtml(last);
    EXPECT_TRUE(last.contains(u"a"_s)) << "without a window too";
}

TEST_F(ZelvorEditorTest, AnAttachmentLiesOnceOnTheDisk) {
    New();
    const QString file = folder.Write(u"报告.pdf"_s, "pdf");
    Sheet().InsertAsAttachments({file, file});
    QStringList stored;
    QDirIterator all(pages, QDir::Files, QDirIterator::Subdirectories);
    while (all.hasNext()) {
        stored << all.next();
    }
    ASSERT_EQ(stored.size(), 1);
    EXPECT_TRUE(stored[0].endsWith(u".files/报告.pdf"_s));
    EXPECT_EQ(Sheet().Note()->Files().at(0).localPath, stored[0]);
    EXPECT_EQ(Notice(), QString());
}

TEST_F(ZelvorEditorTest, ZoomingIsOfTheSheetAndNotOfThePage) {
    editor.Widget()->setFont(toolkit::UiFont());
    const int usual = toolkit::UiFont().pixelSize();
    Load(u"<p style='font-size:%1px'>一</p><p style='font-size:%2px'>二</p><p>三</p>"_s
             .arg(usual + 1)
             .arg(usual + 3));
    const QString before = Sheet().Note()->Html();
    const double height = Sheet().document()->size().height();
    Press("zoomIn");
    Press("zoomIn");
    Press("zoomIn");
    EXPECT_GT(Sheet().document()->size().height(), height);
    EXPECT_EQ(Sheet().Note()->Html().toStdString(), before.toStdString());
}

TEST_F(ZelvorEditorTest, OnePictureChangedReportsOneNewFileBesideThePage) {
    New();
    Sheet().InsertFiles({PictureFile(u"a.jpg"_s), PictureFile(u"b.jpg"_s, {200, 100})});
    editor.SaveEditor();
    const std::vector<NoteFile> before = notes.files;
    Sheet().InsertFiles({PictureFile(u"c.jpg"_s, {100, 100})});
    editor.SaveEditor();
    int fresh = 0;
    for (const NoteFile& file : notes.files) {
        fresh += std::ranges::none_of(
            before, [&](const NoteFile& known) { return known.storeName == file.storeName; });
    }
    EXPECT_EQ(fresh, 2);
}

TEST_F(ZelvorEditorTest, APageThatIsMissingIsToldAndNeverSaved) {
    for (const std::vector<QString>& files :
         {std::vector<QString>{}, {QString(32, u'0') + u".html"_s}, {u"../x.html"_s}}) {
        editor.LoadEditor(u"doc"_s, files, {}, 0);
        EXPECT_EQ(Notice(), u"文档的文件不存在，无法显示。请检查网络或数据文件夹后重新打开。");
        EXPECT_TRUE(Sheet().isReadOnly());
        editor.SetReadOnly(0);
        EXPECT_TRUE(Sheet().isReadOnly()) << "there is nothing to write in";
        editor.SaveEditor();
    }
    EXPECT_EQ(notes.told, 0);
    Load(u"<p>一</p>"_s);
    EXPECT_EQ(Notice(), QString());
    EXPECT_FALSE(Sheet().isReadOnly());
}

TEST_F(ZelvorEditorTest, APageThatCannotBeReadIsToldAndNeverSaved) {
    Load(u"<b>"_s.repeated(100'000));
    EXPECT_EQ(Notice(), kUnreadable);
    EXPECT_TRUE(Sheet().isReadOnly());
    editor.LoadEditor(u"doc"_s, {Page(QByteArray(40 * 1024 * 1024, 'x'))}, {}, 0);
    EXPECT_EQ(Notice(), kUnreadable);
    editor.SaveEditor();
    EXPECT_EQ(notes.told, 0);
    Load(u"no page at all <<<>>>"_s);
    EXPECT_EQ(Notice(), QString());
}

TEST_F(ZelvorEditorTest, ReadOnlyItShowsNoCommandsAndTakesNoText) {
    Load(u"<p>一</p>"_s, 1);
    EXPECT_FALSE(editor.Widget()->findChild<QWidget*>(u"noteBar"_s)->isVisible());
    QTest::keyClicks(&Sheet(), u"abc"_s);
    auto* data = new QMimeData;
    data->setText(u"x"_s);
    Paste(data);
    EXPECT_EQ(Sheet().toPlainText(), u"一");
    editor.SetReadOnly(0);
    EXPECT_TRUE(editor.Widget()->findChild<QWidget*>(u"noteBar"_s)->isVisible());
    QTest::keyClicks(&Sheet(), u"abc"_s);
    EXPECT_TRUE(Sheet().toPlainText().contains(u"abc"_s));
}

TEST_F(ZelvorEditorTest, ShortcutsAndButtonsChangeTheLookOfTheText) {
    New();
    QTest::keyClick(&Sheet(), Qt::Key_B, Qt::ControlModifier);
    QTest::keyClicks(&Sheet(), u"a"_s);
    EXPECT_EQ(Sheet().currentCharFormat().fontWeight(), QFont::Bold);
    EXPECT_TRUE(editor.Widget()->findChild<QAction*>(u"bold"_s)->isChecked());
    Press("bold");
    Press("italic");
    Press("underline");
    Press("strike");
    QTest::keyClicks(&Sheet(), u"b"_s);
    const QTextCharFormat format = Sheet().currentCharFormat();
    EXPECT_NE(format.fontWeight(), QFont::Bold);
    EXPECT_TRUE(format.fontItalic() && format.fontUnderline() && format.fontStrikeOut());
    Press("align-center");
    EXPECT_TRUE(Sheet().alignment().testFlag(Qt::AlignHCenter));
    Press("list-bullet");
    EXPECT_TRUE(toolkit::IsInList(Sheet().textCursor(), QTextListFormat::ListDisc));
    QTest::keyClick(&Sheet(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_FALSE(toolkit::IsInList(Sheet().textCursor(), QTextListFormat::ListDisc));
}

TEST_F(ZelvorEditorTest, BoxesShowHeadingFaceAndSizeOfTheTextUnderTheCursor) {
    Load(u"<h2>题</h2><p><span style='font-size:18pt'>大</span></p>"_s);
    const auto box = [this](const char* name) {
        return editor.Widget()->findChild<QComboBox*>(QString::fromLatin1(name))->currentText();
    };
    EXPECT_EQ(box("headingBox"), u"标题 2");
    EXPECT_FALSE(box("faceBox").isEmpty());
    Sheet().moveCursor(QTextCursor::End);
    EXPECT_EQ(box("headingBox"), u"正文");
    EXPECT_EQ(box("sizeBox"), u"18");
}

TEST_F(ZelvorEditorTest, TextOfAnInputMethodIsPaintedWhileItIsComposed) {
    New();
    const QImage before = Sheet().grab().toImage();
    QInputMethodEvent composing(u"louban"_s, {});
    QCoreApplication::sendEvent(&Sheet(), &composing);
    EXPECT_NE(Sheet().grab().toImage(), before);
    EXPECT_EQ(Sheet().toPlainText(), QString());
    QInputMethodEvent done;
    done.setCommitString(u"楼板"_s);
    QCoreApplication::sendEvent(&Sheet(), &done);
    EXPECT_EQ(Sheet().toPlainText(), u"楼板");
}

TEST_F(ZelvorEditorTest, PastedHtmlIsBroughtIntoTheForm) {
    New();
    auto* data = new QMimeData;
    data->setHtml(
        u"<p style='color:#ff0000' onclick='x()'>红<script>x()</script></p>"
        "<img src='http://localhost/a.png'><img src='data:image/png;base64,%1'>"_s.arg(
            QLatin1String(support::PngBytes(support::OneColour({9, 7}, Qt::blue)).toBase64())));
    Paste(data);
    EXPECT_TRUE(Sheet().toPlainText().startsWith(u"红"_s));
    const QString html = Sheet().Note()->Html();
    EXPECT_FALSE(html.contains(u"script"_s) || html.contains(u"localhost"_s) ||
                 html.contains(u"onclick"_s));
    EXPECT_THAT(Sheet().Note()->Files(), SizeIs(1)) << "the picture that came with it";
}

TEST_F(ZelvorEditorTest, AFileThatWasCopiedElsewhereAndDoesNotLieHereIsNotPasted) {
    New();
    const QString absent = QString(32, u'a');
    auto* data = new QMimeData;
    data->setHtml(
        u"<p>甲<img src='%1.png'><a href='attachment:%1.pdf/x.pdf'>乙</a></p>"_s.arg(absent));
    Paste(data);
    EXPECT_EQ(Sheet().toPlainText(), u"甲乙");
    EXPECT_THAT(Sheet().Note()->Files(), SizeIs(0)) << "nothing that could not go up";
}

TEST_F(ZelvorEditorTest, AnUnfetchedAttachmentOfTheDocumentCanBeCopiedWithinIt) {
    const QString link = u"attachment:%1.pdf/x.pdf"_s.arg(QString(32, u'a'));
    Load(u"<p><a href='%1'>甲</a></p>"_s.arg(link));
    Sheet().moveCursor(QTextCursor::End);
    auto* data = new QMimeData;
    data->setHtml(u"丙<a href='%1'>乙</a>"_s.arg(link));
    Paste(data);
    EXPECT_EQ(Sheet().Note()->Html().count(link), 2);
}

TEST_F(ZelvorEditorTest, HtmlThatCannotBeReadIsPastedAsItsText) {
    New();
    auto* data = new QMimeData;
    data->setHtml(u"<b>"_s.repeated(100'000) + u"深"_s);
    data->setText(u"深"_s);
    Paste(data);
    EXPECT_EQ(Sheet().toPlainText(), u"深");
}

TEST_F(ZelvorEditorTest, PicturesAndFilesAreDroppedAndPastedAsPicturesAndAttachments) {
    New();
    auto* files = new QMimeData;
    files->setUrls({QUrl::fromLocalFile(PictureFile(u"a.jpg"_s)),
                    QUrl::fromLocalFile(folder.Write(u"表.xlsx"_s, "x")),
                    QUrl::fromLocalFile(folder.Path(u"gone.jpg"_s)),
                    QUrl::fromLocalFile(folder.Path())});
    Paste(files);
    EXPECT_THAT(Sheet().Note()->Files(), SizeIs(2));
    EXPECT_TRUE(Sheet().toPlainText().contains(u"表.xlsx"_s));
    auto* image = new QMimeData;
    image->setImageData(support::OneColour({30, 20}, Qt::red));
    Paste(image);
    EXPECT_THAT(Sheet().Note()->Files(), SizeIs(3));
}

TEST_F(ZelvorEditorTest, APictureIsNoWiderThanTheSheetAndKeptWholeInItsFile) {
    New();
    const QString large = PictureFile(u"gross.jpg"_s, {4000, 1000});
    Sheet().InsertFiles({large});
    EXPECT_LE(PictureAt(0).width(), Sheet().viewport()->width());
    EXPECT_NEAR(PictureAt(0).width() / PictureAt(0).height(), 4, 0.05);
    EXPECT_EQ(folder.Read(u"pages/"_s + PictureAt(0).name()), folder.Read(u"gross.jpg"_s));
}

TEST_F(ZelvorEditorTest, APictureIsResizedByItsHandleInItsProportion) {
    New();
    Sheet().InsertFiles({PictureFile(u"a.jpg"_s, {200, 100})});
    support::RunPendingEvents();
    QTest::mouseClick(Sheet().viewport(), Qt::LeftButton, {}, QPoint(60, 60));
    const auto picked = Sheet().PickedPicture();
    ASSERT_TRUE(picked);
    const QPoint handle = picked->place.bottomRight().toPoint() - QPoint(3, 3);
    QTest::mousePress(Sheet().viewport(), Qt::LeftButton, {}, handle);
    QMouseEvent move(QEvent::MouseMove, handle + QPoint(100, 20),
                     Sheet().viewport()->mapToGlobal(handle + QPoint(100, 20)), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(Sheet().viewport(), &move);
    QTest::mouseRelease(Sheet().viewport(), Qt::LeftButton, {}, handle + QPoint(100, 20));
    EXPECT_NEAR(PictureAt(0).width(), 300, 5);
    EXPECT_NEAR(PictureAt(0).height(), 150, 3);
    Sheet().undo();
    EXPECT_EQ(PictureAt(0).width(), 200);
}

TEST_F(ZelvorEditorTest, WhatCannotBeStoredIsToldByName) {
    New();
    QFile::remove(pages);
    toolkit::SetEditorFolders({folder.Write(u"file"_s, "x") + u"/in/"_s});
    New();
    Sheet().InsertFiles({PictureFile(u"梁.jpg"_s)});
    EXPECT_TRUE(Notice().contains(u"梁.jpg"_s));
    Sheet().InsertAsAttachments({folder.Write(u"表.xlsx"_s, "x")});
    EXPECT_TRUE(Notice().contains(u"表.xlsx"_s));
    EXPECT_EQ(Sheet().toPlainText(), QString());
    QTest::keyClicks(&Sheet(), u"a"_s);
    EXPECT_FALSE(editor.SaveEditor());
    EXPECT_EQ(notes.told, 0);
    EXPECT_TRUE(Notice().contains(u"无法保存文档"_s));
}

TEST_F(ZelvorEditorTest, AnAttachmentIsOpenedByItsOwnerUnderTheNameThatTheStoreKeeps) {
    const QString store = QString(32, u'a') + u".pdf"_s;
    Load(u"<p><a href='%1'>报告</a></p>"_s.arg(toolkit::AddressOf({store, u"报告.pdf"_s})), 1);
    support::RunPendingEvents();
    QTextCursor cursor(Sheet().document());
    cursor.setPosition(1);
    const QPoint at = Sheet().cursorRect(cursor).center();
    QTest::mouseClick(Sheet().viewport(), Qt::LeftButton, {}, at);
    EXPECT_THAT(notes.opened,
                ElementsAre("doc|" + store.toStdString() + "|" + store.toStdString()));
    editor.SetReadOnly(0);
    QTest::mouseClick(Sheet().viewport(), Qt::LeftButton, {}, at);
    EXPECT_THAT(notes.opened, SizeIs(1)) << "a click writes there";
    QTest::mouseClick(Sheet().viewport(), Qt::LeftButton, Qt::ControlModifier, at);
    EXPECT_THAT(notes.opened, SizeIs(2));
}

TEST_F(ZelvorEditorTest, AfterAMergeAKeyDeletesNothing) {
    Load(u"<table><tr><td>甲</td><td></td><td></td></tr>"
         "<tr><td>乙</td><td></td><td></td></tr></table>"_s);
    QTextCursor cursor = Sheet().textCursor();
    cursor.movePosition(QTextCursor::Start);
    const QTextTable* table =
        qobject_cast<QTextTable*>(Sheet().document()->rootFrame()->childFrames().value(0));
    ASSERT_NE(table, nullptr);
    cursor.setPosition(table->cellAt(0, 1).firstPosition());
    cursor.setPosition(table->cellAt(1, 2).firstPosition(), QTextCursor::KeepAnchor);
    ASSERT_TRUE(cursor.hasComplexSelection());
    Sheet().setTextCursor(cursor);
    for (QAction* action : editor.Widget()->findChildren<QAction*>()) {
        if (action->text() == u"合并单元格"_s) {
            action->trigger();
        }
    }
    EXPECT_EQ(table->cellAt(0, 1).columnSpan(), 2);
    QTest::keyClicks(&Sheet(), u"x"_s);
    const QString text = Sheet().toPlainText();
    EXPECT_TRUE(text.contains(u"甲"_s) && text.contains(u"乙"_s) && text.contains(u'x'));
}

TEST_F(ZelvorEditorTest, FindsGoesRoundAndReplaces) {
    Load(u"<p>beam one</p><p>Beam two</p>"_s);
    QTest::keyClick(&Sheet(), Qt::Key_F, Qt::ControlModifier);
    auto& wanted = *editor.Widget()->findChild<QLineEdit*>(u"wantedEdit"_s);
    ASSERT_TRUE(wanted.isVisible());
    wanted.setText(u"beam"_s);
    QTest::keyClick(&wanted, Qt::Key_Return);
    EXPECT_EQ(Sheet().textCursor().selectedText(), u"beam");
    QTest::keyClick(&wanted, Qt::Key_Return);
    EXPECT_EQ(Sheet().textCursor().selectedText(), u"Beam");
    QTest::keyClick(&wanted, Qt::Key_Return);
    EXPECT_EQ(Sheet().textCursor().selectedText(), u"beam");
    editor.Widget()->findChild<QLineEdit*>(u"insteadEdit"_s)->setText(u"梁"_s);
    support::Click(editor.Widget()->findChild<QPushButton*>(u"replaceAll"_s));
    EXPECT_EQ(Sheet().toPlainText(), u"梁 one\n梁 two");
    Sheet().undo();
    EXPECT_EQ(Sheet().toPlainText(), u"beam one\nBeam two") << "one step";
    wanted.setText(u"none"_s);
    QTest::keyClick(&wanted, Qt::Key_Return);
    EXPECT_EQ(editor.Widget()->findChild<QLabel*>(u"finderAnswer"_s)->text(), u"没有找到");
    QTest::keyClick(&wanted, Qt::Key_Escape);
    EXPECT_FALSE(wanted.isVisible());
}

TEST_F(ZelvorEditorTest, CountsWhatIsWritten) {
    Load(u"<p>一二 三</p><p>ab</p>"_s);
    const auto counts = [this](const QString& text) {
        return support::WaitFor(
            [&] { return editor.Widget()->findChild<QLabel*>(u"noteCount"_s)->text() == text; });
    };
    EXPECT_TRUE(counts(u"字数 5"_s));
    QTest::keyClicks(&Sheet(), u"c d"_s);
    EXPECT_FALSE(editor.Widget()->findChild<QLabel*>(u"noteCount"_s)->text().endsWith(u"7"_s))
        << "no key waits for it";
    EXPECT_TRUE(counts(u"字数 7"_s));
}

TEST_F(ZelvorEditorTest, WithoutAWindowNothingHappens) {
    editor.Destroy();
    QString name;
    editor.NewEditor(name, 0);
    editor.LoadEditor(u"doc"_s, {}, {}, 0);
    editor.SaveEditor();
    editor.SetReadOnly(1);
    EXPECT_EQ(editor.Sheet(), nullptr);
    EXPECT_EQ(notes.told, 0);
}
