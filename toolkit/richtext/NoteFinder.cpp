#include "toolkit/richtext/NoteFinder.h"

#include "toolkit/Look.h"
#include "toolkit/richtext/NoteEdit.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTextCursor>

namespace toolkit {

using namespace Qt::StringLiterals;

namespace {

QPushButton* MakeFinderButton(QWidget& parent, const QString& name, const QString& text) {
    auto* button = new QPushButton(text, &parent);
    button->setObjectName(name);
    button->setAutoDefault(false);
    return button;
}

} // namespace

NoteFinder::NoteFinder(NoteEdit& sheet, QWidget* parent) : QWidget(parent), m_sheet(sheet) {
    setObjectName(u"noteFinder"_s);
    m_wanted = new QLineEdit(this);
    m_wanted->setObjectName(u"wantedEdit"_s);
    m_wanted->setPlaceholderText(u"查找"_s);
    m_wanted->setAccessibleName(u"查找"_s);
    m_instead = new QLineEdit(this);
    m_instead->setObjectName(u"insteadEdit"_s);
    m_instead->setPlaceholderText(u"替换为"_s);
    m_instead->setAccessibleName(u"替换为"_s);
    m_answer = new QLabel(this);
    m_answer->setObjectName(u"finderAnswer"_s);
    QPushButton* next = MakeFinderButton(*this, u"findNext"_s, u"下一个"_s);
    QPushButton* replace = MakeFinderButton(*this, u"replaceOne"_s, u"替换"_s);
    QPushButton* all = MakeFinderButton(*this, u"replaceAll"_s, u"全部替换"_s);
    QPushButton* leave = MakeFinderButton(*this, u"leaveFinder"_s, u"关闭"_s);
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins(kStep, kStep, kStep, kStep);
    line->addWidget(m_wanted, 1);
    line->addWidget(next);
    line->addWidget(m_instead, 1);
    line->addWidget(replace);
    line->addWidget(all);
    line->addWidget(m_answer);
    line->addWidget(leave);
    connect(m_wanted, &QLineEdit::returnPressed, this, [this] { Next(); });
    connect(next, &QPushButton::clicked, this, [this] { Next(); });
    connect(replace, &QPushButton::clicked, this, &NoteFinder::Replace);
    connect(m_instead, &QLineEdit::returnPressed, this, &NoteFinder::Replace);
    connect(all, &QPushButton::clicked, this, &NoteFinder::ReplaceAll);
    connect(leave, &QPushButton::clicked, this, &NoteFinder::Leave);
    hide();
}

void NoteFinder::Begin() {
    const QString selected = m_sheet.textCursor().selectedText();
    if (!selected.isEmpty() && !selected.contains(QChar::ParagraphSeparator)) {
        m_wanted->setText(selected);
    }
    for (QWidget* part : findChildren<QWidget*>()) {
        const bool replaces = part == m_instead || part->objectName().startsWith(u"replace"_s);
        part->setVisible(!replaces || !m_sheet.isReadOnly());
    }
    m_answer->clear();
    show();
    m_wanted->setFocus();
    m_wanted->selectAll();
}

bool NoteFinder::Next(bool backwards) {
    m_answer->clear();
    const QString wanted = m_wanted->text();
    if (wanted.isEmpty()) {
        return false;
    }
    const auto way = backwards ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    if (m_sheet.find(wanted, way)) {
        return true;
    }
    const QTextCursor before = m_sheet.textCursor();
    m_sheet.moveCursor(backwards ? QTextCursor::End : QTextCursor::Start);
    if (m_sheet.find(wanted, way)) {
        return true;
    }
    m_sheet.setTextCursor(before);
    m_answer->setText(u"没有找到"_s);
    return false;
}

bool NoteFinder::IsFound() const {
    return !m_wanted->text().isEmpty() &&
           m_sheet.textCursor().selectedText().compare(m_wanted->text(), Qt::CaseInsensitive) == 0;
}

void NoteFinder::Replace() {
    if (m_sheet.isReadOnly()) {
        return;
    }
    if (IsFound()) {
        m_sheet.textCursor().insertText(m_instead->text());
    }
    Next();
}

void NoteFinder::ReplaceAll() {
    const QString wanted = m_wanted->text();
    if (m_sheet.isReadOnly() || wanted.isEmpty()) {
        return;
    }
    int count = 0;
    QTextCursor all(m_sheet.document());
    all.beginEditBlock();
    for (QTextCursor found = m_sheet.document()->find(wanted, 0); !found.isNull();
         found = m_sheet.document()->find(wanted, found)) {
        found.insertText(m_instead->text());
        ++count;
    }
    all.endEditBlock();
    m_answer->setText(count == 0 ? u"没有找到"_s : u"替换了 %1 处"_s.arg(count));
}

void NoteFinder::Leave() {
    hide();
    m_sheet.setFocus();
}

void NoteFinder::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Escape:
        Leave();
        break;
    case Qt::Key_F3:
        Next(event->modifiers().testFlag(Qt::ShiftModifier));
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

} // namespace toolkit
