#include "host/ui/FirstStartPage.h"

#include "host/ui/ChoiceCard.h"
#include "toolkit/Icons.h"
#include "toolkit/Look.h"
#include "toolkit/windows/Prompts.h"
#include "toolkit/windows/StillThere.h"
#include "toolkit/windows/WindowPlace.h"

#include <QDir>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <array>
#include <utility>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// Of the full sample site, rounded up.
constexpr int kSampleMegabytes = 120;
constexpr int kFirstPageWidth = 620;
constexpr int kFirstPageMargin = 20;
constexpr int kPlaceWidth = 480;

struct CardRow {
    FirstChoice choice;
    QString name;
    QString icon;
    QString title;
    QString sentences;
};

const std::array<CardRow, 3>& CardRows() {
    static const std::array<CardRow, 3> rows{
        CardRow{FirstChoice::Sample, u"chooseSample"_s, u"photo"_s, u"看看示例"_s,
                u"在数据文件夹里生成一个完整的示例站点，用来试用各项功能，里面的照片和问题都是画出"
                u"来的。"
                "大约需要一两分钟，占用约 %1 MB；以后不要了，删掉这个文件夹即可。"_s.arg(
                    kSampleMegabytes)},
        CardRow{FirstChoice::NewSite, u"chooseNewSite"_s, u"project"_s, u"新建站点"_s,
                u"为您的工程建立一个空的站点，只要填写工程名称和您的姓名。"
                "楼层、轴线、标识和人员以后在“设置”里录入。"_s},
        CardRow{FirstChoice::OpenFolder, u"chooseFolder"_s, u"folder"_s, u"打开已有的数据文件夹"_s,
                u"数据已经在这台电脑上，或在共享的文件夹里，选中那个文件夹就能继续使用。"
                "只打开，不往里面添加示例，下次启动时会自动打开它。"_s}};
    return rows;
}

QLabel* Paragraph(const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

} // namespace

FirstStartPage::FirstStartPage(FirstStartProposal proposal) : m_proposal(std::move(proposal)) {
    setObjectName(u"firstStartPage"_s);
    setWindowTitle(u"第一次使用"_s);
    auto* area = new QScrollArea(this);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setFocusPolicy(Qt::NoFocus);
    m_contents = new QWidget(area);
    area->setWidget(m_contents);
    auto* title = new QLabel(u"第一次使用"_s, m_contents);
    title->setFont(toolkit::UiFont(20));
    m_stack = new QStackedWidget(m_contents);
    m_stack->addWidget(MakeChoices());
    m_stack->addWidget(MakeForm());
    auto* lines = new QVBoxLayout(m_contents);
    lines->setContentsMargins(kFirstPageMargin, 12, kFirstPageMargin, 0);
    lines->setSpacing(6);
    lines->addWidget(title);
    lines->addWidget(Paragraph(
        u"这里还没有工程，请选择怎样开始。选定之前，不会在电脑上建立任何东西。"_s, m_contents));
    lines->addWidget(MakeNote());
    lines->addWidget(m_stack, 1);
    m_buttons = MakeButtons();
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    all->addWidget(area, 1);
    all->addWidget(m_buttons);
    ShowNote({});
    ShowForm(false);
    Validate();
}

QWidget* FirstStartPage::MakeNote() {
    m_note = new QFrame(m_contents);
    auto* icon = new QLabel(m_note);
    icon->setPixmap(toolkit::Icon(u"warning"_s).pixmap(QSize(16, 16), devicePixelRatio()));
    m_noteText = Paragraph({}, m_note);
    m_noteText->setObjectName(u"firstNote"_s);
    m_noteText->setTextInteractionFlags(Qt::TextSelectableByMouse);
    QPalette red = m_noteText->palette();
    red.setColor(QPalette::WindowText, toolkit::Colors::ErrorText());
    m_noteText->setPalette(red);
    auto* line = new QHBoxLayout(m_note);
    line->setContentsMargins(0, 4, 0, 4);
    line->addWidget(icon, 0, Qt::AlignTop);
    line->addWidget(m_noteText, 1);
    return m_note;
}

