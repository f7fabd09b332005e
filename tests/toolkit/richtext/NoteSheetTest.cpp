// The sheet itself: what fits its width, how large things are shown on it, what it tells of links.
#include "tests/support/WaitFor.h"
#include "tests/toolkit/richtext/EditorFixture.h"
#include "tests/viewers/support/SamplePictures.h"
#include "toolkit/richtext/NoteLinkTip.h"
#include "toolkit/richtext/NoteStore.h"

#include <QComboBox>
#include <QHelpEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>
#include <QToolTip>
#include <QWheelEvent>
#include <QtTest/QTest>

#include <gmock/gmock.h>

namespace {

using namespace Qt::StringLiterals;

class NoteSheetTest : public support::EditorFixture {
protected:
    /// Pixels by which the text is wider than the sheet.
    int Overhang(const QString& html) {
        Load(html);
        support::RunPendingEvents();
        return Sheet().horizontalScrollBar()->maximum();
    }
    /// Of the first line of each paragraph.
    [[nodiscard]] std::vector<QSizeF> Lines() {
        static_cast<void>(Sheet().document()->size());
        std::vector<QSizeF> sizes;
        for (QTextBlock block = Sheet().document()->begin(); block.isValid();
             block = block.next()) {
            const QTextLine line = block.layout()->lineAt(0);
            sizes.emplace_back(line.naturalTextWidth(), line.height());
        }
        return sizes;
    }
    QString Stored(const QSize& size) {
        return toolkit::StoreBytes(support::JpegBytes(support::CornerMarked(size)), pages,
                                   u".jpg"_s)
            .value();
    }
    void LoadOfEverySize() {
        Load(u"<h1>题一二三四五</h1><p>默认一二三四五</p>"
             "<p><span style='font-size:20px'>像素一二三四五</span></p>"
             "<p><span style='font-size:18pt'>磅一二三四五</span></p>"
             "<p><span style='font-size:x-large'>大一二三四五</span></p>"
             "<p><img src='%1' width='40' height='30'/></p>"_s.arg(Stored({40, 30})));
        support::RunPendingEvents();
    }
    void ZoomBy(int pixels) {
        Sheet().Zoom(pixels);
        support::RunPendingEvents();
    }
    /// What is told under the middle of the first letter; empty: nothing.
    [[nodiscard]] QString TipOnFirstLetter() {
        QTextCursor cursor(Sheet().document());
        const QRect left = Sheet().cursorRect(cursor);
        const QPoint at = left.center() + QPoint(4, 0);
        QToolTip::hideText();
        EXPECT_TRUE(support::WaitFor([] { return !QToolTip::isVisible(); }));
        QHelpEvent help(QEvent::ToolTip, at, Sheet().viewport()->mapToGlobal(at));
        QCoreApplication::sendEvent(Sheet().viewport(), &help);
        return QToolTip::isVisible() ? QToolTip::text() : QString();
    }
};

} // namespace

TEST_F(NoteSheetTest, ARuleIsAsWideAsTheSheetHoweverWideItSaysItIs) {
    for (const QString& rule :
         {u"<hr>"_s, u"<hr width='100%'>"_s, u"<hr width='3000'>"_s, u"<hr width='300%'>"_s,
          u"<hr style='width:3000px'>"_s, u"<ul><li>甲<hr></li></ul>"_s,
          u"<table width='100%'><tr><td><hr></td><td><hr width='2000'></td></tr></table>"_s}) {
        EXPECT_EQ(Overhang(u"<p>一</p>%1<p>二</p>"_s.arg(rule)), 0) << rule.toStdString();
    }
    New();
    Press("rule");
    support::RunPendingEvents();
    EXPECT_EQ(Sheet().horizontalScrollBar()->maximum(), 0);
}

TEST_F(NoteSheetTest, AWordWithoutABreakGoesOnInTheNextLine) {
    const QString word = u"a"_s.repeated(3000);
    for (const QString& frame :
         {u"<p>%1</p>"_s, u"<p>一 %1</p>"_s, u"<ul><li>%1</li></ul>"_s, u"<pre>%1</pre>"_s,
          u"<p style='white-space:pre'>%1</p>"_s, u"<p style='white-space:nowrap'>%1</p>"_s,
          u"<h1>%1</h1>"_s, u"<table width='100%'><tr><td>%1</td><td>b</td></tr></table>"_s,
          u"<table><tr><td>%1</td><td>%1</td></tr></table>"_s}) {
        EXPECT_EQ(Overhang(frame.arg(word)), 0) << frame.toStdString();
    }
}

TEST_F(NoteSheetTest, LinesThatWereToGoOnAreBrokenWhenTheyArePastedToo) {
    New();
    auto* data = new QMimeData;
    data->setHtml(u"<pre>%1</pre>"_s.arg(u"a"_s.repeated(3000)));
    Paste(data);
    support::RunPendingEvents();
    EXPECT_EQ(Sheet().horizontalScrollBar()->maximum(), 0);
    Sheet().undo();
    EXPECT_EQ(Sheet().toPlainText(), QString()) << "one step";
}

