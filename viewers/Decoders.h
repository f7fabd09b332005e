// The threads that decode pictures beside the interface thread.
#pragma once

#include "viewers/DecodeJob.h"

#include <memory>

namespace gallery {

/// The more urgent first.
enum class Urgency {
    Wanted, ///< somebody waits: before everything that was handed in so far
    Ahead,  ///< may be wanted soon: in the order in which it is handed in
    Strip, ///< a thumbnail: what is handed in last comes first; none begins while a wanted one runs
};

/// How many decoders there are: one for each core but the first, at least one and at most three,
/// which do everything, and one that thumbnails never keep busy, so that a picture that somebody
/// waits for doesn't wait for them. 0 cores: nobody knows how many.
[[nodiscard]] unsigned DecoderCount(unsigned cores);

/// Hands a job to the decoders. They are started at the first job and joined when the module is
/// unloaded. Thread: any.
void DecodeInBackground(const std::shared_ptr<DecodeJob>& job, Urgency urgency);

/// The picture of a job, which is handed in as wanted; holds the calling thread until it is there.
[[nodiscard]] QImage AwaitDecoded(const std::shared_ptr<DecodeJob>& job);

/// Ends the decoders; the next job starts them again. Jobs that wait stay undone. For tests.
void JoinDecoders();

} // namespace gallery
