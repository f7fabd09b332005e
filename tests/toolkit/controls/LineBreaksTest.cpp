// Where texts break into lines.
#include "toolkit/controls/LineBreaks.h"

#include "toolkit/Look.h"

#include <QFontMetrics>
#include <QTextBoundaryFinder>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;

/// The lines of a text that is so many Chinese signs wide.
QStringList Lines(const QString& text, int signs) {
    const QFont font = toolkit::UiFont();
    QStringList lines;
    const int width = QFontMetrics(font).horizontalAdvance(QString(signs, u'国')) + 1;
    for (const toolkit::TextPart& part : toolkit::BreakLines(text, font, width)) {
        lines.append(text.mid(part.start, part.length));
    }
    return lines;
}

TEST(LineBreaks, AShortTextIsOneLineAndNoTextAnEmptyOne) {
    EXPECT_THAT(Lines(u"张三：好"_s, 10), ElementsAre(u"张三：好"_s));
    EXPECT_THAT(Lines(QString(), 10), ElementsAre(QString()));
}

TEST(LineBreaks, ChineseBreaksBesideEverySign) {
    EXPECT_THAT(Lines(u"一二三四五六七"_s, 3), ElementsAre(u"一二三"_s, u"四五六"_s, u"七"_s));
}

TEST(LineBreaks, NoClosingSignBeginsALineAndNoOpeningOneEndsIt) {
    EXPECT_THAT(Lines(u"一二三，四"_s, 3), ElementsAre(u"一二"_s, u"三，四"_s));
    EXPECT_THAT(Lines(u"一二（四五"_s, 3), ElementsAre(u"一二"_s, u"（四五"_s));
}

TEST(LineBreaks, WordsStayWholeAndOneWiderThanALineIsCut) {
    EXPECT_THAT(Lines(u"ab cd ef"_s, 3), ElementsAre(u"ab cd "_s, u"ef"_s));
    const QStringList cut = Lines(QString(60, u'x'), 5);
    EXPECT_GT(cut.size(), 3);
    EXPECT_EQ(cut.join(QString()), QString(60, u'x'));
}

TEST(LineBreaks, LineFeedsEndLinesAndBlankLinesStay) {
    EXPECT_THAT(Lines(u"一\n\n二"_s, 9), ElementsAre(u"一"_s, QString(), u"二"_s));
    EXPECT_THAT(Lines(u"一\n"_s, 9), ElementsAre(u"一"_s, QString()));
}

TEST(LineBreaks, BlanksAtTheEndHangAndCostNoLine) {
    EXPECT_THAT(Lines(u"一二三   四"_s, 3), ElementsAre(u"一二三   "_s, u"四"_s));
}

TEST(LineBreaks, NoPairAndNoJoinedSignIsSplit) {
    const QString family = u"\U0001F468\u200D\U0001F469\u200D\U0001F467"_s;
    const QString text = family.repeated(8) + u"e\u0301"_s.repeated(20);
    qsizetype end = 0;
    QTextBoundaryFinder signs(QTextBoundaryFinder::Grapheme, text);
    const QStringList lines = Lines(text, 4);
    EXPECT_GT(lines.size(), 2);
    for (const QString& line : lines) {
        end += line.size();
        signs.setPosition(end);
        EXPECT_TRUE(signs.isAtBoundary()) << end;
    }
    EXPECT_EQ(end, text.size());
}

TEST(LineBreaks, EveryLineFitsAndNothingIsLost) {
    const QFontMetrics metrics(toolkit::UiFont());
    for (const QString& text :
         {u"张三：二层梁底有裂缝，宽约0.3mm（见照片2/3），请尽快处理。Please check."_s,
          u"李四：已处理 OK，\U0001F44D 谢谢"_s, u"王五：<b>粗体</b>&amp; \"引号\""_s}) {
        const QStringList lines = Lines(text, 12);
        EXPECT_EQ(lines.join(QString()), text);
        for (const QString& line : lines) {
            EXPECT_LE(metrics.horizontalAdvance(line.trimmed()),
                      metrics.horizontalAdvance(QString(12, u'国')) + 2)
                << line.toStdString();
        }
    }
}

} // namespace
