#include "host/ui/rich/CompareDocument.h"

#include "toolkit/Look.h"
#include "toolkit/media/PictureFile.h"
#include "toolkit/richtext/NoteDocument.h"

#include <QPainter>
#include <QTextBlockFormat>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextImageFormat>
#include <QUrl>

#include <algorithm>
#include <array>
#include <utility>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// Largest side lengths of a picture, device-independent pixels.
constexpr QSize kLargestPicture(320, 240);
constexpr QSize kLostPicture(160, 60);
/// Lines around a change that are shown, and how many more are worth a fold.
constexpr int kAround = 2;
constexpr int kLeastFolded = 4;

const QString kFoldScheme = u"fold:"_s;

/// How a kind of pieces looks, and how its pictures are addressed.
struct PieceLook {
    QColor text;
    QColor ground;
    QString scheme;
    QString word; ///< beside its pictures
};

const PieceLook& LookOf(toolkit::PieceKind kind) {
    static const std::array<PieceLook, 3> looks{{
        {toolkit::Colors::Text(), {}, u"same:"_s, {}},
        {QColor(0x0F, 0x4D, 0x23), QColor(0xD8, 0xF3, 0xDE), u"added:"_s, u"新增图片"_s},
        {QColor(0x8A, 0x1C, 0x1C), QColor(0xFC, 0xDF, 0xDF), u"removed:"_s, u"删除图片"_s},
    }};
    return looks[std::size_t(kind)];
}

QTextCharFormat PieceFormat(toolkit::PieceKind kind, const QTextCharFormat& look) {
    QTextCharFormat format = look;
    format.setForeground(LookOf(kind).text);
    if (LookOf(kind).ground.isValid()) {
        format.setBackground(LookOf(kind).ground);
    }
    format.setFontUnderline(kind == toolkit::PieceKind::Added);
    format.setFontStrikeOut(kind == toolkit::PieceKind::Removed);
    return format;
}

QTextCharFormat HintFormat() {
    QTextCharFormat format;
    format.setForeground(toolkit::Colors::HintText());
    return format;
}

/// Headings are told from running text, no more.
QTextCharFormat LineFormat(const toolkit::NoteLine& line) {
    QTextCharFormat format;
    if (line.heading > 0) {
        QFont font = toolkit::UiFont(std::max(12, 18 - 2 * line.heading));
        font.setBold(true);
        format.setFont(font);
    }
    return format;
}

QColor FrameOf(const QString& scheme) {
    for (const toolkit::PieceKind kind : {toolkit::PieceKind::Added, toolkit::PieceKind::Removed}) {
        if (scheme == LookOf(kind).scheme) {
            return LookOf(kind).text;
        }
    }
    return toolkit::Colors::Frame();
}

QImage LostPicture() {
    // The document's own frame that says so.
    toolkit::NoteDocument document(QString(), nullptr);
    return document.resource(QTextDocument::ImageResource, QUrl(u"-"_s)).value<QImage>();
}

QSize ShownSize(const QString& path) {
    const QSize size = path.isEmpty() ? QSize() : toolkit::ReadPictureSize(path);
    if (size.isEmpty()) {
        return kLostPicture;
    }
    const QSize most = size.boundedTo(kLargestPicture);
    return size.scaled(most, Qt::KeepAspectRatio).expandedTo(QSize(8, 8));
}

/// A picture's path by its name; empty for what is none of the folder.
QString PathOf(const QString& folder, const QString& name) {
    return toolkit::IsStoreName(name) ? folder + name : QString();
}

} // namespace

QString FoldAddress(int firstLine) {
    return kFoldScheme + QString::number(firstLine);
}

int FoldAt(const QString& address) {
    bool isNumber = false;
    const int line =
        address.startsWith(kFoldScheme) ? address.mid(kFoldScheme.size()).toInt(&isNumber) : -1;
    return isNumber ? line : -1;
}

CompareDocument::CompareDocument(CompareFolders folders, qreal ratio, QObject* parent)
    : QTextDocument(parent), m_folders(std::move(folders)), m_ratio(ratio) {
    setDefaultFont(toolkit::UiFont());
    setUndoRedoEnabled(false);
    setIndentWidth(20);
    setDocumentMargin(12);
}

void CompareDocument::Write(const std::vector<toolkit::ComparedLine>& lines,
                            const std::set<int>& open) {
    clear();
    m_changes.clear();
    m_places.clear();
    QTextCursor cursor(this);
    cursor.beginEditBlock();
    const int count = int(lines.size());
    for (int i = 0; i < count;) {
        int end = i;
        while (end < count && lines[end].change == toolkit::LineChange::Same) {
            ++end;
        }
        // Beside a change on either side some of the lines stay in sight.
        const int first = i == 0 ? 0 : i + kAround;
        const int last = end == count ? count : end - kAround;
        const bool isFolded = last - first >= kLeastFolded && !open.contains(first);
        for (; i < (isFolded ? first : end); ++i) {
            WriteLine(cursor, lines[i]);
        }
        if (isFolded) {
            WriteFold(cursor, first, last - first);
            for (i = last; i < end; ++i) {
                WriteLine(cursor, lines[i]);
            }
        }
        const int firstBlock = int(m_changes.size());
        for (; i < count && lines[i].change != toolkit::LineChange::Same; ++i) {
            WriteLine(cursor, lines[i]);
        }
        if (firstBlock < int(m_changes.size())) {
            m_places.push_back({firstBlock, int(m_changes.size()) - 1});
        }
    }
    cursor.endEditBlock();
}

