#include "host/ui/ImportDialog.h"

#include "host/ui/LocateText.h"
#include "services/Factories.h"
#include "services/IKXLocalCacheData.h"
#include "services/IVeskPicMng.h"
#include "toolkit/Icons.h"
#include "toolkit/Look.h"
#include "toolkit/windows/Prompts.h"
#include "toolkit/windows/StillThere.h"
#include "toolkit/windows/WindowPlace.h"
#include "toolkit/windows/WindowRegistry.h"
#include "ui_ImportDialog.h"

#include <QDir>
#include <QFileInfo>
#include <QPushButton>

#include <map>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// Keeps the entry that stands for nothing, with empty data, at the top.
void Refill(QComboBox* combo, const std::vector<std::pair<QString, QString>>& namesAndData) {
    combo->clear();
    combo->addItem(u"不指定"_s, QString());
    for (const auto& [name, data] : namesAndData) {
        combo->addItem(name, data);
    }
    combo->setEnabled(!namesAndData.empty());
}

/// False for what isn't listed; then nothing changes.
bool ChooseData(QComboBox* combo, const QString& data) {
    const int index = combo->findData(data);
    if (index > 0) {
        combo->setCurrentIndex(index);
    }
    return index > 0;
}

QPixmap MarkSwatch(qint32 color) {
    QPixmap swatch(12, 12);
    swatch.fill(toolkit::ColorFromBgr(color));
    return swatch;
}

} // namespace

