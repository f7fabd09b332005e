// Any bytes as a reminder message: what the reader says of them, not only that it survives.
#include "reminder/feed/MessageText.h"
#include "reminder/feed/PicMessage.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

using KX_DATA::PicMsgRecord;
using Records = std::vector<PicMsgRecord>;
using Read = bool (*)(const QString& json, const std::vector<qint32>& openProjects,
                      Records& records);

const std::vector<qint32> kOpen{1, 12, -3};
/// What lies in the result before the message is read.
constexpr qint32 kEarlier = 4711;
constexpr size_t kTooLarge = reminder::kMostBytes + 1;

void Expect(bool holds, const char* what) {
    if (!holds) {
        std::fprintf(stderr, "reminder_fuzz: not so: %s\n", what);
        std::abort();
    }
}

bool AreSame(const PicMsgRecord& a, const PicMsgRecord& b) {
    return a.reserved == b.reserved && a.floor == b.floor && a.userName == b.userName &&
           a.picName == b.picName && a.labelText == b.labelText && a.pos == b.pos &&
           a.intersectionId == b.intersectionId && a.uuid == b.uuid && a.markerId == b.markerId &&
           a.picId == b.picId && a.localFile == b.localFile && a.ppid == b.ppid &&
           a.questionName == b.questionName && a.questionId == b.questionId &&
           a.handle == b.handle && a.compName == b.compName && a.labelNames == b.labelNames;
}

/// How deep a message lies that was read: only there are its quotes in pairs.
int DepthOf(const QString& json) {
    int depth = 0;
    int deepest = 0;
    bool inText = false;
    bool isEscaped = false;
    for (const QChar c : json) {
        if (inText && !isEscaped && c == u'\\') {
            isEscaped = true;
            continue;
        }
        inText = c == u'"' && !isEscaped ? !inText : inText;
        isEscaped = false;
        if (!inText) {
            depth += (c == u'{' || c == u'[' ? 1 : 0) - (c == u'}' || c == u']' ? 1 : 0);
            deepest = std::max(deepest, depth);
        }
    }
    return deepest;
}

/// What a message says, as the feed asks for it; the text is none where that stops before.
bool Reads(const std::optional<QString>& text, Read read, Records& records) {
    return text && read(*text, kOpen, records);
}

void ExpectLargerIsVoid(const std::string& message) {
    static std::string large(kTooLarge, ' ');
    large.append(message);
    Expect(!reminder::MessageText(large), "a message that is too large is void");
    large.resize(kTooLarge);
}

void Check(const std::optional<QString>& text, Read read) {
    Records records(1);
    records[0].ppid = kEarlier;
    const bool isRead = Reads(text, read, records);
    Expect(records.size() == (isRead ? 2U : 1U), "one record of a message, none of a void one");
    Expect(records[0].ppid == kEarlier, "what was there before stays");
    Records again;
    Expect(Reads(text, read, again) == isRead, "a second reading says the same");
    if (isRead) {
        Expect(std::find(kOpen.begin(), kOpen.end(), records[1].ppid) != kOpen.end(),
               "the project is open");
        Expect(again.size() == 1 && AreSame(again[0], records[1]),
               "a second reading gives the same record");
        Expect(records[1].localFile.isEmpty(), "no message names a file of this machine");
        Expect(DepthOf(*text) <= reminder::kDeepest, "a message that is too deep is void");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string message(reinterpret_cast<const char*>(data), size);
    const auto text = reminder::MessageText(message);
    Expect(text.has_value() == !message.empty(), "a message of this size has a text");
    ExpectLargerIsVoid(message);
    Check(text, reminder::ReadPicMessage);
    Check(text, reminder::ReadIssueMessage);
    return 0;
}
