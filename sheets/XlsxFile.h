// A list as an Excel workbook.
#pragma once

#include "sheets/SheetFile.h"
#include "sheets/TargetFile.h"

#include <QTemporaryDir>

#include <memory>

struct lxw_format;
struct lxw_workbook;
struct lxw_worksheet;

namespace sheets {

struct XlsxOptions {
    /// Small pictures for the cells of pictures; none: such cells stay empty.
    PictureSource pictureOf;
    /// Below the header of one worksheet: what the form can hold.
    qint64 rowsPerSheet = 1'048'575;
    /// The library takes longer for each further one; the cells behind say that it is left out.
    qint64 mostPictures = 10'000;
};

/// Office Open XML: texts always as strings (nothing is a formula or a link), times as date-times
/// in the form yyyy-mm-dd hh:mm, a bold header that stays in sight and filters. Where one worksheet
/// is full a next one goes on, under the same header. Rows go to a file in the system's folder for
/// temporary files at once; the workbook is packed there, looked at, and copied over the target.
/// Memory doesn't grow with the rows, but by what names its place for each picture.
class XlsxFile final : public ISheetFile {
public:
    XlsxFile(const QString& path, XlsxOptions settings);
    ~XlsxFile() override;

    void Begin(const SheetLayout& layout) override;
    void Add(const SheetRow& row) override;
    /// Packing can't be interrupted: seconds for a hundred thousand rows.
    [[nodiscard]] SheetNotes End(const std::atomic<bool>& cancelled) override;

private:
    /// Frees the library's own, in which case nothing was packed.
    struct Discard {
        void operator()(lxw_workbook* book) const;
    };
    struct CellWriter;

    void AddSheet();
    void EndSheet();
    void MakeFormats();
    void SetHeight(const SheetRow& row);
    void PutPicture(int column, const SheetPicture& picture);
    void PutWord(int column, const char* word);
    void RequireRoom() const;
    void Pack();
    void CopyToTarget(const std::atomic<bool>& cancelled);
    [[nodiscard]] QString BookPath() const {
        return m_folder.filePath(QStringLiteral("book.xlsx"));
    }

    TargetFile m_target;
    XlsxOptions m_options;
    SheetLayout m_layout;
    QTemporaryDir m_folder;
    std::unique_ptr<lxw_workbook, Discard> m_book;
    lxw_worksheet* m_sheet = nullptr; ///< the book's, as the formats
    lxw_format* m_header = nullptr;
    lxw_format* m_text = nullptr;
    lxw_format* m_number = nullptr;
    lxw_format* m_time = nullptr;
    qint64 m_row = 0; ///< of the sheet, the header is 0
    qint64 m_pictures = 0;
    QByteArray m_utf8;
    SheetNotes m_notes;
};

} // namespace sheets
