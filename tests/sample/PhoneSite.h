// A data folder on which phones file: two floors with axes, marks, labels, people.
#pragma once

#include "site/Records.h"
#include "site/sqlite/SqliteSite.h"

#include <QDirIterator>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace sampletest {

/// 2026-03-05 12:00:00 in the tests' zone.
inline constexpr qint64 kPhoneTime = 1772683200;

class PhoneSite {
public:
    /// Project 1 "滨江花园", 2 "空地" without floors; 王工, 李工, 刘监理 may file, 赵总 reads.
    PhoneSite();

    [[nodiscard]] site::ISite& Site() { return m_site; }
    [[nodiscard]] static site::ProjectEntry Project() { return {1, QStringLiteral("滨江花园"), 1}; }
    [[nodiscard]] QString Path() const { return m_dir.path() + QStringLiteral("/site"); }

    [[nodiscard]] int Count(const QString& table) const {
        return folder.Db().Value(QStringLiteral("SELECT count(*) FROM ") + table).toInt();
    }
    /// The first column of all rows.
    [[nodiscard]] QStringList Texts(const QString& query) const;
    /// Bytes of a stored file; empty if it isn't there.
    [[nodiscard]] QByteArray Bytes(const QString& uuid) const;
    [[nodiscard]] int StoredFiles() const;
    /// What is in the store is what the rows name, and each issue has its picture.
    void ExpectWhole() const;

    std::function<void()> onNow; ///< called whenever the site is asked for the time

private:
    QTemporaryDir m_dir;

public:
    site::DataFolder folder{Path()};

private:
    /// Opens the folder first.
    [[nodiscard]] site::DataFolder& Opened();
    site::SqliteSite m_site{Opened()};
};

/// Another client that writes, from its making to its end.
class Writing {
public:
    explicit Writing(const PhoneSite& site) : m_folder(site.Path()) {
        EXPECT_FALSE(m_folder.Open({20, false}).has_value());
        m_batch = std::make_unique<site::Transaction>(m_folder.Db());
    }

private:
    site::DataFolder m_folder;
    std::unique_ptr<site::Transaction> m_batch;
};

} // namespace sampletest
