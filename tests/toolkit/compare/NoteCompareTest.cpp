// What became of a rich text.
#include "toolkit/compare/NoteCompare.h"

#include <QTextDocument>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <random>

namespace toolkit {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

using Lines = std::vector<NoteLine>;

NoteLine LineOf(const QString& text, const QByteArray& form = "p") {
    NoteLine line;
    line.text = text;
    line.form = form;
    return line;
}

Lines LinesOfTexts(const QStringList& texts) {
    Lines lines;
    for (const QString& text : texts) {
        lines.push_back(LineOf(text));
    }
    return lines;
}

Lines LinesOfHtml(const QString& html) {
    QTextDocument document;
    document.setHtml(html);
    return LinesOf(document);
}

std::vector<LineChange> ChangesOf(const std::vector<ComparedLine>& compared) {
    std::vector<LineChange> changes;
    for (const ComparedLine& line : compared) {
        changes.push_back(line.change);
    }
    return changes;
}

/// The lines that are there but for those of one kind, put together out of their pieces.
QStringList Rebuilt(const std::vector<ComparedLine>& compared, LineChange without,
                    PieceKind withoutPiece) {
    QStringList texts;
    for (const ComparedLine& line : compared) {
        if (line.change == without) {
            continue;
        }
        QString text;
        for (const TextPiece& piece : line.pieces) {
            if (piece.kind != withoutPiece) {
                int picture = 0;
                for (const QChar sign : piece.text) {
                    text += sign == QChar::ObjectReplacementCharacter
                                ? u'<' + piece.pictures.value(picture++) + u'>'
                                : QString(sign);
                }
                EXPECT_EQ(picture, piece.pictures.size());
            }
        }
        texts << text;
    }
    return texts;
}

QStringList Written(const Lines& lines) {
    QStringList texts;
    for (const NoteLine& line : lines) {
        QString text;
        int picture = 0;
        for (const QChar sign : line.text) {
            text += sign == QChar::ObjectReplacementCharacter
                        ? u'<' + line.pictures.value(picture++) + u'>'
                        : QString(sign);
        }
        texts << text;
    }
    return texts;
}

void ExpectBothTextsIn(const std::vector<ComparedLine>& compared, const Lines& from,
                       const Lines& to) {
    EXPECT_EQ(Rebuilt(compared, LineChange::Added, PieceKind::Added), Written(from));
    EXPECT_EQ(Rebuilt(compared, LineChange::Removed, PieceKind::Removed), Written(to));
}

TEST(NoteCompare, EqualTextsAreTheSame) {
    const Lines lines = LinesOfTexts({u"甲"_s, u"乙"_s});
    const auto compared = CompareNotes(lines, lines);
    EXPECT_THAT(ChangesOf(compared), ElementsAre(LineChange::Same, LineChange::Same));
    EXPECT_EQ(SummaryText(CountsOf(compared)), u"两个版本的内容相同。");
    EXPECT_THAT(CompareNotes({}, {}), IsEmpty());
}

TEST(NoteCompare, TheFirstVersionIsAddedWholly) {
    const auto compared = CompareNotes({}, LinesOfTexts({u"甲"_s, u"乙"_s}));
    EXPECT_THAT(ChangesOf(compared), ElementsAre(LineChange::Added, LineChange::Added));
    EXPECT_EQ(SummaryText(CountsOf(compared)), u"新增 2 段");
}

TEST(NoteCompare, TellsAddedRemovedChangedAndReshapedLines) {
    Lines from = LinesOfTexts({u"一样"_s, u"去掉的这一行"_s, u"三层梁底露筋"_s, u"格式"_s});
    Lines to = LinesOfTexts({u"一样"_s, u"三层梁底已修补"_s, u"格式"_s, u"新来"_s});
    to[2].form = "b";
    const auto compared = CompareNotes(from, to);
    EXPECT_THAT(ChangesOf(compared),
                ElementsAre(LineChange::Same, LineChange::Removed, LineChange::Changed,
                            LineChange::Reshaped, LineChange::Added));
    ExpectBothTextsIn(compared, from, to);
    EXPECT_EQ(SummaryText(CountsOf(compared)), u"新增 1 段，删除 1 段，修改 1 段，仅格式变化 1 段");
    EXPECT_EQ(compared[1].line.text, u"去掉的这一行");
    EXPECT_EQ(compared[2].line.text, u"三层梁底已修补");
}

TEST(NoteCompare, ANumberThatMovedOnIsNoChange) {
    const auto compared =
        CompareNotes(LinesOfHtml(u"<ol><li>甲</li><li>乙</li></ol>"_s),
                     LinesOfHtml(u"<ol><li>新来的</li><li>甲</li><li>乙</li></ol>"_s));
    EXPECT_THAT(ChangesOf(compared),
                ElementsAre(LineChange::Added, LineChange::Same, LineChange::Same));
    EXPECT_EQ(compared[2].line.mark, u"3.");
}

TEST(NoteCompare, PicturesAreCounted) {
    const Lines from = LinesOfHtml(u"<p>前后对比<img src='a.jpg'/></p><p>完</p>"_s);
    const Lines to =
        LinesOfHtml(u"<p>前后对比<img src='b.jpg'/></p><p>完</p><p><img src='c.jpg'/></p>"_s);
    const auto compared = CompareNotes(from, to);
    ExpectBothTextsIn(compared, from, to);
    EXPECT_EQ(SummaryText(CountsOf(compared)), u"新增 1 段，修改 1 段，图片新增 2 张、删除 1 张");
    EXPECT_EQ(SummaryText(CountsOf(CompareNotes(from, from))), kSameContent);
}

TEST(NoteCompare, TheWholeSummary) {
    EXPECT_EQ(SummaryText({3, 1, 2, 1, 0, 1, 0}),
              u"新增 3 段，删除 1 段，修改 2 段，仅格式变化 1 段，图片新增 1 张、删除 0 张");
}

TEST(NoteCompare, BlankLinesAloneAreToldAsThat) {
    const auto compared =
        CompareNotes(LinesOfTexts({u"甲"_s, u"乙"_s}), LinesOfTexts({u"甲"_s, u" "_s, u"乙"_s}));
    EXPECT_EQ(CountsOf(compared).blank, 1);
    EXPECT_EQ(CountsOf(compared).added, 0);
    EXPECT_EQ(SummaryText(CountsOf(compared)), u"仅空行有变化");
}

/// A text out of few words, and the same one after some random deeds.
class RandomNotes {
public:
    explicit RandomNotes(unsigned seed) : m_random(seed) {}

