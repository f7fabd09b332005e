#include "toolkit/windows/NativePrompts.h"

#include "toolkit/windows/StillThere.h"
#include "toolkit/windows/WindowRegistry.h"

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

/// Runs a dialog that may lie on a window, and deletes it. `read` is told dialog and result, and
/// nothing where the window died first, which took the dialog along.
template <class Dialog, class Read> void RunOnWindow(Dialog* dialog, Read read) {
    const StillThere still(dialog);
    const int result = dialog->exec();
    if (!still) {
        return;
    }
    read(*dialog, result);
    delete dialog;
}

/// A box that says what it has to say as plain text. 0: its window died behind it.
int RunBox(WindowId parent, QMessageBox::Icon icon, const QString& text,
           QMessageBox::StandardButtons buttons, bool topmost,
           QMessageBox::StandardButton proposed = QMessageBox::NoButton) {
    auto* box = new QMessageBox(icon, QApplication::applicationDisplayName(), text, buttons,
                                WidgetOf(parent));
    box->setObjectName(u"messageBox"_s);
    box->setTextFormat(Qt::PlainText);
    box->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    box->setDefaultButton(proposed);
    if (topmost) {
        box->setWindowFlag(Qt::WindowStaysOnTopHint);
    }
    int answer = 0;
    RunOnWindow(box, [&answer](const QMessageBox& /*box*/, int result) { answer = result; });
    return answer;
}

/// What a file dialog is opened with.
struct FileQuestion {
    QString title;
    QString start; ///< a folder, with a proposed name or without
    QString filter;
    QFileDialog::AcceptMode accepts = QFileDialog::AcceptOpen;
    QFileDialog::FileMode picks = QFileDialog::AnyFile;
    QFileDialog::Options options;
};

/// Nothing: cancelled, or its window died behind it.
QStringList RunFileDialog(WindowId parent, const FileQuestion& question) {
    auto* dialog =
        new QFileDialog(WidgetOf(parent), question.title, question.start, question.filter);
    dialog->setObjectName(u"fileDialog"_s);
    dialog->setAcceptMode(question.accepts);
    dialog->setFileMode(question.picks);
    dialog->setOptions(question.options);
    QStringList paths;
    RunOnWindow(dialog, [&paths](const QFileDialog& asked, int result) {
        if (result == QDialog::Accepted) {
            paths = asked.selectedFiles();
        }
    });
    return paths;
}

} // namespace

QString WithExtension(const QString& path, const QString& extension) {
    if (path.isEmpty() || extension.isEmpty()) {
        return path;
    }
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

bool NativePrompts::AskNoYes(WindowId parent, const QString& text) {
    return RunBox(parent, QMessageBox::Warning, text, QMessageBox::Yes | QMessageBox::No, false,
                  QMessageBox::No) == QMessageBox::Yes;
}

QString NativePrompts::AskFolder(WindowId parent, const QString& title) {
    return RunFileDialog(parent, {title,
                                  QDir::homePath(),
                                  {},
                                  QFileDialog::AcceptOpen,
                                  QFileDialog::Directory,
                                  QFileDialog::ShowDirsOnly})
        .value(0);
}

QString NativePrompts::AskSaveFile(const SaveFileRequest& request) {
    const StillThere still(WidgetOf(request.parent));
    const bool onWindow(still);
    QString proposed = request.proposedName;
    while (still || !onWindow) {
        // Overwriting is asked for the final path below, not for the name as typed.
        const QString typed = RunFileDialog(request.parent, {{},
                                                             proposed,
                                                             request.filter,
                                                             QFileDialog::AcceptSave,
                                                             QFileDialog::AnyFile,
                                                             QFileDialog::DontConfirmOverwrite})
                                  .value(0);
        const QString path = WithExtension(typed, request.defaultExtension);
        if (path.isEmpty() || !QFileInfo::exists(path)) {
            return path;
        }
        if (AskYesNo(request.parent,
                     u"%1 已存在。\n要替换它吗？"_s.arg(QDir::toNativeSeparators(path)))) {
            return path;
        }
        proposed = path;
    }
    return {};
}

QStringList NativePrompts::AskOpenFiles(const OpenFilesRequest& request) {
    return RunFileDialog(request.parent, {{},
                                          QDir::homePath(),
                                          request.filter,
                                          QFileDialog::AcceptOpen,
                                          QFileDialog::ExistingFiles,
                                          {}});
}

void NativePrompts::OpenFolder(const QString& folder) {
    QDesktopServices::openUrl(QUrl::fromLocalFile(folder));
}

bool NativePrompts::OpenFile(const QString& path) {
    return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
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
    if (exitCode != 0) {
        OpenFolder(QFileInfo(path).absolutePath());
    }
#endif
}

} // namespace toolkit
