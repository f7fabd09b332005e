// Writes a finished plan into a site.
#pragma once

#include "sample/site/SitePlan.h"
#include "site/IIntake.h"
#include "site/ISite.h"

#include <functional>
#include <vector>

namespace sample {

/// All pictures of a plan in one row: photos, drawing photos, issue pictures.
[[nodiscard]] std::vector<PictureOrder> OrdersOf(const SitePlan& plan);

/// Files the plan in one transaction; throws DataError, and whatever `step` throws, and leaves
/// nothing behind then.
class PlanFiling final {
public:
    /// @param pictureAt  path of the picture of an order of OrdersOf.
    /// @param step       called after each record.
    PlanFiling(site::ISite& target, const SitePlan& sitePlan,
               std::function<QString(size_t)> pictureAt, std::function<void()> step);

    void Run();
    /// How often `step` is called.
    [[nodiscard]] static int Steps(const SitePlan& plan);

private:
    void FileTables();
    void FilePhotos();
    void FileDrawings();
    void FileIssues();
    /// What was done to an issue since it was raised: so its history has lines.
    void Rectify(const PlannedIssue& issue, qint32 ppid, const QString& questionId);
    void Finish(const PlannedIssue& issue, qint32 ppid, const QString& questionId);
    [[nodiscard]] site::FileSource NextPicture();
    [[nodiscard]] std::vector<qint32> LabelIds(const std::vector<qint32>& numbers) const;

    site::ISite& m_site;
    std::unique_ptr<site::IIntake> m_intake;
    const SitePlan& m_plan;
    std::function<QString(size_t)> m_pathOf;
    std::function<void()> m_onStep;
    std::vector<qint32> m_projects; ///< ids by number, as the two below
    std::vector<qint32> m_labels;
    std::vector<qint32> m_checkpoints;
    size_t m_nextPicture = 0;
};

} // namespace sample
