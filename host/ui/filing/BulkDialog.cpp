#include "host/ui/filing/BulkDialog.h"

#include "host/ui/filing/PlaceCombos.h"
#include "services/PicRecords.h"
#include "toolkit/Look.h"
#include "toolkit/controls/Swatch.h"
#include "toolkit/controls/TextLimit.h"
#include "toolkit/windows/WindowPlace.h"
#include "ui_BulkDialog.h"

#include <QPushButton>

#include <map>
#include <utility>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// Of an entry that leaves things as they are.
const QVariant kStays;
const QString kStaysText = u"不修改"_s;

/// As the editors of one photo have it.
constexpr int kLongestLabel = 127;

constexpr int kSwatchSide = 14;

enum PlaceWay { kPlaceCleared = 0, kPlaceChosen = 1 };
enum LabelWay { kLabelsAdded = 0, kLabelsReplaced = 1 };

QString CountedText(const BulkQuestion& question) {
    static const std::map<BulkOf, QString> things = {
        {BulkOf::BimPhotos, u"张BIM模型照片"_s},
        {BulkOf::PdfPhotos, u"张图纸照片"_s},
        {BulkOf::Issues, u"个TN问题"_s},
    };
    return u"%1 %2"_s.arg(QString::number(question.count), things.at(question.of));
}

void SetShown(const QList<QWidget*>& controls, bool shown) {
    for (QWidget* control : controls) {
        control->setVisible(shown);
    }
}

} // namespace

BulkDialog::BulkDialog(QWidget* parent, BulkQuestion asked)
    : QDialog(parent), m_question(std::move(asked)), m_form(std::make_unique<Ui::BulkDialog>()) {
    m_form->setupUi(this);
    setObjectName(u"bulkDialog"_s);
    m_form->headLabel->setTextFormat(Qt::PlainText);
    m_form->headLabel->setText(HeadText());
    KeepRoomForHint();
    m_form->noteLabel->setForegroundRole(QPalette::PlaceholderText);
    m_form->labelList->setAccessibleName(u"标签"_s);
    QPushButton* ok = m_form->buttons->button(QDialogButtonBox::Ok);
    ok->setObjectName(u"bulkStart"_s);
    ok->setText(u"归档"_s);
    m_place = std::make_unique<PlaceCombos>(
        PlaceCombos::Boxes{*m_form->floorCombo, *m_form->axisXCombo, *m_form->axisYCombo},
        m_question.ppid);
    if (!m_question.positionKey.isEmpty()) {
        m_place->Propose(m_question.floor, m_question.axisX, m_question.positionKey);
    }
    FillWays();
    FillMarks();
    FillLabels();
    ShowAllowed();
    WatchChoices();
    toolkit::ScrollIfTooLarge(*this);
    Validate();
}

BulkDialog::~BulkDialog() = default;

// On a low screen the dialog must not grow once it is there.
void BulkDialog::KeepRoomForHint() {
    QLabel& hint = *m_form->hintLabel;
    hint.setTextFormat(Qt::PlainText);
    hint.setMinimumHeight(hint.fontMetrics().height());
    QSizePolicy policy = hint.sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    hint.setSizePolicy(policy);
}

void BulkDialog::FillWays() {
    QComboBox& place = *m_form->placeCombo;
    place.addItem(kStaysText, kStays);
    place.addItem(u"指定"_s, kPlaceChosen);
    place.addItem(u"清除"_s, kPlaceCleared);
    QComboBox& labels = *m_form->labelCombo;
    labels.addItem(kStaysText, kStays);
    labels.addItem(u"添加"_s, kLabelsAdded);
    labels.addItem(u"替换为"_s, kLabelsReplaced);
    QComboBox& status = *m_form->statusCombo;
    status.addItem(kStaysText, kStays);
    status.addItem(u"显示"_s, KX_DATA::kStatusShown);
    status.addItem(u"隐藏"_s, KX_DATA::kStatusHidden);
}

