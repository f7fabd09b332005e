// Setting up a site: projects, people, marks, labels, floors and axes.
#pragma once

#include "site/Records.h"
#include "site/SetupState.h"

#include <optional>

namespace site {

/// What became of a wanted state: all of it or nothing.
struct SetupOutcome {
    /// Chinese sentences, each names what it is about; empty: everything is as wanted now.
    std::vector<QString> refusals;
    /// A list that somebody else has changed since it was seen; nothing is refused then.
    std::optional<SetupList> changedMeanwhile;

    [[nodiscard]] bool IsDone() const { return refusals.empty() && !changedMeanwhile; }
};

/// Operations throw DataError; a change is one transaction. Who may, the caller decides. Thread:
/// the site's.
class ISetup {
public:
    virtual ~ISetup() = default;

    /// Everything in one state, with the grids of these projects; unknown ones are left out.
    [[nodiscard]] virtual SetupState Read(const Projects& grids) = 0;

    /// What stands in `seen` and differs in `wanted` becomes as wanted: entries without an id are
    /// made, those with one changed, those that are missing removed. Lists that are alike in both
    /// aren't touched, whatever the site has. Refused: what breaks a rule of SetupRules.h, and the
    /// removal of what is in use. What is removed stays known to records that already say its name.
    [[nodiscard]] virtual SetupOutcome Apply(const SetupState& seen, const SetupState& wanted,
                                             const Signature& by) = 0;

    /// What an entry is used by, for a person ("照片 32 张、问题 4 个"); empty: by nothing, so it
    /// may be removed. `id` is that of the entry, for floors and crossings as below.
    [[nodiscard]] virtual QString UsesOf(SetupList list, qint32 id) = 0;
    [[nodiscard]] virtual QString UsesOfFloor(qint32 ppid, const QString& floor) = 0;
    [[nodiscard]] virtual QString UsesOfCrossing(const QString& positionKey) = 0;
};

} // namespace site
