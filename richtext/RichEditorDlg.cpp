#include "richtext/RichEditorDlg.h"

#include "base/StateNames.h"
#include "include/KXEvents.h"
#include "richtext/HistroyTip.h"
#include "richtext/RichFiles.h"
#include "services/Factories.h"
#include "services/IKXPathMng.h"
#include "services/IKXProgressStrip.h"
#include "services/IRichTextMsgMng.h"
#include "toolkit/KXTools.h"
#include "toolkit/Look.h"
#include "toolkit/richtext/NoteEdit.h"
#include "toolkit/richtext/ZelvorEditorImpl.h"
#include "toolkit/windows/Prompts.h"
#include "toolkit/windows/StillThere.h"
#include "toolkit/windows/WindowEnd.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QComboBox>
#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>

#include <algorithm>
#include <set>
#include <utility>

using namespace Qt::StringLiterals;

using ZelvorNRQ_KXVeskPicture::WM_RICH_STATE_CHANGED;

namespace {

constexpr int kRowHeight = 28;
const QString kNoAttachment = u"附件文件不存在！"_s;
const QString kNoRecord = u"富文本信息获取服务调用失败！"_s;

const QString kProgramQuestion = u"附件“%1”是可以运行的程序，可能有害。确定要打开它吗？"_s;

/// As its author called it; one that isn't saved yet has the store's name.
QString ShownName(const std::vector<KX_DATA::RichAttachment>& attachments,
                  const QString& storeName) {
    const auto found = std::ranges::find_if(attachments, [&](const auto& attachment) {
        return richtext::StoreNameOf(attachment) == storeName;
    });
    return found == attachments.end() ? storeName : found->name;
}

/// What a system may run when it is opened: by its ending, or by what it begins with.
bool IsProgram(const QString& path) {
    static const std::set<QString> endings = {
        u"bat"_s, u"cmd"_s, u"com"_s, u"cpl"_s, u"desktop"_s, u"exe"_s, u"hta"_s,     u"jar"_s,
        u"js"_s,  u"jse"_s, u"lnk"_s, u"msi"_s, u"pif"_s,     u"ps1"_s, u"py"_s,      u"scr"_s,
        u"sh"_s,  u"url"_s, u"vbe"_s, u"vbs"_s, u"wsf"_s,     u"run"_s, u"appimage"_s};
    if (endings.contains(QFileInfo(path).suffix().toLower())) {
        return true;
    }
    QFile file(path);
    const QByteArray begin = file.open(QIODevice::ReadOnly) ? file.read(4) : QByteArray();
    return begin.startsWith("#!") || begin.startsWith("MZ") ||
           begin == "\x7f"
                    "ELF";
}

} // namespace

/// The row of controls; the editor is placed below it. Return and Escape reach the editor and
/// nothing around the pane.
class CRichEditorDlg::Frame final : public QWidget {
public:
    explicit Frame(QWidget* parent) : QWidget(parent) { setObjectName(u"richEditorDlg"_s); }
    ~Frame() override { toolkit::TellWindowDies(*this); }

protected:
    void keyPressEvent(QKeyEvent* event) override {
        const int key = event->key();
        if (key != Qt::Key_Return && key != Qt::Key_Enter && key != Qt::Key_Escape) {
            QWidget::keyPressEvent(event);
        }
    }
};

/// While it lives the pane is disabled and the strip says why.
class CRichEditorDlg::Busy final {
public:
    Busy(QWidget* pane, const QString& text) : m_pane(pane) {
        if (m_pane) {
            QWidget* focus = m_pane->window()->focusWidget();
            m_focus = m_pane->isAncestorOf(focus) ? focus : nullptr;
            m_pane->setEnabled(false);
        }
        GetKXProgressStrip()->ShowProgressBar(text, 0);
    }
    ~Busy() {
        GetKXProgressStrip()->CloseProgressBar();
        if (m_pane) {
            m_pane->setEnabled(true);
            if (m_focus) {
                m_focus->setFocus();
            }
        }
    }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;

private:
    QPointer<QWidget> m_pane;
    QPointer<QWidget> m_focus; ///< a part of the pane that had it; it loses it while disabled
};

CRichEditorDlg::CRichEditorDlg() : m_writing([this] { KeepOpen(); }) {
    notify.pane = this;
}

CRichEditorDlg::~CRichEditorDlg() {
    ClosePane();
}