ImportDialog::ImportDialog(QWidget* parent, const QStringList& paths,
                           const std::vector<ImportProject>& projects, const ImportPlace& place)
    : QDialog(parent), m_form(std::make_unique<Ui::ImportDialog>()), m_dropped(paths) {
    m_form->setupUi(this);
    setObjectName(u"importDialog"_s);
    m_form->noteLabel->setForegroundRole(QPalette::PlaceholderText);
    m_note = m_form->noteLabel->text();
    for (const ImportProject& project : projects) {
        m_form->projectCombo->addItem(project.name, project.ppid);
    }
    if (m_dropped.size() == 1) {
        m_form->pathsEdit->setText(QDir::toNativeSeparators(m_dropped.front()));
        m_dropped.clear();
    } else if (!m_dropped.isEmpty()) {
        m_form->pathsEdit->setText(u"拖入的 %1 个文件和文件夹"_s.arg(m_dropped.size()));
        m_form->pathsEdit->setToolTip(toolkit::PlainTip(m_dropped.join(u'\n')));
        m_form->pathsEdit->setReadOnly(true);
        m_form->browseButton->setEnabled(false);
    }
    QPushButton* ok = m_form->buttons->button(QDialogButtonBox::Ok);
    ok->setObjectName(u"importStart"_s);
    ok->setText(u"导入"_s);
    ok->setToolTip(u"开始导入（Enter）"_s);
    toolkit::ScrollIfTooLarge(*this);
    OrderMarks({});
    FillFloors();
    TakePlace(place);
    Validate();

    connect(m_form->pathsEdit, &QLineEdit::textChanged, this, &ImportDialog::Validate);
    connect(m_form->browseButton, &QPushButton::clicked, this, &ImportDialog::Browse);
    connect(m_form->projectCombo, &QComboBox::activated, this, &ImportDialog::FillFloors);
    connect(m_form->floorCombo, &QComboBox::activated, this, &ImportDialog::FillAxesX);
    connect(m_form->axisXCombo, &QComboBox::activated, this, &ImportDialog::FillAxesY);
    connect(m_form->axisYCombo, &QComboBox::activated, this, &ImportDialog::Validate);
    connect(m_form->buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_form->buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

ImportDialog::~ImportDialog() = default;

qint32 ImportDialog::Ppid() const {
    return m_form->projectCombo->currentData().toInt();
}

QStringList ImportDialog::Paths() const {
    if (!m_dropped.isEmpty()) {
        return m_dropped;
    }
    const QString typed = m_form->pathsEdit->text().trimmed();
    return typed.isEmpty() ? QStringList() : QStringList{QDir::fromNativeSeparators(typed)};
}

ImportChoice ImportDialog::Choice() const {
    ImportChoice choice;
    choice.paths = Paths();
    choice.ppid = Ppid();
    choice.positionKey = m_form->axisYCombo->currentData().toString();
    choice.markId = m_form->markCombo->currentData().toInt();
    return choice;
}

// A floor without its axes would keep the import from beginning: all or nothing.
void ImportDialog::TakePlace(const ImportPlace& place) {
    if (place.positionKey.isEmpty()) {
        return;
    }
    if (const int project = m_form->projectCombo->findData(place.ppid); project >= 0) {
        m_form->projectCombo->setCurrentIndex(project);
        FillFloors();
    }
    if (!ChooseData(m_form->floorCombo, place.floor)) {
        return;
    }
    FillAxesX();
    const bool isThere = ChooseData(m_form->axisXCombo, place.axisX);
    FillAxesY();
    if (!isThere || !ChooseData(m_form->axisYCombo, place.positionKey)) {
        m_form->floorCombo->setCurrentIndex(0);
        FillAxesX();
    }
}

void ImportDialog::OrderMarks(const std::vector<qint32>& markIds) {
    m_form->markCombo->clear();
    m_form->markCombo->addItem(u"不指定"_s, 0);
    std::map<qint32, KX_DATA::MarkRecord> marks;
    GetKXLocalCacheData()->GetMarkTable(marks);
    const auto add = [this](qint32 markId, const KX_DATA::MarkRecord& mark) {
        m_form->markCombo->addItem(MarkSwatch(mark.color), mark.name, markId);
    };
    for (const qint32 markId : markIds) {
        if (const auto named = marks.extract(markId)) {
            add(markId, named.mapped());
        }
    }
    for (const auto& [markId, mark] : marks) {
        add(markId, mark);
    }
}

void ImportDialog::FillFloors() {
    std::vector<QString> floors;
    GetVeskPicMng()->GetProjectFloors(Ppid(), floors);
    std::vector<std::pair<QString, QString>> entries;
    for (const QString& floor : floors) {
        entries.emplace_back(FloorCaption(floor), floor);
    }
    Refill(m_form->floorCombo, entries);
    FillAxesX();
}

void ImportDialog::FillAxesX() {
    std::vector<QString> axes;
    const QString floor = m_form->floorCombo->currentData().toString();
    if (!floor.isEmpty()) {
        GetVeskPicMng()->GetFloorAxesX(Ppid(), floor, axes);
    }
    std::vector<std::pair<QString, QString>> entries;
    for (const QString& axis : axes) {
        entries.emplace_back(axis, axis);
    }
    Refill(m_form->axisXCombo, entries);
    FillAxesY();
}

void ImportDialog::FillAxesY() {
    std::vector<KX_DATA::AxisYEntry> entries;
    const QString axisX = m_form->axisXCombo->currentData().toString();
    if (!axisX.isEmpty()) {
        GetVeskPicMng()->GetFloorAxesY(Ppid(), m_form->floorCombo->currentData().toString(), axisX,
                                       entries);
    }
    Refill(m_form->axisYCombo, entries);
    Validate();
}

void ImportDialog::Browse() {
    const toolkit::StillThere still(this);
    const QString folder =
        toolkit::Prompts().AskFolder(toolkit::WindowOf(parentWidget()), u"选择照片所在的文件夹"_s);
    if (still && !folder.isEmpty()) {
        m_form->pathsEdit->setText(QDir::toNativeSeparators(folder));
    }
}

QString ImportDialog::Lack() const {
    const QStringList paths = Paths();
    if (paths.isEmpty()) {
        return u"请选择照片所在的文件夹。"_s;
    }
    if (m_dropped.isEmpty() && !QFileInfo::exists(paths.front())) {
        return u"这个文件夹不存在。"_s;
    }
    if (m_form->floorCombo->currentIndex() > 0 && m_form->axisYCombo->currentIndex() <= 0) {
        return u"指定了楼层，请同时选择X轴和Y轴。"_s;
    }
    return {};
}

void ImportDialog::Validate() {
    const QString lack = Lack();
    QPushButton* ok = m_form->buttons->button(QDialogButtonBox::Ok);
    ok->setEnabled(lack.isEmpty());
    ok->setToolTip(lack.isEmpty() ? u"开始导入（Enter）"_s : lack);
    m_form->noteLabel->setText(lack.isEmpty() || Paths().isEmpty() ? m_note : lack);
}

} // namespace host
