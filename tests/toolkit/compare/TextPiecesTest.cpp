// What differs within a line, and which lines became which.
#include "toolkit/compare/TextPieces.h"
#include "toolkit/compare/LinePairs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>

namespace toolkit {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

NoteLine PieceLine(const QString& text, const QStringList& pictures = {}) {
    NoteLine line;
    line.text = text;
    line.pictures = pictures;
    return line;
}

/// "同[-去-][+来+]同".
QString Marked(const QString& from, const QString& to) {
    QString marked;
    for (const TextPiece& piece : ComparePieces(PieceLine(from), PieceLine(to))) {
        marked += piece.kind == PieceKind::Same      ? piece.text
                  : piece.kind == PieceKind::Removed ? u"[-%1-]"_s.arg(piece.text)
                                                     : u"[+%1+]"_s.arg(piece.text);
    }
    return marked;
}

TEST(TextPieces, ChineseIsComparedByCharacters) {
    EXPECT_EQ(Marked(u"三层梁底露筋"_s, u"四层梁底已修补"_s),
              u"[-三-][+四+]层梁底[-露筋-][+已修补+]");
    EXPECT_EQ(Marked(u"甲乙丙"_s, u"甲丙"_s), u"甲[-乙-]丙");
    EXPECT_EQ(Marked(u"甲丙"_s, u"甲乙丙"_s), u"甲[+乙+]丙");
}

TEST(TextPieces, WordsAndNumbersAreComparedAsWholes) {
    EXPECT_EQ(Marked(u"the beam"_s, u"the beams"_s), u"the [-beam-][+beams+]");
    EXPECT_EQ(Marked(u"宽12mm处"_s, u"宽18mm处"_s), u"宽[-12mm-][+18mm+]处");
    EXPECT_EQ(Marked(u"KL-5"_s, u"KL-6"_s), u"KL-[-5-][+6+]");
}

TEST(TextPieces, WhatIsGoneStandsBeforeWhatCame) {
    EXPECT_EQ(Marked(u"甲"_s, u"乙"_s), u"[-甲-][+乙+]");
    EXPECT_EQ(Marked({}, u"乙"_s), u"[+乙+]");
    EXPECT_EQ(Marked(u"甲"_s, {}), u"[-甲-]");
    EXPECT_THAT(ComparePieces({}, {}), IsEmpty());
}

TEST(TextPieces, CharactersOutsideTheBasicPlaneAreNeverDivided) {
    // Both begin with the same half.
    const QString one = u"甲\U00020BB7乙"_s;
    const QString other = u"甲\U00020BB8乙"_s;
    EXPECT_EQ(Marked(one, other), u"甲[-\U00020BB7-][+\U00020BB8+]乙");
    EXPECT_EQ(Marked(u"\U0001F44D\U0001F3FB"_s, u"\U0001F44E\U0001F3FB"_s),
              u"[-\U0001F44D-][+\U0001F44E+]\U0001F3FB");
}

TEST(TextPieces, HalvesThatStandAloneAreCarriedAlong) {
    const QString broken = u"甲"_s + QChar(0xD842) + u"乙"_s + QChar(0xDFB7);
    QString from;
    for (const TextPiece& piece : ComparePieces(PieceLine(broken), PieceLine(u"甲乙"_s))) {
        from += piece.kind == PieceKind::Added ? QString() : piece.text;
    }
    EXPECT_EQ(from, broken);
}

TEST(TextPieces, AnAccentStaysOnItsLetter) {
    EXPECT_EQ(Marked(u"甲e\u0301"_s, u"甲e"_s), u"甲[-e\u0301-][+e+]");
}

TEST(TextPieces, APictureIsKnownByItsName) {
    const auto pieces = ComparePieces(PieceLine(u"图\uFFFC及\uFFFC"_s, {u"a.jpg"_s, u"b.jpg"_s}),
                                      PieceLine(u"图\uFFFC及\uFFFC"_s, {u"c.jpg"_s, u"b.jpg"_s}));
    EXPECT_THAT(pieces, ElementsAre(TextPiece{PieceKind::Same, u"图"_s, {}},
                                    TextPiece{PieceKind::Removed, u"\uFFFC"_s, {u"a.jpg"_s}},
                                    TextPiece{PieceKind::Added, u"\uFFFC"_s, {u"c.jpg"_s}},
                                    TextPiece{PieceKind::Same, u"及\uFFFC"_s, {u"b.jpg"_s}}));
}

TEST(TextPieces, OneCharacterThatStayedByChanceIsNoIsland) {
    EXPECT_EQ(Marked(u"钢筋外露的部位"_s, u"模板变形的原因"_s),
              u"[-钢筋外露的部位-][+模板变形的原因+]");
}

TEST(TextPieces, AParagraphOfHalfAMillionCharactersTakesNoMoment) {
    QString from;
    for (int i = 0; i < 500'000; ++i) {
        from += QChar(0x4E00 + int(qint64(i) * 7919 % 20'000));
    }
    QString to = from;
    std::reverse(to.begin() + 1000, to.end());
    const auto start = std::chrono::steady_clock::now();
    const auto pieces = ComparePieces(PieceLine(from), PieceLine(to));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
    EXPECT_FALSE(pieces.empty());
}

TEST(LinePairs, LikenessIsNoneForStrangersAndOneForTheSame) {
    EXPECT_EQ(LikenessOf(PieceLine(u"甲乙"_s), PieceLine(u"丙丁"_s)), 0);
    EXPECT_EQ(LikenessOf(PieceLine(u"甲乙"_s), PieceLine(u"甲乙"_s)), 1);
    EXPECT_EQ(LikenessOf({}, PieceLine(u"甲乙"_s)), 0);
    EXPECT_EQ(LikenessOf(PieceLine(u"甲 | 乙"_s), PieceLine(u"丙 | 丁"_s)), 0)
        << "the gaps of rows";
    EXPECT_EQ(
        LikenessOf(PieceLine(u"\uFFFC"_s, {u"a.jpg"_s}), PieceLine(u"\uFFFC"_s, {u"b.jpg"_s})), 0);
    const double some = LikenessOf(PieceLine(u"三层梁底露筋"_s), PieceLine(u"三层梁底修补"_s));
    EXPECT_GT(some, 0.5);
    EXPECT_LT(some, 1);
}

TEST(LinePairs, AlikeLinesArePairedInTheirOrder) {
    const std::vector<NoteLine> removed = {
        PieceLine(u"三层梁底露筋"_s), PieceLine(u"完全不同的一行"_s), PieceLine(u"五层墙面开裂"_s)};
    const std::vector<NoteLine> added = {PieceLine(u"新来的"_s), PieceLine(u"三层梁底已修补"_s),
                                         PieceLine(u"五层墙面已修补"_s)};
    EXPECT_THAT(PairLines(removed, added), ElementsAre(Pair(0, 1), Pair(2, 2)));
    EXPECT_THAT(PairLines(removed, {}), IsEmpty());
    EXPECT_THAT(PairLines({}, added), IsEmpty());
}

TEST(LinePairs, PairsNeverCross) {
    const std::vector<NoteLine> removed = {PieceLine(u"三层梁底露筋甲"_s),
                                           PieceLine(u"五层墙面开裂乙"_s)};
    const std::vector<NoteLine> added = {PieceLine(u"五层墙面开裂丙"_s),
                                         PieceLine(u"三层梁底露筋丁"_s)};
    EXPECT_EQ(PairLines(removed, added).size(), 1U);
}

TEST(LinePairs, OfVeryManyLinesThoseAtTheSamePlaceArePaired) {
    std::vector<NoteLine> removed;
    std::vector<NoteLine> added;
    for (int i = 0; i < 3000; ++i) {
        removed.push_back(PieceLine(u"第%1处梁底露筋需要处理"_s.arg(i)));
        added.push_back(PieceLine(u"第%1处梁底露筋已经处理"_s.arg(i)));
    }
    EXPECT_EQ(PairLines(removed, added).size(), 3000U);
}

} // namespace
} // namespace toolkit
