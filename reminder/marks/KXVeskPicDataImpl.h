// The module's data provider.
#pragma once

#include "base/SingletonTmpl.h"
#include "include/IKXVeskPicData.h"
#include "reminder/marks/IssueMarkTree.h"
#include "reminder/marks/PicMarkTree.h"

#include <map>

/// What the host's mark panel offers, and what of it the view draws. Keeps the last fetch until the
/// next one or a change of project. Lives from the first factory call to process exit.
/// Thread: user interface.
class CKXVeskPicDataImpl final : public ZelvorNRQ_KXVeskPicture::IKXVeskPicData,
                                 public NRQUtility::SingletonTmpl<CKXVeskPicDataImpl> {
public:
    void GetPicFilterData(qint64 from, qint64 to, quint8 flag, KX_DATA::MarkFilterArg& filterArg,
                          std::vector<KX_DATA::PicFilterEntry>& entries) override;
    void GetIssueFilterData(qint64 from, qint64 to, quint8 flag, KX_DATA::MarkFilterArg& filterArg,
                            std::vector<KX_DATA::PicFilterEntry>& entries) override;
    qint32 GetBimPicMarkerList(qint64 from, qint64 to, quint8 flag, qint32 markId,
                               KX_DATA::MarkFilterArg& filterArg,
                               std::vector<qint32>& picIds) override;

    /// The last photo tree, cut down to what is ticked. Nothing ticked, or nothing fetched: empty.
    void BuildPicMarks(const KX_DATA::ShownPicMarks& selection,
                       std::vector<KX_DATA::PicMarkGroup>& groups) const;
    void BuildIssueMarks(const KX_DATA::ShownIssueMarks& selection,
                         std::vector<KX_DATA::IssueMarkGroup>& groups) const;
    /// Forgets the last fetch.
    void Clear();

    /// Text of an issue's entry by its key.
    [[nodiscard]] const std::map<QString, QString>& IssueNameMap() const {
        return m_issueGroups.Names();
    }

private:
    std::vector<KX_DATA::PicFilterEntry> m_picFilterList;
    PicMarkTree m_picGroups;
    std::map<QString, QString> m_picNames; ///< cleared with the rest, filled by nobody
    IssueMarkTree m_issueGroups;           ///< with the names of the entries
};
