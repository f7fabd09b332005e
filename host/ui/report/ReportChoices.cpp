#include "host/ui/report/ReportChoices.h"

#include "toolkit/Look.h"
#include "toolkit/windows/Prompts.h"
#include "toolkit/windows/StillThere.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr int kColumnWidth = 264;
constexpr QSize kLogoRoom(96, 48);

struct CheckRow {
    QString name;
    QString text;
    QString tip;
    bool ReportOptions::*value;
};

const std::vector<CheckRow>& CheckTable() {
    static const std::vector<CheckRow> rows = {
        {u"reportContents"_s, u"目录"_s, u"在开头列出各部分及其页码"_s,
         &ReportOptions::withContents},
        {u"reportTexts"_s, u"文字信息"_s, u"位置和照片的说明：人员、时间、标签、描述"_s,
         &ReportOptions::withTexts},
        {u"reportPlan"_s, u"平面图中的位置"_s, u"楼层平面图或图纸，标出所在的位置"_s,
         &ReportOptions::withPlan},
        {u"reportCode"_s, u"二维码"_s, u"问题的二维码，用移动端扫描即可打开"_s,
         &ReportOptions::withCode},
        {u"reportComments"_s, u"评论和变更记录"_s, u"检查点的评论，问题的变更记录"_s,
         &ReportOptions::withComments},
        {u"reportVoices"_s, u"语音备注列表"_s, u"列出哪些照片有语音备注，以及它们的时长"_s,
         &ReportOptions::withVoices},
        {u"reportRecord"_s, u"整改记录"_s, u"窗口中显示的富文本记录，在报告的最后"_s,
         &ReportOptions::withRecord},
    };
    return rows;
}

QComboBox* MakeChoice(const QString& name, const QString& caption, const QStringList& entries,
                      QWidget* parent) {
    auto* box = new QComboBox(parent);
    box->setObjectName(name);
    box->setAccessibleName(caption);
    box->setToolTip(caption);
    box->addItems(entries);
    box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    return box;
}

} // namespace

ReportChoices::ReportChoices(QWidget* parent) : QScrollArea(parent) {
    auto* inside = new QWidget(this);
    auto* column = new QVBoxLayout(inside);
    column->setContentsMargins(0, 0, 8, 0);
    column->setSpacing(12);
    AddPaper(*column);
    AddContent(*column);
    AddTemplate(*column);
    column->addStretch(1);
    setWidget(inside);
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFixedWidth(std::max(kColumnWidth, inside->sizeHint().width()) +
                  verticalScrollBar()->sizeHint().width());
}

void ReportChoices::AddPaper(QVBoxLayout& column) {
    auto* group = new QGroupBox(u"页面"_s, this);
    m_paper = MakeChoice(u"reportPaper"_s, u"纸张"_s, {u"A4"_s, u"A3"_s}, group);
    m_direction = MakeChoice(u"reportDirection"_s, u"方向"_s, {u"纵向"_s, u"横向"_s}, group);
    m_pictures =
        MakeChoice(u"reportPictures"_s, u"图片大小"_s, {u"小"_s, u"中"_s, u"每页一张"_s}, group);
    auto* form = new QFormLayout(group);
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    form->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    form->addRow(u"纸张："_s, m_paper);
    form->addRow(u"方向："_s, m_direction);
    form->addRow(u"图片大小："_s, m_pictures);
    for (QComboBox* box : {m_paper, m_direction, m_pictures}) {
        connect(box, &QComboBox::activated, this, &ReportChoices::OptionsChanged);
    }
    column.addWidget(group);
}

void ReportChoices::AddContent(QVBoxLayout& column) {
    auto* group = new QGroupBox(u"内容"_s, this);
    auto* lines = new QVBoxLayout(group);
    for (const CheckRow& row : CheckTable()) {
        auto* box = new QCheckBox(row.text, group);
        box->setObjectName(row.name);
        box->setToolTip(row.tip);
        connect(box, &QCheckBox::clicked, this, &ReportChoices::OptionsChanged);
        lines->addWidget(box);
        m_checks.push_back({box, row.value, row.tip});
    }
    column.addWidget(group);
}

QLineEdit* ReportChoices::MakeLine(const QString& name, const QString& caption,
                                   const QString& hint) {
    auto* line = new QLineEdit(this);
    line->setObjectName(name);
    line->setAccessibleName(caption);
    line->setPlaceholderText(hint);
    line->setToolTip(u"%1，为本工程的所有报告保留"_s.arg(caption));
    line->setMaxLength(static_cast<int>(kMostTemplateText));
    connect(line, &QLineEdit::textEdited, this, &ReportChoices::TemplateChanged);
    return line;
}

