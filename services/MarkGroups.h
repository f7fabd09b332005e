// The host's mark panel: what it offers, what the user has ticked, and what the view draws.
// Texts of type std::string are 8-bit text in code page 936.
#pragma once

#include <QString>

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace KX_DATA {

/// Limits of the mark panel beyond its time range, passed through by the module untouched.
struct MarkFilterArg {
    std::vector<qint32> projectIds; ///< empty: the open project
    QString userName;               ///< empty: everybody
};

/// One line of the filter list.
struct PicFilterEntry {
    QString name;
    qint32 count = 0;
    std::vector<std::pair<qint32, qint32>> values;
    qint32 id = 0;
};

/// One line of the filter list as the issue service delivers it; the pairs are the other way round.
struct IssueFilterSource {
    qint32 id = 0;
    qint32 count = 0;
    QString name;
    std::vector<std::pair<qint32, qint32>> pairs;
};

/// A mark at one intersection, with how many photos carry it.
struct PicMarkLeaf {
    std::string text1;
    std::string text2;
    qint32 markId = 0;
    qint32 count = 0;
    QString markName;
};

/// One intersection with its marks.
struct PicMarkItem {
    std::string positionKey;
    std::string itemName;
    std::string text3;
    std::string text4;
    std::string text5;
    qint32 total = 0;
    qint32 groupId = 0;
    std::vector<PicMarkLeaf> leaves;
};

/// One floor, or the group "其他".
struct PicMarkGroup {
    std::string name;
    qint32 id = 0;
    std::vector<PicMarkItem> items;
};

struct IssueMarkEntry {
    QString itemText;
    QString itemKey;
    QString text3;
    QString text4;
    qint32 value = 0;
};

struct IssueMarkGroup {
    QString name;
    qint32 id = 0;
    qint32 count = 0;
    std::vector<IssueMarkEntry> entries;
};

/// One ticked photo of a mark.
struct ShownPicItem {
    std::string itemName;
    qint32 picId = 0;
};

/// Ticked photo marks: floor name, second-level name, mark id, photos. An empty inner map or list
/// means everything below.
using ShownPicMarks =
    std::map<std::string, std::map<QString, std::map<qint32, std::vector<ShownPicItem>>>>;

/// Ticked issues, by the key text of their entry.
using ShownIssueMarks = std::map<QString, qint32>;

} // namespace KX_DATA
