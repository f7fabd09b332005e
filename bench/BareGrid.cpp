#include "bench/BareGrid.h"

#include <QAbstractTableModel>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QTableView>

#include <array>

namespace bench {

using namespace Qt::StringLiterals;

namespace {

constexpr int kRows = 30;
constexpr int kColumns = 17;

} // namespace

class BareGrid::Model final : public QAbstractTableModel {
public:
    void Replace() {
        beginResetModel();
        ++m_generation;
        for (int row = 0; row < kRows; ++row) {
            for (int column = 0; column < kColumns; ++column) {
                m_texts[size_t(row) * kColumns + size_t(column)] =
                    u"外墙渗漏 "_s + QString::number(m_generation * kRows + row + column);
            }
        }
        endResetModel();
    }

    [[nodiscard]] int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : kRows;
    }
    [[nodiscard]] int columnCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : kColumns;
    }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole) {
            return {};
        }
        return m_texts[size_t(index.row()) * kColumns + size_t(index.column())];
    }

private:
    int m_generation = 0;
    std::array<QString, size_t(kRows* kColumns)> m_texts;
};

BareGrid::BareGrid() : m_model(std::make_unique<Model>()), m_view(std::make_unique<QTableView>()) {
    m_model->Replace();
    m_view->setModel(m_model.get());
    m_view->setWordWrap(false);
    m_view->verticalHeader()->hide();
    m_view->verticalHeader()->setDefaultSectionSize(23);
    m_view->horizontalHeader()->setDefaultSectionSize(62);
    m_view->resize(1085, 760);
    m_view->show();
    // Before it is exposed nothing would be painted.
    QCoreApplication::processEvents();
}

BareGrid::~BareGrid() = default;

double BareGrid::ReplaceAndPaint() {
    QElapsedTimer timer;
    timer.start();
    m_model->Replace();
    m_view->viewport()->repaint();
    return double(timer.nsecsElapsed()) / 1e6;
}

} // namespace bench
