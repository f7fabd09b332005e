#include "sheets/TableReader.h"

#include "sheets/TableTaker.h"
#include "sheets/TableText.h"
#include "sheets/WorkbookReader.h"

#include <QFile>
#include <QFileInfo>

namespace sheets {

using namespace Qt::StringLiterals;

namespace {

constexpr QByteArrayView kOldMark("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1");
constexpr QByteArrayView kZipMark("PK\x03\x04");
constexpr QByteArrayView kEmptyZipMark("PK\x05\x06");

QString RefusalOf(TableForm form) {
    switch (form) {
    case TableForm::OldWorkbook:
        return u"是旧格式的工作簿（.xls），请在 Excel 里另存为 .xlsx 后再试"_s;
    case TableForm::Locked:
        return u"有密码保护，请去掉密码后再试"_s;
    case TableForm::Text:
    case TableForm::Workbook:
        break;
    }
    return {};
}

} // namespace

TableForm FormOf(const QByteArray& bytes) {
    if (bytes.startsWith(kZipMark) || bytes.startsWith(kEmptyZipMark)) {
        return TableForm::Workbook;
    }
    if (!bytes.startsWith(kOldMark)) {
        return TableForm::Text;
    }
    // The old container's directory names its streams in UTF-16.
    static const QString name = u"EncryptedPackage"_s;
    const QByteArrayView locked(reinterpret_cast<const char*>(name.utf16()),
                                name.size() * qsizetype(sizeof(char16_t)));
    return bytes.contains(locked) ? TableForm::Locked : TableForm::OldWorkbook;
}

TableBytes LoadTableFile(const QString& path, const TableLimits& limits) {
    const auto told = [](const QString& text) {
        return TableBytes{{}, TableForm::Text, TableFault{{}, 0, -1, text}};
    };
    // A pipe or a device never ends.
    if (!QFileInfo(path).isFile()) {
        return told(QFileInfo::exists(path) ? u"不是文件：%1"_s.arg(path)
                                            : u"没有这个文件：%1"_s.arg(path));
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return told(u"不能读取文件：%1（%2）"_s.arg(path, file.errorString()));
    }
    TableBytes loaded;
    loaded.bytes = file.read(limits.bytes + 1);
    if (file.error() != QFileDevice::NoError) {
        return told(u"不能读取文件：%1（%2）"_s.arg(path, file.errorString()));
    }
    if (loaded.bytes.size() > limits.bytes) {
        return told(u"文件超过 %1 MB，太大了"_s.arg(limits.bytes / 1024 / 1024));
    }
    loaded.form = FormOf(loaded.bytes);
    if (const QString refusal = RefusalOf(loaded.form); !refusal.isEmpty()) {
        loaded.fault = TableFault{{}, 0, -1, u"文件"_s + refusal};
    }
    return loaded;
}

TableBook ReadTableFile(const QString& path, const TableLimits& limits) {
    const TableBytes loaded = LoadTableFile(path, limits);
    if (loaded.fault) {
        return {{}, {*loaded.fault}};
    }
    if (loaded.form == TableForm::Workbook) {
        return ReadWorkbook(loaded.bytes, limits);
    }
    const TableText text = DecodeTableText(loaded.bytes);
    if (text.fault) {
        return {{}, {*text.fault}};
    }
    TableTaker taker(limits);
    taker.BeginSheet({});
    ReadSeparated(text.text, 1, taker);
    return taker.Take();
}

} // namespace sheets
