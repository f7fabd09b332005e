#include "host/report/ReportPages.h"

#include "host/report/PageMaker.h"

namespace host {

ReportPages LayoutReport(const ReportSheet& sheet, bool withRecord) {
    return PageMaker(sheet, withRecord).Make();
}

std::vector<PagePhoto> PhotosOf(const ReportPages& pages) {
    std::vector<PagePhoto> photos;
    for (const ReportPage& page : pages.pages) {
        for (const PageItem& item : page.items) {
            if (const auto* photo = std::get_if<PhotoItem>(&item);
                photo != nullptr && !photo->file.isEmpty()) {
                photos.push_back({photo->file, photo->place.room.size()});
            }
        }
    }
    if (pages.record) {
        for (const RecordDocument::Picture& picture : pages.record->Pictures()) {
            photos.push_back({picture.file, picture.size});
        }
    }
    return photos;
}

} // namespace host
