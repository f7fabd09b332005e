#include "editors/LabelTreeEdit.h"

#include "base/Guard.h"
#include "editors/LabelRules.h"
#include "services/Factories.h"
#include "services/IKXAuthMng.h"
#include "services/IKXDocMng.h"
#include "toolkit/controls/TreeCtrl3StateBase.h"
#include "toolkit/windows/PopTipDlg.h"
#include "toolkit/windows/StillThere.h"
#include "toolkit/windows/WaitCursor.h"

#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>

#include <unordered_set>

using namespace Qt::StringLiterals;

using ZelvorNRQ_KXVeskPicture::CatchStatus;
using ZelvorNRQ_KXVeskPicture::e_VeskPicMngStatus;
using ZelvorNRQ_KXVeskPicture::GetStatusMessage;

namespace {

/// Arguments of the service beside kind and name.
constexpr qint32 kLabelValue = 2;
const QString kLabelParent = u"0"_s;

} // namespace

LabelTreeEdit::LabelTreeEdit(CPopTipDlg& dialog, const Parts& parts,
                             std::function<void()> readFields)
    : m_dialog(dialog), m_parts(parts), m_readFields(std::move(readFields)) {
    m_parts.addLabelButton->setEnabled(false);
    ConnectParts();
}

void LabelTreeEdit::ConnectParts() {
    QLineEdit* edit = m_parts.newLabelEdit;
    QObject::connect(edit, &QLineEdit::textChanged, edit, [this] { OnNewLabelChanged(); });
    QObject::connect(m_parts.addLabelButton, &QPushButton::clicked, edit, [this] { OnAddLabel(); });
    // Enter in the box means its own button, as long as there is something to add.
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* shortcut = new QShortcut(key, edit);
        shortcut->setContext(Qt::WidgetShortcut);
        shortcut->setEnabled(false);
        QObject::connect(edit, &QLineEdit::textChanged, shortcut, [shortcut](const QString& text) {
            shortcut->setEnabled(!text.isEmpty());
        });
        QObject::connect(shortcut, &QShortcut::activated, m_parts.addLabelButton,
                         &QPushButton::click);
    }
}

void LabelTreeEdit::Fill(const std::vector<QString>& checkedNames) {
    m_parts.labelTree->DeleteAllItems();
    m_labelIdStore.clear();
    m_root = m_parts.labelTree->InsertItem(u"全部标签"_s);
    const toolkit::StillThere still(m_dialog.Id());
    std::vector<KX_DATA::LabelEntry> labels;
    if (GetKXDocMng()->GetLabels(KX_DATA::kPhotoDocKind, labels) != KX_DATA::kLabelsOk) {
        throw e_VeskPicMngStatus::LabelsFailed;
    }
    if (!still) {
        return;
    }
    const std::unordered_set<QString> checked(checkedNames.begin(), checkedNames.end());
    for (const KX_DATA::LabelEntry& label : labels) {
        InsertLabel(label.labelId, label.labelName, checked.contains(label.labelName));
    }
    m_parts.labelTree->expandItem(m_root);
}

void LabelTreeEdit::HideAddingUnlessAllowed() {
    const toolkit::StillThere still(m_dialog.Id());
    if (GetKXAuthMng()->HasRight(KX_DATA::kRightAddLabels) || !still) {
        return;
    }
    m_parts.newLabelCaption->hide();
    m_parts.newLabelEdit->hide();
    m_parts.addLabelButton->hide();
}

void LabelTreeEdit::InsertLabel(const QString& labelId, const QString& name, bool checked) {
    m_labelIdStore.push_back(std::make_unique<QString>(labelId));
    m_parts.labelTree->InsertItem(name, m_root, m_labelIdStore.back().get(),
                                  checked ? CTreeCtrl3StateBase::kChecked
                                          : CTreeCtrl3StateBase::kUnchecked);
}

std::vector<QString> LabelTreeEdit::Names() const {
    std::vector<QString> names;
    for (const QTreeWidgetItem* item : CTreeCtrl3StateBase::ChildrenOf(*m_root)) {
        names.push_back(item->text(0));
    }
    return names;
}

std::vector<QString> LabelTreeEdit::CheckedIds() const {
    std::vector<QString> ids;
    if (m_root == nullptr) {
        return ids;
    }
    for (const QTreeWidgetItem* item : CTreeCtrl3StateBase::ChildrenOf(*m_root)) {
        if (CTreeCtrl3StateBase::Get3StateCheck(*item) == CTreeCtrl3StateBase::kChecked) {
            ids.push_back(*static_cast<const QString*>(CTreeCtrl3StateBase::GetItemData(*item)));
        }
    }
    return ids;
}

void LabelTreeEdit::OnNewLabelChanged() {
    QLineEdit& edit = *m_parts.newLabelEdit;
    m_parts.addLabelButton->setEnabled(!edit.text().isEmpty());
    if (!ZelvorNRQ_KXVeskPicture::HasBlank(edit.text())) {
        return;
    }
    m_dialog.PopTip(&edit, u"标签中不允许输入空格！"_s);
    // The text written back comes here again, until no blank is left.
    const ZelvorNRQ_KXVeskPicture::TypedText rest =
        ZelvorNRQ_KXVeskPicture::WithoutFirstBlank({edit.text(), edit.cursorPosition()});
    edit.setText(rest.text);
    edit.setCursorPosition(rest.cursor);
}

void LabelTreeEdit::OnAddLabel() {
    const toolkit::StillThere still(m_dialog.Id());
    const auto status = CatchStatus([this] { AddLabel(); });
    if (!status || !still) {
        return;
    }
    QWidget* control = nullptr;
    if (*status == e_VeskPicMngStatus::AddLabelFailed) {
        control = m_parts.addLabelButton;
    } else if (*status == e_VeskPicMngStatus::LabelEmpty ||
               *status == e_VeskPicMngStatus::LabelExists) {
        control = m_parts.newLabelEdit;
    }
    m_dialog.ShowMsg(GetStatusMessage(*status), control);
}

void LabelTreeEdit::AddLabel() {
    if (m_readFields) {
        m_readFields();
    }
    const QString label = m_parts.newLabelEdit->text().trimmed();
    if (const auto fault = ZelvorNRQ_KXVeskPicture::NewLabelFault(label, Names())) {
        throw *fault;
    }
    const toolkit::StillThere still(m_dialog.Id());
    QString labelId;
    qint32 result = 0;
    {
        const toolkit::WaitCursor wait;
        result = GetKXDocMng()->AddLabel(KX_DATA::kPhotoDocKind, label, kLabelValue, kLabelParent,
                                         labelId);
    }
    if (result != KX_DATA::kLabelAdded) {
        throw e_VeskPicMngStatus::AddLabelFailed;
    }
    // Added on the server, whatever became of the window meanwhile.
    if (!still) {
        return;
    }
    InsertLabel(labelId, label, true);
    // It is the last one, and the root may still be closed.
    m_parts.labelTree->expandItem(m_root);
    m_parts.labelTree->scrollToItem(m_root->child(m_root->childCount() - 1));
    m_parts.newLabelEdit->clear();
    m_parts.newLabelEdit->setFocus(Qt::OtherFocusReason);
    m_dialog.PopTip(m_parts.addLabelButton, u"标签添加成功！"_s, true);
}
