#include "host/app/SimulateCommand.h"

#include "host/app/PhotoFolder.h"
#include "sample/SiteSimulator.h"
#include "site/DataError.h"
#include "site/ICatalogue.h"
#include "site/ISite.h"

#include <QDateTime>
#include <QFileInfo>
#include <QTextStream>

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;

namespace {

using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;

constexpr int kDone = 0;
constexpr int kStopped = 1;
constexpr int kWrongWords = 2;
constexpr milliseconds kBusyPause{200};
constexpr double kMillisecondsOfAMinute = 60'000;
/// Longer than anybody lets it run.
constexpr double kLongestPause = 1e12;

struct Counts {
    int photos = 0;
    int notes = 0;
    int issues = 0;
    int issuePictures = 0;

    [[nodiscard]] int All() const { return photos + issues; }
    void Add(const sample::SimulatedItem& item) {
        if (item.kind == sample::SimulatedKind::Issue) {
            ++issues;
            issuePictures += item.pictures;
        } else {
            ++photos;
            notes += item.kind == sample::SimulatedKind::VoiceNote ? 1 : 0;
        }
    }
    [[nodiscard]] QString Text() const {
        return u"共提交 %1 条：照片 %2 张（其中 %3 张带语音），问题 %4 个（图片 %5 张）。"_s
            .arg(All())
            .arg(photos)
            .arg(notes)
            .arg(issues)
            .arg(issuePictures);
    }
};

QString KindText(sample::SimulatedKind kind) {
    switch (kind) {
    case sample::SimulatedKind::Photo:
        return u"照片"_s;
    case sample::SimulatedKind::VoiceNote:
        return u"语音照片"_s;
    case sample::SimulatedKind::Issue:
        return u"问题"_s;
    }
    return {};
}

/// Ends each line at once: somebody watches.
void PrintLine(QTextStream& stream, const QString& text) {
    stream << text << u'\n';
    stream.flush();
}

class Simulation final {
public:
    Simulation(site::ISite& target, const SimulateRequest& what, const SimulateStop& end,
               QTextStream& lines, QTextStream& faults)
        : m_site(target), m_request(what), m_stop(end), m_out(lines), m_err(faults) {}

    int Run() {
        try {
            const site::ProjectEntry project = FindProject();
            if (!m_wrong.isEmpty() || !FindPeople() || !FindPhotos()) {
                PrintLine(m_err, m_wrong);
                return kWrongWords;
            }
            return FileAll(project);
        } catch (const site::DataError& error) {
            PrintLine(m_err, error.Text());
            return kStopped;
        }
    }

private:
    site::ProjectEntry FindProject() {
        QStringList known;
        for (const site::ProjectEntry& project : m_site.Catalogue().Projects()) {
            if (project.name == m_request.project) {
                return project;
            }
            known << project.name;
        }
        m_wrong = u"没有名为“%1”的工程。现有工程：%2。"_s.arg(
            m_request.project, known.isEmpty() ? u"（无）"_s : known.join(u"、"_s));
        return {};
    }

    bool FindPeople() {
        if (m_site.Catalogue().People().empty()) {
            m_wrong = u"这个数据文件夹里还没有用户，请先打开一次客户端。"_s;
        }
        return m_wrong.isEmpty();
    }

    bool FindPhotos() {
        if (m_request.photos.isEmpty()) {
            return true;
        }
        if (!QFileInfo(m_request.photos).isDir()) {
            m_wrong = u"没有这个文件夹：%1"_s.arg(m_request.photos);
            return false;
        }
        m_photos.emplace(m_request.photos, [this](const QString& path, const QString& reason) {
            PrintLine(m_out, path + u'：' + reason);
        });
        if (m_photos->IsEmpty()) {
            m_wrong = u"文件夹里没有 JPEG 照片：%1"_s.arg(m_request.photos);
        }
        return m_wrong.isEmpty();
    }

    /// Throws when no photo of the folder is left.
    QByteArray NextPhoto() {
        const auto bytes = m_photos->Next();
        if (!bytes) {
            throw site::DataError(site::Fault::Missing,
                                  u"文件夹里没有可以读取的 JPEG 照片：%1"_s.arg(m_request.photos));
        }
        return *bytes;
    }

    int FileAll(const site::ProjectEntry& project) {
        const site::Within limits(m_site, {milliseconds(0), m_stop.token});
        sample::SiteSimulator simulator(m_site, project, static_cast<quint64>(m_site.Now()),
                                        m_photos
                                            ? sample::PictureSource([this] { return NextPhoto(); })
                                            : sample::PictureSource());
        m_due = Clock::now();
        int code = kDone;
        try {
            while (!m_stop.token.stop_requested() && FileOne(simulator)) {
            }
        } catch (const site::DataError& error) {
            // What is stopped is no fault.
            if (error.GetFault() != site::Fault::Cancelled) {
                PrintLine(m_err, error.Text());
                code = kStopped;
            }
        }
        PrintLine(m_out, m_counts.Text());
        return code;
    }

    /// False: that was the last.
    bool FileOne(sample::SiteSimulator& simulator) {
        try {
            const sample::SimulatedItem item = simulator.Step();
            m_counts.Add(item);
            m_isBusyTold = false;
            PrintLine(
                m_out,
                QStringList{QDateTime::fromSecsSinceEpoch(m_site.Now()).toString(u"HH:mm:ss"_s),
                            item.person, KindText(item.kind), item.title, item.place}
                    .join(u"  "_s)
                    .trimmed());
        } catch (const site::DataError& error) {
            if (error.GetFault() != site::Fault::Locked) {
                throw;
            }
            return WaitForOthers();
        }
        return m_counts.All() != m_request.count && !m_stop.waitFor(UntilNext());
    }

    bool WaitForOthers() {
        if (!m_isBusyTold) {
            PrintLine(m_out, u"另一个客户端正在写入，等它写完再提交。"_s);
        }
        m_isBusyTold = true;
        return !m_stop.waitFor(kBusyPause);
    }

    /// Time that was lost is not made up for: phones don't hurry either.
    milliseconds UntilNext() {
        const double pause = std::min(kMillisecondsOfAMinute / m_request.perMinute, kLongestPause);
        const Clock::time_point now = Clock::now();
        m_due += std::chrono::duration_cast<Clock::duration>(
            std::chrono::duration<double, std::milli>(pause));
        m_due = std::max(m_due, now);
        return std::chrono::ceil<milliseconds>(m_due - now);
    }

    site::ISite& m_site;
    const SimulateRequest& m_request;
    const SimulateStop& m_stop;
    QTextStream& m_out;
    QTextStream& m_err;
    QString m_wrong; ///< Chinese, why nothing can be filed
    std::optional<PhotoFolder> m_photos;
    Counts m_counts;
    Clock::time_point m_due; ///< of the last item
    bool m_isBusyTold = false;
};

} // namespace

int RunSimulateCommand(site::ISite& site, const SimulateRequest& request, const SimulateStop& stop,
                       QTextStream& out, QTextStream& err) {
    return Simulation(site, request, stop, out, err).Run();
}

} // namespace host
