#include "toolkit/NativePrompts.h"

#include "toolkit/WindowRegistry.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QProcess>
#include <QUrl>

namespace toolkit {

using namespace Qt::StringLiterals;

namespace {

/// A box that says what it has to say as plain text.
int RunBox(WindowId parent, QMessageBox::Icon icon, const QString& text,
           QMessageBox::StandardButtons buttons, bool topmost) {
    QMessageBox box(icon, QApplication::applicationDisplayName(), text, buttons, WidgetOf(parent));
    box.setTextFormat(Qt::PlainText);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    if (topmost)
        box.setWindowFlag(Qt::WindowStaysOnTopHint);
    return box.exec();
}

} // namespace

QString WithExtension(const QString& path, const QString& extension) {
    if (path.isEmpty() || extension.isEmpty())
        return path;
    const QString wanted = u"."_s + extension;
    return path.endsWith(wanted, Qt::CaseInsensitive) ? path : path + wanted;
}

void NativePrompts::ShowMessage(WindowId parent, const QString& text) {
    RunBox(parent, QMessageBox::Information, text, QMessageBox::Ok, false);
}

bool NativePrompts::AskOkCancel(WindowId parent, const QString& text) {
    return RunBox(parent, QMessageBox::Question, text, QMessageBox::Ok | QMessageBox::Cancel,
                  true) == QMessageBox::Ok;
}

bool NativePrompts::AskYesNo(WindowId parent, const QString& text) {
    return RunBox(parent, QMessageBox::Question, text, QMessageBox::Yes | QMessageBox::No, false) ==
           QMessageBox::Yes;
}

QString NativePrompts::AskFolder(WindowId parent, const QString& title) {
    return QFileDialog::getExistingDirectory(WidgetOf(parent), title, QDir::homePath());
}

QString NativePrompts::AskSaveFile(const SaveFileRequest& request) {
    QString proposed = request.proposedName;
    while (true) {
        // Overwriting is asked for the final path below, not for the name as typed.
        const QString typed = QFileDialog::getSaveFileName(WidgetOf(request.parent), QString(),
                                                           proposed, request.filter, nullptr,
                                                           QFileDialog::DontConfirmOverwrite);
        const QString path = WithExtension(typed, request.defaultExtension);
        if (path.isEmpty() || !QFileInfo::exists(path))
            return path;
        if (AskYesNo(request.parent,
                     u"%1 已存在。\n要替换它吗？"_s.arg(QDir::toNativeSeparators(path))))
            return path;
        proposed = path;
    }
}

QStringList NativePrompts::AskOpenFiles(const OpenFilesRequest& request) {
    return QFileDialog::getOpenFileNames(WidgetOf(request.parent), QString(), QDir::homePath(),
                                         request.filter);
}

void NativePrompts::OpenFolder(const QString& folder) {
    QDesktopServices::openUrl(QUrl::fromLocalFile(folder));
}

void NativePrompts::RevealFile(const QString& path) {
#if defined(Q_OS_WIN)
    QProcess::startDetached(u"explorer.exe"_s, {u"/select,"_s + QDir::toNativeSeparators(path)});
#else
    // The file managers of the free desktops select a file on this call; where none answers, the
    // folder is shown.
    const QString uri = QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded);
    const int exitCode = QProcess::execute(
        u"dbus-send"_s,
        {u"--session"_s, u"--print-reply"_s, u"--reply-timeout=2000"_s,
         u"--dest=org.freedesktop.FileManager1"_s, u"/org/freedesktop/FileManager1"_s,
         u"org.freedesktop.FileManager1.ShowItems"_s, u"array:string:"_s + uri, u"string:"_s});
    if (exitCode != 0)
        OpenFolder(QFileInfo(path).absolutePath());
#endif
}

} // namespace toolkit
