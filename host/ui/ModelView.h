// What the client asks of a view of the model beyond what the module asks of it.
#pragma once

#include "host/ui/marks/ShownMarks.h"
#include "services/EnvRecords.h"
#include "services/IKXView.h"

#include <QObject>
#include <QPoint>

#include <map>

namespace host {

/// Where a person asks what can be done with flags.
struct FlagMenuRequest {
    std::vector<MarkFlag> flags; ///< may be empty: then only the place is meant
    QString place;               ///< "3轴 / B轴"; empty on no intersection
    QString positionKey;         ///< of the intersection; empty on none
    QPoint at;                   ///< on the screen
};

/// A view that draws floors, positions and marks; the plan is one, a spatial view may be another.
/// It never calls the module: what a person does with a flag is told by signals.
/// Thread: user interface.
class ModelView : public QObject, public KX_DATA::IKXView {
    Q_OBJECT

public:
    using QObject::QObject;

    /// Colours and names of the marks; for the next marks that are set.
    virtual void SetMarkTable(const std::map<qint32, KX_DATA::MarkRecord>& marks) = 0;
    /// What the flags say of photos that have none; for the next marks that are set.
    virtual void SetHiddenPhotos(const HiddenPhotos& photos) = 0;
    /// Switches the display of a kind of marks; what isn't displayed can't be located.
    virtual void ShowMarks(MarkKind kind, bool on) = 0;
    /// Brings up a floor by its name, without choosing anything on it. False: there is none.
    virtual bool ShowFloor(const QString& floor) = 0;

signals:
    /// The person opens a flag.
    void FlagOpened(const host::MarkFlag& flag);
    void FlagMenuWanted(const host::FlagMenuRequest& request);
};

} // namespace host
