#include "host/import/ImportTarget.h"

#include "services/IKXAuthMng.h"
#include "site/ICatalogue.h"
#include "site/ISite.h"

#include <QFileInfo>

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;

namespace {

[[nodiscard]] QString Listed(const QStringList& names) {
    return names.isEmpty() ? u"（无）"_s : names.join(u"、"_s);
}

[[nodiscard]] QString Unknown(const QString& what, const QString& name, const QStringList& known) {
    if (name.isEmpty()) {
        return u"请写明%1。现有%1：%2。"_s.arg(what, Listed(known));
    }
    return u"没有名为“%1”的%2。现有%2：%3。"_s.arg(name, what, Listed(known));
}

[[nodiscard]] QStringList AsList(const std::vector<QString>& names) {
    return {names.begin(), names.end()};
}

/// Empty on success, as all of these.
[[nodiscard]] QString FindRoots(const ImportNames& names, ImportRequest& request) {
    if (names.roots.isEmpty()) {
        return u"请写明要导入的文件夹。"_s;
    }
    for (const QString& root : names.roots) {
        if (!QFileInfo::exists(root)) {
            return u"没有这个文件夹：%1"_s.arg(root);
        }
    }
    request.roots = names.roots;
    return {};
}

[[nodiscard]] QString FindProject(site::ICatalogue& catalogue, const ImportNames& names,
                                  ImportRequest& request) {
    QStringList known;
    for (const site::ProjectEntry& project : catalogue.Projects()) {
        if (project.archived) {
            if (project.name == names.project) {
                return u"工程“%1”已归档，不再导入照片。请先在设置中取消归档。"_s.arg(names.project);
            }
            continue;
        }
        known.append(project.name);
        if (project.name == names.project) {
            request.ppid = project.ppid;
        }
    }
    return request.ppid != 0 ? QString() : Unknown(u"工程"_s, names.project, known);
}

[[nodiscard]] QString FindUser(site::ICatalogue& catalogue, const ImportNames& names,
                               ImportRequest& request) {
    const QStringList known = AsList(catalogue.People());
    request.user = names.user;
    if (names.user.isEmpty() || !known.contains(names.user)) {
        return Unknown(u"用户"_s, names.user, known);
    }
    const std::vector<qint32> rights = catalogue.RightsOf(names.user);
    const bool mayFile =
        std::find(rights.begin(), rights.end(), KX_DATA::kRightEdit) != rights.end();
    return mayFile ? QString() : u"用户“%1”没有编辑的权限，不能导入照片。"_s.arg(names.user);
}

[[nodiscard]] QString FindMark(site::ICatalogue& catalogue, const ImportNames& names,
                               ImportRequest& request) {
    if (names.mark.isEmpty()) {
        return {};
    }
    QStringList known;
    for (const auto& [markId, mark] : catalogue.Marks()) {
        known.append(mark.name);
        if (mark.name == names.mark || QString::number(markId) == names.mark) {
            request.markId = markId;
            return {};
        }
    }
    return Unknown(u"标识"_s, names.mark, known);
}

[[nodiscard]] QString FindPlace(site::ICatalogue& catalogue, const ImportNames& names,
                                ImportRequest& request) {
    if (names.floor.isEmpty() && names.axisX.isEmpty() && names.axisY.isEmpty()) {
        return {};
    }
    const QStringList floors = AsList(catalogue.Floors(request.ppid));
    if (!floors.contains(names.floor)) {
        return Unknown(u"楼层"_s, names.floor, floors);
    }
    const QStringList axesX = AsList(catalogue.AxesX(request.ppid, names.floor));
    if (!axesX.contains(names.axisX)) {
        return Unknown(u"X 轴"_s, names.axisX, axesX);
    }
    QStringList axesY;
    for (const auto& [axisY, key] : catalogue.AxesY(request.ppid, names.floor, names.axisX)) {
        axesY.append(axisY);
        if (axisY == names.axisY) {
            request.positionKey = key;
            return {};
        }
    }
    return Unknown(u"Y 轴"_s, names.axisY, axesY);
}

} // namespace

ImportTarget FindImportTarget(site::ISite& site, const ImportNames& names) {
    ImportTarget target;
    site::ICatalogue& catalogue = site.Catalogue();
    target.error = FindRoots(names, target.request);
    for (const auto& find : {FindProject, FindUser, FindMark, FindPlace}) {
        if (target.error.isEmpty()) {
            target.error = find(catalogue, names, target.request);
        }
    }
    return target;
}

} // namespace host
