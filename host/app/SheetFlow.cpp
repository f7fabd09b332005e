#include "host/app/SheetFlow.h"

#include "host/app/ConsoleWatch.h"
#include "host/app/Faults.h"
#include "host/app/SmallPictures.h"
#include "host/sheet/SheetJob.h"
#include "host/ui/FileNames.h"
#include "host/ui/MainWindow.h"
#include "host/ui/ProgressWindow.h"
#include "sheets/CsvFile.h"
#include "sheets/XlsxFile.h"
#include "toolkit/Clock.h"
#include "toolkit/windows/Prompts.h"
#include "toolkit/windows/StillThere.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QTimer>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// Of Excel or LibreOffice, beside a file that is open there.
bool IsOpenElsewhere(const QString& path) {
    const QFileInfo file(path);
    return file.dir().exists(u".~lock.%1#"_s.arg(file.fileName())) ||
           file.dir().exists(u"~$"_s + file.fileName());
}

site::IClientFolders::Cache CacheOf(site::ListKind kind) {
    using Folder = site::IClientFolders::Cache;
    return kind == site::ListKind::BimPhotos   ? Folder::Pictures
           : kind == site::ListKind::PdfPhotos ? Folder::Thumbnails
                                               : Folder::Attachments;
}

QString NotesText(const sheets::SheetNotes& notes) {
    QString text;
    if (notes.sheets > 1) {
        text += u"行数超过一个工作表的上限，分在 %1 个工作表中。"_s.arg(notes.sheets);
    }
    if (notes.cutTexts > 0) {
        text += u"%1 处文字超过单元格的上限 32,767 字，已截断并以“…”结尾。"_s.arg(notes.cutTexts);
    }
    if (notes.missingPictures > 0) {
        text += u"%1 张图片缺失或已损坏，单元格中注明“图片缺失”。"_s.arg(notes.missingPictures);
    }
    if (notes.leftOutPictures > 0) {
        text += u"%1 张图片超过上限 10,000 张，没有附上。"_s.arg(notes.leftOutPictures);
    }
    return text;
}

} // namespace

SheetFlow::SheetFlow(const Parts& flowParts) : m_parts(flowParts) {}

SheetFlow::~SheetFlow() {
    m_pictures.request_stop();
    delete m_dialog;
    m_job.reset();
    delete m_progress;
}

QString SheetFlow::WhyNot() const {
    if (m_parts.console.Console() == nullptr) {
        return u"请先打开控制台并搜索"_s;
    }
    return m_job ? u"正在输出列表，请等它结束"_s : QString();
}

void SheetFlow::Ask() {
    const QString whyNot = WhyNot();
    if (!whyNot.isEmpty() || !m_dialog.isNull()) {
        m_parts.window.ShowStatus(whyNot);
        return;
    }
    m_dialog = new SheetDialog(
        m_parts.console.Console(),
        u"输出控制台中搜索到的全部%1（所有页）。"_s.arg(TitleOf(m_parts.console.Asked().kind)),
        m_choice);
    m_dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(m_dialog, &QDialog::accepted, this, [this] {
        m_choice = m_dialog->Choice();
        AskForFile();
    });
    m_dialog->open();
}

QString SheetFlow::ProjectsName() const {
    QString name;
    WithoutFault(m_parts.session, [&] {
        name =
            m_parts.console.Asked().filter.ppids.size() == 1
                ? m_parts.session.Tables().ProjectName(m_parts.console.Asked().filter.ppids.front())
                : m_parts.session.CurrentWorkset().name;
    });
    return name;
}

QString SheetFlow::ProposedName() const {
    const QDateTime now = QDateTime::fromSecsSinceEpoch(toolkit::Clock().NowSeconds());
    constexpr qsizetype kMostOfProject = 40;
    QStringList parts{TitleOf(m_parts.console.Asked().kind),
                      FileNameFrom(ProjectsName(), kMostOfProject), now.toString(u"yyyyMMdd"_s)};
    parts.removeAll(QString());
    const QString name = parts.join(u'_') + (m_choice.isWorkbook ? u".xlsx"_s : u".csv"_s);
    return m_folder.isEmpty() ? name : QDir(m_folder).filePath(name);
}

