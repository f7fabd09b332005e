#include "hands/Choices.h"
#include "hands/Hands.h"
#include "host/ui/report/ReportPreview.h"
#include "tour/TourEyes.h"
#include "tour/TourNames.h"
#include "tour/TourScript.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPushButton>

#include <algorithm>

namespace tour {

using namespace Qt::StringLiterals;

namespace {

const QString kReport = u"reportWindow"_s;
const QString kSaveQuestion = u"另存为"_s;

host::ReportPreview* Preview() {
    return Find<host::ReportPreview>(kReport, u"reportPreview"_s);
}

/// Everything has come, and no photograph in sight is still to be drawn.
bool ShowsPages() {
    const QWidget* save = FindIn(FindWindow(kReport), u"reportSave"_s);
    return save != nullptr && save->isEnabled() && Preview()->IsWhole() && Preview()->IsPainted();
}

bool HasPlan() {
    return std::ranges::any_of(Preview()->Pages().pages, [](const host::ReportPage& page) {
        return std::ranges::any_of(page.items, [](const host::PageItem& item) {
            return std::holds_alternative<host::ImageItem>(item);
        });
    });
}

bool Choose(const QString& box, const QString& entry) {
    return hands::ChooseInCombo(Find<QComboBox>(kReport, box), entry);
}

} // namespace

void WriteReport(TourScript& script, const QString& viewer, const QString& what) {
    script.Do(
        u"单击“输出报告”：预览各页"_s,
        [viewer] { return hands::Click(FindIn(FindWindow(viewer), u"reportButton"_s)); },
        ShowsPages);
    if (what == u"report-drawing"_s) {
        // Another process draws the sheet.
        script.Do(u"图纸中的位置画好"_s, nullptr, [] { return HasPlan() && ShowsPages(); });
    }
    script.Picture(kReport, what);
}

void WriteReportPages(TourScript& script, const QString& file) {
    script.Do(
        u"按 End：报告的最后一页"_s,
        [] {
            Preview()->setFocus();
            return hands::PressKey(Preview(), Qt::Key_End);
        },
        [] { return ShowsPages() && Preview()->CurrentPage() == Preview()->PageCount() - 1; });
    script.Picture(kReport, u"report-record"_s);
    script.Do(
        u"图片大小选择“每页一张”，方向“横向”"_s,
        [] {
            return Choose(u"reportPictures"_s, u"每页一张"_s) &&
                   Choose(u"reportDirection"_s, u"横向"_s);
        },
        nullptr);
    script.Do(
        u"翻到第二页"_s,
        [] {
            Preview()->GoTo(1);
            return true;
        },
        ShowsPages);
    script.Picture(kReport, u"report-landscape"_s);
    script.Do(
        u"改回“中”和“纵向”"_s,
        [] {
            return Choose(u"reportPictures"_s, u"中"_s) && Choose(u"reportDirection"_s, u"纵向"_s);
        },
        ShowsPages);
    script.Do(
        u"单击“保存...”"_s,
        [] { return hands::Click(FindIn(FindWindow(kReport), u"reportSave"_s)); },
        [] { return FindIn(FindWindow(kSaveQuestion), u"fileNameEdit"_s) != nullptr; });
    script.Do(
        u"输入文件名"_s,
        [file] {
            // That of an earlier walk: nobody is there to say that it may be replaced.
            QFile::remove(file);
            return hands::TypeOver(FindIn(FindWindow(kSaveQuestion), u"fileNameEdit"_s), file);
        },
        nullptr);
    script.Do(
        u"确定：报告保存为 PDF"_s,
        [] {
            const auto* buttons = Find<QDialogButtonBox>(kSaveQuestion, u"buttonBox"_s);
            if (buttons == nullptr) {
                return FindWindow(kSaveQuestion) == nullptr;
            }
            // The first click may only shut the list of proposals.
            hands::Click(buttons->button(QDialogButtonBox::Save));
            return false;
        },
        [file] {
            return QFileInfo(file).size() > 0 &&
                   ReadText(FindIn(FindWindow(kReport), u"reportNotice"_s))
                       .startsWith(u"报告已保存"_s);
        });
    script.Picture(kReport, u"report-saved"_s);
}

void WriteReportEnd(TourScript& script) {
    script.Do(
        u"关闭报告：客户端恢复可用"_s, [] { return hands::CloseWindow(FindWindow(kReport)); },
        [] { return FindWindow(kReport) == nullptr && FindWindow(kMain)->isEnabled(); });
}

} // namespace tour
