#include "host/ui/report/ReportWindow.h"

#include "host/ui/FileNames.h"
#include "host/ui/WindowKeys.h"
#include "host/ui/report/ReportChoices.h"
#include "host/ui/report/ReportPreview.h"
#include "toolkit/Icons.h"
#include "toolkit/InterfaceThread.h"
#include "toolkit/Look.h"
#include "toolkit/windows/Prompts.h"
#include "toolkit/windows/StillThere.h"
#include "toolkit/windows/WindowPlace.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

#include <utility>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr int kCalmMs = 250; ///< after the last letter typed into the template
constexpr double kWheelStep = 1.2;

struct FormRow {
    QString text;
    QString extension;
    QString filter;
};

/// By the numbers of ReportForm.
const std::vector<FormRow>& FormTable() {
    static const std::vector<FormRow> rows = {
        {u"PDF 文档"_s, u"pdf"_s, u"PDF 文档 (*.pdf)"_s},
        {u"Word 文档"_s, u"docx"_s, u"Word 文档 (*.docx)"_s},
        {u"网页"_s, u"html"_s, u"网页 (*.html)"_s},
    };
    return rows;
}

} // namespace

ReportWindow::ReportWindow(IReportStore& reportStore) : QDialog(nullptr), m_store(reportStore) {
    setObjectName(u"reportWindow"_s);
    // The viewers look for it by this title.
    setWindowTitle(u"输出报告"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowFlag(Qt::WindowMinMaxButtonsHint);
    toolkit::RegisterWindow(this, [](const toolkit::WindowEvent&) { return 0; });
    m_choices = new ReportChoices(this);
    auto* middle = new QHBoxLayout;
    middle->setSpacing(12);
    middle->addWidget(m_choices);
    middle->addWidget(MakePages(), 1);
    auto* lines = new QVBoxLayout(this);
    lines->setContentsMargins(12, 12, 12, 12);
    lines->setSpacing(12);
    lines->addLayout(middle, 1);
    lines->addWidget(MakeBottom());
    m_calm.setSingleShot(true);
    m_calm.setInterval(kCalmMs);
    connect(&m_calm, &QTimer::timeout, this, [this] {
        (void)KeepTemplate();
        ShowSheet();
    });
    connect(m_choices, &ReportChoices::OptionsChanged, this, [this] {
        m_store.KeepOptions(m_choices->Options());
        ShowSheet();
    });
    connect(m_choices, &ReportChoices::TemplateChanged, this, [this] {
        m_isTemplateChanged = true;
        if (m_state == State::Ready) {
            ShowNotice({}, false); // of a logo that was no picture
        }
        m_calm.start();
    });
    connect(m_choices, &ReportChoices::Refused, this,
            [this](const QString& sentence) { ShowNotice(sentence, true); });
    m_pictures.SetReady([preview = QPointer<ReportPreview>(m_preview)] {
        toolkit::CallOnInterfaceThread([preview] {
            if (preview) {
                preview->PictureReady();
            }
        });
    });
    m_choices->Show(m_store.Options(), {});
    Become(State::Reading);
    resize(1120, 760);
    toolkit::KeepOnScreen(*this);
}

ReportWindow::~ReportWindow() {
    m_pictures.SetReady({});
    // It draws with the pictures.
    delete m_preview;
}

QWidget* ReportWindow::MakePages() {
    auto* pages = new QWidget(this);
    m_pageLine = new QLabel(pages);
    m_pageLine->setObjectName(u"reportPageLine"_s);
    auto* line = new QHBoxLayout;
    line->setSpacing(4);
    line->addWidget(m_pageLine, 1);
    struct ZoomButton {
        QString name;
        QString text;
        QString tip;
        std::function<std::optional<double>()> zoom;
    };
    const std::vector<ZoomButton> buttons = {
        {u"reportSmaller"_s, u"缩小"_s, u"缩小页面（Ctrl+滚轮，-）"_s,
         [this] { return m_preview->Zoom() / kWheelStep; }},
        {u"reportLarger"_s, u"放大"_s, u"放大页面（Ctrl+滚轮，+）"_s,
         [this] { return m_preview->Zoom() * kWheelStep; }},
        {u"reportFit"_s, u"适合宽度"_s, u"页面与窗口同宽（0）"_s, [] { return std::nullopt; }},
    };
    for (const ZoomButton& look : buttons) {
        auto* button = new QToolButton(pages);
        button->setObjectName(look.name);
        button->setText(look.text);
        button->setToolTip(look.tip);
        button->setAutoRaise(true);
        connect(button, &QToolButton::clicked, this,
                [this, zoom = look.zoom] { m_preview->SetZoom(zoom()); });
        line->addWidget(button);
    }
    // Behind the buttons above it, for the Tab key.
    m_preview = new ReportPreview(m_pictures, pages);
    connect(m_preview, &ReportPreview::Moved, this, &ReportWindow::ShowPageLine);
    auto* lines = new QVBoxLayout(pages);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(4);
    lines->addLayout(line);
    lines->addWidget(m_preview, 1);
    return pages;
}

QPushButton* ReportWindow::MakeBottomButton(const QString& name, const QString& text,
                                            const QString& tip, QWidget* parent) {
    auto* button = new QPushButton(text, parent);
    button->setObjectName(name);
    button->setToolTip(tip);
    button->setAutoDefault(false);
    parent->layout()->addWidget(button);
    return button;
}

QWidget* ReportWindow::MakeBottom() {
    auto* row = new QWidget(this);
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(8);
    m_notice = new QLabel(row);
    m_notice->setObjectName(u"reportNotice"_s);
    m_notice->setTextFormat(Qt::PlainText);
    m_notice->setWordWrap(true);
    m_notice->setTextInteractionFlags(Qt::TextSelectableByMouse);
    line->addWidget(m_notice, 1);
    m_progress = new QProgressBar(row);
    m_progress->setObjectName(u"reportProgress"_s);
    m_progress->setAccessibleName(u"进度"_s);
    m_progress->setFixedWidth(200);
    m_progress->setFormat(u"%v / %m"_s);
    line->addWidget(m_progress);
    m_stop = MakeBottomButton(u"reportStop"_s, u"取消"_s, u"停止，不留下未完成的文件"_s, row);
    m_show = MakeBottomButton(u"reportReveal"_s, u"打开所在文件夹"_s,
                              u"在文件管理器中显示保存的报告"_s, row);
    m_open = MakeBottomButton(u"reportOpen"_s, u"打开"_s, u"用系统的程序打开保存的报告"_s, row);
    m_form = new QComboBox(row);
    m_form->setObjectName(u"reportForm"_s);
    m_form->setAccessibleName(u"格式"_s);
    m_form->setToolTip(u"保存成哪种文件"_s);
    for (const FormRow& form : FormTable()) {
        m_form->addItem(form.text);
    }
    line->addWidget(m_form);
    m_save = MakeBottomButton(u"reportSave"_s, u"保存..."_s, u"把报告保存为文件（Ctrl+S）"_s, row);
    m_save->setShortcut(QKeySequence::Save);
    m_close = MakeBottomButton(u"reportClose"_s, u"关闭"_s, u"关闭窗口（Esc）"_s, row);
    const int width = m_show->sizeHint().width();
    for (QPushButton* button : {m_stop, m_show, m_open, m_save, m_close}) {
        button->setMinimumWidth(width);
    }
    connect(m_stop, &QPushButton::clicked, this, &ReportWindow::StopWork);
    connect(m_show, &QPushButton::clicked, this,
            [this] { toolkit::Prompts().RevealFile(m_saved); });
    connect(m_open, &QPushButton::clicked, this, [this] {
        if (!toolkit::Prompts().OpenFile(m_saved)) {
            ShowNotice(u"没有可以打开该文件的程序，请打开它所在的文件夹后另选程序。"_s, true);
        }
    });
    connect(m_save, &QPushButton::clicked, this, &ReportWindow::Save);
    connect(m_close, &QPushButton::clicked, this, &ReportWindow::close);
    return row;
}

void ReportWindow::Become(State state) {
    m_state = state;
    const bool isWorking = state == State::Fetching || state == State::Saving;
    m_progress->setVisible(isWorking);
    m_stop->setVisible(isWorking);
    m_stop->setEnabled(true);
    m_choices->setEnabled(state == State::Ready || state == State::Fetching);
    m_form->setEnabled(state == State::Ready);
    m_save->setEnabled(state == State::Ready);
    m_show->setVisible(state == State::Ready && !m_saved.isEmpty());
    m_open->setVisible(state == State::Ready && !m_saved.isEmpty());
    if (state == State::Reading) {
        ShowNotice(u"正在读取报告的内容..."_s, false);
    }
}

void ReportWindow::SetContent(const ReportContent& content) {
    const bool isFirst = m_state == State::Reading;
    m_content = content;
    if (isFirst) {
        m_choices->Show(m_store.Options(), m_store.Template(content.ppid));
        ShowNotice({}, false);
        Become(State::Ready);
        m_preview->setFocus();
    }
    m_choices->SetAvailable(content);
    ShowSheet();
}

void ReportWindow::SetLack(const QString& sentence) {
    Become(State::Lacking);
    ShowNotice(sentence, true);
}

void ReportWindow::SetFetching(int done, int total) {
    if (m_state != State::Fetching) {
        Become(State::Fetching);
    }
    m_progress->setRange(0, total);
    m_progress->setValue(done);
    ShowNotice(u"正在下载图片：%1 / %2"_s.arg(done).arg(total), false);
}

void ReportWindow::SetDrawing() {
    Become(State::Fetching);
    m_progress->setRange(0, 0);
    ShowNotice(u"正在绘制图纸中的位置..."_s, false);
}

void ReportWindow::TellBusy() {
    ShowNotice(u"正在保存这份报告，请等它完成后再输出另一份。"_s, true);
}

void ReportWindow::EndFetching(const QString& sentence) {
    Become(State::Ready);
    ShowNotice(sentence, !sentence.isEmpty());
}

ReportSheet ReportWindow::Sheet() const {
    return SheetOf(m_content, m_choices->Options(), m_choices->Template());
}

void ReportWindow::ShowSheet() {
    if (m_state != State::Reading && m_state != State::Lacking) {
        m_preview->SetSheet(Sheet());
    }
}

void ReportWindow::ShowPageLine() {
    const int count = m_preview->PageCount();
    m_pageLine->setText(count == 0 ? QString()
                        : m_preview->IsWhole()
                            ? u"第 %1 页，共 %2 页    %3%"_s.arg(m_preview->CurrentPage() + 1)
                                  .arg(count)
                                  .arg(qRound(m_preview->Zoom() * 100))
                            : u"第 %1 页，正在排版记录..."_s.arg(m_preview->CurrentPage() + 1));
}

QString ReportWindow::KeepTemplate() {
    if (!std::exchange(m_isTemplateChanged, false)) {
        return {};
    }
    const QString fault = m_store.KeepTemplate(m_content.ppid, m_choices->Template());
    const QString sentence = fault.isEmpty() ? QString() : u"版式没有保留：%1"_s.arg(fault);
    if (!sentence.isEmpty()) {
        ShowNotice(sentence, true);
    }
    return sentence;
}

QString ReportWindow::ProposedName() const {
    constexpr qsizetype kMost = 80;
    QString name = Sheet().title;
    if (!m_content.place.isEmpty()) {
        name += u' ' + m_content.place;
    }
    name = FileNameFrom(name, kMost, u' ');
    name = name.isEmpty() ? u"报告"_s : name;
    return m_folder.isEmpty() ? name : QDir(m_folder).filePath(name);
}

void ReportWindow::Save() {
    if (m_state != State::Ready) {
        return;
    }
    m_calm.stop();
    (void)KeepTemplate();
    const FormRow& form = FormTable()[static_cast<size_t>(m_form->currentIndex())];
    const toolkit::StillThere still(this);
    const QString path = toolkit::Prompts().AskSaveFile(
        {toolkit::WindowOf(this), ProposedName(), form.extension, form.filter});
    // Meanwhile another report may have come into the window.
    if (!still || path.isEmpty() || m_state != State::Ready) {
        return;
    }
    m_saved.clear();
    Become(State::Saving);
    m_progress->setRange(0, 0);
    m_stop->setFocus();
    ShowNotice(u"正在生成报告，请稍候..."_s, false);
    m_job = std::make_unique<ReportJob>(
        ReportJob::Order{Sheet(), static_cast<ReportForm>(m_form->currentIndex()), path},
        m_pictures, nullptr);
    connect(m_job.get(), &ReportJob::Stepped, this, &ReportWindow::OnStepped);
    // The job ends in its own signal.
    connect(m_job.get(), &ReportJob::Ended, this, &ReportWindow::OnEnded, Qt::QueuedConnection);
}

void ReportWindow::OnStepped(int done, int total) {
    m_progress->setRange(0, total);
    m_progress->setValue(done);
}

void ReportWindow::OnEnded(bool isThere, const QString& fault) {
    if (!m_job) {
        return;
    }
    const QString path = m_job->Path();
    m_job.reset();
    if (isThere) {
        m_saved = path;
        m_folder = QFileInfo(path).path();
        ShowNotice(u"报告已保存：%1"_s.arg(QDir::toNativeSeparators(path)), false);
    } else if (fault.isEmpty()) {
        ShowNotice(u"已取消，没有保存报告。"_s, false);
    } else {
        ShowNotice(fault, true);
    }
    Become(State::Ready);
    m_save->setFocus();
}

void ReportWindow::StopWork() {
    m_stop->setEnabled(false);
    if (m_job) {
        m_job->Cancel();
    } else {
        emit FetchingStopped();
    }
}

void ReportWindow::ShowNotice(const QString& text, bool isFault) {
    QPalette colors = palette();
    if (isFault) {
        colors.setColor(QPalette::WindowText, toolkit::Colors::ErrorText());
    }
    m_notice->setPalette(colors);
    m_notice->setText(text);
}

void ReportWindow::closeEvent(QCloseEvent* event) {
    if (m_job) {
        const toolkit::StillThere still(this);
        const bool isSure = toolkit::Prompts().AskNoYes(toolkit::WindowOf(this),
                                                        u"报告正在生成。要取消并关闭窗口吗？"_s);
        if (!still) {
            return;
        }
        if (!isSure) {
            event->ignore();
            return;
        }
    }
    m_job.reset();
    m_calm.stop();
    if (const QString fault = KeepTemplate(); !fault.isEmpty()) {
        const toolkit::StillThere still(this);
        toolkit::Prompts().ShowMessage(toolkit::WindowOf(this), fault);
        if (!still) {
            return;
        }
    }
    emit FetchingStopped();
    // A dialog would have itself rejected, and that closes it again.
    event->accept();
}

void ReportWindow::keyPressEvent(QKeyEvent* event) {
    if (!PressByEnter(*this, *event)) {
        QDialog::keyPressEvent(event);
    }
}

} // namespace host
