// The photo service on records in memory.
#pragma once

#include "services/EnvRecords.h"
#include "services/IVeskPicMng.h"
#include "tests/support/Reserved.h"
#include "tests/support/Script.h"
#include "tests/support/services/Paging.h"
#include "tests/support/services/RowPanel.h"
#include "tests/support/services/RowSearch.h"

#include <map>
#include <optional>

namespace support {

class ScriptedKXGlobalData;

/// One intersection of a project's model.
struct ScriptedPosition {
    qint32 ppid = 0;
    QString floor;
    QString axisX;
    QString axisY;
    QString key;
};

/// The floors of each project, in their order, and what stands on them.
struct ScriptedModel {
    std::map<qint32, std::vector<QString>> floors;
    std::vector<ScriptedPosition> positions;
};

/// Queries answer pages of the records and keep the filter for the test; showing, hiding, saving
/// and deleting change the records. A failing operation changes nothing.
class ScriptedVeskPicMng final : public WithReserved5<KX_DATA::IVeskPicMng> {
public:
    explicit ScriptedVeskPicMng(Script& script) : m_script(script) {}

    /// True: as a site it refuses ids that it doesn't have, projects that aren't open or not those
    /// of the records, takes the last fetch back when a fetch fails, and what nobody scripted of
    /// the marks, labels and panels below comes of the records. False, for tests of what is sent:
    /// it takes every id and project.
    bool judges = false;
    /// True: as a site it lists what the filter asks for, in the order asked for. False, for tests
    /// of what is shown of a list: all records in their order.
    bool searches = false;
    const ScriptedKXGlobalData* global = nullptr; ///< which projects are open; null: all
    std::vector<KX_DATA::BimPicRow> bimPics;
    std::vector<KX_DATA::PdfPicRecord> pdfPics;
    std::map<qint32, KX_DATA::CheckpointPicDetail> checkpointPics;
    std::vector<KX_DATA::PicFileEntry> files;
    QString detailMarkName; ///< of every BIM photo's detail, as the colour
    qint32 detailMarkColor = 0;
    std::map<qint32, KX_DATA::MarkRecord> markTable; ///< if given, names and colours are from here
    std::vector<KX_DATA::LabelEntry> allLabels;      ///< if given, a save refuses other ids
    /// If given, it has the floors, axes and position keys; else the three lists below are those of
    /// every project, and every key is good.
    std::optional<ScriptedModel> model;
    QString changer;          ///< who saves; empty: people and times of the records stay
    bool detailHasIds = true; ///< false: the service leaves photo and project to the caller
    std::vector<QString> floors;
    std::vector<QString> axesX;
    std::vector<KX_DATA::AxisYEntry> axesY;
    std::vector<KX_DATA::LabelEntry> bimLabels;
    std::vector<KX_DATA::LabelEntry> pdfLabels;
    std::vector<qint32> usedBimMarks;
    std::vector<qint32> usedPdfMarks;
    std::vector<QString> stateNames;
    std::vector<KX_DATA::PicFilterEntry> filterEntries;
    std::vector<KX_DATA::PicMarkGroup> markGroups;
    std::vector<qint32> markerIds;

    /// What the last question about marks came with, to be compared by its address.
    const KX_DATA::MarkFilterArg* lastFilterArg = nullptr;
    QueryScript bimQuery;
    QueryScript pdfQuery;
    KX_DATA::PicQueryFilter lastBimFilter;
    KX_DATA::PdfQueryFilter lastPdfFilter;
    KX_DATA::BimPicUpdate lastBimUpdate;
    KX_DATA::PdfPicUpdate lastPdfUpdate;

