#include "toolkit/richtext/NoteBar.h"

#include "toolkit/Icons.h"
#include "toolkit/Look.h"
#include "toolkit/richtext/NoteEdit.h"
#include "toolkit/richtext/NoteHtml.h"
#include "toolkit/richtext/NoteTableMenu.h"
#include "toolkit/windows/Prompts.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QAction>
#include <QColorDialog>
#include <QComboBox>
#include <QFontComboBox>
#include <QFontInfo>
#include <QInputDialog>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QToolButton>

#include <array>

namespace toolkit {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array kSizes = {9, 10, 11, 12, 14, 16, 18, 22, 26, 36}; ///< points
constexpr int kFaceCharacters = 8;

QString TipOf(const QString& text, const QKeySequence& keys) {
    return keys.isEmpty() ? text : u"%1（%2）"_s.arg(text, keys.toString(QKeySequence::NativeText));
}

} // namespace

NoteBar::NoteBar(NoteEdit& sheet, QWidget* parent) : QToolBar(parent), m_sheet(sheet) {
    setObjectName(u"noteBar"_s);
    setIconSize({16, 16});
    setMovable(false);
    Add({u"undo"_s, u"undo"_s, u"撤销"_s, QKeySequence::Undo}, [this] { m_sheet.undo(); });
    Add({u"redo"_s, u"redo"_s, u"重做"_s, QKeySequence::Redo}, [this] { m_sheet.redo(); });
    addSeparator();
    AddBoxes();
    AddTextCommands();
    addSeparator();
    AddParagraphCommands();
    addSeparator();
    AddInsertions();
    addSeparator();
    Add({u"find"_s, u"search"_s, u"查找和替换"_s, QKeySequence::Find},
        [this] { emit FindWanted(); });
    Add({u"zoomIn"_s, u"zoom-in"_s, u"放大"_s, QKeySequence::ZoomIn}, [this] { m_sheet.Zoom(1); });
    Add({u"zoomOut"_s, u"zoom-out"_s, u"缩小"_s, QKeySequence::ZoomOut},
        [this] { m_sheet.Zoom(-1); });
    connect(&m_sheet, &QTextEdit::cursorPositionChanged, this, &NoteBar::ShowWhatHolds);
    connect(&m_sheet, &QTextEdit::currentCharFormatChanged, this, &NoteBar::ShowWhatHolds);
    ShowWhatHolds();
}

QAction* NoteBar::Add(const Command& command, const Deed& deed) {
    QAction* action = addAction(Icon(command.icon), command.text);
    action->setObjectName(command.name);
    action->setToolTip(TipOf(command.text, command.keys));
    // While another part of the window has the keyboard, its own shortcuts work.
    action->setShortcutContext(Qt::WidgetShortcut);
    action->setShortcut(command.keys);
    m_sheet.addAction(action);
    connect(action, &QAction::triggered, &m_sheet, [this, deed] {
        // First: the finder takes the keyboard for itself.
        m_sheet.setFocus();
        deed();
        ShowWhatHolds();
    });
    return action;
}

void NoteBar::AddSwitch(const Command& command, const Deed& deed,
                        const std::function<bool()>& holds) {
    QAction* action = Add(command, deed);
    action->setCheckable(true);
    m_switches.push_back({action, holds});
}

