// One data folder, open as this client's session and as another client.
#pragma once

#include "host/session/HostSession.h"
#include "site/IIntake.h"
#include "site/OpenSite.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

namespace hosttest {

/// Two projects, of which the first is open; "li" is signed in.
struct TwoSites {
    TwoSites() {
        EXPECT_FALSE(session.Open(Place()).has_value());
        own = session.Site().NewIntake();
        ppid = own->AddProject(QStringLiteral("滨江花园"));
        otherPpid = own->AddProject(QStringLiteral("科技大厦"));
        own->AddUser(QStringLiteral("li"), {});
        own->AddUser(QStringLiteral("zhao"), {});
        EXPECT_TRUE(session.SignIn(QStringLiteral("li")));
        EXPECT_TRUE(session.OpenProject(ppid));
        other = site::OpenSite(Place(), {500, false});
        theirs = other.site->NewIntake();
    }
    [[nodiscard]] QString Place() const { return dir.path() + QStringLiteral("/site"); }
    static qint32 FilePhoto(site::IIntake& into, qint32 project, const QString& name) {
        site::NewBimPhoto photo;
        photo.ppid = project;
        photo.fileName = name;
        photo.uploader = QStringLiteral("wang");
        photo.uploadTime = 1'700'000'000;
        return into.FilePhoto(photo, {{}, "jpeg"});
    }
    static QString FileIssue(site::IIntake& into, qint32 project, const QString& theme) {
        site::NewIssue issue;
        issue.ppid = project;
        issue.theme = theme;
        issue.creator = QStringLiteral("wang");
        issue.createTime = 1'700'000'000;
        return into.FileIssue(issue);
    }

    QTemporaryDir dir;
    host::HostSession session;
    site::OpenedSite other;
    std::unique_ptr<site::IIntake> own;
    std::unique_ptr<site::IIntake> theirs;
    qint32 ppid = 0;
    qint32 otherPpid = 0;
};

} // namespace hosttest
