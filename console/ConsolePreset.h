// What a host asks the console to search for, and what the person chose: together the filter.
#pragma once

#include "services/PageQuery.h"

#include <QDate>
#include <QString>

#include <vector>

/// Acts on one search, together with a mark.
struct ConsolePreset {
    QString key;
    QString extra;
    qint32 picId = KX_DATA::kNoPic;
    qint32 drawingId = -1;
    qint32 checkpointId = -1;

    /// After its search. The photo and the second text stay; required as is.
    void Use();
};

/// What the controls of the filter line say.
struct FilterChoice {
    QString keyword;
    qint32 markId = 0; ///< 0: all
    QString labelId;   ///< empty: all
    bool noDateLimit = true;
    QDate start;
    QDate end;
    QString status;
    std::vector<qint32> projectIds;
};

/// BIM photos and issues.
void FillFilter(const FilterChoice& choice, const ConsolePreset& preset,
                KX_DATA::PicQueryFilter& filter);
/// Drawing photos.
void FillFilter(const FilterChoice& choice, const ConsolePreset& preset,
                KX_DATA::PdfQueryFilter& filter);
