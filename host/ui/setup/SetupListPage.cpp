#include "host/ui/setup/SetupListPage.h"

#include "host/ui/HintTable.h"
#include "host/ui/setup/SetupDelegate.h"
#include "toolkit/Icons.h"
#include "toolkit/Look.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace host {

using namespace Qt::StringLiterals;

namespace {

QPushButton* PageButton(QWidget* parent, const QString& name, const QString& icon,
                        const QString& text, const QString& tip) {
    auto* button = new QPushButton(text, parent);
    button->setObjectName(name);
    button->setToolTip(tip);
    button->setAutoDefault(false);
    if (!icon.isEmpty()) {
        button->setIcon(toolkit::Icon(icon));
    }
    return button;
}

} // namespace

SetupListPage::SetupListPage(QWidget* parent, const Looks& looks, SetupListModel* listModel)
    : QWidget(parent), m_model(listModel) {
    m_model->setParent(this);
    auto* title = new QLabel(looks.title, this);
    title->setFont(toolkit::UiFont(16));
    auto* about = new QLabel(looks.about, this);
    about->setWordWrap(true);
    about->setForegroundRole(QPalette::PlaceholderText);
    MakeTable();
    m_table->setObjectName(looks.name + u"Table"_s);
    m_table->setAccessibleName(looks.title);
    m_table->SetHint(u"还没有%1。请按“新增”，或粘贴一张表格。"_s.arg(looks.what));
    const auto button = [&](const QString& suffix, const QString& icon, const QString& text,
                            const QString& tip) {
        return PageButton(this, looks.name + suffix, icon, text, tip);
    };
    m_add = button(u"Add"_s, {}, u"新增"_s, u"在末尾新增一个%1（Insert）"_s.arg(looks.what));
    m_remove = button(u"Remove"_s, u"delete"_s, u"删除"_s,
                      u"删除没有被使用的%1（Delete）"_s.arg(looks.what));
    m_paste = button(u"Paste"_s, u"copy"_s, u"粘贴表格"_s,
                     u"从剪贴板读取一张表格，第一行是列名，先看将有哪些变化（Ctrl+V）"_s);
    m_buttons = new QHBoxLayout;
    m_buttons->setSpacing(8);
    m_buttons->addWidget(m_add);
    m_buttons->addWidget(m_remove);
    if (m_model->Rows().move) {
        m_up = button(u"Up"_s, {}, u"上移"_s, u"把选中的一行上移（Alt+Up）"_s);
        m_down = button(u"Down"_s, {}, u"下移"_s, u"把选中的一行下移（Alt+Down）"_s);
        m_buttons->addWidget(m_up);
        m_buttons->addWidget(m_down);
        connect(m_up, &QPushButton::clicked, this, [this] { Move(true); });
        connect(m_down, &QPushButton::clicked, this, [this] { Move(false); });
    }
    m_buttons->addStretch(1);
    m_buttons->addWidget(m_paste);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(8);
    all->addWidget(title);
    all->addWidget(about);
    all->addWidget(m_table, 1);
    all->addLayout(m_buttons);
    connect(m_add, &QPushButton::clicked, this, &SetupListPage::Add);
    connect(m_remove, &QPushButton::clicked, this, [this] { emit RemovalWanted(CurrentRow()); });
    connect(m_paste, &QPushButton::clicked, this, &SetupListPage::PasteWanted);
    EnableButtons();
}

void SetupListPage::MakeTable() {
    m_table = new HintTable(this);
    m_table->setModel(m_model);
    m_table->setItemDelegate(new SetupDelegate(m_table));
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                             QAbstractItemView::AnyKeyPressed | QAbstractItemView::SelectedClicked);
    for (int column = 0; column < m_model->columnCount(); ++column) {
        const int width = m_model->Column(column).width;
        if (width == 0) {
            m_table->horizontalHeader()->setSectionResizeMode(column, QHeaderView::Stretch);
        } else {
            m_table->setColumnWidth(column, width);
        }
    }
    m_table->installEventFilter(this);
    const auto changed = [this] {
        EnableButtons();
        emit RowChanged();
    };
    connect(m_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this, changed);
    connect(m_model, &QAbstractItemModel::rowsInserted, this, changed);
    connect(m_model, &QAbstractItemModel::rowsRemoved, this, changed);
    connect(m_model, &QAbstractItemModel::rowsMoved, this, changed);
    connect(m_model, &QAbstractItemModel::modelReset, this, changed);
}

int SetupListPage::CurrentRow() const {
    const QModelIndex current = m_table->currentIndex();
    return current.isValid() ? current.row() : -1;
}

void SetupListPage::SelectRow(int row) {
    if (row >= 0 && row < m_model->rowCount()) {
        m_table->setCurrentIndex(m_model->index(row, 0));
        m_table->scrollTo(m_model->index(row, 0));
    }
}

void SetupListPage::AddButton(QPushButton* button) {
    button->setAutoDefault(false);
    // Before the stretch.
    m_buttons->insertWidget(m_buttons->count() - 2, button);
}

void SetupListPage::EndTyping() {
    // The editor takes what stands in it as it loses the focus.
    if (m_table->isAncestorOf(focusWidget())) {
        m_table->setFocus();
    }
}

void SetupListPage::Add() {
    EndTyping();
    const int row = m_model->AddRow();
    SelectRow(row);
    m_table->edit(m_model->index(row, 0));
    // What is typed takes the place of the proposed name.
    if (auto* name = m_table->viewport()->findChild<QLineEdit*>()) {
        name->selectAll();
    }
}

void SetupListPage::Move(bool up) {
    EndTyping();
    SelectRow(m_model->MoveRow(CurrentRow(), up));
}

void SetupListPage::EnableButtons() {
    const int row = CurrentRow();
    m_remove->setEnabled(row >= 0);
    if (m_up != nullptr) {
        m_up->setEnabled(row > 0);
        m_down->setEnabled(row >= 0 && row + 1 < m_model->rowCount());
    }
}

bool SetupListPage::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) {
        return QWidget::eventFilter(watched, event);
    }
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool alt = key->modifiers() == Qt::AltModifier;
    if (key->matches(QKeySequence::Paste)) {
        emit PasteWanted();
    } else if (key->key() == Qt::Key_Insert) {
        Add();
    } else if (key->key() == Qt::Key_Delete && CurrentRow() >= 0) {
        emit RemovalWanted(CurrentRow());
    } else if (alt && m_up != nullptr && key->key() == Qt::Key_Up) {
        Move(true);
    } else if (alt && m_up != nullptr && key->key() == Qt::Key_Down) {
        Move(false);
    } else {
        return QWidget::eventFilter(watched, event);
    }
    return true;
}

} // namespace host
