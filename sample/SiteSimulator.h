// Files what the phones on a building site would, one thing at a time.
#pragma once

#include "sample/Dice.h"
#include "sample/PictureArtist.h"
#include "sample/scenes/SceneKinds.h"
#include "site/NewRecords.h"
#include "site/Records.h"

#include <functional>
#include <optional>

namespace site {
class ISite;
} // namespace site

namespace sample {

enum class SimulatedKind : quint8 {
    Photo,
    VoiceNote, ///< a photo with a spoken note
    Issue
};

/// What was filed.
struct SimulatedItem {
    SimulatedKind kind = SimulatedKind::Photo;
    qint32 picId = 0;   ///< of a photo, with or without a note
    QString questionId; ///< of an issue
    QString title;      ///< name of the photo, theme of the issue
    QString person;
    QString place; ///< "3层 4-B轴"; empty: the project has no floors
    int pictures = 0;
};

/// Bytes of the next picture, a JPEG; may throw DataError.
using PictureSource = std::function<QByteArray()>;

/// Photos, voice notes and issues in turn, by the people of the site that may do more than read, at
/// places, with marks and labels that the site has at that moment. Thread: the site's.
class SiteSimulator final {
public:
    /// @param target    has somebody in it and outlives the simulator.
    /// @param seed      equal seeds on equal sites give equal items.
    /// @param pictures  empty: they are drawn, for which the application object must be there.
    SiteSimulator(site::ISite& target, site::ProjectEntry toFill, quint64 seed,
                  PictureSource pictures = {});

    /// Files the next item in one commit, with the site's present time. Throws DataError: nothing
    /// of the item is there then, and the next call tries the same one again.
    SimulatedItem Step();

private:
    struct Place {
        QString floor;
        QString axes; ///< "4-B轴"
        QString positionKey;
        QString text;
    };
    struct Draft {
        SimulatedItem item;
        site::NewBimPhoto photo;
        site::NewIssue issue;
        std::vector<QByteArray> pictures;
        QByteArray voice;
    };

    [[nodiscard]] Draft MakeDraft();
    void DraftPhoto(Draft& draft, const Place& place, const QString& finding);
    void DraftIssue(Draft& draft, const Place& place, const QString& finding);
    void AddPictures(Draft& draft, SceneKind scene, const QString& finding);
    void FilePhoto(Draft& draft);
    void FileIssue(Draft& draft);
    [[nodiscard]] QString PickPerson();
    [[nodiscard]] Place PickPlace();
    [[nodiscard]] SceneKind PickScene(const QString& floor);
    [[nodiscard]] qint32 PickMark();
    [[nodiscard]] std::vector<qint32> PickLabels();

    site::ISite& m_site;
    site::ProjectEntry m_project;
    PictureSource m_pictures;
    Dice m_dice;
    PictureArtist m_artist;
    std::vector<QString> m_people; ///< read with the first item
    QString m_lastPerson;
    size_t m_filed = 0;
    std::optional<Draft> m_draft; ///< not filed yet
};

} // namespace sample
