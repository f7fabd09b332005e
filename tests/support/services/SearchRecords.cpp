#include "tests/support/services/SearchRecords.h"

#include <algorithm>
#include <map>

namespace support {

using namespace Qt::StringLiterals;

namespace {

// Capitals of ASCII are small ones, and nothing else is.
QByteArray Folded(const QString& text) {
    return text.toUtf8().toLower();
}

bool HasKeyword(const SearchRecord& record, const QString& keyword) {
    return keyword.isEmpty() ||
           std::any_of(record.texts.begin(), record.texts.end(),
                       [&](const QString& text) { return Folded(text).contains(Folded(keyword)); });
}

bool HasLabel(const SearchRecord& record, const QString& labelId) {
    const auto& ids = record.labelIds;
    return labelId.isEmpty() || std::find(ids.begin(), ids.end(), labelId) != ids.end();
}

bool HasState(const SearchRecord& record, const QString& status) {
    return status.isEmpty() || status == u"全部"_s || record.stateName == status;
}

bool IsAtPreset(const SearchRecord& record, const SearchQuestion& question) {
    // A component counts together with its floor only.
    return question.presetKey.isEmpty() ||
           (record.presetKey == question.presetKey &&
            (question.presetExtra.isEmpty() || record.presetExtra == question.presetExtra));
}

bool Matches(const SearchRecord& record, const SearchQuestion& question) {
    const auto& projects = question.projectIds;
    return std::find(projects.begin(), projects.end(), record.ppid) != projects.end() &&
           (question.markId == 0 || record.markId == question.markId) &&
           (question.noDateLimit ||
            (record.modified >= question.startTime && record.modified <= question.endTime)) &&
           (question.drawingId == -1 || record.drawingId == question.drawingId) &&
           (question.checkpointId == -1 || record.checkpointId == question.checkpointId) &&
           HasState(record, question.status) && HasLabel(record, question.labelId) &&
           IsAtPreset(record, question) && HasKeyword(record, question.keyword);
}

int Compared(const QString& one, const QString& other) {
    return one.toUtf8().compare(other.toUtf8());
}

int Compared(qint64 one, qint64 other) {
    return one < other ? -1 : one > other ? 1 : 0;
}

int Compare(const SearchRecord& one, const SearchRecord& other,
            const std::vector<SortColumn>& columns) {
    for (const SortColumn& column : columns) {
        const int order =
            std::visit([&](auto field) { return Compared(one.*field, other.*field); }, column);
        if (order != 0) {
            return order;
        }
    }
    return Compared(one.id, other.id);
}

} // namespace

std::vector<SortColumn> ColumnsOf(const QString& sortField) {
    using R = SearchRecord;
    static const std::map<QString, std::vector<SortColumn>> columns{
        {u"ppid"_s, {&R::ppid}},
        {u"marker_id"_s, {&R::markId}},
        {u"markerId"_s, {&R::markId}},
        {u"pic_name"_s, {&R::title}},
        {u"theme"_s, {&R::title}},
        {u"last_modifyuser"_s, {&R::modifier}},
        {u"modifyuser"_s, {&R::modifier}},
        {u"floor,axis_symbol"_s, {&R::floorSort, &R::place}},
        {u"floor,posinfo,compname"_s, {&R::floorSort, &R::place, &R::component}},
        {u"pdfdrawings_name"_s, {&R::drawingName}},
        {u"checkpt_num"_s, {&R::checkpointNo}},
        {u"rectifyStatus"_s, {&R::state}},
        {u"pic_describe"_s, {&R::description}},
        {u"describe"_s, {&R::description}},
        {u"pic_status"_s, {&R::status}},
        {u"status"_s, {&R::status}},
    };
    const auto found = columns.find(sortField);
    return found != columns.end() ? found->second : std::vector<SortColumn>{&R::modified};
}

std::vector<SearchRecord> SearchAll(std::vector<SearchRecord> records,
                                    const SearchQuestion& question) {
    std::erase_if(records, [&](const SearchRecord& record) { return !Matches(record, question); });
    const std::vector<SortColumn> columns = ColumnsOf(question.page.sortField);
    const bool down = question.page.sortOrder == u"desc"_s;
    std::sort(records.begin(), records.end(),
              [&](const SearchRecord& one, const SearchRecord& other) {
                  const int order = Compare(one, other, columns);
                  return down ? order > 0 : order < 0;
              });
    return records;
}

} // namespace support