QWidget* FirstStartPage::MakeChoices() {
    auto* page = new QWidget(m_stack);
    auto* lines = new QVBoxLayout(page);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(8);
    for (const CardRow& row : CardRows()) {
        auto* card = new ChoiceCard(row.icon, row.title, row.sentences, page);
        card->setObjectName(row.name);
        connect(card, &ChoiceCard::clicked, this, [this, choice = row.choice] { Take(choice); });
        lines->addWidget(card);
    }
    lines->addStretch(1);
    return page;
}

QWidget* FirstStartPage::MakeForm() {
    auto* page = new QWidget(m_stack);
    m_project = MakeField(u"firstProject"_s, u"工程名称"_s);
    m_person = MakeField(u"firstPerson"_s, u"您的姓名"_s);
    m_person->setText(m_proposal.person);
    m_folder = MakeField(u"firstFolder"_s, u"数据文件夹"_s);
    m_folder->setReadOnly(true);
    m_folder->setText(QDir::toNativeSeparators(m_proposal.folder));
    auto* change = new QPushButton(u"更改..."_s, page);
    change->setObjectName(u"firstChange"_s);
    change->setAutoDefault(false);
    change->setToolTip(u"另选一个空文件夹来存放这个站点"_s);
    connect(change, &QPushButton::clicked, this, &FirstStartPage::ChangeFolder);
    m_lack = Paragraph({}, page);
    m_lack->setObjectName(u"firstLack"_s);
    m_lack->setForegroundRole(QPalette::PlaceholderText);
    auto* place = new QHBoxLayout;
    place->addWidget(m_folder, 1);
    place->addWidget(change);
    auto* form = new QFormLayout;
    form->setLabelAlignment(Qt::AlignRight);
    form->addRow(u"工程名称(&N)："_s, m_project);
    form->addRow(u"您的姓名(&P)："_s, m_person);
    form->addRow(u"数据文件夹(&F)："_s, place);
    qobject_cast<QLabel*>(form->labelForField(place))->setBuddy(m_folder);
    auto* heading = new QLabel(u"新建站点"_s, page);
    heading->setFont(toolkit::UiFont(15));
    auto* lines = new QVBoxLayout(page);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(10);
    lines->addWidget(heading);
    lines->addLayout(form);
    lines->addWidget(Paragraph(u"您是这个站点的第一个人，拥有全部权限，也可以更改设置。"
                               "照片、语音和问题都存放在数据文件夹里。"_s,
                               page));
    lines->addWidget(m_lack);
    lines->addStretch(1);
    return page;
}

QLineEdit* FirstStartPage::MakeField(const QString& name, const QString& caption) {
    auto* field = new QLineEdit(m_stack);
    field->setObjectName(name);
    field->setAccessibleName(caption);
    connect(field, &QLineEdit::textChanged, this, &FirstStartPage::Validate);
    return field;
}

QLabel* FirstStartPage::MakePlace() {
    auto* place = new QLabel(this);
    place->setObjectName(u"firstPlace"_s);
    place->setTextFormat(Qt::PlainText);
    place->setForegroundRole(QPalette::PlaceholderText);
    const QString folder = QDir::toNativeSeparators(m_proposal.folder);
    place->setText(place->fontMetrics().elidedText(u"数据文件夹：%1"_s.arg(folder), Qt::ElideMiddle,
                                                   kPlaceWidth));
    place->setToolTip(toolkit::PlainTip(folder));
    return place;
}

