// The client's progress service.
#pragma once

#include "services/IExProgress.h"

#include <memory>

namespace host {

class ProgressWindow;

/// A progress window without a way to cancel, as the service has none. It comes up half a second
/// after Show; without Create all else does nothing. Work that ends without Close leaves its window
/// behind: as soon as the event loop runs again, the window blocks nothing and can be closed.
/// Thread: user interface.
class ExProgress final : public KX_DATA::IExProgress {
public:
    ExProgress();
    ~ExProgress() override;

    void Close() override;
    void Create(quint64 parent, const QString& name) override;
    void Show() override;
    void SetTitle(const QString& title) override;
    void SetRange(qint32 count) override;
    void SetPos(qint32 done) override;

    /// While it lives, an event loop that runs is part of the work.
    class Hold final {
    public:
        explicit Hold(ExProgress& held) : m_progress(held) { ++m_progress.m_holds; }
        ~Hold();
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;

    private:
        ExProgress& m_progress;
    };

    /// Null between Close and Create.
    [[nodiscard]] ProgressWindow* Window() const { return m_window.get(); }

private:
    void LetGoLater(int milliseconds);

    std::unique_ptr<ProgressWindow> m_window;
    qint32 m_range = 0;
    int m_holds = 0;
};

} // namespace host
