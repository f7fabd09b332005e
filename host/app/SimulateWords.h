// What the person wants of the site simulator.
#pragma once

#include <QString>
#include <QStringList>

namespace host {

/// A rate that no machine reaches.
inline constexpr double kFastest = 1e9;

struct SimulateRequest {
    QString project;
    double perMinute = 0; ///< items; above 0 once it was written
    QString photos;       ///< folder whose JPEGs are filed; empty: pictures are drawn
    int count = 0;        ///< items until it ends by itself; 0: never
};

/// Takes one option of the simulator, with its value.
///
/// @return  Chinese, what is wrong with it; empty: it was taken.
[[nodiscard]] QString TakeSimulateOption(const QString& name, const QString& value,
                                         SimulateRequest& request);
/// Chinese, what the words left out; empty: nothing.
[[nodiscard]] QString LackOf(const SimulateRequest& request);

} // namespace host
