// What many photos or issues shall become, all at once.
#pragma once

#include <QDialog>

#include <memory>
#include <optional>
#include <vector>

namespace Ui {
class BulkDialog;
}

namespace host {

class PlaceCombos;

enum class BulkOf { BimPhotos, PdfPhotos, Issues };

struct BulkMark {
    qint32 id = 0;
    QString name;
    qint32 color = 0; ///< 0xBBGGRR
};

struct BulkLabel {
    qint32 id = 0;
    QString name;
};

/// What the dialog offers, and for whom.
struct BulkQuestion {
    BulkOf of = BulkOf::BimPhotos;
    int count = 0;
    bool ticked = true; ///< in the console; false: chosen in a list
    bool mayEdit = false;
    bool mayShowHide = false;
    bool mayAddLabels = false;
    qint32 ppid = 0;   ///< whose places are offered
    QString project;   ///< its name
    int elsewhere = 0; ///< photos of other projects, which can't come to its places
    /// Proposed once the person wants a place; empty: none is.
    QString floor;
    QString axisX;
    QString positionKey;
    std::vector<BulkMark> marks;   ///< in this order
    std::vector<BulkLabel> labels; ///< in this order
};

/// What the person chose; absent: stays as it is.
struct BulkAnswer {
    std::optional<QString> positionKey; ///< "": no place
    std::optional<qint32> markId;       ///< 0: none
    std::optional<qint32> status;       ///< of KX_DATA
    std::vector<qint32> labelIds;
    QString newLabel; ///< beside those; empty: none
    bool replaceLabels = false;
};

/// Shows what the kind and the rights allow, the rest not at all. Floors and axes come from the
/// client's services. Can't be accepted while nothing would change, and says why. Owned by its
/// maker. Thread: user interface.
class BulkDialog final : public QDialog {
    Q_OBJECT

public:
    BulkDialog(QWidget* parent, BulkQuestion asked);
    ~BulkDialog() override;

    [[nodiscard]] BulkAnswer Answer() const;
    /// It couldn't be done; stands until another choice is made.
    void ShowFault(const QString& text);

signals:
    /// The person is through with it; who does it accepts the dialog.
    void FilingWanted(const host::BulkAnswer& answer);

private:
    void KeepRoomForHint();
    void FillWays();
    void FillMarks();
    void FillLabels();
    void ShowAllowed();
    void WatchChoices();
    void ChooseWay();
    void ChooseLabelWay();
    void KeepOutBlanks(const QString& typed);
    void Validate();
    [[nodiscard]] QString HeadText() const;
    [[nodiscard]] QString HintText() const;
    [[nodiscard]] QString Lack() const;
    [[nodiscard]] std::vector<qint32> CheckedLabels() const;
    [[nodiscard]] bool WantsPlace() const;

    const BulkQuestion m_question;
    std::unique_ptr<Ui::BulkDialog> m_form;
    std::unique_ptr<PlaceCombos> m_place;
};

} // namespace host
