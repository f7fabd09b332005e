// The lists of a site's setup as tables over a draft: which columns they have, what editing does.
#pragma once

#include "host/ui/setup/SetupListModel.h"

namespace host {

/// Each is owned by `parent`; the draft must outlive it.
[[nodiscard]] SetupListModel* MakeProjectsModel(SetupDraft& draft, QObject* parent);
[[nodiscard]] SetupListModel* MakeWorksetsModel(SetupDraft& draft, QObject* parent);
[[nodiscard]] SetupListModel* MakePeopleModel(SetupDraft& draft, QObject* parent);
[[nodiscard]] SetupListModel* MakeMarksModel(SetupDraft& draft, QObject* parent);
[[nodiscard]] SetupListModel* MakeLabelsModel(SetupDraft& draft, QObject* parent);

/// "#RRGGBB" of a mark's colour, and back; -1 for what is no colour.
[[nodiscard]] QString ColorText(qint32 bgr);
[[nodiscard]] qint32 ColorOfText(const QString& text);

/// A name that the list doesn't have: "新标识", "新标识 2", ...
[[nodiscard]] QString FreeName(const QString& wish, const QStringList& taken);

} // namespace host
