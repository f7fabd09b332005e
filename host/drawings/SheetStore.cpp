#include "host/drawings/SheetStore.h"

#include <utility>

namespace host {

namespace {

constexpr int kCalmMs = 40;

} // namespace

SheetStore::SheetStore(const DrawingReader::Terms& terms, QObject* parent)
    : QObject(parent), m_reader(terms) {
    m_calm.setSingleShot(true);
    m_calm.setInterval(kCalmMs);
    m_calm.callOnTimeout(this, &SheetStore::Proceed);
    connect(&m_reader, &DrawingReader::Opened, this, [this](const SheetPages& pages) {
        if (std::exchange(m_isReopening, false)) {
            RenderNext();
            return;
        }
        m_pages = pages;
        Become(State::Open, DrawingFault::None);
    });
    connect(&m_reader, &DrawingReader::Rendered, this, &SheetStore::OnRendered);
    connect(&m_reader, &DrawingReader::Failed, this, &SheetStore::OnFailed);
}

void SheetStore::Open(const QString& path) {
    Close();
    m_path = path;
    Become(State::Opening, DrawingFault::None);
    m_reader.Open(path);
}

void SheetStore::Close() {
    m_reader.Close();
    m_isReopening = false;
    m_calm.stop();
    m_cache.Clear();
    m_pages.clear();
    m_wish = {};
    m_rendering.reset();
    Become(State::Empty, DrawingFault::None);
}

void SheetStore::Break(DrawingFault fault) {
    Close();
    Become(State::Broken, fault);
}

void SheetStore::Become(State state, DrawingFault fault) {
    if (m_state == state && m_fault == fault) {
        return;
    }
    m_state = state;
    m_fault = fault;
    emit StateChanged();
}

void SheetStore::Want(const SheetWish& wish) {
    if (m_state != State::Open || wish.page < 0 || wish.page >= int(m_pages.size())) {
        return;
    }
    m_wish = wish;
    m_cache.KeepAtLeast(wish.tiles.width() * wish.tiles.height());
    for (int row = wish.tiles.top(); row <= wish.tiles.bottom(); ++row) {
        for (int column = wish.tiles.left(); column <= wish.tiles.right(); ++column) {
            m_cache.Touch({wish.page, wish.level, column, row});
        }
    }
    if (m_cache.KeysOf(wish.page).empty()) {
        Proceed();
    } else {
        m_calm.start();
    }
}

bool SheetStore::IsOfUse() const {
    return m_rendering->page == m_wish.page && m_rendering->level == m_wish.level &&
           m_rendering->tiles.intersects(m_wish.tiles);
}

void SheetStore::Proceed() {
    if (m_rendering && !IsOfUse()) {
        // A part of a large sheet takes longer than a new reader.
        m_rendering.reset();
        m_isReopening = true;
        m_reader.Open(m_path);
    }
    RenderNext();
}

bool SheetStore::IsComplete() const {
    return m_state == State::Open &&
           !NextTiles(m_wish, [this](const TileKey& key) { return m_cache.Find(key) != nullptr; });
}

void SheetStore::RenderNext() {
    if (m_reader.IsBusy() || !m_reader.IsOpen()) {
        return;
    }
    const auto tiles =
        NextTiles(m_wish, [this](const TileKey& key) { return m_cache.Find(key) != nullptr; });
    if (!tiles) {
        return;
    }
    m_rendering = Rendering{m_wish.page, m_wish.level, *tiles};
    m_reader.Render(RequestFor(m_wish.page, m_wish.level, *tiles, m_pages[size_t(m_wish.page)]));
}

void SheetStore::OnRendered(const RenderRequest& request, const QImage& image) {
    const Rendering done = *std::exchange(m_rendering, std::nullopt);
    for (int row = done.tiles.top(); row <= done.tiles.bottom(); ++row) {
        for (int column = done.tiles.left(); column <= done.tiles.right(); ++column) {
            const QRect square(column * kTileSide - request.clip.x(),
                               row * kTileSide - request.clip.y(), kTileSide, kTileSide);
            m_cache.Put({request.page, done.level, column, row}, image.copy(square & image.rect()));
        }
    }
    RenderNext();
    emit TilesCame();
}

void SheetStore::OnFailed(DrawingFault fault) {
    m_isReopening = false;
    m_rendering.reset();
    Become(State::Broken, fault);
}

} // namespace host
