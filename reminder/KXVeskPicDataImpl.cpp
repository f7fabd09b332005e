#include "reminder/KXVeskPicDataImpl.h"

#include "reminder/MarkRules.h"
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
    GetVeskPicMng()->GetBimPicFilterValues(from, to, flag, filterArg, m_picGroups);
    FoldOthers(m_picGroups, OthersName());
}

void CKXVeskPicDataImpl::GetIssueFilterData(qint64 from, qint64 to, quint8 flag,
                                            KX_DATA::MarkFilterArg& filterArg,
                                            std::vector<KX_DATA::PicFilterEntry>& entries) {
    m_issueFilterList.clear();
    m_issueGroups.clear();
    m_issueNames.clear();
    std::vector<KX_DATA::IssueFilterSource> sources;
    GetTNQuestionMng()->GetIssueFilterList(flag, &from, &to, filterArg, sources);
    m_issueFilterList = IssueFilterList(sources);
    entries = m_issueFilterList;
    GetTNQuestionMng()->GetIssueGroups(flag, &from, &to, filterArg, m_issueGroups);
    m_issueNames = IssueNames(m_issueGroups);
}

qint32 CKXVeskPicDataImpl::GetBimPicMarkerList(qint64 from, qint64 to, quint8 flag, qint32 markId,
                                               KX_DATA::MarkFilterArg& filterArg,
                                               std::vector<qint32>& picIds) {
    return GetVeskPicMng()->GetBimPicMarkerList(from, to, flag, markId, filterArg, picIds);
}

void CKXVeskPicDataImpl::BuildPicMarks(const KX_DATA::ShownPicMarks& selection,
                                       std::vector<KX_DATA::PicMarkGroup>& groups) const {
    for (const KX_DATA::PicMarkGroup& group : m_picGroups) {
        // Asked only for floors that are ticked.
        if (!selection.contains(group.name))
            continue;
        QString secondLevel;
        GetKXGlobalData()->GetGroupName(secondLevel, group.id);
        GroupSelection selected;
        if (!SelectGroup(selection, group.name, secondLevel, selected))
            continue;
        KX_DATA::PicMarkGroup cut = CutGroup(group, selected);
        if (!cut.items.empty())
            groups.push_back(std::move(cut));
    }
}

void CKXVeskPicDataImpl::BuildIssueMarks(const KX_DATA::ShownIssueMarks& selection,
                                         std::vector<KX_DATA::IssueMarkGroup>& groups) const {
    groups = CutIssueGroups(m_issueGroups, selection);
}

void CKXVeskPicDataImpl::Clear() {
    m_picFilterList.clear();
    m_issueFilterList.clear();
    m_picGroups.clear();
    m_issueGroups.clear();
    m_issueNames.clear();
}
