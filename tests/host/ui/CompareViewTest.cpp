// What differs between two versions, as a person reads it.
#include "host/ui/rich/CompareView.h"

#include "hands/Hands.h"
#include "host/ui/rich/CompareSheet.h"
#include "tests/support/TempFolder.h"
#include "tests/support/WaitFor.h"
#include "tests/viewers/support/SamplePictures.h"
#include "toolkit/richtext/NoteStore.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTextBlock>
#include <QUrl>
#include <QtTest/QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;

std::vector<toolkit::NoteLine> LinesFrom(const QString& html) {
    QTextDocument document;
    document.setHtml(html);
    return toolkit::LinesOf(document);
}

QString Paragraphs(int count, const QString& text = u"不变的第 %1 段"_s) {
    QString html;
    for (int i = 0; i < count; ++i) {
        html += u"<p>"_s + text.arg(i) + u"</p>"_s;
    }
    return html;
}

class ComparisonInSight : public testing::Test {
protected:
    ComparisonInSight() {
        view.resize(600, 400);
        view.show();
        view.activateWindow();
    }
    void Show(const QString& from, const QString& to) {
        view.ShowLines(toolkit::CompareNotes(LinesFrom(from), LinesFrom(to)), {pages, pages});
    }
    [[nodiscard]] CompareSheet& Sheet() const {
        return *view.findChild<CompareSheet*>(u"compareSheet"_s);
    }
    [[nodiscard]] QString Text() const { return Sheet().toPlainText(); }
    [[nodiscard]] QString Label(const QString& name) const {
        return view.findChild<QLabel*>(name)->text();
    }
    [[nodiscard]] QTextCharFormat FormatOf(const QString& text) const {
        const QTextCursor found = Sheet().document()->find(text);
        EXPECT_FALSE(found.isNull()) << text.toStdString();
        return found.charFormat();
    }
    [[nodiscard]] QPoint PlaceOf(const QString& text) const {
        QTextCursor found = Sheet().document()->find(text);
        found.setPosition(found.selectionStart() + 1);
        return Sheet().cursorRect(found).center();
    }
    QString StoredPicture(const QSize& size) {
        return toolkit::StoreBytes(support::JpegBytes(support::OneColour(size, Qt::blue)), pages,
                                   u".jpg"_s)
            .value_or(QString());
    }
    [[nodiscard]] QImage Picture(const QString& address) const {
        return Sheet()
            .document()
            ->resource(QTextDocument::ImageResource, QUrl(address))
            .value<QImage>();
    }

    support::TempFolder folder;
    QString pages = folder.Path(u"pages/"_s);
    CompareView view{nullptr};
};

TEST_F(ComparisonInSight, WhatCameIsUnderlinedAndWhatWentStruckThroughOnGroundsOfTheirOwn) {
    Show(u"<p>三层梁底露筋</p>"_s, u"<p>三层梁底已修补</p>"_s);
    EXPECT_EQ(Text(), u"三层梁底露筋已修补");
    EXPECT_TRUE(FormatOf(u"露筋"_s).fontStrikeOut());
    EXPECT_FALSE(FormatOf(u"露筋"_s).fontUnderline());
    EXPECT_TRUE(FormatOf(u"已修补"_s).fontUnderline());
    EXPECT_FALSE(FormatOf(u"已修补"_s).fontStrikeOut());
    EXPECT_FALSE(FormatOf(u"三层"_s).fontUnderline() || FormatOf(u"三层"_s).fontStrikeOut());
    const QColor gone = FormatOf(u"露筋"_s).background().color();
    const QColor come = FormatOf(u"已修补"_s).background().color();
    EXPECT_GT(gone.red(), gone.green());
    EXPECT_GT(come.green(), come.red());
    EXPECT_EQ(Label(u"compareSummary"_s), u"修改 1 段");
}

TEST_F(ComparisonInSight, BlankLinesAndFormatsAreToldInWords) {
    Show(u"<p>甲</p><p>乙</p>"_s,
         u"<p>甲</p><p style='-qt-paragraph-type:empty'><br/></p><p><b>乙</b></p>"_s);
    EXPECT_EQ(Text(), u"甲\n（空行）\n乙　格式有变化");
    EXPECT_TRUE(FormatOf(u"（空行）"_s).fontUnderline());
}

