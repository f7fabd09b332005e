// The least that showing a page can cost: a plain table view whose rows are replaced and painted.
#pragma once

#include <memory>

class QTableView;

namespace bench {

/// 30 rows of 17 text columns of Chinese text in a view of the console's size.
class BareGrid final {
public:
    BareGrid();
    ~BareGrid();

    /// Replaces all rows and paints them now. Milliseconds.
    [[nodiscard]] double ReplaceAndPaint();

private:
    class Model;
    std::unique_ptr<Model> m_model;
    std::unique_ptr<QTableView> m_view;
};

} // namespace bench
