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
    ImportDialog(QWidget* parent, const QStringList& paths,
                 const std::vector<ImportProject>& projects);
    ~ImportDialog() override;

    [[nodiscard]] ImportChoice Choice() const;

private:
    void FillMarks();
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