TEST_F(ComparisonInSight, EqualVersionsSaySoAndCanStillBeRead) {
    Show(Paragraphs(20), Paragraphs(20));
    EXPECT_EQ(Label(u"compareSummary"_s), u"两个版本的内容相同。");
    EXPECT_EQ(Text(), u"……（未变化 20 段）");
    EXPECT_FALSE(view.findChild<QPushButton*>(u"compareNext"_s)->isEnabled());
    EXPECT_TRUE(Label(u"comparePlace"_s).isEmpty());
}

TEST_F(ComparisonInSight, NoContentOnEitherSideLeavesTheSheetEmpty) {
    Show({}, {});
    EXPECT_TRUE(Text().isEmpty());
    EXPECT_EQ(Label(u"compareSummary"_s), u"两个版本的内容相同。");
}

TEST_F(ComparisonInSight, LongStretchesAreFoldedAndAClickOpensThem) {
    Show(Paragraphs(30) + u"<p>旧</p>"_s + Paragraphs(3),
         Paragraphs(30) + u"<p>新</p>"_s + Paragraphs(3));
    EXPECT_TRUE(Text().startsWith(u"……（未变化 28 段）\n不变的第 28 段\n不变的第 29 段\n"_s));
    EXPECT_TRUE(Text().endsWith(u"不变的第 0 段\n不变的第 1 段\n不变的第 2 段"_s)) << "few enough";
    hands::ClickAt(Sheet().viewport(), PlaceOf(u"未变化"_s));
    EXPECT_TRUE(support::WaitFor([this] {
        hands::ClickAt(Sheet().viewport(), PlaceOf(u"未变化"_s));
        return Text().startsWith(u"不变的第 0 段\n不变的第 1 段\n"_s);
    }));
    EXPECT_FALSE(Text().contains(u"未变化"_s));
}

TEST_F(ComparisonInSight, TheKeyboardOpensAFoldToo) {
    Show(Paragraphs(30) + u"<p>旧</p>"_s, Paragraphs(30) + u"<p>新</p>"_s);
    Sheet().setFocus();
    QTest::keyClick(&Sheet(), Qt::Key_Tab);
    QTest::keyClick(&Sheet(), Qt::Key_Return);
    EXPECT_TRUE(Text().startsWith(u"不变的第 0 段\n"_s)) << Text().left(40).toStdString();
}

TEST_F(ComparisonInSight, AnOpenedFoldLeavesWhatIsAboveItWhereItWas) {
    QString from = u"<p>旧一</p>"_s + Paragraphs(40) + u"<p>旧二</p>"_s + Paragraphs(40);
    QString to = u"<p>新一</p>"_s + Paragraphs(40) + u"<p>新二</p>"_s + Paragraphs(40);
    view.resize(600, 200);
    Show(from, to);
    view.findChild<QPushButton*>(u"compareNext"_s)->click();
    view.findChild<QPushButton*>(u"compareNext"_s)->click();
    const int before = PlaceOf(u"新二"_s).y();
    const QTextBlock last = Sheet().document()->lastBlock();
    ASSERT_EQ(last.text(), u"……（未变化 38 段）");
    emit Sheet().anchorClicked(QUrl(last.begin().fragment().charFormat().anchorHref()));
    EXPECT_EQ(PlaceOf(u"新二"_s).y(), before);
    EXPECT_TRUE(Text().endsWith(u"不变的第 39 段"_s));
}

TEST_F(ComparisonInSight, TheKeysGoFromOneChangeToTheNextAndBack) {
    QString from;
    QString to;
    for (int i = 0; i < 3; ++i) {
        from += u"<p>旧%1</p>"_s.arg(i) + Paragraphs(30);
        to += u"<p>新%1</p>"_s.arg(i) + Paragraphs(30);
    }
    Show(from, to);
    EXPECT_EQ(Label(u"comparePlace"_s), u"共 3 处");
    const auto press = [this](Qt::KeyboardModifiers modifiers, const QString& wanted) {
        EXPECT_TRUE(
            support::WaitFor([&] { return hands::PressKey(&view, Qt::Key_F8, modifiers); }));
        EXPECT_EQ(Label(u"comparePlace"_s), wanted);
    };
    press({}, u"第 1 / 3 处"_s);
    press({}, u"第 2 / 3 处"_s);
    EXPECT_TRUE(Sheet().viewport()->rect().contains(PlaceOf(u"新1"_s)));
    press({}, u"第 3 / 3 处"_s);
    press({}, u"第 3 / 3 处"_s);
    press(Qt::ShiftModifier, u"第 2 / 3 处"_s);
    press(Qt::ShiftModifier, u"第 1 / 3 处"_s);
    press(Qt::ShiftModifier, u"第 1 / 3 处"_s);
}

