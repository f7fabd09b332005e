// Where the parts of the issue viewer's pages lie.
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace issues {

/// What both pages have: pictures on the left, a column of a fixed width on the right.
/// Device-independent pixels of the page.
struct IssuePaneLayout {
    QRect bigArea;
    QRect stripArea;
    QRect photoGroup;
    QRect noteGroup;
    QRect infoGroup;
    QRect uploader;
    QRect uploadTime;
    QRect deleteButton;
    QPoint noteButton; ///< which has a size of its own
    QRect noteStatus;
    QRect noteProgress;
    QRect editButton;
};

struct QuestionPageLayout : IssuePaneLayout {
    QRect mark;
    QRect name;
    QRect component;
    QRect creator;
    QRect updater;
    QRect updateTime;
    QRect descriptionCaption;
    QRect description;
};

struct RectifyPageLayout : IssuePaneLayout {
    QRect uploadButton;
    QRect state;
    QRect rectifier;
    QRect textCaption;
    QRect text;
};

/// @param page  client size; widths and heights of a page too small for it become negative.
/// Thread: any. Touches no window.
[[nodiscard]] QuestionPageLayout LayoutQuestionPage(const QSize& page);
[[nodiscard]] RectifyPageLayout LayoutRectifyPage(const QSize& page);

/// Where the parts of the window around them lie.
struct IssueWrapLayout {
    QRect tabs;
    QPoint report;
    QPoint properties;
};
/// @param window              client size.
/// @param report, properties  own sizes of the two buttons.
[[nodiscard]] IssueWrapLayout LayoutIssueWrap(const QSize& window, const QSize& report,
                                              const QSize& properties);

} // namespace issues
