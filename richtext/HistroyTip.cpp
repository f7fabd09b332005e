#include "richtext/HistroyTip.h"

#include "richtext/RichFiles.h"
#include "toolkit/KXTools.h"
#include "toolkit/Look.h"
#include "toolkit/controls/RichLinkButton.h"
#include "toolkit/richtext/ZelvorEditorImpl.h"
#include "toolkit/windows/StillThere.h"
#include "toolkit/windows/WindowPlace.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int kHistoryRow = 28;
constexpr QSize kHistorySize(800, 600);
constexpr qint32 kReadOnly = 1;

QLabel* AddPair(QHBoxLayout& line, QWidget& row, const QString& caption, const QString& name) {
    line.addWidget(new QLabel(caption, &row));
    auto* text = new QLabel(&row);
    text->setObjectName(name);
    text->setTextFormat(Qt::PlainText);
    line.addWidget(text);
    line.addSpacing(4 * toolkit::kStep);
    return text;
}

} // namespace

CHistroyTip::CHistroyTip(KX_DATA::RichTextMsg record) : msg(std::move(record)) {}

void CHistroyTip::OnCreated() {
    Widget()->setObjectName(u"HistroyTip"_s);
    Widget()->setWindowTitle(u"Zelvor KX"_s);
    auto* lines = new QVBoxLayout(Widget());
    lines->setContentsMargins(16, 16, 16, 12);
    lines->setSpacing(12);
    lines->addWidget(new QLabel(u"在编辑期间有其他人对当前进行了修改,是否覆盖?"_s, Widget()));
    historyButton = new CRichLinkButton(u"查看历史"_s, Widget());
    historyButton->setObjectName(u"historyButton"_s);
    historyButton->SizeToContent();
    historyButton->setFixedSize(historyButton->size());
    auto* ok = new QPushButton(u"确定"_s, Widget());
    ok->setObjectName(u"okButton"_s);
    auto* cancel = new QPushButton(u"取消"_s, Widget());
    cancel->setObjectName(u"cancelButton"_s);
    cancel->setDefault(true);
    cancel->setShortcut(Qt::Key_Escape);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(historyButton);
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    lines->addLayout(buttons);
    QObject::connect(historyButton, &QPushButton::clicked, Widget(), [this] {
        CHistroyEditor history(msg);
        history.DoModal(toolkit::MainWindow());
    });
    QObject::connect(ok, &QPushButton::clicked, Widget(), [this] { EndDialog(DialogResult::Ok); });
    QObject::connect(cancel, &QPushButton::clicked, Widget(),
                     [this] { EndDialog(DialogResult::Cancelled); });
    Widget()->adjustSize();
    toolkit::CentreWindow(*Widget());
}

CHistroyEditor::CHistroyEditor(KX_DATA::RichTextMsg record) : msg(std::move(record)) {}

CHistroyEditor::~CHistroyEditor() {
    Destroy();
}

void CHistroyEditor::OnCreated() {
    Widget()->setObjectName(u"HistroyEditor"_s);
    Widget()->setWindowTitle(u"查看历史"_s);
    auto* row = new QWidget(Widget());
    row->setObjectName(u"historyRow"_s);
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(toolkit::kStep, 0, toolkit::kStep, 0);
    m_editorText = AddPair(*line, *row, u"编辑人："_s, u"editorText"_s);
    m_timeText = AddPair(*line, *row, u"更新时间："_s, u"timeText"_s);
    m_stateText = AddPair(*line, *row, u"整改情况："_s, u"stateText"_s);
    line->addStretch(1);
    editor = std::make_unique<CZelvorEditorImpl>();
    editor->Create(Id());
    editor->Widget()->show();
    const auto* leave = new QShortcut(Qt::Key_Escape, Widget());
    QObject::connect(leave, &QShortcut::activated, Widget(),
                     [this] { EndDialog(DialogResult::Cancelled); });
    toolkit::ResizeWithinScreen(*Widget(), kHistorySize);
    toolkit::CentreWindow(*Widget());
    Layout();
}

void CHistroyEditor::OnDestroyed() {
    editor.reset();
}

void CHistroyEditor::Layout() {
    if (!HasWindow() || !editor || !editor->HasWindow()) {
        return;
    }
    const QRect area = Widget()->rect();
    Widget()->findChild<QWidget*>(u"historyRow"_s)->setGeometry(0, 0, area.width(), kHistoryRow);
    editor->Widget()->setGeometry(area.adjusted(0, kHistoryRow, 0, 0));
}

qintptr CHistroyEditor::OnEvent(const toolkit::WindowEvent& event) {
    if (event.number == kEditorReady) {
        m_editorText->setText(msg.editorName);
        m_timeText->setText(KXTools::timeToCString(msg.updateTime));
        m_stateText->setText(msg.stateText);
        Load();
        return 0;
    }
    return CPopTipDlg::OnEvent(event);
}

void CHistroyEditor::Load() {
    if (msg.docName.isEmpty()) {
        editor->SetReadOnly(kReadOnly);
        return;
    }
    const toolkit::StillThere still(Id());
    const richtext::Prepared prepared = richtext::PrepareFiles(msg.attachments);
    if (!still) {
        return;
    }
    if (!prepared.isWhole) {
        KXTools::ShowMsgBox(Id(), prepared.error);
        return;
    }
    editor->LoadEditor(msg.docName, prepared.names, {}, kReadOnly);
}
