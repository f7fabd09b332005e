#include "host/ui/ImportResultModel.h"

#include "toolkit/Look.h"

#include <QDir>

#include <numeric>

namespace host {

using namespace Qt::StringLiterals;

namespace {

QString CellText(const ImportResultRow& row, int column) {
    switch (column) {
    case ImportResultModel::kFile:
        return QDir::toNativeSeparators(row.path);
    case ImportResultModel::kOutcome:
        return row.outcome;
    default:
        return row.reason;
    }
}

/// A cell must not begin another column or line.
QString OneCell(QString text) {
    return text.replace(u'\t', u' ').replace(u'\n', u' ').replace(u'\r', u' ');
}

} // namespace

ImportResultModel::ImportResultModel(std::vector<ImportResultRow> resultRows, QObject* parent,
                                     const QString& firstCaption)
    : QAbstractTableModel(parent),
      m_rows(std::move(resultRows)), m_captions{firstCaption.isEmpty() ? u"文件"_s : firstCaption,
                                                u"结果"_s, u"原因"_s} {}

int ImportResultModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(m_rows.size());
}

int ImportResultModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : kColumns;
}

QVariant ImportResultModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) {
        return {};
    }
    const QString text = CellText(m_rows[std::size_t(index.row())], index.column());
    return role == Qt::ToolTipRole ? toolkit::PlainTip(text) : text;
}

QVariant ImportResultModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    return m_captions.value(section);
}

QString ImportResultModel::TextOf(const std::vector<int>& chosen) const {
    std::vector<int> wanted = chosen;
    if (wanted.empty()) {
        wanted.resize(m_rows.size());
        std::iota(wanted.begin(), wanted.end(), 0);
    }
    QString text = m_captions.join(u'\t') + u'\n';
    for (const int row : wanted) {
        QStringList cells;
        for (int column = 0; column < kColumns; ++column) {
            cells << OneCell(CellText(m_rows[std::size_t(row)], column));
        }
        text += cells.join(u'\t') + u'\n';
    }
    return text;
}

} // namespace host
