// The drawing service and QR codes, on records in memory.
#pragma once

#include "services/IPDFDrawingMng.h"
#include "services/ITNQRCodeMng.h"
#include "tests/support/Reserved.h"
#include "tests/support/Script.h"

#include <map>
#include <set>

namespace support {

class ScriptedVeskPicMng;

class ScriptedPDFDrawingMng final : public WithReserved6<KX_DATA::IPDFDrawingMng> {
public:
    explicit ScriptedPDFDrawingMng(Script& script) : m_script(script) {}

    std::map<qint32, KX_DATA::DrawingRecord> drawings; ///< by id of the checkpoint point
    std::map<qint32, qint32> projects; ///< by id of the point; those that aren't here are open
    std::vector<KX_DATA::CheckpointComment> comments; ///< in the order of writing
    /// Who wrote a comment, and to which point, by its id; those that aren't here are of every
    /// point, and by nobody.
    struct Written {
        qint32 pointId = 0;
        QString person;
    };
    std::map<qint64, Written> written;
    qint64 commentTime = 1'700'000'000;       ///< of what is written next
    bool makesComments = true;                ///< false: succeeds with a comment that doesn't exist
    const std::set<qint32>* rights = nullptr; ///< of who is signed in; null: all
    KX_DATA::CheckpointEdit lastEdit;
    ScriptedVeskPicMng* pics = nullptr; ///< the site's photos, which change with their checkpoints

    qint32 AddComment(qint32 drawingId, const QString& text,
                      KX_DATA::CheckpointComment& comment) override;
    qint32 GetComments(qint32 drawingId, qint32 page, qint32 pageSize,
                       std::vector<KX_DATA::CheckpointComment>& list) override;
    bool DeleteComment(qint32 drawingId, qint64 commentId) override;
    qint32 GetDrawing(qint32 drawingId, KX_DATA::DrawingRecord& record) override;
    qint32 UpdateCheckpoint(const KX_DATA::CheckpointEdit& edit, qint32& value) override;

    /// False for a point of a project that isn't open, too.
    [[nodiscard]] bool IsThere(qint32 pointId) { return Find(pointId) != nullptr; }

private:
    /// As a site: ids and people are looked at.
    [[nodiscard]] bool Judges() const;
    [[nodiscard]] bool Takes(qint32 pointId, const QString& text);
    [[nodiscard]] bool IsOf(const KX_DATA::CheckpointComment& comment, qint32 pointId) const;
    [[nodiscard]] bool MayDelete(qint64 commentId) const;
    /// Null if it isn't there, or of a project that isn't open.
    [[nodiscard]] KX_DATA::DrawingRecord* Find(qint32 pointId);

    Script& m_script;
    qint64 m_lastComment = 0;
};

class ScriptedTNQRCodeMng final : public KX_DATA::ITNQRCodeMng {
public:
    explicit ScriptedTNQRCodeMng(Script& script) : m_script(script) {}

    QString code; ///< what is made
    KX_DATA::QRCodeQuery lastQuery;

    qint32 CreateQRCode(const KX_DATA::QRCodeQuery& query, QString& text) override;

private:
    Script& m_script;
};

} // namespace support
