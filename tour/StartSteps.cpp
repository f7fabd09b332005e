#include "hands/Choices.h"
#include "hands/Hands.h"
#include "host/ui/plan/FloorPlanCanvas.h"
#include "tour/ConsoleEyes.h"
#include "tour/TourEyes.h"
#include "tour/TourNames.h"
#include "tour/TourScript.h"

#include <QAbstractItemModel>
#include <QAbstractItemView>

#include <algorithm>

namespace tour {

using namespace Qt::StringLiterals;

namespace {

QWidget* FirstWindow() {
    QWidget* progress = FindWindow(u"progressWindow"_s);
    return progress != nullptr ? progress : FindWindow(kSignIn);
}

host::FloorPlanCanvas* Plan() {
    return Find<host::FloorPlanCanvas>(kMain, u"floorPlanCanvas"_s);
}

/// The intersection of the shown floor with most photos; -1 if none has any.
int FullestPlace() {
    const host::FloorPlanCanvas* plan = Plan();
    if (plan == nullptr || plan->Model().floors.empty()) {
        return -1;
    }
    const auto& places = plan->Model().floors[std::size_t(plan->State().floor)].intersections;
    const auto fullest =
        std::max_element(places.begin(), places.end(), [](const auto& left, const auto& right) {
            return left.photos.Total() < right.photos.Total();
        });
    return fullest == places.end() || fullest->photos.Total() == 0 ? -1
                                                                   : int(fullest - places.begin());
}

/// The floor with most photos; -1 if none has any.
int FullestFloor() {
    const host::FloorPlanCanvas* plan = Plan();
    int best = -1;
    int most = 0;
    for (int at = 0; plan != nullptr && at < int(plan->Model().floors.size()); ++at) {
        const int count = host::CountPhotos(plan->Model().floors[std::size_t(at)]).Total();
        if (count > most) {
            most = count;
            best = at;
        }
    }
    return best;
}

void WriteFloorPlan(TourScript& script) {
    script.Do(
        u"在楼层列表中选择照片最多的楼层"_s,
        [] {
            return hands::ClickCell(Find<QAbstractItemView>(kMain, u"floorList"_s), FullestFloor(),
                                    0);
        },
        [] { return Plan()->State().floor == FullestFloor() && FullestPlace() >= 0; });
    script.Do(
        u"单击一个有照片的轴线交点，出现卡片"_s,
        [] {
            return FullestPlace() >= 0 && hands::ClickAt(Plan(), Plan()->CentreOf(FullestPlace()));
        },
        [] { return FindIn(FindWindow(kMain), u"planCardPhotos"_s) != nullptr; });
    script.Picture(kMain, u"floor-plan"_s);
    script.Do(
        u"单击“查看此处照片”，控制台只列出此处的照片"_s,
        [] { return hands::Click(FindIn(FindWindow(kMain), u"planCardPhotos"_s)); },
        [] { return ConsoleTotal() > 0 && ConsoleTotal() == Plan()->Chosen()->photos.Total(); });
    script.Picture(u"VeskPicMngDlg"_s, u"console-preset"_s);
}

} // namespace

void WriteFirstStart(TourScript& script) {
    script.Do(u"首次启动：选择怎样开始"_s, nullptr,
              [] { return FindWindow(kFirstStart) != nullptr; });
    script.Picture(kFirstStart, u"first-start"_s);
    script.Do(
        u"“新建站点”：写工程和姓名"_s,
        [] { return hands::Click(FindIn(FindWindow(kFirstStart), u"chooseNewSite"_s)); },
        [] { return FindIn(FindWindow(kFirstStart), u"firstProject"_s) != nullptr; });
    script.Do(
        u"填写工程名称和自己的姓名"_s,
        [] {
            QWidget* page = FindWindow(kFirstStart);
            return hands::TypeOver(FindIn(page, u"firstProject"_s), u"一号楼"_s) &&
                   hands::TypeOver(FindIn(page, u"firstPerson"_s), u"王强"_s);
        },
        [] { return hands::CanReach(FindIn(FindWindow(kFirstStart), u"firstMake"_s)); });
    script.Picture(kFirstStart, u"new-site"_s);
    script.Do(
        u"“新建”：空的工程打开了"_s,
        [] { return hands::Click(FindIn(FindWindow(kFirstStart), u"firstMake"_s)); },
        [] {
            return FindWindow(kMain) != nullptr &&
                   FindWindow(kMain)->windowTitle().startsWith(u"一号楼"_s);
        });
    script.Picture(kMain, u"empty-project"_s);
}

void WriteStart(TourScript& script) {
    // Fast machines may be done before the progress comes up.
    script.Do(u"首次启动：显示生成示例工程的进度"_s, nullptr,
              [] { return FirstWindow() != nullptr; });
    script.Picture(FirstWindow, u"first-start"_s);
    script.Do(u"示例工程生成完毕，出现登录窗口"_s, nullptr,
              [] { return FindWindow(kSignIn) != nullptr; });
    script.Picture(kSignIn, u"sign-in"_s);
    script.Do(
        u"选择第一个用户并登录"_s,
        [] {
            return hands::ClickCell(Find<QAbstractItemView>(kSignIn, u"userList"_s), 0, 0) &&
                   hands::Click(FindIn(FindWindow(kSignIn), u"signInButton"_s));
        },
        [] {
            const QWidget* window = FindWindow(kMain);
            return window != nullptr && !ReadText(FindIn(window, u"userName"_s)).isEmpty() &&
                   !ReadText(FindIn(window, u"projectChoice"_s)).isEmpty();
        });
    script.Picture(kMain, u"main-window"_s);
    WriteFloorPlan(script);
}

} // namespace tour
