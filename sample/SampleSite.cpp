#include "sample/SampleSite.h"

#include "sample/site/PictureStudio.h"
#include "sample/site/PlanFiling.h"
#include "sample/site/SitePlan.h"
#include "site/DataError.h"
#include "site/IClientFolders.h"
#include "site/IIntake.h"
#include "site/ISite.h"

namespace sample {

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::milliseconds kProgressPause{50};

/// Thrown out of the filing when the person has had enough.
struct Cancelled {};

void DrawPictures(PictureStudio& studio, int count, int total, const SampleProgress& progress) {
    while (true) {
        const int drawn = studio.WaitForNews(kProgressPause);
        if (studio.HasFailed()) {
            throw site::DataError(site::Fault::DiskFull,
                                  site::FaultText(site::Fault::DiskFull, u"生成示例工程"_s));
        }
        if (progress && !progress(drawn, total, u"正在绘制示例照片"_s)) {
            throw Cancelled();
        }
        if (drawn == count) {
            return;
        }
    }
}

void Build(site::ISite& target, const QString& place, const SitePlan& plan,
           const SampleProgress& progress) {
    const std::vector<PictureOrder> orders = OrdersOf(plan);
    const auto pictures = static_cast<int>(orders.size());
    const int total = pictures + PlanFiling::Steps(plan);
    PictureStudio studio(orders, place);
    DrawPictures(studio, pictures, total, progress);
    int done = pictures;
    PlanFiling filing(
        target, plan, [&](size_t order) { return studio.FilePath(order); },
        [&] {
            if (progress && !progress(++done, total, u"正在保存示例工程"_s)) {
                throw Cancelled();
            }
        });
    filing.Run();
}

} // namespace

bool CreateSampleSite(site::ISite& target, SampleSize size, const SampleProgress& progress,
                      QString& error) {
    error.clear();
    if (size == SampleSize::None) {
        return true;
    }
    try {
        const auto workshop = target.Folders().Workshop(PictureStudio::IsDrawnName);
        if (!target.NewIntake()->IsEmpty()) {
            return true;
        }
        if (!workshop->Enter()) {
            error = u"另一个客户端正在这个数据文件夹中生成示例工程，请稍后再打开。"_s;
            return false;
        }
        if (!target.NewIntake()->IsEmpty()) {
            return true; // made by another process between the two questions
        }
        Build(target, workshop->Place(), MakeSitePlan(size, target.Now()), progress);
        return true;
    } catch (const Cancelled&) {
        return false;
    } catch (const site::DataError& fault) {
        error = fault.Text();
        return false;
    }
}

} // namespace sample
