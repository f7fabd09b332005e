#include "host/ui/setup/DrawingsPage.h"

#include "toolkit/Icons.h"
#include "toolkit/Look.h"
#include "toolkit/windows/Prompts.h"
#include "toolkit/windows/StillThere.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace host {

using namespace Qt::StringLiterals;

DrawingsPage::DrawingsPage(QWidget* parent, ISetupDesk& setupDesk)
    : QWidget(parent), m_desk(setupDesk) {
    auto* title = new QLabel(u"图纸"_s, this);
    title->setFont(toolkit::UiFont(16));
    auto* about = new QLabel(u"PDF 图纸，检查点和图纸照片在它上面。导入和删除立即生效，不用保存；"
                             "上面还有检查点的图纸不能删除。"_s,
                             this);
    about->setWordWrap(true);
    about->setForegroundRole(QPalette::PlaceholderText);
    m_project = new QComboBox(this);
    m_project->setObjectName(u"drawingsProject"_s);
    m_project->setAccessibleName(u"工程"_s);
    m_project->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    auto* caption = new QLabel(u"工程："_s, this);
    caption->setBuddy(m_project);
    m_list = new QListWidget(this);
    m_list->setObjectName(u"drawingsList"_s);
    m_list->setAccessibleName(u"图纸"_s);
    m_list->setAlternatingRowColors(true);
    m_import = new QPushButton(toolkit::Icon(u"import"_s), u"导入..."_s, this);
    m_import->setObjectName(u"drawingsImport"_s);
    m_import->setToolTip(u"选择一个或多个 PDF 文件"_s);
    m_remove = new QPushButton(toolkit::Icon(u"delete"_s), u"删除"_s, this);
    m_remove->setObjectName(u"drawingsRemove"_s);
    m_remove->setToolTip(u"把选中的图纸放入回收站"_s);
    auto* top = new QHBoxLayout;
    top->addWidget(caption);
    top->addWidget(m_project);
    top->addStretch(1);
    auto* below = new QHBoxLayout;
    below->setSpacing(8);
    for (QPushButton* button : {m_import, m_remove}) {
        button->setAutoDefault(false);
        below->addWidget(button);
    }
    below->addStretch(1);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(8);
    all->addWidget(title);
    all->addWidget(about);
    all->addLayout(top);
    all->addWidget(m_list, 1);
    all->addLayout(below);
    connect(m_project, &QComboBox::activated, this, &DrawingsPage::Reload);
    connect(m_import, &QPushButton::clicked, this, &DrawingsPage::Import);
    connect(m_remove, &QPushButton::clicked, this, &DrawingsPage::Remove);
    connect(m_list, &QListWidget::currentRowChanged, this,
            [this](int row) { m_remove->setEnabled(row >= 0); });
}

qint32 DrawingsPage::Ppid() const {
    return m_project->currentData().toInt();
}

void DrawingsPage::ReadProjects(const std::vector<site::SetupProject>& projects) {
    const qint32 shown = Ppid();
    m_project->clear();
    for (const site::SetupProject& project : projects) {
        if (project.ppid != 0) {
            m_project->addItem(project.name, project.ppid);
        }
    }
    m_project->setCurrentIndex(std::max(0, m_project->findData(shown)));
    Reload();
}

void DrawingsPage::ShowProject(const QString& project) {
    const int at = m_project->findText(project);
    if (at >= 0) {
        m_project->setCurrentIndex(at);
        Reload();
    }
}

void DrawingsPage::Reload() {
    m_list->clear();
    if (Ppid() != 0) {
        for (const SetupDrawing& drawing : m_desk.Drawings(Ppid())) {
            auto* item = new QListWidgetItem(toolkit::Icon(u"drawing"_s), drawing.name, m_list);
            item->setData(Qt::UserRole, drawing.id);
        }
    }
    m_import->setEnabled(Ppid() != 0);
    m_remove->setEnabled(m_list->currentRow() >= 0);
}

void DrawingsPage::Import() {
    const toolkit::StillThere still(this);
    const QStringList paths =
        toolkit::Prompts().AskOpenFiles({toolkit::WindowOf(window()), u"PDF 图纸 (*.pdf)"_s});
    if (still && !paths.isEmpty()) {
        m_desk.ImportDrawings(Ppid(), paths);
    }
}

void DrawingsPage::Remove() {
    const QListWidgetItem* item = m_list->currentItem();
    if (item == nullptr) {
        return;
    }
    const toolkit::StillThere still(this);
    const toolkit::WindowId owner = toolkit::WindowOf(window());
    const qint32 id = item->data(Qt::UserRole).toInt();
    const bool isSure = toolkit::Prompts().AskYesNo(
        owner, u"把图纸“%1”放入回收站吗？30 天内可以恢复。"_s.arg(item->text()));
    if (!still || !isSure) {
        return;
    }
    const QString fault = m_desk.RemoveDrawing(Ppid(), id);
    if (!fault.isEmpty()) {
        toolkit::Prompts().ShowMessage(owner, fault);
    }
    if (still) {
        Reload();
    }
}

} // namespace host
