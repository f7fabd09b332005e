// The pages of one drawing, rendered as they are looked at.
#pragma once

#include "host/drawings/DrawingReader.h"
#include "host/drawings/SheetTiles.h"

#include <QTimer>

#include <optional>

namespace host {

/// Keeps what was rendered in a bounded cache and has what is looked at rendered, the newest wish
/// first, beside the interface thread: a wish never waits. Thread: user interface.
class SheetStore final : public QObject {
    Q_OBJECT

public:
    enum class State {
        Empty,   ///< no drawing
        Opening, ///< its file is being read
        Open,
        Broken, ///< it can't be shown, Fault says why
    };
    /// Enough for a screen of eight million pixels and what lies around it.
    static constexpr qint64 kMostBytes = qint64(64) * 1024 * 1024;

    explicit SheetStore(const DrawingReader::Terms& terms = {}, QObject* parent = nullptr);

    void Open(const QString& path);
    void Close();
    /// Without a file at all.
    void Break(DrawingFault fault);
    [[nodiscard]] State Present() const { return m_state; }
    [[nodiscard]] DrawingFault Fault() const { return m_fault; }
    /// Empty unless open.
    [[nodiscard]] const SheetPages& Pages() const { return m_pages; }

    /// What is looked at now; an earlier wish is dropped as far as it isn't fulfilled.
    void Want(const SheetWish& wish);
    /// Everything that was wished last is there.
    [[nodiscard]] bool IsComplete() const;
    [[nodiscard]] const TileCache& Tiles() const { return m_cache; }

signals:
    void StateChanged();
    void TilesCame();

private:
    void Proceed();
    void RenderNext();
    [[nodiscard]] bool IsOfUse() const;
    void OnRendered(const RenderRequest& request, const QImage& image);
    void OnFailed(DrawingFault fault);
    void Become(State state, DrawingFault fault);

    DrawingReader m_reader;
    TileCache m_cache{kMostBytes};
    State m_state = State::Empty;
    DrawingFault m_fault = DrawingFault::None;
    SheetPages m_pages;
    SheetWish m_wish;
    struct Rendering {
        int page = 0;
        int level = 0;
        QRect tiles;
    };
    std::optional<Rendering> m_rendering;
    QString m_path;
    bool m_isReopening = false; ///< what was rendered is given up, the same file comes again
    QTimer m_calm;              ///< until somebody who zooms or moves has stopped for a moment
};

} // namespace host
