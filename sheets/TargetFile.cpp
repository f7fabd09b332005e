#include "sheets/TargetFile.h"

#include "sheets/SheetFault.h"

#include <QDir>
#include <QFileInfo>

#include <filesystem>
#include <system_error>

namespace sheets {

using namespace Qt::StringLiterals;

namespace {

QString Shown(const QString& path) {
    return QDir::toNativeSeparators(path);
}

bool IsSheetNameTooLong(const QString& path) {
    std::error_code fault;
    (void)std::filesystem::status(path.toStdU16String(), fault);
    return fault == std::errc::filename_too_long;
}

} // namespace

void TargetFile::Open() {
    const QFileInfo target(m_file.fileName());
    const QString shown = Shown(m_file.fileName());
    if (!target.dir().exists()) {
        throw SheetFault(
            u"无法输出列表：文件夹 %1 不存在，可能已被删除或断开。请换一个文件夹后再输出。"_s.arg(
                Shown(target.absolutePath())));
    }
    if (target.isDir()) {
        throw SheetFault(u"无法输出列表：%1 是一个文件夹。请换一个文件名。"_s.arg(shown));
    }
    // A work file without a name may be opened all the same.
    if (IsSheetNameTooLong(m_file.fileName())) {
        throw SheetFault(u"无法输出列表：文件名太长。请换一个短一些的文件名后再输出。"_s);
    }
    if (!m_file.open(QIODevice::WriteOnly)) {
        throw SheetFault(
            target.exists() && !target.isWritable()
                ? u"无法输出列表：文件 %1 是只读的。请换一个文件名，或取消只读后再输出。"_s.arg(
                      shown)
                : u"无法输出列表：不能在文件夹 %1 中写入文件，没有权限或磁盘只读。"
                  "请换一个文件夹后再输出。"_s.arg(Shown(target.absolutePath())));
    }
}

void TargetFile::Write(const QByteArray& bytes) {
    if (m_file.write(bytes) != bytes.size()) {
        Fail(u"写入失败"_s);
    }
}

void TargetFile::Commit() {
    // What closing writes is not looked at: on a full disk half a file would stand there.
    if (!m_file.flush()) {
        Fail(u"写入失败"_s);
    }
    if (!m_file.commit()) {
        throw SheetFault(
            u"无法输出列表：不能替换文件 %1，它可能正被其他程序打开。原来的文件没有改变。"
            "请关闭那个程序，或换一个文件名后再输出。"_s.arg(Shown(m_file.fileName())));
    }
}

void TargetFile::Fail(const QString& what) const {
    throw SheetFault(
        u"无法输出列表到 %1：%2，磁盘可能已满。没有留下文件，原来的文件也没有改变。"
        "请检查磁盘空间，或换一个文件夹后再输出。"_s.arg(Shown(m_file.fileName()), what));
}

} // namespace sheets