void ReportChoices::AddTemplate(QVBoxLayout& column) {
    auto* group = new QGroupBox(u"本工程的版式"_s, this);
    m_title = MakeLine(u"reportTitle"_s, u"标题"_s, u"按内容命名"_s);
    m_header = MakeLine(u"reportHeader"_s, u"页眉"_s, u"无"_s);
    m_footer = MakeLine(u"reportFooter"_s, u"页脚"_s, u"无"_s);
    m_logo = new QLabel(group);
    m_logo->setObjectName(u"reportLogo"_s);
    m_logo->setAlignment(Qt::AlignCenter);
    m_logo->setFixedSize(kLogoRoom);
    m_logo->setFrameShape(QFrame::StyledPanel);
    auto* choose = new QPushButton(u"选择..."_s, group);
    choose->setObjectName(u"reportChooseLogo"_s);
    choose->setToolTip(u"选择一个图片文件作为徽标"_s);
    choose->setAutoDefault(false);
    m_dropLogo = new QPushButton(u"移除"_s, group);
    m_dropLogo->setObjectName(u"reportDropLogo"_s);
    m_dropLogo->setToolTip(u"报告中不再有徽标"_s);
    m_dropLogo->setAutoDefault(false);
    connect(choose, &QPushButton::clicked, this, &ReportChoices::ChooseLogo);
    connect(m_dropLogo, &QPushButton::clicked, this, [this] {
        m_logoImage = {};
        ShowLogo();
        emit TemplateChanged();
    });
    auto* buttons = new QVBoxLayout;
    buttons->setSpacing(4);
    buttons->addWidget(choose);
    buttons->addWidget(m_dropLogo);
    auto* logo = new QHBoxLayout;
    logo->addWidget(m_logo);
    logo->addLayout(buttons, 1);
    auto* form = new QFormLayout(group);
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    form->addRow(u"标题："_s, m_title);
    form->addRow(u"页眉："_s, m_header);
    form->addRow(u"页脚："_s, m_footer);
    form->addRow(u"徽标："_s, logo);
    column.addWidget(group);
}

void ReportChoices::Show(const ReportOptions& options, const ReportTemplate& dress) {
    m_paper->setCurrentIndex(static_cast<int>(options.paper));
    m_direction->setCurrentIndex(options.isLandscape ? 1 : 0);
    m_pictures->setCurrentIndex(static_cast<int>(options.pictures));
    for (const Check& check : m_checks) {
        check.box->setChecked(options.*check.value);
    }
    m_title->setText(dress.title);
    m_header->setText(dress.header);
    m_footer->setText(dress.footer);
    m_logoImage = dress.logo;
    ShowLogo();
}

void ReportChoices::SetAvailable(const ReportContent& content) {
    const auto hasSome = [&content](auto part) {
        return std::ranges::any_of(content.sections, [&](const ReportSection& section) {
            return !(section.*part).empty();
        });
    };
    for (const Check& check : m_checks) {
        const bool isThere =
            check.value == &ReportOptions::withPlan       ? !content.plan.isNull()
            : check.value == &ReportOptions::withCode     ? !content.code.isNull()
            : check.value == &ReportOptions::withComments ? hasSome(&ReportSection::comments)
            : check.value == &ReportOptions::withVoices   ? hasSome(&ReportSection::voices)
            : check.value == &ReportOptions::withRecord   ? content.record.has_value()
                                                          : true;
        check.box->setEnabled(isThere);
        check.box->setToolTip(isThere ? check.tip : u"此报告没有这部分内容"_s);
    }
}

ReportOptions ReportChoices::Options() const {
    ReportOptions options;
    options.paper = static_cast<ReportPaper>(m_paper->currentIndex());
    options.isLandscape = m_direction->currentIndex() == 1;
    options.pictures = static_cast<ReportPictures>(m_pictures->currentIndex());
    for (const Check& check : m_checks) {
        options.*check.value = check.box->isChecked();
    }
    return options;
}

ReportTemplate ReportChoices::Template() const {
    return {m_title->text().trimmed(), m_logoImage, m_header->text().trimmed(),
            m_footer->text().trimmed()};
}

void ReportChoices::ChooseLogo() {
    const toolkit::StillThere still(this);
    const QStringList chosen = toolkit::Prompts().AskOpenFiles(
        {toolkit::WindowOf(window()), u"图片 (*.png *.jpg *.jpeg *.bmp *.gif);;所有文件 (*)"_s});
    if (!still || chosen.isEmpty()) {
        return;
    }
    const QImage logo = LogoOf(chosen.front());
    if (logo.isNull()) {
        emit Refused(u"“%1”不是可以读取的图片，请选择其他文件。"_s.arg(
            QDir::toNativeSeparators(chosen.front())));
        return;
    }
    m_logoImage = logo;
    ShowLogo();
    emit TemplateChanged();
}

void ReportChoices::ShowLogo() {
    m_dropLogo->setEnabled(!m_logoImage.isNull());
    if (m_logoImage.isNull()) {
        m_logo->setPixmap({});
        m_logo->setText(u"无"_s);
        return;
    }
    const double ratio = devicePixelRatioF();
    const QSize room = (QSizeF(kLogoRoom - QSize(6, 6)) * ratio).toSize();
    QPixmap shown =
        QPixmap::fromImage(m_logoImage.scaled(room, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    shown.setDevicePixelRatio(ratio);
    m_logo->setPixmap(shown);
}

} // namespace host