TEST_F(NoteSheetTest, ZoomingShowsEveryKindOfTextAndPicturesInProportion) {
    LoadOfEverySize();
    const std::vector<QSizeF> before = Lines();
    ZoomBy(12);
    const std::vector<QSizeF> after = Lines();
    ASSERT_EQ(before.size(), after.size());
    for (size_t i = 0; i < before.size(); ++i) {
        EXPECT_NEAR(after[i].width() / before[i].width(), 2, 0.06) << i;
        EXPECT_NEAR(after[i].height() / before[i].height(), 2, 0.12) << i;
    }
    ZoomBy(-12);
    EXPECT_EQ(Lines(), before);
}

TEST_F(NoteSheetTest, DistancesAndTablesAreZoomedToo) {
    Load(u"<p style='-qt-block-indent:1; margin-top:30px'>一</p>"
         "<table width='100' cellpadding='10'><tr><td>甲</td></tr></table>"_s);
    const auto placeOf = [this](int paragraph) {
        const QTextBlock block = Sheet().document()->findBlockByNumber(paragraph);
        return Sheet().cursorRect(QTextCursor(block)).topLeft();
    };
    const QPoint one = placeOf(0);
    const QPoint cell = placeOf(1);
    ZoomBy(12);
    EXPECT_NEAR(placeOf(0).x(), 2 * one.x(), 3);
    EXPECT_NEAR(placeOf(0).y(), 2 * one.y(), 3);
    EXPECT_NEAR(placeOf(1).x(), 2 * cell.x(), 3);
    EXPECT_NEAR(placeOf(1).y(), 2 * cell.y(), 6);
}

TEST_F(NoteSheetTest, ZoomingChangesNeitherTheDocumentNorItsSteps) {
    LoadOfEverySize();
    const QString html = Sheet().Note()->Html();
    for (const int pixels : {6, 20, -30, 4}) {
        ZoomBy(pixels);
        EXPECT_EQ(Sheet().Note()->Html().toStdString(), html.toStdString()) << pixels;
    }
    EXPECT_FALSE(Sheet().document()->isModified());
    EXPECT_FALSE(Sheet().document()->isUndoAvailable());
    ZoomBy(12);
    QTest::keyClicks(&Sheet(), u"x"_s);
    ZoomBy(3);
    Sheet().undo();
    EXPECT_EQ(Sheet().Note()->Html().toStdString(), html.toStdString());
    Sheet().redo();
    EXPECT_TRUE(Sheet().toPlainText().startsWith(u'x'));
}

TEST_F(NoteSheetTest, WhatIsWrittenWhileZoomedIsStoredAsItIsOtherwise) {
    const auto written = [this] {
        New();
        QTest::keyClicks(&Sheet(), u"abc"_s);
        auto* data = new QMimeData;
        data->setHtml(u"<span style='font-size:20px'>二十</span>"_s);
        Paste(data);
        return Sheet().Note()->Html().toStdString();
    };
    const std::string usual = written();
    ZoomBy(12);
    EXPECT_EQ(written(), usual) << "the next document is zoomed too";
    EXPECT_NEAR(Lines().at(0).height(), 40, 16) << "what is pasted as well";
    EXPECT_EQ(Sheet().Note()->ShownFactor(), 2);
}

TEST_F(NoteSheetTest, TheBoxOfSizesTellsTheSizeOfTheDocument) {
    LoadOfEverySize();
    const auto& box = *editor.Widget()->findChild<QComboBox*>(u"sizeBox"_s);
    for (const auto& [paragraph, size] : {std::pair(1, u"9"_s), std::pair(3, u"18"_s)}) {
        Sheet().setTextCursor(QTextCursor(Sheet().document()->findBlockByNumber(paragraph)));
        Sheet().moveCursor(QTextCursor::EndOfBlock);
        EXPECT_EQ(box.currentText(), size);
        ZoomBy(12);
        Sheet().moveCursor(QTextCursor::PreviousCharacter);
        EXPECT_EQ(box.currentText(), size);
        ZoomBy(-12);
    }
}