QWidget* CRichEditorDlg::MakeWindow(QWidget* parent) {
    return new Frame(parent);
}

void CRichEditorDlg::OnCreated() {
    auto* row = new QWidget(Widget());
    row->setObjectName(u"richRow"_s);
    stateCombo = new QComboBox(row);
    stateCombo->setObjectName(u"stateCombo"_s);
    stateCombo->setAccessibleName(u"整改情况"_s);
    auto* stateCaption = new QLabel(u"整改情况："_s, row);
    stateCaption->setBuddy(stateCombo);
    m_editorText = new QLabel(row);
    m_editorText->setObjectName(u"editorText"_s);
    m_editorText->setTextFormat(Qt::PlainText);
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(toolkit::kStep, 0, toolkit::kStep, 0);
    line->addWidget(stateCaption);
    line->addWidget(stateCombo);
    line->addSpacing(4 * toolkit::kStep);
    line->addWidget(new QLabel(u"整改人："_s, row));
    line->addWidget(m_editorText, 1);
    editor = std::make_unique<CZelvorEditorImpl>();
    editor->Create(Id());
    editor->SetZvEditorNotify(&notify);
    editor->Widget()->show();
    m_writing.Watch(*editor->Sheet());
    FillStates();
    LayoutPane();
}

void CRichEditorDlg::FillStates() {
    const toolkit::StillThere still(Id());
    const std::vector<QString> names = ZelvorNRQ_KXVeskPicture::ListStates();
    if (!still) {
        return;
    }
    for (const QString& name : names) {
        stateCombo->addItem(name);
    }
    stateCombo->setCurrentIndex(-1);
}

void CRichEditorDlg::LayoutPane() {
    if (!HasWindow() || !editor || !editor->HasWindow()) {
        return;
    }
    const QRect area = Widget()->rect();
    Widget()->findChild<QWidget*>(u"richRow"_s)->setGeometry(0, 0, area.width(), kRowHeight);
    editor->Widget()->setGeometry(area.adjusted(0, kRowHeight, 0, 0));
    Widget()->update();
}

qintptr CRichEditorDlg::OnEvent(const toolkit::WindowEvent& event) {
    if (event.number == kEditorReady) {
        editorReady = true;
        LoadRichText();
        return 0;
    }
    return WindowObject::OnEvent(event);
}

void CRichEditorDlg::OnDestroyed() {
    editorReady = false;
    KeepUnsaved();
    // What could not be kept now stays kept open: a draft after the next start.
    m_writing.Stop();
    if (editor) {
        editor->Destroy();
        editor.reset();
    }
}

void CRichEditorDlg::ClosePane() {
    editorReady = false;
    Destroy();
}

void CRichEditorDlg::ResetPane() {
    m_context = {};
    // A new record holds the present time.
    msg = {};
}

void CRichEditorDlg::GoTo(const RichContext& next) {
    const toolkit::StillThere still(Id());
    if (!SaveRichText()) {
        return;
    }
    m_context = next;
    if (still && editorReady) {
        LoadRichText();
    }
}

KX_DATA::RichTextKey CRichEditorDlg::Key() const {
    KX_DATA::RichTextKey key;
    key.objectId = m_context.objectId;
    key.subId = m_context.subId;
    key.ownerId = m_context.ownerId;
    key.projectId = m_context.projectId;
    key.objectType = m_context.objectType;
    return key;
}

void CRichEditorDlg::Tell(const QString& sentence) const {
    KXTools::ShowMsgBox(Id(), sentence);
}