    Lines Make(int most) {
        Lines lines(m_random() % std::size_t(most + 1));
        std::generate(lines.begin(), lines.end(), [this] { return MakeLine(); });
        return lines;
    }
    Lines Edited(Lines lines) {
        for (int deeds = int(m_random() % 8); deeds > 0; --deeds) {
            const std::size_t at = m_random() % (lines.size() + 1);
            const bool isThere = at < lines.size();
            switch (m_random() % 5) {
            case 0:
                lines.insert(lines.begin() + std::ptrdiff_t(at), MakeLine());
                break;
            case 1:
                lines.erase(lines.begin() + std::ptrdiff_t(at),
                            lines.begin() + std::ptrdiff_t(at + (isThere ? 1 : 0)));
                break;
            case 2:
                std::reverse(lines.begin() + std::ptrdiff_t(at), lines.end());
                break;
            case 3:
                if (isThere) {
                    lines[at].form += 'x';
                }
                break;
            default:
                if (isThere) {
                    lines[at].text.insert(0, u"改𠮷"_s);
                }
            }
        }
        return lines;
    }

private:
    NoteLine MakeLine() {
        static const QStringList words = {u"梁底"_s, u"露筋"_s,     u"beam "_s, u"\uFFFC"_s,
                                          u"𠮷"_s,   u"已修补，"_s, u"KL-5 "_s, u" | "_s};
        NoteLine line = LineOf({});
        for (int count = int(m_random() % 9); count > 0; --count) {
            const QString& word = words[qsizetype(m_random() % std::size_t(words.size()))];
            if (word == u"\uFFFC"_s) {
                line.pictures << u"%1.jpg"_s.arg(m_random() % 3);
            }
            line.text += word;
        }
        return line;
    }