void NoteBar::AddTextCommands() {
    const auto look = [this](auto change) {
        return [this, change] {
            QTextCharFormat format;
            change(format, m_sheet.currentCharFormat());
            m_sheet.mergeCurrentCharFormat(format);
        };
    };
    using Format = QTextCharFormat;
    AddSwitch({u"bold"_s, u"bold"_s, u"加粗"_s, QKeySequence::Bold},
              look([](Format& format, const Format& before) {
                  const bool isBold = before.fontWeight() >= QFont::Bold;
                  format.setFontWeight(isBold ? QFont::Normal : QFont::Bold);
              }),
              [this] { return m_sheet.currentCharFormat().fontWeight() >= QFont::Bold; });
    AddSwitch({u"italic"_s, u"italic"_s, u"倾斜"_s, QKeySequence::Italic},
              look([](Format& format, const Format& before) {
                  format.setFontItalic(!before.fontItalic());
              }),
              [this] { return m_sheet.currentCharFormat().fontItalic(); });
    AddSwitch({u"underline"_s, u"underline"_s, u"下划线"_s, QKeySequence::Underline},
              look([](Format& format, const Format& before) {
                  format.setFontUnderline(!before.fontUnderline());
              }),
              [this] { return m_sheet.currentCharFormat().fontUnderline(); });
    AddSwitch({u"strike"_s, u"strike"_s, u"删除线"_s, QKeySequence(u"Ctrl+Shift+X"_s)},
              look([](Format& format, const Format& before) {
                  format.setFontStrikeOut(!before.fontStrikeOut());
              }),
              [this] { return m_sheet.currentCharFormat().fontStrikeOut(); });
    Add({u"textColor"_s, u"text-color"_s, u"文字颜色"_s, {}}, [this] { ChooseColor(true); });
    Add({u"highlight"_s, u"highlight"_s, u"突出显示"_s, {}}, [this] { ChooseColor(false); });
}

void NoteBar::AddParagraphCommands() {
    struct Side {
        const char* name;
        QString text;
        Qt::Alignment side;
        const char* keys;
    };
    for (const Side& side : {Side{"align-left", u"左对齐"_s, Qt::AlignLeft, "Ctrl+L"},
                             Side{"align-center", u"居中"_s, Qt::AlignHCenter, "Ctrl+E"},
                             Side{"align-right", u"右对齐"_s, Qt::AlignRight, "Ctrl+R"}}) {
        const QString name = QLatin1String(side.name);
        AddSwitch(
            {name, name, side.text, QKeySequence(QLatin1String(side.keys))},
            [this, at = side.side] { m_sheet.setAlignment(at); },
            [this, at = side.side] {
                return (m_sheet.alignment() & Qt::AlignHorizontal_Mask).testFlags(at);
            });
    }
    struct List {
        const char* name;
        QString text;
        QTextListFormat::Style style;
        const char* keys;
    };
    for (const List& list :
         {List{"list-bullet", u"项目符号"_s, QTextListFormat::ListDisc, "Ctrl+Shift+8"},
          List{"list-number", u"编号"_s, QTextListFormat::ListDecimal, "Ctrl+Shift+7"}}) {
        const QString name = QLatin1String(list.name);
        AddSwitch(
            {name, name, list.text, QKeySequence(QLatin1String(list.keys))},
            [this, style = list.style] { ToggleList(m_sheet.textCursor(), style); },
            [this, style = list.style] { return IsInList(m_sheet.textCursor(), style); });
    }
    Add({u"outdent"_s, u"outdent"_s, u"减少缩进"_s, QKeySequence(u"Ctrl+["_s)},
        [this] { Indent(m_sheet.textCursor(), -1); });
    Add({u"indent"_s, u"indent"_s, u"增加缩进"_s, QKeySequence(u"Ctrl+]"_s)},
        [this] { Indent(m_sheet.textCursor(), 1); });
}

void NoteBar::AddInsertions() {
    Add({u"picture"_s, u"photo"_s, u"插入图片"_s, {}}, [this] { ChooseFiles(false); });
    AddTableMenu();
    Add({u"link"_s, u"link"_s, u"插入链接"_s, QKeySequence(u"Ctrl+K"_s)}, [this] { AskForLink(); });
    Add({u"attach"_s, u"attach"_s, u"添加附件"_s, {}}, [this] { ChooseFiles(true); });
    Add({u"rule"_s, u"rule"_s, u"插入横线"_s, {}}, [this] { InsertRule(m_sheet.textCursor()); });
}

