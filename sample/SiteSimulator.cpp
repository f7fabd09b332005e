#include "sample/SiteSimulator.h"

#include "sample/VoiceNote.h"
#include "sample/site/PlanParts.h"
#include "sample/site/SiteVocabulary.h"
#include "site/ICatalogue.h"
#include "site/IIntake.h"
#include "site/ISite.h"
#include "site/RectifyStates.h"

#include <QStringList>

#include <array>

namespace sample {

using namespace Qt::StringLiterals;

namespace {

/// The kinds in turn.
constexpr std::array kTurn{SimulatedKind::Photo, SimulatedKind::VoiceNote, SimulatedKind::Issue,
                           SimulatedKind::Photo, SimulatedKind::Photo,     SimulatedKind::Issue,
                           SimulatedKind::Photo};
constexpr QSize kPictureSize(960, 720);
constexpr float kSecondPicture = 0.3F;
constexpr int kMostLabels = 3;

template <typename List> const auto& OneOf(const List& list, Dice& dice) {
    return list[static_cast<size_t>(dice.Pick(static_cast<int>(list.size())))];
}

std::vector<QString> PeopleWhoFile(site::ICatalogue& catalogue) {
    const std::vector<QString> all = catalogue.People();
    std::vector<QString> people;
    for (const QString& person : all) {
        if (!catalogue.RightsOf(person).empty()) {
            people.push_back(person);
        }
    }
    return people.empty() ? all : people;
}

} // namespace

SiteSimulator::SiteSimulator(site::ISite& target, site::ProjectEntry toFill, quint64 seed,
                             PictureSource pictures)
    : m_site(target), m_project(std::move(toFill)), m_pictures(std::move(pictures)), m_dice(seed) {}

SimulatedItem SiteSimulator::Step() {
    if (!m_draft) {
        m_draft = MakeDraft();
    }
    if (m_draft->item.kind == SimulatedKind::Issue) {
        FileIssue(*m_draft);
    } else {
        FilePhoto(*m_draft);
    }
    ++m_filed;
    SimulatedItem item = std::move(m_draft->item);
    m_draft.reset();
    return item;
}

SiteSimulator::Draft SiteSimulator::MakeDraft() {
    Draft draft;
    const Place place = PickPlace();
    const SceneKind scene = PickScene(place.floor);
    const QString finding = Finding(scene, m_dice);
    draft.item.kind = kTurn[m_filed % kTurn.size()];
    draft.item.person = PickPerson();
    draft.item.place = place.text;
    if (draft.item.kind == SimulatedKind::Issue) {
        DraftIssue(draft, place, finding);
    } else {
        DraftPhoto(draft, place, finding);
    }
    AddPictures(draft, scene, finding);
    return draft;
}

void SiteSimulator::DraftPhoto(Draft& draft, const Place& place, const QString& finding) {
    site::NewBimPhoto& photo = draft.photo;
    photo.ppid = m_project.ppid;
    photo.fileName = PhotoFileName(static_cast<int>(m_filed), finding, m_site.Now(), u".jpg"_s);
    photo.description = Elaborate(finding, m_dice);
    photo.positionKey = place.positionKey;
    photo.markId = PickMark();
    photo.labelIds = PickLabels();
    photo.state = site::kStateOpen;
    photo.uploader = draft.item.person;
    draft.item.title = photo.fileName;
    draft.item.pictures = 1;
    if (draft.item.kind == SimulatedKind::VoiceNote) {
        const PlannedVoice voice = PlanVoice(1, m_dice);
        draft.voice = MakeSpokenNote(photo.description, voice.seed, voice.milliseconds);
    }
}

void SiteSimulator::DraftIssue(Draft& draft, const Place& place, const QString& finding) {
    site::NewIssue& issue = draft.issue;
    issue.ppid = m_project.ppid;
    issue.theme = finding;
    issue.description = Elaborate(finding, m_dice);
    issue.floor = place.floor;
    issue.posInfo = place.axes;
    const SampleComponent& component = OneOf(SampleComponents(), m_dice);
    issue.componentName = component.name;
    issue.componentSubName = component.subName;
    issue.componentHandle = QString::number(0x10000 + m_dice.Pick(0xEFFFF), 16).toUpper();
    issue.markId = PickMark();
    issue.state = site::kStateOpen;
    issue.creator = draft.item.person;
    draft.item.title = finding;
    draft.item.pictures = m_dice.Chance(kSecondPicture) ? 2 : 1;
}

void SiteSimulator::AddPictures(Draft& draft, SceneKind scene, const QString& finding) {
    for (int number = 0; number < draft.item.pictures; ++number) {
        if (m_pictures) {
            draft.pictures.push_back(m_pictures());
            continue;
        }
        const CaptionFacts facts{m_project.name, draft.item.place, finding, draft.item.person,
                                 m_site.Now()};
        draft.pictures.push_back(
            m_artist.PaintJpeg(PlanPicture(scene, kPictureSize, facts, m_dice)));
    }
}

void SiteSimulator::FilePhoto(Draft& draft) {
    draft.photo.uploadTime = m_site.Now();
    draft.item.picId =
        m_site.NewIntake()->FilePhoto(draft.photo, {{}, draft.pictures.front()}, {{}, draft.voice});
}

void SiteSimulator::FileIssue(Draft& draft) {
    draft.issue.createTime = m_site.Now();
    const auto intake = m_site.NewIntake();
    intake->BeginBatch();
    const QString questionId = intake->FileIssue(draft.issue);
    for (size_t at = 0; at < draft.pictures.size(); ++at) {
        site::NewIssuePic pic;
        pic.questionId = questionId;
        pic.fileName = u"问题_%1.jpg"_s.arg(at + 1);
        pic.uploader = draft.item.person;
        pic.uploadTime = draft.issue.createTime;
        intake->FileIssuePic(draft.issue.ppid, pic, {{}, draft.pictures[at]});
    }
    intake->CommitBatch();
    draft.item.questionId = questionId;
}

QString SiteSimulator::PickPerson() {
    if (m_people.empty()) {
        m_people = PeopleWhoFile(m_site.Catalogue());
    }
    QString person;
    do {
        person = OneOf(m_people, m_dice);
    } while (person == m_lastPerson && m_people.size() > 1);
    m_lastPerson = person;
    return person;
}

SiteSimulator::Place SiteSimulator::PickPlace() {
    site::ICatalogue& catalogue = m_site.Catalogue();
    Place place;
    const std::vector<QString> floors = catalogue.Floors(m_project.ppid);
    if (floors.empty()) {
        return place;
    }
    place.floor = OneOf(floors, m_dice);
    place.text = place.floor + u'层';
    const std::vector<QString> axesX = catalogue.AxesX(m_project.ppid, place.floor);
    if (axesX.empty()) {
        return place;
    }
    const QString axisX = OneOf(axesX, m_dice);
    const auto axesY = catalogue.AxesY(m_project.ppid, place.floor, axisX);
    if (axesY.empty()) {
        return place;
    }
    const KX_DATA::AxisYEntry& axisY = OneOf(axesY, m_dice);
    place.positionKey = axisY.second;
    place.axes = u"%1-%2轴"_s.arg(axisX, axisY.first);
    place.text += u' ' + place.axes;
    return place;
}

SceneKind SiteSimulator::PickScene(const QString& floor) {
    const bool isBelow = floor.startsWith(u'-');
    SceneKind scene = SceneKind::Room;
    do {
        scene = OneOf(kAllSceneKinds, m_dice);
    } while (IsBelowGround(scene) != isBelow);
    return scene;
}

qint32 SiteSimulator::PickMark() {
    std::vector<qint32> ids;
    for (const auto& [markId, mark] : m_site.Catalogue().Marks()) {
        ids.push_back(markId);
    }
    return ids.empty() ? 0 : OneOf(ids, m_dice);
}

std::vector<qint32> SiteSimulator::PickLabels() {
    const std::vector<KX_DATA::LabelEntry> labels = m_site.Catalogue().Labels();
    std::vector<qint32> ids;
    for (int wanted = labels.empty() ? 0 : m_dice.Pick(kMostLabels + 1); wanted > 0; --wanted) {
        ids.push_back(OneOf(labels, m_dice).labelId.toInt());
    }
    return ids;
}

} // namespace sample