bool CRichEditorDlg::LoadRichText() {
    const toolkit::StillThere still(Id());
    if (!editor) {
        return false;
    }
    const Busy busy(Widget(), u"富文本信息加载中......"_s);
    msg.attachments.clear();
    KX_DATA::RichTextMsg fresh;
    std::vector<KX_DATA::RichAttachment> attachments;
    const bool isRead = GetRichTextMsgMng()->GetRichText(Key(), fresh, attachments);
    if (!still) {
        return false;
    }
    if (!isRead) {
        Lock();
        Tell(kNoRecord);
        return false;
    }
    m_givenUp.clear();
    msg = std::move(fresh);
    msg.attachments = std::move(attachments);
    // A text that is no state leaves the one of the document before; required as is.
    const int state =
        stateCombo->findText(msg.stateText, Qt::MatchFixedString | Qt::MatchCaseSensitive);
    if (state >= 0) {
        stateCombo->setCurrentIndex(state);
    }
    stateCombo->setEnabled(m_context.readOnly == 0);
    m_editorText->setText(msg.editorName);
    if (msg.docName.isEmpty()) {
        editor->NewEditor(msg.docName, m_context.readOnly);
        return true;
    }
    // A pane that ends meanwhile forgets its record.
    const std::vector<KX_DATA::RichAttachment> wanted = msg.attachments;
    const richtext::Prepared prepared = richtext::PrepareFiles(wanted);
    if (!still) {
        return false;
    }
    if (!prepared.isWhole) {
        Lock();
        Tell(prepared.error);
        return false;
    }
    editor->LoadEditor(msg.docName, prepared.names, prepared.sizes, m_context.readOnly);
    return true;
}

void CRichEditorDlg::KeepOpen() {
    if (!editor || msg.docName.isEmpty() || m_context.readOnly != 0) {
        return;
    }
    const auto unsaved = editor->LookAtUnsaved();
    if (!unsaved) {
        DropOpen();
        return;
    }
    KX_DATA::RichTextDraft draft;
    draft.key = Key();
    draft.docName = msg.docName;
    draft.versionText = msg.versionText;
    draft.stateText = GetStateText();
    draft.files = richtext::ListUploads({}, unsaved->files);
    draft.page = unsaved->html.toUtf8();
    m_keptOpen = draft;
    m_keptOpen->page.clear();
    GetRichTextDrafts()->KeepOpen(draft);
}

void CRichEditorDlg::DropOpen() {
    m_writing.Stop();
    // A save over somebody else's has another name by now.
    if (m_keptOpen) {
        GetRichTextDrafts()->DropOpen(m_keptOpen->key, m_keptOpen->docName);
        m_keptOpen.reset();
    }
}

void CRichEditorDlg::Lock() {
    editor->SetReadOnly(1);
    m_writing.Stop();
}

void CRichEditorDlg::DropLists() {
    DropOpen();
    notify.fileLists.clear();
    ResetPane();
}

bool CRichEditorDlg::SaveRichText() {
    if (!editor || msg.docName.isEmpty() || m_context.readOnly != 0) {
        return true;
    }
    // Nobody goes on from a text that lies nowhere but on the screen.
    if (!editor->SaveEditor()) {
        return false;
    }
    const QString state = stateCombo->currentText();
    // Without a state nothing is saved, whatever was written; required as is.
    if (state.isEmpty()) {
        KeepDraft();
        return true;
    }
    const toolkit::StillThere still(Id());
    const std::vector<NoteFile> files = ListedFiles();
    const bool isChanged = !files.empty() || state != msg.stateText;
    // Who doesn't overwrite drops the own text and goes on; required as is.
    if (isChanged && !CheckRichTextConflict()) {
        KeepDraft();
        DropLists();
        return true;
    }
    if (!isChanged) {
        DropLists();
        return true;
    }
    return still && SaveChanges(state, files);
}

void CRichEditorDlg::SaveEditor() {
    if (editor) {
        editor->SaveEditor();
    }
}

std::vector<NoteFile> CRichEditorDlg::ListedFiles() const {
    const auto listed = notify.fileLists.find(msg.docName);
    return listed == notify.fileLists.end() ? std::vector<NoteFile>() : listed->second;
}

void CRichEditorDlg::KeepDraft() {
    const std::vector<NoteFile> files = ListedFiles();
    const QString given = files.empty() ? QString() : files.front().storeName + GetStateText();
    // Closing a window gives up a second time what had no state to be saved with.
    if (files.empty() || given == m_givenUp) {
        return;
    }
    m_givenUp = given;
    KX_DATA::RichTextDraft draft;
    draft.key = Key();
    draft.docName = msg.docName;
    draft.versionText = msg.versionText;
    draft.stateText = GetStateText();
    draft.files = richtext::ListUploads({}, files);
    GetRichTextDrafts()->Keep(draft);
    // It has taken the place of the open one.
    m_writing.Stop();
    m_keptOpen.reset();
}

void CRichEditorDlg::KeepUnsaved() {
    if (editor && !msg.docName.isEmpty() && m_context.readOnly == 0 && editor->SaveEditor()) {
        KeepDraft();
        DropLists();
    }
}

