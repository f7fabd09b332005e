// What is ticked in the mark panel.
#pragma once

#include <QString>

#include <map>
#include <vector>

namespace host {

/// Photos of one mark at one place, which is named as the panel's tree names it.
struct TickedPlace {
    QString name;
    std::vector<qint32> picIds;
};

/// By group, then by mark. A group without marks is ticked as a whole, and so is a mark without
/// places.
using TickedPhotos = std::map<QString, std::map<qint32, std::vector<TickedPlace>>>;

/// Marks by question id.
using TickedIssues = std::map<QString, qint32>;

} // namespace host