    std::mt19937 m_random;
};

TEST(NoteCompare, OfRandomTextsThePiecesAreAlwaysBothTexts) {
    RandomNotes notes(3);
    for (int round = 0; round < 400; ++round) {
        const Lines from = notes.Make(30);
        const Lines to = round % 3 == 0 ? notes.Make(30) : notes.Edited(from);
        const auto compared = CompareNotes(from, to);
        ExpectBothTextsIn(compared, from, to);
        if (testing::Test::HasFailure()) {
            FAIL() << "round " << round;
        }
        for (const ComparedLine& line : compared) {
            const bool hasKinds = std::any_of(
                line.pieces.begin(), line.pieces.end(),
                [&line](const TextPiece& piece) { return piece.kind != line.pieces[0].kind; });
            EXPECT_TRUE(!hasKinds || line.change == LineChange::Changed);
        }
    }
}

TEST(NoteCompare, BackwardsAsManyLinesComeAsWentForwards) {
    RandomNotes notes(4);
    for (int round = 0; round < 300; ++round) {
        const Lines from = notes.Make(30);
        const Lines to = notes.Edited(from);
        const auto there = CompareNotes(from, to);
        const auto back = CompareNotes(to, from);
        const auto count = [](const std::vector<ComparedLine>& compared, LineChange change) {
            return std::count_if(
                compared.begin(), compared.end(), [change](const ComparedLine& line) {
                    return line.change == change || line.change == LineChange::Changed;
                });
        };
        EXPECT_EQ(count(there, LineChange::Added), count(back, LineChange::Removed)) << round;
        EXPECT_EQ(count(there, LineChange::Removed), count(back, LineChange::Added)) << round;
    }
}

TEST(NoteCompare, NoPieceBeginsOrEndsWithinACharacter) {
    RandomNotes notes(5);
    for (int round = 0; round < 200; ++round) {
        const Lines from = notes.Make(20);
        for (const ComparedLine& line : CompareNotes(from, notes.Edited(from))) {
            for (const TextPiece& piece : line.pieces) {
                EXPECT_FALSE(piece.text.isEmpty());
                EXPECT_FALSE(piece.text.front().isLowSurrogate());
                EXPECT_FALSE(piece.text.back().isHighSurrogate());
            }
        }
    }
}

/// As many lines as 200 pages have, each of 40 characters or so.
Lines ManyLines(const QString& ending) {
    Lines lines;
    for (int i = 0; i < 8000; ++i) {
        lines.push_back(LineOf(
            u"第 %1 处：三层框架梁 KL-%2 底部露筋，长度约 %3 毫米，需要凿除松散混凝土后%4"_s.arg(i)
                .arg(i % 97)
                .arg(i * 31 % 5000)
                .arg(ending)));
    }
    return lines;
}

double SecondsOf(const Lines& from, const Lines& to, const char* name) {
    const auto start = std::chrono::steady_clock::now();
    const auto compared = CompareNotes(from, to);
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
    testing::Test::RecordProperty(name, std::to_string(took.count()));
    EXPECT_FALSE(compared.empty());
    return took.count();
}

// The bounds are for builds that check every access on a busy machine; those for users take a
// quarter of a second where every line differs.
TEST(NoteCompare, TwoHundredPagesTakeNoMoment) {
    const Lines from = ManyLines(u"修补。"_s);
    Lines some = from;
    for (std::size_t i = 0; i < some.size(); i += 40) {
        some[i].text.insert(10, u"改"_s);
    }
    EXPECT_LT(SecondsOf(from, some, "someLines"), 20);
    EXPECT_LT(SecondsOf(from, ManyLines(u"重新浇筑。"_s), "everyLine"), 20);
    Lines turned = from;
    std::reverse(turned.begin(), turned.end());
    EXPECT_LT(SecondsOf(from, turned, "reversed"), 20);
    EXPECT_LT(SecondsOf(from, LinesOfTexts({u"甲"_s}), "allGone"), 20);
}

} // namespace
} // namespace toolkit
