#include "host/ui/setup/SetupWindow.h"

#include "host/ui/HintTable.h"
#include "host/ui/setup/DrawingsPage.h"
#include "host/ui/setup/GridPage.h"
#include "host/ui/setup/SetupLists.h"
#include "toolkit/Icons.h"
#include "toolkit/Look.h"
#include "toolkit/windows/Prompts.h"
#include "toolkit/windows/StillThere.h"
#include "toolkit/windows/WindowPlace.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QCloseEvent>
#include <QColorDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScrollArea>
#include <QStackedWidget>
#include <QTimer>
#include <QVBoxLayout>

namespace host {

using namespace Qt::StringLiterals;
using site::SetupList;

namespace {

/// After the last letter, before faults are looked for, milliseconds.
constexpr int kCheckPauseMs = 150;

struct PageLook {
    QString icon;
    SetupListPage::Looks looks;
    SetupListModel* (*make)(SetupDraft&, QObject*);
};

/// In the order of the pages.
const std::vector<PageLook>& ListPages() {
    static const std::vector<PageLook> pages = {
        {u"project"_s,
         {u"projects"_s, u"工程"_s, u"工程"_s,
          u"照片、问题和图纸都属于一个工程。做完的工程可以归档：不再出现在选择中，内容都保留。"_s},
         MakeProjectsModel},
        {u"console"_s,
         {u"worksets"_s, u"工作集"_s, u"工作集"_s,
          u"把几个工程一起打开，控制台同时列出它们的内容。"_s},
         MakeWorksetsModel},
        {u"user"_s,
         {u"people"_s, u"人员"_s, u"人员"_s,
          u"谁可以登录，可以做什么。选一个角色，或逐项勾选权限；不能删除的人员可以停用。"_s},
         MakePeopleModel},
        {u"flag"_s,
         {u"marks"_s, u"标识"_s, u"标识"_s, u"照片和问题的种类，如质量、安全、进度。"_s},
         MakeMarksModel},
        {u"pin"_s,
         {u"labels"_s, u"标签"_s, u"标签"_s, u"照片和检查点上的附加说明，可以有多个。"_s},
         MakeLabelsModel}};
    return pages;
}

QString NameIn(const SetupDraft& draft, SetupList list, int row) {
    const auto at = std::size_t(row);
    switch (list) {
    case SetupList::Project:
        return draft.Wanted().projects[at].name;
    case SetupList::Workset:
        return draft.Wanted().worksets[at].name;
    case SetupList::Person:
        return draft.Wanted().people[at].name;
    case SetupList::Mark:
        return draft.Wanted().marks[at].name;
    case SetupList::Label:
        return draft.Wanted().labels[at].name;
    case SetupList::Floor:
    case SetupList::Crossing:
        break;
    }
    return {};
}

qint32 IdIn(const SetupDraft& draft, SetupList list, int row) {
    const auto at = std::size_t(row);
    switch (list) {
    case SetupList::Project:
        return draft.Wanted().projects[at].ppid;
    case SetupList::Person:
        return draft.Wanted().people[at].id;
    case SetupList::Mark:
        return draft.Wanted().marks[at].id;
    case SetupList::Label:
        return draft.Wanted().labels[at].id;
    case SetupList::Workset:
    case SetupList::Floor:
    case SetupList::Crossing:
        break;
    }
    return 0;
}

QString Instead(SetupList list) {
    return list == SetupList::Project  ? u"可以改为归档。"_s
           : list == SetupList::Person ? u"可以改为停用。"_s
                                       : QString();
}

/// On a low screen a page scrolls by itself; the list of pages and the buttons below stay in sight.
QWidget* Scrolling(QWidget* page) {
    auto* room = new QScrollArea;
    room->setFrameShape(QFrame::NoFrame);
    room->setWidgetResizable(true);
    room->setFocusPolicy(Qt::NoFocus);
    room->setWidget(page);
    return room;
}

} // namespace

SetupWindow::SetupWindow(QWidget* parent, ISetupDesk& setupDesk)
    : QDialog(parent), m_desk(setupDesk), m_draft(new SetupDraft(this)) {
    setObjectName(u"setupWindow"_s);
    // Boxes and file dialogs lie on this window and give the keyboard back to it.
    toolkit::RegisterWindow(this, [](const toolkit::WindowEvent&) { return 0; });
    setWindowTitle(u"设置"_s);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    m_pages = new QListWidget(this);
    m_pages->setObjectName(u"setupPages"_s);
    m_pages->setAccessibleName(u"设置的页"_s);
    m_pages->setIconSize(QSize(16, 16));
    m_pages->setFixedWidth(132);
    m_stack = new QStackedWidget(this);
    MakePages();
    auto* middle = new QHBoxLayout;
    middle->setSpacing(12);
    middle->addWidget(m_pages);
    middle->addWidget(m_stack, 1);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(12, 12, 12, 12);
    all->setSpacing(12);
    all->addLayout(middle, 1);
    all->addLayout(MakeBottom());
    toolkit::ResizeWithinScreen(*this, QSize(980, 620));
    toolkit::ScrollIfTooLarge(*this);
    m_check = new QTimer(this);
    m_check->setSingleShot(true);
    m_check->setInterval(kCheckPauseMs);
    connect(m_check, &QTimer::timeout, this, &SetupWindow::ShowFaults);
    connect(m_draft, &SetupDraft::Changed, this, [this] {
        ShowState();
        m_check->start();
    });
    connect(m_draft, &SetupDraft::Begun, this, [this] {
        for (SetupListPage* page : m_lists) {
            page->Model().Reset();
        }
    });
    connect(m_pages, &QListWidget::currentRowChanged, this, [this](int row) {
        EndTyping();
        m_stack->setCurrentIndex(row);
        if (row == int(Page::Grid)) {
            m_grid->ReadProjects();
        } else if (row == int(Page::Drawings)) {
            m_drawings->ReadProjects(m_draft->Seen().projects);
        }
    });
    Begin();
    m_pages->setCurrentRow(0);
}

void SetupWindow::MakePages() {
    for (const PageLook& look : ListPages()) {
        auto* page = new SetupListPage(m_stack, look.looks, look.make(*m_draft, this));
        MakeListPage(Page(m_lists.size()), page);
        new QListWidgetItem(toolkit::Icon(look.icon), look.looks.title, m_pages);
    }
    m_color = new QPushButton(u"颜色..."_s, this);
    m_color->setObjectName(u"marksColor"_s);
    m_color->setToolTip(u"为选中的标识选择颜色"_s);
    SetupListPage* marks = m_lists[std::size_t(Page::Marks)];
    marks->AddButton(m_color);
    connect(m_color, &QPushButton::clicked, this, &SetupWindow::PickColor);
    m_grid = new GridPage(m_stack, *m_draft);
    m_stack->addWidget(Scrolling(m_grid));
    new QListWidgetItem(toolkit::Icon(u"plan"_s), u"楼层和轴线"_s, m_pages);
    connect(m_grid, &GridPage::GridWanted, this, &SetupWindow::WantGrid);
    connect(&m_grid->Floors(), &SetupListPage::RemovalWanted, this, &SetupWindow::RemoveFloor);
    connect(m_grid, &GridPage::Typed, this, &SetupWindow::ShowState);
    connect(&m_grid->Floors(), &SetupListPage::PasteWanted, this,
            [this] { Paste(SetupList::Floor); });
    m_grid->Matrix().SetKeeps([this](const QString& positionKey) {
        // What could not be found out is kept, too.
        const auto uses = m_desk.CrossingUses(positionKey);
        return !uses || !uses->isEmpty();
    });
    m_drawings = new DrawingsPage(m_stack, m_desk);
    m_stack->addWidget(Scrolling(m_drawings));
    new QListWidgetItem(toolkit::Icon(u"drawing"_s), u"图纸"_s, m_pages);
    for (int at = 0; at < m_pages->count(); ++at) {
        m_pages->item(at)->setSizeHint(QSize(0, 32));
    }
}

void SetupWindow::MakeListPage(Page page, SetupListPage* made) {
    m_lists.push_back(made);
    m_stack->insertWidget(int(page), Scrolling(made));
    connect(made, &SetupListPage::RemovalWanted, this,
            [this, made](int row) { Remove(*made, row); });
    connect(made, &SetupListPage::PasteWanted, this,
            [this, made] { Paste(made->Model().Rows().list); });
}

QLayout* SetupWindow::MakeBottom() {
    const auto button = [this](const QString& name, const QString& text, const QString& tip) {
        auto* made = new QPushButton(text, this);
        made->setObjectName(name);
        made->setToolTip(tip);
        made->setAutoDefault(false);
        made->setMinimumWidth(80);
        return made;
    };
    auto* import = button(u"setupImport"_s, u"从文件读取..."_s,
                          u"从 Excel 工作簿、CSV 或设置文件读取，先看将有哪些变化"_s);
    auto* write =
        button(u"setupExport"_s, u"写入文件..."_s, u"把已保存的设置写成文件，可以在别的站点读取"_s);
    m_save = button(u"setupSave"_s, u"保存"_s, u"保存所有页的修改（Ctrl+S）"_s);
    m_save->setShortcut(Qt::CTRL | Qt::Key_S);
    auto* close = button(u"setupClose"_s, u"关闭"_s, u"关闭设置（Esc）"_s);
    m_note = new QLabel(this);
    m_note->setObjectName(u"setupNote"_s);
    m_note->setTextFormat(Qt::PlainText);
    m_note->setWordWrap(true);
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    row->addWidget(import);
    row->addWidget(write);
    row->addWidget(m_note, 1);
    row->addWidget(m_save);
    row->addWidget(close);
    connect(import, &QPushButton::clicked, this, &SetupWindow::Import);
    connect(write, &QPushButton::clicked, this, &SetupWindow::Export);
    connect(m_save, &QPushButton::clicked, this, &SetupWindow::Save);
    connect(close, &QPushButton::clicked, this, &QWidget::close);
    return row;
}

bool SetupWindow::Begin() {
    const auto state = m_desk.Read();
    if (state) {
        m_draft->Begin(*state);
    }
    return state.has_value();
}

void SetupWindow::ShowPage(Page page) {
    m_pages->setCurrentRow(int(page));
}

void SetupWindow::ShowProject(const QString& project) {
    m_grid->ReadProjects();
    m_grid->ShowProject(project);
    m_drawings->ReadProjects(m_draft->Seen().projects);
    m_drawings->ShowProject(project);
}

void SetupWindow::ReloadDrawings() {
    m_drawings->Reload();
}

bool SetupWindow::HasUnsaved() const {
    return m_draft->IsChanged() || m_grid->HasTyped();
}

void SetupWindow::EndTyping() {
    for (SetupListPage* page : m_lists) {
        page->EndTyping();
    }
    m_grid->Floors().EndTyping();
}

void SetupWindow::ShowState() {
    m_save->setEnabled(HasUnsaved());
    setWindowTitle(HasUnsaved() ? u"设置（未保存）"_s : u"设置"_s);
}

void SetupWindow::ShowFaults() {
    const std::vector<site::SetupFault> faults = m_draft->Faults();
    for (SetupListPage* page : m_lists) {
        page->Model().SetFaults(faults);
    }
    std::vector<site::SetupFault> floors;
    for (const site::SetupFault& fault : faults) {
        if (fault.project == m_grid->Project()) {
            floors.push_back(fault);
        }
    }
    m_grid->Floors().Model().SetFaults(floors);
    QPalette palette = m_note->palette();
    palette.setColor(QPalette::WindowText,
                     faults.empty() ? toolkit::Colors::HintText() : toolkit::Colors::ErrorText());
    m_note->setPalette(palette);
    m_note->setText(!faults.empty() ? faults.front().text
                    : HasUnsaved()  ? u"有未保存的修改"_s
                                    : QString());
}

void SetupWindow::WantGrid(const QString& project) {
    if (m_draft->GridOf(project) != nullptr) {
        return;
    }
    for (const site::SetupProject& each : m_draft->Wanted().projects) {
        if (each.name != project) {
            continue;
        }
        if (each.ppid == 0) {
            m_draft->AddGrid({project, {}, {}}, project);
        } else if (const auto grid = m_desk.ReadGrid(each.ppid)) {
            m_draft->AddGrid(*grid, project);
        }
    }
}

bool SetupWindow::IsUnused(const std::optional<QString>& uses, SetupList list, const QString& name,
                           const QString& instead) {
    if (!uses) {
        return false;
    }
    if (!uses->isEmpty()) {
        toolkit::Prompts().ShowMessage(
            toolkit::WindowOf(this),
            u"%1“%2”正在使用（%3），不能删除。%4"_s.arg(site::NameOf(list), name, *uses, instead));
        return false;
    }
    return toolkit::Prompts().AskYesNo(
        toolkit::WindowOf(this),
        u"%1“%2”没有被使用，可以删除。删除它吗？保存后生效。"_s.arg(site::NameOf(list), name));
}

void SetupWindow::Remove(SetupListPage& page, int row) {
    page.EndTyping();
    const SetupList list = page.Model().Rows().list;
    if (row < 0 || row >= page.Model().rowCount()) {
        return;
    }
    const qint32 id = IdIn(*m_draft, list, row);
    const toolkit::StillThere still(this);
    // A workset holds nothing, and what isn't saved nobody uses.
    const std::optional<QString> uses =
        id == 0 ? std::optional<QString>(QString()) : m_desk.Uses(list, id);
    if (IsUnused(uses, list, NameIn(*m_draft, list, row), Instead(list)) && still &&
        row < page.Model().rowCount()) {
        page.Model().RemoveRow(row);
    }
}

void SetupWindow::RemoveFloor(int row) {
    const site::SetupGrid* grid = m_draft->GridOf(m_grid->Project());
    if (grid == nullptr || row < 0 || row >= int(grid->floors.size())) {
        return;
    }
    const site::SetupFloor floor = grid->floors[std::size_t(row)];
    std::optional<QString> uses = QString();
    for (const site::SetupProject& project : m_draft->Wanted().projects) {
        if (project.name == m_grid->Project() && project.ppid != 0 && !floor.was.isEmpty()) {
            uses = m_desk.FloorUses(project.ppid, floor.was);
        }
    }
    const toolkit::StillThere still(this);
    if (IsUnused(uses, SetupList::Floor, floor.name, {}) && still &&
        row < m_grid->Floors().Model().rowCount()) {
        m_grid->Floors().Model().RemoveRow(row);
    }
}

void SetupWindow::PickColor() {
    SetupListPage& page = *m_lists[std::size_t(Page::Marks)];
    const int row = page.CurrentRow();
    if (row < 0) {
        return;
    }
    auto* dialog = new QColorDialog(
        toolkit::ColorFromBgr(m_draft->Wanted().marks[std::size_t(row)].color), this);
    dialog->setObjectName(u"markColor"_s);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QColorDialog::colorSelected, this, [&page, row](const QColor& color) {
        page.Model().setData(page.Model().index(row, 1), color.name(), Qt::EditRole);
    });
    dialog->open();
}

} // namespace host
