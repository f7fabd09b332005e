// Which photos are imported, and where they belong.
#pragma once

#include <QDialog>
#include <QStringList>

#include <memory>
#include <vector>

namespace Ui {
class ImportDialog;
}

namespace host {

/// What the person chose.
struct ImportChoice {
    QStringList paths;
    qint32 ppid = 0;
    QString positionKey; ///< empty: the photos get no position
    qint32 markId = 0;   ///< 0: none
};

/// Where the photos may belong, as it was chosen elsewhere; the person can still change it.
struct ImportPlace {
    qint32 ppid = 0; ///< 0: of the first project
    QString floor;   ///< empty: none was chosen
    QString axisX;
    QString positionKey;
};

/// One entry of the dialog's lists.
struct ImportProject {
    qint32 ppid = 0;
    QString name;
};

/// Floors, axes and marks come from the client's services. Owned by its maker. Thread: user
/// interface.
class ImportDialog final : public QDialog {
    Q_OBJECT

public:
    /// @param paths     what was dropped; empty: the person names a folder.
    /// @param projects  at least one.
    /// @param place     what of it isn't known any more is left to the person.
    ImportDialog(QWidget* parent, const QStringList& paths,
                 const std::vector<ImportProject>& projects, const ImportPlace& place = {});
    ~ImportDialog() override;

    /// Marks in this order, those that it doesn't name behind them; else they are in that of their
    /// ids. Before anything is chosen.
    void OrderMarks(const std::vector<qint32>& markIds);
    [[nodiscard]] ImportChoice Choice() const;

private:
    void TakePlace(const ImportPlace& place);
    void FillFloors();
    void FillAxesX();
    void FillAxesY();
    void Browse();
    void Validate();
    [[nodiscard]] qint32 Ppid() const;
    [[nodiscard]] QString Lack() const;
    [[nodiscard]] QStringList Paths() const;

    std::unique_ptr<Ui::ImportDialog> m_form;
    QStringList m_dropped;
    QString m_note; ///< what the dialog says while nothing is amiss
};

} // namespace host
