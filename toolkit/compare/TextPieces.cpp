#include "toolkit/compare/TextPieces.h"

#include "toolkit/compare/EditPath.h"

#include <QHash>

#include <algorithm>
#include <array>
#include <utility>

namespace toolkit {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMostPieceEdits = 600;

/// A character or a word.
struct Token {
    qsizetype start = 0;
    qsizetype length = 0;
    int picture = -1; ///< index of its name
};

bool IsWordSign(char32_t sign) {
    static constexpr std::array kByCharacter = {QChar::Script_Han,      QChar::Script_Hiragana,
                                                QChar::Script_Katakana, QChar::Script_Hangul,
                                                QChar::Script_Thai,     QChar::Script_Lao};
    return QChar::isLetterOrNumber(sign) && std::find(kByCharacter.begin(), kByCharacter.end(),
                                                      QChar::script(sign)) == kByCharacter.end();
}

char32_t SignAt(const QString& text, qsizetype at) {
    if (text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate()) {
        return QChar::surrogateToUcs4(text[at], text[at + 1]);
    }
    return text[at].unicode();
}

std::vector<Token> TokensOf(const NoteLine& line) {
    std::vector<Token> tokens;
    bool isInWord = false;
    int picture = 0;
    for (qsizetype at = 0; at < line.text.size();) {
        const char32_t sign = SignAt(line.text, at);
        const qsizetype length = sign > 0xFFFF ? 2 : 1;
        const bool isPicture = sign == char32_t(QChar::ObjectReplacementCharacter);
        const bool isWord = IsWordSign(sign);
        // Accents and the like belong to what they stand on.
        const bool isMark = QChar::isMark(sign) && !tokens.empty() && tokens.back().picture < 0;
        if (isMark || (isWord && isInWord)) {
            tokens.back().length += length;
        } else {
            tokens.push_back({at, length, isPicture ? picture++ : -1});
            isInWord = isWord;
        }
        at += length;
    }
    return tokens;
}

/// Equal tokens of both lines get equal numbers.
class TokenNumbers {
public:
    std::vector<int> Of(const NoteLine& line, const std::vector<Token>& tokens) {
        std::vector<int> numbers;
        numbers.reserve(tokens.size());
        for (const Token& token : tokens) {
            QString key = line.text.sliced(token.start, token.length);
            if (token.picture >= 0) {
                key += line.pictures.value(token.picture);
            }
            const auto known = m_numbers.constFind(key);
            const int number = known != m_numbers.cend() ? *known : int(m_numbers.size());
            m_numbers.insert(key, number);
            numbers.push_back(number);
        }
        return numbers;
    }

private:
    QHash<QString, int> m_numbers;
};

/// A line, its tokens, and how far the pieces have come.
struct Side {
    explicit Side(const NoteLine& itsLine) : line(itsLine), tokens(TokensOf(itsLine)) {}

    /// The tokens up to one as a piece.
    [[nodiscard]] TextPiece TakeUpTo(int end, PieceKind kind) {
        TextPiece piece{kind, {}, {}};
        for (; next < end; ++next) {
            piece.text += QStringView(line.text).sliced(tokens[next].start, tokens[next].length);
            if (tokens[next].picture >= 0) {
                piece.pictures << line.pictures.value(tokens[next].picture);
            }
        }
        return piece;
    }

    const NoteLine& line;
    const std::vector<Token> tokens;
    int next = 0;
};

void AddPiece(std::vector<TextPiece>& pieces, TextPiece piece) {
    if (!piece.text.isEmpty()) {
        pieces.push_back(std::move(piece));
    }
}

/// One character that stayed by chance between two larger changes only makes them hard to read.
std::vector<CommonRun> WithoutCrumbs(const std::vector<CommonRun>& runs, const Side& from,
                                     const Side& to) {
    constexpr int kLarge = 4; // tokens that went or came
    std::vector<CommonRun> kept;
    for (std::size_t i = 0; i < runs.size(); ++i) {
        const CommonRun& run = runs[i];
        const CommonRun before = kept.empty() ? CommonRun() : kept.back();
        const CommonRun after = i + 1 < runs.size()
                                    ? runs[i + 1]
                                    : CommonRun{int(from.tokens.size()), int(to.tokens.size()), 0};
        const int changedBefore =
            run.from - before.from - before.count + run.to - before.to - before.count;
        const int changedAfter = after.from - run.from - run.count + after.to - run.to - run.count;
        const Token& first = from.tokens[run.from];
        const bool isCrumb = run.count == 1 && first.length == 1 && first.picture < 0 &&
                             changedBefore >= kLarge && changedAfter >= kLarge;
        if (!isCrumb) {
            kept.push_back(run);
        }
    }
    return kept;
}

} // namespace

std::vector<TextPiece> ComparePieces(const NoteLine& from, const NoteLine& to) {
    Side old(from);
    Side fresh(to);
    TokenNumbers numbers;
    const std::vector<int> oldNumbers = numbers.Of(from, old.tokens);
    const std::vector<int> newNumbers = numbers.Of(to, fresh.tokens);
    std::vector<CommonRun> runs =
        WithoutCrumbs(CommonRuns(oldNumbers, newNumbers, kMostPieceEdits), old, fresh);
    runs.push_back({int(old.tokens.size()), int(fresh.tokens.size()), 0});
    std::vector<TextPiece> pieces;
    for (const CommonRun& run : runs) {
        AddPiece(pieces, old.TakeUpTo(run.from, PieceKind::Removed));
        AddPiece(pieces, fresh.TakeUpTo(run.to, PieceKind::Added));
        old.next += run.count;
        AddPiece(pieces, fresh.TakeUpTo(run.to + run.count, PieceKind::Same));
    }
    return pieces;
}

std::vector<TextPiece> WholePiece(const NoteLine& line, PieceKind kind) {
    std::vector<TextPiece> pieces;
    AddPiece(pieces, {kind, line.text, line.pictures});
    return pieces;
}

} // namespace toolkit
