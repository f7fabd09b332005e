#include "console/ConsoleControls.h"

#include "toolkit/Icons.h"
#include "toolkit/controls/ColorTxtComboBox.h"
#include "toolkit/controls/DropCombo.h"
#include "toolkit/controls/KXComboBox.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>

using namespace Qt::StringLiterals;

namespace {

constexpr int kControlHeight = 24;
constexpr int kActionWidth = 46;
constexpr int kRadioWidth = 90;
constexpr int kRadioHeight = 18;

/// Names a control for people, for assistive tools and for tests.
template <class Control>
Control* Named(Control* control, const char16_t* name, const QString& meaning, int width) {
    control->setObjectName(QString::fromUtf16(name));
    control->setAccessibleName(meaning);
    control->setToolTip(meaning);
    control->resize(width, kControlHeight);
    return control;
}

QDateEdit* MakePicker(QWidget* window, const char16_t* name, const QString& meaning) {
    auto* picker = Named(new QDateEdit(window), name, meaning, 104);
    picker->setDisplayFormat(u"yyyy-MM-dd"_s);
    picker->setCalendarPopup(true);
    // A date counts when it is whole, not at every digit.
    picker->setKeyboardTracking(false);
    return picker;
}

QPushButton* MakeAction(QWidget* window, const char16_t* name, const QString& caption,
                        const QString& meaning, const QKeySequence& key) {
    auto* button = Named(new QPushButton(caption, window), name, meaning, kActionWidth);
    button->setToolTip(meaning + u"（"_s + key.toString(QKeySequence::NativeText) + u"）"_s);
    button->setShortcut(key);
    button->setAutoDefault(false);
    return button;
}

QRadioButton* MakeRadio(QWidget* window, const char16_t* name, const QString& caption,
                        const QKeySequence& key) {
    auto* radio = Named(new QRadioButton(caption, window), name, caption, kRadioWidth);
    radio->setToolTip(u"列出"_s + caption + u"（"_s + key.toString(QKeySequence::NativeText) +
                      u"）"_s);
    radio->setShortcut(key);
    radio->resize(kRadioWidth, kRadioHeight);
    return radio;
}

} // namespace

ConsoleControls::ConsoleControls(QWidget* window)
    : projectCombo(Named(new DropCombo(window), u"projectCombo", u"工程"_s, 144)),
      markCombo(Named(new CColorTxtComboBox(window), u"markCombo", u"按标识筛选"_s, 112)),
      labelCombo(Named(new DropCombo(window), u"labelCombo", u"按标签筛选"_s, 104)),
      statusCombo(Named(new DropCombo(window), u"statusCombo", u"按整改情况筛选"_s, 96)),
      noDateLimit(Named(new QCheckBox(u"不限"_s, window), u"noDateLimit", u"不限日期"_s, 54)),
      startPicker(MakePicker(window, u"startPicker", u"开始日期"_s)),
      dateDash(Named(new QLabel(u"-"_s, window), u"dateDash", u"至"_s, 8)),
      endPicker(MakePicker(window, u"endPicker", u"结束日期"_s)),
      keywordCombo(Named(new KXComboBox(window), u"keywordCombo", u"关键字"_s, 236)),
      searchButton(MakeAction(window, u"searchButton", u"搜索"_s, u"按以上条件搜索"_s,
                              QKeySequence(Qt::ALT | Qt::Key_S))),
      bimRadio(MakeRadio(window, u"bimRadio", u"BIM模型照片"_s, QKeySequence(Qt::ALT | Qt::Key_B))),
      pdfRadio(
          MakeRadio(window, u"pdfRadio", u"平面图纸照片"_s, QKeySequence(Qt::ALT | Qt::Key_P))),
      downloadButton(MakeAction(window, u"downloadButton", u"下载"_s, u"把选中的照片下载到文件夹"_s,
                                QKeySequence(Qt::ALT | Qt::Key_W))),
      deleteButton(MakeAction(window, u"deleteButton", u"删除"_s, u"删除选中的各项"_s,
                              QKeySequence(Qt::ALT | Qt::Key_D))),
      showButton(MakeAction(window, u"showButton", u"显示"_s, u"把选中的各项设为显示"_s,
                            QKeySequence(Qt::ALT | Qt::Key_V))),
      hideButton(MakeAction(window, u"hideButton", u"隐藏"_s, u"把选中的各项设为隐藏"_s,
                            QKeySequence(Qt::ALT | Qt::Key_H))),
      statusBar(new QStatusBar(window)), statusPane(new QLabel(statusBar)) {
    searchButton->setDefault(true);
    searchButton->resize(64, kControlHeight);
    dateDash->setAlignment(Qt::AlignCenter);
    keywordCombo->setToolTip(u"关键字（Alt+K），回车即搜索"_s);
    statusBar->setObjectName(u"statusBar"_s);
    statusBar->setSizeGripEnabled(false);
    statusPane->setObjectName(u"statusPane"_s);
    statusPane->setTextFormat(Qt::PlainText);
    statusBar->addWidget(statusPane, 1);
    statusBar->setContentsMargins(8, 0, 8, 0);
    // Nobody acts until the rights are known.
    for (QPushButton* action : Actions()) {
        action->hide();
    }
    // Where the form has it; the place of all others follows from it.
    projectCombo->move(10, 10);
}

std::array<QWidget*, kFilterControls> ConsoleControls::Filters() const {
    return {projectCombo, markCombo, labelCombo, statusCombo,  noDateLimit,
            startPicker,  dateDash,  endPicker,  keywordCombo, searchButton};
}

std::array<QPushButton*, kActionButtons> ConsoleControls::Actions() const {
    return {downloadButton, deleteButton, showButton, hideButton};
}

void ConsoleControls::PutBehindFilters(QWidget* gridView) const {
    // All others follow each other in the order in which they were made.
    QWidget::setTabOrder(searchButton, gridView);
}
