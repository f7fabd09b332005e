#include "host/app/ConsoleWatch.h"

#include "host/app/ConsoleWindow.h"
#include "host/services/Surroundings.h"
#include "host/ui/MainWindow.h"
#include "toolkit/grid/GridModel.h"

#include <QAbstractItemView>
#include <QItemSelectionModel>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// -1: it has none.
int NameColumn(const QAbstractItemModel& rows) {
    for (int column = 0; column < rows.columnCount(); ++column) {
        const QString caption = rows.headerData(column, Qt::Horizontal).toString();
        if (caption == u"照片名称"_s || caption == u"问题主题"_s) {
            return column;
        }
    }
    return -1;
}

} // namespace

ConsoleWatch::ConsoleWatch(MainWindow& mainWindow, Surroundings& surroundings)
    : m_window(mainWindow), m_around(surroundings) {
    m_around.listAsked = [this](site::ListKind kind, const site::ListFilter& filter,
                                const site::ListOrder& order) {
        NoteAsked({kind, filter, order});
    };
}

ConsoleWatch::~ConsoleWatch() {
    m_around.listAsked = {};
}

void ConsoleWatch::NoteAsked(const ListQuestion& asked) {
    QWidget* console = OpenConsole();
    if (console == nullptr) {
        return;
    }
    m_asked = asked;
    if (m_console == console) {
        return;
    }
    m_console = console;
    m_window.HearIn(Command::ExportList, *console);
    m_window.HearIn(Command::FileTicked, *console);
    connect(console, &QObject::destroyed, this, [this, console] {
        // Another one may have been opened by then.
        if (m_console == console) {
            m_console.clear();
        }
        emit Changed();
    });
    FollowRows();
    emit Changed();
    emit Opened(console);
}

void ConsoleWatch::FollowRows() {
    const QAbstractItemView* grid = Grid();
    if (grid == nullptr) {
        return;
    }
    connect(grid->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& row) {
                if (row.isValid() && m_asked.kind == site::ListKind::BimPhotos) {
                    const QModelIndex first = row.siblingAtColumn(0);
                    emit PhotoChosen(
                        first.data(toolkit::GridModel::kRowKeyRole).toString().toInt());
                }
            });
}

QWidget* ConsoleWatch::Console() const {
    return IsOpen(m_console) ? m_console.data() : nullptr;
}

QAbstractItemView* ConsoleWatch::Grid() const {
    const QWidget* console = Console();
    return console == nullptr ? nullptr : console->findChild<QAbstractItemView*>(u"resultGrid"_s);
}

std::vector<ConsoleRow> ConsoleWatch::Ticked() const {
    std::vector<ConsoleRow> ticked;
    const QAbstractItemView* grid = Grid();
    if (grid == nullptr) {
        return ticked;
    }
    const QAbstractItemModel& rows = *grid->model();
    const int names = NameColumn(rows);
    for (int row = 0; row < rows.rowCount(); ++row) {
        const QModelIndex box = rows.index(row, 0);
        if (box.data(Qt::CheckStateRole).toInt() == Qt::Checked) {
            ticked.push_back({box.data(toolkit::GridModel::kRowKeyRole).toString(),
                              box.siblingAtColumn(names).data().toString()});
        }
    }
    return ticked;
}

} // namespace host
