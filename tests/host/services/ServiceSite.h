// A small site behind the services, as a test of them sees it: one session, one user, two projects.
#pragma once

#include "host/services/ServiceSet.h"
#include "host/session/HostSession.h"
#include "services/IVeskPicMng.h"
#include "site/sqlite/SiteWriter.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <vector>

namespace hosttest {

/// Opens project `first` as "li", who has all rights. Messages of the host are collected.
class ServiceSite {
public:
    ServiceSite();

    /// A photo with usual values, changed by `change` before it is filed.
    template <typename Change> qint32 AddPhoto(Change change) {
        site::NewBimPhoto photo = UsualPhoto();
        change(photo);
        return writer->FilePhoto(photo, {{}, "jpeg"});
    }
    template <typename Change> QString AddIssue(Change change) {
        site::NewIssue issue = UsualIssue();
        change(issue);
        return writer->FileIssue(issue);
    }
    [[nodiscard]] site::NewBimPhoto UsualPhoto() const;
    [[nodiscard]] site::NewIssue UsualIssue() const;

    /// A filter on the first project without any limit.
    [[nodiscard]] KX_DATA::PicQueryFilter Filter() const;
    /// All photos that the service lists, in the order asked for; checks the counts.
    [[nodiscard]] std::vector<KX_DATA::BimPicRow>
    Photos(const KX_DATA::PicQueryFilter& filter,
           const QString& sort = QStringLiteral("last_modifytime"),
           const QString& order = QStringLiteral("desc"));
    [[nodiscard]] std::vector<qint32> PhotoIds(const KX_DATA::PicQueryFilter& filter,
                                               const QString& sort = QStringLiteral("ppid"),
                                               const QString& order = QStringLiteral("asc"));

    QTemporaryDir dir;
    host::HostSession session;
    host::Serving serving{session};
    std::unique_ptr<site::SiteWriter> writer;
    std::vector<QString> messages;
    qint32 first = 0;
    qint32 second = 0;
    qint32 workset = 0;
};

} // namespace hosttest
