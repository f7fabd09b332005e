#include "host/ui/filing/InboxWindow.h"

#include "toolkit/Icons.h"
#include "toolkit/Look.h"
#include "toolkit/windows/WindowPlace.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// Name, time, what is missing.
constexpr int kCaptionLines = 3;

QPushButton* NewButton(QWidget* parent, const QString& name, const QString& text,
                       const QKeySequence& key, const QString& tip) {
    auto* button = new QPushButton(text, parent);
    button->setObjectName(name);
    button->setShortcut(key);
    button->setToolTip(
        key.isEmpty() ? tip : u"%1（%2）"_s.arg(tip, key.toString(QKeySequence::NativeText)));
    button->setAutoDefault(false);
    return button;
}

/// A chosen photo is seen to be chosen as a whole. All have the room of a picture and its caption,
/// whatever has come by then: the view measures the first alone.
class InboxCell final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->showDecorationSelected = true;
        option->decorationSize = InboxWindow::kPicture;
    }
};

} // namespace

InboxWindow::InboxWindow(QWidget* parent) : QDialog(parent), m_model(new InboxModel(this)) {
    setObjectName(u"inboxWindow"_s);
    setWindowTitle(u"待归档照片"_s);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    MakeList();
    m_hint = new QLabel(u"没有待归档的照片。"_s, this);
    m_hint->setObjectName(u"inboxHint"_s);
    m_hint->setAlignment(Qt::AlignCenter);
    m_hint->setForegroundRole(QPalette::PlaceholderText);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(12, 12, 12, 12);
    all->setSpacing(12);
    all->addWidget(m_list, 1);
    all->addWidget(m_hint, 1);
    all->addWidget(MakeBottom());
    toolkit::ResizeWithinScreen(*this, QSize(900, 600));
    ConnectParts();
    ShowState();
}

void InboxWindow::MakeList() {
    m_list = new QListView(this);
    m_list->setObjectName(u"inboxList"_s);
    m_list->setAccessibleName(u"待归档照片"_s);
    m_list->setViewMode(QListView::IconMode);
    m_list->setIconSize(kPicture);
    m_list->setGridSize(kPicture + QSize(20, 20 + kCaptionLines * m_list->fontMetrics().height()));
    m_list->setMovement(QListView::Static);
    m_list->setResizeMode(QListView::Adjust);
    m_list->setTextElideMode(Qt::ElideMiddle);
    m_list->setUniformItemSizes(true);
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_list->setMinimumHeight(48); // a low screen has no more
    m_list->setItemDelegate(new InboxCell(m_list));
    m_list->setModel(m_model);
}

QWidget* InboxWindow::MakeBottom() {
    auto* bottom = new QWidget(this);
    m_count = new QLabel(bottom);
    m_count->setObjectName(u"inboxCount"_s);
    m_all = NewButton(bottom, u"inboxAll"_s, u"全选"_s, QKeySequence::SelectAll,
                      u"选中全部照片，未列出的也读取并选中"_s);
    m_console = NewButton(bottom, u"inboxConsole"_s, u"在控制台中列出"_s, {},
                          u"在控制台中只列出待归档的照片"_s);
    m_preview =
        NewButton(bottom, u"inboxPreview"_s, u"预览"_s, {}, u"打开选中的照片（双击，或回车键）"_s);
    m_file = NewButton(bottom, u"inboxFile"_s, u"归档..."_s, Qt::CTRL | Qt::SHIFT | Qt::Key_G,
                       u"为选中的照片一次设定楼层、轴线、标识、标签和状态"_s);
    auto* row = new QHBoxLayout(bottom);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(8);
    row->addWidget(m_count, 1);
    for (QPushButton* button : {m_all, m_console, m_preview, m_file}) {
        row->addWidget(button);
    }
    return bottom;
}

void InboxWindow::ConnectParts() {
    connect(m_file, &QPushButton::clicked, this, &InboxWindow::FilingWanted);
    connect(m_console, &QPushButton::clicked, this, &InboxWindow::ListWanted);
    connect(m_preview, &QPushButton::clicked, this, &InboxWindow::AskForPreview);
    connect(m_all, &QPushButton::clicked, this, &InboxWindow::AllWanted);
    connect(m_list, &QListView::activated, this, &InboxWindow::AskForPreview);
    connect(m_list->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &InboxWindow::ShowState);
    connect(m_model, &QAbstractItemModel::rowsInserted, this, &InboxWindow::ShowState);
}

void InboxWindow::SetItems(InboxModel::Items items, int all) {
    QSet<qint32> chosen;
    for (const InboxItem& item : Chosen()) {
        chosen.insert(item.picId);
    }
    const QModelIndex current = m_list->currentIndex();
    const qint32 currentId = current.isValid() ? m_model->At(current.row()).picId : 0;
    const int scrolled = m_list->verticalScrollBar()->value();
    if (items != m_model->All()) {
        m_model->SetItems(std::move(items), all);
        m_list->doItemsLayout(); // until then there is nothing to scroll
        for (int row = 0; row < m_model->rowCount(); ++row) {
            if (m_model->At(row).picId == currentId) {
                m_list->selectionModel()->setCurrentIndex(m_model->index(row),
                                                          QItemSelectionModel::NoUpdate);
            }
        }
        Choose(chosen);
        m_list->verticalScrollBar()->setValue(scrolled);
    } else {
        m_model->SetItems(std::move(items), all);
    }
    ShowState();
}

void InboxWindow::Choose(const QSet<qint32>& picIds) {
    QItemSelection chosen;
    int first = -1;
    for (int row = 0; row <= m_model->rowCount(); ++row) {
        const bool is = row < m_model->rowCount() && picIds.contains(m_model->At(row).picId);
        if (is && first < 0) {
            first = row;
        } else if (!is && first >= 0) {
            chosen.append(QItemSelectionRange(m_model->index(first), m_model->index(row - 1)));
            first = -1;
        }
    }
    m_list->selectionModel()->select(chosen, QItemSelectionModel::ClearAndSelect);
}

std::vector<InboxItem> InboxWindow::Chosen() const {
    std::vector<int> rows;
    for (const QModelIndex& index : m_list->selectionModel()->selectedIndexes()) {
        rows.push_back(index.row());
    }
    std::sort(rows.begin(), rows.end());
    std::vector<InboxItem> items;
    for (const int row : rows) {
        items.push_back(m_model->At(row));
    }
    return items;
}

void InboxWindow::ChooseAll() {
    m_list->selectAll();
    m_list->setFocus();
}

QWidget& InboxWindow::TipPlace() const {
    return *m_count;
}

void InboxWindow::AskForPreview() {
    const std::vector<InboxItem> chosen = Chosen();
    if (!chosen.empty()) {
        emit PreviewWanted(chosen.front());
    }
}

void InboxWindow::ShowState() {
    const bool isEmpty = m_model->rowCount() == 0;
    m_list->setVisible(!isEmpty);
    m_hint->setVisible(isEmpty);
    const qsizetype chosen = m_list->selectionModel()->selectedIndexes().size();
    m_count->setText(isEmpty ? QString()
                             : u"共 %1 张，已选 %2 张"_s.arg(QString::number(m_model->Total()),
                                                             QString::number(chosen)));
    m_all->setEnabled(!isEmpty);
    m_console->setEnabled(!isEmpty);
    m_preview->setEnabled(chosen == 1);
    m_file->setEnabled(chosen > 0);
}

} // namespace host
