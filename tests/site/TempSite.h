// A data folder of a test: open, empty, gone at the end.
#pragma once

#include "site/sqlite/DataFolder.h"
#include "site/sqlite/SiteWriter.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace hosttest {

class TempSite {
public:
    TempSite() : folder(dir.path() + QStringLiteral("/site")) {
        const auto fault = folder.Open({500, true});
        EXPECT_FALSE(fault.has_value()) << (fault ? fault->text.toStdString() : "");
    }

    QTemporaryDir dir;
    site::DataFolder folder;
};

} // namespace hosttest