void CompareDocument::BeginBlock(QTextCursor& cursor, toolkit::LineChange change,
                                 const toolkit::NoteLine& look) {
    QTextBlockFormat format;
    format.setIndent(look.indent);
    format.setTopMargin(look.heading > 0 ? 6 : 2);
    format.setBottomMargin(2);
    if (m_changes.empty()) {
        cursor.setBlockFormat(format);
    } else {
        cursor.insertBlock(format, QTextCharFormat());
    }
    m_changes.push_back(change);
    m_written = Written::Nothing;
}

void CompareDocument::WriteLine(QTextCursor& cursor, const toolkit::ComparedLine& line) {
    BeginBlock(cursor, line.change, line.line);
    if (!line.line.mark.isEmpty()) {
        WriteText(cursor, line.line.mark + u' ', HintFormat());
    }
    const QTextCharFormat look = LineFormat(line.line);
    for (const toolkit::TextPiece& piece : line.pieces) {
        WritePiece(cursor, piece, look);
    }
    const bool isAdded = line.change == toolkit::LineChange::Added;
    if ((isAdded || line.change == toolkit::LineChange::Removed) && toolkit::IsBlank(line.line)) {
        cursor.insertText(
            u"（空行）"_s,
            PieceFormat(isAdded ? toolkit::PieceKind::Added : toolkit::PieceKind::Removed, look));
    }
    if (line.change == toolkit::LineChange::Reshaped) {
        cursor.insertText(u"　格式有变化"_s, HintFormat());
    }
}

void CompareDocument::WritePiece(QTextCursor& cursor, const toolkit::TextPiece& piece,
                                 const QTextCharFormat& look) {
    const QTextCharFormat format = PieceFormat(piece.kind, look);
    qsizetype from = 0;
    for (const QString& picture : piece.pictures) {
        const qsizetype at = piece.text.indexOf(QChar::ObjectReplacementCharacter, from);
        WriteText(cursor, piece.text.sliced(from, at - from), format);
        WritePicture(cursor, piece.kind, picture);
        from = at + 1;
    }
    WriteText(cursor, piece.text.sliced(from), format);
}

void CompareDocument::WriteText(QTextCursor& cursor, const QString& text,
                                const QTextCharFormat& format) {
    if (!text.isEmpty()) {
        BreakBefore(cursor, false);
        cursor.insertText(text, format);
    }
}

void CompareDocument::BreakBefore(QTextCursor& cursor, bool isPicture) {
    const Written next = isPicture ? Written::Picture : Written::Text;
    if (m_written != Written::Nothing && m_written != next) {
        cursor.insertText(QString(QChar::LineSeparator), QTextCharFormat());
    }
    m_written = next;
}

void CompareDocument::WritePicture(QTextCursor& cursor, toolkit::PieceKind kind,
                                   const QString& name) {
    const PieceLook& look = LookOf(kind);
    const QString& folder = kind == toolkit::PieceKind::Removed ? m_folders.from : m_folders.to;
    const QSize size = ShownSize(PathOf(folder, name));
    QTextImageFormat format;
    format.setName(look.scheme + name);
    format.setWidth(size.width());
    format.setHeight(size.height());
    BreakBefore(cursor, true);
    cursor.insertImage(format);
    QTextCharFormat word;
    word.setForeground(look.text);
    cursor.insertText(u' ' + look.word + u' ', word);
}

void CompareDocument::WriteFold(QTextCursor& cursor, int first, int count) {
    BeginBlock(cursor, toolkit::LineChange::Same, {});
    QTextCharFormat format;
    format.setAnchor(true);
    format.setAnchorHref(FoldAddress(first));
    format.setForeground(toolkit::Colors::Link());
    format.setToolTip(u"单击展开"_s);
    cursor.insertText(u"……（未变化 %1 段）"_s.arg(count), format);
}

QVariant CompareDocument::loadResource(int type, const QUrl& name) {
    // Nothing else is ever read, from wherever it is.
    if (type != ImageResource) {
        return {};
    }
    const QString address = name.toString();
    const QString scheme = address.section(u':', 0, 0) + u':';
    const bool isOld = scheme == LookOf(toolkit::PieceKind::Removed).scheme;
    const QString path = PathOf(isOld ? m_folders.from : m_folders.to, address.mid(scheme.size()));
    QImage image;
    if (!path.isEmpty()) {
        image = toolkit::DecodePicture({path, {}, ShownSize(path) * m_ratio, Qt::white});
    }
    if (image.isNull()) {
        image = LostPicture();
    }
    QPainter painter(&image);
    const int width = scheme == LookOf(toolkit::PieceKind::Same).scheme ? 1 : 3;
    painter.setPen(
        QPen(FrameOf(scheme), width * m_ratio, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    const qreal half = width * m_ratio / 2;
    painter.drawRect(QRectF(image.rect()).adjusted(half, half, -half, -half));
    painter.end();
    addResource(ImageResource, name, image);
    return image;
}

} // namespace host
