// How a component of the model is named to people.
#pragma once

#include <QString>

namespace ZelvorNRQ_KXVeskPicture {

/// The floor with "层", what lies between if there is such a thing, and the component's name, one
/// blank between them. Thread: any.
[[nodiscard]] QString ComponentText(const QString& floor, const QString& between,
                                    const QString& name);

} // namespace ZelvorNRQ_KXVeskPicture
