#include "host/ui/rich/CompareView.h"

#include "host/ui/rich/CompareSheet.h"
#include "toolkit/Icons.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace host {

using namespace Qt::StringLiterals;

namespace {

QPushButton* MakeStep(const QString& name, const QString& icon, const QString& text,
                      const QString& tip, const QKeySequence& key, QWidget* parent) {
    auto* button = new QPushButton(toolkit::Icon(icon), text, parent);
    button->setObjectName(name);
    button->setToolTip(tip);
    button->setAutoDefault(false);
    // A button's own key is deaf while it shows that it was pressed.
    auto* shortcut = new QShortcut(key, parent);
    QObject::connect(shortcut, &QShortcut::activated, button, &QPushButton::click);
    return button;
}

} // namespace

CompareView::CompareView(QWidget* parent) : QWidget(parent) {
    m_summary = new QLabel(this);
    m_summary->setObjectName(u"compareSummary"_s);
    m_summary->setTextFormat(Qt::PlainText);
    m_summary->setWordWrap(true);
    m_summary->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_place = new QLabel(this);
    m_place->setObjectName(u"comparePlace"_s);
    m_previous = MakeStep(u"comparePrevious"_s, u"previous"_s, u"上一处"_s,
                          u"上一处改动（Shift+F8）"_s, Qt::SHIFT | Qt::Key_F8, this);
    m_next =
        MakeStep(u"compareNext"_s, u"next"_s, u"下一处"_s, u"下一处改动（F8）"_s, Qt::Key_F8, this);
    m_sheet = new CompareSheet(this);
    m_sheet->setObjectName(u"compareSheet"_s);
    m_sheet->setAccessibleName(u"版本比较"_s);
    m_sheet->setMinimumHeight(88);
    auto* steps = new QHBoxLayout;
    steps->setSpacing(8);
    steps->addWidget(m_place, 1);
    steps->addWidget(m_previous);
    steps->addWidget(m_next);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(4);
    all->addWidget(m_summary);
    all->addLayout(steps);
    all->addWidget(m_sheet, 1);
    connect(m_previous, &QPushButton::clicked, this,
            [this] { m_sheet->GoTo(m_sheet->CurrentPlace() - 1); });
    connect(m_next, &QPushButton::clicked, this,
            [this] { m_sheet->GoTo(m_sheet->CurrentPlace() + 1); });
    connect(m_sheet, &CompareSheet::PlaceChanged, this, &CompareView::ShowPlace);
    ShowPlace();
}

void CompareView::ShowLines(std::vector<toolkit::ComparedLine> lines,
                            const CompareFolders& folders) {
    m_summary->setText(toolkit::SummaryText(toolkit::CountsOf(lines)));
    if (std::all_of(lines.begin(), lines.end(), [](const toolkit::ComparedLine& line) {
            return line.change == toolkit::LineChange::Same && toolkit::IsBlank(line.line);
        })) {
        m_sheet->ShowHint(u"没有内容。"_s);
        return;
    }
    m_sheet->ShowLines(std::move(lines), folders);
}

void CompareView::ShowHint(const QString& hint) {
    m_summary->clear();
    m_sheet->ShowHint(hint);
}

void CompareView::ShowPlace() {
    const int count = m_sheet->PlaceCount();
    const int place = m_sheet->CurrentPlace();
    if (count == 0) {
        m_place->clear();
    } else if (place < 0) {
        m_place->setText(u"共 %1 处"_s.arg(count));
    } else {
        m_place->setText(u"第 %1 / %2 处"_s.arg(place + 1).arg(count));
    }
    m_previous->setEnabled(place > 0);
    m_next->setEnabled(place + 1 < count);
}

} // namespace host
