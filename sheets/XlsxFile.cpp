#include "sheets/XlsxFile.h"

#include "sheets/SheetFault.h"
#include "sheets/SheetText.h"
#include "sheets/ZipCheck.h"

#include <QFile>

#include <xlsxwriter.h>

#include <algorithm>
#include <cstdio>
#include <utility>

namespace sheets {

using namespace Qt::StringLiterals;

namespace {

/// Of a row with a small picture, and of the header, points.
constexpr double kPictureRow = 76;
constexpr double kHeaderRow = 22;
constexpr double kLine = 15;         ///< of a row, points
constexpr int kMostLines = 12;       ///< the rest of a longer text is read in its cell
constexpr int kPictureWidth = 20;    ///< digits
constexpr int kPictureMargin = 2;    ///< pixels
constexpr double kUnixEpoch = 25569; ///< 1970-01-01 as spreadsheets count days
constexpr double kSecondsOfDay = 86'400;
constexpr lxw_color_t kHeaderGround = 0xE8EEF5;
constexpr auto kNoPicture = "无图片";
constexpr auto kLostPicture = "图片缺失";
constexpr auto kOneTooMany = "图片过多，未附上";

lxw_col_t Column(int at) {
    return static_cast<lxw_col_t>(at);
}

lxw_row_t Row(qint64 at) {
    return static_cast<lxw_row_t>(at);
}

} // namespace

struct XlsxFile::CellWriter {
    XlsxFile& file;
    int column;