TEST_F(NoteSheetTest, TheWheelZoomsWithCtrl) {
    New();
    const auto turn = [this](int angle) {
        QWheelEvent event(QPointF(9, 9), Sheet().viewport()->mapToGlobal(QPointF(9, 9)), {},
                          {0, angle}, Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(Sheet().viewport(), &event);
    };
    turn(120);
    EXPECT_GT(Sheet().Note()->ShownFactor(), 1);
    turn(-120);
    turn(-120);
    EXPECT_LT(Sheet().Note()->ShownFactor(), 1);
}

TEST_F(NoteSheetTest, APictureIsResizedByItsHandleWhileZoomed) {
    New();
    Sheet().InsertFiles({PictureFile(u"a.jpg"_s, {150, 90})});
    ZoomBy(12);
    QTest::mouseClick(Sheet().viewport(), Qt::LeftButton, {}, QPoint(60, 60));
    const auto picked = Sheet().PickedPicture();
    ASSERT_TRUE(picked);
    EXPECT_EQ(picked->place.size(), QSizeF(300, 180));
    const QPoint handle = picked->place.bottomRight().toPoint() - QPoint(3, 3);
    QTest::mousePress(Sheet().viewport(), Qt::LeftButton, {}, handle);
    QMouseEvent move(QEvent::MouseMove, handle + QPoint(100, 0),
                     Sheet().viewport()->mapToGlobal(handle + QPoint(100, 0)), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(Sheet().viewport(), &move);
    QTest::mouseRelease(Sheet().viewport(), Qt::LeftButton, {}, handle + QPoint(100, 0));
    EXPECT_NEAR(PictureAt(0).width(), 200, 3);
}

TEST_F(NoteSheetTest, ANewPictureLeavesSomeOfTheTextInSightAndTheCaretToo) {
    Load(u"<p>行</p>"_s.repeated(60));
    Sheet().moveCursor(QTextCursor::End);
    Sheet().verticalScrollBar()->setValue(0);
    Sheet().InsertFiles({PictureFile(u"hoch.jpg"_s, {900, 3000})});
    support::RunPendingEvents();
    const int at = Sheet().document()->characterCount() - 2;
    const QSize seen = Sheet().viewport()->size();
    EXPECT_LE(PictureAt(at).height(), 0.6 * seen.height());
    EXPECT_NEAR(PictureAt(at).width() / PictureAt(at).height(), 0.3, 0.02);
    EXPECT_TRUE(Sheet().viewport()->rect().contains(Sheet().cursorRect()));
}

TEST_F(NoteSheetTest, PicturesThatBringTheBarAreStillNoWiderThanTheSheet) {
    New();
    for (int i = 0; i < 12; ++i) {
        Sheet().InsertFiles({PictureFile(u"breit%1.jpg"_s.arg(i), {3000, 300 + i})});
        QTest::keyClick(&Sheet(), Qt::Key_Return);
    }
    support::RunPendingEvents();
    ASSERT_TRUE(Sheet().verticalScrollBar()->isVisible());
    EXPECT_EQ(Sheet().horizontalScrollBar()->maximum(), 0);
}

TEST(NoteLinkTips, SizesAreInWordsForPeople) {
    for (const auto& [bytes, words] : {std::pair(quint64(0), u"0 字节"_s),
                                       {1023, u"1023 字节"_s},
                                       {1024, u"1.0 KB"_s},
                                       {1'572'864, u"1.5 MB"_s},
                                       {quint64(5) << 40U, u"5.0 TB"_s},
                                       {quint64(5) << 50U, u"5120.0 TB"_s}}) {
        EXPECT_EQ(toolkit::SizeWords(bytes), words);
    }
}

TEST_F(NoteSheetTest, AnAttachmentTellsItsNameItsSizeAndHowItIsOpened) {
    const QString store = QString(32, u'a') + u".pdf"_s;
    const QString html =
        u"<p><a href='%1'>报告</a></p>"_s.arg(toolkit::AddressOf({store, u"报 告.pdf"_s}));
    const QString page = Page(html.toUtf8());
    editor.LoadEditor(u"doc"_s, {page}, {{store, 2048}}, 0);
    support::RunPendingEvents();
    EXPECT_EQ(TipOnFirstLetter(), u"报 告.pdf\n2.0 KB\n按住 Ctrl 单击打开");
    editor.LoadEditor(u"doc"_s, {page}, {}, 1);
    support::RunPendingEvents();
    EXPECT_EQ(TipOnFirstLetter(), u"报 告.pdf\n单击打开") << "nobody knows its size";
}

TEST_F(NoteSheetTest, OfAnAttachmentThatLiesHereTheSizeIsKnown) {
    New();
    Sheet().InsertAsAttachments({folder.Write(u"表.xlsx"_s, "12345")});
    support::RunPendingEvents();
    EXPECT_EQ(TipOnFirstLetter(), u"表.xlsx\n5 字节\n按住 Ctrl 单击打开");
}

TEST_F(NoteSheetTest, ALinkTellsItsAddressAndTextTellsNothing) {
    Load(u"<p><a href='https://a.cn/b'>甲乙</a></p>"_s);
    support::RunPendingEvents();
    EXPECT_EQ(TipOnFirstLetter(), u"https://a.cn/b\n按住 Ctrl 单击打开");
    Load(u"<p>甲乙</p>"_s);
    support::RunPendingEvents();
    EXPECT_EQ(TipOnFirstLetter(), QString());
}
