#include "host/sheet/ListRows.h"

#include <QStringList>

namespace host {

using namespace Qt::StringLiterals;

namespace {

QString NameIn(const std::map<qint32, QString>& names, qint32 id) {
    const auto found = names.find(id);
    return found == names.end() ? QString() : found->second;
}

QString Joined(const std::vector<QString>& names) {
    QString text;
    for (const QString& name : names) {
        text += text.isEmpty() ? name : u' ' + name;
    }
    return text;
}

QString Joined(const std::vector<KX_DATA::LabelEntry>& labels) {
    std::vector<QString> names;
    for (const KX_DATA::LabelEntry& label : labels) {
        names.push_back(label.labelName);
    }
    return Joined(names);
}

sheets::SheetCell TimeCell(qint64 seconds) {
    return seconds == 0 ? sheets::SheetCell(QString())
                        : sheets::SheetCell(sheets::SheetTimeOf(seconds));
}

sheets::SheetCell TimeCell(const QString& text) {
    const std::optional<sheets::SheetTime> time = sheets::SheetTimeOf(text);
    return time ? sheets::SheetCell(*time) : sheets::SheetCell(text);
}

QString StatusWord(qint32 status) {
    return status == KX_DATA::kStatusShown ? u"显示"_s : u"隐藏"_s;
}

/// Who and when, twice.
template <typename Time> struct RecordPairs {
    QString firstPerson;
    QString secondPerson;
    Time firstTime;
    Time secondTime;
};

template <typename Time> void AddPairs(const RecordPairs<Time>& pairs, sheets::SheetRow& row) {
    // A record that was never changed says so by the same time twice, or by none.
    const bool isChanged = pairs.secondTime != pairs.firstTime && pairs.secondTime != Time();
    row.emplace_back(pairs.firstPerson);
    row.emplace_back(isChanged ? pairs.secondPerson : QString());
    row.push_back(TimeCell(pairs.firstTime));
    row.push_back(isChanged ? TimeCell(pairs.secondTime) : sheets::SheetCell(QString()));
}

/// The cells with which all lists begin.
template <typename Record>
sheets::SheetRow BegunRow(const Record& record, qint64 number, const RowNames& names,
                          const QString& name, const sheets::SheetPicture* picture) {
    constexpr size_t kMostCells = 16;
    sheets::SheetRow row;
    row.reserve(kMostCells);
    row.emplace_back(number);
    if (picture != nullptr) {
        row.emplace_back(*picture);
    }
    row.emplace_back(NameIn(names.marks, record.markId));
    row.emplace_back(name);
    row.emplace_back(NameIn(names.projects, record.ppid));
    return row;
}

} // namespace

QString TitleOf(site::ListKind kind) {
    switch (kind) {
    case site::ListKind::PdfPhotos:
        return u"图纸照片"_s;
    case site::ListKind::Issues:
        return u"TN问题"_s;
    default:
        return u"BIM模型照片"_s;
    }
}

sheets::SheetLayout LayoutOf(site::ListKind kind, bool withPictures) {
    const bool isIssue = kind == site::ListKind::Issues;
    const bool isPdf = kind == site::ListKind::PdfPhotos;
    std::vector<sheets::SheetColumn> columns = {{u"序号"_s, 8, sheets::CellKind::Number}};
    if (withPictures) {
        columns.push_back({u"图片"_s, 20, sheets::CellKind::Picture});
    }
    columns.push_back({isIssue ? u"问题标识"_s : isPdf ? u"标识"_s : u"照片标识"_s, 12});
    columns.push_back({isIssue ? u"问题主题"_s : u"照片名称"_s, 30});
    columns.push_back({u"所属工程"_s, 20});
    if (isPdf) {
        columns.push_back({u"图纸"_s, 24});
    }
    columns.push_back({isIssue ? u"创建人"_s : u"上传人"_s, 12});
    columns.push_back({u"更新人"_s, 12});
    columns.push_back({u"上传时间"_s, 18, sheets::CellKind::Time});
    columns.push_back({u"更新时间"_s, 18, sheets::CellKind::Time});
    columns.push_back({isIssue ? u"问题构件"_s : u"位置"_s, isIssue ? 28 : 18});
    if (!isIssue) {
        columns.push_back({u"标签"_s, 20});
    }
    columns.push_back({u"整改情况"_s, 12});
    columns.push_back({u"描述"_s, 50});
    columns.push_back({u"状态"_s, 8});
    return {TitleOf(kind), columns};
}

sheets::SheetRow RowOf(const KX_DATA::BimPicRow& record, qint64 number, const RowNames& names,
                       bool withPicture) {
    const sheets::SheetPicture picture{record.ppid, record.text8};
    sheets::SheetRow row =
        BegunRow(record, number, names, record.fileName, withPicture ? &picture : nullptr);
    AddPairs<qint64>(
        {record.uploaderName, record.updaterName, record.uploadStamp, record.updateStamp}, row);
    row.emplace_back(record.floor.isEmpty() ? QString() : record.floor + u"层"_s + record.posText);
    row.emplace_back(Joined(record.labelNames));
    row.emplace_back(record.rectifyText);
    row.emplace_back(record.description);
    row.emplace_back(StatusWord(record.status));
    return row;
}

sheets::SheetRow RowOf(const KX_DATA::PdfPicRecord& record, qint64 number, const RowNames& names,
                       bool withPicture) {
    const sheets::SheetPicture picture{record.ppid, record.text1};
    sheets::SheetRow row =
        BegunRow(record, number, names, record.fileName, withPicture ? &picture : nullptr);
    row.emplace_back(record.drawingName);
    AddPairs<QString>(
        {record.uploaderName, record.updaterName, record.uploadTime, record.updateTime}, row);
    row.emplace_back(u"检查点%1"_s.arg(record.checkpointNo));
    row.emplace_back(Joined(record.labels));
    row.emplace_back(record.rectifyText);
    row.emplace_back(record.description);
    row.emplace_back(StatusWord(record.status));
    return row;
}

sheets::SheetRow RowOf(const KX_DATA::IssueRow& record, qint64 number, const RowNames& names,
                       const sheets::SheetPicture* picture) {
    sheets::SheetRow row = BegunRow(record, number, names, record.theme, picture);
    AddPairs<qint64>({record.creatorName, record.updaterName, record.createTime, record.updateTime},
                     row);
    QStringList component;
    component << (record.floor.isEmpty() ? QString() : record.floor + u"层"_s) << record.posInfo
              << record.compName;
    component.removeAll(QString());
    row.emplace_back(component.join(u' '));
    row.emplace_back(record.rectifyText);
    row.emplace_back(record.description);
    row.emplace_back(StatusWord(record.status));
    return row;
}

} // namespace host
