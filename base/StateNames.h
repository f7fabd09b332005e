// The rectification states that a person may choose.
#pragma once

#include <QString>

#include <vector>

namespace ZelvorNRQ_KXVeskPicture {

/// Stands for all states in filters; no state.
inline const QString kEveryState = QStringLiteral("全部");

/// Names of the states in the service's order, without the one for all. Blocks. Thread: user
/// interface.
[[nodiscard]] std::vector<QString> ListStates();

} // namespace ZelvorNRQ_KXVeskPicture
