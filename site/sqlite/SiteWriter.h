// Puts a site into a data folder: projects, people, floors, and the photos with their files.
#pragma once

#include <QByteArray>
#include <QString>

#include <memory>
#include <vector>

namespace site {

class DataFolder;

/// Where the bytes of a new file come from: a path, or the bytes themselves if the path is empty.
struct FileSource {
    QString path;
    QByteArray bytes;
};

struct NewPosition {
    qint32 ppid = 0;
    QString floor;
    QString axisX;
    QString axisY;
    QString positionKey; ///< unique over all projects; empty: one is made
    bool valid = true;   ///< false: no longer in the model
};

/// People are login names. Times are seconds since 1970, 0 in `updateTime`: never changed.
struct NewBimPhoto {
    qint32 ppid = 0;
    QString fileName; ///< with extension
    QString description;
    QString positionKey; ///< of a position of the project; empty: no floor, no axes
    qint32 markId = 0;   ///< may be unknown to the mark table
    qint32 state = 0;    ///< rectification state, see RectifyStates.h
    qint32 status = 0;   ///< 0 shown, 1 hidden
    QString uploader;
    qint64 uploadTime = 0;
    QString updater;
    qint64 updateTime = 0;
    std::vector<qint32> labelIds;
};

/// Mark and labels are those of the checkpoint.
struct NewPdfPhoto {
    qint32 checkpointId = 0;
    QString fileName;
    QString description;
    qint32 state = 0;
    qint32 status = 0;
    QString uploader;
    qint64 uploadTime = 0;
    QString updater;
    qint64 updateTime = 0;
};

struct NewCheckpoint {
    qint32 drawingId = 0;
    qint32 number = 0;
    QString description;
    QString remark;
    qint32 markId = 0;
    qint64 x = 0; ///< where it lies on the drawing, thousandths of its width and height
    qint64 y = 0;
    qint64 updateTime = 0;
    std::vector<qint32> labelIds;
};

struct NewIssue {
    qint32 ppid = 0;
    QString questionId; ///< empty: one is made
    QString theme;
    QString description;
    QString floor;
    QString posInfo;
    QString componentName;
    QString componentSubName;
    QString componentHandle;
    qint32 markId = 0;
    qint32 state = 0;
    qint32 status = 0;
    QString creator;
    qint64 createTime = 0;
    QString updater;
    qint64 updateTime = 0; ///< 0: never changed
    QString rectifyText;   ///< with an empty rectifier there is no rectification
    QString rectifier;
};

/// A picture of an issue, or of its rectification.
struct NewIssuePic {
    QString questionId;
    bool rectification = false;
    QString fileName;
    QString uploader;
    qint64 uploadTime = 0;
};

/// Each operation is one transaction of its own, or part of the batch that is open. Files are
/// stored and synced before their rows are written, so a crash leaves at most a file without a
/// row, which the next opening of the folder removes. All operations throw DataError.
/// Thread: the one that opened the folder.
class SiteWriter final {
public:
    /// The folder must outlive the writer.
    explicit SiteWriter(DataFolder& dataFolder);
    ~SiteWriter();

    /// One transaction for many operations: begun here, committed by CommitBatch, undone (rows and
    /// files) by the destructor of a writer whose batch is still open.
    void BeginBatch();
    void CommitBatch();

    /// Ids of projects are given from 1 on; `major`: 1 to 4, the trade. An existing name is reused.
    qint32 AddProject(const QString& name, qint32 major = 1);
    qint32 AddWorkset(const QString& name, const std::vector<qint32>& ppids);
    /// Rights replace those that the user had.
    qint32 AddUser(const QString& name, const std::vector<qint32>& rights);
    /// `color` is 0xBBGGRR. An existing id is replaced.
    void AddMark(qint32 markId, const QString& name, qint32 color);
    qint32 AddLabel(const QString& name);
    void AddFloor(qint32 ppid, const QString& floor);
    /// Adds the floor too if it is missing; returns the position key.
    QString AddPosition(const NewPosition& position);
    qint32 AddDrawing(qint32 ppid, const QString& name, const FileSource& file = {});
    qint32 AddCheckpoint(const NewCheckpoint& checkpoint);
    void SetSetting(const QString& key, const QString& value);

    /// Stores the picture and files the photo; returns its id. `voice`: an AMR note, or empty.
    qint32 FilePhoto(const NewBimPhoto& photo, const FileSource& picture,
                     const FileSource& voice = {});
    qint32 FilePdfPhoto(const NewPdfPhoto& photo, const FileSource& picture);
    void SetCheckpointVoice(qint32 checkpointId, const FileSource& voice);
    /// Returns the question id.
    QString FileIssue(const NewIssue& issue, const FileSource& voice = {});
    /// `thumb` may be empty: then the picture stands for it.
    QString FileIssuePic(const NewIssuePic& pic, const FileSource& picture,
                         const FileSource& thumb = {});

    /// Photo ids and the like: 0 or empty where there is none.
    [[nodiscard]] qint32 FindProject(const QString& name);
    [[nodiscard]] qint32 FindUser(const QString& name);
    [[nodiscard]] qint32 FindMark(const QString& name);
    [[nodiscard]] QString FindPosition(qint32 ppid, const QString& floor, const QString& axisX,
                                       const QString& axisY);
    /// By the MD5 of the picture, 32 lower-case hexadecimal digits; photos in the bin don't count.
    [[nodiscard]] qint32 FindPhotoByMd5(qint32 ppid, const QString& md5);
    [[nodiscard]] qint32 FindPdfPhotoByMd5(qint32 ppid, const QString& md5);
    [[nodiscard]] bool IsEmpty();

private:
    class Impl;
    std::unique_ptr<Impl> impl;
};

} // namespace site
