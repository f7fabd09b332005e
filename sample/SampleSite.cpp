#include "sample/SampleSite.h"

#include "sample/site/PictureStudio.h"
#include "sample/site/PlanFiling.h"
#include "sample/site/SitePlan.h"
#include "site/DataError.h"
#include "site/blobs/FolderLook.h"
#include "site/blobs/SetAside.h"
#include "site/sqlite/DataFolder.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QLockFile>

namespace sample {

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::milliseconds kProgressPause{50};

/// Thrown out of the filing when the person has had enough.
struct Cancelled {};

/// The pictures on their way into the store. What a crash leaves is removed by whoever comes next;
/// a lock tells the two apart. What no studio draws is set aside.
class Workshop final {
public:
    explicit Workshop(site::DataFolder& dataFolder)
        : folder(dataFolder), part(dataFolder.Path() + u'/' + site::place::kSamplePart),
          lock(dataFolder.Path() + u'/' + site::place::kSampleLock) {
        lock.setStaleLockTime(0);
    }
    ~Workshop() {
        if (lock.isLocked()) {
            Clear();
        }
    }
    Workshop(const Workshop&) = delete;
    Workshop& operator=(const Workshop&) = delete;

    /// False while another process has it.
    [[nodiscard]] bool Enter() {
        if (!lock.tryLock()) {
            return false;
        }
        Clear();
        return QDir().mkdir(part);
    }
    [[nodiscard]] QString Place() const { return part; }

private:
    void Clear() {
        for (const QString& name : site::EntriesOf(part)) {
            const QString path = part + u'/' + name;
            if (PictureStudio::IsDrawnName(name) && site::IsRealFile(path)) {
                QFile::remove(path);
            }
        }
        if (site::IsThere(part) && !QDir().rmdir(part)) {
            site::SetAside aside(folder.Path(), QDate::currentDate().toString(Qt::ISODate));
            aside.Take(site::place::kSamplePart);
            folder.Tell(aside.Story());
        }
    }

    site::DataFolder& folder;
    QString part;
    QLockFile lock;
};

void DrawPictures(PictureStudio& studio, int count, int total, const SampleProgress& progress) {
    while (true) {
        const int drawn = studio.WaitForNews(kProgressPause);
        if (studio.HasFailed()) {
            throw site::DataError(site::Fault::kDiskFull,
                                  site::FaultText(site::Fault::kDiskFull, u"生成示例工程"_s));
        }
        if (progress && !progress(drawn, total, u"正在绘制示例照片"_s)) {
            throw Cancelled();
        }
        if (drawn == count) {
            return;
        }
    }
}

void Build(site::DataFolder& folder, const QString& place, const SitePlan& plan,
           const SampleProgress& progress) {
    const std::vector<PictureOrder> orders = OrdersOf(plan);
    const auto pictures = static_cast<int>(orders.size());
    const int total = pictures + PlanFiling::Steps(plan);
    PictureStudio studio(orders, place);
    DrawPictures(studio, pictures, total, progress);
    int done = pictures;
    PlanFiling filing(
        folder, plan, [&](size_t order) { return studio.FilePath(order); },
        [&] {
            if (progress && !progress(++done, total, u"正在保存示例工程"_s)) {
                throw Cancelled();
            }
        });
    filing.Run();
}

} // namespace

bool CreateSampleSite(site::DataFolder& folder, SampleSize size, const SampleProgress& progress,
                      QString& error) {
    error.clear();
    if (size == SampleSize::kNone) {
        return true;
    }
    try {
        Workshop workshop(folder);
        if (!site::SiteWriter(folder).IsEmpty()) {
            return true;
        }
        if (!workshop.Enter()) {
            error = u"另一个客户端正在这个数据文件夹中生成示例工程，请稍后再打开。"_s;
            return false;
        }
        if (!site::SiteWriter(folder).IsEmpty()) {
            return true; // made by another process between the two questions
        }
        Build(folder, workshop.Place(), MakeSitePlan(size, QDateTime::currentSecsSinceEpoch()),
              progress);
        return true;
    } catch (const Cancelled&) {
        return false;
    } catch (const site::DataError& fault) {
        error = fault.Text();
        return false;
    }
}

} // namespace sample