    qint32 QueryBimPics(const KX_DATA::PicQueryFilter& filter, const KX_DATA::PageRequest& request,
                        KX_DATA::PageResult& result,
                        std::vector<KX_DATA::BimPicRow>& rows) override;
    qint32 QueryPdfPics(const KX_DATA::PdfQueryFilter& filter, const KX_DATA::PageRequest& request,
                        KX_DATA::PageResult& result,
                        std::vector<KX_DATA::PdfPicRecord>& rows) override;
    void GetBimPicFilterGroups(qint64 from, qint64 to, quint8 flag,
                               KX_DATA::MarkFilterArg& filterArg,
                               std::vector<KX_DATA::PicFilterEntry>& entries) override;
    qint32 GetBimPicMarkerList(qint64 from, qint64 to, quint8 flag, qint32 markId,
                               KX_DATA::MarkFilterArg& filterArg,
                               std::vector<qint32>& picIds) override;
    bool DeleteBimPics(const std::vector<qint32>& picIds) override;
    bool DeletePdfPics(qint32 ppid, const std::vector<qint32>& picIds) override;
    bool SetBimPicsShown(qint32 ppid, const std::vector<qint32>& picIds, bool hidden) override;
    bool SetPdfPicsShown(qint32 ppid, const std::vector<qint32>& picIds, bool hidden) override;
    qint32 GetBimPicDetail(qint32 ppid, qint32 picId, KX_DATA::BimPicDetail& detail) override;
    qint32 GetPdfPicDetail(qint32 ppid, qint32 picId, KX_DATA::PdfPicDetail& detail) override;
    qint32 GetProjectFloors(qint32 ppid, std::vector<QString>& names) override;
    qint32 GetFloorAxesX(qint32 ppid, const QString& floor, std::vector<QString>& axes) override;
    qint32 GetFloorAxesY(qint32 ppid, const QString& floor, const QString& axisX,
                         std::vector<KX_DATA::AxisYEntry>& axes) override;
    bool UpdateBimPic(qint32 ppid, const KX_DATA::BimPicUpdate& update) override;
    bool UpdatePdfPic(qint32 ppid, const KX_DATA::PdfPicUpdate& update) override;
    qint32 GetPicFiles(const std::vector<qint32>& picIds,
                       std::vector<KX_DATA::PicFileEntry>& entries) override;
    qint32 GetCheckpointPics(qint32 ppid, qint32 picId,
                             KX_DATA::CheckpointPicDetail& detail) override;
    void GetBimPicFilterValues(qint64 from, qint64 to, quint8 flag,
                               KX_DATA::MarkFilterArg& filterArg,
                               std::vector<KX_DATA::PicMarkGroup>& groups) override;
    qint32 DeleteCheckpointPic(qint32 drawingId, qint32 picId) override;
    qint32 GetPicFilesByPosition(qint32 ppid, const QString& positionKey, qint32 markId,
                                 std::vector<KX_DATA::PicFileEntry>& entries) override;
    bool GetBimLabels(std::vector<KX_DATA::LabelEntry>& labels) override;
    bool GetPdfLabels(std::vector<KX_DATA::LabelEntry>& labels) override;
    bool GetUsedBimMarks(std::vector<qint32>& markIds) override;
    bool GetUsedPdfMarks(std::vector<qint32>& markIds) override;
    void GetStateNames(std::vector<QString>& names) override;

    /// A checkpoint's change reaches its photos; a mark of 0 or less leaves theirs.
    void ChangeCheckpoint(qint32 pointId, qint32 markId,
                          const std::vector<KX_DATA::LabelEntry>& labels);
    /// Of a checkpoint, in the order of the records.
    [[nodiscard]] std::vector<KX_DATA::DrawingPicRef> ShownPicsOf(qint32 pointId) const;
    /// Whether its photos and issues may be asked for by their ids alone.
    [[nodiscard]] bool IsOpen(qint32 ppid) const;
    [[nodiscard]] PanelScope ScopeOf(const KX_DATA::MarkFilterArg& filterArg, bool timed,
                                     qint64 from, qint64 to) const;
    /// False if one of them isn't known.
    [[nodiscard]] bool FindLabels(const std::vector<QString>& ids,
                                  std::vector<KX_DATA::LabelEntry>& labels) const;

private:
    /// Whether a list is the test's and not that of the records.
    template <class Values> [[nodiscard]] bool Scripted(const Values& values) const {
        return !judges || !values.empty();
    }
    /// The project that records are looked for in.
    [[nodiscard]] qint32 Asked(qint32 ppid) const;
    /// Labels that the lists don't have get ids of their own, which are never their names.
    [[nodiscard]] QString LabelIdOf(const QString& name) const;
    [[nodiscard]] QString LabelNameOf(const QString& id) const;
    [[nodiscard]] RowNames Names() const;
    [[nodiscard]] bool HasOpenPhoto(qint32 picId) const;
    [[nodiscard]] bool MoveTo(KX_DATA::BimPicRow& row, const QString& key) const;
    [[nodiscard]] bool MoveToPoint(KX_DATA::PdfPicRecord& row, qint32 pointId) const;
    [[nodiscard]] bool StandsAt(qint32 picId, qint32 ppid, const QString& positionKey,
                                qint32 markId) const;

    Script& m_script;
};

} // namespace support
