#include "host/ui/setup/GridPage.h"

#include "host/setup/AxisList.h"
#include "host/ui/HintTable.h"
#include "host/ui/setup/SetupLists.h"
#include "toolkit/Look.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSplitter>
#include <QTableView>
#include <QVBoxLayout>

namespace host {

using namespace Qt::StringLiterals;

namespace {

using Grid = site::SetupGrid;

/// Floors of the grid that `shown` names.
SetupRows FloorRows(SetupDraft& draft, const QString& shown) {
    const auto edit = [&draft, &shown](const std::function<void(Grid&)>& change) {
        draft.Edit([&](site::SetupState& state) {
            for (Grid& grid : state.grids) {
                if (grid.project == shown) {
                    change(grid);
                }
            }
        });
    };
    SetupRows rows;
    rows.list = site::SetupList::Floor;
    rows.count = [&draft, &shown] {
        const Grid* grid = draft.GridOf(shown);
        return grid == nullptr ? 0 : int(grid->floors.size());
    };
    rows.add = [edit] {
        edit([](Grid& grid) {
            QStringList names;
            for (const site::SetupFloor& floor : grid.floors) {
                names << floor.name;
            }
            // Mostly the next one.
            bool isNumber = false;
            const int last = names.isEmpty() ? 0 : names.back().toInt(&isNumber);
            grid.floors.push_back({FreeName(isNumber || names.isEmpty()
                                                ? QString::number(last + 1 == 0 ? 1 : last + 1)
                                                : u"新楼层"_s,
                                            names),
                                   {}});
        });
    };
    rows.remove = [edit](int row) {
        edit([row](Grid& grid) {
            const QString name = grid.floors[std::size_t(row)].name;
            grid.floors.erase(grid.floors.begin() + row);
            std::erase_if(grid.crossings, [&](const site::SetupCrossing& crossing) {
                return crossing.floor == name;
            });
        });
    };
    rows.move = [edit](int from, int to) {
        edit([from, to](Grid& grid) {
            std::swap(grid.floors[std::size_t(from)], grid.floors[std::size_t(to)]);
        });
    };
    return rows;
}

std::vector<SetupColumn> FloorColumns(SetupDraft& draft, const QString& shown) {
    SetupColumn name;
    name.caption = u"楼层"_s;
    name.width = 0;
    name.tip = u"从下到上排列；改名会带上楼层里的照片、问题和交点"_s;
    name.text = [&draft, &shown](int row) {
        return draft.GridOf(shown)->floors[std::size_t(row)].name;
    };
    name.setText = [&draft, &shown](int row, const QString& text) {
        draft.RenameFloor(shown, row, text);
    };
    return {name};
}

} // namespace

GridPage::GridPage(QWidget* parent, SetupDraft& setupDraft) : QWidget(parent), m_draft(setupDraft) {
    m_project = new QComboBox(this);
    m_project->setObjectName(u"gridProject"_s);
    m_project->setAccessibleName(u"工程"_s);
    m_project->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    auto* caption = new QLabel(u"工程："_s, this);
    caption->setBuddy(m_project);
    auto* top = new QHBoxLayout;
    top->addWidget(caption);
    top->addWidget(m_project);
    top->addStretch(1);
    auto* split = new QSplitter(Qt::Horizontal, this);
    split->setChildrenCollapsible(false);
    m_floors = new SetupListPage(
        split, {u"floors"_s, u"楼层"_s, u"楼层"_s, u"从下到上。平面图、面板和列表都按这个顺序。"_s},
        new SetupListModel(FloorRows(m_draft, m_shown), FloorColumns(m_draft, m_shown), this));
    auto* right = new QWidget(split);
    right->setLayout(MakeAxes());
    split->setStretchFactor(0, 2);
    split->setStretchFactor(1, 3);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(8);
    all->addLayout(top);
    all->addWidget(split, 1);
    connect(m_project, &QComboBox::activated, this, &GridPage::OnProject);
    connect(m_floors, &SetupListPage::RowChanged, this, &GridPage::ShowMatrix);
    connect(&m_floors->Model(), &QAbstractItemModel::dataChanged, this, [this] {
        if (m_floors->CurrentRow() >= 0) {
            ShowMatrix();
        }
    });
    ShowMatrix();
}

QLineEdit* GridPage::MakeAxesEdit(const QString& name, const QString& hint, const QString& tip) {
    auto* line = new QLineEdit(this);
    line->setObjectName(name);
    line->setPlaceholderText(hint);
    line->setToolTip(tip);
    line->setAccessibleName(tip);
    connect(line, &QLineEdit::returnPressed, this, &GridPage::Cross);
    connect(line, &QLineEdit::textChanged, this, [this] {
        m_note->hide();
        emit Typed();
    });
    return line;
}

QPushButton* GridPage::MakeButton(const QString& name, const QString& text, const QString& tip) {
    auto* button = new QPushButton(text, this);
    button->setObjectName(name);
    button->setToolTip(tip);
    button->setAutoDefault(false);
    return button;
}

void GridPage::MakeMatrix() {
    m_matrix = new AxisMatrixModel(m_draft, this);
    m_table = new QTableView(this);
    m_table->setObjectName(u"axisMatrix"_s);
    m_table->setAccessibleName(u"轴线交点"_s);
    m_table->setModel(m_matrix);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setTabKeyNavigation(false);
    m_table->horizontalHeader()->setDefaultSectionSize(40);
    m_table->horizontalHeader()->setMinimumSectionSize(32);
    m_table->verticalHeader()->setDefaultSectionSize(26);
    m_table->verticalHeader()->setDefaultAlignment(Qt::AlignCenter);
    const auto enable = [this] {
        m_removeX->setEnabled(m_table->currentIndex().isValid());
        m_removeY->setEnabled(m_table->currentIndex().isValid());
    };
    connect(m_table->selectionModel(), &QItemSelectionModel::currentChanged, this, enable);
    connect(m_matrix, &QAbstractItemModel::modelReset, this, enable);
}

QLayout* GridPage::MakeAxesLine() {
    m_axesX =
        MakeAxesEdit(u"axesX"_s, u"X轴，如 1-12"_s, u"X轴的名称：范围如 1-12、A-H，或用“、”分开"_s);
    m_axesY =
        MakeAxesEdit(u"axesY"_s, u"Y轴，如 A-H"_s, u"Y轴的名称：范围如 1-12、A-H，或用“、”分开"_s);
    m_cross = MakeButton(u"axesCross"_s, u"加入交点"_s, u"让这些X轴和Y轴两两相交（Enter）"_s);
    m_allFloors = new QCheckBox(u"所有楼层"_s, this);
    m_allFloors->setObjectName(u"axesAllFloors"_s);
    m_allFloors->setToolTip(u"在工程的每个楼层都加入这些交点"_s);
    auto* typed = new QHBoxLayout;
    typed->setSpacing(8);
    typed->addWidget(m_axesX, 1);
    typed->addWidget(m_axesY, 1);
    typed->addWidget(m_allFloors);
    typed->addWidget(m_cross);
    connect(m_cross, &QPushButton::clicked, this, &GridPage::Cross);
    return typed;
}

QLayout* GridPage::MakeAxesButtons() {
    m_copy = MakeButton(u"axesCopy"_s, u"复制到所有楼层"_s, u"让别的楼层也有本楼层的交点"_s);
    m_removeX = MakeButton(u"axesRemoveX"_s, u"删除X轴"_s, u"删除选中格子所在的X轴（本楼层）"_s);
    m_removeY = MakeButton(u"axesRemoveY"_s, u"删除Y轴"_s, u"删除选中格子所在的Y轴（本楼层）"_s);
    auto* below = new QHBoxLayout;
    below->setSpacing(8);
    for (QPushButton* each : {m_removeX, m_removeY, m_copy}) {
        below->addWidget(each);
    }
    below->addStretch(1);
    connect(m_copy, &QPushButton::clicked, this, [this] { m_matrix->CopyTo(AllFloors()); });
    connect(m_removeX, &QPushButton::clicked, this, [this] {
        m_matrix->RemoveAxisX(m_matrix->AxesX().value(m_table->currentIndex().column()));
    });
    connect(m_removeY, &QPushButton::clicked, this, [this] {
        m_matrix->RemoveAxisY(m_matrix->AxesY().value(m_table->currentIndex().row()));
    });
    return below;
}

QLayout* GridPage::MakeAxes() {
    auto* title = new QLabel(u"轴线交点"_s, this);
    title->setFont(toolkit::UiFont(16));
    m_caption = new QLabel(this);
    m_caption->setObjectName(u"gridCaption"_s);
    m_caption->setWordWrap(true);
    m_caption->setTextFormat(Qt::PlainText);
    m_caption->setForegroundRole(QPalette::PlaceholderText);
    m_note = new QLabel(this);
    m_note->setObjectName(u"axesNote"_s);
    m_note->setWordWrap(true);
    m_note->setTextFormat(Qt::PlainText);
    m_note->hide();
    MakeMatrix();
    auto* lines = new QVBoxLayout;
    lines->setContentsMargins(12, 0, 0, 0);
    lines->setSpacing(8);
    lines->addWidget(title);
    lines->addWidget(m_caption);
    lines->addLayout(MakeAxesLine());
    lines->addWidget(m_note);
    lines->addWidget(m_table, 1);
    lines->addLayout(MakeAxesButtons());
    return lines;
}

QString GridPage::Project() const {
    return m_project->currentText();
}

void GridPage::ReadProjects() {
    QStringList names;
    for (const site::SetupProject& project : m_draft.Wanted().projects) {
        names << project.name;
    }
    QStringList shown;
    for (int at = 0; at < m_project->count(); ++at) {
        shown << m_project->itemText(at);
    }
    if (names != shown) {
        // A renamed project keeps its place.
        const int at = names.size() == shown.size() ? m_project->currentIndex()
                                                    : int(names.indexOf(Project()));
        m_project->clear();
        m_project->addItems(names);
        m_project->setCurrentIndex(std::max(at, names.isEmpty() ? -1 : 0));
    }
    OnProject();
}

void GridPage::ShowProject(const QString& project) {
    m_project->setCurrentText(project);
    OnProject();
}

void GridPage::ShowFloor(int row) {
    m_floors->SelectRow(row);
}

void GridPage::OnProject() {
    emit GridWanted(Project());
    // Of the first floors that there are, one is chosen: the axes go to it.
    const int row = m_shown == Project() ? std::max(m_floors->CurrentRow(), 0) : 0;
    m_shown = Project();
    m_floors->Model().Reset();
    m_floors->SelectRow(std::min(row, m_floors->Model().rowCount() - 1));
    ShowMatrix();
}

bool GridPage::HasTyped() const {
    const bool isEmpty = m_axesX->text().trimmed().isEmpty() && m_axesY->text().trimmed().isEmpty();
    return !isEmpty && !Floor().isEmpty();
}

bool GridPage::TakeTyped() {
    if (HasTyped()) {
        Cross();
    }
    return !HasTyped();
}

QString GridPage::Floor() const {
    const site::SetupGrid* grid = m_draft.GridOf(m_shown);
    const int row = m_floors->CurrentRow();
    return grid != nullptr && row >= 0 && row < int(grid->floors.size())
               ? grid->floors[std::size_t(row)].name
               : QString();
}

QStringList GridPage::AllFloors() const {
    QStringList names;
    if (const site::SetupGrid* grid = m_draft.GridOf(m_shown)) {
        for (const site::SetupFloor& floor : grid->floors) {
            names << floor.name;
        }
    }
    return names;
}

void GridPage::ShowMatrix() {
    const QString floor = Floor();
    m_matrix->Show(m_shown, floor);
    m_caption->setText(floor.isEmpty()
                           ? u"先新增并选中一个楼层，再写X轴和Y轴。"_s
                           : u"楼层 %1：勾选的格子是交点，照片按交点归档。"_s.arg(floor));
    for (QWidget* control :
         std::initializer_list<QWidget*>{m_axesX, m_axesY, m_cross, m_copy, m_allFloors, m_table}) {
        control->setEnabled(!floor.isEmpty());
    }
    m_removeX->setEnabled(false);
    m_removeY->setEnabled(false);
}

void GridPage::Cross() {
    const ListedNames axesX = ListedAxes(m_axesX->text());
    const ListedNames axesY = ListedAxes(m_axesY->text());
    QString fault = axesX.fault.isEmpty() ? axesY.fault : axesX.fault;
    if (fault.isEmpty() && (axesX.names.isEmpty() || axesY.names.isEmpty())) {
        fault = u"请同时写X轴和Y轴：只有一个方向的轴线没有交点。"_s;
    }
    m_note->setText(fault);
    m_note->setVisible(!fault.isEmpty());
    QPalette palette = m_note->palette();
    palette.setColor(QPalette::WindowText, toolkit::Colors::ErrorText());
    m_note->setPalette(palette);
    if (fault.isEmpty()) {
        m_matrix->Cross(axesX.names, axesY.names,
                        m_allFloors->isChecked() ? AllFloors() : QStringList{Floor()});
        m_axesX->clear();
        m_axesY->clear();
    }
}

} // namespace host
