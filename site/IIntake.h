// How things get into a site.
#pragma once

#include "site/IComponents.h"
#include "site/NewRecords.h"

namespace site {

/// Each operation is all or nothing, or part of the batch that is open; a crash leaves no row
/// without its file. What lies in another project than the one named is as unknown as what isn't
/// there: Missing, with nothing changed. All operations throw DataError. Thread: the site's.
class IIntake {
public:
    virtual ~IIntake() = default;

    /// One transaction for many operations: begun here, committed by CommitBatch, undone (rows and
    /// files) by the destructor of a writer whose batch is still open.
    virtual void BeginBatch() = 0;
    virtual void CommitBatch() = 0;

    /// Ids of projects are given from 1 on; `major`: 1 to 4, the trade. An existing name is reused.
    virtual qint32 AddProject(const QString& name, qint32 major = 1) = 0;
    virtual qint32 AddWorkset(const QString& name, const std::vector<qint32>& ppids) = 0;
    /// Rights replace those that the user had.
    virtual qint32 AddUser(const QString& name, const std::vector<qint32>& rights) = 0;
    /// `color` is 0xBBGGRR. An existing id is replaced.
    virtual void AddMark(qint32 markId, const QString& name, qint32 color) = 0;
    virtual qint32 AddLabel(const QString& name) = 0;
    virtual void AddFloor(qint32 ppid, const QString& floor) = 0;
    /// Adds the floor too if it is missing; returns the position key.
    virtual QString AddPosition(const NewPosition& position) = 0;
    /// An existing handle of the project is replaced; Refused for an empty one.
    virtual void AddComponent(const Component& component) = 0;
    /// Refused for an empty name and for one that a drawing of the project bears. `pages` 0: not
    /// known.
    virtual qint32 AddDrawing(qint32 ppid, const QString& name, const FileSource& file = {},
                              int pages = 0) = 0;
    virtual qint32 AddCheckpoint(qint32 ppid, const NewCheckpoint& checkpoint) = 0;
    virtual void SetSetting(const QString& key, const QString& value) = 0;

    /// Stores the picture and files the photo; returns its id. `voice`: an AMR note, or empty.
    /// Refused for facts that can't be, see PhotoFacts.h. 0, and nothing is left, if the project
    /// has a photo with `onceMd5`, as below, by the time that this one would be filed.
    virtual qint32 FilePhoto(const NewBimPhoto& photo, const FileSource& picture,
                             const FileSource& voice = {}) = 0;
    virtual qint32 FilePdfPhoto(qint32 ppid, const NewPdfPhoto& photo,
                                const FileSource& picture) = 0;
    virtual void SetCheckpointVoice(qint32 ppid, qint32 checkpointId, const FileSource& voice) = 0;
    /// Returns the question id. `voice`: an AMR note, or empty, as that of the rectification, which
    /// only an issue that is worked on has.
    virtual QString FileIssue(const NewIssue& issue, const FileSource& voice = {},
                              const FileSource& rectifyVoice = {}) = 0;
    /// `thumb` may be empty: then the picture stands for it. What comes later than the issue is a
    /// line of its history.
    virtual QString FileIssuePic(qint32 ppid, const NewIssuePic& pic, const FileSource& picture,
                                 const FileSource& thumb = {}) = 0;

    /// Photo ids and the like: 0 or empty where there is none.
    [[nodiscard]] virtual qint32 FindProject(const QString& name) = 0;
    [[nodiscard]] virtual qint32 FindUser(const QString& name) = 0;
    [[nodiscard]] virtual qint32 FindMark(const QString& name) = 0;
    [[nodiscard]] virtual QString FindPosition(qint32 ppid, const QString& floor,
                                               const QString& axisX, const QString& axisY) = 0;
    /// By the MD5 of the picture or of what it was made of, 32 lower-case hexadecimal digits;
    /// photos in the bin don't count.
    [[nodiscard]] virtual qint32 FindPhotoByMd5(qint32 ppid, const QString& md5) = 0;
    [[nodiscard]] virtual qint32 FindPdfPhotoByMd5(qint32 ppid, const QString& md5) = 0;
    [[nodiscard]] virtual bool IsEmpty() = 0;
};

} // namespace site