void SheetFlow::AskForFile() {
    const toolkit::StillThere still(this);
    const QString path = toolkit::Prompts().AskSaveFile(
        {toolkit::WindowOf(m_parts.console.Console()), ProposedName(),
         m_choice.isWorkbook ? u"xlsx"_s : u"csv"_s,
         m_choice.isWorkbook ? u"Excel 工作簿 (*.xlsx)"_s : u"CSV 文件 (*.csv)"_s});
    if (still && !path.isEmpty() && !m_job) {
        Begin(path);
    }
}

void SheetFlow::Begin(const QString& path) {
    m_path = path;
    m_folder = QFileInfo(path).absolutePath();
    const bool pictures = m_choice.isWorkbook && m_choice.pictures;
    std::unique_ptr<sheets::ISheetFile> file;
    if (m_choice.isWorkbook) {
        sheets::XlsxOptions options;
        m_pictures = {};
        if (pictures) {
            options.pictureOf =
                SmallPictures(m_parts.session.Desk(), CacheOf(m_parts.console.Asked().kind),
                              m_pictures.get_token());
        }
        file = std::make_unique<sheets::XlsxFile>(path, options);
    } else {
        file = std::make_unique<sheets::CsvFile>(path);
    }
    QWidget* console = m_parts.console.Console();
    QWidget* parent = console == nullptr ? &m_parts.window : console;
    m_progress = new ProgressWindow(parent, u"输出列表"_s, ProgressWindow::Cancel::Possible);
    m_progress->SetCancelTip(u"停止（Esc），不留下文件"_s);
    m_progress->SetText(QFileInfo(path).fileName());
    m_job = std::make_unique<SheetJob>();
    connect(m_progress, &ProgressWindow::Cancelled, m_job.get(), [this] {
        m_pictures.request_stop();
        m_job->Cancel();
    });
    connect(m_job.get(), &SheetJob::Stepped, m_progress, [this](const SheetStep& step) {
        m_progress->SetDetail(step.packing ? u"正在生成文件..."_s : QString());
        m_progress->Report(int(step.written), int(step.total));
    });
    connect(m_job.get(), &SheetJob::Finished, this, &SheetFlow::End);
    m_progress->Begin();
    m_job->Start(
        std::make_unique<ListReader>(m_parts.session.Site(), m_parts.console.Asked(), pictures),
        std::move(file), LayoutOf(m_parts.console.Asked().kind, pictures));
    emit Changed();
}

void SheetFlow::End(const SheetResult& result) {
    QString question;
    QString fault;
    const auto report = [this](MessageLevel level, const QString& text) {
        m_parts.session.Desk()->Report(level, text);
    };
    if (m_progress) {
        m_progress->End();
        m_progress->deleteLater();
    }
    const QString shown = QDir::toNativeSeparators(m_path);
    if (!result.fault.isEmpty()) {
        fault = result.fault;
        report(MessageLevel::Error, fault);
    } else if (result.cancelled) {
        report(MessageLevel::Info, u"已取消输出列表，没有留下文件。"_s);
    } else {
        QString notes = NotesText(result.notes);
        if (IsOpenElsewhere(m_path)) {
            notes += u"该文件可能正在其他程序中打开，请在那里重新打开它。"_s;
        }
        const QString text = u"已输出 %1 行到 %2。%3"_s.arg(result.notes.rows).arg(shown, notes);
        report(notes.isEmpty() ? MessageLevel::Info : MessageLevel::Warning, text);
        question = text + u"\n要打开它所在的文件夹吗？"_s;
        WithoutFault(m_parts.session, [&] {
            m_parts.session.Actions().Write(u"输出列表 %1 行"_s.arg(result.notes.rows));
        });
    }
    // It is in the middle of telling this.
    m_job.release()->deleteLater();
    emit Changed();
    // The message bar lies behind the console.
    QTimer::singleShot(0, this, [this, fault, question] { TellEnd(fault, question); });
}

void SheetFlow::TellEnd(const QString& fault, const QString& question) {
    const QWidget* console = m_parts.console.Console();
    const toolkit::WindowId parent =
        console != nullptr ? toolkit::WindowOf(console) : m_parts.window.Id();
    const QString path = m_path;
    if (!fault.isEmpty()) {
        toolkit::Prompts().ShowMessage(parent, fault);
    } else if (!question.isEmpty() && toolkit::Prompts().AskYesNo(parent, question)) {
        toolkit::Prompts().RevealFile(path);
    }
}

} // namespace host
