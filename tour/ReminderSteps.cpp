// Another client files while this one runs: toasts, the way to the item, the list to catch up with.
#include "hands/Hands.h"
#include "tour/TourEyes.h"
#include "tour/TourNames.h"
#include "tour/TourScript.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QListView>
#include <QProcess>
#include <QScreen>
#include <QStatusBar>

#include <algorithm>

namespace tour {

using namespace Qt::StringLiterals;

namespace {

constexpr int kFullCorner = 60;
constexpr int kManyToasts = 8;
/// Items a minute.
constexpr int kSlowly = 60;
constexpr int kAtOnce = 60'000;

QList<QWidget*> Toasts() {
    QList<QWidget*> toasts;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->objectName() == u"popupWindow"_s && window->isVisible()) {
            toasts << window;
        }
    }
    return toasts;
}

/// Shown by the caption; of the other kind too.
bool HasToast(const QString& caption) {
    const QList<QWidget*> toasts = Toasts();
    return std::any_of(toasts.begin(), toasts.end(),
                       [&](const QWidget* toast) { return toast->windowTitle() == caption; });
}

QListView* CatchUpList() {
    return Find<QListView>(kMain, u"catchUpList"_s);
}

/// Phones in a process of their own file into the open project; goes on while the walk does.
bool StartPhones(const TourPlaces& places, int count, int perMinute) {
    const auto* projects = Find<QComboBox>(kMain, u"projectChoice"_s);
    if (projects == nullptr) {
        return false;
    }
    auto* phones = new QProcess(FindWindow(kMain));
    phones->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    phones->start(QDir(QCoreApplication::applicationDirPath()).filePath(u"vesk-client"_s),
                  {u"simulate"_s, u"--data"_s, places.dataFolder, u"--project"_s,
                   projects->currentText(), u"--rate"_s, QString::number(perMinute), u"--count"_s,
                   QString::number(count), u"--photos"_s, places.photoFolder});
    return phones->waitForStarted();
}

void WriteToasts(TourScript& script, const TourPlaces& places) {
    script.Do(
        u"主窗口占满屏幕"_s,
        [] {
            FindWindow(kMain)->setGeometry(QGuiApplication::primaryScreen()->availableGeometry());
            return true;
        },
        nullptr);
    script.Do(
        u"另一个客户端提交两张照片：右下角弹出两个提醒"_s,
        [places] { return StartPhones(places, 2, kSlowly); }, [] { return Toasts().size() == 2; });
    script.Picture(kMain, u"toasts"_s);
    script.Do(
        u"单击“立即查看”：定位到照片，提醒关闭"_s,
        [] { return hands::Click(FindIn(Toasts().front(), u"look"_s)); },
        [] {
            return Toasts().size() == 1 &&
                   ReadText(Find<QStatusBar>(kMain, u"mainStatus"_s)).contains(u"定位照片"_s);
        });
    script.Do(
        u"另一个客户端又提交照片和问题：问题的提醒也弹出来"_s,
        [places] { return StartPhones(places, 3, kSlowly); },
        [] { return HasToast(u"TN问题提醒"_s); });
    script.Picture(kMain, u"issue-toast"_s);
    script.Do(u"等提醒自己消失"_s, nullptr, [] { return Toasts().isEmpty(); });
}

void WriteCatchUp(TourScript& script, const TourPlaces& places) {
    script.Do(
        u"很多人同时提交：屏幕角落排满提醒"_s,
        [places] { return StartPhones(places, kFullCorner, kAtOnce); },
        [] {
            return Toasts().size() >= kManyToasts && CatchUpList() != nullptr
                       ? CatchUpList()->model()->rowCount() >= kFullCorner
                       : Toasts().size() >= kManyToasts;
        });
    script.Picture(kMain, u"full-corner"_s);
    script.Do(
        u"打开新到提醒的列表（Ctrl+R）"_s,
        [] { return hands::PressKey(FindWindow(kMain), Qt::Key_R, Qt::ControlModifier); },
        [] {
            return CatchUpList() != nullptr && CatchUpList()->model()->rowCount() >= kFullCorner &&
                   Toasts().isEmpty();
        });
    script.Picture(kMain, u"catch-up"_s);
    script.Do(
        u"单击第一条：打开它，并成为已读"_s,
        [] {
            QListView* list = CatchUpList();
            const QModelIndex first = list->model()->index(0, 0);
            return hands::ClickAt(list->viewport(), list->visualRect(first).center());
        },
        [] { return FindWindow(kPhotoViewer) != nullptr || FindWindow(kConsole) != nullptr; });
    script.Picture(kMain, u"catch-up-read"_s);
    script.Do(
        u"全部标为已读（Ctrl+Shift+R）"_s,
        [] {
            return hands::PressKey(FindWindow(kMain), Qt::Key_R,
                                   Qt::ControlModifier | Qt::ShiftModifier);
        },
        [] { return ReadText(FindIn(FindWindow(kMain), u"catchUpCount"_s)) == u"没有未读"_s; });
}

} // namespace

void WriteReminders(TourScript& script, const TourPlaces& places) {
    WriteToasts(script, places);
    WriteCatchUp(script, places);
}

} // namespace tour
