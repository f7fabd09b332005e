// The whole client at work, with the real module.
#pragma once

#include "host/app/Client.h"
#include "host/services/ServiceSet.h"
#include "host/session/HostSession.h"
#include "tests/roads/SmallSite.h"
#include "tests/support/TempFolder.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace host {
class FloorPlanCanvas;
}

namespace roads {

/// The client at work on a small data folder as "张伟", who has all rights.
class ClientOnAFolder : public testing::Test {
protected:
    void SetUp() override;
    /// Adds to the small site before the client starts.
    virtual void Furnish() {}
    void Start();
    /// Instead of SetUp: the sample site as its first person finds it at the first start.
    void StartOnTheSampleSite();
    /// Ctrl and a key, in the main window.
    bool Press(Qt::Key key);
    bool ChooseProject(const QString& entry);
    [[nodiscard]] host::FloorPlanCanvas& Plan() const;
    /// What the photo flags on the shown floor stand for.
    [[nodiscard]] std::vector<int> FlagCounts() const;
    /// Of the message bar, latest first.
    [[nodiscard]] QStringList Messages() const;

    support::TempFolder folder;
    SmallSite site;
    host::HostSession session;
    const host::Serving serving{session}; ///< also before the client is there
    std::unique_ptr<host::Client> client;
};

} // namespace roads
