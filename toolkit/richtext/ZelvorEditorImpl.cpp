#include "toolkit/richtext/ZelvorEditorImpl.h"

#include "toolkit/Look.h"
#include "toolkit/richtext/NoteBar.h"
#include "toolkit/richtext/NoteEdit.h"
#include "toolkit/richtext/NoteFinder.h"
#include "toolkit/richtext/NoteHtml.h"
#include "toolkit/richtext/NoteStore.h"
#include "toolkit/windows/WindowEnd.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QDesktopServices>
#include <QFile>
#include <QLabel>
#include <QTextBlock>
#include <QTimer>
#include <QUrl>
#include <QUuid>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString kPageEnding = u".html"_s;
/// Whoever saved it last may have it still.
const QString kUnreadable =
    u"文档过大或已损坏，无法显示。请联系最后编辑的人重新保存，或联系管理员。"_s;

/// So long nothing is written before what is written is counted.
constexpr int kCountAfterMs = 200;

QString CountText(const toolkit::NoteDocument& document) {
    qsizetype count = 0;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const QString text = block.text();
        count += std::count_if(text.begin(), text.end(), [](QChar letter) {
            return !letter.isSpace() && letter != QChar::ObjectReplacementCharacter;
        });
    }
    return u"字数 %1"_s.arg(count);
}

} // namespace

/// Commands, a line for what is wrong, the sheet, the finder.
class CZelvorEditorImpl::Frame final : public QWidget {
public:
    explicit Frame(QWidget* parent)
        : QWidget(parent), sheet(new toolkit::NoteEdit(this)),
          bar(new toolkit::NoteBar(*sheet, this)), finder(new toolkit::NoteFinder(*sheet, this)),
          notice(new QLabel(this)), count(new QLabel(this)) {
        setObjectName(u"zelvorEditor"_s);
        sheet->setObjectName(u"noteSheet"_s);
        sheet->setAccessibleName(u"富文本"_s);
        notice->setObjectName(u"noteNotice"_s);
        notice->setTextFormat(Qt::PlainText);
        notice->setWordWrap(true);
        notice->setContentsMargins(toolkit::kStep, toolkit::kStep, toolkit::kStep, toolkit::kStep);
        notice->hide();
        count->setObjectName(u"noteCount"_s);
        count->setAlignment(Qt::AlignRight);
        count->setContentsMargins(0, 0, toolkit::kStep, 0);
        auto* lines = new QVBoxLayout(this);
        lines->setContentsMargins(0, 0, 0, 0);
        lines->setSpacing(0);
        lines->addWidget(bar);
        lines->addWidget(notice);
        lines->addWidget(sheet, 1);
        lines->addWidget(finder);
        lines->addWidget(count);
        connect(bar, &toolkit::NoteBar::FindWanted, finder, &toolkit::NoteFinder::Begin);
        m_counting.setSingleShot(true);
        m_counting.setInterval(kCountAfterMs);
        connect(&m_counting, &QTimer::timeout, this,
                [this] { count->setText(CountText(*sheet->Note())); });
        connect(sheet, &QTextEdit::textChanged, this, &Frame::CountSoon);
    }
    ~Frame() override { toolkit::TellWindowDies(*this); }

    void Say(const QString& sentence) {
        notice->setText(sentence);
        notice->setVisible(!sentence.isEmpty());
    }
    /// All of the text is gone through, which would keep the next key waiting.
    void CountSoon() { m_counting.start(); }

    toolkit::NoteEdit* sheet;
    toolkit::NoteBar* bar;
    toolkit::NoteFinder* finder;
    QLabel* notice;
    QLabel* count;

private:
    QTimer m_counting;
};

CZelvorEditorImpl::CZelvorEditorImpl() = default;

CZelvorEditorImpl::~CZelvorEditorImpl() {
    Destroy();
}

QWidget* CZelvorEditorImpl::MakeWindow(QWidget* parent) {
    m_parent = toolkit::WindowOf(parent);
    return new Frame(parent);
}

void CZelvorEditorImpl::OnCreated() {
    auto* frame = static_cast<Frame*>(Widget());
    frame->sheet->SetNote(
        std::make_unique<toolkit::NoteDocument>(toolkit::TheEditorFolders().pages, nullptr));
    QObject::connect(frame->sheet, &toolkit::NoteEdit::LinkOpened, frame,
                     [this](const QString& address) { OpenLink(address); });
    QObject::connect(frame->sheet, &toolkit::NoteEdit::Refused, frame,
                     [frame](const QString& sentence) { frame->Say(sentence); });
    toolkit::PostWindowEvent(m_parent, kEditorReady);
}

toolkit::NoteEdit* CZelvorEditorImpl::Sheet() const {
    return HasWindow() ? static_cast<Frame*>(Widget())->sheet : nullptr;
}