TEST_F(ComparisonInSight, PicturesAreScaledFramedAndNamed) {
    const QString come = StoredPicture({1600, 800});
    const QString gone = StoredPicture({300, 200});
    Show(u"<p>图<img src='%1'/></p>"_s.arg(gone), u"<p>图<img src='%1'/></p>"_s.arg(come));
    EXPECT_EQ(Text(), u"图\n\uFFFC 删除图片 \uFFFC 新增图片 ");
    const qreal ratio = view.devicePixelRatioF();
    const QImage added = Picture(u"added:"_s + come);
    EXPECT_EQ(added.size(), QSize(320, 160) * ratio);
    EXPECT_GT(added.pixelColor(1, 1).green(), added.pixelColor(1, 1).red());
    EXPECT_GT(added.pixelColor(added.width() - 2, added.height() - 2).green(), 60);
    EXPECT_TRUE(support::IsNear(added.pixelColor(added.rect().center()), Qt::blue));
    const QImage removed = Picture(u"removed:"_s + gone);
    EXPECT_EQ(removed.size(), QSize(300, 200) * ratio);
    EXPECT_GT(removed.pixelColor(1, 1).red(), removed.pixelColor(1, 1).green());
    EXPECT_EQ(Label(u"compareSummary"_s), u"修改 1 段，图片新增 1 张、删除 1 张");
}

TEST_F(ComparisonInSight, WhatIsNoPictureOfTheFoldersIsNeverRead) {
    const QString path =
        folder.Write(u"x.jpg"_s, support::JpegBytes(support::OneColour({50, 50}, Qt::blue)));
    Show({}, u"<p><img src='%1'/><img src='../x.jpg'/></p>"_s.arg(path));
    for (const QString& name : {path, u"../x.jpg"_s, QString(32, u'0') + u".jpg"_s}) {
        const QImage shown = Picture(u"added:"_s + name);
        ASSERT_FALSE(shown.isNull());
        EXPECT_FALSE(support::IsNear(shown.pixelColor(shown.rect().center()), Qt::blue));
    }
}

TEST_F(ComparisonInSight, SelectedTextIsCopiedAsText) {
    Show(u"<p>三层梁底露筋</p>"_s, u"<p>三层梁底已修补</p>"_s);
    Sheet().selectAll();
    Sheet().copy();
    EXPECT_EQ(QApplication::clipboard()->text(), u"三层梁底露筋已修补");
    EXPECT_TRUE(Sheet().isReadOnly());
}

TEST_F(ComparisonInSight, TextThatLooksLikeALinkOfTheSheetIsText) {
    Show({}, u"<p><a href='fold:0'>……（未变化 3 段）</a><a href='https://x/'>网页</a></p>"_s);
    EXPECT_TRUE(FormatOf(u"未变化"_s).anchorHref().isEmpty());
    EXPECT_TRUE(FormatOf(u"网页"_s).anchorHref().isEmpty());
}

TEST_F(ComparisonInSight, ABarStandsBesideEachLineThatDiffers) {
    Show(u"<p>一样的</p><p>三层梁底露筋</p>"_s, u"<p>一样的</p><p>三层梁底已修补</p>"_s);
    const QImage seen = Sheet().viewport()->grab().toImage();
    const auto isMarked = [&](const QString& text) {
        const qreal ratio = seen.devicePixelRatio();
        return seen.pixelColor(QPointF(QPointF(5, PlaceOf(text).y()) * ratio).toPoint()) !=
               QColor(Qt::white);
    };
    EXPECT_TRUE(isMarked(u"已修补"_s));
    EXPECT_FALSE(isMarked(u"一样的"_s));
}

TEST_F(ComparisonInSight, ManyLinesThatAllDifferAreShownAtOnce) {
    Show(Paragraphs(3000, u"旧的第 %1 段落"_s), Paragraphs(3000, u"新的第 %1 段落"_s));
    EXPECT_EQ(Label(u"compareSummary"_s), u"修改 3000 段");
    EXPECT_EQ(Sheet().document()->blockCount(), 3000);
}

} // namespace
} // namespace host
