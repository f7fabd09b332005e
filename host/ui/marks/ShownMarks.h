// The marks that a view was given to show, as flags floor by floor.
#pragma once

#include "host/ui/marks/MarkFlag.h"
#include "services/EnvRecords.h"
#include "services/MarkGroups.h"

#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

namespace host {

/// Hidden photos by project, floor, position key and mark; without a floor the key is empty.
using HiddenPhotos = std::map<std::tuple<qint32, QString, QString, qint32>, qint32>;

/// What a view of marks knows, however it draws them. Texts of code page 936 become texts only for
/// the floor that is asked for. Thread: user interface. Touches no window.
class ShownMarks final {
public:
    /// Texts of code page 936 and back. A name that the code page lacks is found by its bytes.
    struct CodePage {
        QString (*read)(const std::string& bytes);
        std::string (*write)(const QString& text);
    };
    explicit ShownMarks(const CodePage& page) : m_codePage(page) {}

    void SetMarkTable(std::map<qint32, KX_DATA::MarkRecord> table) { m_marks = std::move(table); }
    void SetHidden(HiddenPhotos counts) { m_hidden = std::move(counts); }
    void SetPhotos(const std::vector<KX_DATA::PicMarkGroup>& groups);
    /// False if they are those that it has already: of many reminders each hands them over anew.
    bool SetIssues(const std::vector<KX_DATA::IssueMarkGroup>& groups);
    /// Switches the display of a kind; its marks are kept.
    void Show(MarkKind kind, bool on);
    [[nodiscard]] bool IsShown(MarkKind kind) const;

    /// @param floor  empty: what hangs on no floor.
    /// @param ppid   project; 0: all of them. Flags that don't say their project always count.
    /// @return       photos first; each mark at each place once.
    [[nodiscard]] std::vector<MarkFlag> FlagsOf(const QString& floor, qint32 ppid) const;
    /// The flag of a photo's mark or of an issue; nothing if it isn't shown.
    [[nodiscard]] std::optional<MarkFlag> FindPhoto(const QString& positionKey,
                                                    qint32 markId) const;
    [[nodiscard]] std::optional<MarkFlag> FindIssue(const QString& questionId) const;

private:
    struct IssueFloor {
        QString name;
        qint32 ppid = 0;
        std::vector<KX_DATA::IssueMarkEntry> entries;
    };
    [[nodiscard]] MarkFlag FlagOf(const QString& floor, const KX_DATA::PicMarkItem& item,
                                  const KX_DATA::PicMarkLeaf& leaf) const;
    [[nodiscard]] MarkFlag FlagOf(const IssueFloor& floor,
                                  const KX_DATA::IssueMarkEntry& entry) const;
    void AddPhotos(const QString& floor, qint32 ppid, std::vector<MarkFlag>& flags) const;
    void AddItem(const QString& floor, const KX_DATA::PicMarkItem& item, qint32 ppid,
                 std::vector<MarkFlag>& flags) const;
    void AddIssues(const IssueFloor& floor, std::vector<MarkFlag>& flags) const;

    CodePage m_codePage;
    std::map<qint32, KX_DATA::MarkRecord> m_marks;
    HiddenPhotos m_hidden;
    std::vector<KX_DATA::PicMarkGroup> m_photos;
    std::vector<KX_DATA::IssueMarkGroup> m_issueGroups; ///< as they were handed over
    std::vector<IssueFloor> m_issues;
    bool m_showPhotos = true;
    bool m_showIssues = true;
};

} // namespace host
