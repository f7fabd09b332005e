// Where the rows of a spreadsheet come from.
#pragma once

#include "sheets/SheetTable.h"

namespace sheets {

/// Thread: user interface.
class IRowSource {
public:
    virtual ~IRowSource() = default;

    /// The next portion; may be empty before the end, too. Throws site::DataError.
    [[nodiscard]] virtual std::vector<SheetRow> Next() = 0;
    [[nodiscard]] virtual bool AtEnd() const = 0;
    /// How many rows there will be, as far as it is known: 0 before the first portion.
    [[nodiscard]] virtual qint64 Total() const = 0;
};

} // namespace sheets
