#include "toolkit/compare/NoteCompare.h"

#include "toolkit/compare/EditPath.h"
#include "toolkit/compare/LinePairs.h"
#include "toolkit/compare/TextPieces.h"

#include <QHash>

#include <span>

namespace toolkit {

using namespace Qt::StringLiterals;

namespace {

/// Lines with the same text and pictures get the same number, whatever their format.
class LineNumbers {
public:
    std::vector<int> Of(const std::vector<NoteLine>& lines) {
        std::vector<int> numbers;
        numbers.reserve(lines.size());
        for (const NoteLine& line : lines) {
            const QString key = line.pictures.isEmpty()
                                    ? line.text
                                    : line.text + QChar(0) + line.pictures.join(QChar(0));
            const auto known = m_numbers.constFind(key);
            const int number = known != m_numbers.cend() ? *known : int(m_numbers.size());
            if (known == m_numbers.cend()) {
                m_numbers.insert(key, number);
            }
            numbers.push_back(number);
        }
        return numbers;
    }

private:
    QHash<QString, int> m_numbers;
};

/// Puts the lines of both texts one after the other.
class LineMerger {
public:
    LineMerger(std::span<const NoteLine> from, std::span<const NoteLine> to)
        : m_from(from), m_to(to) {}

    /// What differs up to a place on both sides.
    void TakeDifferent(int fromEnd, int toEnd) {
        const auto removed = m_from.subspan(m_old, fromEnd - m_old);
        const auto added = m_to.subspan(m_new, toEnd - m_new);
        const int oldStart = m_old;
        const int newStart = m_new;
        for (const auto& [gone, come] : PairLines(removed, added)) {
            TakeUnpaired(oldStart + gone, newStart + come);
            lines.push_back(
                {LineChange::Changed, m_to[m_new], ComparePieces(m_from[m_old], m_to[m_new])});
            ++m_old;
            ++m_new;
        }
        TakeUnpaired(fromEnd, toEnd);
    }

    void TakeCommon(int count) {
        for (int i = 0; i < count; ++i, ++m_old, ++m_new) {
            const bool isSame = m_from[m_old].form == m_to[m_new].form;
            lines.push_back({isSame ? LineChange::Same : LineChange::Reshaped, m_to[m_new],
                             WholePiece(m_to[m_new], PieceKind::Same)});
        }
    }

    std::vector<ComparedLine> lines;

private:
    void TakeUnpaired(int fromEnd, int toEnd) {
        for (; m_old < fromEnd; ++m_old) {
            lines.push_back({LineChange::Removed, m_from[m_old],
                             WholePiece(m_from[m_old], PieceKind::Removed)});
        }
        for (; m_new < toEnd; ++m_new) {
            lines.push_back(
                {LineChange::Added, m_to[m_new], WholePiece(m_to[m_new], PieceKind::Added)});
        }
    }

    const std::span<const NoteLine> m_from;
    const std::span<const NoteLine> m_to;
    int m_old = 0;
    int m_new = 0;
};

void CountPictures(const ComparedLine& line, DifferenceCounts& counts) {
    for (const TextPiece& piece : line.pieces) {
        if (piece.kind == PieceKind::Added) {
            counts.picturesAdded += int(piece.pictures.size());
        } else if (piece.kind == PieceKind::Removed) {
            counts.picturesRemoved += int(piece.pictures.size());
        }
    }
}

} // namespace

std::vector<ComparedLine> CompareNotes(const std::vector<NoteLine>& from,
                                       const std::vector<NoteLine>& to) {
    LineNumbers numbers;
    const std::vector<int> oldNumbers = numbers.Of(from);
    const std::vector<int> newNumbers = numbers.Of(to);
    LineMerger merger(from, to);
    for (const CommonRun& run : CommonRuns(oldNumbers, newNumbers)) {
        merger.TakeDifferent(run.from, run.to);
        merger.TakeCommon(run.count);
    }
    merger.TakeDifferent(int(from.size()), int(to.size()));
    return std::move(merger.lines);
}

DifferenceCounts CountsOf(const std::vector<ComparedLine>& lines) {
    DifferenceCounts counts;
    for (const ComparedLine& line : lines) {
        CountPictures(line, counts);
        const bool isBlank = IsBlank(line.line);
        switch (line.change) {
        case LineChange::Same:
            break;
        case LineChange::Added:
            ++(isBlank ? counts.blank : counts.added);
            break;
        case LineChange::Removed:
            ++(isBlank ? counts.blank : counts.removed);
            break;
        case LineChange::Changed:
            ++counts.changed;
            break;
        case LineChange::Reshaped:
            ++counts.reshaped;
            break;
        }
    }
    return counts;
}

QString SummaryText(const DifferenceCounts& counts) {
    QStringList parts;
    const auto add = [&parts](const QString& caption, int count) {
        if (count > 0) {
            parts << u"%1 %2 段"_s.arg(caption).arg(count);
        }
    };
    add(u"新增"_s, counts.added);
    add(u"删除"_s, counts.removed);
    add(u"修改"_s, counts.changed);
    add(u"仅格式变化"_s, counts.reshaped);
    if (counts.picturesAdded + counts.picturesRemoved > 0) {
        parts << u"图片新增 %1 张、删除 %2 张"_s.arg(counts.picturesAdded)
                     .arg(counts.picturesRemoved);
    }
    if (parts.isEmpty()) {
        return counts.blank > 0 ? u"仅空行有变化"_s : kSameContent;
    }
    return parts.join(u"，"_s);
}

} // namespace toolkit
