// Puts a site into a data folder: projects, people, floors, and the photos with their files.
#pragma once

#include "site/IIntake.h"

#include <memory>

namespace site {

class DataFolder;

/// Each operation is one transaction of its own, or part of the batch that is open. Files are
/// stored and synced before their rows are written, so a crash leaves at most a file without a
/// row, which the next opening of the folder removes. All operations throw DataError.
/// Thread: the one that opened the folder.
class SiteWriter final : public IIntake {
public:
    /// The folder must outlive the writer.
    explicit SiteWriter(DataFolder& dataFolder);
    ~SiteWriter() override;

    void BeginBatch() override;
    void CommitBatch() override;
    qint32 AddProject(const QString& name, qint32 major = 1) override;
    qint32 AddWorkset(const QString& name, const std::vector<qint32>& ppids) override;
    qint32 AddUser(const QString& name, const std::vector<qint32>& rights) override;
    void AddMark(qint32 markId, const QString& name, qint32 color) override;
    qint32 AddLabel(const QString& name) override;
    void AddFloor(qint32 ppid, const QString& floor) override;
    QString AddPosition(const NewPosition& position) override;
    void AddComponent(const Component& component) override;
    qint32 AddDrawing(qint32 ppid, const QString& name, const FileSource& file = {},
                      int pages = 0) override;
    qint32 AddCheckpoint(qint32 ppid, const NewCheckpoint& checkpoint) override;
    void SetSetting(const QString& key, const QString& value) override;
    qint32 FilePhoto(const NewBimPhoto& photo, const FileSource& picture,
                     const FileSource& voice = {}) override;
    qint32 FilePdfPhoto(qint32 ppid, const NewPdfPhoto& photo, const FileSource& picture) override;
    void SetCheckpointVoice(qint32 ppid, qint32 checkpointId, const FileSource& voice) override;
    QString FileIssue(const NewIssue& issue, const FileSource& voice = {},
                      const FileSource& rectifyVoice = {}) override;
    QString FileIssuePic(qint32 ppid, const NewIssuePic& pic, const FileSource& picture,
                         const FileSource& thumb = {}) override;
    [[nodiscard]] qint32 FindProject(const QString& name) override;
    [[nodiscard]] qint32 FindUser(const QString& name) override;
    [[nodiscard]] qint32 FindMark(const QString& name) override;
    [[nodiscard]] QString FindPosition(qint32 ppid, const QString& floor, const QString& axisX,
                                       const QString& axisY) override;
    [[nodiscard]] qint32 FindPhotoByMd5(qint32 ppid, const QString& md5) override;
    [[nodiscard]] qint32 FindPdfPhotoByMd5(qint32 ppid, const QString& md5) override;
    [[nodiscard]] bool IsEmpty() override;

private:
    class Impl;
    std::unique_ptr<Impl> m_impl;
};

} // namespace site
