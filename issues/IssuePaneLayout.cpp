#include "issues/IssuePaneLayout.h"

namespace issues {

namespace {

constexpr int kColumn = 245;
constexpr int kRowWidth = 230;
constexpr int kRowHeight = 20;
constexpr int kPhotoTop = 10;
constexpr int kPhotoHeight = 125;
constexpr int kNoteHeight = 70;
constexpr int kUnderPhoto = 140;
constexpr int kUploadTop = 145;
constexpr int kUploadHeight = 40;
constexpr int kGap = 5;
constexpr int kMargin = 5;
/// From the right edge to the left one of what stands in the last group.
constexpr int kInner = 240;
constexpr int kTextLess = 185; ///< that a box is lower than its group

/// @param noteTop  of the group of the voice note.
void PlaceCommon(IssuePaneLayout& at, const QSize& page, int noteTop) {
    const int w = page.width();
    const int h = page.height();
    at.bigArea = QRect(0, 0, w - 250, h - 100);
    at.stripArea = QRect(QPoint(5, h - 100), QPoint(w - 250 - 1, h - 5 - 1));
    at.photoGroup = QRect(w - kColumn, kPhotoTop, kColumn, kPhotoHeight);
    at.noteGroup = QRect(w - kColumn, noteTop, kColumn, kNoteHeight);
    const int infoTop = noteTop + kNoteHeight + kGap;
    at.infoGroup = QRect(w - kColumn, infoTop, kColumn, h - kMargin - infoTop);
    at.uploader = QRect(w - 235, 35, kRowWidth, kRowHeight);
    at.uploadTime = QRect(w - 235, 55, kRowWidth, kRowHeight);
    at.deleteButton = QRect(w - 80, 20, 70, kRowHeight);
    const QPoint corner = at.noteGroup.topLeft();
    const int noteEnd = noteTop + kNoteHeight;
    at.noteButton = corner + QPoint(5, 20);
    at.noteStatus = QRect(corner.x() + 52, noteEnd - 50, 170, kRowHeight);
    at.noteProgress = QRect(corner.x() + 57, noteEnd - 30, 170, 5);
}

} // namespace

QuestionPageLayout LayoutQuestionPage(const QSize& page) {
    QuestionPageLayout at;
    PlaceCommon(at, page, kUnderPhoto);
    const int w = page.width();
    const int top = at.infoGroup.top();
    at.mark = QRect(w - kInner, top + 20, 80, kRowHeight);
    at.editButton = QRect(w - 60, top + 20, 50, kRowHeight);
    int y = top + 50;
    for (QRect* row : {&at.name, &at.component, &at.creator, &at.updater, &at.updateTime,
                       &at.descriptionCaption}) {
        *row = QRect(w - kInner, y, kRowWidth, kRowHeight);
        y += kRowHeight;
    }
    at.description = QRect(w - kInner, y, kRowWidth, at.infoGroup.height() - kTextLess);
    return at;
}

RectifyPageLayout LayoutRectifyPage(const QSize& page) {
    constexpr int kRowGap = 3;
    RectifyPageLayout at;
    PlaceCommon(at, page, kUploadTop + kUploadHeight + kGap);
    const int w = page.width();
    const int top = at.infoGroup.top();
    at.uploadButton = QRect(w - kColumn, kUploadTop, kColumn, kUploadHeight);
    at.state = QRect(w - kInner, top + 25, 160, kRowHeight);
    at.editButton = QRect(w - 55, top + 28, 40, 15);
    int y = at.state.bottom() + 1 + kRowGap;
    for (QRect* row : {&at.rectifier, &at.textCaption}) {
        *row = QRect(w - kInner, y, kRowWidth, kRowHeight);
        y += kRowHeight + kRowGap;
    }
    at.text = QRect(w - kInner, y, kRowWidth, at.infoGroup.height() - kTextLess);
    return at;
}

IssueWrapLayout LayoutIssueWrap(const QSize& window, const QSize& report, const QSize& properties) {
    constexpr int kTop = 2;
    constexpr int kFromRight = 10;
    constexpr int kBetween = 30;
    IssueWrapLayout at;
    at.tabs = QRect(QPoint(0, kTop), QPoint(window.width() - 1, window.height() - 1));
    at.report = QPoint(window.width() - kFromRight - report.width(), kTop);
    at.properties = at.report - QPoint(kBetween + properties.width(), 0);
    return at;
}

} // namespace issues