void NoteBar::AddBoxes() {
    m_heading = new QComboBox(this);
    m_heading->setObjectName(u"headingBox"_s);
    m_heading->setAccessibleName(u"段落样式"_s);
    m_heading->setToolTip(u"段落样式"_s);
    m_heading->addItem(u"正文"_s);
    for (int level = 1; level <= kMostHeading; ++level) {
        m_heading->addItem(u"标题 %1"_s.arg(level));
    }
    connect(m_heading, &QComboBox::activated, &m_sheet, [this](int level) {
        SetHeading(m_sheet.textCursor(), level);
        m_sheet.setFocus();
    });
    addWidget(m_heading);
    m_face = new QFontComboBox(this);
    m_face->setObjectName(u"faceBox"_s);
    m_face->setAccessibleName(u"字体"_s);
    m_face->setToolTip(u"字体"_s);
    m_face->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_face->setMinimumContentsLength(kFaceCharacters);
    connect(m_face, &QFontComboBox::textActivated, &m_sheet, [this](const QString& face) {
        QTextCharFormat format;
        format.setFontFamilies({face});
        m_sheet.mergeCurrentCharFormat(format);
        m_sheet.setFocus();
    });
    addWidget(m_face);
    m_size = new QComboBox(this);
    m_size->setObjectName(u"sizeBox"_s);
    m_size->setAccessibleName(u"字号"_s);
    m_size->setToolTip(u"字号（磅）"_s);
    for (const int points : kSizes) {
        m_size->addItem(QString::number(points), points);
    }
    connect(m_size, &QComboBox::activated, &m_sheet, [this](int index) {
        QTextCharFormat format;
        format.setFontPointSize(m_size->itemData(index).toInt());
        m_sheet.mergeCurrentCharFormat(format);
        m_sheet.setFocus();
    });
    addWidget(m_size);
}

void NoteBar::AddTableMenu() {
    auto* button = new QToolButton(this);
    button->setObjectName(u"tableButton"_s);
    button->setIcon(Icon(u"table"_s));
    button->setToolTip(u"表格"_s);
    button->setAccessibleName(u"表格"_s);
    button->setPopupMode(QToolButton::InstantPopup);
    button->setMenu(new NoteTableMenu(m_sheet, this));
    addWidget(button);
}

void NoteBar::ShowWhatHolds() {
    for (const Switch& one : m_switches) {
        one.action->setChecked(one.holds());
    }
    const QTextCharFormat format = m_sheet.currentCharFormat();
    const QSignalBlocker noHeading(m_heading);
    const QSignalBlocker noFace(m_face);
    const QSignalBlocker noSize(m_size);
    m_heading->setCurrentIndex(HeadingAt(m_sheet.textCursor()));
    m_face->setCurrentFont(format.font());
    m_face->lineEdit()->setCursorPosition(0);
    // -1 for one that isn't in the list: the box is empty.
    m_size->setCurrentIndex(m_size->findData(qRound(QFontInfo(format.font()).pointSizeF())));
}

void NoteBar::ChooseColor(bool ofText) {
    const QTextCharFormat before = m_sheet.currentCharFormat();
    const QColor present = ofText ? before.foreground().color() : before.background().color();
    const QColor color =
        QColorDialog::getColor(present, &m_sheet, ofText ? u"文字颜色"_s : u"突出显示"_s);
    if (!color.isValid()) {
        return;
    }
    QTextCharFormat format;
    ofText ? format.setForeground(color) : format.setBackground(color);
    m_sheet.mergeCurrentCharFormat(format);
}

void NoteBar::ChooseFiles(bool areAttached) {
    const QString filter =
        areAttached ? u"所有文件 (*)"_s : u"图片 (*.jpg *.jpeg *.png *.bmp *.gif *.tif *.tiff)"_s;
    const QStringList paths = Prompts().AskOpenFiles({WindowOf(&m_sheet), filter});
    if (areAttached) {
        m_sheet.InsertAsAttachments(paths);
    } else {
        m_sheet.InsertFiles(paths);
    }
}

void NoteBar::AskForLink() {
    bool isGiven = false;
    const QString present = m_sheet.currentCharFormat().anchorHref();
    const QString address =
        QInputDialog::getText(&m_sheet, u"插入链接"_s, u"网址（留空则取消链接）："_s,
                              QLineEdit::Normal, present, &isGiven)
            .trimmed();
    if (!isGiven) {
        return;
    }
    const bool isBare = !address.isEmpty() && !address.contains(u':');
    const QString whole = isBare ? u"https://"_s + address : address;
    if (whole.isEmpty() || IsLinkAllowed(whole)) {
        SetLink(m_sheet.textCursor(), whole, address);
    } else {
        emit m_sheet.Refused(u"只能链接到以 http://、https:// 或 mailto: 开头的地址。"_s);
    }
}

} // namespace toolkit
