#include "site/sqlite/FixedColumns.h"

namespace site {

using namespace Qt::StringLiterals;

FixedColumns FixedOf(ListKind kind, const ListFilter& filter) {
    FixedColumns fixed;
    if (filter.positionKey) {
        fixed = {{{u"position_key"_s, *filter.positionKey}}, u"bim_by_key"_s};
    }
    // A floor has as many photos as a mark: see ListHits.
    if (filter.floor && kind == ListKind::Issues) {
        fixed = {{{u"floor"_s, *filter.floor}}, u"issue_of_floor"_s};
        if (filter.componentHandle) {
            fixed.values.emplace_back(u"component_handle"_s, *filter.componentHandle);
        }
    }
    if (filter.drawingId) {
        fixed = {{{u"drawing_id"_s, *filter.drawingId}}, u"pdf_of_drawing"_s};
    }
    if (filter.checkpointId) {
        fixed.values.emplace_back(u"checkpoint_id"_s, *filter.checkpointId);
        fixed.index = u"pdf_of_checkpoint"_s;
    }
    return fixed;
}

} // namespace site
