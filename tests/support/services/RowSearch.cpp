#include "tests/support/services/RowSearch.h"

#include <QDateTime>

#include <algorithm>

namespace support {

using namespace Qt::StringLiterals;

namespace {

qint64 SecondsOf(const QString& text) {
    const QDateTime time = QDateTime::fromString(text, u"yyyy-MM-dd HH:mm"_s);
    return time.isValid() ? time.toSecsSinceEpoch() : 0;
}

template <class Row> SearchRecord CommonRecord(const Row& row, const RowNames& names) {
    SearchRecord record;
    record.ppid = row.ppid;
    record.markId = row.markId;
    record.status = row.status;
    record.description = row.description;
    record.stateName = row.rectifyText;
    const auto state = std::find(names.states.begin(), names.states.end(), row.rectifyText);
    record.state = qint32(state - names.states.begin());
    return record;
}

/// Of what nobody changed the making stands for the last change.
void FillPeople(SearchRecord& record, const QString& title, const QString& maker, qint64 made,
                const QString& updater, qint64 updated) {
    record.title = title;
    record.texts = {title, maker, updater, record.description};
    record.modified = updated != 0 ? updated : made;
    record.modifier = updater.isEmpty() ? maker : updater;
}

SearchRecord RecordOf(const KX_DATA::BimPicRow& row, const RowNames& names) {
    SearchRecord record = CommonRecord(row, names);
    FillPeople(record, row.fileName, row.uploaderName, row.uploadStamp, row.updaterName,
               row.updateStamp);
    for (const QString& name : row.labelNames) {
        record.labelIds.push_back(names.labelId(name));
    }
    record.floorSort = FloorOrder(row.floor);
    record.place = row.posText;
    record.presetKey = row.positionKey;
    return record;
}

SearchRecord RecordOf(const KX_DATA::PdfPicRecord& row, const RowNames& names) {
    SearchRecord record = CommonRecord(row, names);
    FillPeople(record, row.fileName, row.uploaderName, SecondsOf(row.uploadTime), row.updaterName,
               SecondsOf(row.updateTime));
    record.texts.push_back(row.drawingName);
    for (const KX_DATA::LabelEntry& label : row.labels) {
        record.labelIds.push_back(label.labelId);
    }
    // The row's own names are crossed.
    record.drawingId = row.checkpointId;
    record.checkpointId = row.drawingId;
    record.drawingName = row.drawingName;
    record.checkpointNo = row.checkpointNo;
    return record;
}

SearchRecord RecordOf(const KX_DATA::IssueRow& row, const RowNames& names) {
    SearchRecord record = CommonRecord(row, names);
    FillPeople(record, row.theme, row.creatorName, row.createTime, row.updaterName, row.updateTime);
    record.floorSort = FloorOrder(row.floor);
    record.place = row.posInfo;
    record.component = row.compName;
    record.presetKey = row.floor;
    record.presetExtra = names.componentHandle(row.questionId);
    return record;
}

template <class Filter>
SearchQuestion QuestionOf(const Filter& filter, const KX_DATA::PageRequest& request) {
    SearchQuestion question;
    question.keyword = filter.keyword;
    question.projectIds = filter.projectIds;
    question.markId = filter.markId;
    question.labelId = filter.labelId;
    question.status = filter.status;
    question.noDateLimit = filter.noDateLimit;
    question.startTime = filter.startTime;
    question.endTime = filter.endTime;
    question.page = request;
    return question;
}

template <class Row>
std::vector<Row> SearchRows(const std::vector<Row>& rows, const SearchQuestion& question,
                            const RowNames& names) {
    std::vector<SearchRecord> records;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        records.push_back(RecordOf(rows[i], names));
        records.back().id = qint64(i);
    }
    std::vector<Row> found;
    for (const SearchRecord& record : SearchAll(std::move(records), question)) {
        found.push_back(rows[std::size_t(record.id)]);
    }
    return found;
}

} // namespace

std::vector<KX_DATA::BimPicRow> Search(const std::vector<KX_DATA::BimPicRow>& rows,
                                       const KX_DATA::PicQueryFilter& filter,
                                       const KX_DATA::PageRequest& request, const RowNames& names) {
    SearchQuestion question = QuestionOf(filter, request);
    question.presetKey = filter.presetKey;
    return SearchRows(rows, question, names);
}

std::vector<KX_DATA::PdfPicRecord> Search(const std::vector<KX_DATA::PdfPicRecord>& rows,
                                          const KX_DATA::PdfQueryFilter& filter,
                                          const KX_DATA::PageRequest& request,
                                          const RowNames& names) {
    SearchQuestion question = QuestionOf(filter, request);
    question.drawingId = filter.drawingId;
    question.checkpointId = filter.checkpointId;
    return SearchRows(rows, question, names);
}

std::vector<KX_DATA::IssueRow> Search(const std::vector<KX_DATA::IssueRow>& rows,
                                      const KX_DATA::PicQueryFilter& filter,
                                      const KX_DATA::PageRequest& request, const RowNames& names) {
    SearchQuestion question = QuestionOf(filter, request);
    question.labelId.clear(); // issues have none
    question.presetKey = filter.presetKey;
    question.presetExtra = filter.presetExtra;
    return SearchRows(rows, question, names);
}

QString FloorOrder(const QString& floor) {
    if (floor.isEmpty()) {
        return u"0"_s;
    }
    bool isNumber = false;
    const int number = floor.toInt(&isNumber);
    constexpr int kShift = 100000; // numbers below zero sort before the others
    return isNumber ? u"1%1"_s.arg(number + kShift, 8, 10, QLatin1Char('0')) : u"2"_s + floor;
}

} // namespace support