void BulkDialog::FillMarks() {
    QComboBox& box = *m_form->markCombo;
    box.setIconSize(QSize(kSwatchSide, kSwatchSide));
    box.addItem(kStaysText, kStays);
    if (m_question.of == BulkOf::BimPhotos) {
        box.addItem(u"无标识"_s, 0);
    }
    for (const BulkMark& mark : m_question.marks) {
        box.addItem(toolkit::SwatchIcon(toolkit::ColorFromBgr(mark.color)), mark.name, mark.id);
    }
}

void BulkDialog::FillLabels() {
    for (const BulkLabel& label : m_question.labels) {
        auto* item = new QListWidgetItem(label.name, m_form->labelList);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        item->setCheckState(Qt::Unchecked);
        item->setData(Qt::UserRole, label.id);
    }
    toolkit::LimitText(*m_form->newLabelEdit, kLongestLabel);
}

void BulkDialog::ShowAllowed() {
    const Ui::BulkDialog& form = *m_form;
    const bool isBim = m_question.of == BulkOf::BimPhotos;
    const bool mayEdit = m_question.mayEdit && m_question.of != BulkOf::PdfPhotos;
    SetShown({form.placeLabel, form.placeCombo, form.floorLabel, form.floorCombo, form.axisXLabel,
              form.axisXCombo, form.axisYLabel, form.axisYCombo, form.labelLabel, form.labelCombo,
              form.labelList},
             isBim && mayEdit);
    SetShown({form.newLabelLabel, form.newLabelEdit}, isBim && mayEdit && m_question.mayAddLabels);
    SetShown({form.markLabel, form.markCombo}, mayEdit);
    SetShown({form.statusLabel, form.statusCombo}, m_question.mayShowHide);
    if (!mayEdit) {
        // Alone, it stands where a form begins.
        form.form->addWidget(form.statusLabel, 0, 0);
        form.form->addWidget(form.statusCombo, 0, 1);
    }
    m_place->SetEnabled(false);
    ChooseLabelWay();
}

