#include "sheets/WorkbookReader.h"

#include "sheets/BookParts.h"
#include "sheets/SheetRows.h"
#include "sheets/TableTaker.h"
#include "sheets/ZipArchive.h"

namespace sheets {

using namespace Qt::StringLiterals;

namespace {

QString LackOf(const ZipArchive& archive, const TableLimits& limits) {
    if (archive.Budget().isSpent) {
        return u"工作簿解压后超过 %1 MB，太大了"_s.arg(limits.unpacked / 1024 / 1024);
    }
    return archive.Budget().isEndless ? u"工作簿里有过长的文字"_s : u"工作簿已损坏或不完整"_s;
}

/// Empty: all of it was read.
QString ReadSheets(ZipArchive& archive, TableTaker& taker) {
    BookParts parts;
    if (!ReadBookParts(archive, taker.Limits().sheets, parts)) {
        return parts.isForeign ? u"文件不是 Excel 工作簿（.xlsx）"_s
                               : LackOf(archive, taker.Limits());
    }
    if (int(parts.sheets.size()) > taker.Limits().sheets) {
        return u"工作簿超过 %1 张工作表，太多了"_s.arg(taker.Limits().sheets);
    }
    for (const BookSheetPart& sheet : parts.sheets) {
        const auto device = archive.Part(sheet.path);
        if (device == nullptr) {
            return u"工作簿缺少工作表“%1”，已损坏"_s.arg(sheet.name);
        }
        taker.BeginSheet(sheet.name);
        if (!SheetRows(parts, taker).Read(*device)) {
            return LackOf(archive, taker.Limits());
        }
        if (taker.IsFull()) {
            break;
        }
    }
    return {};
}

} // namespace

TableBook ReadWorkbook(const QByteArray& bytes, const TableLimits& limits) {
    TableTaker taker(limits);
    ZipArchive archive(bytes, limits.unpacked);
    const QString lack = archive.IsOpen() ? ReadSheets(archive, taker) : u"工作簿已损坏或不完整"_s;
    TableBook book = taker.Take();
    if (!lack.isEmpty()) {
        book.faults.push_back({{}, 0, -1, lack});
    }
    return book;
}

} // namespace sheets
