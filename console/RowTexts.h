// What the cells of a row say.
#pragma once

#include "services/IssueRecords.h"
#include "services/PicRecords.h"

#include <QString>

#include <utility>
#include <vector>

/// Both names or times as "first / second" where they differ and the second isn't empty, otherwise
/// the first alone.
[[nodiscard]] QString PairText(const QString& first, const QString& second);
/// Every name followed by one blank, the last one too; empty without names.
[[nodiscard]] QString LabelText(const std::vector<QString>& names);
[[nodiscard]] QString LabelText(const std::vector<KX_DATA::LabelEntry>& labels);
/// Floor and position; empty for a photo without a floor.
[[nodiscard]] QString BimPositionText(const KX_DATA::BimPicRow& row);
[[nodiscard]] QString CheckpointText(qint32 checkpointNo);
/// "隐藏" for any status but 0.
[[nodiscard]] QString StatusText(qint32 status);
/// The number in the first column of text: pages count from 1, places on the page from 0.
[[nodiscard]] int RunningNumber(int page, int place);

/// People and times of an issue, decided together by its two times.
struct IssuePairTexts {
    QString people;
    QString times;
};
[[nodiscard]] IssuePairTexts IssuePairs(const KX_DATA::IssueRow& row);
[[nodiscard]] QString IssueComponentText(const KX_DATA::IssueRow& row);

/// What a reverse lookup tells the main window: floor-mark-picture.
[[nodiscard]] QString LocateText(const QString& floor, qint32 markId, qint32 picId);
