#include "toolkit/richtext/NoteBar.h"

#include "toolkit/Icons.h"
#include "toolkit/Look.h"
#include "toolkit/richtext/NoteColors.h"
#include "toolkit/richtext/NoteCommands.h"
#include "toolkit/richtext/NoteEdit.h"
#include "toolkit/richtext/NoteLinkDialog.h"
#include "toolkit/richtext/NoteTableMenu.h"
#include "toolkit/windows/Prompts.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QAction>
#include <QComboBox>
#include <QFontComboBox>
#include <QLineEdit>
#include <QSignalBlocker>

#include <array>

namespace toolkit {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array kSizes = {9, 10, 11, 12, 14, 16, 18, 22, 26, 36}; ///< points
constexpr int kFaceCharacters = 8;

QString TipOf(const QString& text, const QList<QKeySequence>& keys) {
    QStringList names;
    for (const QKeySequence& one : keys) {
        names << one.toString(QKeySequence::NativeText);
    }
    return keys.isEmpty() ? text : u"%1（%2）"_s.arg(text, names.join(u"、"_s));
}

/// As the document says: what goes unsaid is as large as the sheet shows it, zoomed.
double PointsOf(const QTextCharFormat& format, const NoteEdit& sheet) {
    constexpr double kPointsOfInch = 72;
    const QFont font = format.font();
    if (font.pixelSize() <= 0) {
        return font.pointSizeF();
    }
    const bool isSaid = format.hasProperty(QTextFormat::FontPixelSize);
    const double zoom = sheet.Note() == nullptr || isSaid ? 1 : sheet.Note()->ShownFactor();
    return font.pixelSize() * kPointsOfInch / sheet.logicalDpiY() / zoom;
}

} // namespace

NoteBar::NoteBar(NoteEdit& sheet, QWidget* parent) : NoteToolLine(parent), m_sheet(sheet) {
    setObjectName(u"noteBar"_s);
    AddSteps();
    AddSeparator();
    AddBoxes();
    AddTextCommands();
    AddSeparator();
    AddParagraphCommands();
    AddSeparator();
    AddInsertions();
    AddSeparator();
    AddLooks();
    AddWayIn();
    connect(&m_sheet, &QTextEdit::cursorPositionChanged, this, &NoteBar::ShowWhatHolds);
    connect(&m_sheet, &QTextEdit::currentCharFormatChanged, this, &NoteBar::ShowWhatHolds);
    connect(&m_sheet, &QTextEdit::undoAvailable, this, &NoteBar::ShowSteps);
    connect(&m_sheet, &QTextEdit::redoAvailable, this, &NoteBar::ShowSteps);
    ShowWhatHolds();
}

void NoteBar::AddSteps() {
    m_undo = Add({u"undo"_s, u"undo"_s, u"撤销"_s, {QKeySequence(QKeySequence::Undo)}},
                 [this] { m_sheet.undo(); });
    // Both are in use, whichever of them the platform has for its own.
    m_redo = Add({u"redo"_s,
                  u"redo"_s,
                  u"重做"_s,
                  {QKeySequence(u"Ctrl+Y"_s), QKeySequence(u"Ctrl+Shift+Z"_s)}},
                 [this] { m_sheet.redo(); });
}

void NoteBar::AddLooks() {
    Add(
        {u"find"_s, u"search"_s, u"查找和替换"_s, {QKeySequence(QKeySequence::Find)}},
        [this] { emit FindWanted(); }, Kind::Looks);
    Add(
        {u"zoomIn"_s, u"zoom-in"_s, u"放大"_s, {QKeySequence(QKeySequence::ZoomIn)}},
        [this] { m_sheet.Zoom(1); }, Kind::Looks);
    Add(
        {u"zoomOut"_s, u"zoom-out"_s, u"缩小"_s, {QKeySequence(QKeySequence::ZoomOut)}},
        [this] { m_sheet.Zoom(-1); }, Kind::Looks);
}

void NoteBar::AddWayIn() {
    auto* wayIn = new QAction(u"进入工具栏"_s, this);
    wayIn->setObjectName(u"enterBar"_s);
    wayIn->setShortcutContext(Qt::WidgetShortcut);
    wayIn->setShortcut(QKeySequence(u"Alt+F10"_s));
    m_sheet.addAction(wayIn);
    connect(wayIn, &QAction::triggered, this, [this] { Enter(); });
    connect(this, &NoteToolLine::Left, &m_sheet, [this] { m_sheet.setFocus(); });
}