bool CRichEditorDlg::SaveChanges(const QString& state, const std::vector<NoteFile>& files) {
    const toolkit::StillThere still(Id());
    const Busy busy(Widget(), u"富文本信息保存中......"_s);
    std::vector<QString> removed;
    richtext::Uploaded uploaded;
    if (!files.empty()) {
        removed = richtext::ListRemoved(msg.attachments, files);
        uploaded = richtext::UploadAll(richtext::ListUploads(msg.attachments, files));
    }
    if (!still) {
        return false;
    }
    if (!uploaded.isWhole) {
        Tell(u"上传文件失败："_s + uploaded.error);
        return false;
    }
    const KX_DATA::RichTextMsg saved = msg;
    const KX_DATA::RichTextKey key = Key();
    if (!GetRichTextMsgMng()->SaveRichText(state, saved, key, removed, uploaded.files)) {
        Tell(u"富文本信息保存服务调用失败！"_s);
        return false;
    }
    if (state != saved.stateText) {
        toolkit::PostWindowEvent(toolkit::MainWindow(), WM_RICH_STATE_CHANGED,
                                 quintptr(key.objectType), 0);
    }
    DropLists();
    return true;
}

bool CRichEditorDlg::CheckRichTextConflict() {
    const toolkit::StillThere still(Id());
    KX_DATA::RichTextMsg fresh;
    std::vector<KX_DATA::RichAttachment> attachments;
    const bool isRead = GetRichTextMsgMng()->GetRichText(Key(), fresh, attachments);
    // A pane that ended meanwhile has given its text to the drafts.
    if (!still) {
        return false;
    }
    if (!isRead) {
        Tell(kNoRecord);
        return false;
    }
    fresh.attachments = std::move(attachments);
    if (fresh.versionText == msg.versionText || fresh.editorName.isEmpty()) {
        return true;
    }
    CHistroyTip question(fresh);
    if (question.DoModal(Id()) != DialogResult::Ok || !still) {
        return false;
    }
    const QString kept = msg.docName;
    msg = std::move(fresh);
    if (msg.docName.isEmpty()) {
        msg.docName = kept;
    }
    return true;
}

bool CRichEditorDlg::FetchAttachment(const QString& name, const QString& target, QString& error) {
    if (QFile::exists(target)) {
        return true;
    }
    const auto found = std::ranges::find_if(msg.attachments, [&](const auto& attachment) {
        return richtext::StoreNameOf(attachment) == name;
    });
    if (found == msg.attachments.end() || found->uuid.isEmpty()) {
        error = kNoAttachment;
        return false;
    }
    const QString uuid = found->uuid;
    const Busy busy(Widget(), u"附件下载中......"_s);
    return richtext::FetchRichFile(uuid, target, error);
}

void CRichEditorDlg::OpenAttachment(const QString& folderKey, const QString& attachmentName,
                                    const QString& storeName) {
    const toolkit::StillThere still(Id());
    QString path;
    GetVeskPathTool()->GetAttachFolder(path, folderKey);
    path += storeName;
    QString error;
    if (!FetchAttachment(attachmentName, path, error)) {
        if (still) {
            Tell(error);
        }
        return;
    }
    const QString shown = ShownName(msg.attachments, attachmentName);
    QString openPath;
    GetVeskPathTool()->GetOpenFolder(openPath);
    openPath += attachmentName;
    if (!QFile::exists(openPath)) {
        QFile::copy(path, openPath);
        // Whatever came with it, the system runs nothing of it by itself.
        QFile::setPermissions(openPath, QFile::ReadOwner | QFile::WriteOwner);
    }
    if (IsProgram(openPath) && !toolkit::Prompts().AskNoYes(Id(), kProgramQuestion.arg(shown))) {
        return;
    }
    const bool isOpened = toolkit::Prompts().OpenFile(openPath);
    if (still && !isOpened) {
        Tell(u"没有可以打开该附件的程序：%1。请安装相应的程序后重试。"_s.arg(shown));
    }
    if (still) {
        LayoutPane();
    }
}

QString CRichEditorDlg::GetStateText() const {
    return stateCombo ? stateCombo->currentText() : QString();
}

QString CRichEditorDlg::GetLastHtml() const {
    QString html;
    if (editor) {
        editor->GetLastHtml(html);
    }
    return html;
}
