#include "tests/monkey/MonkeyPrompts.h"

#include "tests/monkey/Faults.h"

#include <QDir>
#include <QFileInfo>

namespace monkey {

using namespace Qt::StringLiterals;

MonkeyPrompts::MonkeyPrompts(quint64 seed, const QString& folder)
    : m_dice(unsigned(seed)), m_folder(folder), m_native(toolkit::Prompts()) {
    toolkit::SetPrompts(this);
}

MonkeyPrompts::~MonkeyPrompts() {
    toolkit::SetPrompts(nullptr);
}

void MonkeyPrompts::ShowMessage(toolkit::WindowId parent, const QString& text) {
    Note(u"    told: %1"_s.arg(text));
    m_native.ShowMessage(parent, text);
}

bool MonkeyPrompts::AskOkCancel(toolkit::WindowId parent, const QString& text) {
    Note(u"    asked: %1"_s.arg(text));
    return m_native.AskOkCancel(parent, text);
}

bool MonkeyPrompts::AskYesNo(toolkit::WindowId parent, const QString& text) {
    Note(u"    asked: %1"_s.arg(text));
    return m_native.AskYesNo(parent, text);
}

/// One that is there, one of its own, one that can't be made, or none.
QString MonkeyPrompts::Folder() {
    switch (Of(5)) {
    case 0:
        return {};
    case 1:
        return QDir(m_folder).filePath(u"不存在"_s);
    case 2: {
        const QString made = QDir(m_folder).filePath(u"文件夹%1"_s.arg(Of(4)));
        QDir().mkpath(made);
        return made;
    }
    default:
        return m_folder;
    }
}

QString MonkeyPrompts::AskFolder(toolkit::WindowId parent, const QString& title) {
    Q_UNUSED(parent);
    QString folder = Folder();
    Note(u"    folder for '%1': %2"_s.arg(title, folder));
    return folder;
}

QString MonkeyPrompts::AskSaveFile(const toolkit::SaveFileRequest& request) {
    const QString folder = Folder();
    const QString name = Of(2) == 0 ? QFileInfo(request.proposedName).fileName() : u"存.jpg"_s;
    QString path = folder.isEmpty() ? QString() : QDir(folder).filePath(name);
    Note(u"    file for '%1': %2"_s.arg(request.proposedName, path));
    return path;
}

QStringList MonkeyPrompts::AskOpenFiles(const toolkit::OpenFilesRequest& request) {
    QStringList paths;
    const QFileInfoList files = QDir(m_folder).entryInfoList(QDir::Files, QDir::Name);
    for (const QFileInfo& file : files) {
        if (Of(2) == 0) {
            paths << file.absoluteFilePath();
        }
    }
    Note(u"    files for '%1': %2"_s.arg(request.filter).arg(paths.size()));
    return paths;
}

void MonkeyPrompts::OpenFolder(const QString& folder) {
    Note(u"    the shell would open %1"_s.arg(folder));
}

void MonkeyPrompts::RevealFile(const QString& path) {
    Note(u"    the shell would show %1"_s.arg(path));
}

} // namespace monkey
