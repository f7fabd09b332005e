// A data folder with two projects, and a folder of pictures to import.
#pragma once

#include "host/import/ImportReport.h"
#include "site/sqlite/DataFolder.h"
#include "site/sqlite/SqliteSite.h"
#include "tests/support/TempFolder.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <vector>

namespace importtest {

/// One filed photo as the database and the store have it.
struct FiledPhoto {
    QString name;
    QString positionKey;
    qint32 markId = 0;
    QString uploader;
    qint64 time = 0;
    QByteArray bytes;
};

class ImportSite final {
public:
    ImportSite();

    /// Project 1 with floor 3, axes 1, 2 and A, B, marks 质量 (1) and 安全 (2), people 张工 and
    /// 李工.
    [[nodiscard]] host::ImportRequest Request() const;
    /// Over the folder, which must be open as long as it is used.
    [[nodiscard]] std::unique_ptr<site::ISite> Engine() {
        return std::make_unique<site::SqliteSite>(folder);
    }
    /// Puts a file into the folder of pictures; gives its path.
    QString Put(const QString& name, const QByteArray& bytes) const;
    [[nodiscard]] QString Pictures() const { return temp.Path(QStringLiteral("pictures")); }
    [[nodiscard]] QString DataPath() const { return temp.Path(QStringLiteral("data")); }

    /// Photos of a project, by id.
    [[nodiscard]] std::vector<FiledPhoto> Filed(qint32 ppid = 1) const;
    /// Files in the store, and in the database's table of files.
    [[nodiscard]] int StoredFiles() const;
    [[nodiscard]] int KnownFiles() const;

    support::TempFolder temp;
    site::DataFolder folder;
};

} // namespace importtest