void BulkDialog::WatchChoices() {
    connect(m_form->placeCombo, &QComboBox::activated, this, &BulkDialog::ChooseWay);
    connect(m_form->labelCombo, &QComboBox::activated, this, &BulkDialog::ChooseLabelWay);
    connect(m_form->markCombo, &QComboBox::activated, this, &BulkDialog::Validate);
    connect(m_form->statusCombo, &QComboBox::activated, this, &BulkDialog::Validate);
    connect(m_place.get(), &PlaceCombos::Changed, this, &BulkDialog::Validate);
    connect(m_form->labelList, &QListWidget::itemChanged, this, &BulkDialog::Validate);
    connect(m_form->newLabelEdit, &QLineEdit::textChanged, this, &BulkDialog::KeepOutBlanks);
    connect(m_form->buttons, &QDialogButtonBox::accepted, this,
            [this] { emit FilingWanted(Answer()); });
    connect(m_form->buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void BulkDialog::ChooseWay() {
    m_place->SetEnabled(WantsPlace());
    Validate();
}

void BulkDialog::ChooseLabelWay() {
    const bool changes = m_form->labelCombo->currentData().isValid();
    m_form->labelList->setEnabled(changes);
    m_form->newLabelEdit->setEnabled(changes);
    Validate();
}

void BulkDialog::KeepOutBlanks(const QString& typed) {
    if (typed.contains(u' ')) {
        const qsizetype cursor = m_form->newLabelEdit->cursorPosition();
        const qsizetype before = typed.left(cursor).count(u' ');
        m_form->newLabelEdit->setText(QString(typed).remove(u' ')); // comes here again
        m_form->newLabelEdit->setCursorPosition(int(cursor - before));
        return;
    }
    Validate();
}

bool BulkDialog::WantsPlace() const {
    const QVariant way = m_form->placeCombo->currentData();
    return way.isValid() && way.toInt() == kPlaceChosen;
}

std::vector<qint32> BulkDialog::CheckedLabels() const {
    std::vector<qint32> ids;
    for (int row = 0; row < m_form->labelList->count(); ++row) {
        const QListWidgetItem* item = m_form->labelList->item(row);
        if (item->checkState() == Qt::Checked) {
            ids.push_back(item->data(Qt::UserRole).toInt());
        }
    }
    return ids;
}

BulkAnswer BulkDialog::Answer() const {
    BulkAnswer answer;
    if (m_form->placeCombo->currentData().isValid()) {
        answer.positionKey = WantsPlace() ? m_place->PositionKey() : QString();
    }
    const QVariant mark = m_form->markCombo->currentData();
    if (mark.isValid()) {
        answer.markId = mark.toInt();
    }
    const QVariant status = m_form->statusCombo->currentData();
    if (status.isValid()) {
        answer.status = status.toInt();
    }
    const QVariant labels = m_form->labelCombo->currentData();
    if (labels.isValid()) {
        answer.labelIds = CheckedLabels();
        answer.newLabel = m_form->newLabelEdit->text().trimmed();
        answer.replaceLabels = labels.toInt() == kLabelsReplaced;
    }
    return answer;
}

QString BulkDialog::HeadText() const {
    return (m_question.ticked ? u"将修改勾选的 %1"_s : u"将修改选中的 %1"_s)
        .arg(CountedText(m_question));
}

QString BulkDialog::HintText() const {
    if (m_question.of == BulkOf::PdfPhotos) {
        return u"图纸照片的标识和标签是检查点的，请在图纸上编辑检查点。"_s;
    }
    if (WantsPlace() && m_question.elsewhere > 0) {
        return u"这里是工程“%1”的位置，其他工程的 %2 张照片会跳过。"_s.arg(
            m_question.project, QString::number(m_question.elsewhere));
    }
    const BulkAnswer answer = Answer();
    return answer.replaceLabels && answer.labelIds.empty() && answer.newLabel.isEmpty()
               ? u"没有勾选标签：照片已有的标签会全部去掉。"_s
               : QString();
}

QString BulkDialog::Lack() const {
    const BulkAnswer answer = Answer();
    if (WantsPlace() && m_place->PositionKey().isEmpty()) {
        return m_place->LacksAxes() ? u"这个楼层没有轴线，请先在“设置”中录入。"_s
                                    : u"请选择楼层、X轴和Y轴。"_s;
    }
    const bool changesLabels = m_form->labelCombo->currentData().isValid();
    const bool hasLabels = !answer.labelIds.empty() || !answer.newLabel.isEmpty();
    if (changesLabels && !answer.replaceLabels && !hasLabels) {
        return u"请勾选要添加的标签。"_s;
    }
    if (!answer.positionKey && !answer.markId && !answer.status && !changesLabels) {
        return u"还没有选择要修改的内容。"_s;
    }
    return {};
}

void BulkDialog::ShowFault(const QString& text) {
    QPalette palette = m_form->noteLabel->palette();
    palette.setColor(QPalette::PlaceholderText, toolkit::Colors::ErrorText());
    m_form->noteLabel->setPalette(palette);
    m_form->noteLabel->setText(text);
}

void BulkDialog::Validate() {
    m_form->noteLabel->setPalette({});
    const QString hint = HintText();
    m_form->hintLabel->setText(hint);
    m_form->hintLabel->setVisible(!hint.isEmpty());
    const QString lack = Lack();
    QPushButton* ok = m_form->buttons->button(QDialogButtonBox::Ok);
    ok->setEnabled(lack.isEmpty());
    ok->setToolTip(lack.isEmpty() ? u"修改这些内容，之后可以撤销（Enter）"_s : lack);
    m_form->noteLabel->setText(lack.isEmpty() ? u"其余内容保持不变，之后可以撤销。"_s : lack);
}

} // namespace host
