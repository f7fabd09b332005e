#include "host/setup/SetupTables.h"

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// By SetupTable.
const std::vector<SetupTableForm>& SetupForms() {
    using namespace column;
    static const std::vector<SetupTableForm> forms = {
        {u"工程"_s, {u"名称"_s, u"专业"_s, u"归档"_s}, {kName}},
        {u"工作集"_s, {u"名称"_s, u"工程"_s, u"归档"_s}, {kName, kWorksetProjects}},
        {u"人员"_s, {u"姓名"_s, u"角色"_s, u"权限"_s, u"停用"_s}, {kName}},
        {u"标识"_s, {u"名称"_s, u"颜色"_s, u"编号"_s}, {kName}},
        {u"标签"_s, {u"名称"_s}, {kName}},
        {u"楼层"_s, {u"工程"_s, u"楼层"_s}, {kFloor}},
        {u"轴网"_s, {u"工程"_s, u"楼层"_s, u"X轴"_s, u"Y轴"_s}, {kFloor, kAxisX, kAxisY}},
        {u"交点"_s, {u"工程"_s, u"楼层"_s, u"X轴"_s, u"Y轴"_s}, {kFloor, kAxisX, kAxisY}},
        {u"图纸"_s, {u"工程"_s, u"文件"_s, u"名称"_s}, {kDrawingFile}}};
    return forms;
}

/// "Ｘ 轴" and "x轴" are meant alike.
QString PlainCaption(const QString& text) {
    return text.normalized(QString::NormalizationForm_KC).remove(u' ').toUpper();
}

/// Of each column of a sheet the place in the form, -1 for one that has no caption.
using ColumnPlaces = std::vector<int>;

/// Reads the first row of a table and the others by it.
class CaptionReader final {
public:
    CaptionReader(SetupTable table, SetupTables& tables)
        : m_form(FormOf(table)), m_tables(tables), m_rows(tables.rows[size_t(table)]) {}

    void Read(const sheets::TableSheet& sheet, Captions captions) {
        if (sheet.rows.empty()) {
            return;
        }
        const bool isAllData = captions == Captions::MayLack && !HasCaption(sheet.rows.front());
        if (isAllData) {
            for (int place = FirstOf(sheet); place < int(m_form.captions.size()); ++place) {
                m_places.push_back(place);
            }
        } else if (!ReadCaptions(sheet.rows.front())) {
            return;
        }
        for (size_t i = isAllData ? 0 : 1; i < sheet.rows.size(); ++i) {
            AddRow(sheet.rows[i]);
        }
    }

private:
    void Tell(int line, const QString& text) {
        m_tables.faults.push_back({m_form.name, line, text});
    }
    /// One column less than the form has, all of which are needed but the project: it is left out.
    [[nodiscard]] int FirstOf(const sheets::TableSheet& sheet) const {
        size_t widest = 0;
        for (const sheets::TableRow& row : sheet.rows) {
            widest = std::max(widest, row.cells.size());
        }
        return m_form.captions.front() == FormOf(SetupTable::Project).name &&
                       m_form.needed.size() == widest &&
                       widest + 1 == size_t(m_form.captions.size())
                   ? column::kProject + 1
                   : 0;
    }
    [[nodiscard]] int PlaceOf(const QString& caption) const {
        return int(m_form.captions.indexOf(PlainCaption(caption)));
    }
    [[nodiscard]] bool HasCaption(const sheets::TableRow& row) const {
        return std::any_of(row.cells.begin(), row.cells.end(),
                           [this](const QString& cell) { return PlaceOf(cell) >= 0; });
    }
    bool ReadCaptions(const sheets::TableRow& row) {
        const size_t before = m_tables.faults.size();
        for (const QString& cell : row.cells) {
            const int place = PlaceOf(cell);
            if (!cell.isEmpty() && place < 0) {
                Tell(row.line, u"不认识的表头“%1”，可用的表头：%2"_s.arg(
                                   cell.left(40), m_form.captions.join(u'、')));
            } else if (place >= 0 && std::count(m_places.begin(), m_places.end(), place) > 0) {
                Tell(row.line, u"表头“%1”重复了"_s.arg(cell));
            }
            m_places.push_back(place);
        }
        for (const int place : m_form.needed) {
            if (std::count(m_places.begin(), m_places.end(), place) == 0) {
                Tell(row.line, u"缺少“%1”一列"_s.arg(m_form.captions[place]));
            }
        }
        return m_tables.faults.size() == before;
    }
    void AddRow(const sheets::TableRow& row) {
        SetupRow made{row.line, std::vector<QString>(size_t(m_form.captions.size())), 0};
        for (const int place : m_places) {
            made.columns |= place >= 0 ? 1U << unsigned(place) : 0U;
        }
        for (size_t i = 0; i < row.cells.size(); ++i) {
            const int place = i < m_places.size() ? m_places[i] : -1;
            if (place >= 0) {
                made.cells[size_t(place)] =
                    row.cells[i].normalized(QString::NormalizationForm_C).trimmed();
            } else if (!row.cells[i].isEmpty()) {
                Tell(row.line, u"%1 列没有表头，却有“%2”"_s.arg(sheets::ColumnLetters(int(i)),
                                                                row.cells[i].left(40)));
            }
        }
        m_rows.push_back(std::move(made));
    }

    const SetupTableForm& m_form;
    SetupTables& m_tables;
    std::vector<SetupRow>& m_rows;
    ColumnPlaces m_places;
};

} // namespace

const SetupTableForm& FormOf(SetupTable table) {
    return SetupForms()[size_t(table)];
}

QString SetupTableNames() {
    QStringList names;
    for (const SetupTableForm& form : SetupForms()) {
        names << form.name;
    }
    return names.join(u'、');
}

QString TextOf(const SetupLineFault& fault) {
    QString place = fault.table;
    if (fault.line > 0) {
        place += (place.isEmpty() ? u"第 %1 行"_s : u" 第 %1 行"_s).arg(fault.line);
    }
    return place.isEmpty() ? fault.text : place + u'：' + fault.text;
}

SetupLineFault LineFaultOf(const QString& table, const sheets::TableFault& fault) {
    return {table, fault.line, sheets::TextOf({{}, 0, fault.column, fault.text}).trimmed()};
}

void AddSetupTable(SetupTable table, const sheets::TableSheet& sheet, Captions captions,
                   SetupTables& tables) {
    CaptionReader(table, tables).Read(sheet, captions);
}

} // namespace host
