// What a person does to the shape of a rich text, and that it lasts through the document form.
#include "toolkit/richtext/NoteCommands.h"
#include "tests/support/TempFolder.h"
#include "toolkit/richtext/NoteDocument.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextImageFormat>
#include <QTextList>
#include <QTextTable>

#include <gtest/gtest.h>

#include <functional>

namespace toolkit {
namespace {

using namespace Qt::StringLiterals;

class NoteCommandsTest : public testing::Test {
protected:
    NoteCommandsTest() { Put(u"<p>一</p><p>二</p><p>三</p>"_s); }

    void Put(const QString& html) { ASSERT_EQ(document.Load(html), NoteFault::None); }
    /// At the start of a paragraph.
    [[nodiscard]] QTextCursor At(int paragraph) {
        return QTextCursor(document.findBlockByNumber(paragraph));
    }
    [[nodiscard]] QTextCursor From(int first, int last) {
        QTextCursor cursor = At(first);
        cursor.setPosition(At(last).position(), QTextCursor::KeepAnchor);
        return cursor;
    }
    /// As it is when it was saved and opened again.
    void Reload() { Put(document.Html()); }
    [[nodiscard]] QTextTable& Table() {
        return *qobject_cast<QTextTable*>(document.rootFrame()->childFrames().at(0));
    }
    [[nodiscard]] QTextCursor InCell(int row, int column) {
        return Table().cellAt(row, column).firstCursorPosition();
    }
    [[nodiscard]] QTextCursor OverCells(int row, int column, int toRow, int toColumn) {
        QTextCursor cursor = InCell(row, column);
        cursor.setPosition(InCell(toRow, toColumn).position(), QTextCursor::KeepAnchor);
        return cursor;
    }
    [[nodiscard]] QString Shape() { return u"%1x%2"_s.arg(Table().rows()).arg(Table().columns()); }
    /// Does it, undoes it in one step, and does it again.
    void InOneStep(const std::function<void()>& deed) {
        const QString before = document.Html();
        deed();
        const QString after = document.Html();
        EXPECT_NE(after.toStdString(), before.toStdString());
        document.undo();
        EXPECT_EQ(document.Html().toStdString(), before.toStdString());
        document.redo();
        EXPECT_EQ(document.Html().toStdString(), after.toStdString());
    }

