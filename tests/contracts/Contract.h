// The ground of all contract tests: on which sites they run, and what they file there.
#pragma once

#include "tests/contracts/ContractSite.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace contracts {

/// One implementation of the services.
struct SiteRow {
    std::string name;
    std::function<std::unique_ptr<ContractSite>()> make;
};

/// One way in which an implementation fails.
struct FailureRow {
    SiteRow site;
    Trouble trouble;
    std::string name;
};

inline void PrintTo(const SiteRow& row, std::ostream* out) {
    *out << row.name;
}
inline void PrintTo(const FailureRow& row, std::ostream* out) {
    *out << row.name;
}

[[nodiscard]] std::vector<SiteRow> AllSites();
/// Those that have an engine.
[[nodiscard]] std::vector<SiteRow> EngineSites();
/// For operations that ask what is open, and not the tables.
[[nodiscard]] std::vector<FailureRow> ClosingFailures();
/// For operations that read.
[[nodiscard]] std::vector<FailureRow> ReadingFailures();
/// For operations that change: those above, and two under which reading goes on.
[[nodiscard]] std::vector<FailureRow> WritingFailures();
/// Of engines, while they stay open.
[[nodiscard]] std::vector<FailureRow> EngineFailures();

template <class Row> std::string RowName(const testing::TestParamInfo<Row>& info) {
    return info.param.name;
}

/// Files and reads on a fresh site.
class SiteUser {
public:
    explicit SiteUser(const SiteRow& row) : site(row.make()), on(site->on), first(site->first) {}

    std::unique_ptr<ContractSite> site;
    const Services on;
    const qint32 first;

    /// With usual values, changed by `change` before it is filed.
    qint32 Photo(const std::function<void(site::NewBimPhoto&)>& change = {});
    QString Issue(const std::function<void(site::NewIssue&)>& change = {});
    qint32 Point(qint32 drawingId, qint32 number,
                 const std::function<void(site::NewCheckpoint&)>& change = {});
    qint32 PdfPhoto(qint32 pointId, const QString& name,
                    const std::function<void(site::NewPdfPhoto&)>& change = {});
    QString Position(const QString& floor, const QString& x, const QString& y,
                     const QString& key = {});

    /// All rows of the first project, in the order of filing.
    [[nodiscard]] std::vector<KX_DATA::BimPicRow> BimRows();
    [[nodiscard]] std::vector<KX_DATA::PdfPicRecord> PdfRows();
    [[nodiscard]] std::vector<KX_DATA::IssueRow> IssueRows();
    [[nodiscard]] KX_DATA::PicQueryFilter Filter() const;
    [[nodiscard]] KX_DATA::PdfQueryFilter PdfFilter() const;
};

class Contract : public testing::TestWithParam<SiteRow>, protected SiteUser {
protected:
    Contract() : SiteUser(GetParam()) {}
};

class FailureContract : public testing::TestWithParam<FailureRow>, protected SiteUser {
protected:
    FailureContract() : SiteUser(GetParam().site) {}

    void Fail(const std::vector<std::string>& operations) {
        site->Enter(GetParam().trouble, operations);
    }
    /// Whether what stands on the site can still be asked for, to see that nothing changed.
    [[nodiscard]] bool StillReads() const {
        return GetParam().trouble != Trouble::Closed && GetParam().trouble != Trouble::Broken;
    }
};

/// What an operation that fails must leave alone is set to these before.
inline constexpr qint32 kUntouched = 4711;
/// No photo, checkpoint or project has this id.
inline constexpr qint32 kNobody = 987654;

} // namespace contracts

#define ON_EVERY_SITE(suite)                                                                       \
    INSTANTIATE_TEST_SUITE_P(OnEverySite, suite, testing::ValuesIn(contracts::AllSites()),         \
                             contracts::RowName<contracts::SiteRow>)
#define ON_EVERY_ENGINE(suite)                                                                     \
    INSTANTIATE_TEST_SUITE_P(OnEveryEngine, suite, testing::ValuesIn(contracts::EngineSites()),    \
                             contracts::RowName<contracts::SiteRow>)
#define WHERE_AN_ENGINE_FAILS(suite)                                                               \
    INSTANTIATE_TEST_SUITE_P(WhereAnEngineFails, suite,                                            \
                             testing::ValuesIn(contracts::EngineFailures()),                       \
                             contracts::RowName<contracts::FailureRow>)
#define WHERE_NOTHING_IS_OPEN(suite)                                                               \
    INSTANTIATE_TEST_SUITE_P(WhereNothingIsOpen, suite,                                            \
                             testing::ValuesIn(contracts::ClosingFailures()),                      \
                             contracts::RowName<contracts::FailureRow>)
#define WHERE_READING_FAILS(suite)                                                                 \
    INSTANTIATE_TEST_SUITE_P(WhereReadingFails, suite,                                             \
                             testing::ValuesIn(contracts::ReadingFailures()),                      \
                             contracts::RowName<contracts::FailureRow>)
#define WHERE_WRITING_FAILS(suite)                                                                 \
    INSTANTIATE_TEST_SUITE_P(WhereWritingFails, suite,                                             \
                             testing::ValuesIn(contracts::WritingFailures()),                      \
                             contracts::RowName<contracts::FailureRow>)
