// The windows of the help menu.
#pragma once

#include <QString>

class QWidget;

namespace host {

/// Lists all keys. Returns once the person has closed it, as the one below.
void ShowKeys(QWidget* parent);
/// Version, and where the data lies.
void ShowAbout(QWidget* parent, const QString& dataFolder);

} // namespace host
