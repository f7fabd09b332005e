#include "tests/editors/checkpoint/CheckPtFixture.h"

#include "tests/support/WaitFor.h"

using namespace Qt::StringLiterals;

CheckPtFixture::CheckPtFixture() {
    host.docs.labels = {
        {u"l1"_s, u"裂缝"_s}, {u"l2"_s, u"空鼓"_s}, {u"l3"_s, u"渗漏"_s}, {u"l4"_s, u"返工"_s}};
    host.drawings.drawings[101] = {};
}

CheckPtFixture::~CheckPtFixture() {
    if (editor) {
        editor->Destroy();
    }
    support::RunPendingEvents();
}

KX_DATA::CheckpointEdit CheckPtFixture::Checkpoint() {
    KX_DATA::CheckpointEdit checkpoint;
    checkpoint.checkpointId = 101;
    checkpoint.position1 = 11;
    checkpoint.position2 = 22;
    checkpoint.description = u"梁底裂缝"_s;
    checkpoint.remark = u"请复查"_s;
    checkpoint.labelNames = {u"裂缝"_s, u"渗漏"_s};
    return checkpoint;
}

void CheckPtFixture::Open(const KX_DATA::CheckpointEdit& checkpoint, const QString& markName) {
    editor = std::make_unique<CCheckPtEditDlg>(checkpoint, markName);
    editor->Create(toolkit::kNoWindow);
    editor->ShowRestored();
    editor->BringToForeground();
    support::RunPendingEvents();
    ASSERT_TRUE(support::WaitFor([this] { return Window()->isActiveWindow(); }));
}

CheckPtFixture::Calls CheckPtFixture::Labels() {
    Calls labels;
    for (const QTreeWidgetItem* item : CTreeCtrl3StateBase::ChildrenOf(Root())) {
        const bool checked =
            CTreeCtrl3StateBase::Get3StateCheck(*item) == CTreeCtrl3StateBase::kChecked;
        labels.push_back((checked ? "x " : "  ") + item->text(0).toStdString());
    }
    return labels;
}

bool CheckPtFixture::Save() {
    support::Click(&Ok());
    return !IsOpen();
}
