// The threads that decode pictures beside the interface thread.
#pragma once

#include "viewers/DecodeJob.h"

#include <memory>

namespace gallery {

enum class Urgency {
    Wanted, ///< somebody waits: before everything that was handed in so far
    Ahead,  ///< may be wanted soon
};

/// How many decoders there are: one for each core but the first, which is the interface thread's,
/// at least one and at most three. 0 cores: nobody knows how many.
[[nodiscard]] unsigned DecoderCount(unsigned cores);

/// Hands a job to the decoders. They are started at the first job and joined when the module is
/// unloaded. Thread: any.
void DecodeInBackground(const std::shared_ptr<DecodeJob>& job, Urgency urgency);

/// Ends the decoders; the next job starts them again. Jobs that wait stay undone. For tests.
void JoinDecoders();

} // namespace gallery
