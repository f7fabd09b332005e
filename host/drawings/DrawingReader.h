// The client's end of the reader of drawings.
#pragma once

#include "host/drawings/ReaderFrames.h"

#include <QObject>
#include <QTimer>

#include <memory>
#include <optional>

class QProcess;

namespace host {

/// One document at a time, in a process of its own that is started with the first and ends with
/// this object, or with a document over which it crashed or stalled. Answers come as signals, one
/// for each question; nothing here waits. Thread: the one that made it, with an event loop.
class DrawingReader final : public QObject {
    Q_OBJECT

public:
    struct Terms {
        QString program;         ///< empty: the one beside this program
        int patienceMs = 15'000; ///< for one answer
    };

    explicit DrawingReader(Terms terms, QObject* parent = nullptr);
    ~DrawingReader() override;

    /// Opens another document; of the one before no answer comes any more. Opened or Failed.
    void Open(const QString& path);
    /// Rendered or Failed. Only while a document is open and nothing is asked.
    void Render(const RenderRequest& request);
    [[nodiscard]] bool IsOpen() const { return m_isOpen; }
    [[nodiscard]] bool IsBusy() const { return m_asked.has_value(); }
    /// Ends the process; the next Open starts another one.
    void Close();

signals:
    void Opened(const host::SheetPages& pages);
    void Rendered(const host::RenderRequest& request, const QImage& image);
    /// Nothing is open any more, unless it was a part that can't be rendered (Damaged).
    void Failed(host::DrawingFault fault);

private:
    void StartProcess();
    void Ask(const ReaderQuestion& question);
    void OnBytes();
    void OnAnswer(const ReaderAnswer& answer);
    void Fail(DrawingFault fault);

    const Terms m_terms;
    std::unique_ptr<QProcess> m_process;
    QByteArray m_bytes;
    std::optional<ReaderQuestion> m_asked;
    bool m_isOpen = false;
    QTimer m_patience;
};

} // namespace host
