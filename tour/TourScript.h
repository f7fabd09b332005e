// The walk's steps, written down one after the other.
#pragma once

#include "tour/TourRunner.h"

namespace tour {

/// Where a walk finds its own files.
struct TourPlaces {
    QString dataFolder;     ///< of the client
    QString photoFolder;    ///< made by the tour: pictures to import, and a text file among them
    int photoCount = 0;     ///< pictures in it that can be read
    QString downloadFolder; ///< where downloaded photos go; made by the walk
    QString pictures;       ///< where the pictures of the walk go
};

/// Writes the steps down.
class TourScript final {
public:
    using Act = std::function<bool()>;

    /// What is done, how, and how one sees that it happened.
    void Do(const QString& text, Act act, Act seen);
    /// A picture of the window that bears this name or title, once the step before is seen. Its
    /// file is named by its place in the walk and `what`: "06-console.png".
    void Picture(const QString& window, const QString& what);
    void Picture(const std::function<QWidget*()>& find, const QString& what);
    [[nodiscard]] std::vector<TourStep> Take() { return std::move(m_steps); }

private:
    std::vector<TourStep> m_steps;
    int m_pictures = 0;
};

/// With nothing there yet: from the first page into a site of one's own.
void WriteFirstStart(TourScript& script);
/// Floors, axes, marks, labels and people of the site in the settings.
void WriteSetup(TourScript& script);
/// The walk's photos come in without a place or a mark.
void WriteUnplacedImport(TourScript& script, const TourPlaces& places);
/// They wait for both, are filed together, taken back and filed again.
void WriteInbox(TourScript& script, const TourPlaces& places);
/// Bars of the project's photos, and the console on what one stands for; it stays open.
void WriteStatistics(TourScript& script);
/// What the camera knew of a photo of the console that is open.
void WritePhotoFacts(TourScript& script);
/// Sign-in and main window with its floor plan.
void WriteStart(TourScript& script);
/// The console with BIM photos: search and filters.
void WriteBimSearch(TourScript& script);
/// The editor of a photo, from a row of the console that is open.
void WriteEditor(TourScript& script);
/// From a row of the console into the viewer and back, with a voice note.
void WriteViewer(TourScript& script, const TourPlaces& places);
/// With the photo viewer open: what is written below the pictures, its report in the folder for
/// downloads; ends with the viewer closed.
void WriteRecord(TourScript& script, const TourPlaces& places);
/// With a viewer open: its report comes up and stays open.
void WriteReport(TourScript& script, const QString& viewer, const QString& what);
/// Looks through a report that is open and saves it as a PDF.
void WriteReportPages(TourScript& script, const QString& file);
void WriteReportEnd(TourScript& script);
/// Versions and drafts of such texts.
void WriteRecordWindows(TourScript& script);
/// Photos are imported by menu and by drop while the console is open.
void WriteImport(TourScript& script, const TourPlaces& places);
/// The console with BIM photos: order, pages, row actions; closed at the end.
void WriteBimActions(TourScript& script);
/// The checked photos of a page into a folder, over slow transfers, and the gallery with them.
void WriteDownloads(TourScript& script, const TourPlaces& places);
/// The console with drawing photos and with issues; closed at the end.
void WriteOtherConsoles(TourScript& script);
/// The plan's flags and the mark panel.
void WriteMarks(TourScript& script);
/// A drawing with its checkpoints, one in its viewer and editor; a photo gets another checkpoint.
void WriteDrawingView(TourScript& script);
/// An issue in its viewer, pictures for its rectification, another component.
void WriteIssueWindows(TourScript& script, const TourPlaces& places);
/// Bin, help, another project, a workset.
void WriteHostWindows(TourScript& script);
/// What another client files while this one runs.
void WriteReminders(TourScript& script, const TourPlaces& places);
/// Closes the client.
void WriteEnd(TourScript& script);

} // namespace tour
