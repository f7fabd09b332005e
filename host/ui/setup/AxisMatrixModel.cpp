#include "host/ui/setup/AxisMatrixModel.h"

#include "toolkit/Look.h"

#include <algorithm>
#include <set>

namespace host {

using namespace Qt::StringLiterals;
using site::SetupCrossing;

namespace {

/// As plan and editors list them: shorter names first.
bool IsAxisBefore(const QString& one, const QString& other) {
    return one.size() != other.size() ? one.size() < other.size() : one < other;
}

QStringList InOrder(const std::set<QString>& names) {
    QStringList ordered(names.begin(), names.end());
    std::sort(ordered.begin(), ordered.end(), IsAxisBefore);
    return ordered;
}

bool IsSamePlace(const SetupCrossing& one, const SetupCrossing& other) {
    return one.floor == other.floor && one.axisX == other.axisX && one.axisY == other.axisY;
}

void AddWhereMissing(std::vector<SetupCrossing>& crossings, std::vector<SetupCrossing> wished) {
    std::set<std::tuple<QString, QString, QString>> known;
    for (const SetupCrossing& crossing : crossings) {
        known.emplace(crossing.floor, crossing.axisX, crossing.axisY);
    }
    for (SetupCrossing& crossing : wished) {
        if (known.emplace(crossing.floor, crossing.axisX, crossing.axisY).second) {
            crossings.push_back(std::move(crossing));
        }
    }
}

} // namespace

AxisMatrixModel::AxisMatrixModel(SetupDraft& setupDraft, QObject* parent)
    : QAbstractTableModel(parent), m_draft(setupDraft) {}

void AxisMatrixModel::Show(const QString& project, const QString& floor) {
    m_project = project;
    m_floor = floor;
    beginResetModel();
    ReadAxes();
    endResetModel();
}

void AxisMatrixModel::ReadAxes() {
    std::set<QString> axesX;
    std::set<QString> axesY;
    m_crossings.clear();
    if (const site::SetupGrid* grid = m_draft.GridOf(m_project)) {
        for (const SetupCrossing& crossing : grid->crossings) {
            if (crossing.floor == m_floor) {
                axesX.insert(crossing.axisX);
                axesY.insert(crossing.axisY);
                m_crossings[{crossing.axisX, crossing.axisY}] = crossing;
            }
        }
    }
    m_axesX = InOrder(axesX);
    m_axesY = InOrder(axesY);
}

int AxisMatrixModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(m_axesY.size());
}

int AxisMatrixModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(m_axesX.size());
}

const SetupCrossing* AxisMatrixModel::At(const QModelIndex& index) const {
    const auto found = m_crossings.find({m_axesX[index.column()], m_axesY[index.row()]});
    return found == m_crossings.end() ? nullptr : &found->second;
}

QVariant AxisMatrixModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    const SetupCrossing* crossing = At(index);
    if (role == Qt::CheckStateRole) {
        return crossing == nullptr ? Qt::Unchecked
               : crossing->valid   ? Qt::Checked
                                   : Qt::PartiallyChecked;
    }
    if (role == Qt::ToolTipRole || role == Qt::AccessibleTextRole) {
        const QString place = u"%1/%2"_s.arg(m_axesX[index.column()], m_axesY[index.row()]);
        return crossing == nullptr ? u"%1：没有交点"_s.arg(place)
               : crossing->valid   ? u"%1：有交点"_s.arg(place)
                                   : u"%1：不在模型中，已有的照片保留"_s.arg(place);
    }
    return {};
}

Qt::ItemFlags AxisMatrixModel::flags(const QModelIndex& index) const {
    return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable
                           : Qt::NoItemFlags;
}

QVariant AxisMatrixModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole) {
        return {};
    }
    return orientation == Qt::Horizontal ? m_axesX.value(section) : m_axesY.value(section);
}

bool AxisMatrixModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!index.isValid() || role != Qt::CheckStateRole) {
        return false;
    }
    const SetupCrossing meant{{}, m_floor, m_axesX[index.column()], m_axesY[index.row()], true};
    const SetupCrossing* present = At(index);
    if (value.toInt() != Qt::Unchecked) {
        EditCrossings([&](std::vector<SetupCrossing>& crossings) {
            for (SetupCrossing& crossing : crossings) {
                crossing.valid = crossing.valid || IsSamePlace(crossing, meant);
            }
            AddWhereMissing(crossings, {meant});
        });
    } else if (present != nullptr) {
        RemoveWhere([&](const SetupCrossing& crossing) { return IsSamePlace(crossing, meant); });
    }
    // Rows and columns stay, also without a crossing, until another floor is shown.
    m_crossings.clear();
    for (const SetupCrossing& crossing : m_draft.GridOf(m_project)->crossings) {
        if (crossing.floor == m_floor) {
            m_crossings[{crossing.axisX, crossing.axisY}] = crossing;
        }
    }
    emit dataChanged(index, index);
    return true;
}

void AxisMatrixModel::EditCrossings(
    const std::function<void(std::vector<SetupCrossing>&)>& change) {
    m_draft.Edit([&](site::SetupState& state) {
        for (site::SetupGrid& grid : state.grids) {
            if (grid.project == m_project) {
                change(grid.crossings);
            }
        }
    });
}

void AxisMatrixModel::RemoveWhere(const std::function<bool(const SetupCrossing&)>& isMeant) {
    EditCrossings([&](std::vector<SetupCrossing>& crossings) {
        std::erase_if(crossings, [&](SetupCrossing& crossing) {
            if (!isMeant(crossing)) {
                return false;
            }
            const bool isKept =
                !crossing.positionKey.isEmpty() && m_keeps && m_keeps(crossing.positionKey);
            crossing.valid = crossing.valid && !isKept;
            return !isKept;
        });
    });
}

void AxisMatrixModel::Cross(const QStringList& axesX, const QStringList& axesY,
                            const QStringList& floors) {
    std::vector<SetupCrossing> wished;
    for (const QString& floor : floors) {
        for (const QString& axisX : axesX) {
            for (const QString& axisY : axesY) {
                wished.push_back({{}, floor, axisX, axisY, true});
            }
        }
    }
    EditCrossings([&](std::vector<SetupCrossing>& crossings) {
        AddWhereMissing(crossings, std::move(wished));
    });
    Show(m_project, m_floor);
}

void AxisMatrixModel::CopyTo(const QStringList& floors) {
    std::vector<SetupCrossing> wished;
    for (const QString& floor : floors) {
        for (const auto& [axes, crossing] : m_crossings) {
            if (crossing.valid) {
                wished.push_back({{}, floor, axes.first, axes.second, true});
            }
        }
    }
    EditCrossings([&](std::vector<SetupCrossing>& crossings) {
        AddWhereMissing(crossings, std::move(wished));
    });
}

void AxisMatrixModel::RemoveAxisX(const QString& axis) {
    RemoveWhere([&](const SetupCrossing& crossing) {
        return crossing.floor == m_floor && crossing.axisX == axis;
    });
    Show(m_project, m_floor);
}

void AxisMatrixModel::RemoveAxisY(const QString& axis) {
    RemoveWhere([&](const SetupCrossing& crossing) {
        return crossing.floor == m_floor && crossing.axisY == axis;
    });
    Show(m_project, m_floor);
}

} // namespace host
