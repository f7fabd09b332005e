// Order and widths of the fields of the records that cross to the services, which fix them.
#include "services/DrawingRecords.h"
#include "services/IssueRecords.h"
#include "services/MarkGroups.h"
#include "services/PageQuery.h"
#include "services/PicRecords.h"
#include "services/RichTextRecords.h"

#include <gtest/gtest.h>

namespace {

// What doesn't have the width that is meant doesn't compile.
template <class Record> auto Text(QString Record::*field) {
    return field;
}
template <class Record> auto Int(qint32 Record::*field) {
    return field;
}
template <class Record> auto Long(qint64 Record::*field) {
    return field;
}
template <class Record> auto Flag(bool Record::*field) {
    return field;
}
template <class Record, class Entry> auto List(std::vector<Entry> Record::*field) {
    return field;
}

size_t RoundedUp(size_t offset, size_t alignment) {
    return (offset + alignment - 1) / alignment * alignment;
}

/// The record consists of these fields one behind the other, and of no other.
template <class Record, class... Fields> void ExpectFields(Fields... fields) {
    const Record record;
    size_t end = 0;
    int place = 0;
    const auto check = [&](const auto& field) {
        using Field = std::remove_cvref_t<decltype(field)>;
        const auto offset =
            size_t(reinterpret_cast<const char*>(&field) - reinterpret_cast<const char*>(&record));
        EXPECT_EQ(offset, RoundedUp(end, alignof(Field))) << "field " << place;
        end = offset + sizeof(Field);
        ++place;
    };
    (check(record.*fields), ...);
    EXPECT_EQ(RoundedUp(end, alignof(Record)), sizeof(Record));
}

} // namespace

TEST(RecordOrder, OfAReminderMessage) {
    using R = KX_DATA::PicMsgRecord;
    ExpectFields<R>(Text(&R::reserved), Text(&R::floor), Text(&R::userName), Text(&R::picName),
                    Text(&R::labelText), Text(&R::pos), Text(&R::intersectionId), Text(&R::uuid),
                    Int(&R::markerId), Int(&R::picId), Text(&R::localFile), Int(&R::ppid),
                    Text(&R::questionName), Text(&R::questionId), Text(&R::handle),
                    Text(&R::compName), List(&R::labelNames));
}

TEST(RecordOrder, OfBimPhotos) {
    using R = KX_DATA::BimPicRow;
    ExpectFields<R>(Text(&R::posText), Text(&R::axisX), Text(&R::axisY), Text(&R::text3),
                    Text(&R::description), Int(&R::picId), Text(&R::floor), Text(&R::text6),
                    Text(&R::text7), Int(&R::posValid), Int(&R::markId), Text(&R::positionKey),
                    Text(&R::text8), Text(&R::fileName), Int(&R::status), List(&R::labelNames),
                    Text(&R::updaterName), Text(&R::updateTime), Long(&R::updateStamp),
                    Text(&R::uploaderName), Text(&R::uploadTime), Long(&R::uploadStamp),
                    Text(&R::text9), Text(&R::rectifyText), Int(&R::ppid));
    using D = KX_DATA::BimPicDetail;
    ExpectFields<D>(Int(&D::picId), Int(&D::ppid), Text(&D::positionKey), Text(&D::axisX),
                    Text(&D::axisY), Text(&D::description), Text(&D::floor), Text(&D::text5),
                    Int(&D::markId), Text(&D::markName), Text(&D::fileName), Int(&D::markColor),
                    List(&D::labels), Text(&D::uploaderName), Long(&D::uploadTime),
                    Text(&D::updaterName), Long(&D::updateTime), Int(&D::status));
    using F = KX_DATA::PicFileEntry;
    ExpectFields<F>(Int(&F::picId), Int(&F::value1), Int(&F::kind), Int(&F::value2),
                    Long(&F::value3), Text(&F::text1), Text(&F::text2), Text(&F::picUuid),
                    Text(&F::text3), Text(&F::audioUuid));
    using U = KX_DATA::BimPicUpdate;
    ExpectFields<U>(Text(&U::description), Int(&U::picId), Text(&U::positionKey), Int(&U::markId),
                    Text(&U::fileName), Int(&U::status), List(&U::labelIds), Text(&U::text1),
                    Text(&U::text2), Text(&U::text3));
}

TEST(RecordOrder, OfDrawingPhotos) {
    using R = KX_DATA::PdfPicRecord;
    ExpectFields<R>(Text(&R::text1), Int(&R::drawingId), Int(&R::checkpointNo),
                    Text(&R::description), Int(&R::markId), Int(&R::checkpointId),
                    Text(&R::drawingName), Int(&R::picId), Text(&R::fileName), Int(&R::status),
                    List(&R::labels), Text(&R::updaterName), Text(&R::updateTime),
                    Text(&R::uploaderName), Text(&R::uploadTime), Text(&R::text2), Text(&R::text3),
                    Text(&R::rectifyText), Int(&R::ppid));
    using D = KX_DATA::PdfPicDetail;
    ExpectFields<D>(Int(&D::value1), List(&D::entries), Text(&D::text1), Text(&D::text2),
                    Text(&D::text3), Int(&D::drawingId));
    using C = KX_DATA::CheckpointComment;
    ExpectFields<C>(Int(&C::exists), Int(&C::value1), Text(&C::text), Long(&C::commentId),
                    Long(&C::time), Int(&C::value2));
}