QAction* NoteBar::Add(const Command& command, const Deed& deed, Kind kind) {
    auto* action = new QAction(Icon(command.icon), command.text, this);
    action->setObjectName(command.name);
    action->setToolTip(TipOf(command.text, command.keys));
    // While another part of the window has the keyboard, its own shortcuts work.
    action->setShortcutContext(Qt::WidgetShortcut);
    action->setShortcuts(command.keys);
    m_sheet.addAction(action);
    AddCommand(action);
    connect(action, &QAction::triggered, &m_sheet, [this, deed, kind] {
        // Hidden commands have their shortcuts still.
        if (kind == Kind::Writes && m_sheet.isReadOnly()) {
            return;
        }
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
    AddSwitch({u"bold"_s, u"bold"_s, u"加粗"_s, {QKeySequence(QKeySequence::Bold)}},
              look([](Format& format, const Format& before) {
                  const bool isBold = before.fontWeight() >= QFont::Bold;
                  format.setFontWeight(isBold ? QFont::Normal : QFont::Bold);
              }),
              [this] { return m_sheet.currentCharFormat().fontWeight() >= QFont::Bold; });
    AddSwitch({u"italic"_s, u"italic"_s, u"倾斜"_s, {QKeySequence(QKeySequence::Italic)}},
              look([](Format& format, const Format& before) {
                  format.setFontItalic(!before.fontItalic());
              }),
              [this] { return m_sheet.currentCharFormat().fontItalic(); });
    AddSwitch(
        {u"underline"_s, u"underline"_s, u"下划线"_s, {QKeySequence(QKeySequence::Underline)}},
        look([](Format& format, const Format& before) {
            format.setFontUnderline(!before.fontUnderline());
        }),
        [this] { return m_sheet.currentCharFormat().fontUnderline(); });
    AddSwitch({u"strike"_s, u"strike"_s, u"删除线"_s, {QKeySequence(u"Ctrl+Shift+X"_s)}},
              look([](Format& format, const Format& before) {
                  format.setFontStrikeOut(!before.fontStrikeOut());
              }),
              [this] { return m_sheet.currentCharFormat().fontStrikeOut(); });
    AddMenu(new NoteColorMenu(m_sheet, NotePaint::Text, this), u"textColorButton"_s);
    AddMenu(new NoteColorMenu(m_sheet, NotePaint::Ground, this), u"highlightButton"_s);
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
            {name, name, side.text, {QKeySequence(QLatin1String(side.keys))}},
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
            {name, name, list.text, {QKeySequence(QLatin1String(list.keys))}},
            [this, style = list.style] { ToggleList(m_sheet.textCursor(), style); },
            [this, style = list.style] { return IsInList(m_sheet.textCursor(), style); });
    }
    Add({u"outdent"_s, u"outdent"_s, u"减少缩进"_s, {QKeySequence(u"Ctrl+["_s)}},
        [this] { Indent(m_sheet.textCursor(), -1); });
    Add({u"indent"_s, u"indent"_s, u"增加缩进"_s, {QKeySequence(u"Ctrl+]"_s)}},
        [this] { Indent(m_sheet.textCursor(), 1); });
}

void NoteBar::AddInsertions() {
    Add({u"picture"_s, u"photo"_s, u"插入图片"_s, {}}, [this] { ChooseFiles(false); });
    AddMenu(new NoteTableMenu(m_sheet, this), u"tableButton"_s);
    Add({u"link"_s, u"link"_s, u"插入链接"_s, {QKeySequence(u"Ctrl+K"_s)}},
        [this] { AskForLink(); });
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
    AddBox(m_heading);
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
    AddBox(m_face);
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
    AddBox(m_size);
}

void NoteBar::ShowSteps() {
    m_undo->setEnabled(m_sheet.document()->isUndoAvailable());
    m_redo->setEnabled(m_sheet.document()->isRedoAvailable());
}

void NoteBar::ShowWhatHolds() {
    ShowSteps();
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
    m_size->setCurrentIndex(m_size->findData(qRound(PointsOf(format, m_sheet))));
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
    const QTextCursor linked = LinkedText(m_sheet.textCursor());
    const QString text = linked.selectedText();
    // Pictures, and more than a paragraph, are linked as they are.
    const bool isTextFixed = text.contains(QChar::ObjectReplacementCharacter) ||
                             text.contains(QChar::ParagraphSeparator) ||
                             text.contains(QChar::LineSeparator);
    auto* dialog = new NoteLinkDialog({AddressAt(linked), isTextFixed ? QString() : text},
                                      isTextFixed, &m_sheet);
    connect(dialog, &QDialog::accepted, this, [this, dialog, linked] {
        const NoteLinkWords words = dialog->Words();
        // Another document may have come meanwhile.
        if (linked.document() != m_sheet.document()) {
            return;
        }
        SetLink(linked, words.address, words.text);
        m_sheet.setFocus();
    });
    dialog->open();
}

} // namespace toolkit
