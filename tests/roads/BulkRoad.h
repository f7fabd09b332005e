// Roads on which many photos or issues are filed at once.
#pragma once

#include "tests/roads/PhotoRoad.h"

class QAbstractItemView;

namespace roads {

/// The client on the photo road's site and three photos that wait to be filed: 散1.jpg without
/// anything, 散2.jpg with a mark, 散3.jpg with a place; labels "渗漏" and "复查".
class BulkRoad : public PhotoRoad {
protected:
    void SetUp() override;

    /// Opens the console of a kind; all of that kind are listed.
    void OpenConsoleOf(Qt::Key key, int total);
    /// By the row's name.
    void Tick(const QStringList& names);
    /// Ctrl+Shift+G in a window.
    static void AskIn(QWidget* window);
    /// The question; null while it isn't open.
    [[nodiscard]] static QWidget* Question();
    void ChooseAll(const std::vector<std::pair<QString, QString>>& boxesAndEntries);
    /// By its button; the question goes.
    void Accept();
    /// By its button; the question stays with a fault.
    [[nodiscard]] QString RefusedBecause();
    [[nodiscard]] static QWidget* Skipped();
    /// Rows of the list of what was skipped, columns joined by a comma.
    [[nodiscard]] static QStringList SkippedRows();
    [[nodiscard]] bool IsTold(const QString& text) const;
    /// The newest message's.
    bool ClickUndo();
    [[nodiscard]] QString LastAction() const;
    [[nodiscard]] KX_DATA::BimPicDetail Photo(qint32 picId) const;
    [[nodiscard]] QStringList LabelsOf(qint32 picId) const;
    void SetRights(const std::vector<qint32>& rights);

    qint32 bare = 0;   ///< 散1.jpg
    qint32 marked = 0; ///< 散2.jpg, mark 1
    qint32 placed = 0; ///< 散3.jpg, at cornerKey
};

} // namespace roads