TEST(RecordOrder, OfIssuesAndTheirRectifications) {
    using D = KX_DATA::QuestionDetail;
    ExpectFields<D>(Text(&D::componentName), Long(&D::createTime), Text(&D::creatorName),
                    Text(&D::description), Text(&D::floor), Text(&D::componentHandle),
                    Int(&D::markId), Long(&D::updateTime), Text(&D::updaterName), Text(&D::qrCode),
                    Text(&D::questionId), Text(&D::questionName), Int(&D::value1), Int(&D::status),
                    Text(&D::componentSubName), Text(&D::voiceMd5), Long(&D::value2),
                    Text(&D::voiceUuid), Int(&D::value3), Int(&D::voiceState), Int(&D::ppid));
    using P = KX_DATA::QuestionPicRecord;
    ExpectFields<P>(Text(&P::picId), Text(&P::fileName), Text(&P::uploaderName),
                    Long(&P::uploadTime), Long(&P::fileSize), Text(&P::fileUuid), Text(&P::fileMd5),
                    Text(&P::thumbUuid), Text(&P::thumbMd5), Long(&P::thumbSize), Text(&P::text1));
    using R = KX_DATA::RectifyRecord;
    ExpectFields<R>(Text(&R::questionId), Text(&R::rectifyText), Long(&R::value1),
                    Text(&R::rectifierName), Int(&R::state), List(&R::pics), Text(&R::voiceMd5),
                    Long(&R::value2), Text(&R::voiceUuid), Int(&R::value3), Int(&R::voiceState));
    using C = KX_DATA::PickedComponent;
    ExpectFields<C>(Int(&C::id), Text(&C::floor), Text(&C::text1), Text(&C::text2), Text(&C::text3),
                    Text(&C::componentName), Text(&C::componentHandle), Text(&C::componentSubName),
                    Text(&C::text4));
}

TEST(RecordOrder, OfRichTexts) {
    using R = KX_DATA::RichTextMsg;
    ExpectFields<R>(Text(&R::docName), Long(&R::updateTime), Text(&R::editorName),
                    Text(&R::versionText), Text(&R::stateText), List(&R::attachments));
    using A = KX_DATA::RichAttachment;
    ExpectFields<A>(Text(&A::name), Text(&A::md5), Text(&A::uuid), Int(&A::size), Int(&A::kind));
    using K = KX_DATA::RichTextKey;
    ExpectFields<K>(Text(&K::objectId), Int(&K::subId), Int(&K::ownerId), Int(&K::projectId),
                    Int(&K::objectType));
}

TEST(RecordOrder, OfSearchesAndTheirPages) {
    using P = KX_DATA::PicQueryFilter;
    ExpectFields<P>(Text(&P::keyword), Text(&P::presetKey), Text(&P::labelId), Int(&P::markId),
                    Int(&P::picId), Flag(&P::noDateLimit), Long(&P::startTime), Long(&P::endTime),
                    Text(&P::status), Text(&P::presetExtra), List(&P::projectIds));
    using D = KX_DATA::PdfQueryFilter;
    ExpectFields<D>(Text(&D::keyword), Int(&D::markId), Text(&D::labelId), Int(&D::drawingId),
                    Int(&D::checkpointId), Flag(&D::noDateLimit), Long(&D::startTime),
                    Long(&D::endTime), Text(&D::status), List(&D::projectIds));
    using Q = KX_DATA::PageRequest;
    ExpectFields<Q>(Int(&Q::page), Int(&Q::pageSize), Text(&Q::sortField), Text(&Q::sortOrder));
    using R = KX_DATA::PageResult;
    ExpectFields<R>(Long(&R::reserved), Int(&R::totalCount), Int(&R::pageCount));
    using V = KX_DATA::PicViewItem;
    ExpectFields<V>(Int(&V::picId), Int(&V::ppid), Text(&V::uuid), Text(&V::fileText),
                    Text(&V::picName), Text(&V::positionKey), Int(&V::drawingId), Int(&V::markId),
                    Text(&V::positionText), Text(&V::uploader), Text(&V::uploadTime),
                    Text(&V::updater), Text(&V::updateTime), Text(&V::labelText),
                    Text(&V::description), Text(&V::rectifyText));
}

TEST(RecordOrder, OfTheMarksOfThePanel) {
    using F = KX_DATA::PicFilterEntry;
    ExpectFields<F>(Text(&F::name), Int(&F::count), List(&F::values), Int(&F::id));
    using S = KX_DATA::IssueFilterSource;
    ExpectFields<S>(Int(&S::id), Int(&S::count), Text(&S::name), List(&S::pairs));
    using G = KX_DATA::PicMarkGroup;
    ExpectFields<G>(&G::name, Int(&G::id), List(&G::items));
    using I = KX_DATA::PicMarkItem;
    ExpectFields<I>(&I::positionKey, &I::itemName, &I::text3, &I::text4, &I::text5, Int(&I::total),
                    Int(&I::groupId), List(&I::leaves));
    using L = KX_DATA::PicMarkLeaf;
    ExpectFields<L>(&L::text1, &L::text2, Int(&L::markId), Int(&L::count), Text(&L::markName));
    using E = KX_DATA::IssueMarkEntry;
    ExpectFields<E>(Text(&E::itemText), Text(&E::itemKey), Text(&E::text3), Text(&E::text4),
                    Int(&E::value));
}