    support::TempFolder folder;
    NoteDocument document{folder.Path(u"pages/"_s), nullptr};
};

} // namespace

TEST_F(NoteCommandsTest, HeadingsAreOfWholeParagraphsAndLast) {
    InOneStep([this] { SetHeading(From(0, 1), 2); });
    Reload();
    EXPECT_EQ(HeadingAt(At(0)), 2);
    EXPECT_EQ(HeadingAt(At(1)), 2);
    EXPECT_EQ(HeadingAt(At(2)), 0);
    SetHeading(At(0), 0);
    EXPECT_EQ(HeadingAt(At(0)), 0);
    EXPECT_NE(At(0).blockCharFormat().fontWeight(), QFont::Bold);
    SetHeading(At(1), kMostHeading + 1);
    SetHeading(At(1), -1);
    EXPECT_EQ(HeadingAt(At(1)), 2);
}

TEST_F(NoteCommandsTest, AListIsMadeChangedAndLeft) {
    InOneStep([this] { ToggleList(From(0, 1), QTextListFormat::ListDisc); });
    Reload();
    EXPECT_TRUE(IsInList(At(0), QTextListFormat::ListDisc));
    EXPECT_EQ(At(0).currentList()->count(), 2);
    EXPECT_FALSE(IsInList(At(2), QTextListFormat::ListDisc));
    ToggleList(From(0, 1), QTextListFormat::ListDecimal);
    EXPECT_TRUE(IsInList(At(1), QTextListFormat::ListDecimal));
    ToggleList(From(0, 1), QTextListFormat::ListDecimal);
    EXPECT_EQ(At(0).currentList(), nullptr);
    EXPECT_EQ(At(1).currentList(), nullptr);
    EXPECT_EQ(document.toPlainText(), u"一\n二\n三");
}

TEST_F(NoteCommandsTest, ItemsGoALevelInAndOutAndOutOfTheList) {
    ToggleList(From(0, 2), QTextListFormat::ListDisc);
    Indent(At(1), 1);
    EXPECT_EQ(At(1).currentList()->format().indent(), 2);
    Reload();
    EXPECT_EQ(At(1).currentList()->format().indent(), 2);
    EXPECT_EQ(At(0).currentList()->format().indent(), 1);
    Indent(At(1), -1);
    Indent(At(1), -1);
    EXPECT_EQ(At(1).currentList(), nullptr);
}

TEST_F(NoteCommandsTest, ParagraphsAreIndentedWithinLimits) {
    Indent(At(0), 1);
    Indent(At(0), 1);
    Reload();
    EXPECT_EQ(At(0).blockFormat().indent(), 2);
    for (int times = 0; times < 40; ++times) {
        Indent(At(0), 1);
        Indent(At(1), -1);
    }
    EXPECT_EQ(At(0).blockFormat().indent(), kMostIndent);
    EXPECT_EQ(At(1).blockFormat().indent(), 0);
}

TEST_F(NoteCommandsTest, ATableGrowsAndShrinksByRowsAndColumns) {
    InOneStep([this] { InsertTable(At(1), 2, 3); });
    InCell(0, 0).insertText(u"甲"_s);
    Do(InCell(0, 0), TableDeed::RowAbove);
    Do(InCell(1, 0), TableDeed::RowBelow);
    Do(InCell(1, 0), TableDeed::ColumnBefore);
    Do(InCell(1, 1), TableDeed::ColumnAfter);
    EXPECT_EQ(Shape(), u"4x5");
    EXPECT_EQ(InCell(1, 1).block().text(), u"甲");
    Reload();
    EXPECT_EQ(Shape(), u"4x5");
    Do(InCell(0, 0), TableDeed::RemoveRows);
    Do(InCell(0, 0), TableDeed::RemoveColumns);
    EXPECT_EQ(Shape(), u"3x4");
    EXPECT_EQ(InCell(0, 0).block().text(), u"甲");
    Do(OverCells(0, 0, 1, 1), TableDeed::RemoveColumns);
    EXPECT_EQ(Shape(), u"3x2");
}

TEST_F(NoteCommandsTest, TheLastRowTakesTheTableWithItAndNothingElse) {
    for (const TableDeed deed :
         {TableDeed::RemoveRows, TableDeed::RemoveColumns, TableDeed::RemoveTable}) {
        Put(u"<p>一</p><p>二</p>"_s);
        InsertTable(At(1), 1, 1);
        Do(InCell(0, 0), deed);
        EXPECT_TRUE(document.rootFrame()->childFrames().isEmpty());
        EXPECT_TRUE(document.toPlainText().startsWith(u"一"_s));
        EXPECT_TRUE(document.toPlainText().endsWith(u"二"_s));
    }
}

TEST_F(NoteCommandsTest, CellsAreMergedAndSplit) {
    InsertTable(At(1), 3, 3);
    InCell(0, 0).insertText(u"甲"_s);
    InCell(0, 1).insertText(u"乙"_s);
    EXPECT_FALSE(CanDo(InCell(0, 0), TableDeed::Merge));
    EXPECT_FALSE(CanDo(InCell(0, 0), TableDeed::Split));
    ASSERT_TRUE(CanDo(OverCells(0, 0, 1, 1), TableDeed::Merge));
    InOneStep([this] { Do(OverCells(0, 0, 1, 1), TableDeed::Merge); });
    Reload();
    EXPECT_EQ(Table().cellAt(0, 0).columnSpan(), 2);
    EXPECT_EQ(Table().cellAt(0, 0).rowSpan(), 2);
    EXPECT_TRUE(document.toPlainText().contains(u"乙"_s)) << "what stood there is kept";
    ASSERT_TRUE(CanDo(InCell(0, 0), TableDeed::Split));
    Do(InCell(0, 0), TableDeed::Split);
    EXPECT_EQ(Table().cellAt(0, 0).columnSpan(), 1);
}

TEST_F(NoteCommandsTest, OutsideATableNoDeedDoesAnything) {
    const QString before = document.Html();
    for (int deed = 0; deed <= int(TableDeed::Split); ++deed) {
        EXPECT_FALSE(CanDo(At(0), TableDeed(deed)));
        Do(At(0), TableDeed(deed));
    }
    EXPECT_EQ(document.Html(), before);
}

TEST_F(NoteCommandsTest, ATableIsNoLargerThanItsLimit) {
    InsertTable(At(0), 1'000'000, 0);
    EXPECT_EQ(Shape(), u"%1x1"_s.arg(kMostTableSide));
}

TEST_F(NoteCommandsTest, ALinkIsOfTheSelectionOrOfItsOwnTextAndIsTakenAway) {
    QTextCursor word = At(0);
    word.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    SetLink(word, u"https://a.cn"_s, {});
    SetLink(At(1), u"https://b.cn"_s, u"乙站"_s);
    SetLink(At(2), u"https://c.cn"_s, {});
    Reload();
    EXPECT_EQ(document.toPlainText(), u"一\n乙站 二\nhttps://c.cn 三");
    word = At(0);
    word.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    EXPECT_EQ(word.charFormat().anchorHref(), u"https://a.cn");
    SetLink(word, {}, {});
    EXPECT_FALSE(document.Html().contains(u"a.cn"_s));
}

TEST_F(NoteCommandsTest, ARuleStandsInAParagraphOfItsOwn) {
    QTextCursor cursor = At(0);
    cursor.movePosition(QTextCursor::EndOfBlock);
    InOneStep([&] { InsertRule(cursor); });
    Reload();
    EXPECT_TRUE(document.Html().contains(u"<hr"_s));
    EXPECT_TRUE(document.toPlainText().startsWith(u"一"_s));
}

TEST_F(NoteCommandsTest, AnAttachmentIsALinkWithItsNameBehindTheSelection) {
    QTextCursor word = At(0);
    word.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    InsertAttachment(word, {QString(32, u'a') + u".pdf"_s, u"报 告.pdf"_s});
    Reload();
    EXPECT_TRUE(document.toPlainText().startsWith(u"一报 告.pdf"_s));
    ASSERT_EQ(document.Files().size(), 1U);
    EXPECT_EQ(document.Files()[0].localPath.section(u'/', -1), u"报 告.pdf");
}

} // namespace toolkit