QWidget* FirstStartPage::MakeButtons() {
    auto* line = new QWidget(this);
    m_place = MakePlace();
    const auto add = [&](const QString& text, const QString& name, const QString& tip) {
        auto* button = new QPushButton(text, line);
        button->setObjectName(name);
        button->setToolTip(tip);
        button->setAutoDefault(false);
        return button;
    };
    m_back = add(u"返回"_s, u"firstBack"_s, u"回到三种开始方式"_s);
    m_make = add(u"建立站点"_s, u"firstMake"_s, u"在数据文件夹里建立站点并打开（Enter）"_s);
    auto* quit = add(u"退出"_s, u"firstQuit"_s, u"结束程序，不留下任何东西（Esc）"_s);
    connect(m_back, &QPushButton::clicked, this, [this] { ShowForm(false); });
    connect(m_make, &QPushButton::clicked, this, [this] { Take(FirstChoice::NewSite); });
    connect(quit, &QPushButton::clicked, this, &QDialog::reject);
    auto* row = new QHBoxLayout(line);
    row->setContentsMargins(kFirstPageMargin, 6, kFirstPageMargin, 8);
    row->addWidget(m_place);
    row->addWidget(m_back);
    row->addStretch(1);
    row->addWidget(m_make);
    row->addWidget(quit);
    return line;
}

void FirstStartPage::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && m_stack->currentIndex() == 1) {
        ShowForm(false); // what was typed stays
        return;
    }
    QDialog::keyPressEvent(event);
}

void FirstStartPage::ShowForm(bool form) {
    m_stack->setCurrentIndex(form ? 1 : 0);
    m_place->setVisible(!form);
    m_back->setVisible(form);
    m_make->setVisible(form);
    m_make->setDefault(form);
    if (form) {
        (m_project->text().isEmpty() ? m_project : m_person)->setFocus();
    } else {
        findChild<ChoiceCard*>()->setFocus();
    }
}

void FirstStartPage::ShowNote(const QString& text) {
    m_noteText->setText(text);
    m_note->setVisible(!text.isEmpty());
    GrowToContents();
}

void FirstStartPage::Take(FirstChoice choice) {
    const bool isFormShown = m_stack->currentIndex() == 1;
    m_choice = choice;
    if (choice == FirstChoice::NewSite && !isFormShown) {
        ShowNote({});
        ShowForm(true);
    } else if (choice == FirstChoice::OpenFolder) {
        AskWhatToOpen();
    } else {
        accept();
    }
}

void FirstStartPage::AskWhatToOpen() {
    const toolkit::StillThere still(this);
    const QString folder =
        toolkit::Prompts().AskFolder(toolkit::kNoWindow, u"打开已有的数据文件夹"_s);
    if (still && !folder.isEmpty()) {
        m_opened = folder;
        accept();
    }
}

void FirstStartPage::ChangeFolder() {
    const toolkit::StillThere still(this);
    const QString folder =
        toolkit::Prompts().AskFolder(toolkit::kNoWindow, u"选择存放站点的空文件夹"_s);
    if (still && !folder.isEmpty()) {
        m_folder->setText(QDir::toNativeSeparators(folder));
    }
}

QString FirstStartPage::Folder() const {
    switch (m_choice) {
    case FirstChoice::NewSite:
        return QDir::fromNativeSeparators(m_folder->text());
    case FirstChoice::OpenFolder:
        return m_opened;
    case FirstChoice::Sample:
        break;
    }
    return m_proposal.folder;
}

QString FirstStartPage::Project() const {
    return m_project->text().trimmed();
}

QString FirstStartPage::Person() const {
    return m_person->text().trimmed();
}

void FirstStartPage::Validate() {
    if (m_make == nullptr) {
        return; // the page is being made
    }
    const QString lack = Project().isEmpty()  ? u"请填写工程名称。"_s
                         : Person().isEmpty() ? u"请填写您的姓名。"_s
                                              : m_proposal.lackOf(Project(), Person());
    m_lack->setText(lack);
    m_make->setEnabled(lack.isEmpty());
}

void FirstStartPage::showEvent(QShowEvent* event) {
    GrowToContents();
    QDialog::showEvent(event);
}

void FirstStartPage::GrowToContents() {
    if (m_buttons == nullptr) {
        return;
    }
    const int wide = std::max(width(), kFirstPageWidth);
    const int high = m_contents->layout()->heightForWidth(wide) + m_buttons->sizeHint().height();
    toolkit::ResizeWithinScreen(*this, QSize(wide, isVisible() ? std::max(high, height()) : high));
}

} // namespace host
