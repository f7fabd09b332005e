// Photos that wait to be filed, to be chosen and filed at once.
#pragma once

#include "host/ui/filing/InboxModel.h"

#include <QDialog>

class QLabel;
class QListView;
class QPushButton;

namespace host {

/// Shows them as pictures with their names and what is missing, and tells what the person wants of
/// those that are chosen. Blocks nothing. Knows neither session nor module. Lives on the interface
/// thread, owned by its parent widget.
class InboxWindow final : public QDialog {
    Q_OBJECT

public:
    explicit InboxWindow(QWidget* parent);

    [[nodiscard]] InboxModel& Model() const { return *m_model; }
    /// Of a picture in the list, device-independent pixels.
    static constexpr QSize kPicture{120, 90};

    /// What is chosen, and how far one has scrolled, stays.
    /// @param all  how many there are, shown ones included
    void SetItems(InboxModel::Items items, int all);
    /// From above.
    [[nodiscard]] std::vector<InboxItem> Chosen() const;
    void ChooseAll();
    /// What a word about a filing points at.
    [[nodiscard]] QWidget& TipPlace() const;

signals:
    void FilingWanted();
    /// The same photos in the console.
    void ListWanted();
    void PreviewWanted(const host::InboxItem& item);
    /// All of them, those that aren't listed yet too.
    void AllWanted();

private:
    void MakeList();
    QWidget* MakeBottom();
    void ConnectParts();
    void Choose(const QSet<qint32>& picIds);
    void AskForPreview();
    void ShowState();

    InboxModel* m_model = nullptr;
    QListView* m_list = nullptr;
    QLabel* m_hint = nullptr;
    QLabel* m_count = nullptr;
    QPushButton* m_all = nullptr;
    QPushButton* m_console = nullptr;
    QPushButton* m_preview = nullptr;
    QPushButton* m_file = nullptr;
};

} // namespace host
