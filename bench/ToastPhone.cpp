#include "bench/ToastPhone.h"

#include "site/DataError.h"
#include "site/ICatalogue.h"
#include "site/IIntake.h"
#include "site/OpenSite.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QImage>
#include <QTextStream>

#include <chrono>

namespace bench {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPatienceMs = 30'000;

QByteArray Jpeg(int number) {
    QImage picture(1600, 1200, QImage::Format_RGB32);
    picture.fill(QColor::fromHsv(number % 360, 120, 200));
    picture.setPixel(number % 1600, number / 1600 % 1200, 0);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "JPEG", 85);
    return bytes;
}

class Phone {
public:
    explicit Phone(site::ISite& into)
        : m_site(into), m_intake(into.NewIntake()), m_floor(into.Catalogue().Floors(1).front()),
          m_key(m_intake->AddPosition({1, m_floor, u"7"_s, u"C"_s, {}, true})) {}

    void Begin() { m_intake->BeginBatch(); }
    void Commit() { m_intake->CommitBatch(); }
    void FilePhoto() {
        site::NewBimPhoto photo;
        photo.ppid = 1;
        photo.fileName = u"现场_%1.jpg"_s.arg(++m_number);
        photo.positionKey = m_key;
        photo.markId = 1;
        photo.uploader = u"李娜"_s;
        photo.uploadTime = m_site.Now();
        static_cast<void>(m_intake->FilePhoto(photo, {{}, Jpeg(m_number)}));
    }
    void FileIssue() {
        site::NewIssue issue;
        issue.ppid = 1;
        issue.theme = u"问题 %1"_s.arg(++m_number);
        issue.floor = m_floor;
        issue.posInfo = u"7-C"_s;
        issue.markId = 1;
        issue.creator = u"李娜"_s;
        issue.createTime = m_site.Now();
        static_cast<void>(m_intake->FileIssue(issue));
    }

private:
    site::ISite& m_site;
    std::unique_ptr<site::IIntake> m_intake;
    QString m_floor;
    QString m_key;
    int m_number = 0;
};

void Obey(Phone& phone, const QString& line) {
    const QString kind = line.section(u' ', 0, 0);
    const int count = line.section(u' ', 1, 1).toInt();
    phone.Begin();
    for (int at = 0; at < count; ++at) {
        if (kind == u"issues"_s) {
            phone.FileIssue();
        } else {
            phone.FilePhoto();
        }
    }
    phone.Commit();
}

} // namespace

qint64 SteadyNanoseconds() {
    return std::chrono::steady_clock::now().time_since_epoch().count();
}

ToastPhone::ToastPhone(const QString& folder) {
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(QCoreApplication::applicationFilePath(), {u"--phone"_s, folder});
    m_process.waitForStarted();
}

qint64 ToastPhone::FileOne() {
    m_process.write("photos 1\n");
    while (!m_process.canReadLine()) {
        if (!m_process.waitForReadyRead(kPatienceMs)) {
            return 0;
        }
    }
    return m_process.readLine().trimmed().toLongLong();
}

bool ToastPhone::FileMany(int count, const QString& kind) {
    m_process.write(u"%1 %2\n"_s.arg(kind).arg(count).toUtf8());
    return m_process.waitForBytesWritten();
}

void ToastPhone::End() {
    m_process.closeWriteChannel();
    m_process.waitForFinished(kPatienceMs);
}

int RunToastPhone(const QString& folder) {
    const site::OpenedSite opened = site::OpenSite(folder, {5000, false});
    if (!opened.site) {
        return 1;
    }
    try {
        Phone phone(*opened.site);
        QTextStream in(stdin);
        QTextStream out(stdout);
        for (QString line; in.readLineInto(&line);) {
            Obey(phone, line);
            out << SteadyNanoseconds() << Qt::endl;
        }
    } catch (const site::DataError& fault) {
        QTextStream(stderr) << fault.Text() << Qt::endl;
        return 1;
    }
    return 0;
}

} // namespace bench
