// What became of a rich text between two versions.
#pragma once

#include "toolkit/compare/NoteLines.h"

#include <vector>

namespace toolkit {

enum class PieceKind { Same, Added, Removed };

/// A part of a line.
struct TextPiece {
    PieceKind kind = PieceKind::Same;
    QString text;         ///< U+FFFC for each picture
    QStringList pictures; ///< their names

    friend bool operator==(const TextPiece&, const TextPiece&) = default;
};

enum class LineChange {
    Same,
    Added,
    Removed,
    Changed,  ///< its text or pictures
    Reshaped, ///< its format alone
};

/// A line of the new text, or one of the old that is gone.
struct ComparedLine {
    LineChange change = LineChange::Same;
    NoteLine line;                 ///< the new one, the old one where it was removed
    std::vector<TextPiece> pieces; ///< all of its text; only a changed line has several kinds
};

/// How many lines and pictures; blank lines that came or went are counted by themselves.
struct DifferenceCounts {
    int added = 0;
    int removed = 0;
    int changed = 0;
    int reshaped = 0;
    int blank = 0;
    int picturesAdded = 0;
    int picturesRemoved = 0;

    friend bool operator==(const DifferenceCounts&, const DifferenceCounts&) = default;
};

/// All lines of both texts in their order. The pieces that are same or removed make up the old
/// text, those that are same or added the new one. Lines that were removed and added at one place
/// and are alike become changed ones; these are compared by characters, words of other than
/// East Asian scripts as wholes. A picture is a character that is known by its name.
/// Thread: any. Time: linear in the length, save for a bounded search (CommonRuns).
[[nodiscard]] std::vector<ComparedLine> CompareNotes(const std::vector<NoteLine>& from,
                                                     const std::vector<NoteLine>& to);

[[nodiscard]] DifferenceCounts CountsOf(const std::vector<ComparedLine>& lines);

inline const QString kSameContent = QStringLiteral("两个版本的内容相同。");

/// "新增 3 段，删除 1 段，修改 2 段，仅格式变化 1 段，图片新增 1 张、删除 0 张"; what there is
/// none of is left out. kSameContent for no difference.
[[nodiscard]] QString SummaryText(const DifferenceCounts& counts);

} // namespace toolkit
