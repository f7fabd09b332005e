#include "reminder/marks/KXVeskPicDataImpl.h"

#include "reminder/marks/MarkRules.h"
#include "services/Factories.h"
#include "services/IKXGlobalData.h"
#include "services/ITNQuestionMng.h"
#include "services/IVeskPicMng.h"
#include "toolkit/GbkText.h"

using namespace Qt::StringLiterals;

namespace {

const std::string& OthersName() {
    static const std::string name = toolkit::ToGbk(u"其他"_s);
    return name;
}

} // namespace

void CKXVeskPicDataImpl::GetPicFilterData(qint64 from, qint64 to, quint8 flag,
                                          KX_DATA::MarkFilterArg& filterArg,
                                          std::vector<KX_DATA::PicFilterEntry>& entries) {
    // The service replaces both lists, so they aren't emptied first; required as is.
    GetVeskPicMng()->GetBimPicFilterGroups(from, to, flag, filterArg, m_picFilterList);
    entries = m_picFilterList;
    std::vector<KX_DATA::PicMarkGroup> groups = m_picGroups.TakeGroups();
    GetVeskPicMng()->GetBimPicFilterValues(from, to, flag, filterArg, groups);
    FoldOthers(groups, OthersName());
    m_picGroups.SetGroups(std::move(groups));
}

void CKXVeskPicDataImpl::GetIssueFilterData(qint64 from, qint64 to, quint8 flag,
                                            KX_DATA::MarkFilterArg& filterArg,
                                            std::vector<KX_DATA::PicFilterEntry>& entries) {
    m_issueGroups.Clear();
    std::vector<KX_DATA::IssueFilterSource> sources;
    GetTNQuestionMng()->GetIssueFilterList(flag, &from, &to, filterArg, sources);
    entries = IssueFilterList(sources);
    std::vector<KX_DATA::IssueMarkGroup> groups;
    GetTNQuestionMng()->GetIssueGroups(flag, &from, &to, filterArg, groups);
    m_issueGroups.SetGroups(groups);
}

qint32 CKXVeskPicDataImpl::GetBimPicMarkerList(qint64 from, qint64 to, quint8 flag, qint32 markId,
                                               KX_DATA::MarkFilterArg& filterArg,
                                               std::vector<qint32>& picIds) {
    return GetVeskPicMng()->GetBimPicMarkerList(from, to, flag, markId, filterArg, picIds);
}

void CKXVeskPicDataImpl::BuildPicMarks(const KX_DATA::ShownPicMarks& selection,
                                       std::vector<KX_DATA::PicMarkGroup>& groups) const {
    for (std::size_t at = 0; at < m_picGroups.Groups().size(); ++at) {
        const KX_DATA::PicMarkGroup& group = m_picGroups.Groups()[at];
        // Asked only for floors that are ticked.
        if (!selection.contains(group.name)) {
            continue;
        }
        QString secondLevel;
        GetKXGlobalData()->GetGroupName(secondLevel, group.id);
        GroupSelection selected;
        if (!SelectGroup(selection, group.name, secondLevel, selected)) {
            continue;
        }
        KX_DATA::PicMarkGroup cut = m_picGroups.Cut(at, selected);
        if (!cut.items.empty()) {
            groups.push_back(std::move(cut));
        }
    }
}

void CKXVeskPicDataImpl::BuildIssueMarks(const KX_DATA::ShownIssueMarks& selection,
                                         std::vector<KX_DATA::IssueMarkGroup>& groups) const {
    groups = m_issueGroups.Cut(selection);
}

void CKXVeskPicDataImpl::Clear() {
    m_picFilterList.clear();
    m_picNames.clear();
    m_picGroups.SetGroups({});
    m_issueGroups.Clear();
}
