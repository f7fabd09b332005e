#include "site/sqlite/ListShape.h"

#include <algorithm>
#include <array>

namespace site {

using namespace Qt::StringLiterals;

namespace {

ListShape BimShape() {
    return {ListKind::BimPhotos,
            u"bim_photo"_s,
            u"bim_text"_s,
            u"bim_tally"_s,
            u"bim"_s,
            0,
            {u"name"_s, u"author"_s, u"updater"_s, u"description"_s},
            {u"name"_s, u"uploader"_s, u"updater"_s, u"description"_s},
            {{u"last_modifytime"_s, u"bim_by_time"_s, {u"modified"_s}},
             {u"marker_id"_s, u"bim_by_mark"_s, {u"mark_id"_s}},
             {u"pic_name"_s, u"bim_by_name"_s, {u"name"_s}},
             {u"ppid"_s, u"bim_by_id"_s, {}},
             {u"last_modifyuser"_s, u"bim_by_person"_s, {u"modifier"_s}},
             {u"floor,axis_symbol"_s, u"bim_by_place"_s, {u"floor_sort"_s, u"pos_text"_s}},
             {u"rectifyStatus"_s, u"bim_by_state"_s, {u"state"_s}},
             {u"pic_describe"_s, u"bim_by_description"_s, {u"description"_s}},
             {u"pic_status"_s, u"bim_by_status"_s, {u"status"_s}}}};
}

ListShape PdfShape() {
    constexpr qint64 kFirstPdfPhoto = 1000000001;
    return {ListKind::PdfPhotos,
            u"pdf_photo"_s,
            u"pdf_text"_s,
            u"pdf_tally"_s,
            u"pdf"_s,
            kFirstPdfPhoto,
            {u"name"_s, u"author"_s, u"updater"_s, u"description"_s, u"drawing"_s},
            {u"name"_s, u"uploader"_s, u"updater"_s, u"description"_s, u"drawing_name"_s},
            {{u"last_modifytime"_s, u"pdf_by_time"_s, {u"modified"_s}},
             {u"marker_id"_s, u"pdf_by_mark"_s, {u"mark_id"_s}},
             {u"pic_name"_s, u"pdf_by_name"_s, {u"name"_s}},
             {u"ppid"_s, u"pdf_by_id"_s, {}},
             {u"pdfdrawings_name"_s, u"pdf_by_drawing"_s, {u"drawing_name"_s}},
             {u"last_modifyuser"_s, u"pdf_by_person"_s, {u"modifier"_s}},
             {u"checkpt_num"_s, u"pdf_by_number"_s, {u"checkpoint_no"_s}},
             {u"rectifyStatus"_s, u"pdf_by_state"_s, {u"state"_s}},
             {u"pic_describe"_s, u"pdf_by_description"_s, {u"description"_s}},
             {u"pic_status"_s, u"pdf_by_status"_s, {u"status"_s}}}};
}

ListShape IssueShape() {
    return {ListKind::Issues,
            u"issue"_s,
            u"issue_text"_s,
            u"issue_tally"_s,
            u"issue"_s,
            0,
            {u"theme"_s, u"author"_s, u"updater"_s, u"description"_s},
            {u"theme"_s, u"creator"_s, u"updater"_s, u"description"_s},
            {{u"modifytime"_s, u"issue_by_time"_s, {u"modified"_s}},
             {u"markerId"_s, u"issue_by_mark"_s, {u"mark_id"_s}},
             {u"theme"_s, u"issue_by_theme"_s, {u"theme"_s}},
             {u"ppid"_s, u"issue_by_id"_s, {}},
             {u"modifyuser"_s, u"issue_by_person"_s, {u"modifier"_s}},
             {u"floor,posinfo,compname"_s,
              u"issue_by_place"_s,
              {u"floor_sort"_s, u"pos_info"_s, u"component_name"_s}},
             {u"rectifyStatus"_s, u"issue_by_state"_s, {u"state"_s}},
             {u"describe"_s, u"issue_by_description"_s, {u"description"_s}},
             {u"status"_s, u"issue_by_status"_s, {u"status"_s}}}};
}

} // namespace

const ListShape& ShapeOf(ListKind kind) {
    static const std::array<ListShape, 3> shapes{BimShape(), PdfShape(), IssueShape()};
    return shapes[static_cast<size_t>(kind) - 1];
}

const SortShape& SortOf(const ListShape& shape, const QString& field) {
    const auto found = std::find_if(shape.sorts.begin(), shape.sorts.end(),
                                    [&](const SortShape& sort) { return sort.field == field; });
    return found != shape.sorts.end() ? *found : shape.sorts.front();
}

} // namespace site