    void operator()(const QString& text) const {
        if (text.isEmpty()) {
            return;
        }
        file.m_notes.cutTexts += WriteCellText(text, file.m_utf8) ? 1 : 0;
        worksheet_write_string(file.m_sheet, Row(file.m_row), Column(column),
                               file.m_utf8.constData(), file.m_text);
    }
    void operator()(qint64 number) const {
        worksheet_write_number(file.m_sheet, Row(file.m_row), Column(column), double(number),
                               file.m_number);
    }
    void operator()(SheetTime time) const {
        worksheet_write_number(file.m_sheet, Row(file.m_row), Column(column),
                               kUnixEpoch + double(time.wallSeconds) / kSecondsOfDay, file.m_time);
    }
    void operator()(const SheetPicture& picture) const { file.PutPicture(column, picture); }
};

void XlsxFile::Discard::operator()(lxw_workbook* book) const {
    // Which the library only closes as it packs the book.
    lxw_worksheet* sheet = nullptr;
    STAILQ_FOREACH(sheet, book->worksheets, list_pointers) {
        if (FILE* rows = std::exchange(sheet->optimize_tmpfile, nullptr)) {
            std::fclose(rows);
        }
    }
    lxw_workbook_free(book);
}

XlsxFile::XlsxFile(const QString& path, XlsxOptions settings)
    : m_target(path), m_options(std::move(settings)) {}

XlsxFile::~XlsxFile() = default;

void XlsxFile::Begin(const SheetLayout& layout) {
    m_target.Open();
    if (!m_folder.isValid()) {
        m_target.Fail(u"系统的临时文件夹不能写入"_s);
    }
    m_layout = layout;
    const QByteArray book = QFile::encodeName(BookPath());
    QByteArray folder = QFile::encodeName(m_folder.path());
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    options.tmpdir = folder.data();
    m_book.reset(workbook_new_opt(book.constData(), &options));
    if (!m_book) {
        m_target.Fail(u"不能建立工作簿"_s);
    }
    MakeFormats();
    AddSheet();
}

void XlsxFile::MakeFormats() {
    const auto make = [this](lxw_format_alignments align) {
        lxw_format* format = workbook_add_format(m_book.get());
        format_set_align(format, static_cast<uint8_t>(align));
        format_set_align(format, LXW_ALIGN_VERTICAL_CENTER);
        return format;
    };
    m_header = make(LXW_ALIGN_CENTER);
    format_set_bold(m_header);
    format_set_bg_color(m_header, kHeaderGround);
    format_set_bottom(m_header, LXW_BORDER_THIN);
    m_text = make(LXW_ALIGN_LEFT);
    format_set_text_wrap(m_text);
    m_number = make(LXW_ALIGN_CENTER);
    m_time = make(LXW_ALIGN_CENTER);
    format_set_num_format(m_time, "yyyy-mm-dd hh:mm");
}

void XlsxFile::AddSheet() {
    const QString name =
        m_notes.sheets == 1 ? m_layout.title : u"%1 (%2)"_s.arg(m_layout.title).arg(m_notes.sheets);
    m_sheet = workbook_add_worksheet(m_book.get(), name.toUtf8().constData());
    if (m_sheet == nullptr || m_sheet->optimize_tmpfile == nullptr) {
        m_target.Fail(u"不能建立工作表"_s);
    }
    worksheet_freeze_panes(m_sheet, 1, 0);
    if (m_options.pictureOf) {
        worksheet_set_default_row(m_sheet, kPictureRow, LXW_FALSE);
    }
    worksheet_set_row(m_sheet, 0, kHeaderRow, nullptr);
    for (int at = 0; at < int(m_layout.columns.size()); ++at) {
        const SheetColumn& column = m_layout.columns[size_t(at)];
        const bool isPicture = column.kind == CellKind::Picture;
        worksheet_set_column(m_sheet, Column(at), Column(at),
                             isPicture ? kPictureWidth : column.width, nullptr);
        worksheet_write_string(m_sheet, 0, Column(at), column.title.toUtf8().constData(), m_header);
    }
    // Each sheet prints on the width of a page, under its header.
    worksheet_set_landscape(m_sheet);
    worksheet_set_paper(m_sheet, 9); // A4
    worksheet_fit_to_pages(m_sheet, 1, 0);
    worksheet_repeat_rows(m_sheet, 0, 0);
    worksheet_gridlines(m_sheet, LXW_SHOW_ALL_GRIDLINES);
    m_row = 0;
}

void XlsxFile::EndSheet() {
    if (!m_layout.columns.empty()) {
        worksheet_autofilter(m_sheet, 0, 0, Row(m_row), Column(int(m_layout.columns.size()) - 1));
    }
    std::fflush(m_sheet->optimize_tmpfile);
    RequireRoom();
}

void XlsxFile::RequireRoom() const {
    // The library doesn't look at what its writes answer.
    if (std::ferror(m_sheet->optimize_tmpfile) != 0) {
        m_target.Fail(u"写入临时文件失败"_s);
    }
}

void XlsxFile::Add(const SheetRow& row) {
    if (m_row == m_options.rowsPerSheet) {
        EndSheet();
        ++m_notes.sheets;
        AddSheet();
    }
    ++m_row;
    SetHeight(row);
    for (int at = 0; at < int(row.size()); ++at) {
        std::visit(CellWriter{*this, at}, row[size_t(at)]);
    }
    ++m_notes.rows;
    RequireRoom();
}

void XlsxFile::SetHeight(const SheetRow& row) {
    int lines = 1;
    for (size_t at = 0; at < row.size(); ++at) {
        if (const auto* text = std::get_if<QString>(&row[at])) {
            // A little of the width is the cell's margin.
            lines = std::max(lines, LinesIn(*text, m_layout.columns[at].width - 1, kMostLines));
        }
    }
    // Rows with pictures have room for some lines, and differing heights make each picture dearer
    // than the one before. Not every program finds the height itself.
    const double room = m_options.pictureOf ? kPictureRow : kLine;
    if (lines * kLine > room) {
        worksheet_set_row(m_sheet, Row(m_row), lines * kLine, nullptr);
    }
}

void XlsxFile::PutWord(int column, const char* word) {
    worksheet_write_string(m_sheet, Row(m_row), Column(column), word, m_number);
}

void XlsxFile::PutPicture(int column, const SheetPicture& picture) {
    if (!m_options.pictureOf) {
        return;
    }
    if (picture.uuid.isEmpty()) {
        PutWord(column, kNoPicture);
        return;
    }
    if (m_pictures == m_options.mostPictures) {
        ++m_notes.leftOutPictures;
        PutWord(column, kOneTooMany);
        return;
    }
    const QByteArray jpeg = m_options.pictureOf(picture);
    if (jpeg.isEmpty()) {
        ++m_notes.missingPictures;
        PutWord(column, kLostPicture);
        return;
    }
    // As a file: what is handed over as bytes stays in memory until the book is packed.
    QFile small(m_folder.filePath(u"%1.jpg"_s.arg(m_pictures)));
    if (!small.open(QIODevice::WriteOnly) || small.write(jpeg) != jpeg.size() || !small.flush()) {
        m_target.Fail(u"写入临时文件失败"_s);
    }
    lxw_image_options place{};
    place.x_offset = kPictureMargin;
    place.y_offset = kPictureMargin;
    place.object_position = LXW_OBJECT_MOVE_AND_SIZE; // hides with its row
    const QByteArray path = QFile::encodeName(small.fileName());
    if (worksheet_insert_image_opt(m_sheet, Row(m_row), Column(column), path.constData(), &place) !=
        LXW_NO_ERROR) {
        ++m_notes.missingPictures;
        PutWord(column, kLostPicture);
        return;
    }
    ++m_pictures;
}

void XlsxFile::Pack() {
    // Frees the book, whatever comes of it.
    if (workbook_close(m_book.release()) != LXW_NO_ERROR || !IsWholeWorkbook(BookPath())) {
        m_target.Fail(u"生成工作簿失败"_s);
    }
}

void XlsxFile::CopyToTarget(const std::atomic<bool>& cancelled) {
    constexpr qint64 kBlock = 256 * 1024;
    QFile book(BookPath());
    if (!book.open(QIODevice::ReadOnly)) {
        m_target.Fail(u"读取临时文件失败"_s);
    }
    for (qint64 left = book.size(); left > 0;) {
        if (cancelled) {
            throw SheetCancelled();
        }
        const QByteArray bytes = book.read(kBlock);
        if (bytes.isEmpty()) {
            m_target.Fail(u"读取临时文件失败"_s);
        }
        m_target.Write(bytes);
        left -= bytes.size();
    }
}

SheetNotes XlsxFile::End(const std::atomic<bool>& cancelled) {
    EndSheet();
    if (cancelled) {
        throw SheetCancelled();
    }
    Pack();
    CopyToTarget(cancelled);
    if (cancelled) {
        throw SheetCancelled();
    }
    m_target.Commit();
    return m_notes;
}

} // namespace sheets