void CZelvorEditorImpl::SetReadOnly(qint32 readOnly) {
    if (HasWindow()) {
        auto* frame = static_cast<Frame*>(Widget());
        frame->sheet->setReadOnly(readOnly != 0 || m_isBroken);
        frame->sheet->setTextInteractionFlags(
            frame->sheet->isReadOnly() ? Qt::TextBrowserInteraction : Qt::TextEditorInteraction);
        frame->bar->setVisible(!frame->sheet->isReadOnly());
    }
}

void CZelvorEditorImpl::Show(const QString& html, const QString& name, qint32 readOnly) {
    auto* frame = static_cast<Frame*>(Widget());
    auto document =
        std::make_unique<toolkit::NoteDocument>(toolkit::TheEditorFolders().pages, nullptr);
    const toolkit::NoteFault fault = document->Load(html);
    m_name = name;
    m_isBroken = fault != toolkit::NoteFault::None;
    frame->finder->hide();
    frame->Say(m_isBroken ? kUnreadable : QString());
    frame->sheet->SetNote(std::move(document));
    frame->count->clear();
    frame->CountSoon();
    SetReadOnly(readOnly);
    m_loaded = html;
    m_lastHtml.reset();
    m_isTold = false;
}

void CZelvorEditorImpl::GetLastHtml(QString& html) const {
    if (!m_lastHtml) {
        // As long as a load takes: only who asks pays for it.
        toolkit::NoteDocument loaded(toolkit::TheEditorFolders().pages, nullptr);
        loaded.Load(m_loaded);
        m_lastHtml = loaded.Html();
    }
    html = *m_lastHtml;
}

void CZelvorEditorImpl::NewEditor(QString& name, qint32 readOnly) {
    name = QUuid::createUuid().toString(QUuid::WithoutBraces);
    if (HasWindow()) {
        Show({}, name, readOnly);
    }
}

void CZelvorEditorImpl::ShowLack(const QString& sentence) {
    m_isBroken = true;
    SetReadOnly(1);
    static_cast<Frame*>(Widget())->Say(sentence);
}

void CZelvorEditorImpl::LoadEditor(const QString& name, const std::vector<QString>& files,
                                   const std::map<QString, quint64>& attachments, qint32 readOnly) {
    if (!HasWindow()) {
        return;
    }
    const auto page =
        std::ranges::find_if(files, [](const QString& file) { return file.endsWith(kPageEnding); });
    QFile file(page == files.end() ? QString() : toolkit::TheEditorFolders().pages + *page);
    if (page == files.end() || !toolkit::IsStoreName(*page) || !file.open(QIODevice::ReadOnly)) {
        Show({}, name, readOnly);
        ShowLack(u"文档的文件不存在，无法显示。请检查网络或数据文件夹后重新打开。"_s);
        return;
    }
    if (file.size() > toolkit::kMostNoteCharacters) {
        Show({}, name, readOnly);
        ShowLack(kUnreadable);
        return;
    }
    Show(QString::fromUtf8(file.readAll()), name, readOnly);
    Sheet()->Note()->SetAttachmentSizes(attachments);
}

std::optional<CZelvorEditorImpl::Unsaved> CZelvorEditorImpl::LookAtUnsaved() const {
    const toolkit::NoteEdit* sheet = Sheet();
    // What was told and is undone since is a change to whoever took it.
    if (sheet == nullptr || m_isBroken || (!sheet->Note()->isModified() && !m_isTold)) {
        return std::nullopt;
    }
    return Unsaved{sheet->Note()->Html(), sheet->Note()->Files()};
}

bool CZelvorEditorImpl::SaveEditor() {
    const std::optional<Unsaved> unsaved = LookAtUnsaved();
    if (!unsaved) {
        return true;
    }
    const QString& html = unsaved->html;
    const auto page =
        toolkit::StoreBytes(html.toUtf8(), toolkit::TheEditorFolders().pages, kPageEnding);
    if (!page) {
        static_cast<Frame*>(Widget())->Say(u"无法保存文档，请检查磁盘空间和文件夹权限。"_s);
        return false;
    }
    m_lastHtml = html;
    std::vector<NoteFile> files = unsaved->files;
    NoteFile file;
    file.storeName = *page;
    file.localPath = toolkit::TheEditorFolders().pages + *page;
    files.insert(files.begin(), file);
    m_isTold = true;
    if (m_notify != nullptr) {
        m_notify->OnFilesChanged(m_name, files, Sheet()->Note()->toPlainText());
    }
    return true;
}

void CZelvorEditorImpl::OpenLink(const QString& address) {
    const auto attachment = toolkit::AttachmentOf(address);
    if (!attachment) {
        // Text that isn't saved yet hasn't been through the document form.
        if (toolkit::IsLinkAllowed(address)) {
            QDesktopServices::openUrl(QUrl(address));
        }
    } else if (m_notify != nullptr) {
        // Its owner looks for it by the name under which the store keeps it.
        m_notify->OnOpenAttachment(m_name, attachment->storeName, attachment->storeName);
    }
}
