// What became of a text, as a text to be read.
#pragma once

#include "toolkit/compare/NoteCompare.h"

#include <QTextDocument>

#include <set>
#include <vector>

class QTextCharFormat;
class QTextCursor;

namespace host {

/// Folders with the pictures of both versions, each with "/" at its end.
struct CompareFolders {
    QString from;
    QString to;
};

/// A place where the texts differ: lines that follow each other.
struct ChangedPlace {
    int firstBlock = 0;
    int lastBlock = 0;
};

/// One paragraph for each line, or for a long stretch of lines that stayed: that is a link "fold:"
/// with its first line's index. What was added is underlined, what was removed struck through, on
/// grounds of their own. Pictures are decoded when they are seen, no larger than they are shown.
/// Thread: user interface.
class CompareDocument final : public QTextDocument {
    Q_OBJECT

public:
    /// @param ratio  device pixels of the screen to each of its own.
    CompareDocument(CompareFolders folders, qreal ratio, QObject* parent);

    /// @param open  first lines of the stretches that are shown all the same.
    void Write(const std::vector<toolkit::ComparedLine>& lines, const std::set<int>& open);

    [[nodiscard]] const std::vector<ChangedPlace>& Places() const { return m_places; }
    /// What became of the line that a paragraph shows; that of a fold stayed.
    [[nodiscard]] toolkit::LineChange ChangeOf(int block) const {
        return m_changes[std::size_t(block)];
    }

protected:
    QVariant loadResource(int type, const QUrl& name) override;

private:
    enum class Written { Nothing, Text, Picture };

    void WriteLine(QTextCursor& cursor, const toolkit::ComparedLine& line);
    void WritePiece(QTextCursor& cursor, const toolkit::TextPiece& piece,
                    const QTextCharFormat& look);
    void WriteText(QTextCursor& cursor, const QString& text, const QTextCharFormat& format);
    void WritePicture(QTextCursor& cursor, toolkit::PieceKind kind, const QString& name);
    /// Text and pictures of a line stand below each other: a picture makes its row high.
    void BreakBefore(QTextCursor& cursor, bool isPicture);
    void WriteFold(QTextCursor& cursor, int first, int count);
    void BeginBlock(QTextCursor& cursor, toolkit::LineChange change, const toolkit::NoteLine& look);

    const CompareFolders m_folders;
    const qreal m_ratio;
    std::vector<toolkit::LineChange> m_changes; ///< one for each paragraph
    std::vector<ChangedPlace> m_places;
    Written m_written = Written::Nothing; ///< last in the paragraph
};

/// The address of a fold, and the line that it begins with; -1 for another address.
[[nodiscard]] QString FoldAddress(int firstLine);
[[nodiscard]] int FoldAt(const QString& address);

} // namespace host
