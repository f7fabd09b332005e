#include "host/drawings/DrawingReader.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>

#include <utility>

namespace host {

using namespace Qt::StringLiterals;

namespace {

QString ReaderBesideThisProgram() {
    return QDir(QCoreApplication::applicationDirPath()).filePath(u"vesk-drawing-reader"_s);
}

} // namespace

DrawingReader::DrawingReader(Terms terms, QObject* parent)
    : QObject(parent), m_terms(std::move(terms)) {
    m_patience.setSingleShot(true);
    m_patience.setInterval(m_terms.patienceMs);
    connect(&m_patience, &QTimer::timeout, this, [this] { Fail(DrawingFault::Stalled); });
}

DrawingReader::~DrawingReader() {
    Close();
}

void DrawingReader::Close() {
    m_patience.stop();
    m_asked.reset();
    m_isOpen = false;
    m_bytes.clear();
    if (!m_process) {
        return;
    }
    m_process->disconnect(this);
    m_process->kill();
    m_process->waitForFinished();
    // Maybe it is what tells of something at this moment.
    m_process.release()->deleteLater();
}

void DrawingReader::Open(const QString& path) {
    if (IsBusy()) {
        Close();
    }
    m_isOpen = false;
    if (!m_process) {
        StartProcess();
    }
    Ask({path, {}});
}

void DrawingReader::Render(const RenderRequest& request) {
    Q_ASSERT(m_isOpen && !IsBusy());
    Ask({{}, request});
}

void DrawingReader::StartProcess() {
    m_process = std::make_unique<QProcess>();
    m_process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    connect(m_process.get(), &QProcess::readyReadStandardOutput, this, &DrawingReader::OnBytes);
    // Later, and not from a process that is given up: starting fails in the middle of start().
    const auto fail = [this, of = m_process.get()](DrawingFault fault) {
        if (of == m_process.get()) {
            Fail(fault);
        }
    };
    connect(
        m_process.get(), &QProcess::errorOccurred, this,
        [fail](QProcess::ProcessError error) {
            fail(error == QProcess::FailedToStart ? DrawingFault::NoReader : DrawingFault::Crashed);
        },
        Qt::QueuedConnection);
    connect(
        m_process.get(), &QProcess::finished, this, [fail] { fail(DrawingFault::Crashed); },
        Qt::QueuedConnection);
    m_process->start(m_terms.program.isEmpty() ? ReaderBesideThisProgram() : m_terms.program,
                     QStringList());
}

void DrawingReader::Ask(const ReaderQuestion& question) {
    m_asked = question;
    m_patience.start();
    m_process->write(FrameOf(question));
}

void DrawingReader::OnBytes() {
    m_bytes += m_process->readAllStandardOutput();
    const auto size = FrameSize(m_bytes);
    if (!size || m_bytes.size() < *size) {
        if (size > kLongestFrame) {
            Fail(DrawingFault::Crashed);
        } else if (size) {
            m_bytes.reserve(*size); // growing by itself it would take up to twice as much
        }
        return;
    }
    const QByteArray frame = std::exchange(m_bytes, QByteArray());
    const auto answer = frame.size() == *size ? ReadAnswer(frame) : std::nullopt;
    if (!answer || !IsBusy()) {
        Fail(DrawingFault::Crashed);
        return;
    }
    OnAnswer(*answer);
}

void DrawingReader::OnAnswer(const ReaderAnswer& answer) {
    const ReaderQuestion asked = *std::exchange(m_asked, std::nullopt);
    m_patience.stop();
    const bool wasOpening = !asked.path.isEmpty();
    if (answer.fault != DrawingFault::None) {
        emit Failed(answer.fault);
    } else if (wasOpening) {
        m_isOpen = true;
        emit Opened(answer.pages);
    } else {
        emit Rendered(asked.render, answer.image);
    }
}

void DrawingReader::Fail(DrawingFault fault) {
    // The next document gets a process that knows nothing of this one.
    const bool wasAsked = IsBusy();
    Close();
    if (wasAsked) {
        emit Failed(fault);
    }
}

} // namespace host
