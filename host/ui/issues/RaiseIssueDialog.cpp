#include "host/ui/issues/RaiseIssueDialog.h"

#include "host/ui/LocalPaths.h"
#include "host/ui/LocateText.h"
#include "toolkit/Look.h"
#include "toolkit/controls/Swatch.h"
#include "toolkit/controls/TextLimit.h"
#include "toolkit/windows/Prompts.h"
#include "toolkit/windows/StillThere.h"
#include "toolkit/windows/WindowPlace.h"
#include "toolkit/windows/WindowRegistry.h"
#include "ui_RaiseIssueDialog.h"

#include <QDragEnterEvent>
#include <QPushButton>
#include <QScrollArea>

namespace host {

using namespace Qt::StringLiterals;

RaiseIssueDialog::RaiseIssueDialog(QWidget* parent,
                                   const std::map<qint32, KX_DATA::MarkRecord>& marks)
    : QDialog(parent), m_form(std::make_unique<Ui::RaiseIssueDialog>()) {
    m_form->setupUi(this);
    setObjectName(u"raiseIssueDialog"_s);
    setAcceptDrops(true);
    m_form->pictureList->setAcceptDrops(false); // the dialog takes them
    m_pictures = std::make_unique<PictureList>(*m_form->pictureList);
    QPalette red = m_form->faultLabel->palette();
    red.setColor(QPalette::WindowText, toolkit::Colors::ErrorText());
    m_form->faultLabel->setPalette(red);
    m_form->pictureNote->setForegroundRole(QPalette::PlaceholderText);
    QPushButton* ok = m_form->buttons->button(QDialogButtonBox::Ok);
    ok->setObjectName(u"fileIssue"_s);
    ok->setText(u"登记"_s);
    ok->setToolTip(u"登记问题（Enter）"_s);
    toolkit::LimitText(*m_form->subjectEdit, kMostSubject);
    toolkit::LimitText(*m_form->descriptionEdit, kMostDescription);
    FillMarkList(marks);
    ConnectForm();
    ShowFault({});
    ShowCount();
    toolkit::ScrollIfTooLarge(*this);
    // Its questions lie on it, not on the main window.
    toolkit::RegisterWindow(this, [](const toolkit::WindowEvent&) { return 0; });
}

RaiseIssueDialog::~RaiseIssueDialog() = default;

void RaiseIssueDialog::FillMarkList(const std::map<qint32, KX_DATA::MarkRecord>& marks) {
    for (const auto& [markId, mark] : marks) {
        m_form->markCombo->addItem(toolkit::SwatchIcon(toolkit::ColorFromBgr(mark.color)),
                                   mark.name, markId);
    }
    if (marks.empty()) {
        m_form->markCombo->addItem(u"不指定"_s, 0);
        m_form->markCombo->setEnabled(false);
    }
}

void RaiseIssueDialog::ConnectForm() {
    connect(m_form->pickButton, &QPushButton::clicked, this, [this] {
        ShowFault({});
        emit PickWanted();
    });
    connect(m_form->addButton, &QPushButton::clicked, this, &RaiseIssueDialog::AskForPictures);
    connect(m_form->removeButton, &QPushButton::clicked, m_pictures.get(),
            &PictureList::RemoveSelected);
    connect(m_pictures.get(), &PictureList::Changed, this, &RaiseIssueDialog::ShowCount);
    connect(m_form->pictureList, &QListWidget::itemSelectionChanged, this,
            &RaiseIssueDialog::ShowCount);
    connect(m_form->buttons, &QDialogButtonBox::accepted, this, &RaiseIssueDialog::File);
    connect(m_form->buttons, &QDialogButtonBox::rejected, this, &RaiseIssueDialog::reject);
}

void RaiseIssueDialog::SetComponent(const PlanComponent& component) {
    m_component = component;
    // As the module writes it in its editor.
    const QString floor = component.floor.isEmpty() ? QString() : FloorCaption(component.floor);
    QString text = floor;
    for (const QString& part : {component.subName, component.name}) {
        text += part.isEmpty() ? QString() : (text.isEmpty() ? part : u' ' + part);
    }
    m_form->componentText->setText(text);
    m_form->componentText->setToolTip(toolkit::PlainTip(text));
    ShowFault({});
}

void RaiseIssueDialog::TakeComponentBack() {
    if (m_component) {
        m_component.reset();
        m_form->componentText->setText(u"未选构件"_s);
        m_form->componentText->setToolTip({});
        ShowFault(u"工程已更换，请重新选择构件。"_s);
    }
}

void RaiseIssueDialog::AddPictures(const QStringList& paths) {
    ShowFault(m_pictures->Add(paths));
}

void RaiseIssueDialog::AskForPictures() {
    const toolkit::StillThere still(this);
    const QStringList chosen = toolkit::Prompts().AskOpenFiles(
        {toolkit::WindowOf(this), u"图片 (*.jpg *.jpeg *.png *.bmp *.gif);;所有文件 (*)"_s});
    if (still && !chosen.isEmpty()) {
        AddPictures(chosen);
    }
}

void RaiseIssueDialog::ShowCount() {
    const size_t count = m_pictures->Pictures().size();
    m_form->pictureNote->setText(count == 0 ? u"还没有图片：把文件拖到本窗口上，或点“添加图片”"_s
                                            : u"共 %1 张图片"_s.arg(count));
    m_form->removeButton->setEnabled(!m_form->pictureList->selectedItems().isEmpty());
}

void RaiseIssueDialog::ShowFault(const QString& text) {
    m_form->faultLabel->setText(text);
    m_form->faultLabel->setVisible(!text.isEmpty());
    // On a low screen the form scrolls, and its end is out of sight.
    auto* area = findChild<QScrollArea*>();
    if (area != nullptr && area->isAncestorOf(m_form->faultLabel) && !text.isEmpty()) {
        area->widget()->layout()->activate();
        area->ensureWidgetVisible(m_form->faultLabel);
    }
}

void RaiseIssueDialog::RefuseAt(QWidget* control, const QString& text) {
    control->setFocus();
    ShowFault(text);
}

void RaiseIssueDialog::File() {
    ShowFault({});
    IssueDraft draft;
    draft.subject = m_form->subjectEdit->text().trimmed();
    if (draft.subject.isEmpty()) {
        RefuseAt(m_form->subjectEdit, u"问题名称不能为空"_s);
        return;
    }
    if (!m_component) {
        RefuseAt(m_form->pickButton, u"请选择一个构件！"_s);
        return;
    }
    draft.description = m_form->descriptionEdit->toPlainText();
    draft.markId = m_form->markCombo->currentData().toInt();
    draft.component = *m_component;
    draft.pictures = m_pictures->Pictures();
    emit FilingWanted(draft);
}

bool RaiseIssueDialog::IsBegun() const {
    return m_component || !m_form->subjectEdit->text().isEmpty() ||
           !m_form->descriptionEdit->toPlainText().isEmpty() || !m_pictures->Pictures().empty();
}

void RaiseIssueDialog::reject() {
    const toolkit::StillThere still(this);
    const bool leave = !IsBegun() || toolkit::Prompts().AskYesNo(
                                         toolkit::WindowOf(this),
                                         u"问题还没有登记，关闭后已填写的内容会丢失。要关闭吗？"_s);
    if (still && leave) {
        QDialog::reject();
    }
}

void RaiseIssueDialog::dragEnterEvent(QDragEnterEvent* event) {
    if (MayDrop(*event)) {
        event->acceptProposedAction();
    }
}

void RaiseIssueDialog::dropEvent(QDropEvent* event) {
    if (MayDrop(*event)) {
        event->acceptProposedAction();
        AddPictures(LocalPaths(event->mimeData()));
    }
}

} // namespace host
